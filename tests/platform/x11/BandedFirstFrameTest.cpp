// SPDX-License-Identifier: MIT
#include "platform/x11/BandedFirstFrame.h"

#include "platform/OverlayWindow.h"
#include "platform/x11/ScreenBands.h"
#include "support/ForeignWindow.h"
#include "support/Sanitized.h"
#include "support/ScreenProbe.h"
#include "support/TestMain.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <sys/resource.h>

using namespace vexa::test;
using vexa::platform::ScreenBands;

namespace {

/// A window with a picture for its background, a drawing of its own and a child.
class Overlay : public QWidget {
public:
    Overlay() {
        setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        QPalette dressed = palette();
        dressed.setBrush(QPalette::Window, QBrush(screenWall()));
        setPalette(dressed);
        m_label.setGeometry(100, 80, 200, 60);
        m_label.setAutoFillBackground(true);
        m_label.setText(QStringLiteral("label"));
    }

    void setDot(const QPoint &dot) {
        update(QRect(m_dot - QPoint(30, 30), QSize(60, 60)));
        m_dot = dot;
        update(QRect(m_dot - QPoint(30, 30), QSize(60, 60)));
    }
    QLabel &label() { return m_label; }
    /// The rows of the first paintings, in their order.
    const QVector<QRect> &painted() const { return m_painted; }

protected:
    void paintEvent(QPaintEvent *event) override {
        m_painted.append(event->rect());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(rect().adjusted(0, height() / 2, 0, 0), QColor(0, 0, 0, 99));
        painter.setBrush(Qt::red);
        painter.drawEllipse(m_dot, 25, 25);
    }

private:
    QLabel m_label{this};
    QPoint m_dot{300, 290};
    QVector<QRect> m_painted;
};

QImage asTheToolkitPaints(QWidget &widget) {
    QImage image = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    return image;
}

bool isOnScreen(QWidget &widget) {
    return QTest::qWaitFor([&] { return differences(shownOnScreen(), asTheToolkitPaints(widget)) == 0; },
                           patience);
}

long pagesFetched() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

} // namespace

/// Runs on plain servers, at double density, at a ratio between, and where pictures go through the socket.
class BandedFirstFrameTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_overlay = std::make_unique<Overlay>();
        vexa::platform::showOverPrimaryScreen(*m_overlay);
        QVERIFY(QTest::qWaitForWindowExposed(m_overlay.get(), patience));
        QCOMPARE(m_overlay->findChild<vexa::platform::BandedFirstFrame *>() != nullptr,
                 ScreenBands::instance() != nullptr);
    }

    void cleanup() { m_overlay.reset(); }

    void everyPixelIsTheToolkits() { QVERIFY(isOnScreen(*m_overlay)); }

    void firstComeTheRowsOfChildrenAndThoseAroundThePointer() {
        if (!ScreenBands::instance() || screenRatio() != qRound(screenRatio()))
            QSKIP("here the toolkit paints by itself");
        const QPoint pointer(400, screenPoints().height() - 200);
        QCursor::setPos(pointer);
        m_overlay = std::make_unique<Overlay>();
        vexa::platform::showOverPrimaryScreen(*m_overlay);
        QTRY_VERIFY_WITH_TIMEOUT(!m_overlay->painted().isEmpty(), patience);

        const QRect label = m_overlay->label().geometry();
        QVector<int> distances; // from what comes first
        bool besidesLabel = false;
        int next = 0;
        for (int bottom = 0; bottom < screenPoints().height();
             bottom += m_overlay->painted().at(next++).height()) {
            const QRect rows = m_overlay->painted().at(next);
            const bool ofLabel = rows.intersects(label);
            QVERIFY(!ofLabel || !besidesLabel);
            besidesLabel = !ofLabel;
            if (besidesLabel)
                distances.append(qAbs(rows.center().y() - pointer.y()));
        }
        QVERIFY(distances.size() > 2);
        QVERIFY(std::is_sorted(distances.begin(), distances.end()));
    }

    void onlyWhatChangesIsPaintedAfterwards() {
        QVERIFY(isOnScreen(*m_overlay));
        m_overlay->setDot({500, 100});
        m_overlay->label().setText(QStringLiteral("another"));
        QVERIFY(isOnScreen(*m_overlay));
    }

    void whatWasCoveredComesBack() {
        QVERIFY(isOnScreen(*m_overlay));
        {
            const int ratio = int(screenRatio());
            ForeignWindow cover(ForeignWindow::Kind::Unmanaged,
                                QRect(90 * ratio, 70 * ratio, 250 * ratio, 250 * ratio), Qt::green);
            QTRY_VERIFY_WITH_TIMEOUT(cover.isViewable(), patience);
            QTRY_VERIFY_WITH_TIMEOUT(differences(shownOnScreen(), asTheToolkitPaints(*m_overlay)) > 1000,
                                     patience);
            m_overlay->setDot({140, 150});
            QCoreApplication::processEvents();
        }
        QVERIFY(isOnScreen(*m_overlay));
    }

    void aHiddenWindowComesBack() {
        QVERIFY(isOnScreen(*m_overlay));
        m_overlay->hide();
        m_overlay->setDot({200, 200});
        m_overlay->show();
        QVERIFY(isOnScreen(*m_overlay));
    }

    void aNewSizeIsPaintedWhole() {
        QVERIFY(isOnScreen(*m_overlay));
        const QSize size = screenPoints();
        m_overlay->resize(size - QSize(20, 20));
        QCoreApplication::processEvents();
        m_overlay->resize(size);
        QVERIFY(isOnScreen(*m_overlay));
    }

    void aFrameNeedsNoMemoryForTheWholeWindow_data() {
        QTest::addColumn<Qt::ConnectionType>("call");
        QTest::newRow("shown at once") << Qt::DirectConnection;
        QTest::newRow("shown by the event loop, as a chord does") << Qt::QueuedConnection;
    }
    void aFrameNeedsNoMemoryForTheWholeWindow() {
        QFETCH(Qt::ConnectionType, call);
        if (!ScreenBands::instance() || addressSanitized || screenRatio() != qRound(screenRatio()))
            QSKIP("here the toolkit paints by itself, or pages are not the program's alone");
        const long pagesOfTheWindow = long(asTheToolkitPaints(*m_overlay).sizeInBytes() / 4096);
        m_overlay = std::make_unique<Overlay>();
        const long before = pagesFetched();
        QMetaObject::invokeMethod(
            m_overlay.get(), [this] { vexa::platform::showOverPrimaryScreen(*m_overlay); }, call);
        QTRY_VERIFY_WITH_TIMEOUT(!m_overlay->painted().isEmpty(), patience);
        QCoreApplication::processEvents();
        const long fetched = pagesFetched() - before;
        QVERIFY(isOnScreen(*m_overlay));
        QVERIFY2(fetched < pagesOfTheWindow / 2,
                 qPrintable(QStringLiteral("%1 of %2").arg(fetched).arg(pagesOfTheWindow)));
    }

private:
    std::unique_ptr<Overlay> m_overlay;
};

VEXA_WIDGET_TEST_MAIN(BandedFirstFrameTest)
#include "BandedFirstFrameTest.moc"
