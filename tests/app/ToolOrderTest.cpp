// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "support/Table.h"
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

/// How the tools are closed: by the pen, by a click on them, or by the desktop.
enum Way { ByChord, ByClick, ByDesktop };

/// Counts how often a window has drawn itself.
class Drawings : public QObject {
public:
    explicit Drawings(QWidget *window) { window->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

} // namespace

/// Annotation, blackboard and a held tool over each other: opened in every order, closed in every order.
class ToolOrderTest : public QObject {
    Q_OBJECT

    using Closings = Table<int, int, int>;

private slots:
    void initTestCase() {
        userfile::clear();
        m_panel = std::make_unique<ToolPanel>();
    }
    void cleanup() { everythingWorksAgain(); }
    void cleanupTestCase() {
        m_panel.reset();
        QCOMPARE(ToolPanel::objects(), 0);
        userfile::clear();
    }

    void toolsCloseInAnyOrderAndAnyWay_data() {
        Closings::begin();
        const QList<Order> orders = allOrders();
        for (int way : {ByChord, ByClick, ByDesktop})
            for (int opening = 0; opening < orders.size(); ++opening)
                for (int closing = 0; closing < orders.size(); ++closing)
                    QTest::addRow("%s, %s by %s", named(orders.at(opening)).constData(),
                                  named(orders.at(closing)).constData(),
                                  way == ByChord   ? "chord"
                                  : way == ByClick ? "click"
                                                   : "desktop")
                        << opening << closing << way;
    }

    void toolsCloseInAnyOrderAndAnyWay() {
        const auto [opening, closing, way] = Closings::row();
        open(allOrders().at(opening), HeldToolChoice((opening + closing) % 3));
        const Order order = allOrders().at(closing);
        for (Kind kind : order) {
            close(kind, Way(way));
            m_panel->chord(pen::y);
            m_panel->moveTo(500, 500);
        }
        if (way == ByClick)
            QVERIFY(ToolPanel::nothingOpen());
    }

    void screenshotOverOpenTools() {
        Settings::Key4C = Number(KeyAction::Screenshot);
        open({Annotation, Blackboard, Held}, HeldToolChoice::Magnifier);
        QList<QWidget *> older;
        for (const int x : {500, 700}) { // over one magnifier, then over two
            m_panel->chord(pen::d);
            m_panel->moveTo(x, 500);
            const QList<QWidget *> tools = ToolPanel::heldTools();
            const auto newest = std::find_if(tools.begin(), tools.end(),
                                             [&](QWidget *tool) { return !older.contains(tool); });
            QVERIFY(newest != tools.end());
            Drawings drawings(*newest);
            older = tools;
            QTRY_VERIFY(drawings.count > 0); // from its picture
            m_panel->chord(pen::g);
        }
        m_panel->chord(pen::s);
        m_panel->toggle(false);
        m_panel->toggle(true);
    }

private:
    void open(const Order &order, HeldToolChoice heldTool) {
        for (Kind kind : order)
            kind == Held ? m_panel->openHeldTool(heldTool) : m_panel->toggle(kind == Blackboard);
        QVERIFY(ToolPanel::form(false) && ToolPanel::form(true));
        QCOMPARE(ToolPanel::objects(), 3);
    }

    void close(Kind kind, Way way) {
        if (way == ByChord)
            return kind == Held ? m_panel->chord(pen::s) : m_panel->toggle(kind == Blackboard);
        QWidget *tool = kind == Held ? ToolPanel::heldTool() : ToolPanel::form(kind == Blackboard);
        if (way == ByDesktop) {
            tool->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        } else {
            kind == Held ? ToolPanel::click(tool) : ToolPanel::pressExit(tool);
        }
    }

    /// Whatever was open is known to be closed: each tool opens once more, the chords reach it, and it
    /// closes.
    void everythingWorksAgain() {
        QTRY_COMPARE(ToolPanel::objects(), 0);
        m_panel->chord(pen::y);
        m_panel->moveTo(500, 500);
        m_panel->chord(pen::s);
        for (const bool blackboard : {false, true}) {
            m_panel->toggle(blackboard);
            QVERIFY(!ToolPanel::nothingOpen());
            m_panel->toggle(blackboard);
            QVERIFY(ToolPanel::nothingOpen());
        }
        QTRY_COMPARE(ToolPanel::objects(), 0);
    }

    std::unique_ptr<ToolPanel> m_panel;
};

VEXA_WIDGET_TEST_MAIN(ToolOrderTest)
#include "ToolOrderTest.moc"
