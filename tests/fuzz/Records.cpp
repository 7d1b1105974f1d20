// SPDX-License-Identifier: MIT
#include "fuzz/Listening.h"
#include "fuzz/Target.h"
#include "platform/x11/input/RecordedData.h"

#include <vector>

/// Any bytes as records of the X server, in pieces of any size.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    fuzz::Listening &listening = fuzz::Listening::afresh();
    for (const std::uint8_t *const end = data + size; end - data > 1;) {
        const std::uint8_t kind = *data++;
        const std::size_t wanted = std::size_t(*data++) * 4;
        // A copy of just that size, behind which nothing may be read.
        const std::vector<std::uint8_t> record(data, data + std::min(wanted, std::size_t(end - data)));
        if (kind % 2 == 0)
            vexa::x11::takeDeviceEvents(record.data(), record.size(), listening.translator);
        else
            vexa::x11::takeFakeRequests(record.data(), record.size(), listening.translator);
        listening.passOn();
        data += record.size();
    }
    return 0;
}
