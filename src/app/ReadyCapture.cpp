// SPDX-License-Identifier: MIT
#include "app/ReadyCapture.h"

#include "platform/ScreenCapture.h"

namespace vexa {

void ReadyCapture::timerEvent(QTimerEvent * /*event*/) {
    if (!platform::prepareCapture())
        m_steps.stop();
}

} // namespace vexa
