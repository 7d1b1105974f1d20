// SPDX-License-Identifier: MIT
#include "app/AbruptExit.h"
#include "app/MainWindow.h"
#include "app/PrivacyGate.h"
#include "app/QuickViews.h"
#include "app/QuitRequest.h"
#include "app/ReadyCapture.h"
#include "app/TerminateHandler.h"
#include "app/TerminationSignals.h"
#include "app/WriteFailures.h"
#include "input/CKeyboardHandler.h"
#include "input/CKeyboardMessage.h"
#include "platform/Activation.h"
#include "platform/GraphicsCard.h"
#include "platform/Screens.h"
#include "platform/Session.h"
#include "settings/ZrToolXmlClass.h"

#include <QApplication>

#include <cstdlib>
#include <exception>

/// Everything lives in here and is destroyed in reverse order: the window must get no more input
/// when it is gone, and the listener thread is joined while there still is an application.
int main(int argc, char *argv[]) {
    vexa::outliveWriteFailures();
    std::set_terminate(vexa::reportUncaughtAndExit);
    if (vexa::platform::forwardActivation())
        return 0;
    vexa::platform::prepareSession();

    // Has to come before the application object. The main window sets it again, which has no effect by then.
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication application(argc, argv);
    vexa::platform::releaseEnvironment();
    vexa::chooseRenderer(vexa::platform::graphicsCardDraws());

    // The panel refuses to close, which must not be taken for a refusal to log out.
    QGuiApplication::setFallbackSessionManagementEnabled(false);
    vexa::QuitRequest quit;
    const vexa::TerminationSignals terminationSignals;
    QObject::connect(&terminationSignals, &vexa::TerminationSignals::arrived, &quit,
                     &vexa::QuitRequest::request);

    vexa::registerKeyboardMessages();
    const vexa::platform::ScreenWatch screens;
    CKeyboardHandler keyboardHandler;
    const vexa::AbruptExit abruptExit;
    // Without the listener the pen has no effect, so the program ends like a start that cannot listen. When
    // it failed because the display is lost, which the listener may notice before the toolkit does, it ends
    // as the toolkit would end it.
    QObject::connect(&keyboardHandler, &CKeyboardHandler::signalKeyboardException, &quit, [&quit] {
        if (vexa::platform::displayIsLost())
            std::exit(EXIT_FAILURE);
        vexa::reportCannotListen();
        quit.fail();
    });
    setupDockClickHandler();
    QApplication::setQuitOnLastWindowClosed(false);
    ZrToolXmlClass::ZrXmlRead();

    vexa::passPrivacyGate(quit);
    if (quit.requested())
        return quit.exitCode();

    MainWindow mainWindow;
    mainWindow.SetKeyboardClass(&keyboardHandler);
    Window1 = &mainWindow;
    mainWindow.show();
    vexa::platform::awaitWithdrawal();
    const vexa::ReadyCapture readyCapture;
    return quit.run();
}
