import QtQuick
import Ospra.Controls
import Ospra.Overview
import Ospra.Theme
import Ospra.Workspace

/// The area beside the sidebar: a toolbar and one of the screens below it.
Item {
    id: root

    required property OspraModel source
    required property int screen

    signal openFolder

    /// Puts the keyboard on what the welcome screen is for.
    function welcome() {
        welcomeScreen.takeFocus();
    }

    TracksModel {
        id: trackList

        source: root.source
    }

    DetailToolbar {
        id: toolbar

        width: root.width
        source: root.source
        tracks: trackList
        showsJump: root.screen === ContentState.JumpDetail
        title: root.screen === ContentState.JumpDetail ? trackList.title : root.screen === ContentState.Overview && root.source.hasJumpGroups ? "Overview" : ""
    }

    Divider {
        id: line

        y: toolbar.height
        width: root.width
    }

    Rectangle {
        anchors.fill: parent
        anchors.topMargin: toolbar.height + line.height
        color: Theme.content

        LoadingScreen {
            anchors.fill: parent
            visible: root.screen === ContentState.LoadingJumps || root.screen === ContentState.LoadingJump
            text: root.screen === ContentState.LoadingJumps ? "Loading jumps..." : "Loading..."
        }

        WelcomeScreen {
            id: welcomeScreen

            anchors.fill: parent
            visible: root.screen === ContentState.Welcome
            onOpenFolder: root.openFolder()
        }

        OverviewView {
            anchors.fill: parent
            visible: root.screen === ContentState.Overview
            overview: OverviewState {
                source: root.source
            }
        }

        JumpDetailView {
            anchors.fill: parent
            visible: root.screen === ContentState.JumpDetail
            source: root.source
            tracks: trackList
        }
    }
}
