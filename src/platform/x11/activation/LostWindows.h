// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace vexa::platform {

/// Closes each window of the program that another client of the X server has destroyed: a tool is over then,
/// and the panel and the prompts get a new window when they are shown next. The toolkit itself takes no
/// notice and goes on with a window that is none. GUI thread.
class LostWindows : public QObject, private QAbstractNativeEventFilter {
public:
    LostWindows();

private:
    bool nativeEventFilter(const QByteArray &eventType, void *message, long *result) override;
};

} // namespace vexa::platform
