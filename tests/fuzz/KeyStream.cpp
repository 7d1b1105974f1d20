// SPDX-License-Identifier: MIT
#include "fuzz/Listening.h"
#include "fuzz/Target.h"

#include <array>
#include <bitset>
#include <utility>

namespace {

using vexa::x11::DeviceEvent;
using vexa::x11::XKeyCode;

/// The keys that matter, and one that does not, as X key codes.
constexpr std::array<XKeyCode, 6> keys{37, 50, 64, 42, 39, 54}; // control, shift, option, G, S, C
constexpr int modifiers = 3;
constexpr std::array<int, modifiers> virtualKeys{kVK_Control, kVK_Shift, kVK_Option};

} // namespace

/// Any stream of presses, releases, repeats and hidden keys: a modifier's state is always the one it really
/// has, and the pen's chord is recognised exactly when it is typed.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    fuzz::Bytes bytes(data, size);
    fuzz::Listening &listening = fuzz::Listening::afresh();
    std::bitset<keys.size()> down;
    std::pair<int, bool> hidden{
        -1, false}; // the one that is left out if it comes next, and whether it is a press
    while (!bytes.atEnd()) {
        const int what = bytes.below(6);
        const int key = bytes.below(int(keys.size()));
        const std::size_t bit = std::size_t(key);
        bool opens = false;
        switch (what) {
        case 0:
        case 1: {
            const bool press = what == 0;
            listening.translator.take(
                {press ? DeviceEvent::KeyPress : DeviceEvent::KeyRelease, keys[bit], {}, 0});
            if (std::exchange(hidden, {-1, false}) == std::pair{key, press})
                break;
            opens = press && key == modifiers && !down[bit] && down[0] && down[1] && down[2];
            down[bit] = press;
            break;
        }
        case 2: {
            const bool press = bytes.below(2) == 0;
            listening.translator.hideNext(press ? DeviceEvent::KeyPress : DeviceEvent::KeyRelease, keys[bit]);
            hidden = {key, press};
            break;
        }
        case 3:
            listening.translator.letGo(keys[bit]);
            hidden = {-1, false};
            if (key < modifiers)
                down[bit] = false;
            break;
        case 4: { // the server's own view of which are down
            const unsigned view = bytes.byte();
            listening.translator.reconcile([view](XKeyCode code) {
                return (view >> unsigned(std::find(keys.begin(), keys.end(), code) - keys.begin()) & 1U) != 0;
            });
            down &= std::bitset<keys.size()>(view);
            break;
        }
        default:
            listening.translator.take(
                {DeviceEvent::Motion, 0, {bytes.number(), bytes.number()}, bytes.byte()});
        }
        listening.passOn();
        fuzz::require(listening.takeOpened() == opens);
        for (int i = 0; i < modifiers; ++i)
            fuzz::require(listening.stateOf(virtualKeys[std::size_t(i)]) == int(down[std::size_t(i)]));
    }
    return 0;
}
