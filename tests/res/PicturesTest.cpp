// SPDX-License-Identifier: MIT
#include "res/SourceFiles.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <cmath>

namespace {

enum Alpha { Opaque, Shaped };

QStringList missingPictures(const QString &text) {
    QStringList missing;
    for (const QString &name : captures(text, ":/([A-Za-z0-9@._-]+\\.(?:png|svg|jpg))\\b"))
        if (!QFile::exists(":/" + name))
            missing.append(name);
    return missing;
}

/// The column of the table of pictures, without comments.
QStringList tableColumn(int column) {
    QStringList cells;
    for (const QString &line : fileText(SOURCE_ROOT "/res/art/pictures.txt").split('\n'))
        if (!line.startsWith('#') && !line.trimmed().isEmpty())
            cells.append(line.simplified().split(' ').value(column));
    return cells;
}

std::array<int, 4> channels(QRgb pixel) {
    return {qRed(pixel), qGreen(pixel), qBlue(pixel), qAlpha(pixel)};
}

std::array<int, 4> sum(std::array<int, 4> a, const std::array<int, 4> &b) {
    for (std::size_t i = 0; i < a.size(); ++i)
        a[i] += b[i];
    return a;
}

struct Difference {
    double mean = 0; ///< over all channels of all pixels
    int strong = 0;  ///< channels of pixels that differ clearly
};

/// How two pictures of the same size differ.
Difference difference(const QImage &a, const QImage &b) {
    Difference found;
    qint64 sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        const uchar *left = a.constScanLine(y);
        const uchar *right = b.constScanLine(y);
        for (int i = 0; i < a.bytesPerLine(); ++i) {
            const int distance = std::abs(left[i] - right[i]);
            sum += distance;
            found.strong += distance > 32 ? 1 : 0;
        }
    }
    found.mean = double(sum) / (double(a.bytesPerLine()) * a.height());
    return found;
}

QImage premultiplied(const QString &fileName) {
    return QImage(fileName).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

/// The pictures compiled into the program: there under every name in use, in the sizes that their places
/// need.
class PicturesTest : public QObject {
    Q_OBJECT

private slots:
    void eachPictureHasItsSize_data() {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("alpha");
        // Three times the place in the views.
        QTest::newRow("pri_bg@3x.png") << QSize(494, 300) * 3 << int(Opaque);
        QTest::newRow("pri_frame@3x.png") << QSize(454, 122) * 3 << int(Shaped);
        QTest::newRow("setting@3x.png") << QSize(54, 54) * 3 << int(Shaped);
        QTest::newRow("button@3x.png") << QSize(88, 32) * 3 << int(Shaped);
        for (const char *name : {"icon-left@3x.png", "icon-left-selected@3x.png", "icon-right@3x.png",
                                 "icon-right-selected@3x.png"})
            QTest::newRow(name) << QSize(24, 24) * 3 << int(Shaped);
        QTest::newRow("icon-setting@3x.png") << QSize(18, 18) * 3 << int(Shaped);
        QTest::newRow("icon-down@3x.png") << QSize(12, 12) * 3 << int(Shaped);
        QTest::newRow("icon-up@3x.png") << QSize(12, 12) * 3 << int(Shaped);
        // Twice the place in the views and overlays.
        QTest::newRow("bg@3x.png") << QSize(999, 650) * 2 << int(Opaque);
        QTest::newRow("frame-key1.png") << QSize(257, 500) * 2 << int(Shaped);
        QTest::newRow("frame-key2.png") << QSize(257, 188) * 2 << int(Shaped);
        QTest::newRow("frame-key3.png") << QSize(257, 188) * 2 << int(Shaped);
        QTest::newRow("frame-key4.png") << QSize(257, 500) * 2 << int(Shaped);
        QTest::newRow("frame-setting.png") << QSize(247, 390) * 2 << int(Shaped);
        for (const char *name : {"frame-1.png", "frame-2.png", "frame-3.png"})
            QTest::newRow(name) << QSize(175, 122) * 2 << int(Shaped);
        QTest::newRow("toolbackground.png") << QSize(175, 99) * 2 << int(Opaque);
        for (const char *name : {"icon-pen.png", "icon-pen-selected.png", "icon-eraser.png",
                                 "icon-eraser-selected.png", "icon-exit.png"})
            QTest::newRow(name) << QSize(60, 60) * 2 << int(Shaped);
        QTest::newRow("appicon.png") << QSize(32, 32) * 2 << int(Shaped);
        for (const int size : {16, 24, 32, 48, 128, 256})
            QTest::addRow("appicon-%d.png", size) << QSize(size, size) << int(Shaped);
        QTest::newRow("icon-X.png") << QSize(16, 16) * 2 << int(Shaped);
        QTest::newRow("icon-minus.png") << QSize(16, 16) * 2 << int(Shaped);
        QTest::newRow("icon-left.png") << QSize(24, 24) * 2 << int(Shaped);
        QTest::newRow("icon-setting.png") << QSize(18, 18) * 2 << int(Shaped);
        // Brushes, pixel for pixel.
        QTest::newRow("bg.png") << QSize(999, 650) << int(Opaque);
        QTest::newRow("capturebg@1080p.png") << QSize(380, 180) << int(Opaque);
        QTest::newRow("annotatebg@1080p.png") << QSize(280, 40) << int(Shaped);
        QTest::newRow("icon-pen2@1080p.png") << QSize(138, 86) << int(Shaped);
        QTest::newRow("Pen1.1.png") << QSize(196, 1200) << int(Shaped);
    }
    void eachPictureHasItsSize() {
        QFETCH(QSize, size);
        QFETCH(int, alpha);
        const QImage picture(QStringLiteral(":/") + QTest::currentDataTag());
        QCOMPARE(picture.size(), size);
        bool transparent = false;
        for (const QPoint corner :
             {QPoint(0, size.height() - 1), QPoint(size.width() - 1, size.height() - 1)})
            transparent = transparent || qAlpha(picture.pixel(corner)) < 128;
        QCOMPARE(transparent, alpha == Shaped);
        if (alpha == Opaque)
            QVERIFY(!picture.hasAlphaChannel()); // blending it would cost for nothing
    }

    void thePicturesOfTheTableAreCompiledInAndNoOthers() {
        QStringList table = tableColumn(0);
        QStringList files = QDir(SOURCE_ROOT "/res/images").entryList({"*.png"});
        QStringList compiled = QDir(":/").entryList({"*.png"});
        for (QStringList *list : {&table, &files, &compiled})
            list->sort();
        QVERIFY(!table.isEmpty());
        QCOMPARE(files, table);
        QCOMPARE(compiled, table);
    }

    void everySourceIsRendered() {
        QStringList sources = tableColumn(1);
        sources.removeDuplicates();
        sources.sort();
        QStringList files = QDir(SOURCE_ROOT "/res/art").entryList({"*.svg"});
        files.sort();
        QCOMPARE(sources, files);
    }

    void everyPictureNamedInTheSourcesIsThere() {
        int files = 0;
        for (const QString folder : {SOURCE_ROOT "/src", SOURCE_ROOT "/qml"}) {
            for (const QString &file : sourceFiles(folder)) {
                ++files;
                const QStringList missing = missingPictures(fileText(file));
                QVERIFY2(missing.isEmpty(), qPrintable(file + ": " + missing.join(", ")));
            }
        }
        QVERIFY(files > 0);
    }

    void aPictureThatIsNotThereIsNoticed() {
        QCOMPARE(missingPictures("url(:/icon-pen.png) \"qrc:/bg@3x.png\" \":/capturebg@1080p.png\""),
                 QStringList());
        QCOMPARE(missingPictures("url(:/icon-pencil.png) \"qrc:/bg@4x.png\""),
                 (QStringList{"icon-pencil.png", "bg@4x.png"}));
    }

    void thePicturesAreThoseOfTheirSources() {
        QTemporaryDir scratch;
        QProcess script;
        script.setProcessChannelMode(QProcess::ForwardedChannels);
        script.start(SOURCE_ROOT "/scripts/render-art", {"--output", scratch.path()});
        QVERIFY(script.waitForFinished(-1));
        QCOMPARE(script.exitCode(), 0);
        for (const QString &name : tableColumn(0)) {
            const QImage rendered = premultiplied(scratch.filePath(name));
            const QImage kept = premultiplied(":/" + name);
            QCOMPARE(rendered.size(), kept.size());
            // Another version of the renderer may differ by a hair at edges.
            const Difference found = difference(rendered, kept);
            QVERIFY2(found.mean < 0.1 && found.strong < 10, qPrintable(name));
        }
    }

    void everyThirdPixelIsTheMeanOfItsNeighbours() {
        const QImage large = premultiplied(":/icon-left@3x.png");
        QProcess renderer;
        renderer.start("rsvg-convert", {"--width", "72", SOURCE_ROOT "/res/art/icon-left.svg"});
        QVERIFY(renderer.waitForFinished(-1));
        const QImage plain =
            QImage::fromData(renderer.readAll()).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(plain.size(), large.size());
        for (int y = 1; y < large.height(); y += 3) {
            for (int x = 1; x < large.width(); x += 3) {
                std::array<int, 4> sums{};
                for (int i = 0; i < 9; ++i)
                    sums = sum(sums, channels(plain.pixel(x - 1 + i % 3, y - 1 + i / 3)));
                const std::array<int, 4> shown = channels(large.pixel(x, y));
                for (std::size_t i = 0; i < sums.size(); ++i)
                    QVERIFY(std::abs(shown[i] - sums[i] / 9) <= 2);
            }
        }
    }
};

QTEST_GUILESS_MAIN(PicturesTest)
#include "PicturesTest.moc"
