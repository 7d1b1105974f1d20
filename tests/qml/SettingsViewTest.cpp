// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "support/TestMain.h"

#include <QDesktopServices>
#include <QTranslator>

using namespace places;

/// The settings view: start at login, language with its guard, and the link.
class SettingsViewTest : public PanelTest {
    Q_OBJECT

private slots:
    void init() {
        PanelTest::init();
        m_view->click(settingsButton);
        m_box = m_view->list(languageBox);
        QVERIFY(m_box);
    }

    void guardIsOpenAtFirst() {
        QVERIFY(qml::is(m_box, "canChangeIndex: true; oldIndex: 0; currentIndex: 0"));
        QVERIFY(qml::is(timer(), "interval: 100; triggeredOnStart: true; repeat: false; running: false"));
    }

    void pickingEnglishSendsItRecordsItAndStartsTheGuard() {
        m_view->pick(languageBox, english);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Language, english}}));
        QCOMPARE(m_box->property("oldIndex"), QVariant(int(english)));
        QVERIFY(timer()->property("running").toBool());
        QTRY_VERIFY(!timer()->property("running").toBool());
        QVERIFY(m_box->property("canChangeIndex").toBool());
    }

    void changeWhileTheGuardIsClosedIsUndoneAndNotSent() {
        // Both changes in one go: no event, and so no timer, comes between them.
        m_box->setProperty("currentIndex", int(english));
        QCOMPARE(m_box->property("canChangeIndex"), QVariant(false));
        m_box->setProperty("currentIndex", int(simplifiedChinese));
        QVERIFY(qml::is(m_box, "currentIndex: 2; oldIndex: 2"));
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Language, english}}));
    }

    void guardOpensAgain() {
        m_box->setProperty("currentIndex", int(english));
        QCOMPARE(m_box->property("canChangeIndex"), QVariant(false));
        QTRY_COMPARE(m_box->property("canChangeIndex"), QVariant(true));
        m_box->setProperty("currentIndex", int(traditionalChinese));
        QCOMPARE(m_view->messages,
                 Messages({{ViewMessage::Language, english}, {ViewMessage::Language, traditionalChinese}}));
    }

    void keyboardChoosesALanguage() {
        m_view->activate();
        m_box->forceActiveFocus(Qt::TabFocusReason);
        m_view->type(Qt::Key_Down);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Language, traditionalChinese}}));
    }

    void pushedLanguageIsShown() {
        const QStringList names{"简体中文", "繁体中文", "英语"};
        for (const Number language : {traditionalChinese, english, simplifiedChinese}) {
            QTRY_VERIFY(m_box->property("canChangeIndex").toBool());
            m_view->push(ViewMessage::Language, language);
            QCOMPARE(m_box->property("currentIndex"), QVariant(int(language)));
            QCOMPARE(m_box->property("displayText").toString(), names.at(language));
        }
    }

    void switchSendsTheOtherStateAndShowsItAtOnce() {
        m_view->push(ViewMessage::AutoStart, 0);
        for (const bool on : {true, false}) {
            m_view->click(autoStart + QPoint(19, 10));
            QCOMPARE(m_view->takeMessages(), Messages({{ViewMessage::AutoStart, on}}));
            QCOMPARE(switchShows(), on);
        }
    }

    void switchFollowsWhatTheHostReports() {
        m_view->push(ViewMessage::AutoStart, 0);
        m_view->click(autoStart + QPoint(19, 10));
        QCOMPARE(m_view->takeMessages(), Messages({{ViewMessage::AutoStart, 1}}));
        for (const bool on : {false, true}) {
            m_view->push(ViewMessage::AutoStart, on, on);
            QCOMPARE(switchShows(), on);
        }
        QCOMPARE(m_view->messages, Messages());
    }

    void linkOpensTheWebSiteWhereverItIsClicked() {
        QDesktopServices::setUrlHandler(QString("https"), this, "openUrl");
        const QPoint link = settingsView + QPoint(19, 326);
        for (const QPoint &place : {QPoint(1, 1), QPoint(105, 6), QPoint(208, 10)})
            m_view->click(link + place);
        QDesktopServices::unsetUrlHandler(QString("https"));
        const QUrl site(QString("https://www.vexa.example/"));
        QCOMPARE(m_opened, QList<QUrl>({site, site, site}));
    }

    void versionComesFromTheCatalogues() {
        const QPoint number = settingsView + QPoint(127, 199);
        QCOMPARE(m_view->textAt(number), QString("2.0.0.0"));
        for (const char *catalogue : {"Cn", "Tw", "En"}) {
            QTranslator translator;
            QVERIFY(translator.load(QString(":/language_qm/lang_%1.qm").arg(catalogue)));
            QVERIFY(QCoreApplication::installTranslator(&translator));
            QTRY_COMPARE(m_view->textAt(number), QString("2.1.0.210527"));
            QVERIFY(QCoreApplication::removeTranslator(&translator));
            QTRY_COMPARE(m_view->textAt(number), QString("2.0.0.0"));
        }
    }

public slots:
    void openUrl(const QUrl &url) { m_opened.append(url); }

private:
    QObject *timer() {
        for (QObject *object : m_view->root()->findChildren<QObject *>())
            if (object->inherits("QQmlTimer"))
                return object;
        return nullptr;
    }
    bool switchShows() { return m_view->items("SwitchControl").first()->property("myChecked").toBool(); }

    QQuickItem *m_box = nullptr;
    QList<QUrl> m_opened;
};

VEXA_WIDGET_TEST_MAIN(SettingsViewTest)
#include "SettingsViewTest.moc"
