// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

#include <QDesktopServices>
#include <QTranslator>

namespace {

const QPoint view(722, 207);
const QPoint languageBox = view + QPoint(87, 129);
const QPoint switchMiddle = view + QPoint(189 + 19, 74 + 10);

} // namespace

/// The settings view: start at login, language with its guard, and the link.
class SettingsViewTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_view = std::make_unique<PanelView>();
        m_view->click({951 + 9, 598 + 9});
        m_box = m_view->item(QStringLiteral("ComboxControl"), languageBox);
        QVERIFY(m_box != nullptr);
    }
    void cleanup() { m_view.reset(); }

    void guardIsOpenAtFirst() {
        QCOMPARE(m_box->property("canChangeIndex"), QVariant(true));
        QCOMPARE(m_box->property("oldIndex"), QVariant(0));
        QCOMPARE(m_box->property("currentIndex"), QVariant(0));
    }

    void pickingEnglishSendsItRecordsItAndStartsTheGuard() {
        m_view->pick(languageBox, 2);
        QCOMPARE(m_view->messages, QList<Message>({{16, 2, 0}}));
        QCOMPARE(m_box->property("oldIndex"), QVariant(2));
        QVERIFY(timer()->property("running").toBool());
        QTRY_VERIFY(!timer()->property("running").toBool());
        QVERIFY(m_box->property("canChangeIndex").toBool());
    }

    void changeWhileTheGuardIsClosedIsUndoneAndNotSent() {
        // Both changes in one go: no event, and so no timer, comes between them.
        m_box->setProperty("currentIndex", 2);
        QCOMPARE(m_box->property("canChangeIndex"), QVariant(false));
        m_box->setProperty("currentIndex", 0);
        QCOMPARE(m_box->property("currentIndex"), QVariant(2));
        QCOMPARE(m_box->property("oldIndex"), QVariant(2));
        QCOMPARE(m_view->messages, QList<Message>({{16, 2, 0}}));
    }

    void guardOpensAgain() {
        m_box->setProperty("currentIndex", 2);
        QCOMPARE(m_box->property("canChangeIndex"), QVariant(false));
        QTRY_COMPARE(m_box->property("canChangeIndex"), QVariant(true));
        m_box->setProperty("currentIndex", 1);
        QCOMPARE(m_view->messages, QList<Message>({{16, 2, 0}, {16, 1, 0}}));
    }

    void timerHasItsForm() {
        QVERIFY(timer() != nullptr);
        QCOMPARE(timer()->property("interval"), QVariant(100));
        QCOMPARE(timer()->property("triggeredOnStart"), QVariant(true));
        QCOMPARE(timer()->property("repeat"), QVariant(false));
        QCOMPARE(timer()->property("running"), QVariant(false));
    }

    void keyboardChoosesALanguage() {
        m_view->widget().activateWindow();
        QTRY_VERIFY(m_view->widget().isActiveWindow());
        m_box->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(&m_view->widget(), Qt::Key_Down);
        QCOMPARE(m_view->messages, QList<Message>({{16, 1, 0}}));
    }

    void pushedLanguageIsShown() {
        for (const int language : {1, 2, 0}) {
            QTRY_VERIFY(m_box->property("canChangeIndex").toBool());
            m_view->push(16, language);
            QCOMPARE(m_box->property("currentIndex"), QVariant(language));
            const QStringList names{"简体中文", "繁体中文", "英语"};
            QCOMPARE(m_box->property("displayText").toString(), names.at(language));
        }
    }

    void firstPushIsShownAtOnce() {
        PanelView fresh;
        fresh.push(16, 2);
        fresh.click({951 + 9, 598 + 9});
        QCOMPARE(fresh.item(QStringLiteral("ComboxControl"), languageBox)->property("currentIndex"),
                 QVariant(2));
    }

    void switchSendsTheOtherStateAndShowsItAtOnce() {
        m_view->push(17, 0);
        m_view->click(switchMiddle);
        QCOMPARE(m_view->messages, QList<Message>({{17, 1, 0}}));
        QVERIFY(switchShows());
        m_view->click(switchMiddle);
        QCOMPARE(m_view->messages, QList<Message>({{17, 1, 0}, {17, 0, 0}}));
        QVERIFY(!switchShows());
    }

    void switchFollowsWhatTheHostReports() {
        m_view->push(17, 0);
        m_view->click(switchMiddle);
        m_view->push(17, 0, false);
        QVERIFY(!switchShows());
        m_view->push(17, 1, true);
        QVERIFY(switchShows());
        QCOMPARE(m_view->messages, QList<Message>({{17, 1, 0}}));
    }

    void linkOpensTheWebSiteWhereverItIsClicked() {
        QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "openUrl");
        const QPoint link = view + QPoint(19, 326);
        for (const QPoint &place : {QPoint(1, 1), QPoint(105, 6), QPoint(208, 10)})
            m_view->click(link + place);
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
        const QUrl site(QStringLiteral("https://www.vexa.example/"));
        QCOMPARE(m_opened, QList<QUrl>({site, site, site}));
    }

    void versionComesFromTheCatalogues_data() {
        QTest::addColumn<QString>("catalogue");
        QTest::addColumn<QString>("version");
        for (const char *name : {"Cn", "Tw", "En"})
            QTest::newRow(name) << QString::fromLatin1(name) << QStringLiteral("2.1.0.210527");
        QTest::newRow("none") << QString() << QStringLiteral("2.0.0.0");
    }
    void versionComesFromTheCatalogues() {
        QFETCH(QString, catalogue);
        QFETCH(QString, version);
        QTranslator translator;
        if (!catalogue.isEmpty()) {
            QVERIFY(translator.load(QStringLiteral(":/language_qm/lang_%1.qm").arg(catalogue)));
            QVERIFY(QCoreApplication::installTranslator(&translator));
        }
        QTRY_COMPARE(m_view->text(view + QPoint(127, 199))->property("text").toString(), version);
    }

public slots:
    void openUrl(const QUrl &url) { m_opened.append(url); }

private:
    QObject *timer() {
        for (QObject *object : m_view->root()->findChildren<QObject *>())
            if (qstrcmp(object->metaObject()->className(), "QQmlTimer") == 0)
                return object;
        return nullptr;
    }
    bool switchShows() {
        return m_view->items(QStringLiteral("SwitchControl")).first()->property("myChecked").toBool();
    }

    std::unique_ptr<PanelView> m_view;
    QQuickItem *m_box = nullptr;
    QList<QUrl> m_opened;
};

VEXA_WIDGET_TEST_MAIN(SettingsViewTest)
#include "SettingsViewTest.moc"
