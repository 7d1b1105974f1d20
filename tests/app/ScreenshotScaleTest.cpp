// SPDX-License-Identifier: MIT
#include "app/Screenshots.h"
#include "support/TestMain.h"

#include <QDirIterator>
#include <QScreen>
#include <QTemporaryDir>

/// On a screen of 1366 x 768 pixels, at a scale that does not divide them.
class ScreenshotScaleTest : public QObject {
    Q_OBJECT

private slots:
    void thePictureHasThePixelsOfTheScreen() {
        QVERIFY(QGuiApplication::primaryScreen()->devicePixelRatio() > 1);
        const QTemporaryDir home;
        qputenv("HOME", QFile::encodeName(home.path()));
        vexa::Screenshots screenshots;
        screenshots.take();
        screenshots.flush();
        QDirIterator files(home.path(), QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(files.hasNext());
        QCOMPARE(QImage(files.next()).size(), QSize(1366, 768));
    }
};

VEXA_WIDGET_TEST_MAIN(ScreenshotScaleTest)
#include "ScreenshotScaleTest.moc"
