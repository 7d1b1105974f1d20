// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMetaType>

/// One event of the session's input, copied by value from the listener thread to the GUI thread. A keyboard
/// message sets the key's fields, a mouse message the mouse's; the others are zero.
struct CKeyboardMessage {
    CKeyboardMessage() = default;
    CKeyboardMessage(const char *text);
    CKeyboardMessage(int keyCode, int keyState);
    CKeyboardMessage(int mouseEvent, int x, int y);

    QByteArray text;
    qint32 keyCode = 0;    ///< platform virtual key code
    qint32 keyState = 0;   ///< 1 down, 0 up; of a modifier its toggled state
    qint32 mouseEvent = 0; ///< platform event type
    qint32 mouseX = 0;     ///< points in global display coordinates
    qint32 mouseY = 0;
};

/// Why the listener failed.
struct CKeyboardExceptionMessage {
    CKeyboardExceptionMessage() = default;
    CKeyboardExceptionMessage(const char *text);

    QByteArray text;
};

Q_DECLARE_METATYPE(CKeyboardMessage)
Q_DECLARE_METATYPE(CKeyboardExceptionMessage)

namespace vexa {

/// Makes both records known under their own names, so that queued signals can carry them. Any thread, any
/// number of times.
void registerKeyboardMessages();

} // namespace vexa
