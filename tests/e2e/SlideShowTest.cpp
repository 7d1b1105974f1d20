// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "platform/SessionInput.h"
#include "platform/quartz/CoreGraphics.h"
#include "platform/quartz/InputBackend.h"
#include "platform/quartz/VirtualKeys.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <csignal>

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

    /// It reads nothing meanwhile, as on a machine that has no time for it.
    void standStill() const { kill(pid_t(m_process.processId()), SIGSTOP); }
    void goOn() const { kill(pid_t(m_process.processId()), SIGCONT); }

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
    void init() {
        m_show = std::make_unique<Show>();
        QCOMPARE(m_show->takeSlides(1), QVector<int>{1});
        m_program = std::make_unique<e2e::Program>(e2e::Program::Settings{{"Key4C", 1}, {"Key4P", 2}});
        QVERIFY(e2e::startAndSettle(*m_program));
        moveMouse({700, 400});

        typeChord(PenKey::D);
        QCOMPARE(m_show->takeSlides(1), QVector<int>{1}); // the show starts
        typeKey(space);
        QCOMPARE(m_show->takeSlides(1), QVector<int>{2});
    }

    void cleanup() {
        m_program.reset();
        m_show.reset();
    }

    // The click that gives the show its focus back turns a page, and page up turns it back.
    void closingAToolKeepsTheSlide() {
        for (int round = 0; round < 3; ++round) {
            openAndCloseTheTool();
            QCOMPARE(m_show->takeSlides(2), (QVector<int>{3, 2}));
            QCOMPARE(mousePosition(), QPoint(700, 400));
        }
    }

    void closingAToolKeepsTheSlideOfAProgramThatStandsStill() {
        vexa::platform::useSessionInput({{0, 0}, {1920, 1080}, 1});
        const auto session = vexa::inputBackend().open();
        QVERIFY(session);
        const auto hears = [&session](std::uint32_t type, int key) {
            for (vexa::InputEvent event; session->next(event);)
                if (event.type == type && event.keyCode == key)
                    return true;
            return false;
        };
        m_show->standStill();
        openAndCloseTheTool();
        QVERIFY(QTest::qWaitFor([&] { return hears(kCGEventLeftMouseUp, 0); }, patience));
        QVERIFY(!QTest::qWaitFor([&] { return hears(kCGEventKeyDown, kVK_PageUp); }, 500));
        m_show->goOn();
        QCOMPARE(m_show->takeSlides(2), (QVector<int>{3, 2}));
    }

private:
    void openAndCloseTheTool() const {
        const auto tool = [this] { return e2e::visibleWindowOfSize(m_program->pid(), QSize(1920, 1080)).id; };
        typeChord(PenKey::G);
        QTRY_VERIFY_WITH_TIMEOUT(tool(), patience);
        typeChord(PenKey::S);
        QTRY_VERIFY_WITH_TIMEOUT(!tool(), patience);
    }

    std::unique_ptr<Show> m_show;
    std::unique_ptr<e2e::Program> m_program;
};

VEXA_WIDGET_TEST_MAIN(SlideShowTest)
#include "SlideShowTest.moc"
