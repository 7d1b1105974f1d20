// SPDX-License-Identifier: MIT
#include "overlays/Grab.h"

#include "fakes/mac/AppKit.h"
#include "fakes/mac/Displays.h"
#include "support/TestMain.h"

#include <QCursor>
#include <QRandomGenerator>

#include <optional>

namespace {

constexpr QSize displaySize(300, 200);

// A word of the cursor's picture: all the kinds that are told apart, and the ordinary.
QRgb cursorWord(QRandomGenerator &random) {
    constexpr QRgb special[] = {0, 0xFF000000, 0x80000000, 0x01000000, 0x00FFFFFF, 0x00000001, 0xFFFFFFFF};
    const int kind = random.bounded(12);
    return kind < 7 ? special[kind] : random.generate();
}

QImage noise(QRandomGenerator &random) {
    QImage picture(displaySize, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, random.generate() | 0xFF000000);
    return picture;
}

// The rule of the painting, pixel by pixel and without any cleverness.
QImage painted(QImage screen, const QRect &area, const QVector<QRgb> &words, int cw, int ch, QPoint pointer) {
    const int x = area.x(), y = area.y(), w = area.width(), h = area.height();
    for (int i = 0; i < cw; ++i) {
        for (int j = 0; j < ch; ++j) {
            const int X = pointer.x() + i, Y = pointer.y() + j;
            if (!(x + 4 < X && X < x + w + 4 && y + 3 < Y && Y < y + h + 3))
                continue;
            const QRgb p = words[j * cw + i];
            if (p == 0)
                continue;
            if (qRed(p) == 0 && qGreen(p) == 0 && qBlue(p) == 0 && p != 0xFF000000)
                continue;
            screen.setPixel(X - x - 4, Y - y - 3, p);
        }
    }
    return screen;
}

} // namespace

/// The program's captures on macOS from end to end: displays, AppKit's cursor, and the painting of the one on
/// the other.
class GrabTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_kit.emplace();
        m_displays.emplace();
        m_screen = noise(m_random);
        m_displays->connected = {{1, QRectF(QPointF(0, 0), displaySize), m_screen}};
    }
    void cleanup() {
        QCOMPARE(m_kit->poolsOpen(), 0);
        QCOMPARE(m_displays->imagesAlive, 0);
        m_displays.reset();
        m_kit.reset();
    }

    void capturesAWindowsRectangleWhateverTheWindow() {
        for (const WId window : {WId(0), WId(12345)})
            QCOMPARE(Grab::grabWindow(window, 0, 0, 100, 50).toImage().convertToFormat(QImage::Format_RGB32),
                     m_screen.copy(0, 0, 100, 50));
    }

    void paintsTheCursorByTheRule_data() {
        QTest::addColumn<int>("round");
        for (int round = 0; round < 60; ++round)
            QTest::addRow("%d", round) << round;
    }

    void paintsTheCursorByTheRule() {
        QFETCH(int, round);
        m_random.seed(quint32(round));
        const int cw = m_random.bounded(1, 40), ch = m_random.bounded(1, 40);
        const QVector<QRgb> words = useCursor(cw, ch, m_random.bounded(0, 9));
        const QRect area(m_random.bounded(100), m_random.bounded(80), m_random.bounded(1, 120),
                         m_random.bounded(1, 100));
        const QPoint pointer(m_random.bounded(area.left() - 20, area.right() + 20),
                             m_random.bounded(area.top() - 20, area.bottom() + 20));
        QCursor::setPos(pointer);
        QTRY_COMPARE(QCursor::pos(), QPoint(qMax(0, pointer.x()), qMax(0, pointer.y())));

        const QImage result = Grab::getCursorPixmap(area.x(), area.y(), area.width(), area.height())
                                  .toImage()
                                  .convertToFormat(QImage::Format_RGB32);
        const QImage expected = painted(m_screen.copy(area), area, words, cw, ch, QCursor::pos());
        QCOMPARE(result, expected);
        m_roundsWithCursor += expected != m_screen.copy(area);
    }

    // Enough of the random places must have had the cursor in the picture, or the comparison says nothing.
    void paintedTheCursorOftenEnough() {
        QVERIFY2(m_roundsWithCursor > 20, qPrintable(QString::number(m_roundsWithCursor)));
    }

    void isThePlainCaptureWithoutACursor() {
        m_kit->cursor.exists = false;
        const QPixmap pixmap = Grab::getCursorPixmap(10, 10, 30, 20);
        QCOMPARE(pixmap.toImage().convertToFormat(QImage::Format_RGB32), m_screen.copy(10, 10, 30, 20));
    }

    void isNullWithoutADisplay() {
        m_displays->connected.clear();
        useCursor(8, 8, 0);
        QVERIFY(Grab::getCursorPixmap(10, 10, 30, 20).isNull());
        QVERIFY(Grab::grabWindow(0, 10, 10, 30, 20).isNull());
    }

    void sendsTheUserToTheScreenRecordingPane() {
        Grab::SetpTosysCamera();
        QCOMPARE(m_kit->openedUrls.size(), std::size_t{1});
    }

private:
    // Hands the system's cursor out as red, green, blue, alpha, with rows of some bytes more than needed.
    QVector<QRgb> useCursor(int cw, int ch, int padding) {
        QVector<QRgb> words;
        fakes::Cursor &cursor = m_kit->cursor;
        cursor.size = CGSizeMake(cw, ch);
        cursor.pixelsWide = cw;
        cursor.pixelsHigh = ch;
        cursor.bytesPerRow = cw * 4 + padding;
        for (int j = 0; j < ch; ++j) {
            for (int i = 0; i < cw; ++i) {
                const QRgb word = cursorWord(m_random);
                words.append(word);
                for (const int part : {qRed(word), qGreen(word), qBlue(word), qAlpha(word)})
                    cursor.bytes.push_back(static_cast<unsigned char>(part));
            }
            cursor.bytes.insert(cursor.bytes.end(), std::size_t(padding), 0x77);
        }
        return words;
    }

    QRandomGenerator m_random{7};
    QImage m_screen;
    int m_roundsWithCursor = 0;
    std::optional<fakes::AppKit> m_kit;
    std::optional<fakes::Displays> m_displays;
};

VEXA_WIDGET_TEST_MAIN(GrabTest)
#include "GrabTest.moc"
