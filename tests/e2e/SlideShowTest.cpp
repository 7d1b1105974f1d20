// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

using namespace vexa::test;

namespace {

constexpr int space = 65; // X key code

/// A presentation program that runs a show, and which slides it has shown.
class Show {
public:
    Show() {
        m_process.start(QStringLiteral(SLIDE_SHOW), QStringList());
        m_process.waitForStarted(-1);
    }
    ~Show() {
        m_process.kill();
        m_process.waitForFinished(-1);
    }

    /// Waits for the next ones. Fewer, when they do not come.
    QVector<int> takeSlides(int count) {
        QVector<int> slides;
        QElapsedTimer waited;
        waited.start();
        while (slides.size() < count && waited.elapsed() < patience)
            if (m_process.canReadLine())
                slides.append(m_process.readLine().mid(int(qstrlen("slide "))).toInt());
            else
                m_process.waitForReadyRead(100);
        return slides;
    }

private:
    QProcess m_process;
};

} // namespace

/// The pen's tools over a slide show that is as strict about keys and clicks as such programs get.
class SlideShowTest : public QObject {
    Q_OBJECT

private slots:
    void closingAToolKeepsTheSlide() {
        Show show;
        QCOMPARE(show.takeSlides(1), QVector<int>{1});
        e2e::Program program({{"Key4C", 1}, {"Key4P", 2}});
        QVERIFY(e2e::startAndSettle(program));
        moveMouse({700, 400});

        typeChord(PenKey::D);
        QCOMPARE(show.takeSlides(1), QVector<int>{1}); // the show starts
        typeKey(space);
        QCOMPARE(show.takeSlides(1), QVector<int>{2});

        const auto tool = [&program] {
            return e2e::visibleWindowOfSize(program.pid(), QSize(1920, 1080)).id;
        };
        for (int round = 0; round < 3; ++round) {
            typeChord(PenKey::G);
            QTRY_VERIFY_WITH_TIMEOUT(tool(), patience);
            typeChord(PenKey::S);
            QTRY_VERIFY_WITH_TIMEOUT(!tool(), patience);
            // The click that gives the show its focus back turns a page, and page up turns it back.
            QCOMPARE(show.takeSlides(2), (QVector<int>{3, 2}));
            QCOMPARE(mousePosition(), QPoint(700, 400));
        }
    }
};

VEXA_WIDGET_TEST_MAIN(SlideShowTest)
#include "SlideShowTest.moc"
