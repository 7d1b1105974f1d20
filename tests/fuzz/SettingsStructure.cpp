// SPDX-License-Identifier: MIT
#include "fuzz/Target.h"
#include "settings/SettingsFormat.h"

namespace {

/// Texts of elements, and the numbers that they stand for.
struct Text {
    const char *written;
    int number;
};
constexpr Text texts[] = {{"0", 0},
                          {"7", 7},
                          {"-3", -3},
                          {"2147483647", 2147483647},
                          {"2147483648", 0},
                          {"abc", 0},
                          {"", 0},
                          {"1.5", 0},
                          {"0x10", 0},
                          {"&#52;", 4},
                          {"<![CDATA[12]]>", 12},
                          {"<b>5</b>", 5},
                          {"1<!-- 9 -->2", 12},
                          {"6<b/>", 6},
                          {"&lt;8", 0}};
constexpr int textCount = sizeof texts / sizeof *texts;

/// What stands between the settings, and what it says of the first one, in a group and outside.
constexpr int nothing = -1;
struct Noise {
    const char *written;
    int inGroup, outside;
};
constexpr Noise noises[] = {{"<!-- Key2P -->", nothing, nothing},
                            {"<key2p>3</key2p>", nothing, nothing},
                            {"<Key2C>1</Key2C>", nothing, nothing},
                            {"text", nothing, nothing},
                            {"<?Key2P 4?>", 0, nothing}, // a node of that name without a text
                            {"<Other><Key2P>9</Key2P></Other>", nothing, 9}};
constexpr int noiseCount = sizeof noises / sizeof *noises;

} // namespace

/// Well-formed files of any structure: what they say of each setting is what is read.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    fuzz::Bytes bytes(data, size);
    vexa::SettingValues expected;
    expected.fill(-1);
    QByteArray file = "<any>";
    for (int open = 0; !bytes.atEnd();) {
        switch (bytes.below(4)) {
        case 0: // the end of a group, the beginning of the next
            file += open++ % 2 == 0 ? "<group>" : "</group>";
            break;
        case 1: {
            const Noise &noise = noises[bytes.below(noiseCount)];
            file += noise.written;
            if (const int said = open % 2 != 0 ? noise.inGroup : noise.outside; said != nothing)
                expected[0] = said;
            break;
        }
        default: {
            const vexa::Setting &setting = vexa::settingsTable[std::size_t(bytes.below(17))];
            const Text &text = texts[bytes.below(textCount)];
            file += QByteArray("<") + setting.element + '>' + text.written + "</" + setting.element + '>';
            if (open % 2 != 0) // outside a group it is a group itself
                expected[vexa::indexOf(setting)] = text.number;
        }
        }
        if (bytes.atEnd() && open % 2 != 0)
            file += "</group>";
    }
    const auto document = vexa::parseSettings(file + "</any>");
    vexa::SettingValues otherwise;
    otherwise.fill(-1);
    fuzz::require(document.has_value());
    fuzz::require(vexa::settingsIn(*document, otherwise) == expected);
    return 0;
}
