// SPDX-License-Identifier: MIT
#include "e2e/Bus.h"
#include "e2e/Desktop.h"
#include "e2e/MessageMaker.h"
#include "e2e/Program.h"
#include "support/Patience.h"
#include "support/RealInput.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>

using namespace vexa::test;

namespace {

/// How long to make up messages.
int seconds = 4;

} // namespace

/// The program on a bus where somebody sends it whatever a bus carries.
class BusFuzzTest : public QObject {
    Q_OBJECT

private slots:
    void madeUpMessagesAreOutlived() {
        e2e::Bus bus;
        QVERIFY(bus.start());
        e2e::Program program({{"Key4P", 2}});
        program.setEnvironment(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.address());
        QVERIFY(e2e::startAndSettle(program));
        QTRY_VERIFY_WITH_TIMEOUT(bus.knowsTheProgram(), patience);

        e2e::MessageMaker maker(bus.address(), program.pid());
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < seconds * 1000LL) {
            constexpr int messages = 200;
            for (int message = 0; message < messages; ++message)
                maker.sendOne();
            QVERIFY2(maker.isAnswered(patience), qPrintable(maker.report()));
        }
        qInfo("%s", qPrintable(maker.report()));

        const auto toolIsOpen = [&] { return e2e::visibleWindowOfSize(program.pid(), {1920, 1080}).id != 0; };
        typeChord(PenKey::G);
        QTRY_VERIFY_WITH_TIMEOUT(toolIsOpen(), patience);
        typeChord(PenKey::S);
        QTRY_VERIFY_WITH_TIMEOUT(!toolIsOpen(), patience);
        program.signal(SIGTERM);
        const auto end = program.waitForEnd();
        QCOMPARE(end.how, QByteArray("ended with 0"));
        QCOMPARE(end.errors, QByteArray());
    }
};

/// A number of seconds may come first.
int main(int argc, char *argv[]) {
    qputenv("QT_FONT_DPI", "72");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1 && arguments[1].toInt() > 0)
        seconds = arguments.takeAt(1).toInt();
    BusFuzzTest test;
    return QTest::qExec(&test, arguments);
}
#include "BusFuzzTest.moc"
