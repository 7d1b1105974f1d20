// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <algorithm>
#include <array>
#include <memory>

using namespace vexa::test;

using Settings = ZrToolXmlClass;

namespace {

enum Kind { Annotation, Blackboard, Held };
using Order = std::array<Kind, 3>;

QList<Order> allOrders() {
    Order order{Annotation, Blackboard, Held};
    QList<Order> orders;
    do
        orders += order;
    while (std::next_permutation(order.begin(), order.end()));
    return orders;
}

QByteArray named(const Order &order) {
    QByteArray name;
    for (Kind kind : order)
        name += "ABH"[kind];
    return name;
}

void toggle(ToolPanel &panel, Kind kind) {
    panel.chord(pen::m);
    panel.chord(kind == Annotation ? pen::i : pen::j);
}

void open(ToolPanel &panel, const Order &order, int heldTool) {
    Settings::Key3P = 3;
    Settings::Key4P = heldTool;
    for (Kind kind : order)
        if (kind == Held)
            panel.chord(pen::g);
        else
            toggle(panel, kind);
    QCOMPARE(ToolPanel::open<PizhuForm>().size(), 1);
    QCOMPARE(ToolPanel::open<blackBoardform>().size(), 1);
    QCOMPARE(ToolPanel::openHeldTools(), 1);
}

} // namespace

/// Annotation, blackboard and a held tool over each other: opened in every order, closed in every order.
class ToolOrderTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void closedByChord_data() { combinations(); }
    void closedByChord();
    void closedByExitButtonAndClick_data() { combinations(); }
    void closedByExitButtonAndClick();
    void closedByTheDesktop_data() { combinations(); }
    void closedByTheDesktop();
    void screenshotOverOpenTools();

private:
    static void combinations();
    void everythingWorksAgain();

    std::unique_ptr<ToolPanel> m_panel;
};

void ToolOrderTest::initTestCase() {
    userfile::clear();
    m_panel = std::make_unique<ToolPanel>();
}

void ToolOrderTest::cleanupTestCase() {
    m_panel.reset();
    QCOMPARE(ToolPanel::objects(), 0);
    userfile::clear();
}

void ToolOrderTest::combinations() {
    QTest::addColumn<int>("opening");
    QTest::addColumn<int>("closing");
    const QList<Order> orders = allOrders();
    for (int opening = 0; opening < orders.size(); ++opening)
        for (int closing = 0; closing < orders.size(); ++closing)
            QTest::addRow("%s, %s", named(orders.at(opening)).constData(),
                          named(orders.at(closing)).constData())
                << opening << closing;
}

/// Whatever was open is known to be closed: each tool opens once more, the chords reach it, and it closes.
void ToolOrderTest::everythingWorksAgain() {
    QTRY_COMPARE(ToolPanel::objects(), 0);
    m_panel->chord(pen::y);
    m_panel->window.RecvGlobaleMouseMessage(5, 500, 500);
    m_panel->chord(pen::s);
    for (Kind kind : {Annotation, Blackboard}) {
        toggle(*m_panel, kind);
        QVERIFY(!ToolPanel::nothingOpen());
        toggle(*m_panel, kind);
        QVERIFY(ToolPanel::nothingOpen());
    }
    QTRY_COMPARE(ToolPanel::objects(), 0);
}

void ToolOrderTest::closedByChord() {
    QFETCH(int, opening);
    QFETCH(int, closing);
    open(*m_panel, allOrders().at(opening), (opening + closing) % 3);
    const Order order = allOrders().at(closing);
    for (Kind kind : order) {
        if (kind == Held)
            m_panel->chord(pen::s);
        else
            toggle(*m_panel, kind);
        m_panel->chord(pen::y);
        m_panel->window.RecvGlobaleMouseMessage(5, 500, 500);
    }
    everythingWorksAgain();
}

void ToolOrderTest::closedByExitButtonAndClick() {
    QFETCH(int, opening);
    QFETCH(int, closing);
    open(*m_panel, allOrders().at(opening), (opening + closing) % 3);
    const Order order = allOrders().at(closing);
    for (Kind kind : order) {
        if (kind == Held)
            ToolPanel::click(ToolPanel::heldTool());
        else if (kind == Annotation)
            ToolPanel::pressExit(ToolPanel::open<PizhuForm>().constFirst());
        else
            ToolPanel::pressExit(ToolPanel::open<blackBoardform>().constFirst());
        m_panel->chord(pen::y);
        m_panel->window.RecvGlobaleMouseMessage(5, 500, 500);
    }
    QVERIFY(ToolPanel::nothingOpen());
    everythingWorksAgain();
}

void ToolOrderTest::closedByTheDesktop() {
    QFETCH(int, opening);
    QFETCH(int, closing);
    open(*m_panel, allOrders().at(opening), (opening + closing) % 3);
    const Order order = allOrders().at(closing);
    for (Kind kind : order) {
        if (kind == Held)
            ToolPanel::heldTool()->close();
        else if (kind == Annotation)
            ToolPanel::open<PizhuForm>().constFirst()->close();
        else
            ToolPanel::open<blackBoardform>().constFirst()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_panel->chord(pen::y);
        m_panel->window.RecvGlobaleMouseMessage(5, 500, 500);
    }
    everythingWorksAgain();
}

void ToolOrderTest::screenshotOverOpenTools() {
    Settings::Key4C = 4;
    open(*m_panel, {Annotation, Blackboard, Held}, 1);
    m_panel->chord(pen::d);
    m_panel->window.RecvGlobaleMouseMessage(5, 500, 500);
    QTest::qWait(100); // the magnifier draws from its picture meanwhile
    m_panel->chord(pen::d);
    m_panel->chord(pen::g);
    m_panel->window.RecvGlobaleMouseMessage(5, 700, 500);
    QTest::qWait(100);
    m_panel->chord(pen::s);
    toggle(*m_panel, Annotation);
    toggle(*m_panel, Blackboard);
    everythingWorksAgain();
}

VEXA_WIDGET_TEST_MAIN(ToolOrderTest)
#include "ToolOrderTest.moc"
