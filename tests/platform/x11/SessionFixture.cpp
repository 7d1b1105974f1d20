// SPDX-License-Identifier: MIT
#include "platform/x11/SessionFixture.h"

#include <QProcess>

#include <poll.h>

namespace vexa::test {

void run(const QString &command) {
    QProcess process;
    process.start(QStringLiteral("sh"), {QStringLiteral("-c"), command});
    QVERIFY2(process.waitForFinished(30000) && process.exitCode() == 0,
             qPrintable(command + QString::fromLocal8Bit(process.readAllStandardError())));
}

InputEvent keyEvent(std::uint32_t type, int key, std::uint64_t flags) {
    InputEvent event;
    event.type = type;
    event.keyCode = key;
    event.flags = flags;
    return event;
}

InputEvent mouseEvent(std::uint32_t type, double x, double y) {
    InputEvent event;
    event.type = type;
    event.x = x;
    event.y = y;
    return event;
}

void SessionFixture::openSession() {
    m_hand = std::make_unique<Hand>();
    m_hand->moveTo(500, 500);
    platform::useSessionInput({{0, 0}, {1920, 1080}, 1});
    m_source = inputBackend().open();
    QVERIFY(m_source);
}

void SessionFixture::closeSession() {
    m_hand->ungrab();
    for (int key = 8; key < 256; ++key)
        QVERIFY2(!m_hand->isDown(key), qPrintable(QStringLiteral("key %1 is still down").arg(key)));
    m_source.reset();
    m_hand.reset();
    setInputBackend(nullptr);
}

bool SessionFixture::takeNext(InputEvent &event) {
    while (!m_source->next(event)) {
        pollfd descriptor{m_source->fd(), POLLIN, 0};
        if (poll(&descriptor, 1, 20000) != 1)
            return false;
    }
    return true;
}

Told SessionFixture::tellNext() {
    InputEvent event;
    return takeNext(event) ? Told{event.type, event.keyCode, event.x, event.y} : Told{};
}

All SessionFixture::hear(const std::function<void()> &action) {
    action();
    mark();
    return hearUpToMarker();
}

All SessionFixture::hearUpToMarker() {
    constexpr int marker = kVK_F20;
    All all;
    InputEvent event;
    while (takeNext(event))
        if (event.keyCode != marker)
            all.append({event.type, event.keyCode, event.x, event.y});
        else if (event.type == kCGEventKeyUp)
            return all;
    QTest::qFail("the marker was not heard", __FILE__, __LINE__);
    return all;
}

void SessionFixture::outwaitAClick() {
    QVERIFY(post(keyEvent(kCGEventKeyDown, kVK_F19)));
    for (InputEvent event; takeNext(event);)
        if (event.type == kCGEventKeyUp && event.keyCode == kVK_F19)
            return;
}

} // namespace vexa::test
