// SPDX-License-Identifier: MIT
#include "annotation/DrawingFaces.h"
#include "overlays/promptwindow2.h"
#include "support/Pattern.h"
#include "support/TestMain.h"

using namespace vexa::test;

using vexa::DrawingForm;

namespace {

/// Counts how often a window is given a cursor.
class CursorRecorder : public QObject {
public:
    explicit CursorRecorder(QObject &window) { window.installEventFilter(this); }
    int changes = 0;

    bool eventFilter(QObject *, QEvent *event) override {
        changes += event->type() == QEvent::CursorChange;
        return false;
    }
};

} // namespace

/// The title, the buttons and the cursors of the two drawing windows.
class DrawingFormControlsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { faces::both(); }
    void init() {
        ZrToolXmlClass::PenColor0 = 2; // red
        ZrToolXmlClass::PenThickness = 3;
    }

    void cleanup() {
        delete m_form;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void titleAndButtonsStandAtTheirPlaces() {
        open();
        QCOMPARE(faces::title(*m_form)->geometry(), QRect(820, 0, 280, 40));
        QCOMPARE(faces::penButton(*m_form)->geometry(), QRect(850, 980, 60, 60));
        QCOMPARE(faces::eraserButton(*m_form)->geometry(), QRect(930, 980, 60, 60));
        QCOMPARE(faces::exitButton(*m_form)->geometry(), QRect(1010, 980, 60, 60));
    }

    /// Windows of their own would keep the scale of the screen they were made on when another becomes the
    /// primary one; only a server with several screens shows it.
    void controlsBelongToTheWindowAndHaveNoneOfTheirOwn() {
        open();
        m_form->prompt()->showWithTimer();
        QVERIFY(m_form->prompt()->internalWinId() != 0);
        const auto controls = m_form->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(controls.size() >= 4);
        for (const QWidget *control : controls)
            QVERIFY(control->isWindow() || control->internalWinId() == 0);
    }

    void titleIsWhiteOnItsPicture() {
        QFETCH_GLOBAL(bool, face);
        open();
        const QLabel &title = *faces::title(*m_form);
        QCOMPARE(title.text(), QString(face == faces::blackboard ? "黑板" : "批注模式"));
        QCOMPARE(title.font().family(), QString("Arial"));
        QCOMPARE(title.font().pointSize(), 25);
        QVERIFY(title.font().bold());
        QCOMPARE(title.alignment(), Qt::Alignment(Qt::AlignCenter));
        QVERIFY(title.autoFillBackground());
        QCOMPARE(title.palette().color(QPalette::WindowText), QColor(Qt::white));
        const QPixmap picture(":/annotatebg@1080p.png");
        QVERIFY(!picture.isNull());
        QCOMPARE(title.palette().brush(QPalette::Window).texture().toImage(), picture.toImage());
        // The whole title fits into its box.
        QVERIFY(title.fontMetrics().horizontalAdvance(title.text()) <= title.width());
        QVERIFY(title.fontMetrics().height() <= title.height());
    }

    void buttonsAreTwoToolsAndAnExit() {
        open();
        const QPushButton &pen = *faces::penButton(*m_form);
        const QPushButton &eraser = *faces::eraserButton(*m_form);
        const QPushButton &exit = *faces::exitButton(*m_form);
        for (const QPushButton *button : {&pen, &eraser, &exit}) {
            QVERIFY(button->isCheckable());
            QCOMPARE(button->text(), QString());
        }
        QVERIFY(pen.autoExclusive() && eraser.autoExclusive() && !exit.autoExclusive());
        QVERIFY(pen.isChecked() && !eraser.isChecked() && !exit.isChecked());
        const QString look("QPushButton{border:0px;background:transparent;border-image: url(:/icon-%1.png)}");
        const QString chosen("QPushButton:checked{border:0px;background:transparent;border-image: "
                             "url(:/icon-%1-selected.png);}");
        QCOMPARE(exit.styleSheet(), look.arg("exit"));
        QCOMPARE(pen.styleSheet(), look.arg("pen") + chosen.arg("pen"));
        QCOMPARE(eraser.styleSheet(), look.arg("eraser") + chosen.arg("eraser"));
    }

    void buttonsShowTheirPictures() {
        open();
        // Each button draws the artwork it names over the background, scaled to its 60 points.
        const QImage shot = m_form->grab().toImage();
        for (QPushButton *button : m_form->findChildren<QPushButton *>()) {
            QSet<QRgb> colours;
            for (int y = 0; y < 60; ++y)
                for (int x = 0; x < 60; ++x)
                    colours.insert(shot.pixel(button->pos() + QPoint(x, y)));
            QVERIFY2(colours.size() > 10, qPrintable(button->objectName()));
        }
    }

    void cursorIsTheToolInHand() {
        open();
        const auto penShown = [this] {
            const QPixmap picture = m_form->cursor().pixmap();
            return picture.size() == QSize(10, 10) && picture.toImage().pixel(5, 5) == 0xffff0000 &&
                   qAlpha(picture.toImage().pixel(0, 0)) == 0 && m_form->cursor().hotSpot() == QPoint(5, 5);
        };
        QVERIFY(penShown());
        faces::press(*m_form, {400, 300});
        QCOMPARE(m_form->cursor().shape(), Qt::BlankCursor);
        faces::release(*m_form, {400, 300});
        QVERIFY(penShown());
        QTest::mouseClick(faces::eraserButton(*m_form), Qt::LeftButton);
        const QImage eraser = m_form->cursor().pixmap().toImage();
        QCOMPARE(eraser.size(), QSize(50, 50));
        QCOMPARE(m_form->cursor().hotSpot(), QPoint(25, 25));
        QCOMPARE(eraser.pixel(25, 25), 0xffffffff);
        QCOMPARE(eraser.pixel(25, 1), 0xff000000); // the rim: two pixels around the circle of 48
        QCOMPARE(eraser.pixel(25, 48), 0xff000000);
        QCOMPARE(qAlpha(eraser.pixel(0, 0)), 0);
        QTest::mouseClick(m_form, Qt::LeftButton, {}, {400, 300});
        QCOMPARE(m_form->cursor().pixmap().size(), QSize(50, 50));
        QTest::mouseClick(faces::penButton(*m_form), Qt::LeftButton);
        QVERIFY(penShown());
    }

    void penCursorOfAnOddWidthIsADiscOfAnEvenOne() {
        ZrToolXmlClass::PenThickness = 1; // 5 pixels
        open();
        const QImage picture = m_form->cursor().pixmap().toImage();
        QCOMPARE(picture.size(), QSize(5, 5));
        QCOMPARE(picture.pixel(2, 2), 0xffff0000);
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(qAlpha(picture.pixel(i, 4)), 0);
            QCOMPARE(qAlpha(picture.pixel(4, i)), 0);
        }
        QVERIFY(qAlpha(picture.pixel(1, 3)) > 150);
    }

    void everyClickRunsItsSlotTwice() {
        open();
        CursorRecorder recorder(*m_form);
        QVERIFY(QMetaObject::invokeMethod(m_form, "on_pushButton_pen_clicked"));
        const int changesOfOneRun = recorder.changes;
        QVERIFY(changesOfOneRun > 0);
        const auto runsOfAClickOn = [&](QPushButton *button) {
            recorder.changes = 0;
            QTest::mouseClick(button, Qt::LeftButton);
            return recorder.changes / changesOfOneRun;
        };
        QCOMPARE(runsOfAClickOn(faces::eraserButton(*m_form)), 2);
        QVERIFY(faces::eraserButton(*m_form)->isChecked() && !faces::penButton(*m_form)->isChecked());
        QCOMPARE(m_form->cursor().pixmap().size(), QSize(50, 50));
        QCOMPARE(runsOfAClickOn(faces::penButton(*m_form)), 2);
        QVERIFY(faces::penButton(*m_form)->isChecked() && !faces::eraserButton(*m_form)->isChecked());
        QCOMPARE(m_form->cursor().pixmap().size(), QSize(10, 10));
    }

private:
    void open() {
        QFETCH_GLOBAL(bool, face);
        m_form = faces::make(face);
        if (face == faces::blackboard)
            static_cast<blackBoardform *>(m_form.data())->Setbackground2();
        else
            m_form->Setbackground(new QPixmap(QPixmap::fromImage(pattern({1920, 1080}))));
        faces::show(*m_form);
    }

    QPointer<DrawingForm> m_form;
};

VEXA_WIDGET_TEST_MAIN(DrawingFormControlsTest)
#include "DrawingFormControlsTest.moc"
