// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

#include "platform/quartz/InputBackend.h"
#include "platform/x11/input/Connection.h"
#include "platform/x11/input/EventTranslator.h"
#include "platform/x11/input/FileDescriptor.h"
#include "platform/x11/input/SharedPlace.h"

namespace vexa::x11 {

class XTestPoster;

/// The session's input as the server's RECORD extension tells it: whoever has the focus or a grab. To be read
/// without delay: the server drops records while a few hundred of them wait unread.
class RecordSource : public InputSource {
public:
    /// Null when the server cannot be reached or does not record. What the poster hides is not heard.
    /// Positions are points of the screen. Both outlive the source.
    static std::unique_ptr<RecordSource> open(XTestPoster &poster, const SharedPlace &screen);

    int fd() const override { return m_poll.get(); }
    bool next(InputEvent &event) override;

private:
    RecordSource(XTestPoster &poster, const SharedPlace &screen, std::unique_ptr<Connection> control,
                 std::unique_ptr<Connection> data);

    bool start(std::uint32_t posterClient);
    void watch(int fd) const;
    void forget(int fd) const;
    void readRecords();
    void take(const std::uint8_t *data, int size, bool fromServer);
    void readControl() const;
    void checkModifiers();
    void scheduleCheck() const;

    XTestPoster &m_poster;
    const SharedPlace &m_screen;
    const std::unique_ptr<Connection> m_control; ///< asks
    const std::unique_ptr<Connection> m_data;    ///< is told; can do nothing else meanwhile
    const FileDescriptor m_timer;                ///< of the next check of the modifiers
    const FileDescriptor m_poll;                 ///< of all of these
    unsigned m_records = 0;                      ///< the request that the records answer
    EventTranslator m_translator;
};

} // namespace vexa::x11
