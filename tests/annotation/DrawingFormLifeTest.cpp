// SPDX-License-Identifier: MIT
#include "annotation/DrawingFaces.h"
#include "overlays/promptwindow2.h"
#include "support/ResidentMemory.h"
#include "support/TestMain.h"

#include <QPainter>
#include <QSignalSpy>

using namespace vexa::test;

using vexa::DrawingForm;

namespace {

/// Lets a closed window delete itself.
void turnEventLoop() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

QPixmap *plainPicture(Qt::GlobalColor colour) {
    auto *picture = new QPixmap(1920, 1080);
    picture->fill(colour);
    return picture;
}

} // namespace

class DrawingFormLifeTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        ZrToolXmlClass::PenColor0 = 2;
        ZrToolXmlClass::PenThickness = 3;
    }

    void exitButtonReportsOnceThenTheWindowIsGone_data() {
        QTest::addColumn<bool>("face");
        QTest::addColumn<int>("code");
        QTest::newRow("annotation") << faces::annotation << 1;
        QTest::newRow("blackboard") << faces::blackboard << 0;
    }
    void exitButtonReportsOnceThenTheWindowIsGone() {
        QFETCH(bool, face);
        QFETCH(int, code);
        QPointer<DrawingForm> form = faces::make(face);
        const QPointer<promptwindow2> prompt = form->prompt();
        QSignalSpy spy(form, SIGNAL(signalPizhukWindow(int)));
        bool visibleWhenReported = false;
        faces::show(*form);
        faces::whenItReports(form, [&] { visibleWhenReported = form->isVisible(); });
        QTest::mouseClick(faces::exitButton(*form), Qt::LeftButton);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toInt(), code);
        QVERIFY(visibleWhenReported);
        QVERIFY(form.isNull() || !form->isVisible());
        turnEventLoop();
        QVERIFY(form.isNull());
        QVERIFY(prompt.isNull());
        QCOMPARE(spy.count(), 1);
    }

    void secondPressBeforeTheWindowIsGoneReportsNothing_data() { faces::both(); }
    void secondPressBeforeTheWindowIsGoneReportsNothing() {
        QFETCH(bool, face);
        QPointer<DrawingForm> form = faces::make(face);
        QSignalSpy spy(form, SIGNAL(signalPizhukWindow(int)));
        faces::show(*form);
        faces::press(*faces::exitButton(*form), {30, 30});
        if (form)
            faces::press(*faces::exitButton(*form), {30, 30});
        turnEventLoop();
        QCOMPARE(spy.count(), 1);
        QVERIFY(form.isNull());
    }

    void itMayBeDeletedByWhoeverItReportsTo_data() { faces::both(); }
    void itMayBeDeletedByWhoeverItReportsTo() {
        QFETCH(bool, face);
        const QPointer<DrawingForm> form = faces::make(face);
        faces::whenItReports(form, [form] { delete form; });
        faces::show(*form);
        faces::press(*faces::exitButton(*form), {30, 30});
        QVERIFY(form.isNull());
    }

    void clickOfTheExitButtonByOtherMeansClosesWithoutAReport_data() { faces::both(); }
    void clickOfTheExitButtonByOtherMeansClosesWithoutAReport() {
        QFETCH(bool, face);
        QPointer<DrawingForm> form = faces::make(face);
        QSignalSpy spy(form, SIGNAL(signalPizhukWindow(int)));
        faces::show(*form);
        faces::exitButton(*form)->click();
        turnEventLoop();
        QVERIFY(form.isNull());
        QCOMPARE(spy.count(), 0);
    }

    void toolSlotsRunTwiceWithoutHarm_data() { faces::both(); }
    void toolSlotsRunTwiceWithoutHarm() {
        QFETCH(bool, face);
        const std::unique_ptr<DrawingForm> form(faces::make(face));
        for (int i = 0; i < 2; ++i)
            QVERIFY(QMetaObject::invokeMethod(form.get(), "on_pushButton_eraser_clicked"));
        QCOMPARE(form->cursor().pixmap().size(), QSize(50, 50));
        for (int i = 0; i < 2; ++i)
            QVERIFY(QMetaObject::invokeMethod(form.get(), "on_pushButton_pen_clicked"));
        QCOMPARE(form->cursor().pixmap().size(), QSize(10, 10));
    }

    void buildingThePenAnewTakesThePenButLeavesTheButtons_data() { faces::both(); }
    void buildingThePenAnewTakesThePenButLeavesTheButtons() {
        QFETCH(bool, face);
        const std::unique_ptr<DrawingForm> form(faces::make(face));
        faces::eraserButton(*form)->click();
        form->setPenInit();
        QVERIFY(faces::eraserButton(*form)->isChecked());
        faces::press(*form, {400, 300});
        QCOMPARE(form->cursor().shape(), Qt::BlankCursor); // a pen draws
    }

    void boardFillsTheWholeWindow() {
        const std::unique_ptr<blackBoardform> board(new blackBoardform);
        board->Setbackground2();
        faces::show(*board);
        QTRY_COMPARE(faces::screen().pixel(5, 5), faces::boardColour);
        QImage shot = faces::screen();
        for (const QWidget *child : board->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
            if (!child->isWindow())
                QPainter(&shot).fillRect(child->geometry(), QColor(faces::boardColour));
        QImage bare(shot.size(), shot.format());
        bare.fill(faces::boardColour);
        QCOMPARE(shot, bare);
    }

    void boardTakesAPictureToo() {
        const std::unique_ptr<blackBoardform> board(new blackBoardform);
        board->Setbackground2();
        faces::show(*board);
        board->Setbackground(plainPicture(Qt::green));
        QTRY_COMPARE(faces::screen().pixel(500, 500), 0xff00ff00);
        board->Setbackground2();
        QTRY_COMPARE(faces::screen().pixel(500, 500), faces::boardColour);
    }

    void newBackgroundTakesThePlaceOfTheOld_data() { faces::both(); }
    void newBackgroundTakesThePlaceOfTheOld() {
        QFETCH(bool, face);
        const std::unique_ptr<DrawingForm> form(faces::make(face));
        form->Setbackground(plainPicture(Qt::green));
        faces::show(*form);
        QTRY_COMPARE(faces::screen().pixel(500, 500), 0xff00ff00);
        QPixmap *second = plainPicture(Qt::blue);
        form->Setbackground(second);
        QTRY_COMPARE(faces::screen().pixel(500, 500), 0xff0000ff);
        form->Setbackground(second);
        QTRY_COMPARE(faces::screen().pixel(500, 500), 0xff0000ff);
        form->Setbackground(nullptr);
        form->Setbackground(plainPicture(Qt::yellow));
        QTRY_COMPARE(faces::screen().pixel(500, 500), 0xffffff00);
    }

    void backgroundIsThereWhetherActiveOrNot_data() { faces::both(); }
    void backgroundIsThereWhetherActiveOrNot() {
        QFETCH(bool, face);
        const std::unique_ptr<DrawingForm> form(faces::make(face));
        form->Setbackground(plainPicture(Qt::green));
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(form->palette().brush(group, QPalette::Window).textureImage().pixel(9, 9), 0xff00ff00);
        if (face == faces::annotation)
            return;
        static_cast<blackBoardform *>(form.get())->Setbackground2();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(form->palette().brush(group, QPalette::Window), QBrush(QColor(24, 24, 39)));
    }

    void bothWindowsOpenTogetherCloseInEitherOrder_data() { faces::both(); }
    void bothWindowsOpenTogetherCloseInEitherOrder() {
        QFETCH(bool, face);
        QPointer<DrawingForm> annotation = faces::make(faces::annotation);
        QPointer<DrawingForm> board = faces::make(faces::blackboard);
        annotation->Setbackground(plainPicture(Qt::green));
        static_cast<blackBoardform *>(board.data())->Setbackground2();
        faces::show(*annotation);
        faces::show(*board);
        faces::press(*board, {100, 100});
        faces::move(*board, {200, 200});
        (face ? annotation : board)->close(); // in the midst of a stroke
        turnEventLoop();
        QPointer<DrawingForm> left = face ? board : annotation;
        faces::stroke(*left, faces::line({300, 300}, {600, 300}, 30));
        QTRY_COMPARE(faces::screen().pixel(450, 300), 0xffff0000);
        left->close();
        turnEventLoop();
        QVERIFY(annotation.isNull() && board.isNull());
    }

    void mouseSamplesAreKeptOnlyWhileAWindowNeedsThem_data() {
        QTest::addColumn<bool>("mergedBefore");
        QTest::newRow("not merged before") << false;
        QTest::newRow("merged before") << true; // the last, for the tests that follow
    }
    void mouseSamplesAreKeptOnlyWhileAWindowNeedsThem() {
        QFETCH(bool, mergedBefore);
        QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, mergedBefore);
        {
            const std::unique_ptr<DrawingForm> first(faces::make(faces::annotation));
            { const std::unique_ptr<DrawingForm> second(faces::make(faces::blackboard)); }
            QVERIFY(!QCoreApplication::testAttribute(Qt::AA_CompressHighFrequencyEvents));
        }
        QCOMPARE(QCoreApplication::testAttribute(Qt::AA_CompressHighFrequencyEvents), mergedBefore);
    }

    void hundredsOfOpeningsLeaveMemoryFlat_data() { faces::both(); }
    void hundredsOfOpeningsLeaveMemoryFlat() {
        QFETCH(bool, face);
        const double grown = growth(30, 200, [face] {
            DrawingForm *form = faces::make(face);
            form->Setbackground(plainPicture(Qt::green));
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
};

VEXA_WIDGET_TEST_MAIN(DrawingFormLifeTest)
#include "DrawingFormLifeTest.moc"
