// SPDX-License-Identifier: MIT
#include "app/PrivacyGate.h"

#include "support/UserFile.h"

#include <QTest>

using namespace vexa::test;

/// The decisions around the privacy guide; the guide itself and the system's settings are only written down.
class PrivacyGateTest : public QObject {
    Q_OBJECT

private slots:
    void init() { userfile::startAfresh(); }

    void cleanup() { userfile::clear(); }

    void withTheSettingAtZeroNothingIsShownOrOpened() {
        ZrToolXmlClass::ShowPrivacyWindow = 0;
        QCOMPARE(passWithAnswer(1), QStringList());
        QVERIFY(!QFileInfo::exists(userfile::path()));
    }

    void aRejectedGuideLeavesTheSettingAndTheFile() {
        const QByteArray file =
            "<PenSetting><Setting><ShowPrivacyWindow>1</ShowPrivacyWindow></Setting></PenSetting>";
        for (const int answer : {0, -1, 2}) {
            QVERIFY(userfile::write(file));
            ZrToolXmlClass::ZrXmlRead();
            QCOMPARE(passWithAnswer(answer).size(), 2);
            QCOMPARE(ZrToolXmlClass::ShowPrivacyWindow, 1);
            QCOMPARE(userfile::read(), file);
        }
    }

    void aConfirmedGuideIsSavedAsSeen() {
        passWithAnswer(1);
        QCOMPARE(ZrToolXmlClass::ShowPrivacyWindow, 0);
        QVERIFY(userfile::read().contains("<ShowPrivacyWindow>0</ShowPrivacyWindow>"));

        userfile::forgetSettings();
        ZrToolXmlClass::ZrXmlRead();
        QCOMPARE(passWithAnswer(1), QStringList());
    }

    void anyNonZeroSettingShowsTheGuide() {
        for (const int setting : {1, -1, 77}) {
            ZrToolXmlClass::ShowPrivacyWindow = setting;
            QCOMPARE(passWithAnswer(0).size(), 2);
            QCOMPARE(ZrToolXmlClass::ShowPrivacyWindow, setting);
        }
    }

    void thePermissionIsOpenedAfterTheGuideAndBeforeTheSave() {
        const QStringList expected{QStringLiteral("guide"), QStringLiteral("permission, setting 1, file 0")};
        QCOMPARE(passWithAnswer(1), expected);
    }

private:
    /// What happened, in order.
    QStringList passWithAnswer(int answer) {
        QStringList steps;
        vexa::passPrivacyGate({[&] {
                                   steps << QStringLiteral("guide");
                                   return answer;
                               },
                               [&] {
                                   steps << QStringLiteral("permission, setting %1, file %2")
                                                .arg(ZrToolXmlClass::ShowPrivacyWindow)
                                                .arg(QFileInfo::exists(userfile::path()));
                               }});
        return steps;
    }
};

QTEST_GUILESS_MAIN(PrivacyGateTest)
#include "PrivacyGateTest.moc"
