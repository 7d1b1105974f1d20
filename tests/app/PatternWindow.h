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
        return QTest::qWaitFor([this] { return m_painted && seen(); });
    }

    static QRgb colourAt(int x, int y) { return qRgb(x % 251, y % 241, (x * 7 + y * 13) % 239); }

    static QImage picture(const QSize &size) {
        QImage image(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                image.setPixel(x, y, colourAt(x, y));
        return image;
    }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter(this).drawImage(0, 0, picture(size()));
        m_painted = true;
    }

private:
    bool seen() const {
        const QPoint corner(width() - 1, height() - 1);
        const QImage there = screen()->grabWindow(0, corner.x(), corner.y(), 1, 1).toImage();
        return there.pixel(0, 0) == colourAt(corner.x(), corner.y());
    }

    bool m_painted = false;
};
