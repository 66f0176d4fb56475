import QtQuick.Templates as T

/// Two areas side by side with a line between them that can be dragged.
T.SplitView {
    handle: SplitHandle { }
}
