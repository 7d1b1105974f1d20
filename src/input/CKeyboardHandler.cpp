// SPDX-License-Identifier: MIT
#include "input/CKeyboardHandler.h"

#include "input/CKeyboardListenerMac.h"

CKeyboardHandler::CKeyboardHandler() : QObject(nullptr) {
    vexa::registerKeyboardMessages();

    std::promise<CAnyKeyboardKiller> promise;
    std::future<CAnyKeyboardKiller> killer = promise.get_future();
    m_thread = std::thread(run, std::move(promise), this);
    try {
        m_killer = killer.get();
    } catch (...) {
        // The thread still has to report its failure, on this object; and a joinable thread must not be
        // destroyed.
        m_thread.join();
        throw;
    }
    connect(this, &CKeyboardHandler::signalKeyboardException, this,
            &CKeyboardHandler::slotOnKeyboardException, Qt::QueuedConnection);
}

CKeyboardHandler::~CKeyboardHandler() {
    stopListening();
    m_thread.join();
    m_killer = CAnyKeyboardKiller();
}

void CKeyboardHandler::run(std::promise<CAnyKeyboardKiller> promise, CKeyboardHandler *handler) {
    vexa::registerKeyboardMessages();
    try {
        CKeyboardListenerMac listener(std::move(promise));
        connect(&listener, &CKeyboardListenerMac::signalKeyboardMessage, handler,
                &CKeyboardHandler::slotOnKeyboardMessage, Qt::QueuedConnection);
        connect(&listener, &CKeyboardListenerMac::signalMouseMessage, handler,
                &CKeyboardHandler::slotOnMouseMessage, Qt::QueuedConnection);
        listener.exec();
    } catch (const std::exception &exception) {
        emit handler->signalKeyboardException(CKeyboardExceptionMessage(exception.what()));
    } catch (...) {
        emit handler->signalKeyboardException(CKeyboardExceptionMessage("Unknown keyboard exception!"));
    }
}

void CKeyboardHandler::activate() {
    m_active = true;
}

void CKeyboardHandler::deactivate() {
    m_active = false;
}

void CKeyboardHandler::stopListening() const {
    m_killer.stopListening();
}

void CKeyboardHandler::slotOnKeyboardException(const CKeyboardExceptionMessage &) {}

void CKeyboardHandler::slotOnKeyboardMessage(const CKeyboardMessage &message) {
    emit MysignalKeyboardMessage(message.keyCode, message.keyState);
}

void CKeyboardHandler::slotOnMouseMessage(const CKeyboardMessage &message) {
    emit MysignalMouseMessage(message.mouseEvent, message.mouseX, message.mouseY);
}
