// SPDX-License-Identifier: MIT
#include "annotation/DrawingFaces.h"
#include "annotation/WholePathInk.h"
#include "overlays/promptwindow2.h"
#include "support/Pattern.h"
#include "support/RecordedStrokes.h"
#include "support/TestMain.h"

#include <QPaintEvent>
#include <QPainter>
#include <QProcess>

using namespace vexa::test;

using vexa::DrawingForm;

namespace {

/// Counts what the windows are asked to paint.
class PaintRecorder : public QObject {
public:
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

QString promptSwatch(const DrawingForm &form) {
    return form.prompt()->findChild<QLabel *>("label_2")->styleSheet();
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
    }

    void cleanup() {
        delete m_form;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void windowIsFramelessOnTopAndFollowsTheMouse() {
        open();
        // The toolkit adds a hint of its own.
        QCOMPARE(m_form->windowFlags() & ~Qt::WindowFlags(Qt::WindowFullscreenButtonHint),
                 Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        QVERIFY(m_form->testAttribute(Qt::WA_MouseTracking));
        QVERIFY(m_form->testAttribute(Qt::WA_DeleteOnClose));
        QCOMPARE(m_form->geometry(), QRect(0, 0, 1920, 1080));
    }

    void signalAndSlotsStandInTheirOrder() {
        open();
        const QMetaObject &meta = *m_form->metaObject();
        QCOMPARE(meta.superClass()->className(), "QWidget");
        const QList<QByteArray> expected{"signalPizhukWindow(int)", "on_pushButton_clicked()",
                                         "on_pushButton_eraser_clicked()", "on_pushButton_pen_clicked()"};
        for (int i = 0; i < expected.size(); ++i)
            QCOMPARE(meta.method(meta.methodOffset() + i).methodSignature(), expected[i]);
        QCOMPARE(meta.methodCount() - meta.methodOffset(), expected.size());
        QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    }

    void clickWithoutMovingLeavesOneDotOfThePensWidth() {
        open();
        QTest::mouseClick(m_form, Qt::LeftButton, {}, {400, 300});
        QTRY_COMPARE(inkOnScreen().boundingRect(), QRect(395, 295, 10, 10));
        QCOMPARE(faces::screen().pixel(400, 300), 0xffff0000);
    }

    void firstStrokeIsRedAndTenPixelsWide() {
        open();
        faces::stroke(*m_form, faces::line({200, 300}, {700, 300}, 100));
        const QRect across(450, 290, 1, 20);
        QImage expected = background().copy(across);
        for (int y = 5; y < 15; ++y)
            expected.setPixel(0, y, 0xffff0000);
        QTRY_COMPARE(faces::screen().copy(across), expected);
    }

    void positionsAreRoundedToWholePixels() {
        open();
        faces::press(*m_form, {399.5, 299.4});
        faces::release(*m_form, {399.5, 299.4});
        QTRY_COMPARE(inkOnScreen().boundingRect(), QRect(395, 294, 10, 10));

        faces::press(*m_form, {199.5, 600.5});
        std::vector<QPoint> rounded{{200, 601}};
        for (int i = 1; i < 40; ++i) {
            faces::move(*m_form, {199.5 + 10 * i, 600.49});
            rounded.emplace_back(200 + 10 * i, 600);
        }
        faces::release(*m_form, {589.5, 600.49});
        const QRect line(150, 550, 500, 100);
        QTRY_COMPARE(sheet(faces::screen()).copy(line), plainPicture(rounded, 10).copy(line));
    }

    void strokeOnTheScreenIsThatOfTheWholePath() {
        ZrToolXmlClass::PenThickness = 1; // 5 pixels
        open();
        const auto stroke = recordedStroke("curved", 400, {1600, 800});
        faces::stroke(*m_form, stroke);
        const QImage expected = plainPicture(stroke, 5);
        QTRY_COMPARE(sheet(faces::screen()), expected);
    }

    void everySampleOfAFastMouseIsDrawn() {
        ZrToolXmlClass::PenThickness = 1;
        open();
        const auto stroke = recordedStroke("wave", 500, {1600, 800});
        QStringList moves;
        for (const QPoint &point : stroke)
            moves << "mousemove" << QString::number(point.x()) << QString::number(point.y()) << "sleep"
                  << "0.001";
        // The window is busy all the while, so that all samples wait for it at once.
        const QString first = QString("mousemove %1 %2 mousedown 1").arg(stroke[0].x()).arg(stroke[0].y());
        QCOMPARE(QProcess::execute("xdotool", first.split(' ')), 0);
        QCOMPARE(QProcess::execute("xdotool", moves.mid(5)), 0);
        QCOMPARE(QProcess::execute("xdotool", {"mouseup", "1"}), 0);
        const QImage expected = plainPicture(stroke, 5);
        QTRY_COMPARE_WITH_TIMEOUT(sheet(faces::screen()), expected, 20000);
    }

    void pressHidesThePrompt() {
        open();
        m_form->prompt()->showWithTimer();
        QVERIFY(promptSeen(*m_form));
        faces::press(*m_form, {400, 300});
        QVERIFY(!promptSeen(*m_form));
        faces::release(*m_form, {400, 300});
    }

    void threeColourStepsReturnToTheFirstAndEachShowsThePrompt() {
        open();
        int x = 100;
        for (const auto &[colour, name] :
             {std::pair{0xff82ff20u, "#82FF20"}, {0xff000000u, "#000000"}, {0xffff0000u, "#FF0000"}}) {
            m_form->prompt()->hideWindow();
            m_form->ChangePenColorID();
            QVERIFY(promptSeen(*m_form));
            QVERIFY2(promptSwatch(*m_form).contains(QString("background-color:%1").arg(name)), name);
            x += 100;
            faces::stroke(*m_form, faces::line({x, 200}, {x, 400}, 50));
            QTRY_COMPARE(faces::screen().pixel(x, 300), colour);
        }
    }

    void colourStepReadsTheSettingsAgain() {
        open();
        ZrToolXmlClass::PenColor1 = 7; // "#9C1FFF"
        ZrToolXmlClass::PenThickness = 0;
        m_form->ChangePenColorID();
        QCOMPARE(m_form->cursor().pixmap().size(), QSize(2, 2));
        faces::stroke(*m_form, faces::line({200, 200}, {200, 400}, 50));
        QTRY_COMPARE(faces::screen().pixel(199, 300), 0xff9c1fff);
        QCOMPARE(faces::screen().pixel(197, 300), background().pixel(197, 300));
    }

    void colourStepDuringAStrokeChangesNothing() {
        open();
        faces::press(*m_form, {200, 300});
        faces::move(*m_form, {300, 300});
        m_form->ChangePenColorID();
        QVERIFY(!promptSeen(*m_form));
        QCOMPARE(m_form->cursor().shape(), Qt::BlankCursor);
        faces::move(*m_form, {500, 300});
        faces::move(*m_form, {600, 300});
        faces::release(*m_form, {600, 300});
        QTRY_COMPARE(faces::screen().pixel(450, 300), 0xffff0000);
        m_form->ChangePenColorID(); // the first step after all
        QVERIFY(promptSwatch(*m_form).contains("#82FF20"));
    }

    void colourStepWithTheEraserChangesNothing() {
        open();
        QTest::mouseClick(faces::eraserButton(*m_form), Qt::LeftButton);
        m_form->ChangePenColorID();
        QVERIFY(!promptSeen(*m_form));
        QCOMPARE(m_form->cursor().pixmap().size(), QSize(50, 50));
        QTest::mouseClick(faces::penButton(*m_form), Qt::LeftButton);
        faces::stroke(*m_form, faces::line({200, 300}, {400, 300}, 50));
        QTRY_COMPARE(faces::screen().pixel(300, 300), 0xffff0000);
    }

    void eraserShowsTheBackgroundThroughAHoleOfFiftyPixels() {
        open();
        for (int y = 250; y < 350; y += 4)
            faces::stroke(*m_form, faces::line({200, y}, {500, y}, 40));
        QTRY_COMPARE(faces::screen().pixel(340, 300), 0xffff0000);
        QTest::mouseClick(faces::eraserButton(*m_form), Qt::LeftButton);
        QTest::mouseClick(m_form, Qt::LeftButton, {}, {340, 300});
        QTRY_COMPARE(faces::screen().pixel(340, 300), background().pixel(340, 300));
        const QImage shot = faces::screen();
        for (int y = 265; y < 335; ++y) {
            for (int x = 305; x < 375; ++x) {
                const double distance = std::hypot(x + 0.5 - 340, y + 0.5 - 300);
                if (distance < 24)
                    QCOMPARE(shot.pixel(x, y), background().pixel(x, y));
                if (distance > 26)
                    QCOMPARE(shot.pixel(x, y), 0xffff0000);
            }
        }
    }

    void eraserRubsOutWithASmoothEdgeOnlyWhenMoved() {
        open();
        WholePathInk plain({1920, 1080});
        plain.setPen(redPen(10));
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
        QTRY_COMPARE(sheet(faces::screen()), over(plain));
    }

    void eraserWithoutInkChangesNothing() {
        open();
        QTest::mouseClick(faces::eraserButton(*m_form), Qt::LeftButton);
        faces::stroke(*m_form, faces::line({200, 300}, {800, 500}, 30));
        QCoreApplication::processEvents();
        const QRect drawn(100, 200, 800, 400);
        QCOMPARE(faces::screen().copy(drawn), background().copy(drawn));
    }

    void fastEraserLeavesSeparateHoles() {
        open();
        faces::stroke(*m_form, faces::line({100, 300}, {700, 300}, 100));
        QTRY_COMPARE(faces::screen().pixel(600, 300), 0xffff0000);
        QTest::mouseClick(faces::eraserButton(*m_form), Qt::LeftButton);
        faces::stroke(*m_form, {{200, 300}, {400, 300}, {600, 300}});
        for (const int x : {200, 400, 600})
            QTRY_COMPARE(faces::screen().pixel(x, 300), background().pixel(x, 300));
        const QImage shot = faces::screen();
        for (const int x : {300, 500})
            QCOMPARE(shot.pixel(x, 300), 0xffff0000);
    }

    void strokeThatLeavesTheWindowAndComesBackIsOneStroke() {
        open();
        std::vector<QPoint> stroke = faces::line({200, 100}, {300, -150}, 20);
        for (const QPoint &point : faces::line({300, -150}, {700, 120}, 30))
            stroke.push_back(point);
        faces::stroke(*m_form, stroke);
        const QImage expected = plainPicture(stroke, 10);
        QTRY_COMPARE(sheet(faces::screen()), expected);
        // It comes in again where the way back crosses the edge, not at the first sample inside.
        QCOMPARE(faces::screen().pixel(530, 5), 0xffff0000);
    }

    void strokeWhoseReleaseWentElsewhereEnds() {
        open();
        const auto hand = [](const QString &does) {
            QVERIFY(QProcess::execute("xdotool", does.split(' ')) == 0);
            QCoreApplication::processEvents();
        };
        hand("mousemove 200 300 mousedown 1");
        QTRY_COMPARE(m_form->cursor().shape(), Qt::BlankCursor);
        hand("mousemove 300 300");
        QWidget other;
        faces::show(other);
        other.grabMouse();
        hand("mouseup 1");
        QTRY_COMPARE(QGuiApplication::mouseButtons(), Qt::NoButton);
        other.releaseMouse();
        other.close();
        hand("mousemove 600 300");
        QTRY_VERIFY(m_form->cursor().shape() != Qt::BlankCursor);
        hand("mousemove 900 300");
        hand("mousemove 900 600 click 1"); // its dot is there once all moves before it have been handled
        QTRY_COMPARE(faces::screen().pixel(900, 600), 0xffff0000);
        QCOMPARE(faces::screen().pixel(240, 300), 0xffff0000);
        for (const QPoint &passed : {QPoint(500, 300), QPoint(700, 300), QPoint(900, 300), QPoint(900, 450)})
            QCOMPARE(faces::screen().pixel(passed), background().pixel(passed));
    }

    void onlyWhatChangedIsPainted() {
        open();
        faces::stroke(*m_form, faces::line({100, 100}, {800, 700}, 200));
        QTRY_COMPARE(faces::screen().pixel(795, 695), 0xffff0000);
        PaintRecorder recorder;
        m_form->installEventFilter(&recorder);
        faces::press(*m_form, {1000, 300});
        faces::move(*m_form, {1010, 310});
        QTRY_VERIFY(recorder.painted.contains(QPoint(1004, 304)));
        QVERIFY(QRect(900, 200, 220, 220).contains(recorder.painted.boundingRect()));
        faces::release(*m_form, {1010, 310});
    }

    void anyTimerPaintsItAnew() {
        open();
        PaintRecorder recorder;
        m_form->installEventFilter(&recorder);
        QTimerEvent tick(1);
        QCoreApplication::sendEvent(m_form, &tick);
        QTRY_VERIFY(recorder.painted.contains(QRect(0, 0, 1920, 1080)));
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
        QFETCH_GLOBAL(bool, face);
        m_board = face == faces::blackboard;
        m_form = faces::make(face);
        if (m_board)
            static_cast<blackBoardform *>(m_form.data())->Setbackground2();
        else
            m_form->Setbackground(new QPixmap(QPixmap::fromImage(background())));
        faces::show(*m_form);
        QTRY_COMPARE(faces::screen().pixel(300, 300), background().pixel(300, 300));
    }

    /// What lies under the ink.
    QImage background() const {
        static const QImage slide = pattern({1920, 1080});
        static const QImage board = [] {
            QImage plain(1920, 1080, QImage::Format_RGB32);
            plain.fill(faces::boardColour);
            return plain;
        }();
        return m_board ? board : slide;
    }

    QRegion inkOnScreen() const {
        const QImage shot = faces::screen();
        QRegion ink;
        for (int y = 200; y < 400; ++y)
            for (int x = 300; x < 500; ++x)
                if (shot.pixel(x, y) != background().pixel(x, y))
                    ink += QRect(x, y, 1, 1);
        return ink;
    }

    /// What there is to draw on: all but the title and the buttons.
    QImage sheet(QImage picture) const {
        QPainter painter(&picture);
        for (const QWidget *child : m_form->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
            if (!child->isWindow())
                painter.fillRect(child->geometry(), Qt::gray);
        return picture;
    }

    static QPen redPen(int width) {
        return {Qt::red, qreal(width), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
    }

    /// The sheet with this ink on it.
    QImage over(const WholePathInk &ink) const {
        QImage picture = background();
        QPainter(&picture).drawImage(0, 0, ink.image());
        return sheet(picture);
    }

    /// The sheet as plain drawing would have it.
    QImage plainPicture(const std::vector<QPoint> &stroke, int width) const {
        WholePathInk ink({1920, 1080});
        ink.setPen(redPen(width));
        ink.draw(stroke);
        return over(ink);
    }

    QPointer<DrawingForm> m_form;
    bool m_board = false;
};

VEXA_WIDGET_TEST_MAIN(DrawingFormTest)
#include "DrawingFormTest.moc"
