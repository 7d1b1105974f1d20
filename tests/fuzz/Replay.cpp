// SPDX-License-Identifier: MIT
#include "fuzz/Target.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/) {
    return 0;
}

/// Calls the target with every file of a folder.
int main(int argc, char *argv[]) {
    LLVMFuzzerInitialize(&argc, &argv);
    int count = 0;
    for (const auto &entry : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        std::printf("%s\n", entry.path().filename().c_str());
        std::fflush(stdout); // the last line names the one that crashes
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
        ++count;
    }
    std::printf("%d inputs\n", count);
    std::fflush(stdout);
    std::_Exit(count > 0 ? 0 : 1); // what a target has made once lives as long as the process
}
