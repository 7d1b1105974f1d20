// SPDX-License-Identifier: MIT
#include "input/CKeyboardHandler.h"
#include "input/CKeyboardListenerMac.h"
#include "platform/SessionInput.h"
#include "platform/quartz/InputBackend.h"
#include "platform/quartz/VirtualKeys.h"
#include "support/Hand.h"
#include "support/XKeys.h"

#include <QSignalSpy>
#include <QTemporaryFile>
#include <QTest>

#include <fcntl.h>
#include <unistd.h>

using namespace vexa::test;

namespace {

using Messages = QList<QVariantList>;

/// Takes what the process writes to its standard output and error, as long as it lives.
class TakenOutput {
public:
    TakenOutput() {
        m_file.open();
        fflush(nullptr);
        for (int &kept : m_kept) {
            const int stream = int(&kept - m_kept) + STDOUT_FILENO;
            kept = dup(stream);
            dup2(m_file.handle(), stream);
        }
    }
    ~TakenOutput() { giveBack(); }

    QByteArray giveBack() {
        fflush(nullptr);
        for (int &kept : m_kept) {
            if (kept < 0)
                continue;
            dup2(kept, int(&kept - m_kept) + STDOUT_FILENO);
            close(kept);
            kept = -1;
        }
        m_file.seek(0);
        return m_file.readAll();
    }

private:
    Q_DISABLE_COPY(TakenOutput)

    QTemporaryFile m_file;
    int m_kept[2] = {-1, -1};
};

QtMessageHandler usualHandler;
int loggedMessages = 0;

} // namespace

/// The handler in a real X session: keys in, messages out, posts back in.
class SessionHandlerTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { vexa::platform::useSessionInput({{0, 0}, {1920, 1080}, 1}); }
    void init() { CKeyboardListenerMac::EnterPPT = false; }
    void cleanupTestCase() { vexa::setInputBackend(nullptr); }

    void aPenChordArrivesAsMessages() {
        CKeyboardHandler handler;
        QSignalSpy keys(&handler, &CKeyboardHandler::MysignalKeyboardMessage);
        m_hand.type({control, shift, option, letterG});
        QTRY_COMPARE(keys.size(), 8);
        const Messages expected{{kVK_Control, 1}, {kVK_Shift, 1},  {kVK_Option, 1}, {kVK_ANSI_G, 1},
                                {kVK_ANSI_G, 0},  {kVK_Option, 0}, {kVK_Shift, 0},  {kVK_Control, 0}};
        QCOMPARE(Messages(keys), expected);
    }

    void thePointerArrivesAsMessages() {
        CKeyboardHandler handler;
        QSignalSpy moves(&handler, &CKeyboardHandler::MysignalMouseMessage);
        m_hand.moveTo(321, 123);
        QTRY_COMPARE(moves.size(), 1);
        QCOMPARE(moves.first(), (QVariantList{5, 321, 123}));
    }

    void theReleaseChordIsRecognisedAfterAPostInBetween() {
        CKeyboardHandler handler;
        QSignalSpy keys(&handler, &CKeyboardHandler::MysignalKeyboardMessage);
        for (const int key : penModifiers)
            m_hand.press(key);
        CKeyboardListenerMac::SetPageUp();
        m_hand.type({letterS});
        for (const int key : {option, shift, control})
            m_hand.release(key);
        QTRY_COMPARE(keys.size(), 10);
        const Messages expected{{kVK_Control, 1}, {kVK_Shift, 1},  {kVK_Option, 1}, {kVK_PageUp, 1},
                                {kVK_PageUp, 0},  {kVK_ANSI_S, 1}, {kVK_ANSI_S, 0}, {kVK_Option, 0},
                                {kVK_Shift, 0},   {kVK_Control, 0}};
        QCOMPARE(Messages(keys), expected);
    }

    void theSlideShowIsStartedAndEnded() {
        m_hand.openFocusedWindow();
        CKeyboardListenerMac::SetPPTFullScreen();
        QCOMPARE(pressesGiven(), QVector<int>{f5});
        CKeyboardListenerMac::SetPPTFullScreen();
        QCOMPARE(pressesGiven(), QVector<int>{escape});
        QVERIFY(!CKeyboardListenerMac::EnterPPT);
    }

    void playPauseAndPageUpArriveOnce() {
        m_hand.openFocusedWindow();
        CKeyboardListenerMac::SetPlayOrPause();
        QCOMPARE(pressesGiven(), QVector<int>{space});
        CKeyboardListenerMac::SetPageUp();
        QCOMPARE(pressesGiven(), QVector<int>{pageUp});
    }

    void aClickLeavesThePointerWhereItClicked() {
        m_hand.moveTo(1, 1);
        CKeyboardListenerMac::SetMouseClick(640, 480);
        QCOMPARE(m_hand.pointer().x, 640);
        QCOMPARE(m_hand.pointer().y, 480);
    }

    void whatIsTypedIsNeverWrittenAnywhere() {
        const QDir home = QDir::home();
        const auto files = [&home] {
            return home.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        };
        const QStringList before = files();
        loggedMessages = 0;
        usualHandler = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &) { ++loggedMessages; });
        int heard = 0;
        QByteArray written;
        {
            TakenOutput output;
            {
                CKeyboardHandler handler;
                connect(&handler, &CKeyboardHandler::MysignalKeyboardMessage, [&heard] { ++heard; });
                for (int key = 24; key <= 33; ++key) // a row of letters, as a password would be
                    m_hand.type({key});
                m_hand.type({shift, letterG});
                while (heard < 24)
                    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            }
            written = output.giveBack();
        }
        qInstallMessageHandler(usualHandler);
        QCOMPARE(heard, 24);
        QCOMPARE(written, QByteArray());
        QCOMPARE(loggedMessages, 0);
        QCOMPARE(files(), before);
    }

    void manyStartsAndStopsLeaveNothingBehind() {
        const auto descriptors = [] {
            return QDir(QStringLiteral("/proc/self/fd"))
                .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
                .size();
        };
        { CKeyboardHandler first; }
        const int before = descriptors();
        for (int i = 0; i < 200; ++i)
            CKeyboardHandler handler;
        QCOMPARE(descriptors(), before);

        CKeyboardHandler handler;
        QSignalSpy keys(&handler, &CKeyboardHandler::MysignalKeyboardMessage);
        m_hand.type({letterG});
        QTRY_COMPARE(keys.size(), 2);
    }

private:
    QVector<int> pressesGiven() {
        QVector<int> presses;
        for (const Hand::Given &given : m_hand.takeGivenKeys())
            if (given.down)
                presses.append(given.xKeyCode);
        return presses;
    }

    Hand m_hand;
};

QTEST_GUILESS_MAIN(SessionHandlerTest)
#include "SessionHandlerTest.moc"
