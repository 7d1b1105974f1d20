// SPDX-License-Identifier: MIT
#pragma once

#include "support/ScreenProbe.h"

#include <QEvent>
#include <QLabel>
#include <QSet>
#include <QTimerEvent>

#include <climits>

/// What the tests of the two prompts share.
namespace vexa::test {

/// Counts a prompt's timer ticks, and how many timers they came from; keeps them from it while held, or when
/// there were as many as allowed, so that there is time to look at the card.
class Ticks : public QObject {
public:
    explicit Ticks(QObject *prompt) { prompt->installEventFilter(this); }
    int count = 0;
    QSet<int> timers;
    bool held = false;
    int most = INT_MAX; ///< ticks that the prompt gets

    void restart() {
        count = 0;
        timers.clear();
    }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        if (event->type() != QEvent::Timer)
            return false;
        if (held || count >= most)
            return true;
        ++count;
        timers.insert(static_cast<QTimerEvent *>(event)->timerId());
        return false;
    }
};

inline const char *const squareStyle =
    "QLabel{border:2px solid yellow;border-radius:5px;background-color:%1;}";
inline const char *const roundStyle =
    "QLabel{border:3px solid #FFFFCC0D;border-radius:50px;background-color:%1;}";

inline QRect centred(int width, int height) {
    return {(screenPoints().width() - width) / 2, (screenPoints().height() - height) / 2, width, height};
}

inline QLabel *label(const QWidget &prompt, const char *name) {
    return prompt.findChild<QLabel *>(QLatin1String(name));
}

inline QString swatch(const QWidget &prompt) {
    return label(prompt, "label_2")->styleSheet();
}

} // namespace vexa::test
