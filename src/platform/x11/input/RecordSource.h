// SPDX-License-Identifier: MIT
#pragma once

#include "platform/quartz/InputBackend.h"
#include "platform/x11/input/Connection.h"
#include "platform/x11/input/EventTranslator.h"
#include "platform/x11/input/FileDescriptor.h"
#include "platform/x11/input/SharedPlace.h"

#include <cstdint>
#include <memory>

namespace vexa::x11 {

class XTestPoster;

/// The session's input, whichever client has the focus or a grab: keys and buttons as the server's RECORD
/// extension reports them, moves of the pointer by asking for its place when XInput reports that it moved.
/// The server drops records while some 16 KiB of them wait, so only what comes one by one is recorded: a
/// mouse reports a thousand moves a second and more.
class RecordSource : public InputSource {
public:
    /// Null when the server cannot be reached or does not record. What the poster hides is not reported;
    /// positions are points of the screen. Both outlive the source.
    static std::unique_ptr<RecordSource> open(XTestPoster &poster, const SharedPlace &screen);

    ~RecordSource() override;

    int fd() const override { return m_poll.get(); }

    /// Where the recording was lost, for any reason, it is begun anew. Throws std::runtime_error when the
    /// session cannot be listened to any more.
    bool next(InputEvent &event) override;

private:
    RecordSource(XTestPoster &poster, const SharedPlace &screen);

    /// Connects and begins to record. False when that cannot be.
    bool listen();
    void listenAgain();
    void watch(int fd) const;
    /// True when something was among them that a device did.
    bool readRecords();
    void followPointer();
    void checkKeys();
    void lookAtKeys();
    void scheduleCheck() const;

    XTestPoster &m_poster;
    const SharedPlace &m_screen;
    const FileDescriptor m_timer;          ///< of the next check of the keys
    const FileDescriptor m_poll;           ///< of the timer and the connections
    std::unique_ptr<Connection> m_control; ///< for requests
    std::unique_ptr<Connection> m_data;    ///< receives the records; recording blocks it for everything else
    std::uint32_t m_context = 0;           ///< of the recording, in the server
    unsigned m_records = 0;                ///< sequence number of the request whose replies the records are
    bool m_recording = false;
    bool m_moved = false; ///< the pointer is not where it was last looked at, as far as we know
    EventTranslator m_translator;
};

} // namespace vexa::x11
