// SPDX-License-Identifier: MIT
#include "app/AnnouncedShot.h"

#include "fakes/Desktop.h"
#include "overlays/PromptWindow.h"
#include "support/Patience.h"
#include "support/TestMain.h"

using vexa::test::patience;

/// The prompt of a screenshot comes first and does not stand in the picture.
class AnnouncedShotTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_shot.reset();
        m_desktop.screen = QImage(380, 180, QImage::Format_RGB32);
        m_desktop.screen.fill(Qt::red);
        m_prompt = std::make_unique<PromptWindow>();
        m_prompt->showWithTransperent();
        waitAtMost(std::chrono::hours{1}); // the machine may be busy for longer than a shot usually waits
    }

    void thePromptIsShownBeforeThePictureAndSeenAfterIt() {
        startShot(false);
        QCOMPARE(m_desktop.done,
                 (QStringList{QStringLiteral("shown"), QStringLiteral("picture"), QStringLiteral("seen")}));
        QCOMPARE(m_prompt->windowOpacity(), 1.0);
    }

    void whatAnEarlierPromptHasCoveredIsDrawnAgainFirst_data() {
        QTest::addColumn<QRect>("stale");
        QTest::newRow("everything") << QRect(0, 0, 380, 180);
        QTest::newRow("the last to draw") << QRect(360, 160, 20, 20);
    }

    void whatAnEarlierPromptHasCoveredIsDrawnAgainFirst() {
        QFETCH(QRect, stale);
        startShot(true);
        for (int y = 0; y < m_desktop.screen.height(); ++y)
            for (int x = 0; x < m_desktop.screen.width(); ++x)
                if (!stale.contains(x, y))
                    m_desktop.screen.setPixelColor(x, y, Qt::blue);
        const QStringList waiting{QStringLiteral("unseen"), QStringLiteral("shown")};
        QCOMPARE(m_desktop.done, waiting);
        const int before = m_desktop.looks;
        QTRY_VERIFY_WITH_TIMEOUT(m_desktop.looks > before + 2, patience);
        QCOMPARE(m_desktop.done, waiting);
        m_desktop.screen.fill(Qt::blue);
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop.done,
                                  waiting + QStringList({QStringLiteral("picture"), QStringLiteral("seen")}),
                                  patience);
    }

    void moreKeysMeanwhileAreTheSameShot() {
        startShot(true);
        m_shot->take();
        m_shot->take();
        m_desktop.screen.fill(Qt::blue);
        QTRY_VERIFY_WITH_TIMEOUT(m_desktop.done.contains(QStringLiteral("seen")), patience);
        QCOMPARE(m_desktop.done.count(QStringLiteral("picture")), 1);
        QCOMPARE(m_desktop.done.count(QStringLiteral("shown")), 1);
    }

    void whatNeverChangesIsNotWaitedForLong() {
        waitAtMost(vexa::AnnouncedShot::usualWait);
        startShot(true);
        QTRY_VERIFY_WITH_TIMEOUT(m_desktop.done.contains(QStringLiteral("picture")), patience);
    }

    void theEndTakesTheShotThatIsDue() {
        startShot(true);
        QVERIFY(!m_desktop.done.contains(QStringLiteral("picture")));
        m_shot.reset();
        QCOMPARE(m_desktop.done.count(QStringLiteral("picture")), 1);
    }

private:
    void waitAtMost(std::chrono::milliseconds longest) {
        m_shot = std::make_unique<vexa::AnnouncedShot>(
            *m_prompt, [this] { m_desktop.done += QStringLiteral("picture"); }, longest);
    }

    void startShot(bool promptIsSeen) {
        if (promptIsSeen)
            m_prompt->showWithTimer();
        m_desktop.done.clear();
        m_desktop.looks = 0;
        m_shot->take();
    }

    vexa::FakeDesktop &m_desktop = vexa::fakeDesktop();
    std::unique_ptr<PromptWindow> m_prompt;
    std::unique_ptr<vexa::AnnouncedShot> m_shot;
};

VEXA_WIDGET_TEST_MAIN(AnnouncedShotTest)
#include "AnnouncedShotTest.moc"
