// SPDX-License-Identifier: MIT
//
// What only one or two of the held tools can be told.
#include "overlays/HeldToolKinds.h"
#include "overlays/TickCounter.h"
#include "settings/ZrToolXmlClass.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

using namespace vexa::test;

class ToolOperationsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        setToolSizes(40);
        ZrToolXmlClass::LaserPenColor = 510; // red
        ZrToolXmlClass::MagnifierColor = 510;
        m_picture = screenWall();
        moveMouse(QPoint(200, 150) * screenRatio());
    }

    void theSpotlightCanBeAnEmptyVeil() {
        Spolight2 tool;
        tool.Set_Background_OpaCity(100);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(tool.palette().brush(group, QPalette::Window), QBrush(QColor(0, 0, 0, 100)));
        QVERIFY(tool.autoFillBackground());
        tool.Set_Background_OpaCity(256);
        QVERIFY(!tool.palette().color(QPalette::Window).isValid());
    }

    void theLaserCanHaveAClearWindow() {
        LightPen tool;
        tool.Setbackground_transparent();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(tool.palette().brush(group, QPalette::Window), QBrush(Qt::transparent));
    }

    void itIsDrawnOncePressedWhateverTheArgument_data() {
        QTest::addColumn<HeldToolKind>("kind");
        QTest::addColumn<bool>("argument");
        QTest::addColumn<QPoint>("red"); // where the tool is that colour, or nearly, drawn at the pointer
        for (const bool argument : {true, false}) {
            QTest::addRow("laser, %d", argument) << laser << argument << QPoint(200, 150);
            QTest::addRow("magnifier, %d", argument) << magnifier << argument << QPoint(200 + 41, 150);
        }
    }
    void itIsDrawnOncePressedWhateverTheArgument() {
        QFETCH(HeldToolKind, kind);
        QFETCH(bool, argument);
        QFETCH(QPoint, red);
        const std::unique_ptr<QWidget> tool(kind.make());
        tool->resize(screenPoints());
        kind.setBackground(tool.get(), &m_picture);
        kind.move(tool.get(), {100, 80});
        const TickCounter ticks(tool.get());
        QTRY_VERIFY_WITH_TIMEOUT(ticks.quickTicks() >= 3, patience);
        QCOMPARE(differences(tool->grab().toImage(), m_picture.toImage()), 0);
        QTRY_COMPARE_WITH_TIMEOUT(QCursor::pos(), QPoint(200, 150), patience);
        kind.press(tool.get(), argument);
        QCOMPARE(QWidget::mouseGrabber(), tool.get());
        QVERIFY(alike(tool->grab().toImage().pixel(red), qRgb(255, 0, 0), 70));
    }

    void grabScreenOfTheMagnifierDoesNothing() {
        Magnifie tool;
        const QPalette before = tool.palette();
        tool.grabScreen();
        QCOMPARE(tool.palette(), before);
        QVERIFY(!tool.isVisible());
    }

private:
    QPixmap m_picture;
};

VEXA_WIDGET_TEST_MAIN(ToolOperationsTest)
#include "ToolOperationsTest.moc"
