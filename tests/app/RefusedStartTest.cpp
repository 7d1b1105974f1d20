// SPDX-License-Identifier: MIT
#include "app/RefusedStart.h"

#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"
#include "support/ViewNumbers.h"

#include <QFile>

using namespace vexa::test;

/// The words of the guide, which a refused start does not reach.
class RefusedStartTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { QFile::remove(QCoreApplication::applicationDirPath() + "/VexaPenSetting.xml"); }

    void saysInTheUsersLanguageWhatIsMissing_data() {
        QTest::addColumn<int>("language");
        QTest::addColumn<QStringList>("expected");
        const QStringList source{"由于系统隐私要求，请授权以下权限", "输入监听", "确定"};
        QTest::newRow("Simplified Chinese") << int(simplifiedChinese) << source;
        QTest::newRow("Traditional Chinese, which has no guide of its own")
            << int(traditionalChinese) << source;
        QTest::newRow("English") << int(english)
                                 << QStringList{"Due to system privacy requirements, please authorize the "
                                                "following permissions:",
                                                "Input Monitoring;", "Confirm"};
    }

    void saysInTheUsersLanguageWhatIsMissing() {
        QFETCH(int, language);
        ZrToolXmlClass::ZrXmlRead();
        ZrToolXmlClass::Language = language;
        ZrToolXmlClass::ZrXmlWrite();
        ZrToolXmlClass::Language = -1;
        const vexa::platform::RefusalWords words = vexa::refusalWords();
        QTEST((QStringList{words.heading, words.permission, words.button}), "expected");
    }
};

VEXA_WIDGET_TEST_MAIN(RefusedStartTest)
#include "RefusedStartTest.moc"
