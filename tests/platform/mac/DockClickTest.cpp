// SPDX-License-Identifier: MIT
#include "platform/mac/DockClick.h"

#include "fakes/mac/AppKit.h"
#include "platform/Activation.h"
#include "support/TestMain.h"

#include <QWidget>

#include <objc/message.h>
#include <optional>

namespace {

constexpr const char *reopen = "applicationShouldHandleReopen:hasVisibleWindows:";
constexpr const char *reopenEncoding = "B@:@B";

BOOL toolkitsOwn(id, SEL, id, BOOL) {
    return true;
}

QStringList &warnings() {
    static QStringList logged;
    return logged;
}

void keepWarning(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (type == QtWarningMsg && qstrcmp(context.category, "default") == 0)
        warnings().append(text);
}

// As the system calls the delegate on a click: it knows the method's arguments, whatever encoding was
// registered.
bool clickDock(Class delegateClass) {
    const Method method = class_getInstanceMethod(delegateClass, sel_registerName(reopen));
    objc_object delegate;
    delegate.isa = delegateClass;
    const auto implementation = (bool (*)(id, SEL, ...))method->implementation;
    return implementation(&delegate, sel_registerName(reopen), id{}, 0);
}

} // namespace

/// The program's answer to a click on its dock icon, on every kind of delegate that may be there.
class DockClickTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_kit.emplace();
        m_window.hide();
        Window1 = &m_window;
        m_handler = (IMP)dockClickHandler;
        warnings().clear();
        m_previousHandler = qInstallMessageHandler(keepWarning);
    }
    void cleanup() {
        qInstallMessageHandler(m_previousHandler);
        QCOMPARE(m_kit->strays(), 0);
        m_kit.reset();
        Window1 = nullptr;
    }

    void replacesTheDelegatesOwnMethod() {
        fakes::method(m_kit->delegateClass, reopen, reopenEncoding, toolkitsOwn);
        setupDockClickHandler();
        QVERIFY(ownMethod(m_kit->delegateClass)->implementation == m_handler);
        QCOMPARE(ownMethod(m_kit->delegateClass)->offeredEncoding, std::string("B@:"));
        QCOMPARE(warnings(), QStringList());
        QVERIFY(!clickDock(m_kit->delegateClass));
        QVERIFY(m_window.isVisible());
    }

    void addsTheMethodToADelegateWithout() {
        setupDockClickHandler();
        QVERIFY(ownMethod(m_kit->delegateClass)->implementation == m_handler);
        QCOMPARE(warnings(), QStringList());
        QCOMPARE(ownMethod(m_kit->delegateClass)->encoding, std::string("B@:"));
        QVERIFY(!clickDock(m_kit->delegateClass));
        QVERIFY(m_window.isVisible());
    }

    // Neither the parent's method may change nor a warning be logged that something failed: nothing has.
    void overridesAnInheritedMethod() {
        const Class parent = class_getSuperclass(m_kit->delegateClass);
        fakes::method(parent, reopen, reopenEncoding, toolkitsOwn);
        setupDockClickHandler();
        QVERIFY(ownMethod(m_kit->delegateClass)->implementation == m_handler);
        QCOMPARE(warnings(), QStringList());
        QVERIFY(ownMethod(parent)->implementation == (IMP)toolkitsOwn);
        QVERIFY(!clickDock(m_kit->delegateClass));
        QVERIFY(clickDock(parent));
    }

    void warnsWhenTheMethodCannotBeReplaced() {
        fakes::method(m_kit->delegateClass, reopen, reopenEncoding, toolkitsOwn);
        fakes::refuseMethodChanges();
        setupDockClickHandler();
        QCOMPARE(warnings(), QStringList("Failed to replace method for dock click handler"));
    }

    void warnsWhenTheMethodCannotBeAdded() {
        fakes::refuseMethodChanges();
        setupDockClickHandler();
        QCOMPARE(warnings(), QStringList("Failed to register dock click handler"));
    }

    void doesNothingWithoutAnApplication() {
        m_kit->hasApplication = false;
        setupDockClickHandler();
        QVERIFY(!class_getInstanceMethod(m_kit->delegateClass, sel_registerName(reopen)));
        QCOMPARE(warnings(), QStringList());
    }

    void doesNothingWithoutADelegate() {
        m_kit->hasDelegate = false;
        setupDockClickHandler();
        QVERIFY(!class_getInstanceMethod(m_kit->delegateClass, sel_registerName(reopen)));
        QCOMPARE(warnings(), QStringList());
    }

    void showsTheWindowAgainAfterItWasClosed() {
        setupDockClickHandler();
        m_window.show();
        m_window.close();
        QVERIFY(!m_window.isVisible());
        QVERIFY(!clickDock(m_kit->delegateClass));
        QVERIFY(m_window.isVisible());
    }

    // The panel withdraws by itself after the start; who clicked meanwhile gets it back.
    void makesUpForAClickBeforeThereIsAWindow() {
        setupDockClickHandler();
        Window1 = nullptr;
        QVERIFY(!clickDock(m_kit->delegateClass));
        QVERIFY(!m_window.isVisible());

        Window1 = &m_window;
        m_window.show();
        vexa::platform::awaitWithdrawal();
        m_window.hide();
        QTRY_VERIFY(m_window.isVisible());
        m_window.hide();
        QCoreApplication::processEvents();
        QVERIFY(!m_window.isVisible());
    }

    void leavesSecondStartsToTheSystem() { QVERIFY(!vexa::platform::forwardActivation()); }

private:
    // The class's own method, none that it inherits.
    static objc_method *ownMethod(Class type) {
        const auto found = type->methods.find(reopen);
        return found == type->methods.end() ? nullptr : &found->second;
    }

    std::optional<fakes::AppKit> m_kit;
    QWidget m_window;
    IMP m_handler = nullptr;
    QtMessageHandler m_previousHandler = nullptr;
};

VEXA_WIDGET_TEST_MAIN(DockClickTest)
#include "DockClickTest.moc"
