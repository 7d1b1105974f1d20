// SPDX-License-Identifier: MIT
#include "annotation/PizhuForm.h"
#include "app/OpenTools.h"
#include "overlays/LightPen.h"
#include "overlays/Magnifie.h"
#include "overlays/Spolight2.h"
#include "support/TestMain.h"

#include <QScreen>

using vexa::OpenTools;

using Open = void (OpenTools::*)();
using Picture = QPixmap (*)();
Q_DECLARE_METATYPE(Open)
Q_DECLARE_METATYPE(Picture)

/// The pictures that the tools are given where a point is a pixel and a half.
class ToolScaleTest : public QObject {
    Q_OBJECT

private slots:
    void aHeldToolGetsAWholeNumberOfPixelsToAPoint_data() {
        QTest::addColumn<Open>("open");
        QTest::addColumn<Picture>("picture");
        QTest::newRow("spotlight") << &OpenTools::openSpotlight << &pictureOf<Spolight2>;
        QTest::newRow("magnifier") << &OpenTools::openMagnifier << &pictureOf<Magnifie>;
        QTest::newRow("laser") << &OpenTools::openLaser << &pictureOf<LightPen>;
    }

    void aHeldToolGetsAWholeNumberOfPixelsToAPoint() {
        QFETCH(Open, open);
        QFETCH(Picture, picture);
        QCOMPARE(QGuiApplication::primaryScreen()->devicePixelRatio(), 1.5);
        OpenTools tools;
        (tools.*open)();
        QCOMPARE(picture().size(), QSize(400, 260) * 2);
        QCOMPARE(picture().devicePixelRatio(), 2.0);
    }

    void theAnnotationGetsTheScreenAsItIs() {
        OpenTools tools;
        tools.openAnnotation();
        QCOMPARE(pictureOf<PizhuForm>().size(), QSize(600, 390));
        QCOMPARE(pictureOf<PizhuForm>().devicePixelRatio(), 1.5);
    }

private:
    template<typename Tool> static QPixmap pictureOf() {
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (qobject_cast<Tool *>(widget))
                return widget->palette().brush(QPalette::Window).texture();
        return {};
    }
};

VEXA_WIDGET_TEST_MAIN(ToolScaleTest)
#include "ToolScaleTest.moc"
