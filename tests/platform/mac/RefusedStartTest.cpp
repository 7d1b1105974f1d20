// SPDX-License-Identifier: MIT
#include "platform/RefusedStart.h"

#include "fakes/mac/Quartz.h"

#include <QTest>

/// Who starts the program in the Finder is shown why it ends.
class RefusedStartTest : public QObject {
    Q_OBJECT

private slots:
    void showsTheWordsInAnAlertThatWaits() {
        const fakes::Quartz quartz;
        vexa::platform::showRefusedStart([] {
            return vexa::platform::RefusalWords{"Missing:", QStringLiteral("输入监听"), "OK"};
        });
        QCOMPARE(quartz.alerts().size(), std::size_t{1});
        const fakes::Alert alert = quartz.alerts().front();
        QCOMPARE(alert.timeout, 0.0);
        QCOMPARE(alert.heading, std::string("Missing:"));
        QCOMPARE(QString::fromStdString(alert.text), QStringLiteral("输入监听"));
        QCOMPARE(alert.button, std::string("OK"));
        QCOMPARE(quartz.objectsAlive(), 0);
    }
};

QTEST_GUILESS_MAIN(RefusedStartTest)
#include "RefusedStartTest.moc"
