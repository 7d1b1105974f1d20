// SPDX-License-Identifier: MIT
#pragma once

#include "input/CAnyKeyboardKiller.h"
#include "input/CEventTap.h"
#include "input/CKeyboardMessage.h"
#include "input/CMessagePort.h"
#include "input/CRunLoopSource.h"

#include <QObject>

#include <future>

/// Listens to the whole session's keys and pointer, and swallows nothing. Built, run and destroyed on the
/// listener thread; from elsewhere only its stop handle is used, and the static posting functions by the GUI
/// thread.
class CKeyboardListenerMac : public QObject {
    Q_OBJECT

public:
    /// The name of the port through which a listener is stopped, so there is one listener at a time.
    static const CFStringRef PORT_NAME;

    /// Stops a listener by a request to its port.
    class CKiller : public CAnyKeyboardKiller::Killer {
    public:
        explicit CKiller(CMessagePort port) : m_port(std::move(port)) {}
        void stopListening() const override;

    private:
        CMessagePort m_port;
    };

    /// Installs the tap and the stop port on the calling thread's run loop, then fulfils the promise with the
    /// stop handle. Throws std::runtime_error, and leaves the promise unfulfilled, when one of them cannot be
    /// had.
    explicit CKeyboardListenerMac(std::promise<CAnyKeyboardKiller> promise);

    /// Runs the calling thread's run loop until the stop request. Returns 0.
    int exec();

    static CGEventRef StaticCallbackFunction(CGEventTapProxy proxy, CGEventType type, CGEventRef event,
                                             void *userInfo);
    CGEventRef CallbackFunction(CGEventType type, CGEventRef event);
    static CGEventMask CreateMask();
    static CFDataRef MessagePortCallback(CFMessagePortRef port, SInt32 messageId, CFDataRef data, void *info);
    static void KillFunction();

    // What is posted into the session, as if typed or clicked there (SyntheticInput.cpp). GUI thread;
    // positions in points, global. A session that takes no posts ignores them.

    /// Starts a slide show, or ends the one it believes running.
    static void SetPPTFullScreen();
    static void SetPlayOrPause();
    static void SetPageUp();
    static void SetMouseClick(int x, int y);
    static void SetMouseMove(int x, int y);
    /// Moves and presses; does not release.
    static void SetMouseDown(int x, int y);
    /// Does nothing: Grab::SetpTosysCamera() is the one that sends the user to the permission.
    static void SetpTosysCamera();

    /// True while we believe that we have started a slide show. Flipped by SetPPTFullScreen() only.
    static bool EnterPPT;

signals:
    void signalKeyboardMessage(CKeyboardMessage message);
    void signalMouseMessage(CKeyboardMessage message);
    /// Never emitted.
    void MysignalKeyboardMessage(int key);

private:
    void SetupRunLoop();
    void keyChanged(CGEventRef event, int state);
    void flagsChanged(CGEventRef event);

    CRunLoopSource m_tapSource;
    CRunLoopSource m_portSource;
    CEventTap m_eventTap;
    CMessagePort m_port;
    bool m_control = false;
    bool m_shift = false;
    bool m_option = false;
};

/// Posts one mouse event of that type and button at the point.
void PostMouseEvent(CGMouseButton button, CGEventType type, CGPoint point);
