// SPDX-License-Identifier: MIT
#include "annotation/DrawingFaces.h"
#include "support/TestMain.h"

#include <QTranslator>

/// The titles of the two drawing windows in the three languages of the program.
class DrawingFormTitleTest : public QObject {
    Q_OBJECT

private slots:
    void titleFitsItsBoxInEveryLanguage_data() {
        QTest::addColumn<QString>("catalogue");
        QTest::addColumn<bool>("face");
        QTest::addColumn<QString>("text");
        QTest::newRow("simplified, annotation") << "lang_Cn" << faces::annotation << "批注模式";
        QTest::newRow("traditional, annotation") << "lang_Tw" << faces::annotation << "批註模式";
        QTest::newRow("English, annotation") << "lang_En" << faces::annotation << "Annotation Mode";
        QTest::newRow("simplified, blackboard") << "lang_Cn" << faces::blackboard << "黑板";
        QTest::newRow("traditional, blackboard") << "lang_Tw" << faces::blackboard << "黑板";
        QTest::newRow("English, blackboard") << "lang_En" << faces::blackboard << "Black Board";
    }
    void titleFitsItsBoxInEveryLanguage() {
        QFETCH(QString, catalogue);
        QFETCH(bool, face);
        QFETCH(QString, text);
        QTranslator translator;
        QVERIFY(translator.load(QString(":/language_qm/%1.qm").arg(catalogue)));
        QVERIFY(QCoreApplication::installTranslator(&translator));
        const std::unique_ptr<vexa::DrawingForm> form(faces::make(face));
        const QLabel &title = *faces::title(*form);
        QCOMPARE(title.text(), text);

        // Cut letters would touch the edge of the box.
        const QRect letters = lettersOf(title);
        QVERIFY(!letters.isEmpty());
        QVERIFY(QRect(4, 1, 280 - 8, 40 - 2).contains(letters));
        const int left = letters.left();
        const int right = 279 - letters.right();
        QVERIFY2(qAbs(left - right) <= 4, qPrintable(QString("%1 and %2").arg(left).arg(right)));
    }

private:
    /// Where the letters are, drawn as in the label but without its picture around them.
    static QRect lettersOf(const QLabel &title) {
        QLabel bare;
        bare.setFont(title.font());
        bare.setText(title.text());
        bare.setAlignment(title.alignment());
        bare.setFixedSize(title.size());
        QPalette colours;
        colours.setColor(QPalette::Window, Qt::black);
        colours.setColor(QPalette::WindowText, Qt::white);
        bare.setPalette(colours);
        const QImage shot = bare.grab().toImage();
        QRect letters;
        for (int y = 0; y < shot.height(); ++y)
            for (int x = 0; x < shot.width(); ++x)
                if (qGray(shot.pixel(x, y)) > 100)
                    letters |= QRect(x, y, 1, 1);
        return letters;
    }
};

VEXA_WIDGET_TEST_MAIN(DrawingFormTitleTest)
#include "DrawingFormTitleTest.moc"
