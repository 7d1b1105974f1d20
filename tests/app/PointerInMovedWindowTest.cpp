// SPDX-License-Identifier: MIT
#include "app/PointerInMovedWindow.h"

#include "support/TestMain.h"

#include <QMouseEvent>

namespace {

/// Moves its window as the settings view does: by how far the pointer is from where it was pressed.
class View : public QWidget {
public:
    using QWidget::QWidget;
    QPoint start{60, 40};
    QPointF last;

protected:
    void mouseMoveEvent(QMouseEvent *event) override {
        last = event->localPos();
        if (event->buttons() != Qt::NoButton)
            window()->move(window()->pos() + event->pos() - start);
    }
};

} // namespace

/// A drag on a desktop that moves windows later than it is asked.
class PointerInMovedWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(300, 200, 400, 300);
        m_view = new View(m_window.get());
        m_view->setGeometry(10, 20, 300, 200);
        m_view->setMouseTracking(true);
        new vexa::PointerInMovedWindow(*m_view);
    }

    void aWindowThatLagsBehindFollowsThePointer() {
        // The desktop has moved the window by nothing yet while the pointer goes on.
        for (const QPoint travel : {QPoint(10, 5), QPoint(20, 10), QPoint(35, -15)}) {
            pointerMoves(travel, QPoint());
            QCOMPARE(m_window->pos(), QPoint(300, 200) + travel);
        }
        pointerMoves({50, 0}, {20, 10}); // it has caught up with the second move
        QCOMPARE(m_window->pos(), QPoint(350, 200));
    }

    void aWindowThatIsHeldBackFollowsFromWhereItIs() {
        pointerMoves({0, -250}, {});
        m_window->move(300, 0); // the desktop keeps its title on the screen
        pointerMoves({0, -240}, {0, -200});
        QCOMPARE(m_window->pos(), QPoint(300, -40));
        pointerMoves({0, -100}, {0, -200});
        QCOMPARE(m_window->pos(), QPoint(300, 100));
    }

    void aMoveWithoutAButtonStaysAsItIs() {
        pointerMoves({10, 5}, {3, 3}, Qt::NoButton);
        QCOMPARE(m_view->last, QPointF(67, 42));
    }

private:
    /// @param travel how far the pointer is from where it was pressed, on the screen
    /// @param followed how far the window was from its first place when the desktop looked
    void pointerMoves(QPoint travel, QPoint followed, Qt::MouseButtons buttons = Qt::LeftButton) {
        const QPoint inView = m_view->start + travel - followed;
        const QPoint onScreen = QPoint(300, 200) + QPoint(10, 20) + m_view->start + travel;
        QMouseEvent event(QEvent::MouseMove, inView, inView + m_view->pos(), onScreen, Qt::NoButton, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(m_view, &event);
    }

    std::unique_ptr<QWidget> m_window;
    View *m_view = nullptr;
};

VEXA_WIDGET_TEST_MAIN(PointerInMovedWindowTest)
#include "PointerInMovedWindowTest.moc"
