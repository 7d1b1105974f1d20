// SPDX-License-Identifier: MIT
#include "Pen.h"
#include "Script.h"

#include <cstdio>
#include <iostream>
#include <iterator>
#include <sstream>

namespace {

constexpr int success = 0, failure = 1, misuse = 2;

void play(vexa::pen::Pen &pen, const vexa::pen::Script &script) {
    for (const auto &step : script)
        step(pen);
}

void playLines(vexa::pen::Pen &pen, std::istream &input) {
    for (std::string line; std::getline(input, line);) {
        std::istringstream words(line);
        play(pen, vexa::pen::readScript({std::istream_iterator<std::string>(words), {}}));
    }
}

int run(const std::vector<std::string> &words) {
    const vexa::pen::Script script = vexa::pen::readScript(words);
    const auto pen = vexa::pen::Pen::open();
    if (!pen)
        return failure;
    if (words.empty())
        playLines(*pen, std::cin);
    else
        play(*pen, script);
    return success;
}

} // namespace

int main(int argc, char *argv[]) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (!words.empty() && (words.front() == "--help" || words.front() == "-h")) {
        std::fputs(vexa::pen::scriptHelp, stdout);
        return success;
    }
    try {
        return run(words);
    } catch (const vexa::pen::ScriptError &error) {
        std::fprintf(stderr, "pen-simulator: %s; --help tells what there is\n", error.what());
        return misuse;
    }
}
