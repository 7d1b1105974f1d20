// SPDX-License-Identifier: MIT
#include "fakes/RecordingBackend.h"
#include "input/CKeyboardListenerMac.h"
#include "support/Thrown.h"

#include <QTest>

/// Takes the library's place in this program: nobody can be reached.
CFMessagePortRef CFMessagePortCreateRemote(CFAllocatorRef, CFStringRef) {
    return nullptr;
}

class RemotePortFailureTest : public QObject {
    Q_OBJECT

private slots:
    void aListenerThatCannotReachItselfThrowsAndReleasesEverything() {
        vexa::RecordingBackend backend;
        for (int attempt = 0; attempt < 2; ++attempt) { // the second finds the port's name free again
            std::promise<CAnyKeyboardKiller> promise;
            auto killer = promise.get_future();
            QCOMPARE(vexa::test::textThrownBy<std::runtime_error>(
                         [&] { const CKeyboardListenerMac listener(std::move(promise)); }),
                     QByteArray("Failed to create killerMessagePort"));
            QVERIFY_EXCEPTION_THROWN(killer.get(), std::future_error);
            QCOMPARE(backend.openSources(), 0);
        }
        QCOMPARE(backend.openedSources(), 2);
    }
};

QTEST_GUILESS_MAIN(RemotePortFailureTest)
#include "RemotePortFailureTest.moc"
