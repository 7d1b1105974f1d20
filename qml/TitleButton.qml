// SPDX-License-Identifier: MIT
import QtQuick 2.15

// A button of the title line: an icon in a target that is easier to hit than the icon itself.
Item {
    id: root

    property alias icon: picture.file
    property string name

    signal clicked

    height: 32
    width: 32

    Halo {
        area: area
        height: parent.height
        radius: 6
        width: parent.width
    }

    Picture {
        id: picture

        anchors.centerIn: parent
        fillMode: Image.PreserveAspectFit
        height: 16
        width: 16
    }

    ClickArea {
        id: area

        Accessible.name: root.name
        Accessible.role: Accessible.Button
        onTriggered: root.clicked()
    }
}
