// SPDX-License-Identifier: MIT
#include "annotation/DrawingFaces.h"
#include "overlays/promptwindow2.h"
#include "support/Pattern.h"
#include "support/Table.h"
#include "support/TestMain.h"

#include <QTranslator>

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

bool promptSeen(const DrawingForm &form) {
    return form.prompt()->isVisible() && form.prompt()->windowOpacity() > 0;
}

QString promptSwatch(const DrawingForm &form) {
    return form.prompt()->findChild<QLabel *>("label_2")->styleSheet();
}

/// Where the letters are, drawn as in the label but without its picture around them.
QRect lettersOf(const QLabel &title) {
    QLabel bare;
    bare.setFont(title.font());
    bare.setText(title.text());
    bare.setAlignment(title.alignment());
    bare.setFixedSize(title.size());
    bare.setStyleSheet("background: black; color: white");
    const QImage shot = bare.grab().toImage();
    QRect letters;
    for (int y = 0; y < shot.height(); ++y)
        for (int x = 0; x < shot.width(); ++x)
            if (qGray(shot.pixel(x, y)) > 100)
                letters |= QRect(x, y, 1, 1);
    return letters;
}

} // namespace

/// The title, the buttons, the pens and the cursors of the two drawing windows.
class DrawingFormControlsTest : public QObject {
    Q_OBJECT

    using Titles = Table<QString, QStringList>; // a catalogue, and what the two are called

private slots:
    void initTestCase_data() { faces::both(); }
    void init() {
        ZrToolXmlClass::PenColor0 = 2; // red
        ZrToolXmlClass::PenColor1 = 4; // "#82FF20"
        ZrToolXmlClass::PenColor2 = 0; // black
        ZrToolXmlClass::PenThickness = 3;
        open();
    }

    void titleAndButtonsStandAtTheirPlaces() {
        QCOMPARE(faces::title(*m_form)->geometry(), QRect(820, 0, 280, 40));
        QCOMPARE(faces::penButton(*m_form)->geometry(), QRect(850, 980, 60, 60));
        QCOMPARE(faces::eraserButton(*m_form)->geometry(), QRect(930, 980, 60, 60));
        QCOMPARE(faces::exitButton(*m_form)->geometry(), QRect(1010, 980, 60, 60));
    }

    /// Windows of their own would keep the scale of the screen they were made on when another becomes the
    /// primary one; only a server with several screens shows it.
    void controlsBelongToTheWindowAndHaveNoneOfTheirOwn() {
        m_form->prompt()->showWithTimer();
        QVERIFY(m_form->prompt()->internalWinId() != 0);
        const auto controls = m_form->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(controls.size() >= 4);
        for (const QWidget *control : controls)
            QVERIFY(control->isWindow() || control->internalWinId() == 0);
    }

    void titleIsWhiteOnItsPicture() {
        const QLabel &title = *faces::title(*m_form);
        QCOMPARE(title.font().family(), QString("Arial"));
        QCOMPARE(title.font().pointSize(), 25);
        QVERIFY(title.font().bold());
        QCOMPARE(title.alignment(), Qt::Alignment(Qt::AlignCenter));
        QVERIFY(title.autoFillBackground());
        QCOMPARE(title.palette().color(QPalette::WindowText), QColor(Qt::white));
        const QPixmap picture(":/annotatebg@1080p.png");
        QVERIFY(!picture.isNull());
        QCOMPARE(title.palette().brush(QPalette::Window).texture().toImage(), picture.toImage());
    }

    void titleFitsItsBoxInEveryLanguage_data() {
        Titles::begin();
        QTest::newRow("none") << "" << QStringList{"批注模式", "黑板"};
        QTest::newRow("simplified") << "lang_Cn" << QStringList{"批注模式", "黑板"};
        QTest::newRow("traditional") << "lang_Tw" << QStringList{"批註模式", "黑板"};
        QTest::newRow("English") << "lang_En" << QStringList{"Annotation Mode", "Black Board"};
    }
    void titleFitsItsBoxInEveryLanguage() {
        const auto [catalogue, texts] = Titles::row();
        QTranslator translator;
        QVERIFY(catalogue.isEmpty() || translator.load(QString(":/language_qm/%1.qm").arg(catalogue)));
        QCoreApplication::installTranslator(&translator);
        open();
        const QLabel &title = *faces::title(*m_form);
        QCOMPARE(title.text(), texts.at(faces::current() == faces::annotation ? 0 : 1));

        // Cut letters would touch the edge of the box.
        const QRect letters = lettersOf(title);
        QVERIFY(!letters.isEmpty());
        QVERIFY(QRect(4, 1, 280 - 8, 40 - 2).contains(letters));
        const int left = letters.left();
        const int right = 279 - letters.right();
        QVERIFY2(qAbs(left - right) <= 4, qPrintable(QString("%1 and %2").arg(left).arg(right)));
    }

    void buttonsAreTwoToolsAndAnExit() {
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
        QTest::mouseClick(m_form.get(), Qt::LeftButton, {}, {400, 300});
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
        CursorRecorder recorder(*m_form);
        QVERIFY(QMetaObject::invokeMethod(m_form.get(), "on_pushButton_pen_clicked"));
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

    void threeColourStepsReturnToTheFirstAndEachShowsThePrompt() {
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
        ZrToolXmlClass::PenColor1 = 7; // "#9C1FFF"
        ZrToolXmlClass::PenThickness = 0;
        m_form->ChangePenColorID();
        QCOMPARE(m_form->cursor().pixmap().size(), QSize(2, 2));
        faces::stroke(*m_form, faces::line({200, 200}, {200, 400}, 50));
        QTRY_COMPARE(faces::screen().pixel(199, 300), 0xff9c1fff);
        const QRgb beside = faces::current() == faces::blackboard ? faces::boardColour : patternAt(197, 300);
        QCOMPARE(faces::screen().pixel(197, 300), beside);
    }

    void colourStepDuringAStrokeChangesNothing() {
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
        QTest::mouseClick(faces::eraserButton(*m_form), Qt::LeftButton);
        m_form->ChangePenColorID();
        QVERIFY(!promptSeen(*m_form));
        QCOMPARE(m_form->cursor().pixmap().size(), QSize(50, 50));
        QTest::mouseClick(faces::penButton(*m_form), Qt::LeftButton);
        faces::stroke(*m_form, faces::line({200, 300}, {400, 300}, 50));
        QTRY_COMPARE(faces::screen().pixel(300, 300), 0xffff0000);
    }

private:
    void open() {
        m_form.reset();
        m_form.reset(faces::open(faces::current(), QPixmap::fromImage(pattern({1920, 1080}))));
    }

    std::unique_ptr<DrawingForm> m_form;
};

VEXA_WIDGET_TEST_MAIN(DrawingFormControlsTest)
#include "DrawingFormControlsTest.moc"
