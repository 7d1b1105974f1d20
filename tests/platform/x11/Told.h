// SPDX-License-Identifier: MIT
#pragma once

#include "platform/quartz/CoreGraphics.h"
#include "platform/quartz/InputBackend.h"
#include "platform/quartz/VirtualKeys.h"

#include <QTest>

/// What the X backend reports, to be compared as a list.
namespace vexa::test {

struct Told {
    std::uint32_t type;
    std::int64_t key;
    double x, y;
    bool operator==(const Told &other) const {
        return type == other.type && key == other.key && x == other.x && y == other.y;
    }
};
using All = QVector<Told>;

inline Told toldOf(const InputEvent &event) {
    return {event.type, event.keyCode, event.x, event.y};
}
inline Told pressed(int key) {
    return {kCGEventKeyDown, key, 0, 0};
}
inline Told released(int key) {
    return {kCGEventKeyUp, key, 0, 0};
}
inline Told changed(int modifier) {
    return {kCGEventFlagsChanged, modifier, 0, 0};
}
inline Told toldAt(std::uint32_t type, double x, double y) {
    return {type, 0, x, y};
}

} // namespace vexa::test
