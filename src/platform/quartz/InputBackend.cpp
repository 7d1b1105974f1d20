// SPDX-License-Identifier: MIT
#include "platform/quartz/InputBackend.h"

#include <atomic>

namespace vexa {

namespace {

class NoBackend : public InputBackend {
public:
    std::unique_ptr<InputSource> open() override { return nullptr; }
    bool post(const InputEvent &) override { return false; }
};

NoBackend noBackend;
std::atomic<InputBackend *> current{&noBackend};

} // namespace

InputBackend &inputBackend() {
    return *current;
}

void setInputBackend(InputBackend *backend) {
    current = backend ? backend : &noBackend;
}

} // namespace vexa
