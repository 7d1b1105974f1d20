// SPDX-License-Identifier: MIT
#include "annotation/DrawingFaces.h"
#include "annotation/WholePathInk.h"
#include "overlays/promptwindow2.h"
#include "support/Patience.h"
#include "support/Pattern.h"
#include "support/RealInput.h"
#include "support/RecordedStrokes.h"
#include "support/TestMain.h"

#include <QPaintEvent>

using namespace vexa::test;

using vexa::DrawingForm;

namespace {

/// Notes what a window is asked to paint.
class PaintRecorder : public QObject {
public:
    explicit PaintRecorder(QObject &window) { window.installEventFilter(this); }
    QRegion painted;

protected:
    bool eventFilter(QObject *, QEvent *event) override {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
};

bool promptSeen(const DrawingForm &form) {
    return form.prompt()->isVisible() && form.prompt()->windowOpacity() > 0;
}

} // namespace

class DrawingFormTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { faces::both(); }
    void init() {
        ZrToolXmlClass::PenColor0 = 2; // red
        ZrToolXmlClass::PenColor1 = 4; // "#82FF20"
        ZrToolXmlClass::PenColor2 = 0; // black
        ZrToolXmlClass::PenThickness = 3;
        open();
    }

    void windowIsFramelessOnTopAndFollowsTheMouse() {
        // The toolkit adds a hint of its own.
        QCOMPARE(m_form->windowFlags() & ~Qt::WindowFlags(Qt::WindowFullscreenButtonHint),
                 Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        QVERIFY(m_form->testAttribute(Qt::WA_MouseTracking));
        QVERIFY(m_form->testAttribute(Qt::WA_DeleteOnClose));
        QCOMPARE(m_form->geometry(), QRect(0, 0, 1920, 1080));
    }

    void signalAndSlotsStandInTheirOrder() {
        const QMetaObject &meta = *m_form->metaObject();
        QCOMPARE(meta.superClass()->className(), "QWidget");
        QByteArrayList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            methods += meta.method(i).methodSignature();
        QCOMPARE(methods, (QByteArrayList{"signalPizhukWindow(int)", "on_pushButton_clicked()",
                                          "on_pushButton_eraser_clicked()", "on_pushButton_pen_clicked()"}));
        QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    }

    void clickWithoutMovingLeavesOneDotOfThePensWidth() {
        QTest::mouseClick(m_form.get(), Qt::LeftButton, {}, {400, 300});
        QTRY_COMPARE(inkOnScreen(), QRect(395, 295, 10, 10));
        QCOMPARE(faces::screen().pixel(400, 300), 0xffff0000);
    }

    void positionsAreRoundedToWholePixels() {
        std::vector<QPoint> rounded{{200, 600}};
        faces::press(*m_form, {199.5, 600.49});
        for (int x = 210; x < 600; x += 10) {
            faces::move(*m_form, {x - 0.5, 600.49});
            rounded.emplace_back(x, 600);
        }
        faces::release(*m_form, {589.5, 600.49});
        QVERIFY(showsStroke(rounded, 10));
    }

    void everySampleOfAFastMouseIsDrawn() {
        ZrToolXmlClass::PenThickness = 1; // 5 pixels
        open();
        const auto stroke = recordedStroke("wave", 500, {1600, 800});
        // The window is busy all the while, so that all samples wait for it at once.
        moveMouse(stroke.front());
        pressMouse();
        for (const QPoint &point : stroke)
            moveMouse(point);
        releaseMouse();
        QVERIFY(showsStroke(stroke, 5));
    }

    void pressHidesThePrompt() {
        m_form->prompt()->showWithTimer();
        QVERIFY(promptSeen(*m_form));
        faces::press(*m_form, {400, 300});
        QVERIFY(!promptSeen(*m_form));
        faces::release(*m_form, {400, 300});
    }

    void eraserRubsOutWithASmoothEdgeOnlyWhenMoved() {
        WholePathInk plain = redInk(10);
        for (int y = 250; y < 350; y += 8) {
            const auto points = faces::line({200, y}, {500, y}, 40);
            faces::stroke(*m_form, points);
            plain.draw(points);
        }
        QTest::mouseClick(faces::eraserButton(*m_form), Qt::LeftButton);
        faces::stroke(*m_form, {{260, 300}, {340, 310}, {350, 313}, {450, 290}});
        plain.erase({260, 300}, false);
        for (const QPoint &moved : {QPoint(340, 310), QPoint(350, 313), QPoint(450, 290)})
            plain.erase(moved, true);
        QVERIFY(shows(plain));
    }

    void eraserWithoutInkChangesNothing() {
        QTest::mouseClick(faces::eraserButton(*m_form), Qt::LeftButton);
        faces::stroke(*m_form, faces::line({200, 300}, {800, 500}, 30));
        QCoreApplication::processEvents();
        const QRect drawn(100, 200, 800, 400);
        QCOMPARE(faces::screen().copy(drawn), background().copy(drawn));
    }

    void strokeThatLeavesTheWindowAndComesBackIsOneStroke() {
        std::vector<QPoint> stroke = faces::line({200, 100}, {300, -150}, 20);
        for (const QPoint &point : faces::line({300, -150}, {700, 120}, 30))
            stroke.push_back(point);
        faces::stroke(*m_form, stroke);
        QVERIFY(showsStroke(stroke, 10));
        // It comes in again where the way back crosses the edge, not at the first sample inside.
        QCOMPARE(faces::screen().pixel(530, 5), 0xffff0000);
    }

    void strokeWhoseReleaseWentElsewhereEnds() {
        moveMouse({200, 300});
        pressMouse();
        QTRY_COMPARE(m_form->cursor().shape(), Qt::BlankCursor);
        moveMouse({300, 300});
        QCoreApplication::processEvents();
        QWidget other;
        faces::show(other);
        other.grabMouse();
        releaseMouse();
        QTRY_COMPARE(QGuiApplication::mouseButtons(), Qt::NoButton);
        other.releaseMouse();
        other.close();
        faces::screen(); // asked after the window, so that it is gone when the server answers
        moveMouse({600, 300});
        QTRY_VERIFY(m_form->cursor().shape() != Qt::BlankCursor);
        moveMouse({900, 300});
        clickAt({900, 600}); // its dot is there once all moves before it have been handled
        QTRY_COMPARE(faces::screen().pixel(900, 600), 0xffff0000);
        QCOMPARE(faces::screen().pixel(240, 300), 0xffff0000);
        for (const QPoint &passed : {QPoint(500, 300), QPoint(700, 300), QPoint(900, 300), QPoint(900, 450)})
            QCOMPARE(faces::screen().pixel(passed), background().pixel(passed));
    }

    void onlyWhatChangedIsPainted() {
        faces::stroke(*m_form, faces::line({100, 100}, {800, 700}, 200));
        QTRY_COMPARE(faces::screen().pixel(795, 695), 0xffff0000);
        const PaintRecorder recorder(*m_form);
        faces::press(*m_form, {1000, 300});
        faces::move(*m_form, {1010, 310});
        QTRY_VERIFY(recorder.painted.contains(QPoint(1004, 304)));
        QVERIFY(QRect(900, 200, 220, 220).contains(recorder.painted.boundingRect()));
        faces::release(*m_form, {1010, 310});
    }

    void anyTimerPaintsItAnew() {
        const auto paintWhatIsDue = [this] {
            QCoreApplication::sendPostedEvents(m_form.get(), QEvent::UpdateRequest);
        };
        paintWhatIsDue();
        const PaintRecorder recorder(*m_form);
        QTimerEvent tick(1);
        QCoreApplication::sendEvent(m_form.get(), &tick);
        paintWhatIsDue();
        QVERIFY(recorder.painted.contains(QRect(0, 0, 1920, 1080)));
    }

    void settingsOutOfRangeDrawAThinBlackLineInSilence() {
        ZrToolXmlClass::PenColor0 = 8;
        ZrToolXmlClass::PenColor1 = -1;
        ZrToolXmlClass::PenThickness = -1;
        static int warnings;
        warnings = 0;
        const auto before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &) { ++warnings; });
        open();
        m_form->ChangePenColorID();
        for (int y = 100; y < 300; y += 20)
            faces::stroke(*m_form, faces::line({200, y}, {500, y}, 50));
        QCoreApplication::processEvents();
        qInstallMessageHandler(before);
        QCOMPARE(warnings, 0);
        QCOMPARE(m_form->cursor().shape(), Qt::ArrowCursor);
        QTRY_COMPARE(faces::screen().pixel(350, 100), 0xff000000);
        QCOMPARE(faces::screen().pixel(350, 103), background().pixel(350, 103));
    }

private:
    void open() {
        m_form.reset();
        m_form.reset(faces::open(faces::current(), QPixmap::fromImage(background())));
        QTRY_COMPARE(faces::screen().pixel(300, 300), background().pixel(300, 300));
    }

    /// What lies under the ink.
    static QImage background() {
        static const QImage slide = pattern({1920, 1080});
        static const QImage board = [] {
            QImage plain(1920, 1080, QImage::Format_RGB32);
            plain.fill(faces::boardColour);
            return plain;
        }();
        return faces::current() == faces::blackboard ? board : slide;
    }

    static QRect inkOnScreen() {
        const QImage shot = faces::screen();
        QRect ink;
        for (int y = 200; y < 400; ++y)
            for (int x = 300; x < 500; ++x)
                if (shot.pixel(x, y) != background().pixel(x, y))
                    ink |= QRect(x, y, 1, 1);
        return ink;
    }

    static WholePathInk redInk(int width) {
        WholePathInk ink({1920, 1080});
        ink.setPen(QPen(Qt::red, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        return ink;
    }

    /// Waits until the sheet has this ink on it.
    bool shows(const WholePathInk &ink) const {
        QImage expected = background();
        QPainter(&expected).drawImage(0, 0, ink.image());
        expected = faces::sheet(*m_form, expected);
        return QTest::qWaitFor([&] { return faces::sheet(*m_form, faces::screen()) == expected; }, patience);
    }
    bool showsStroke(const std::vector<QPoint> &stroke, int width) const {
        WholePathInk ink = redInk(width);
        ink.draw(stroke);
        return shows(ink);
    }

    std::unique_ptr<DrawingForm> m_form;
};

VEXA_WIDGET_TEST_MAIN(DrawingFormTest)
#include "DrawingFormTest.moc"
