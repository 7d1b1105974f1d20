// SPDX-License-Identifier: MIT
import QtQml 2.15

// The messages between the panel and its host, by their numbers: the host's own names for them.
QtObject {
    enum Id {
        HidePanel = 0,
        SportLightTran = 2,
        SportLightSize = 3,
        MagnifierColor = 4,
        MagnifierSize = 5,
        LaserPenColor = 6,
        LaserPenSize = 7,
        PenColor0 = 8,
        PenColor1 = 9,
        PenColor2 = 10,
        PenThickness = 11,
        Key2P = 12,
        Key3P = 13,
        Key4C = 14,
        Key4P = 15,
        Language = 16,
        AutoStart = 17,
        ShowView = 1000
    }
}
