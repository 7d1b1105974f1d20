// SPDX-License-Identifier: MIT
#pragma once

#include "app/PenChords.h"
#include "fakes/RecordingBackend.h"
#include "input/CKeyboardListenerMac.h"
#include "platform/quartz/Event.h"
#include "platform/x11/input/EventTranslator.h"

#include <algorithm>
#include <map>

namespace fuzz {

/// The road of a key through the program, from the translator to the pen's commands, without threads and
/// windows. There is one, which takes time to make.
class Listening {
public:
    /// As if it had just been made.
    static Listening &afresh() {
        static Listening listening;
        listening.translator = {};
        listening.m_listener.CallbackFunction(kCGEventTapDisabledByTimeout, nullptr); // all are up again
        listening.m_chords = {};
        listening.m_states.clear();
        listening.m_opened = false;
        return listening;
    }

    vexa::x11::EventTranslator translator;

    /// Passes on what the translator has ready.
    void passOn() {
        vexa::InputEvent input;
        while (translator.next(input)) {
            const auto event = vexa::quartz::toReference<CGEventRef>(new vexa::quartz::Event(input));
            m_listener.CallbackFunction(static_cast<CGEventType>(input.type), event);
            CFRelease(event);
        }
    }

    /// The last state that was told of a key.
    int stateOf(int virtualKey) { return m_states[virtualKey]; }

    /// Whether a held tool was to be opened since the last time this was asked.
    bool takeOpened() { return std::exchange(m_opened, false); }

private:
    Listening() : m_listener(std::promise<CAnyKeyboardKiller>()) {
        QObject::connect(&m_listener, &CKeyboardListenerMac::signalKeyboardMessage,
                         [this](const CKeyboardMessage &message) {
                             m_states[message.keyCode] = message.keyState;
                             for (const vexa::PenCommand command :
                                  m_chords.receive(message.keyCode, message.keyState, {}))
                                 m_opened = m_opened || command == vexa::PenCommand::OpenHeldTool;
                         });
    }

    vexa::RecordingBackend m_session;
    CKeyboardListenerMac m_listener;
    vexa::PenChords m_chords;
    std::map<int, int> m_states;
    bool m_opened = false;
};

} // namespace fuzz
