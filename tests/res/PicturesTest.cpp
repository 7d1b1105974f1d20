// SPDX-License-Identifier: MIT
#include "res/SourceFiles.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

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
    void eachPictureHasItsSize() {
        const struct {
            const char *names;
            QSize place;
            int scale; // three or two times the place in the views; brushes pixel for pixel
            Alpha alpha;
        } rows[] = {
            {"pri_bg@3x", {494, 300}, 3, Opaque},
            {"pri_frame@3x", {454, 122}, 3, Shaped},
            {"setting@3x", {54, 54}, 3, Shaped},
            {"button@3x", {88, 32}, 3, Shaped},
            {"icon-left@3x icon-left-selected@3x icon-right@3x icon-right-selected@3x", {24, 24}, 3, Shaped},
            {"icon-setting@3x", {18, 18}, 3, Shaped},
            {"icon-down@3x icon-up@3x", {12, 12}, 3, Shaped},
            {"bg@3x", {999, 650}, 2, Opaque},
            {"frame-key1 frame-key4", {257, 500}, 2, Shaped},
            {"frame-key2 frame-key3", {257, 188}, 2, Shaped},
            {"frame-setting", {247, 390}, 2, Shaped},
            {"frame-1 frame-2 frame-3", {175, 122}, 2, Shaped},
            {"toolbackground", {175, 99}, 2, Opaque},
            {"icon-pen icon-pen-selected icon-eraser icon-eraser-selected icon-exit", {60, 60}, 2, Shaped},
            {"appicon", {32, 32}, 2, Shaped},
            {"appicon-16", {16, 16}, 1, Shaped},
            {"appicon-24", {24, 24}, 1, Shaped},
            {"appicon-32", {32, 32}, 1, Shaped},
            {"appicon-48", {48, 48}, 1, Shaped},
            {"appicon-128", {128, 128}, 1, Shaped},
            {"appicon-256", {256, 256}, 1, Shaped},
            {"icon-X icon-minus", {16, 16}, 2, Shaped},
            {"icon-left", {24, 24}, 2, Shaped},
            {"icon-setting", {18, 18}, 2, Shaped},
            {"bg", {999, 650}, 1, Opaque},
            {"capturebg@1080p", {380, 180}, 1, Opaque},
            {"annotatebg@1080p", {280, 40}, 1, Shaped},
            {"capturebg@1080p@2x", {380, 180}, 2, Opaque},
            {"annotatebg@1080p@2x", {280, 40}, 2, Shaped},
            {"icon-pen2@1080p", {138, 86}, 1, Shaped},
            {"Pen1.1", {196, 1200}, 1, Shaped},
        };
        for (const auto &row : rows) {
            for (const QString &name : QString(row.names).split(' ')) {
                const QImage picture(":/" + name + ".png");
                QVERIFY2(picture.size() == row.place * row.scale, qPrintable(name));
                const bool transparent =
                    qAlpha(picture.pixel(0, picture.height() - 1)) < 128 ||
                    qAlpha(picture.pixel(picture.width() - 1, picture.height() - 1)) < 128;
                QVERIFY2(transparent == (row.alpha == Shaped), qPrintable(name));
                if (row.alpha == Opaque) // blending it would cost for nothing
                    QVERIFY2(!picture.hasAlphaChannel(), qPrintable(name));
            }
        }
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
        for (const QString &file : sourceFiles()) {
            const QStringList missing = missingPictures(fileText(file));
            QVERIFY2(missing.isEmpty(), qPrintable(file + ": " + missing.join(", ")));
        }
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
                for (const unsigned shift : {0U, 8U, 16U, 24U}) {
                    const auto channel = [shift](QRgb pixel) { return int(pixel >> shift & 0xffU); };
                    int sum = 0;
                    for (int i = 0; i < 9; ++i)
                        sum += channel(plain.pixel(x - 1 + i % 3, y - 1 + i / 3));
                    QVERIFY(std::abs(channel(large.pixel(x, y)) - sum / 9) <= 2);
                }
            }
        }
    }
};

QTEST_GUILESS_MAIN(PicturesTest)
#include "PicturesTest.moc"
