// SPDX-License-Identifier: MIT
#include "Script.h"

#include "Pen.h"

#include <charconv>
#include <map>
#include <optional>

namespace vexa::pen {

using std::chrono::milliseconds;

const char *const scriptHelp =
    R"(pen-simulator: types the chords of a presentation pen, for people without one.

  pen-simulator COMMAND [COMMAND ...]     or the commands on standard input, line by line

The pen's keys:
  key1 press            next pen colour
  key1 long             open or close the annotation
  key2 long             the action of key 2
  key3 long             the action of key 3
  key4 click            the action of key 4 (key4 press says the same)
  key4 hold [TIME]      bring the held tool out; with a time, put it away afterwards
  key4 release          put the held tool away
  chord LETTER          control, shift, option and one of A S D G Y I J M

The pointer, in pixels of the desktop:
  move X Y [TIME]       go there, at once or taking that time
  click X Y             go there and click
  drag X Y X Y ...      press at the first place, go through the others, let go
                        (20 milliseconds for each stretch)

  wait TIME             do nothing for a while; a time is 250, 250ms or 2s

Example: pen-simulator key4 hold wait 500 move 600 400 1s key4 release
)";

namespace {

/// The words, taken one after the other.
class Words {
public:
    explicit Words(const std::vector<std::string> &words) : m_words(words) {}

    bool atEnd() const { return m_next == m_words.size(); }

    const std::string &take(const char *what) {
        if (atEnd())
            throw ScriptError(std::string("missing at the end: ") + what);
        return m_words[m_next++];
    }

    int takeNumber(const char *what) {
        const std::string &word = take(what);
        const std::optional<int> number = numberIn(word, nullptr);
        if (!number)
            throw ScriptError(std::string(what) + " expected, not \"" + word + "\"");
        return *number;
    }

    std::optional<int> takeNumberIfAny() {
        const std::optional<int> number = atEnd() ? std::nullopt : numberIn(m_words[m_next], nullptr);
        m_next += number ? 1 : 0;
        return number;
    }

    milliseconds takeTime() {
        const std::optional<milliseconds> time = takeTimeIfAny();
        if (!time)
            throw ScriptError("a time expected, not \"" + take("a time") + "\"");
        return *time;
    }

    std::optional<milliseconds> takeTimeIfAny() {
        std::string unit;
        const std::optional<int> number = atEnd() ? std::nullopt : numberIn(m_words[m_next], &unit);
        if (!number || *number < 0 || !(unit.empty() || unit == "ms" || unit == "s"))
            return std::nullopt;
        ++m_next;
        return milliseconds(unit == "s" ? *number * 1000LL : *number);
    }

private:
    static std::optional<int> numberIn(const std::string &word, std::string *rest) {
        int number = 0;
        const char *const end = word.data() + word.size();
        const auto [stop, error] = std::from_chars(word.data(), end, number);
        if (error != std::errc() || (!rest && stop != end))
            return std::nullopt;
        if (rest)
            rest->assign(stop, end);
        return number;
    }

    const std::vector<std::string> &m_words;
    std::size_t m_next = 0;
};

void addChords(Script &script, std::vector<Letter> letters) {
    script.emplace_back([letters = std::move(letters)](Pen &pen) {
        for (const Letter letter : letters)
            pen.typeChord(letter);
    });
}

void addWait(Script &script, milliseconds time) {
    script.emplace_back([time](Pen &pen) { pen.wait(time); });
}

void addMove(Script &script, platform::Pixels target, milliseconds time) {
    script.emplace_back([target, time](Pen &pen) { pen.move(target, time); });
}

void addButton(Script &script, bool down) {
    script.emplace_back([down](Pen &pen) { pen.button(down); });
}

platform::Pixels takePlace(Words &words) {
    const int x = words.takeNumber("X");
    return {x, words.takeNumber("Y")};
}

void readKeyOneToThree(Script &script, const std::string &key, const std::string &what) {
    // Keys 1 and 3 arm themselves before they act.
    static const std::map<std::string, std::vector<Letter>> chords{
        {"key1 press", {Letter::Y}},
        {"key1 long", {Letter::M, Letter::I}},
        {"key2 long", {Letter::A}},
        {"key3 long", {Letter::M, Letter::J}},
    };
    const auto found = chords.find(key + ' ' + what);
    if (found == chords.end())
        throw ScriptError("a pen does not know \"" + key + ' ' + what + "\"");
    addChords(script, found->second);
}

void readKeyFour(Script &script, Words &words) {
    const std::string &what = words.take("what key4 does");
    if (what == "click" || what == "press") {
        addChords(script, {Letter::D});
    } else if (what == "release") {
        addChords(script, {Letter::S});
    } else if (what == "hold") {
        addChords(script, {Letter::G});
        if (const auto time = words.takeTimeIfAny()) {
            addWait(script, *time);
            addChords(script, {Letter::S});
        }
    } else {
        throw ScriptError("a pen does not know \"key4 " + what + "\"");
    }
}

void readChord(Script &script, Words &words) {
    static const std::map<std::string, Letter> letters{{"A", Letter::A}, {"S", Letter::S}, {"D", Letter::D},
                                                       {"G", Letter::G}, {"Y", Letter::Y}, {"I", Letter::I},
                                                       {"J", Letter::J}, {"M", Letter::M}};
    const std::string &letter = words.take("the letter of the chord");
    const auto found = letters.find(letter);
    if (found == letters.end())
        throw ScriptError("a pen has no chord \"" + letter + "\"");
    addChords(script, {found->second});
}

void readMove(Script &script, Words &words) {
    const platform::Pixels target = takePlace(words);
    addMove(script, target, words.takeTimeIfAny().value_or(milliseconds(0)));
}

void readClick(Script &script, Words &words) {
    addMove(script, takePlace(words), milliseconds(0));
    addButton(script, true);
    addButton(script, false);
}

void readDrag(Script &script, Words &words) {
    constexpr milliseconds stretch(20);
    addMove(script, takePlace(words), milliseconds(0));
    addButton(script, true);
    addMove(script, takePlace(words), stretch);
    while (const auto x = words.takeNumberIfAny())
        addMove(script, {*x, words.takeNumber("Y")}, stretch);
    addButton(script, false);
}

} // namespace

Script readScript(const std::vector<std::string> &list) {
    using Reader = void (*)(Script &, Words &);
    static const std::map<std::string, Reader> readers{
        {"key1", [](Script &script,
                    Words &words) { readKeyOneToThree(script, "key1", words.take("press or long")); }},
        {"key2", [](Script &script, Words &words) { readKeyOneToThree(script, "key2", words.take("long")); }},
        {"key3", [](Script &script, Words &words) { readKeyOneToThree(script, "key3", words.take("long")); }},
        {"key4", readKeyFour},
        {"chord", readChord},
        {"move", readMove},
        {"click", readClick},
        {"drag", readDrag},
        {"wait", [](Script &script, Words &words) { addWait(script, words.takeTime()); }},
    };
    Script script;
    Words words(list);
    while (!words.atEnd()) {
        const std::string &command = words.take("a command");
        const auto found = readers.find(command);
        if (found == readers.end())
            throw ScriptError("unknown command \"" + command + "\"");
        found->second(script, words);
    }
    return script;
}

} // namespace vexa::pen
