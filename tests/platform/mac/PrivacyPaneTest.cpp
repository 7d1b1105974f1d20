// SPDX-License-Identifier: MIT
#include "fakes/mac/AppKit.h"
#include "fakes/mac/Consents.h"
#include "platform/ScreenCapture.h"

#include <QTest>

#include <optional>

class PrivacyPaneTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_consents.emplace();
        m_kit.emplace();
    }
    void cleanup() {
        QCOMPARE(m_kit->poolsOpen(), 0);
        QCOMPARE(m_kit->strays(), 0);
        m_kit.reset();
    }

    void opensTheScreenRecordingPane() {
        vexa::platform::openScreenRecordingSettings();
        const std::vector<std::string> expected{
            "x-apple.systempreferences:com.apple.preference.security?Privacy_ScreenCapture"};
        QVERIFY(m_kit->openedUrls == expected);
    }

    // Only who has asked is on the pane's list.
    void asksBeforeItOpensThePane() {
        std::size_t paneCameAfter = 0;
        m_kit->whenOpened = [&] { paneCameAfter = m_consents->asked.size(); };
        vexa::platform::openScreenRecordingSettings();
        QVERIFY(m_consents->asked == std::vector<std::string>{"capturing"});
        QCOMPARE(paneCameAfter, std::size_t{1});
    }

    void opensNothingWithoutAUrl() {
        m_kit->acceptsUrls = false;
        vexa::platform::openScreenRecordingSettings();
        QVERIFY(m_kit->openedUrls.empty());
    }

private:
    std::optional<fakes::Consents> m_consents;
    std::optional<fakes::AppKit> m_kit;
};

QTEST_GUILESS_MAIN(PrivacyPaneTest)
#include "PrivacyPaneTest.moc"
