// SPDX-License-Identifier: MIT
import QtQuick 2.15

// An effect that the graphics card draws: a file with these properties. It is read and built when it is first in
// sight, because the first one of all costs as much as the rest of its view; and not at all where Qt Quick draws in
// software, which shows nothing for it.
Loader {
    id: root

    property string file
    readonly property bool plain: GraphicsInfo.api === GraphicsInfo.Software
    property var properties: ({})

    function build() {
        if (visible && !plain && status === Loader.Null)
            setSource(file, properties)
    }

    Component.onCompleted: build()
    onPlainChanged: build()
    onVisibleChanged: build()
}
