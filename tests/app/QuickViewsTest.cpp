// SPDX-License-Identifier: MIT
#include "app/QuickViews.h"

#include "support/TestMain.h"

#include <QDirIterator>
#include <QQuickItem>
#include <QQuickWidget>
#include <QQuickWindow>
#include <QStandardPaths>

/// The panel on the screen, with a usable OpenGL, without one, and without a graphics card: the program runs
/// three times.
class QuickViewsTest : public QObject {
    Q_OBJECT

private slots:
    void rendererIsTheOneThatWorks() {
        const bool card = !qEnvironmentVariableIsSet("WITHOUT_CARD");
        const bool usable = !qEnvironmentVariableIsSet("LIBGL_ALWAYS_INDIRECT");
        if (card && !usable)
            QTest::ignoreMessage(QtWarningMsg, "OpenGL cannot be used; the panel is drawn in software");
        vexa::chooseRenderer(card);
        QCOMPARE(QQuickWindow::sceneGraphBackend(), card && usable ? QString() : QStringLiteral("software"));
    }

    void panelIsDrawn() {
        QQuickWidget widget;
        vexa::loadView(widget, QStringLiteral("qrc:/MainWindow.qml"));
        QVERIFY(widget.rootObject() != nullptr);
        widget.rootObject()->findChild<QObject *>(QStringLiteral("key4Button"))->setProperty("checked", true);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        // The middle of the spotlight's preview is the light; the far corner of the picture is under the
        // veil.
        const QPoint preview(30 + 20 + 16, 87 + 208 + 34);
        const QImage drawn = widget.grabFramebuffer();
        const QImage picture(QStringLiteral(":/toolbackground.png"));
        const auto plain = [&](const QPoint &place) { return picture.pixelColor(2 * place).lightness(); };
        const auto shown = [&](const QPoint &place) { return drawn.pixelColor(preview + place).lightness(); };
        const QPoint middle(175 / 2, 99 / 2);
        QVERIFY(std::abs(shown(middle) - plain(middle)) <= 12);
        QVERIFY(shown({8, 8}) < plain({8, 8}) - 12);
        // The track of the darkness is filled up to the handle or empty; its ground is there in any case.
        QVERIFY(drawn.pixelColor(30 + 20 + 16 + 170, 87 + 208 + 176 + 3) == QColor(0x5a, 0x5a, 0x5a));
    }

    void nothingTranslatedIsKeptOnTheDisk() {
        QDirIterator files(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation),
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            QVERIFY2(!files.next().contains(QStringLiteral(".qmlc")), qPrintable(files.filePath()));
    }

    void switchOfTheCacheIsNotLeftBehind() {
        QVERIFY(!qEnvironmentVariableIsSet("QML_DISABLE_DISK_CACHE"));
        qputenv("QML_DISABLE_DISK_CACHE", "given");
        QQuickWidget widget;
        vexa::loadView(widget, QStringLiteral("qrc:/PrivacyWindow.qml"));
        QCOMPARE(qgetenv("QML_DISABLE_DISK_CACHE"), QByteArray("given"));
        qunsetenv("QML_DISABLE_DISK_CACHE");
    }
};

VEXA_WIDGET_TEST_MAIN(QuickViewsTest)
#include "QuickViewsTest.moc"
