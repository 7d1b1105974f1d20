// SPDX-License-Identifier: MIT
#pragma once

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRasterWindow>
#include <QScreen>
#include <QtTest>

/// A window over the whole screen in which no two neighbouring pixels are alike: whoever takes a picture of
/// the screen must get exactly this one.
class PatternWindow : public QRasterWindow {
public:
    PatternWindow() {
        setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
        setGeometry(QGuiApplication::primaryScreen()->geometry());
    }

    /// Shows it and waits until the screen does so too.
    bool display() {
        show();
        return QTest::qWaitFor([this] { return seen(); });
    }

    static QRgb colourAt(int x, int y) { return qRgb(x % 251, y % 241, (x * 7 + y * 13) % 239); }

    static QImage picture(const QSize &size) {
        QImage image(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                image.setPixel(x, y, colourAt(x, y));
        return image;
    }

    /// Whether the screen shows the window at its last pixel and in its middle.
    bool seen() const { return seenAt(width() - 1, height() - 1) && seenAt(width() / 2, height() / 2); }

protected:
    void paintEvent(QPaintEvent *) override {
        if (m_picture.size() != size())
            m_picture = picture(size());
        QPainter(this).drawImage(0, 0, m_picture);
    }

private:
    bool seenAt(int x, int y) const {
        return screen()->grabWindow(0, x, y, 1, 1).toImage().pixel(0, 0) == colourAt(x, y);
    }

    QImage m_picture;
};
