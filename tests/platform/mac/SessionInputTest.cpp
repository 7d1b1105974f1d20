// SPDX-License-Identifier: MIT
#include "platform/SessionInput.h"

#include "fakes/mac/AppKit.h"
#include "fakes/mac/Consents.h"

#include <QTest>

#include <optional>

using vexa::platform::sessionInputObstacle;
using vexa::platform::useSessionInput;

namespace {

int warnings = 0;

void countWarnings(QtMsgType type, const QMessageLogContext &, const QString &) {
    warnings += type == QtWarningMsg;
}

} // namespace

/// Input Monitoring is asked for before the tap: a tap without it may be handed out, and be deaf to keys.
class SessionInputTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_kit.emplace();
        m_consents.emplace();
        warnings = 0;
        m_previousHandler = qInstallMessageHandler(countWarnings);
    }
    void cleanup() {
        qInstallMessageHandler(m_previousHandler);
        m_consents.reset();
        m_kit.reset();
    }

    void asksTheUserOnceAndSaysWhatIsMissing() {
        useSessionInput({});
        QVERIFY(m_consents->asked == std::vector<std::string>{"listening"});
        QCOMPARE(warnings, 1);
        QVERIFY(QByteArray::fromStdString(sessionInputObstacle()).contains("Input Monitoring"));
        QCOMPARE(m_consents->asked.size(), std::size_t{1}); // to look is not to ask
    }

    void isContentWithAConsentGivenAtOnce() {
        m_consents->allowsWhenAsked = true;
        useSessionInput({});
        QCOMPARE(warnings, 0);
        QCOMPARE(sessionInputObstacle(), std::string());
    }

    void asksNobodyWhenAllIsAllowed() {
        m_consents->listening = m_consents->posting = true;
        useSessionInput({});
        QVERIFY(m_consents->asked.empty());
        QCOMPARE(warnings, 0);
    }

    void asksForPostingOnceItMayListen() {
        m_consents->listening = true;
        useSessionInput({});
        QVERIFY(m_consents->asked == std::vector<std::string>{"posting"});
        QCOMPARE(warnings, 1);
        m_consents->allowsWhenAsked = true;
        useSessionInput({});
        QCOMPARE(warnings, 1);
    }

    // Bit 20 would keep the Mac itself awake.
    void isKeptAwakeButLetsTheMacSleep() {
        useSessionInput({});
        QCOMPARE(m_kit->activity, 0xEFFFFFUL);
        QCOMPARE(m_kit->poolsOpen(), 0);
        QCOMPARE(m_kit->strays(), 0);
    }

private:
    std::optional<fakes::AppKit> m_kit;
    std::optional<fakes::Consents> m_consents;
    QtMessageHandler m_previousHandler = nullptr;
};

QTEST_GUILESS_MAIN(SessionInputTest)
#include "SessionInputTest.moc"
