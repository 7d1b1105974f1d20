// SPDX-License-Identifier: MIT
#include "input/CKeyboardHandler.h"
#include "input/CKeyboardListenerMac.h"
#include "platform/quartz/VirtualKeys.h"

#include <QTest>

Q_DECLARE_METATYPE(const QMetaObject *)

/// The order of signals and slots is part of the interface.
class MetaObjectTest : public QObject {
    Q_OBJECT

private slots:
    void order_data() {
        QTest::addColumn<const QMetaObject *>("meta");
        QTest::addColumn<QByteArrayList>("expected");
        QTest::newRow("handler") << &CKeyboardHandler::staticMetaObject
                                 << QByteArrayList{"signalKeyboardException(CKeyboardExceptionMessage)",
                                                   "MysignalKeyboardMessage(int,int)",
                                                   "MysignalMouseMessage(int,int,int)",
                                                   "slotOnKeyboardException(CKeyboardExceptionMessage)",
                                                   "slotOnKeyboardMessage(CKeyboardMessage)",
                                                   "slotOnMouseMessage(CKeyboardMessage)"};
        QTest::newRow("listener") << &CKeyboardListenerMac::staticMetaObject
                                  << QByteArrayList{"signalKeyboardMessage(CKeyboardMessage)",
                                                    "signalMouseMessage(CKeyboardMessage)",
                                                    "MysignalKeyboardMessage(int)"};
    }

    void order() {
        QFETCH(const QMetaObject *, meta);
        QCOMPARE(meta->superClass(), &QObject::staticMetaObject);
        QByteArrayList methods;
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
            methods.append(meta->method(i).methodSignature());
        QTEST(methods, "expected");
    }

    void theStopObjectHasTwoVirtualOperations() {
        struct Counting : CAnyKeyboardKiller::Killer {
            explicit Counting(QByteArray &log_) : log(log_) {}
            ~Counting() override { log += "destroyed "; }
            void stopListening() const override { log += "stopped "; }
            QByteArray &log;
        };
        QByteArray log;
        {
            CAnyKeyboardKiller first(std::make_unique<Counting>(log));
            CAnyKeyboardKiller second(std::move(first));
            QVERIFY(!first);
            QVERIFY(second);
            second.stopListening();
            QCOMPARE(log, QByteArray("stopped "));
        }
        QCOMPARE(log, QByteArray("stopped destroyed "));
        QVERIFY(!std::is_copy_constructible_v<CAnyKeyboardKiller>);
    }

    void messagesHoldWhatTheyAreGiven() {
        const CKeyboardMessage text("some text");
        QCOMPARE(text.text, QByteArray("some text"));
        const CKeyboardMessage key(kVK_ANSI_G, 1);
        QVERIFY(key.text.isEmpty());
        QCOMPARE(key.keyCode, int(kVK_ANSI_G));
        QCOMPARE(key.keyState, 1);
        const CKeyboardMessage mouse(kCGEventMouseMoved, -3, 7);
        QVERIFY(mouse.text.isEmpty());
        QCOMPARE(mouse.mouseEvent, 5);
        QCOMPARE(mouse.mouseX, -3);
        QCOMPARE(mouse.mouseY, 7);
        QCOMPARE(CKeyboardExceptionMessage("failed").text, QByteArray("failed"));
    }
};

QTEST_GUILESS_MAIN(MetaObjectTest)
#include "MetaObjectTest.moc"
