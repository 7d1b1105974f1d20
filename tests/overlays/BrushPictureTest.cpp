// SPDX-License-Identifier: MIT
//
// Run at several scales.
#include "overlays/BrushPicture.h"

#include "support/TestMain.h"

#include <QScreen>

class BrushPictureTest : public QObject {
    Q_OBJECT

private slots:
    /// It has the pixels of the larger picture at twice the size, and the plain one's where it is not
    /// enlarged.
    void aPictureHasTheScaleOfTheScreen_data() {
        QTest::addColumn<QSize>("points");
        QTest::newRow("annotatebg@1080p") << QSize(280, 40);
        QTest::newRow("capturebg@1080p") << QSize(380, 180);
    }
    void aPictureHasTheScaleOfTheScreen() {
        QFETCH(QSize, points);
        const double scale = QGuiApplication::primaryScreen()->devicePixelRatio();
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        QPixmap shown = vexa::brushPicture(QStringLiteral(":/%1.png").arg(name)).texture();
        QCOMPARE(shown.size(), (QSizeF(points) * scale).toSize());
        QCOMPARE(shown.devicePixelRatio(), scale);
        shown.setDevicePixelRatio(1);
        QImage expected = QImage(QStringLiteral(":/%1%2.png").arg(name, scale > 1 ? "@2x" : ""));
        const auto asIs = [](const QImage &image) {
            return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        };
        QVERIFY(!expected.isNull());
        expected.setDevicePixelRatio(1);
        QCOMPARE(asIs(shown.toImage()),
                 asIs(expected).scaled(shown.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }

    void itIsDecodedOnceForAllThatShowIt() {
        const QString file = QStringLiteral(":/capturebg@1080p.png");
        QCOMPARE(vexa::brushPicture(file).texture().cacheKey(),
                 vexa::brushPicture(file).texture().cacheKey());
    }
};

VEXA_WIDGET_TEST_MAIN(BrushPictureTest)
#include "BrushPictureTest.moc"
