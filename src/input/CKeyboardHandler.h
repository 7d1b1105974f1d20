// SPDX-License-Identifier: MIT
#pragma once

#include "input/CAnyKeyboardKiller.h"
#include "input/CKeyboardMessage.h"

#include <QObject>

#include <future>
#include <thread>

/// Owns the listener thread, and passes its messages on to the GUI thread. Lives on the GUI thread.
class CKeyboardHandler : public QObject {
    Q_OBJECT

public:
    /// Starts the thread and waits until it listens. Throws std::future_error (broken promise) when it
    /// cannot; the thread has ended by then.
    CKeyboardHandler();

    /// Stops the listener and joins its thread.
    ~CKeyboardHandler() override;

    /// The thread's body. A failure of the listener is reported by signalKeyboardException.
    static void run(std::promise<CAnyKeyboardKiller> promise, CKeyboardHandler *handler);

    /// Sets a flag that nothing reads, on purpose: messages are passed on either way.
    void activate();
    void deactivate();

    /// Asks the listener to stop, without waiting.
    void stopListening() const;

signals:
    /// From the listener thread: why it cannot listen.
    void signalKeyboardException(CKeyboardExceptionMessage message);
    /// What the listener received: see CKeyboardMessage for the numbers.
    void MysignalKeyboardMessage(int key, int state);
    void MysignalMouseMessage(int event, int x, int y);

public slots:
    void slotOnKeyboardException(const CKeyboardExceptionMessage &message);
    void slotOnKeyboardMessage(const CKeyboardMessage &message);
    void slotOnMouseMessage(const CKeyboardMessage &message);

private:
    // Destroyed in reverse order: the stop handle before the thread.
    std::thread m_thread;
    CAnyKeyboardKiller m_killer;
    bool m_active = true;
};
