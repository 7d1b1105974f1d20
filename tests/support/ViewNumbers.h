// SPDX-License-Identifier: MIT
#pragma once

#include "settings/Choices.h"
#include "settings/ViewMessage.h"

#include <QMetaType>

#include <type_traits>

namespace vexa::test {

/// An int of a setting, a message or a signal. A test may give what it stands for, or a number without a
/// name.
struct Number {
    int value = 0;

    constexpr Number() = default;
    constexpr Number(int plain) : value(plain) {}
    template<typename Enum, typename = std::enable_if_t<std::is_enum_v<Enum>>>
    constexpr Number(Enum named) : value(static_cast<int>(named)) {}

    constexpr operator int() const { return value; }
};

/// The host gets this message, as if from its view.
template<typename Host> void receive(Host &host, ViewMessage message, Number value) {
    host.recvQmlMessage1(Number(message), value, 0);
}

inline constexpr Number simplifiedChinese = InterfaceLanguage::SimplifiedChinese;
inline constexpr Number traditionalChinese = InterfaceLanguage::TraditionalChinese;
inline constexpr Number english = InterfaceLanguage::English;

} // namespace vexa::test

using vexa::HeldToolChoice;
using vexa::InterfaceLanguage;
using vexa::KeyAction;
using vexa::ViewMessage;

Q_DECLARE_METATYPE(HeldToolChoice)
Q_DECLARE_METATYPE(ViewMessage)
