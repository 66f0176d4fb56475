pragma ComponentBehavior: Bound
import QtQml.Models
import QtQuick
import Ospra.Controls
import Ospra.Workspace

/// The menu of folders: open one, add and remove companions, scan again.
MenuButton {
    id: root

    required property OspraModel source
    readonly property CompanionsModel companions: CompanionsModel {
        source: root.source
    }

    signal openFolder
    signal addCompanion

    kind: Button.Plain
    icon.name: "folder-plus"
    title: "Folders"
    isCompact: true

    Menu {
        id: menu

        title: "Folders"

        MenuItem {
            icon.name: "folder"
            text: "Open Folder..."
            onTriggered: root.openFolder()
        }

        MenuItem {
            icon.name: "person-plus"
            text: "Add Companion Folder..."
            onTriggered: root.addCompanion()
        }

        MenuSeparator { }

        MenuItem {
            icon.name: "refresh"
            text: "Refresh"
            enabled: root.source.hasJumpers
            onTriggered: root.source.rebuildGroups()
        }

        MenuSeparator {
            visible: root.companions.count > 0
            height: visible ? implicitHeight : 0
        }

        Instantiator {
            model: root.companions
            delegate: MenuItem {
                required property int index
                required property string name

                icon.name: "person-minus"
                text: "Remove " + name
                // Takes this entry along, so that the menu would not close by itself.
                onTriggered: {
                    menu.dismiss();
                    root.companions.remove(index);
                }
            }
            onObjectAdded: (index, object) => menu.addItem(object as MenuItem)
            onObjectRemoved: (index, object) => menu.removeItem(object as MenuItem)
        }
    }
}
