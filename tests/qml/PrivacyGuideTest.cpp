// SPDX-License-Identifier: MIT
#include "app/PrivacyprivilegesWindow.h"
#include "qml/PanelView.h"
#include "settings/ZrToolXmlClass.h"
#include "support/Table.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QAccessible>
#include <QPushButton>
#include <QQuickWidget>
#include <QSignalSpy>
#include <QTimer>

#include <functional>

using namespace vexa::test;

namespace {

const QPoint confirmButton(386 + 44, 248 + 16);
const QPoint tick(20 + 8, 256 + 8);
const QPoint tickLabel(20 + 26 + 10, 256 + 8);

struct Line {
    QPoint corner;
    int pixels;
    const char *chinese;
    const char *english;
};
const QList<Line> lines{
    {{79, 39},
     0,
     "由于系统隐私要求，请授权以下权限",
     "Due to system privacy requirements, please authorize the following permissions:"},
    {{59, 97}, 10, "辅助功能", "Auxiliary Function;"},
    {{59, 127}, 10, "输入监听", "Input Monitoring;"},
    {{59, 157}, 10, "完全磁盘访问权限", "Full Disk Access;"},
    {{59, 187}, 10, "屏幕录制", "Screen Recording."},
    {{20, 218}, 13, "重新安装需重新授权", "*Re-installation requires re-authorization."},
    {{20 + 26, 256}, 0, "下次不再提示", "Never ask me again"},
};

using Deed = std::function<void(PrivacyprivilegesWindow &)>;

} // namespace

Q_DECLARE_METATYPE(Deed)

/// The guide to the privacy permissions, as its user meets it.
class PrivacyGuideTest : public QObject {
    Q_OBJECT

    using Answers = Table<Deed, int>;
    using Languages = Table<int, bool>; // the stored one, and whether English is shown

private slots:
    void initTestCase() { qml::failOnWarnings(); }
    void init() {
        userfile::startAfresh();
        speak(simplifiedChinese);
    }
    void cleanup() { userfile::clear(); }

    void theAnswerIsWhetherItWasTickedAndIsNotStored_data() {
        Answers::begin();
        QTest::newRow("confirmed") << Deed([](auto &guide) { click(guide, {confirmButton}); }) << 0;
        QTest::newRow("ticked and confirmed") << Deed([](auto &guide) {
            click(guide, {tick, confirmButton});
        }) << 1;
        QTest::newRow("ticked and confirmed by the keyboard") << Deed(tickAndConfirmByKeyboard) << 1;
        QTest::newRow("tick taken back") << Deed([](auto &guide) {
            click(guide, {tickLabel, tick, confirmButton});
        }) << 0;
        QTest::newRow("closed") << Deed([](auto &guide) { guide.close(); }) << 0;
        QTest::newRow("Escape") << Deed([](auto &guide) { press(guide, Qt::Key_Escape); }) << 0;
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            const auto pressIt = [key](auto &guide) {
                press(guide, key);
                press(guide, Qt::Key_Escape);
            };
            QTest::addRow("key %#x is no answer, then Escape", key) << Deed(pressIt) << 0;
        }
    }
    void theAnswerIsWhetherItWasTickedAndIsNotStored() {
        const auto [deed, answer] = Answers::row();
        // Not as a save would put it, so that one of the same values shows too.
        const QByteArray before =
            "<PenSetting><Setting><ShowPrivacyWindow>1</ShowPrivacyWindow></Setting></PenSetting>";
        QVERIFY(userfile::write(before));
        QCOMPARE(run(deed), answer);
        QCOMPARE(userfile::read(), before);
        QCOMPARE(ZrToolXmlClass::ShowPrivacyWindow, 1);
    }

    void clicksInOneGoAreAllHeard() {
        for (int round = 0; round < 30; ++round) {
            QList<QPoint> clicks;
            for (int i = 0; i < 1 + round % 3; ++i)
                clicks += tick;
            clicks += {confirmButton, confirmButton, confirmButton}; // the second and third find it closing
            QCOMPARE(run([&clicks](auto &guide) { click(guide, clicks); }), (1 + round % 3) % 2);
        }
    }

    void unknownMessagesAreIgnored() {
        PrivacyprivilegesWindow guide;
        QSignalSpy finished(&guide, &QDialog::finished);
        for (const int id : {-1, 2, 16, 1000})
            guide.recvQmlMessage(id, 1);
        QCOMPARE(finished.size(), 0);
        guide.recvQmlMessage(1, 7);
        QCOMPARE(finished, QList<QVariantList>({{1}}));
    }

    void elementsStandAtTheirPlaces() {
        PrivacyprivilegesWindow guide;
        QCOMPARE(guide.size(), QSize(494, 300));
        QVERIFY(qml::is(root(guide), "width: 494; height: 300; color: transparent"));
        const std::pair<QPoint, const char *> pictures[] = {
            {{0, 0}, "width: 494; height: 300; source: qrc:/pri_bg@3x.png"},
            {{17, 25}, "width: 54; height: 54; source: qrc:/setting@3x.png"},
            {{20, 86}, "width: 454; height: 122; source: qrc:/pri_frame@3x.png"},
            {{386, 248}, "width: 88; height: 32; source: qrc:/button@3x.png"}};
        for (const auto &[corner, looks] : pictures)
            QVERIFY(qml::is(find(guide, "QQuickImage", corner), looks));
        for (const Line &line : lines) {
            const QString size = line.pixels ? QString("; font.pixelSize: %1").arg(line.pixels) : QString();
            QVERIFY(
                qml::is(find(guide, "PanelText", line.corner), "font.family: Arial; color: white" + size));
        }
        QVERIFY(qml::is(find(guide, "PanelText", {79, 39}), "width: 291; height: 33"));
        QVERIFY(qml::is(find(guide, "QQuickRectangle", {20, 256}), "width: 16; height: 16"));
        QVERIFY(qml::is(find(guide, "PanelText", {386, 248}), "color: #333333"));
    }

    void textsAndNamesSpeakTheStoredLanguage_data() {
        Languages::begin();
        QTest::newRow("Simplified Chinese") << int(simplifiedChinese) << false;
        QTest::newRow("Traditional Chinese has no rows for the guide") << int(traditionalChinese) << false;
        QTest::newRow("English") << int(english) << true;
        QTest::newRow("unknown") << 5 << false;
    }
    void textsAndNamesSpeakTheStoredLanguage() {
        const auto [language, inEnglish] = Languages::row();
        speak(language);
        PrivacyprivilegesWindow guide;
        const QString confirm = inEnglish ? "Confirm" : "确定";
        for (const Line &line : lines)
            QVERIFY(qml::is(find(guide, "PanelText", line.corner),
                            QString("text: ") + (inEnglish ? line.english : line.chinese)));
        QVERIFY(qml::is(find(guide, "PanelText", {386, 248}), "text: " + confirm));
        QCOMPARE(guide.findChild<QPushButton *>("pushButton")->text(), confirm);
        QCOMPARE(guide.findChild<QPushButton *>("pushButton_2")->text(), QString("下次不再显示"));
        // What a screen reader calls the two controls that the keyboard reaches.
        QStringList names;
        for (QQuickItem *item : qml::tree(root(guide))) {
            if (!item->activeFocusOnTab())
                continue;
            const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(item);
            QVERIFY(accessible);
            names.append(accessible->text(QAccessible::Name));
        }
        QCOMPARE(names, QStringList({inEnglish ? "Never ask me again" : "下次不再提示", confirm}));
    }

    void formHasItsPieces() {
        PrivacyprivilegesWindow guide;
        auto *first = guide.findChild<QPushButton *>("pushButton");
        auto *second = guide.findChild<QPushButton *>("pushButton_2");
        const auto *view = guide.findChild<QQuickWidget *>("quickWidget");
        QVERIFY(first != nullptr && second != nullptr && view);
        QCOMPARE(first->geometry(), QRect(60, 220, 130, 51));
        QCOMPARE(second->geometry(), QRect(260, 220, 130, 51));
        QCOMPARE(view->geometry(), QRect(0, 0, 494, 300));
        QCOMPARE(first->text(), QString("确定"));
        QCOMPARE(second->text(), QString("下次不再显示"));
        QCOMPARE(guide.windowTitle(), QString("Form"));
        QCOMPARE(static_cast<int>(guide.windowFlags() & ~Qt::WindowType_Mask), 0x40800);
        QVERIFY(guide.autoFillBackground());
        QCOMPARE(guide.palette().color(QPalette::Window).alpha(), 0);
        QSignalSpy finished(&guide, &QDialog::finished);
        first->click();
        QCOMPARE(finished.takeFirst(), QVariantList{1});
        second->click();
        QCOMPARE(finished.takeFirst(), QVariantList{0});
    }

    void leavesNoCatalogueBehind() {
        { PrivacyprivilegesWindow().changeLanguage(english); }
        QCOMPARE(QCoreApplication::translate("PrivacyWindow", "确定"), QString("确定"));
    }

    void nothingIsClippedInEnglish() {
        speak(english);
        PrivacyprivilegesWindow guide;
        guide.show();
        QVERIFY(QTest::qWaitForWindowExposed(&guide));
        for (const QQuickItem *item : qml::tree(root(guide))) {
            if (!qml::isOfType(item, "QQuickText"))
                continue;
            const QByteArray words = item->property("text").toString().toUtf8();
            QVERIFY2(!item->property("truncated").toBool(), words.constData());
            QVERIFY2(item->property("contentWidth").toReal() <= item->width(), words.constData());
            QVERIFY2(item->property("contentHeight").toReal() <= item->height() + 1, words.constData());
        }
    }

    void everyActionOfAScreenReaderTurnsTheTick() {
        PrivacyprivilegesWindow guide;
        QAccessibleInterface *tickBox = tickBoxOf(guide);
        QVERIFY(tickBox != nullptr);
        QStringList actions = tickBox->actionInterface()->actionNames();
        actions.removeAll(QAccessibleActionInterface::setFocusAction());
        QVERIFY(!actions.isEmpty());
        for (const QString &action : actions) {
            const bool before = tickBox->state().checked;
            tickBox->actionInterface()->doAction(action);
            QVERIFY2(tickBox->state().checked != before, qPrintable(action));
        }
    }

private:
    /// As a screen reader finds it, or null.
    static QAccessibleInterface *tickBoxOf(PrivacyprivilegesWindow &guide) {
        for (QQuickItem *item : qml::tree(root(guide))) {
            QAccessibleInterface *candidate = QAccessible::queryAccessibleInterface(item);
            if (candidate != nullptr && candidate->role() == QAccessible::CheckBox)
                return candidate;
        }
        return nullptr;
    }
    /// Runs the guide as the start does, and does something to it meanwhile.
    static int run(const Deed &deed) {
        PrivacyprivilegesWindow guide;
        QTimer::singleShot(0, &guide, [&] { deed(guide); });
        QTimer::singleShot(30000, &guide, [&guide] { guide.done(-1); });
        return guide.exec();
    }
    /// As a user's key, which comes to the active window.
    static void press(PrivacyprivilegesWindow &guide, Qt::Key key) {
        guide.activateWindow();
        QTRY_VERIFY(guide.isActiveWindow());
        QTest::keyClick(guide.windowHandle(), key);
    }
    static void click(PrivacyprivilegesWindow &guide, const QList<QPoint> &places) {
        for (const QPoint &place : places)
            QTest::mouseClick(guide.windowHandle(), Qt::LeftButton, {}, place);
    }
    static void tickAndConfirmByKeyboard(PrivacyprivilegesWindow &guide) {
        QTRY_VERIFY(guide.isActiveWindow());
        auto *view = guide.findChild<QQuickWidget *>(QString("quickWidget"));
        view->setFocus();
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Space})
            QTest::keyClick(view, key);
    }
    static void speak(int language) {
        ZrToolXmlClass::Language = language;
        ZrToolXmlClass::ZrXmlWrite();
    }
    static QQuickItem *root(const PrivacyprivilegesWindow &guide) {
        return guide.findChild<QQuickWidget *>(QString("quickWidget"))->rootObject();
    }
    static QQuickItem *find(const PrivacyprivilegesWindow &guide, const QString &type,
                            const QPointF &corner) {
        for (QQuickItem *item : qml::tree(root(guide)))
            if (qml::isOfType(item, type) && qml::corner(item) == corner)
                return item;
        return nullptr;
    }
};

VEXA_WIDGET_TEST_MAIN(PrivacyGuideTest)
#include "PrivacyGuideTest.moc"
