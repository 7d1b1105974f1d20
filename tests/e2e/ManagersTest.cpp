// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Manager.h"
#include "e2e/Program.h"
#include "support/ForeignWindow.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <cstdlib>

using namespace vexa::test;

namespace {

const QPoint place(200, 200);

/// How a tool is opened and closed, and how red a pixel of the white slide below it is then, about.
struct Tool {
    QVector<PenKey> opening, closing;
    int key4; ///< the held tool of key 4
    QPoint spot;
    int red;
};

const QVector<PenKey> hold{PenKey::G}, letGo{PenKey::S};
const QVector<PenKey> toggleAnnotation{PenKey::M, PenKey::I}, toggleBlackboard{PenKey::M, PenKey::J};
const Tool laser{hold, letGo, 2, place, 0};
const Tool magnifier{hold, letGo, 1, place + QPoint(101, 0), 40}; // on the ring
const Tool spotlight{hold, letGo, 0, {10, 10}, 123};              // under the veil
const Tool annotation{toggleAnnotation, toggleAnnotation, 2, {10, 10}, 255};
const Tool blackboard{toggleBlackboard, toggleBlackboard, 2, {10, 300}, 40};

bool isSeen(const Tool &tool) {
    return std::abs(qRed(e2e::pixelAt(tool.spot)) - tool.red) <= 60;
}

} // namespace

Q_DECLARE_METATYPE(Tool)

/// The managers of the desktop die and come back while a tool is open.
class ManagersTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY(m_windowManager.start());
        QVERIFY(m_compositor.start());
        m_slide = std::make_unique<ForeignWindow>(ForeignWindow::Kind::Unmanaged, QRect(0, 0, 1920, 1080),
                                                  Qt::white);
        moveMouse(place);
    }

    void aToolOutlivesThem_data() {
        QTest::addColumn<Tool>("tool");
        QTest::newRow("laser") << laser;
        QTest::newRow("magnifier") << magnifier;
        QTest::newRow("spotlight") << spotlight;
        QTest::newRow("annotation") << annotation;
        QTest::newRow("blackboard") << blackboard;
    }

    void aToolOutlivesThem() {
        QFETCH(Tool, tool);
        m_program = std::make_unique<e2e::Program>(e2e::Program::Settings{{"Key3P", 3},
                                                                          {"Key4P", tool.key4},
                                                                          {"LaserPenSize", 20},
                                                                          {"LaserPenColor", 600},
                                                                          {"MagnifierSize", 100},
                                                                          {"MagnifierColor", 600},
                                                                          {"SportLightSize", 100},
                                                                          {"SportLightTran", 132}});
        QVERIFY(e2e::startAndSettle(*m_program));
        QTRY_COMPARE_WITH_TIMEOUT(qRed(e2e::pixelAt(tool.spot)), 255, patience);
        QVERIFY(opens(tool));
        QTRY_VERIFY_WITH_TIMEOUT(isSeen(tool), patience);
        for (e2e::Manager *manager : {&m_windowManager, &m_compositor}) {
            QVERIFY(manager->kill());
            QTRY_VERIFY_WITH_TIMEOUT(isSeen(tool), patience);
            QVERIFY(toolIsOpen());
            QVERIFY(manager->start());
            QTRY_VERIFY_WITH_TIMEOUT(isSeen(tool), patience);
            QVERIFY(toolIsOpen());
        }
        QVERIFY(closes(tool));
        QTRY_COMPARE_WITH_TIMEOUT(qRed(e2e::pixelAt(tool.spot)), 255, patience);
        QVERIFY(opens(tool));
        QTRY_VERIFY_WITH_TIMEOUT(isSeen(tool), patience);
        QVERIFY(closes(tool));
        QVERIFY(m_program->isRunning());
    }

private:
    static void type(const QVector<PenKey> &keys) {
        for (const PenKey key : keys)
            typeChord(key);
    }

    bool toolIsOpen() const { return e2e::visibleWindowOfSize(m_program->pid(), {1920, 1080}).id != 0; }
    bool opens(const Tool &tool) const {
        type(tool.opening);
        return QTest::qWaitFor([this] { return toolIsOpen(); }, patience);
    }

    bool closes(const Tool &tool) const {
        type(tool.closing);
        return QTest::qWaitFor([this] { return !toolIsOpen(); }, patience);
    }

    e2e::Manager m_windowManager{e2e::Manager::Kind::OfWindows};
    e2e::Manager m_compositor{e2e::Manager::Kind::Compositing};
    std::unique_ptr<ForeignWindow> m_slide;
    std::unique_ptr<e2e::Program> m_program;
};

VEXA_WIDGET_TEST_MAIN(ManagersTest)
#include "ManagersTest.moc"
