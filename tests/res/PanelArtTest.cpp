// SPDX-License-Identifier: MIT
#include <QImage>
#include <QPainter>
#include <QTest>

#include <cmath>
#include <tuple>

namespace {

const QColor white("#FFFFFF");
const QColor grey("#7D7D7D");

double linear(int channel) {
    const double c = channel / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour) {
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) + 0.0722 * linear(colour.blue());
}

/// The contrast of two colours, 1 to 21, as the accessibility guidelines for the web define it.
double contrast(const QColor &a, const QColor &b) {
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

/// The least contrast of `text` with any pixel of `area`, which is in points of a picture with `scale` pixels
/// each.
double leastContrast(const QImage &picture, const QRect &area, int scale, const QColor &text) {
    double least = 21;
    for (int y = area.top() * scale; y < (area.bottom() + 1) * scale; ++y) {
        for (int x = area.left() * scale; x < (area.right() + 1) * scale; ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (pixel.alpha() < 255)
                return 1;
            least = std::min(least, contrast(pixel, text));
        }
    }
    return least;
}

bool isOpaque(const QImage &picture, double x, double y) {
    return picture.pixelColor(int(x * 2), int(y * 2)).alpha() > 200;
}

} // namespace

/// What the pictures must do for the texts and buttons that stand on them. Positions are those of the views,
/// in points.
class PanelArtTest : public QObject {
    Q_OBJECT

private slots:
    void textOnTheBackgroundCanBeRead_data() {
        QTest::addColumn<QRect>("area");
        QTest::addColumn<QColor>("colour");
        for (const auto &[key, title, click, longPress, left] :
             {std::tuple("key 1", 491, 518, 556, false), std::tuple("key 2", 491, 518, 556, true),
              std::tuple("key 3", 89, 116, 154, false), std::tuple("key 4", 89, 116, 154, true)}) {
            const int x = left ? 296 : 703 - 135;
            const QByteArray name = key;
            QTest::newRow(name + " title") << QRect(x, title, 135, 19) << white;
            QTest::newRow(name + " click") << QRect(x, click, 135, 16) << white;
            QTest::newRow(name + " click value") << QRect(x, click + 17, 135, 16) << grey;
            QTest::newRow(name + " long press") << QRect(x, longPress, 135, 16) << white;
            QTest::newRow(name + " long press value") << QRect(x, longPress + 17, 135, 16) << grey;
        }
    }
    void textOnTheBackgroundCanBeRead() {
        QFETCH(QRect, area);
        QFETCH(QColor, colour);
        const double small = leastContrast(QImage(":/bg.png"), area, 1, colour);
        const double large = leastContrast(QImage(":/bg@3x.png"), area, 2, colour);
        QVERIFY2(small >= 4.5 && large >= 4.5, qPrintable(QString("%1 %2").arg(small).arg(large)));
    }

    void textOnAFrameCanBeRead() {
        const struct {
            const char *picture;
            int scale;
            QRect area;
            QColor colour;
        } rows[] = {{"frame-key1.png", 2, {30, 22, 207, 85}, grey},
                    {"frame-key2.png", 2, {20, 22, 207, 150}, grey},
                    {"frame-key3.png", 2, {20, 22, 207, 150}, grey},
                    {"frame-key4.png", 2, {20, 22, 207, 180}, grey},
                    {"frame-setting.png", 2, {19, 23, 210, 345}, grey},
                    {"pri_bg@3x.png", 3, {20, 39, 350, 230}, white},
                    {"pri_frame@3x.png", 3, {39, 6, 400, 24}, white},
                    {"capturebg@1080p.png", 1, {20, 42, 300, 95}, white},
                    {"annotatebg@1080p.png", 1, {20, 2, 240, 34}, white},
                    {"button@3x.png", 3, {6, 4, 76, 24}, "#333333"}};
        for (const auto &row : rows) {
            const double least =
                leastContrast(QImage(QString(":/") + row.picture), row.area, row.scale, row.colour);
            QVERIFY2(least >= 4.5, qPrintable(QString("%1: %2").arg(row.picture).arg(least)));
        }
    }

    void aLineLeadsFromEachKeyToItsArrow() {
        const QImage background(":/bg@3x.png");
        for (const auto &[key, arrow] :
             {std::pair("key 1", QPoint(679, 457)), std::pair("key 2", QPoint(296, 457)),
              std::pair("key 3", QPoint(679, 196)), std::pair("key 4", QPoint(296, 196))}) {
            const int middle = (arrow.y() + 12) * 2;
            const bool left = arrow.x() < 499;
            const int arrowEdge = left ? arrow.x() + 24 + 2 : arrow.x() - 2;
            const int keyEdge = left ? 478 : 521; // within the outer key of the pen
            for (int x = std::min(arrowEdge, keyEdge) * 2; x < std::max(arrowEdge, keyEdge) * 2; ++x) {
                if (x > 455 * 2 && x < 465 * 2)
                    continue; // the flank of the pen, as bright as the line
                const double line = luminance(background.pixelColor(x, middle));
                for (const int beside : {middle - 8, middle + 8})
                    QVERIFY2(line > luminance(background.pixelColor(x, beside)),
                             qPrintable(QString("%1: %2").arg(key).arg(x)));
            }
        }
    }

    void thePointerOfEachFrameIsAtItsArrow() {
        // The middle of the arrow, seen from the corner of the view; a place within the pointer, outside the
        // body.
        const struct {
            const char *frame;
            double x, y;
        } rows[] = {{"frame-key1.png", 4, 457 + 12 - 87},
                    {"frame-key2.png", 253, 457 + 12 - 321},
                    {"frame-key3.png", 4, 196 + 12 - 87},
                    {"frame-key4.png", 253, 196 + 12 - 87}};
        for (const auto &row : rows) {
            const QImage frame(QString(":/") + row.frame);
            QVERIFY2(isOpaque(frame, row.x, row.y), row.frame);
            QVERIFY2(!isOpaque(frame, row.x, row.y - 12) && !isOpaque(frame, row.x, row.y + 12), row.frame);
        }
    }

    void theSlotFramesPointAtTheirSlots() {
        const double middles[] = {31 + 13 - 16, 91 + 13 - 16, 151 + 13 - 16};
        for (int number = 1; number <= 3; ++number) {
            const QImage frame(QStringLiteral(":/frame-%1.png").arg(number));
            for (int slot = 1; slot <= 3; ++slot)
                QCOMPARE(isOpaque(frame, middles[slot - 1], 7), slot == number);
        }
    }

    void overlayButtonsStandOutOnEveryBackground_data() {
        QTest::addColumn<QString>("icon");
        QTest::addColumn<QColor>("ground");
        for (const char *icon :
             {"icon-pen", "icon-pen-selected", "icon-eraser", "icon-eraser-selected", "icon-exit"})
            for (const char *ground : {"#FFFFFF", "#000000", "#181827", "#7F7F7F", "#FFCC0D"})
                QTest::newRow(QByteArray(icon) + " on " + ground) << QString(icon) << QColor(ground);
    }
    void overlayButtonsStandOutOnEveryBackground() {
        QFETCH(QString, icon);
        QFETCH(QColor, ground);
        const QImage picture(":/" + icon + ".png");
        QImage screen(picture.size(), QImage::Format_RGB32);
        screen.fill(ground);
        QPainter(&screen).drawImage(0, 0, picture);
        double edge = 1;
        for (int x = 0; x < 24; ++x)
            edge = std::max(edge, contrast(screen.pixelColor(x, 60), ground));
        QVERIFY2(edge >= 3, qPrintable(QString::number(edge)));
        const QColor plate = screen.pixelColor(60, 14);
        double glyph = 1;
        for (int y = 30; y < 90; ++y)
            for (int x = 30; x < 90; ++x)
                glyph = std::max(glyph, contrast(screen.pixelColor(x, y), plate));
        QVERIFY2(glyph >= 7, qPrintable(QString::number(glyph)));
    }

    void selectedPicturesAreYellowAndTheOthersAreNot() {
        const auto isYellow = [](const QString &name, const QPoint &place) {
            const QColor colour = QImage(":/" + name).pixelColor(place);
            return colour.red() > 240 && colour.green() > 180 && colour.blue() < 80;
        };
        for (const QString icon : {"icon-pen", "icon-eraser"}) {
            QVERIFY(isYellow(icon + "-selected.png", {60, 14}));
            QVERIFY(!isYellow(icon + ".png", {60, 14}));
        }
        for (const QString icon : {"icon-left", "icon-right"}) {
            QVERIFY(isYellow(icon + "-selected@3x.png", {36, 12}));
            QVERIFY(!isYellow(icon + "@3x.png", {36, 12}));
        }
    }
};

QTEST_GUILESS_MAIN(PanelArtTest)
#include "PanelArtTest.moc"
