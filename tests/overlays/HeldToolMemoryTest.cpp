// SPDX-License-Identifier: MIT
#include "overlays/HeldToolKinds.h"
#include "settings/ZrToolXmlClass.h"
#include "support/Patience.h"
#include "support/ResidentMemory.h"
#include "support/TestMain.h"

using namespace vexa::test;

/// Hundreds of openings of each held tool, drawn at several places and closed by a click.
class HeldToolMemoryTest : public QObject {
    Q_OBJECT

private slots:
    void hundredsOfOpeningsLeaveMemoryFlat_data() { allHeldTools(); }
    void hundredsOfOpeningsLeaveMemoryFlat() {
        QFETCH(HeldToolKind, kind);
        ZrToolXmlClass::LaserPenSize = 40;
        ZrToolXmlClass::SportLightSize = 100;
        ZrToolXmlClass::SportLightTran = 132;
        ZrToolXmlClass::MagnifierSize = 100;

        const double grown = growth(30, 200, [&kind] {
            QPixmap picture = screenWall();
            const QPointer<QWidget> tool = kind.open(&picture);
            QVERIFY(QTest::qWaitForWindowExposed(tool, patience));
            for (const QPoint &at : {QPoint(5, 5), QPoint(200, 150), QPoint(400, 470)}) {
                kind.move(tool, at);
                QTimerEvent anyTick(-2); // whatever is not the guard's is a frame's
                QCoreApplication::sendEvent(tool, &anyTick);
                QCoreApplication::processEvents();
            }
            QTest::mouseClick(tool, Qt::LeftButton, {}, {10, 10});
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(tool.isNull());
        });
        QVERIFY2(grown < 10, qPrintable(QString::number(grown))); // less than twenty pictures of this screen
    }
};

VEXA_WIDGET_TEST_MAIN(HeldToolMemoryTest)
#include "HeldToolMemoryTest.moc"
