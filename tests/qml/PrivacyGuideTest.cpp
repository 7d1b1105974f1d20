// SPDX-License-Identifier: MIT
#include "app/PrivacyprivilegesWindow.h"
#include "qml/PanelView.h"
#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QAccessible>
#include <QPushButton>
#include <QQuickWidget>
#include <QTimer>

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

} // namespace

/// The guide to the privacy permissions, as its user meets it.
class PrivacyGuideTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { qml::failOnWarnings(); }
    void init() {
        userfile::clear();
        userfile::forgetSettings();
        ZrToolXmlClass::Language = 0;
        ZrToolXmlClass::ZrXmlWrite();
    }
    void cleanup() { userfile::clear(); }

    void confirmingWithoutTheTickGives0() {
        QCOMPARE(run([](PrivacyprivilegesWindow &guide) { click(guide, confirmButton); }), 0);
        userfile::forgetSettings();
        ZrToolXmlClass::ZrXmlRead();
        QCOMPARE(ZrToolXmlClass::ShowPrivacyWindow, 1);
    }

    void confirmingWithTheTickGives1() {
        QCOMPARE(run([](PrivacyprivilegesWindow &guide) {
                     click(guide, tick);
                     click(guide, confirmButton);
                 }),
                 1);
    }

    void tickCanBeTakenBack() {
        QCOMPARE(run([](PrivacyprivilegesWindow &guide) {
                     click(guide, tickLabel);
                     click(guide, tick);
                     click(guide, confirmButton);
                 }),
                 0);
    }

    void clicksInOneGoAreAllHeard() {
        for (int round = 0; round < 30; ++round) {
            const int ticks = 1 + round % 3;
            QCOMPARE(run([ticks](PrivacyprivilegesWindow &guide) {
                         for (int i = 0; i < ticks; ++i)
                             click(guide, tick);
                         for (int i = 0; i < 3; ++i)
                             click(guide, confirmButton); // the second and third find it closing
                     }),
                     ticks % 2);
        }
    }

    void escapeGives0() {
        QCOMPARE(run([](PrivacyprivilegesWindow &guide) { press(guide, Qt::Key_Escape); }), 0);
    }

    void returnIsNoAnswer() {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
            QCOMPARE(run([key](PrivacyprivilegesWindow &guide) {
                         press(guide, key);
                         press(guide, Qt::Key_Escape);
                     }),
                     0);
    }

    void closingGives0() {
        QCOMPARE(run([](PrivacyprivilegesWindow &guide) { guide.close(); }), 0);
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

    void storesNothingItself() {
        // Not as a save would put it, so that one of the same values shows too.
        const QByteArray before =
            "<PenSetting><Setting><ShowPrivacyWindow>1</ShowPrivacyWindow></Setting></PenSetting>";
        QVERIFY(userfile::write(before));
        run([](PrivacyprivilegesWindow &guide) {
            click(guide, tick);
            click(guide, confirmButton);
        });
        run([](PrivacyprivilegesWindow &guide) { click(guide, confirmButton); });
        run([](PrivacyprivilegesWindow &guide) { press(guide, Qt::Key_Escape); });
        QCOMPARE(userfile::read(), before);
        QCOMPARE(ZrToolXmlClass::ShowPrivacyWindow, 1);
    }

    void elementsStandAtTheirPlaces() {
        PrivacyprivilegesWindow guide;
        QCOMPARE(guide.size(), QSize(494, 300));
        QQuickItem *view = root(guide);
        QCOMPARE(view->size(), QSizeF(494, 300));
        QCOMPARE(view->property("color").value<QColor>().alpha(), 0);
        struct Picture {
            QPoint corner;
            QSize size;
            const char *source;
        };
        const QList<Picture> pictures{{{0, 0}, {494, 300}, "qrc:/pri_bg@3x.png"},
                                      {{17, 25}, {54, 54}, "qrc:/setting@3x.png"},
                                      {{20, 86}, {454, 122}, "qrc:/pri_frame@3x.png"},
                                      {{386, 248}, {88, 32}, "qrc:/button@3x.png"}};
        for (const Picture &picture : pictures) {
            const QQuickItem *item = find(view, QStringLiteral("QQuickImage"), picture.corner);
            QVERIFY2(item != nullptr, picture.source);
            QCOMPARE(item->size(), QSizeF(picture.size));
            QCOMPARE(item->property("source").toString(), QString::fromLatin1(picture.source));
        }
        for (const Line &line : lines) {
            const QQuickItem *item = find(view, QStringLiteral("PanelText"), line.corner);
            QVERIFY2(item != nullptr, line.english);
            const auto font = item->property("font").value<QFont>();
            QCOMPARE(font.family(), QStringLiteral("Arial"));
            QCOMPARE(item->property("color").value<QColor>(), QColor(Qt::white));
            if (line.pixels != 0)
                QCOMPARE(font.pixelSize(), line.pixels);
        }
        QCOMPARE(find(view, QStringLiteral("PanelText"), {79, 39})->size(), QSizeF(291, 33));
        const QQuickItem *box = find(view, QStringLiteral("QQuickRectangle"), {20, 256});
        QVERIFY(box != nullptr);
        QCOMPARE(box->size(), QSizeF(16, 16));
        const QQuickItem *confirm = find(view, QStringLiteral("PanelText"), {386, 248});
        QVERIFY(confirm != nullptr);
        QCOMPARE(confirm->property("color").value<QColor>(), QColor(0x33, 0x33, 0x33));
    }

    void textsSpeakTheStoredLanguage_data() {
        QTest::addColumn<int>("language");
        QTest::addColumn<bool>("english");
        QTest::newRow("Simplified Chinese") << 0 << false;
        QTest::newRow("Traditional Chinese has no rows for the guide") << 1 << false;
        QTest::newRow("English") << 2 << true;
        QTest::newRow("unknown") << 5 << false;
    }
    void textsSpeakTheStoredLanguage() {
        QFETCH(int, language);
        QFETCH(bool, english);
        ZrToolXmlClass::Language = language;
        ZrToolXmlClass::ZrXmlWrite();
        PrivacyprivilegesWindow guide;
        for (const Line &line : lines) {
            const QQuickItem *item = find(root(guide), QStringLiteral("PanelText"), line.corner);
            QVERIFY2(item != nullptr, line.english);
            QCOMPARE(item->property("text").toString(),
                     QString::fromUtf8(english ? line.english : line.chinese));
        }
        const QString confirm = english ? QStringLiteral("Confirm") : QStringLiteral("确定");
        QCOMPARE(find(root(guide), QStringLiteral("PanelText"), {386, 248})->property("text").toString(),
                 confirm);
        QCOMPARE(guide.findChild<QPushButton *>(QStringLiteral("pushButton"))->text(), confirm);
        QCOMPARE(guide.findChild<QPushButton *>(QStringLiteral("pushButton_2"))->text(),
                 QStringLiteral("下次不再显示"));
    }

    void formHasItsPieces() {
        PrivacyprivilegesWindow guide;
        const auto *first = guide.findChild<QPushButton *>(QStringLiteral("pushButton"));
        const auto *second = guide.findChild<QPushButton *>(QStringLiteral("pushButton_2"));
        const auto *view = guide.findChild<QQuickWidget *>(QStringLiteral("quickWidget"));
        QVERIFY(first != nullptr && second != nullptr && view != nullptr);
        QCOMPARE(first->geometry(), QRect(60, 220, 130, 51));
        QCOMPARE(second->geometry(), QRect(260, 220, 130, 51));
        QCOMPARE(view->geometry(), QRect(0, 0, 494, 300));
        QCOMPARE(first->text(), QStringLiteral("确定"));
        QCOMPARE(second->text(), QStringLiteral("下次不再显示"));
        QCOMPARE(guide.windowTitle(), QStringLiteral("Form"));
        QCOMPARE(static_cast<int>(guide.windowFlags() & ~Qt::WindowType_Mask), 0x40800);
        QVERIFY(guide.autoFillBackground());
        QCOMPARE(guide.palette().color(QPalette::Window).alpha(), 0);
        QSignalSpy finished(&guide, &QDialog::finished);
        const_cast<QPushButton *>(first)->click();
        QCOMPARE(finished.takeFirst(), QVariantList{1});
        const_cast<QPushButton *>(second)->click();
        QCOMPARE(finished.takeFirst(), QVariantList{0});
    }

    void leavesNoCatalogueBehind() {
        { PrivacyprivilegesWindow().changeLanguage(2); }
        QCOMPARE(QCoreApplication::translate("PrivacyWindow", "确定"), QStringLiteral("确定"));
    }

    void nothingIsClippedInEnglish() {
        ZrToolXmlClass::Language = 2;
        ZrToolXmlClass::ZrXmlWrite();
        PrivacyprivilegesWindow guide;
        guide.show();
        QVERIFY(QTest::qWaitForWindowExposed(&guide));
        for (const QQuickItem *item : qml::tree(root(guide))) {
            if (!qml::isOfType(item, QStringLiteral("QQuickText")))
                continue;
            const QByteArray words = item->property("text").toString().toUtf8();
            QVERIFY2(!item->property("truncated").toBool(), words.constData());
            QVERIFY2(item->property("contentWidth").toReal() <= item->width(), words.constData());
            QVERIFY2(item->property("contentHeight").toReal() <= item->height() + 1, words.constData());
        }
    }

    void controlsHaveNamesInTheStoredLanguage_data() { textsSpeakTheStoredLanguage_data(); }
    void controlsHaveNamesInTheStoredLanguage() {
        QFETCH(int, language);
        QFETCH(bool, english);
        ZrToolXmlClass::Language = language;
        ZrToolXmlClass::ZrXmlWrite();
        PrivacyprivilegesWindow guide;
        QStringList names;
        for (QQuickItem *item : qml::tree(root(guide))) {
            if (!item->activeFocusOnTab())
                continue;
            const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(item);
            QVERIFY(accessible != nullptr);
            names.append(accessible->text(QAccessible::Name));
        }
        QCOMPARE(names, english ? QStringList({"Never ask me again", "Confirm"})
                                : QStringList({"下次不再提示", "确定"}));
    }

    void keyboardTicksAndConfirms() {
        QCOMPARE(run([](PrivacyprivilegesWindow &guide) {
                     QTRY_VERIFY(guide.isActiveWindow());
                     auto *view = guide.findChild<QQuickWidget *>(QStringLiteral("quickWidget"));
                     view->setFocus();
                     QTest::keyClick(view, Qt::Key_Tab);
                     QTest::keyClick(view, Qt::Key_Space);
                     QTest::keyClick(view, Qt::Key_Tab);
                     QTest::keyClick(view, Qt::Key_Space);
                 }),
                 1);
    }

private:
    /// Runs the guide as the start does, and does something to it meanwhile.
    template<typename Deed> int run(Deed deed) {
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
    static void click(PrivacyprivilegesWindow &guide, const QPoint &place) {
        QTest::mouseClick(guide.windowHandle(), Qt::LeftButton, {}, place);
    }
    static QQuickItem *root(const PrivacyprivilegesWindow &guide) {
        return guide.findChild<QQuickWidget *>(QStringLiteral("quickWidget"))->rootObject();
    }
    static QQuickItem *find(QQuickItem *top, const QString &type, const QPointF &corner) {
        for (QQuickItem *item : qml::tree(top))
            if (qml::isOfType(item, type) && qml::corner(item) == corner)
                return item;
        return nullptr;
    }
};

VEXA_WIDGET_TEST_MAIN(PrivacyGuideTest)
#include "PrivacyGuideTest.moc"
