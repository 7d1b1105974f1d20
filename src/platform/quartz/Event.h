// SPDX-License-Identifier: MIT
#pragma once

#include "platform/quartz/CoreGraphics.h"
#include "platform/quartz/InputBackend.h"
#include "platform/quartz/Object.h"

namespace vexa::quartz {

/// What a CGEventRef points to: a plain record.
class Event : public Object {
public:
    explicit Event(const InputEvent &input_) : input(input_) {}

    InputEvent input;
};

} // namespace vexa::quartz
