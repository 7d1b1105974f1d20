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
    return takeNext(event) ? toldOf(event) : Told{};
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
            all.append(toldOf(event));
        else if (event.type == kCGEventKeyUp)
            return all;
    QTest::qFail("the marker was not heard", __FILE__, __LINE__);
    return all;
}

void SessionFixture::pressModifiers() {
    for (const int key : penModifiers)
        m_hand->press(key);
}

void SessionFixture::releaseModifiers() {
    for (const int key : penModifiers)
        m_hand->release(key);
}

void SessionFixture::outwaitAClick() {
    QVERIFY(postKey(kVK_F19));
    for (InputEvent event; takeNext(event);)
        if (event.type == kCGEventKeyUp && event.keyCode == kVK_F19)
            return;
}

} // namespace vexa::test
