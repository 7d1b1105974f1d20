// SPDX-License-Identifier: MIT
#include "input/CKeyboardMessage.h"

CKeyboardMessage::CKeyboardMessage(const char *text_) : text(text_) {}

CKeyboardMessage::CKeyboardMessage(int keyCode_, int keyState_) : keyCode(keyCode_), keyState(keyState_) {}

CKeyboardMessage::CKeyboardMessage(int mouseEvent_, int x, int y)
    : mouseEvent(mouseEvent_), mouseX(x), mouseY(y) {}

CKeyboardExceptionMessage::CKeyboardExceptionMessage(const char *text_) : text(text_) {}

namespace vexa {

namespace {

template<typename Message> void registerOnce(const char *name) {
    if (QMetaType::type(name) == QMetaType::UnknownType)
        qRegisterMetaType<Message>(name);
}

} // namespace

void registerKeyboardMessages() {
    registerOnce<CKeyboardMessage>("CKeyboardMessage");
    registerOnce<CKeyboardExceptionMessage>("CKeyboardExceptionMessage");
}

} // namespace vexa
