// SPDX-License-Identifier: MIT
#include "annotation/DrawingFaces.h"
#include "overlays/promptwindow2.h"
#include "support/ResidentMemory.h"
#include "support/Table.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace vexa::test;

using vexa::DrawingForm;

namespace {

/// Lets a closed window delete itself.
void turnEventLoop() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

QPixmap plain(Qt::GlobalColor colour) {
    QPixmap picture(1920, 1080);
    picture.fill(colour);
    return picture;
}

} // namespace

class DrawingFormLifeTest : public QObject {
    Q_OBJECT

    using Exits = Table<int, int>; // clicks of the mouse on the exit button, reports

private slots:
    void initTestCase_data() { faces::both(); }
    void init() {
        ZrToolXmlClass::PenColor0 = 2;
        ZrToolXmlClass::PenThickness = 3;
        m_form = faces::open(faces::current(), plain(Qt::green));
    }
    void cleanup() { delete m_form; }

    void exitButtonReportsOnceThenTheWindowIsGone_data() {
        Exits::begin();
        QTest::newRow("one click") << 1 << 1;
        QTest::newRow("a second click before the window is gone") << 2 << 1;
        QTest::newRow("no click of the mouse") << 0 << 0;
    }
    void exitButtonReportsOnceThenTheWindowIsGone() {
        const auto [clicks, reports] = Exits::row();
        const QPointer<promptwindow2> prompt = m_form->prompt();
        QSignalSpy spy(m_form, SIGNAL(signalPizhukWindow(int)));
        bool visibleWhenReported = false;
        faces::whenItReports(m_form, [&] { visibleWhenReported = m_form->isVisible(); });
        for (int i = 0; i < clicks && m_form; ++i)
            QTest::mouseClick(faces::exitButton(*m_form), Qt::LeftButton);
        if (clicks == 0)
            faces::exitButton(*m_form)->click();
        QVERIFY(!m_form || !m_form->isVisible());
        turnEventLoop();
        QVERIFY(!m_form);
        QVERIFY(!prompt);
        QCOMPARE(spy.count(), reports);
        QCOMPARE(visibleWhenReported, reports > 0);
        if (reports > 0)
            QCOMPARE(spy.at(0).at(0).toInt(), faces::current() == faces::annotation ? 1 : 0);
    }

    void itMayBeDeletedByWhoeverItReportsTo() {
        faces::whenItReports(m_form, [this] { delete m_form; });
        faces::press(*faces::exitButton(*m_form), {30, 30});
        QVERIFY(!m_form);
    }

    void toolSlotsRunTwiceWithoutHarm() {
        for (int i = 0; i < 2; ++i)
            QVERIFY(QMetaObject::invokeMethod(m_form, "on_pushButton_eraser_clicked"));
        QCOMPARE(m_form->cursor().pixmap().size(), QSize(50, 50));
        for (int i = 0; i < 2; ++i)
            QVERIFY(QMetaObject::invokeMethod(m_form, "on_pushButton_pen_clicked"));
        QCOMPARE(m_form->cursor().pixmap().size(), QSize(10, 10));
    }

    void buildingThePenAnewTakesThePenButLeavesTheButtons() {
        faces::eraserButton(*m_form)->click();
        m_form->setPenInit();
        QVERIFY(faces::eraserButton(*m_form)->isChecked());
        faces::press(*m_form, {400, 300});
        QCOMPARE(m_form->cursor().shape(), Qt::BlankCursor); // a pen draws
    }

    void backgroundFillsTheWholeWindow() {
        const QRgb colour = faces::current() == faces::blackboard ? faces::boardColour : 0xff00ff00;
        QTRY_COMPARE(faces::screen().pixel(5, 5), colour);
        const QImage sheet = faces::sheet(*m_form, faces::screen(), colour);
        QImage bare(sheet.size(), sheet.format());
        bare.fill(colour);
        QCOMPARE(sheet, bare);
    }

    void newBackgroundTakesThePlaceOfTheOld() {
        auto *const second = new QPixmap(plain(Qt::blue));
        for (int i = 0; i < 2; ++i) { // also of itself
            m_form->Setbackground(second);
            QTRY_COMPARE(faces::screen().pixel(500, 500), 0xff0000ff);
        }
        m_form->Setbackground(nullptr);
        m_form->Setbackground(new QPixmap(plain(Qt::yellow)));
        QTRY_COMPARE(faces::screen().pixel(500, 500), 0xffffff00);
        if (auto *const board = qobject_cast<blackBoardform *>(m_form)) {
            board->Setbackground2();
            QTRY_COMPARE(faces::screen().pixel(500, 500), faces::boardColour);
        }
    }

    void backgroundIsThereWhetherActiveOrNot() {
        constexpr QPalette::ColorGroup groups[] = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};
        if (faces::current() == faces::blackboard)
            for (const auto group : groups)
                QCOMPARE(m_form->palette().brush(group, QPalette::Window), QBrush(QColor(24, 24, 39)));
        m_form->Setbackground(new QPixmap(plain(Qt::green)));
        for (const auto group : groups)
            QCOMPARE(m_form->palette().brush(group, QPalette::Window).textureImage().pixel(9, 9), 0xff00ff00);
    }

    void bothWindowsOpenTogetherCloseInEitherOrder() {
        delete m_form;
        QPointer<DrawingForm> annotation = faces::open(faces::annotation, plain(Qt::green));
        QPointer<DrawingForm> board = faces::open(faces::blackboard, {});
        faces::press(*board, {100, 100});
        faces::move(*board, {200, 200});
        const bool boardStays = faces::current() == faces::blackboard;
        DrawingForm *const left = boardStays ? board.data() : annotation.data();
        (boardStays ? annotation : board)->close(); // in the midst of a stroke
        turnEventLoop();
        faces::stroke(*left, faces::line({300, 300}, {600, 300}, 30));
        QTRY_COMPARE(faces::screen().pixel(450, 300), 0xffff0000);
        left->close();
        turnEventLoop();
        QVERIFY(annotation.isNull() && board.isNull());
    }

    void mouseSamplesAreKeptOnlyWhileAWindowNeedsThem() {
        delete m_form;
        constexpr auto merging = Qt::AA_CompressHighFrequencyEvents;
        for (const bool mergedBefore : {false, true}) { // the usual one last, for the tests that follow
            QCoreApplication::setAttribute(merging, mergedBefore);
            {
                const std::unique_ptr<DrawingForm> first(faces::make(faces::annotation));
                { const std::unique_ptr<DrawingForm> second(faces::make(faces::blackboard)); }
                QVERIFY(!QCoreApplication::testAttribute(merging));
            }
            QCOMPARE(QCoreApplication::testAttribute(merging), mergedBefore);
        }
    }

    void hundredsOfOpeningsLeaveMemoryFlat() {
        delete m_form;
        const double grown = growth(30, 200, [] {
            DrawingForm *form = faces::make(faces::current());
            form->Setbackground(new QPixmap(plain(Qt::green)));
            form->prompt()->showWithTransperent();
            vexa::platform::showOverPrimaryScreen(*form);
            faces::stroke(*form, faces::line({300, 300}, {600, 400}, 20));
            form->ChangePenColorID();
            QCoreApplication::processEvents();
            form->close();
            turnEventLoop();
        });
        // Ink, coverage and picture of one window are some 20 MB, its prompt and cursors some 0.1 MB.
        QVERIFY2(grown < 10, qPrintable(QString::number(grown)));
    }

private:
    QPointer<DrawingForm> m_form;
};

VEXA_WIDGET_TEST_MAIN(DrawingFormLifeTest)
#include "DrawingFormLifeTest.moc"
