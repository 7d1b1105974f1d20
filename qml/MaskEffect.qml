// SPDX-License-Identifier: MIT
import QtGraphicalEffects 1.15

OpacityMask {}
