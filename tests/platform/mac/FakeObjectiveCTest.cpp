// SPDX-License-Identifier: MIT
#include "fakes/mac/ObjectiveCRuntime.h"

#include <QTest>

#include <csignal>
#include <functional>
#include <objc/message.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

long one(id, SEL) {
    return 1;
}
long two(id, SEL) {
    return 2;
}
long sum(id, SEL, long a, long b) {
    return a + b;
}

// Whether the process that does this is ended by abort().
bool aborts(const std::function<void()> &action) {
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        std::signal(SIGABRT, SIG_DFL);
        action();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}

template<typename Result, typename... Arguments>
Result send(id receiver, const char *selector, Arguments... arguments) {
    return ((Result(*)(id, SEL, Arguments...))objc_msgSend)(receiver, sel_registerName(selector),
                                                            arguments...);
}

} // namespace

/// The fake runtime keeps the real one's rules, so that what passes on it may be believed.
class FakeObjectiveCTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_parent = fakes::defineClass("Parent");
        m_child = fakes::defineClass("Child", m_parent);
        fakes::method(m_parent, "number", "q@:", one);
        m_object.isa = m_child;
    }
    void cleanup() { fakes::forgetClasses(); }

    void findsClassesByName() {
        QCOMPARE(objc_getClass("Child"), m_child);
        QCOMPARE(objc_getClass("Stranger"), Class(nullptr));
        QCOMPARE(class_getSuperclass(m_child), m_parent);
        QCOMPARE(class_getSuperclass(nullptr), Class(nullptr));
    }

    void givesASelectorOneAddress() {
        QCOMPARE(sel_registerName("number"), sel_registerName("number"));
        QVERIFY(sel_registerName("number") != sel_registerName("numbers"));
    }

    void answersZeroForNil() {
        QCOMPARE(send<long>(nullptr, "number"), 0L);
        QCOMPARE(send<id>(nullptr, "anything", 1L), id(nullptr));
        QCOMPARE(send<CGSize>(nullptr, "size").width, 0.0);
        send<void>(nullptr, "drain");
    }

    void passesArgumentsAndInheritsMethods() {
        fakes::method(m_parent, "sum:and:", "q@:qq", sum);
        QCOMPARE(send<long>(&m_object, "number"), 1L);
        QCOMPARE(send<long>(&m_object, "sum:and:", 20L, 3L), 23L);
    }

    void inheritsClassMethods() {
        fakes::classMethod(m_parent, "count", "q@:", two);
        QCOMPARE(send<long>(m_child, "count"), 2L);
    }

    void replacesAnOwnMethodAndAnswersTheOldOne() {
        fakes::method(m_child, "number", "q@:", one);
        const IMP previous = class_replaceMethod(m_child, sel_registerName("number"), (IMP)two, "q@:");
        QVERIFY(previous == (IMP)one);
        QCOMPARE(send<long>(&m_object, "number"), 2L);
    }

    void replacingAnInheritedMethodWorksButAnswersNull() {
        QVERIFY(!class_replaceMethod(m_child, sel_registerName("number"), (IMP)two, "q@:"));
        QCOMPARE(send<long>(&m_object, "number"), 2L);
        objc_object parent;
        parent.isa = m_parent;
        QCOMPARE(send<long>(&parent, "number"), 1L);
    }

    void addsToOverrideButNotToReplace() {
        QVERIFY(class_addMethod(m_child, sel_registerName("number"), (IMP)two, "q@:"));
        QVERIFY(!class_addMethod(m_child, sel_registerName("number"), (IMP)one, "q@:"));
        QCOMPARE(send<long>(&m_object, "number"), 2L);
    }

    void refusesWhenTold() {
        fakes::refuseMethodChanges();
        const SEL number = sel_registerName("number");
        QVERIFY(!class_replaceMethod(m_parent, number, (IMP)two, "q@:"));
        QVERIFY(!class_addMethod(m_child, number, (IMP)two, "q@:"));
        QCOMPARE(send<long>(&m_object, "number"), 1L);
    }

    void looksUpInheritedMethodsToo() {
        const SEL number = sel_registerName("number");
        QCOMPARE(class_getInstanceMethod(m_child, number), class_getInstanceMethod(m_parent, number));
        QCOMPARE(class_getInstanceMethod(m_child, sel_registerName("other")), Method(nullptr));
    }

    void endsTheProcessOnAWrongArgumentType() {
        fakes::method(m_parent, "sum:and:", "q@:qq", sum);
        QVERIFY(!aborts([this] { send<long>(&m_object, "sum:and:", 1L, 2L); }));
        QVERIFY(aborts([this] { send<long>(&m_object, "sum:and:", 1, 2L); }));
        QVERIFY(aborts([this] { send<long>(&m_object, "sum:and:", 1L); }));
        QVERIFY(aborts([this] { send<void>(&m_object, "sum:and:", 1L, 2L); }));
    }

    void endsTheProcessOnAnUnknownSelector() {
        QVERIFY(aborts([this] { send<long>(&m_object, "unheardOf"); }));
        QVERIFY(aborts([this] { send<long>(m_child, "number"); })); // a method of instances
    }

    void endsTheProcessOnARegistrationThatIsNotTrue() {
        QVERIFY(aborts([this] { fakes::method(m_child, "sum:and:", "q@:qi", sum); }));
    }

private:
    Class m_parent = nullptr;
    Class m_child = nullptr;
    objc_object m_object;
};

QTEST_GUILESS_MAIN(FakeObjectiveCTest)
#include "FakeObjectiveCTest.moc"
