// SPDX-License-Identifier: MIT
#include "SessionModel.h"

#include "ToolPanel.h"
#include "settings/ZrToolXmlClass.h"
#include "support/GivenClock.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QAbstractEventDispatcher>
#include <QRandomGenerator>
#include <QScreen>

#include <random>

using namespace vexa::test;

VEXA_GIVEN_CLOCK

namespace {

constexpr int granularity = 20; ///< milliseconds of the given clock between two looks at the events
constexpr int stepsOfARun = 5000;

int kindOf(const QObject *tool) {
    if (qobject_cast<const Spolight2 *>(tool))
        return SessionModel::Spotlight;
    return qobject_cast<const Magnifie *>(tool) ? SessionModel::Magnifier : SessionModel::Laser;
}

} // namespace

/// Sessions made up at random, against a small model of what a session is: after every step the two agree on
/// what is open and on what was posted, and no timer fires that the model does not know of.
class SessionModelTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { qApp->installEventFilter(this); }
    void cleanup() {
        m_panel.reset();
        look();
    }
    void cleanupTestCase() { userfile::clear(); }

    void theyAgreeAfterEveryStep_data() {
        QTest::addColumn<quint32>("seed");
        for (const quint32 seed : {1U, 2U, 3U, 4U, 5U})
            QTest::addRow("seed %u", seed) << seed;
        for (int i = 0; i < 5; ++i) {
            const quint32 seed = QRandomGenerator::global()->generate();
            QTest::addRow("seed %u", seed) << seed; // one that fails belongs into the list above
        }
    }

    void theyAgreeAfterEveryStep() {
        QFETCH(quint32, seed);
        userfile::clear();
        userfile::forgetSettings();
        QDir().mkdir(userfile::path()); // then a choice is kept in memory and waits for no disk
        m_random.seed(seed);
        m_slideShowTimer = m_playPauseTimer = 0;
        m_panel = std::make_unique<ToolPanel>();
        m_model = SessionModel();
        advance(2000); // past the withdrawal of the start
        m_model = SessionModel(QGuiApplication::primaryScreen()->size());
        choose(ViewMessage::Key4C, Number(KeyAction::None)); // screenshots are left to the tests of that
        for (int step = 0; step < stepsOfARun; ++step) {
            const QString what = takeStep();
            look();
            const QString found = observed();
            const QString expected = m_model.told();
            if (found != expected || !m_model.complaint.isEmpty())
                QFAIL(qPrintable(QStringLiteral("step %1, %2: %3\n%4\ninstead of\n%5")
                                     .arg(step)
                                     .arg(what, m_model.complaint, found, expected)));
        }
        cleanup();
        QCOMPARE(ToolPanel::objects(), 0);
    }

protected:
    /// Tells the model of each timer just before it fires.
    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() != QEvent::Timer || !m_panel)
            return false;
        const int id = static_cast<QTimerEvent *>(event)->timerId();
        for (const auto &timer : QAbstractEventDispatcher::instance()->registeredTimers(watched)) {
            if (timer.timerId != id)
                continue;
            if (watched == &m_panel->window && timer.interval == 1000)
                fire(SessionModel::Refocus);
            if (watched == &m_panel->window && timer.interval == 200)
                fire(id == m_slideShowTimer ? SessionModel::SlideShow : SessionModel::PlayPause);
            if (m_numbers.contains(watched) && timer.interval == 150)
                m_model.guard(m_numbers.value(watched));
        }
        return false;
    }

private:
    int below(int count) { return int(m_random() % unsigned(count)); }

    /// Does one thing to both, and says what.
    QString takeStep() {
        static constexpr int letters[] = {kVK_ANSI_A, kVK_ANSI_S, kVK_ANSI_D, kVK_ANSI_G, kVK_ANSI_Y,
                                          kVK_ANSI_I, kVK_ANSI_J, kVK_ANSI_M, kVK_ANSI_F, kVK_ANSI_K};
        switch (below(8)) {
        case 0: { // any key alone, a modifier more often than others
            static constexpr int modifiers[] = {kVK_Control,     kVK_Shift,        kVK_Option, kVK_RightShift,
                                                kVK_RightOption, kVK_RightControl, kVK_Command};
            const int key = below(2) == 0 ? modifiers[below(7)] : letters[below(10)];
            return receive(key, below(2));
        }
        case 1:
        case 2:
        case 3: { // a whole chord, now and then without its end
            QString all;
            for (const int key : {kVK_Control, kVK_Shift, kVK_Option})
                all += receive(key, 1);
            const int letter = letters[below(8)];
            all += receive(letter, 1);
            if (below(8) != 0)
                all += receive(letter, 0);
            if (below(8) != 0)
                for (const int key : {kVK_Option, kVK_Shift, kVK_Control})
                    all += receive(key, 0);
            return all;
        }
        case 4: {
            const QSize screen = QGuiApplication::primaryScreen()->size();
            const int x = below(screen.width() + 20) - 10;
            const int y = below(screen.height() + 20) - 10;
            m_panel->window.RecvGlobaleMouseMessage(kCGEventMouseMoved, x, y);
            m_model.move(x, y);
            return QStringLiteral("move to %1,%2").arg(x).arg(y);
        }
        case 5: { // what a key is to do
            static constexpr Number actions[] = {KeyAction::None,
                                                 KeyAction::SlideShow,
                                                 KeyAction::PlayPause,
                                                 KeyAction::Blackboard,
                                                 KeyAction::SlideShow,
                                                 KeyAction::Blackboard,
                                                 77};
            const auto key = ViewMessage(int(ViewMessage::Key2P) + below(4));
            return choose(key, key == ViewMessage::Key4P ? below(4) : int(actions[below(7)]));
        }
        case 6:
            return dismiss();
        default: {
            const int time = below(3) == 0 ? below(1500) : below(200);
            advance(time);
            return QStringLiteral("%1 ms later").arg(time);
        }
        }
    }

    QString choose(ViewMessage message, int value) {
        vexa::test::receive(m_panel->window, message, value);
        m_model.choose(message, value);
        return QStringLiteral("message %1 with %2").arg(int(message)).arg(value);
    }

    QString receive(int key, int state) {
        m_panel->window.RecvKeboardMessage(key, state);
        const auto started = m_model.receive(key, state);
        if (started)
            noteTimer(*started);
        for (QWidget *tool : ToolPanel::heldTools())
            if (!m_numbers.contains(tool)) {
                m_numbers[tool] = m_model.newest();
                connect(tool, &QObject::destroyed, this, [this](QObject *gone) { m_numbers.remove(gone); });
            }
        return QStringLiteral("key %1 state %2, ").arg(key).arg(state);
    }

    /// Two timers take the same time: which is which can be seen only when one of them was just started.
    void noteTimer(SessionModel::Timer started) {
        int &own = started == SessionModel::SlideShow ? m_slideShowTimer : m_playPauseTimer;
        const int other = started == SessionModel::SlideShow ? m_playPauseTimer : m_slideShowTimer;
        for (const auto &timer : QAbstractEventDispatcher::instance()->registeredTimers(&m_panel->window))
            if (timer.interval == 200 && timer.timerId != other)
                own = timer.timerId;
    }

    void fire(SessionModel::Timer timer) {
        if (timer == SessionModel::SlideShow)
            m_slideShowTimer = 0;
        if (timer == SessionModel::PlayPause)
            m_playPauseTimer = 0;
        m_model.fire(timer, QCursor::pos() - QGuiApplication::primaryScreen()->geometry().topLeft());
    }

    /// The mouse ends what is open, by a click or by the exit button.
    QString dismiss() {
        const auto tools = ToolPanel::heldTools();
        if (!tools.isEmpty() && below(2) == 0) {
            QWidget *const tool = tools[below(tools.size())];
            m_model.click(m_numbers.value(tool));
            ToolPanel::click(tool);
            return QStringLiteral("click");
        }
        if (const auto forms = ToolPanel::open<PizhuForm>(); !forms.isEmpty()) {
            m_model.exitAnnotation();
            ToolPanel::pressExit(forms.constFirst());
            return QStringLiteral("exit of the annotation");
        }
        if (const auto forms = ToolPanel::open<blackBoardform>(); !forms.isEmpty()) {
            m_model.exitBlackboard();
            ToolPanel::pressExit(forms.constFirst());
            return QStringLiteral("exit of the blackboard");
        }
        return QStringLiteral("nothing");
    }

    void advance(int milliseconds) {
        for (int passed = 0; passed < milliseconds; passed += granularity) {
            GivenClock::advance(granularity);
            m_model.advance(granularity);
            look();
        }
    }

    static void look() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// The same words as the model's.
    QString observed() {
        QMap<int, int> kinds; // by number
        for (const QWidget *tool : ToolPanel::heldTools())
            kinds[m_numbers.value(const_cast<QWidget *>(tool))] = kindOf(tool);
        QString all;
        for (const int kind : qAsConst(kinds))
            all += QStringLiteral("tool %1, ").arg(kind);
        all += QStringLiteral("annotation %1, blackboard %2, show %3, posts: %4")
                   .arg(ToolPanel::open<PizhuForm>().size())
                   .arg(ToolPanel::open<blackBoardform>().size())
                   .arg(CKeyboardListenerMac::EnterPPT)
                   .arg(told(m_panel->session).join(QStringLiteral("; ")));
        m_panel->session.clearPosts();
        return all;
    }

    std::mt19937 m_random;
    std::unique_ptr<ToolPanel> m_panel;
    SessionModel m_model;
    QHash<QObject *, int> m_numbers; ///< of the held tools, as the model counts them
    int m_slideShowTimer = 0;
    int m_playPauseTimer = 0;
};

VEXA_WIDGET_TEST_MAIN(SessionModelTest)
#include "SessionModelTest.moc"
