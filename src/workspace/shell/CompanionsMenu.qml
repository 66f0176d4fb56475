pragma ComponentBehavior: Bound
import QtQml.Models
import QtQuick
import Ospra.Controls
import Ospra.Workspace

/// The menu of companions: add one, remove any.
Menu {
    id: root

    required property OspraModel source
    required property FolderCommands folderCommands
    readonly property CompanionsModel companions: CompanionsModel {
        source: root.source
    }

    title: "&Companions"

    MenuItem {
        action: root.folderCommands.addCompanionFolder
    }

    MenuSeparator {
        visible: root.companions.count > 0
        height: root.companions.count > 0 ? implicitHeight : 0
    }

    Instantiator {
        model: root.companions
        delegate: MenuItem {
            required property int index
            required property string name

            text: "Remove " + name
            // Takes this entry along, so that the menu would not close by itself.
            onTriggered: {
                root.dismiss();
                root.companions.remove(index);
            }
        }
        onObjectAdded: (index, object) => root.addItem(object as MenuItem)
        onObjectRemoved: (index, object) => root.removeItem(object as MenuItem)
    }
}
