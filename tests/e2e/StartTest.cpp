// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "e2e/WindowWatch.h"
#include "support/Patience.h"
#include "support/ProcessMeter.h"
#include "support/RealInput.h"
#include "support/StoredSettings.h"
#include "support/TestMain.h"

#include <QDir>

#include <csignal>
#include <functional>

using namespace vexa::test;

namespace {

constexpr int escapeKey = 9;
const QSize panelSize(999, 650);
const QSize guideSize(494, 300);

e2e::Program::Settings withGuide() {
    return {{"ShowPrivacyWindow", 1}, {"Language", 2}};
}

/// The window of that size, shown or not; 0 when there is none.
quint32 existing(qint64 pid, const QSize &size) {
    for (const e2e::Window &window : e2e::windowsOf(pid))
        if (window.geometry.size() == size)
            return window.id;
    return 0;
}

/// Puts something into the settings file's place.
using Place = std::function<bool(const QString &)>;

Place bytes(const QByteArray &content, qint64 size = 0) {
    return [content, size](const QString &path) {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
               (size == 0 || file.resize(size));
    };
}

} // namespace

Q_DECLARE_METATYPE(Place)

/// The start of the program as its user sees it.
class StartTest : public QObject {
    Q_OBJECT

private slots:
    void thePanelShowsBrieflyAndLeavesAPrompt() {
        e2e::Program program;
        e2e::WindowWatch watch;
        const QSize stripSize(300, 60);
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(existing(program.pid(), panelSize), patience);
        const quint32 panel = existing(program.pid(), panelSize);
        QTRY_VERIFY_WITH_TIMEOUT(watch.wasShown(panel), patience);
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::panelOf(program.pid()).id, patience);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), stripSize).id, patience);
        const QRect strip = e2e::visibleWindowOfSize(program.pid(), stripSize).geometry;
        QCOMPARE(strip, QRect(810, 510, 300, 60));
        QVERIFY(program.isRunning());
    }

    void theProgramRunsOnWithoutAWindow() {
        e2e::Program program;
        QVERIFY(e2e::startAndSettle(program));
        QCOMPARE(program.runToTheEnd().how, QByteArray("ended with 0"));
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
        e2e::askToClose(e2e::panelOf(program.pid()));
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::panelOf(program.pid()).id, patience);
        QVERIFY(program.isRunning());
        QCOMPARE(program.runToTheEnd().how, QByteArray("ended with 0"));
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
    }

    void aFreshInstallationShowsTheGuide() {
        e2e::Program program{e2e::Program::Settings()};
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
        QCOMPARE(e2e::windowsOf(program.pid()).size(), 1); // nothing of the main window is there yet
        QCOMPARE(program.settingsFile(), QByteArray());
    }

    void withoutTheSettingThereIsNoGuide() {
        e2e::Program program;
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(e2e::windowsOf(program.pid()).size() >= 3, patience);
        for (const e2e::Window &window : e2e::windowsOf(program.pid()))
            QVERIFY(window.geometry.size() != guideSize);
    }

    void aRejectedGuideLeavesTheFileAsItWas() {
        e2e::Program program(withGuide());
        // As the program itself writes it: whatever else is saved, by the panel that follows, it shows.
        const QByteArray before = savedFile([](const StoredSetting &setting) {
            const bool otherwise =
                setting.value == &ZrToolXmlClass::AutoStart || setting.value == &ZrToolXmlClass::Language;
            return otherwise ? setting.atStart : setting.shipped;
        });
        QVERIFY(bytes(before)(program.settingsPath()));
        e2e::WindowWatch watch;
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
        QCOMPARE(program.settingsFile(), before);

        QTRY_VERIFY_WITH_TIMEOUT(e2e::hasFocus(e2e::visibleWindowOfSize(program.pid(), guideSize)), patience);
        typeKey(escapeKey);
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::windowsOf(program.pid()).size() >= 3, patience);
        QCOMPARE(program.settingsFile(), before);
    }

    void aConfirmedGuideIsSavedBeforeThePanelShows() {
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
        moveMouse(neverAgainBox.center());
        const QImage unticked = e2e::grabScreen().copy(neverAgainBox);
        click();
        QTRY_VERIFY_WITH_TIMEOUT(e2e::grabScreen().copy(neverAgainBox) != unticked, patience);
        moveMouse(onScreen(button));
        click();

        // As soon as there is anything of the main window, the file has the answer.
        const auto panelExists = [&] { return existing(program.pid(), panelSize) != 0; };
        QVERIFY(QTest::qWaitFor(panelExists, patience));
        QVERIFY2(program.settingsFile().contains("<ShowPrivacyWindow>0</ShowPrivacyWindow>"),
                 program.settingsFile().constData());
    }

    void theWindowManagerLearnsWhatThePanelIs() {
        e2e::Program program;
        QVERIFY(e2e::startAndSettle(program));
        QCOMPARE(program.runToTheEnd().how, QByteArray("ended with 0"));
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
        const e2e::Wishes wishes = e2e::wishesOf(e2e::panelOf(program.pid()));
        // Tiling window managers let a window float whose size cannot change.
        QCOMPARE(wishes.smallest, panelSize);
        QCOMPARE(wishes.largest, panelSize);
        QVERIFY(!wishes.frame);
        QCOMPARE(wishes.iconSizes, (QSet<int>{16, 24, 32, 48, 64, 128, 256}));
    }

    void theGuideCarriesTheIconToo() {
        e2e::Program program(withGuide());
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
        const e2e::Window guide = e2e::visibleWindowOfSize(program.pid(), guideSize);
        QVERIFY(!e2e::wishesOf(guide).iconSizes.isEmpty());
    }

    void onlyWindowsThatTheManagerListsCarryTheIcon() {
        e2e::Program program({{"Key3P", 3}});
        QVERIFY(e2e::startAndSettle(program));
        typeChord(PenKey::M);
        typeChord(PenKey::J);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), e2e::grabScreen().size()).id,
                                 patience);
        for (const e2e::Window &window : e2e::windowsOf(program.pid()))
            QCOMPARE(e2e::wishesOf(window).iconSizes.isEmpty(), window.geometry.size() != panelSize);
    }

    void aWaylandSessionIsNamedAndRunsAllTheSame() {
        e2e::Program program;
        program.setEnvironment(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("wayland"));
        program.setEnvironment(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland"));
        QVERIFY(e2e::startAndSettle(program));
        program.signal(SIGTERM);
        const auto end = program.waitForEnd();
        QCOMPARE(end.how, QByteArray("ended with 0"));
        QCOMPARE(
            end.errors,
            QByteArray(
                "VexaOrbilo: this is a Wayland session, in which the pen cannot be heard; an X11 session is "
                "needed\nVexaOrbilo: uses the X server, where the pen is heard, and not "
                "QT_QPA_PLATFORM=wayland\n"));
    }

    void badSettingsFilesDoNotKeepItFromStarting_data() {
        QTest::addColumn<Place>("place");
        QByteArray entities = "<!DOCTYPE a [<!ENTITY e0 \"boom boom\">";
        for (int i = 1; i < 12; ++i) {
            const QByteArray inner = "&e" + QByteArray::number(i - 1) + ';';
            entities += "<!ENTITY e" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
        }
        QByteArray attributes = "<a";
        for (int i = 0; i < 90000; ++i)
            attributes += " a" + QByteArray::number(i) + "=\"1\"";

        QTest::newRow("empty") << bytes("");
        QTest::newRow("cut off") << bytes("<PenSetting FirstRun=\"1\"><Setting><Key2P>4");
        QTest::newRow("100 MiB") << bytes("<a><b><Key2P>4</Key2P></b></a>", 100LL << 20);
        QTest::newRow("300,000 levels") << bytes(QByteArray("<a>").repeated(300000));
        QTest::newRow("entity bomb") << bytes(entities + "]><a><b><Key2P>&e11;</Key2P></b></a>");
        QTest::newRow("long entity, often used")
            << bytes("<!DOCTYPE a [<!ENTITY e \"" + QByteArray(3000, 'x') + "\">]><a><b>" +
                     QByteArray("&e;").repeated(300000) + "</b></a>");
        QTest::newRow("90,000 attributes") << bytes(attributes + "/>");
        QTest::newRow("folder") << Place([](const QString &path) { return QDir().mkdir(path); });
        QTest::newRow("dangling link") << Place(
            [](const QString &path) { return QFile::link(QStringLiteral("/nowhere/at/all"), path); });
    }

    void badSettingsFilesDoNotKeepItFromStarting() {
        QFETCH(Place, place);
        const double usual = usualPeak();
        QVERIFY(usual > 0);
        e2e::Program program{e2e::Program::Settings()};
        QVERIFY(place(program.settingsPath()));
        const QByteArray before = program.settingsFile();
        QVERIFY(program.start());
        // What holds in memory says that the guide is to be shown.
        QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
        const double peak = peakMebibytes(program.pid());
        QVERIFY(peak > 0);
        QVERIFY2(peak < usual + 50,
                 qPrintable(QStringLiteral("%1 MiB, usually %2 MiB").arg(peak).arg(usual)));
        QCOMPARE(program.settingsFile(), before);
    }

private:
    /// That of a start without any settings file. Not beside another instance, which it would leave the field
    /// to.
    double usualPeak() {
        if (m_usualPeak == 0) {
            e2e::Program program{e2e::Program::Settings()};
            const auto guide = [&] { return e2e::visibleWindowOfSize(program.pid(), guideSize).id != 0; };
            if (program.start() && QTest::qWaitFor(guide, patience))
                m_usualPeak = peakMebibytes(program.pid());
        }
        return m_usualPeak;
    }

    double m_usualPeak = 0;
};

VEXA_WIDGET_TEST_MAIN(StartTest)
#include "StartTest.moc"
