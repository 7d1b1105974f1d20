// SPDX-License-Identifier: MIT
#include "app/AnnouncedShot.h"

#include "overlays/PromptWindow.h"
#include "platform/OverlayWindow.h"
#include "platform/ScreenCapture.h"
#include "support/TestMain.h"

namespace {

QStringList done; // what the desktop was asked for, and the shots
QImage screen(380, 180, QImage::Format_RGB32);
int looks = 0;

} // namespace

// The desktop is played by the test.
namespace vexa::platform {

void showOverPrimaryScreen(QWidget & /*overlay*/, Cover /*cover*/) {}

void fitToPrimaryScreen(QWidget & /*overlay*/) {}

void showAboveAll(QWidget &card) {
    done += QStringLiteral("shown");
    card.show();
}

void setOverlayOpacity(QWidget &card, double opacity) {
    const bool wasSeen = card.windowOpacity() > 0;
    card.setWindowOpacity(opacity);
    if ((opacity > 0) != wasSeen)
        done += opacity > 0 ? QStringLiteral("seen") : QStringLiteral("unseen");
}

QPixmap capturePrimaryScreen() {
    return {};
}

QPixmap captureScreenRect(const QRect & /*rect*/) {
    ++looks;
    return QPixmap::fromImage(screen);
}

CursorPicture currentCursorPicture() {
    return {};
}

void openScreenRecordingSettings() {}

} // namespace vexa::platform

/// The prompt of a screenshot comes first and does not stand in the picture.
class AnnouncedShotTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void thePromptIsShownBeforeThePictureAndSeenAfterIt();
    void whatAnEarlierPromptHasCoveredIsDrawnAgainFirst_data();
    void whatAnEarlierPromptHasCoveredIsDrawnAgainFirst();
    void moreKeysMeanwhileAreTheSameShot();
    void whatNeverChangesIsNotWaitedForLong();
    void theEndTakesTheShotThatIsDue();

private:
    void startShot(bool promptIsSeen) {
        if (promptIsSeen)
            m_prompt->showWithTimer();
        done.clear();
        looks = 0;
        m_shot->take();
    }

    std::unique_ptr<PromptWindow> m_prompt;
    std::unique_ptr<vexa::AnnouncedShot> m_shot;
};

void AnnouncedShotTest::init() {
    m_shot.reset();
    screen.fill(Qt::red);
    m_prompt = std::make_unique<PromptWindow>();
    m_prompt->showWithTransperent();
    m_shot = std::make_unique<vexa::AnnouncedShot>(*m_prompt, [] { done += QStringLiteral("picture"); });
}

void AnnouncedShotTest::thePromptIsShownBeforeThePictureAndSeenAfterIt() {
    startShot(false);
    QCOMPARE(done, (QStringList{QStringLiteral("shown"), QStringLiteral("picture"), QStringLiteral("seen")}));
    QCOMPARE(m_prompt->windowOpacity(), 1.0);
}

void AnnouncedShotTest::whatAnEarlierPromptHasCoveredIsDrawnAgainFirst_data() {
    QTest::addColumn<QRect>("stale");
    QTest::newRow("everything") << QRect(0, 0, 380, 180);
    QTest::newRow("the last to draw") << QRect(360, 160, 20, 20);
}

void AnnouncedShotTest::whatAnEarlierPromptHasCoveredIsDrawnAgainFirst() {
    QFETCH(QRect, stale);
    startShot(true);
    for (int y = 0; y < screen.height(); ++y)
        for (int x = 0; x < screen.width(); ++x)
            if (!stale.contains(x, y))
                screen.setPixelColor(x, y, Qt::blue);
    const QStringList waiting{QStringLiteral("unseen"), QStringLiteral("shown")};
    QCOMPARE(done, waiting);
    const int before = looks;
    QTRY_VERIFY(looks > before + 2);
    QCOMPARE(done, waiting);
    screen.fill(Qt::blue);
    QTRY_COMPARE(done, waiting + QStringList({QStringLiteral("picture"), QStringLiteral("seen")}));
}

void AnnouncedShotTest::moreKeysMeanwhileAreTheSameShot() {
    startShot(true);
    m_shot->take();
    m_shot->take();
    screen.fill(Qt::blue);
    QTRY_VERIFY(done.contains(QStringLiteral("seen")));
    QCOMPARE(done.count(QStringLiteral("picture")), 1);
    QCOMPARE(done.count(QStringLiteral("shown")), 1);
}

void AnnouncedShotTest::whatNeverChangesIsNotWaitedForLong() {
    startShot(true);
    QTRY_VERIFY(done.contains(QStringLiteral("picture")));
}

void AnnouncedShotTest::theEndTakesTheShotThatIsDue() {
    startShot(true);
    QVERIFY(!done.contains(QStringLiteral("picture")));
    m_shot.reset();
    QCOMPARE(done.count(QStringLiteral("picture")), 1);
}

VEXA_WIDGET_TEST_MAIN(AnnouncedShotTest)
#include "AnnouncedShotTest.moc"
