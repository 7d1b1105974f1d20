// SPDX-License-Identifier: MIT
import QtQuick 2.15

// An effect that the graphics card draws: a file with these properties. It is read and built when it is first in
// sight, because the first one of all costs as much as the rest of its view. Where Qt Quick draws in software, which
// shows nothing for it, the plain file takes its place, if there is one.
Loader {
    id: root

    property string file
    readonly property bool plain: GraphicsInfo.api === GraphicsInfo.Software
    property string plainFile
    property var properties: ({})

    function build() {
        const document = plain ? plainFile : file
        if (visible && document && status === Loader.Null)
            setSource(document, properties)
    }

    Component.onCompleted: build()
    onPlainChanged: build()
    onVisibleChanged: build()
}
