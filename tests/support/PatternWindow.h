// SPDX-License-Identifier: MIT
#pragma once

#include "support/Patience.h"
#include "support/Pattern.h"

#include <QGuiApplication>
#include <QPainter>
#include <QRasterWindow>
#include <QScreen>
#include <QTest>

namespace vexa::test {

/// A window over the whole screen that shows the pattern: a capture of the screen must be
/// exactly this one.
class PatternWindow : public QRasterWindow {
public:
    PatternWindow() {
        setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
        setGeometry(QGuiApplication::primaryScreen()->geometry());
    }

    /// Shows it and waits until the screen does so too.
    bool display() {
        show();
        return QTest::qWaitFor([this] { return seen(); }, patience);
    }

    /// Whether the screen shows the window at its last pixel and in its middle.
    bool seen() const { return seenAt(width() - 1, height() - 1) && seenAt(width() / 2, height() / 2); }

protected:
    void paintEvent(QPaintEvent *) override {
        if (m_picture.size() != size())
            m_picture = pattern(size());
        QPainter(this).drawImage(0, 0, m_picture);
    }

private:
    bool seenAt(int x, int y) const {
        return screen()->grabWindow(0, x, y, 1, 1).toImage().pixel(0, 0) == patternAt(x, y);
    }

    QImage m_picture;
};

} // namespace vexa::test
