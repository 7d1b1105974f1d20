// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Pen.h"
#include "e2e/Program.h"
#include "e2e/WindowWatch.h"
#include "support/TestMain.h"

namespace {

constexpr int patience = 20000; // milliseconds
constexpr int escapeKey = 9;
const QSize panelSize(999, 650);
const QSize guideSize(494, 300);

e2e::Program::Settings withGuide() {
    return {{QStringLiteral("ShowPrivacyWindow"), 1}, {QStringLiteral("Language"), 2}};
}

} // namespace

/// The start of the program as its user sees it.
class StartTest : public QObject {
    Q_OBJECT

private slots:
    void thePanelShowsBrieflyAndLeavesAPrompt();
    void theProgramRunsOnWithoutAWindow();
    void aFreshInstallationShowsTheGuide();
    void withoutTheSettingThereIsNoGuide();
    void aRejectedGuideLeavesTheFileAsItWas();
    void aConfirmedGuideIsSavedBeforeThePanelShows();
    void badSettingsFilesDoNotKeepItFromStarting_data();
    void badSettingsFilesDoNotKeepItFromStarting();
};

void StartTest::thePanelShowsBrieflyAndLeavesAPrompt() {
    e2e::Program program;
    e2e::WindowWatch watch;
    const QSize stripSize(300, 60);
    QVERIFY(program.start());

    quint32 panel = 0;
    const auto panelExists = [&] {
        for (const e2e::Window &window : e2e::windowsOf(program.pid())) {
            if (window.geometry.size() == panelSize)
                panel = window.id;
        }
        return panel != 0;
    };
    QTRY_VERIFY_WITH_TIMEOUT(panelExists(), patience);
    QTRY_VERIFY_WITH_TIMEOUT(watch.wasShown(panel), patience);
    QTRY_VERIFY_WITH_TIMEOUT(!e2e::panelOf(program.pid()).id, patience);
    QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), stripSize).id, patience);
    const QRect strip = e2e::visibleWindowOfSize(program.pid(), stripSize).geometry;
    QCOMPARE(strip, QRect(810, 510, 300, 60));
    QVERIFY(program.isRunning());
}

void StartTest::theProgramRunsOnWithoutAWindow() {
    e2e::Program program;
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn(program.pid()), patience);
    QCOMPARE(program.runToTheEnd().code, 0);
    QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
    e2e::askToClose(e2e::panelOf(program.pid()));
    QTRY_VERIFY_WITH_TIMEOUT(!e2e::panelOf(program.pid()).id, patience);
    QVERIFY(program.isRunning());
    QCOMPARE(program.runToTheEnd().code, 0);
    QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
}

void StartTest::aFreshInstallationShowsTheGuide() {
    e2e::Program program{e2e::Program::Settings()};
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
    QCOMPARE(e2e::windowsOf(program.pid()).size(), 1); // nothing of the main window is there yet
    QCOMPARE(program.settingsFile(), QByteArray());
}

void StartTest::withoutTheSettingThereIsNoGuide() {
    e2e::Program program;
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(e2e::windowsOf(program.pid()).size() >= 3, patience);
    for (const e2e::Window &window : e2e::windowsOf(program.pid()))
        QVERIFY(window.geometry.size() != guideSize);
}

void StartTest::aRejectedGuideLeavesTheFileAsItWas() {
    e2e::Program program(withGuide());
    const QByteArray before = program.settingsFile();
    e2e::WindowWatch watch;
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
    QCOMPARE(program.settingsFile(), before);

    // The key goes to the window that has the focus, which takes the window manager a moment.
    const auto guideGoesOnEscape = [&] {
        e2e::typeKey(escapeKey);
        return !e2e::visibleWindowOfSize(program.pid(), guideSize).id;
    };
    QTRY_VERIFY_WITH_TIMEOUT(guideGoesOnEscape(), patience);
    QTRY_VERIFY_WITH_TIMEOUT(e2e::windowsOf(program.pid()).size() >= 3, patience);
    QVERIFY(!program.settingsFile().contains("<ShowPrivacyWindow>0"));
}

void StartTest::aConfirmedGuideIsSavedBeforeThePanelShows() {
    e2e::Program program(withGuide());
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
    const auto onScreen = [&](const QPoint &inGuide) {
        return e2e::visibleWindowOfSize(program.pid(), guideSize).geometry.topLeft() + inGuide;
    };

    // Once the window manager has placed it and its picture is there, the button stands out.
    const QPoint button(395, 264);
    const QPoint besideButton(330, 264);
    const auto buttonIsDrawn = [&] {
        return qGray(e2e::pixelAt(onScreen(button))) > qGray(e2e::pixelAt(onScreen(besideButton))) + 50;
    };
    QTRY_VERIFY_WITH_TIMEOUT(buttonIsDrawn(), patience);
    const QRect neverAgainBox(onScreen({20, 256}), QSize(16, 16));
    e2e::movePointer(neverAgainBox.center());
    const QImage unticked = e2e::grabScreen().copy(neverAgainBox);
    e2e::click();
    QTRY_VERIFY_WITH_TIMEOUT(e2e::grabScreen().copy(neverAgainBox) != unticked, patience);
    e2e::movePointer(onScreen(button));
    e2e::click();
    QTRY_VERIFY_WITH_TIMEOUT(program.settingsFile().contains("<ShowPrivacyWindow>0</ShowPrivacyWindow>"),
                             patience);
    QTRY_VERIFY_WITH_TIMEOUT(e2e::windowsOf(program.pid()).size() >= 3, patience);
}

void StartTest::badSettingsFilesDoNotKeepItFromStarting_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("cut off") << QByteArray("<PenSetting FirstRun=\"1\"><Setting><Key2P>4");
    QTest::newRow("300,000 levels") << QByteArray("<a>").repeated(300000);
}

void StartTest::badSettingsFilesDoNotKeepItFromStarting() {
    QFETCH(QByteArray, bytes);
    e2e::Program program;
    QFile file(program.settingsPath());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
    file.close();
    QVERIFY(program.start());
    // What holds in memory says that the guide is to be shown.
    QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
    QCOMPARE(program.settingsFile(), bytes);
}

VEXA_WIDGET_TEST_MAIN(StartTest)
#include "StartTest.moc"
