// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"
#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"
#include "support/UserFile.h"
#include "support/ViewNumbers.h"

#include <QQuickWidget>
#include <QRegularExpression>

using namespace vexa::test;

/// The main window where no view could be loaded, nor any picture or catalogue: this program has no
/// resources.
class MissingViewTest : public QObject {
    Q_OBJECT

private slots:
    void init() { userfile::startAfresh(); }
    void cleanupTestCase() { userfile::clear(); }

    void windowOpensWithAnEmptyArea() {
        MainWindow window;
        QVERIFY(!window.findChild<QQuickWidget *>(QStringLiteral("quickWidget"))->rootObject());
        window.show();
        QVERIFY(window.isVisible());
        QCOMPARE(window.findChild<QQuickWidget *>(QStringLiteral("quickWidget"))->geometry(),
                 QRect(0, 0, 999, 650));
        QTRY_VERIFY(window.isHidden());
    }

    void messagesToTheViewAreLost() {
        MainWindow window;
        window.Qml_Init();
        window.SetValue(nullptr, int(ViewMessage::SportLightTran), 3, 0);
        QObject withoutTheFunction;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("No such method.*setvalue")));
        window.SetValue(&withoutTheFunction, int(ViewMessage::SportLightTran), 3, 0);
    }

    void settingsAreStillStored() {
        MainWindow window;
        receive(window, ViewMessage::LaserPenSize, 33);
        QCOMPARE(ZrToolXmlClass::LaserPenSize, 33);
        QVERIFY(userfile::read().contains("<LaserPenSize>33</LaserPenSize>"));
    }

    void missingCatalogueTakesTheOldOneAway() {
        MainWindow window;
        receive(window, ViewMessage::Language, english);
        QCOMPARE(ZrToolXmlClass::Language, english);
        QCOMPARE(QCoreApplication::translate("SetWindow", "设置"), QStringLiteral("设置"));
    }
};

VEXA_WIDGET_TEST_MAIN(MissingViewTest)
#include "MissingViewTest.moc"
