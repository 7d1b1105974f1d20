// SPDX-License-Identifier: MIT
#include <QProcess>
#include <QtTest>
#include <atomic>
#include <poll.h>
#include <set>
#include <sys/socket.h>
#include <thread>

#include "platform/SessionInput.h"
#include "platform/quartz/CoreGraphics.h"
#include "platform/quartz/InputBackend.h"
#include "platform/quartz/VirtualKeys.h"
#include "platform/x11/input/ModifierLift.h"
#include "support/Hand.h"

using namespace vexa::test;

using vexa::InputEvent;

namespace {

// X key codes
constexpr int control = 37, shift = 50, option = 64, rightShift = 62, letterA = 38, letterG = 42,
              letterS = 39, f20 = 198;
constexpr int f5 = 71, escape = 9, space = 65, pageUp = 112, letterC = 54, returnKey = 36;
constexpr int penModifiers[] = {control, shift, option};

struct Told {
    std::uint32_t type;
    std::int64_t key;
    double x, y;
    bool operator==(const Told &other) const {
        return type == other.type && key == other.key && x == other.x && y == other.y;
    }
};
using All = QVector<Told>;

Told told(std::uint32_t type, int key) {
    return {type, key, 0, 0};
}

Told toldAt(std::uint32_t type, double x, double y) {
    return {type, 0, x, y};
}

void run(const QString &command) {
    QProcess process;
    process.start(QStringLiteral("sh"), {QStringLiteral("-c"), command});
    QVERIFY2(process.waitForFinished(30000) && process.exitCode() == 0,
             qPrintable(command + QString::fromLocal8Bit(process.readAllStandardError())));
}

InputEvent keyEvent(std::uint32_t type, int key, std::uint64_t flags = 0) {
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

/// The descriptors of this process that are sockets.
std::set<int> sockets() {
    std::set<int> found;
    const QDir descriptors(QStringLiteral("/proc/self/fd"));
    for (const QFileInfo &entry : descriptors.entryInfoList(QDir::AllEntries | QDir::System))
        if (entry.symLinkTarget().contains(QLatin1String("socket:")))
            found.insert(entry.fileName().toInt());
    return found;
}

bool post(const InputEvent &event) {
    return vexa::inputBackend().post(event);
}

} // namespace

/// The X backend on a real X server: input by a second keyboard and by other clients, one source that
/// listens.
class SessionInputTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void nothingIsInTheWayOfListening();
    void thePensLettersHaveTheirCodes_data();
    void thePensLettersHaveTheirCodes();
    void codesDoNotFollowTheLayout_data();
    void codesDoNotFollowTheLayout();
    void aPenChordArrivesWhole();
    void rightModifiersHaveTheirOwnCodes();
    void aModifierHeldByTwoKeyboardsChangesOnce();
    void aModifierHeldSinceBeforeStartsWithItsNextPress();
    void aModifierHeldForLongStaysHeld();
    void aKeyHeldDownIsPressedOnce();
    void anUnpluggedKeyboardLetsGoOfItsModifiers();
    void clicksAreToldAndDragsAreNot();
    void theWheelIsNotTold();
    void warpsAreToldAsMoves();
    void keysAreHeardThroughOtherClientsGrabs_data();
    void keysAreHeardThroughOtherClientsGrabs();
    void movesAreHeardThroughAPointerGrab();
    void positionsFollowThePrimaryScreen();
    void aSplitMonitorIsOneScreen();
    void positionsAreInPoints();
    void aLostConnectionIsMadeAgain();
    void aConnectionLostForGoodIsTold();
    void severalSourcesHearTheSame();

    void commandReturnBecomesF5();
    void aKeyDownIsAPressAndAReleaseAndTheKeyUpNothing();
    void keysThatCannotBePostedAreRefused();
    void aClickMovesFirstAndThePointerStays();
    void keysArriveWithoutTheModifiersHeld_data();
    void keysArriveWithoutTheModifiersHeld();
    void modifiersAreAsBeforeAfterAPost();
    void clicksArriveWithoutTheModifiersHeld();
    void aModifierLetGoDuringAPostStaysReleased_data();
    void aModifierLetGoDuringAPostStaysReleased();
    void whatAProgramHoldsStaysHeld();
    void programsCanFakeModifiersAfterAPost();
    void nothingSticksWhenModifiersChangeWhilePosting();

private:
    All hear(const std::function<void()> &action);
    void mark();
    All hearUpToMarker();
    bool takeNext(InputEvent &event);
    void outwaitAClick();
    void breakConnections();

    std::unique_ptr<Hand> m_hand;
    std::unique_ptr<vexa::InputSource> m_source;
    std::vector<int> m_connections;
};

void SessionInputTest::init() {
    m_hand = std::make_unique<Hand>();
    m_hand->moveTo(500, 500);
    vexa::platform::useSessionInput({{0, 0}, {1920, 1080}, 1});
    const std::set<int> before = sockets();
    m_source = vexa::inputBackend().open();
    QVERIFY(m_source);
    m_connections.clear();
    for (const int socket : sockets())
        if (before.count(socket) == 0)
            m_connections.push_back(socket);
}

/// Those of the source. Where it is the first one, that with which is posted too.
void SessionInputTest::breakConnections() {
    for (const int connection : m_connections)
        QCOMPARE(shutdown(connection, SHUT_RDWR), 0);
}

void SessionInputTest::cleanup() {
    m_hand->ungrab();
    for (int key = 8; key < 256; ++key)
        QVERIFY2(!m_hand->isDown(key), qPrintable(QStringLiteral("key %1 is still down").arg(key)));
    m_source.reset();
    m_hand.reset();
    vexa::setInputBackend(nullptr);
}

bool SessionInputTest::takeNext(InputEvent &event) {
    while (!m_source->next(event)) {
        pollfd descriptor{m_source->fd(), POLLIN, 0};
        if (poll(&descriptor, 1, 20000) != 1)
            return false;
    }
    return true;
}

/// What is told of an action: all that comes before a marker key.
All SessionInputTest::hear(const std::function<void()> &action) {
    action();
    mark();
    return hearUpToMarker();
}

void SessionInputTest::mark() {
    m_hand->press(f20);
    m_hand->release(f20);
}

All SessionInputTest::hearUpToMarker() {
    constexpr int marker = kVK_F20;
    All all;
    InputEvent event;
    while (takeNext(event)) {
        if (event.keyCode != marker)
            all.append({event.type, event.keyCode, event.x, event.y});
        else if (event.type == kCGEventKeyUp)
            return all;
    }
    QTest::qFail("the marker was not heard", __FILE__, __LINE__);
    return all;
}

/// After a click has been posted: lets the pause go by that is kept before the next key.
void SessionInputTest::outwaitAClick() {
    QVERIFY(post(keyEvent(kCGEventKeyDown, kVK_F19)));
    for (InputEvent event; takeNext(event);)
        if (event.type == kCGEventKeyUp && event.keyCode == kVK_F19)
            return;
}

void SessionInputTest::nothingIsInTheWayOfListening() {
    QCOMPARE(vexa::platform::sessionInputObstacle(), std::string());
}

void SessionInputTest::thePensLettersHaveTheirCodes_data() {
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("key");
    QTest::newRow("A") << 38 << int(kVK_ANSI_A);
    QTest::newRow("S") << 39 << int(kVK_ANSI_S);
    QTest::newRow("D") << 40 << int(kVK_ANSI_D);
    QTest::newRow("G") << 42 << int(kVK_ANSI_G);
    QTest::newRow("Y") << 29 << int(kVK_ANSI_Y);
    QTest::newRow("I") << 31 << int(kVK_ANSI_I);
    QTest::newRow("J") << 44 << int(kVK_ANSI_J);
    QTest::newRow("M") << 58 << int(kVK_ANSI_M);
}

void SessionInputTest::thePensLettersHaveTheirCodes() {
    QFETCH(int, x);
    QFETCH(int, key);
    QCOMPARE(hear([&] {
                 m_hand->press(x);
                 m_hand->release(x);
             }),
             (All{told(kCGEventKeyDown, key), told(kCGEventKeyUp, key)}));
}

void SessionInputTest::codesDoNotFollowTheLayout_data() {
    QTest::addColumn<QString>("layout");
    QTest::newRow("French") << QStringLiteral("fr");
    QTest::newRow("Dvorak") << QStringLiteral("us dvorak");
    QTest::newRow("control on caps lock") << QStringLiteral("us -option ctrl:nocaps");
}

void SessionInputTest::codesDoNotFollowTheLayout() {
    QFETCH(QString, layout);
    run(QStringLiteral("setxkbmap ") + layout);
    QCOMPARE(hear([&] {
                 for (const int key : {letterA, letterG}) {
                     m_hand->press(key);
                     m_hand->release(key);
                 }
             }),
             (All{told(kCGEventKeyDown, kVK_ANSI_A), told(kCGEventKeyUp, kVK_ANSI_A),
                  told(kCGEventKeyDown, kVK_ANSI_G), told(kCGEventKeyUp, kVK_ANSI_G)}));
    run(QStringLiteral("setxkbmap us -option ''"));
}

void SessionInputTest::aPenChordArrivesWhole() {
    QCOMPARE(hear([&] {
                 for (const int key : {control, shift, option, letterG})
                     m_hand->press(key);
                 for (const int key : {letterG, option, shift, control})
                     m_hand->release(key);
             }),
             (All{told(kCGEventFlagsChanged, kVK_Control), told(kCGEventFlagsChanged, kVK_Shift),
                  told(kCGEventFlagsChanged, kVK_Option), told(kCGEventKeyDown, kVK_ANSI_G),
                  told(kCGEventKeyUp, kVK_ANSI_G), told(kCGEventFlagsChanged, kVK_Option),
                  told(kCGEventFlagsChanged, kVK_Shift), told(kCGEventFlagsChanged, kVK_Control)}));
}

void SessionInputTest::rightModifiersHaveTheirOwnCodes() {
    QCOMPARE(hear([&] {
                 m_hand->press(rightShift);
                 m_hand->release(rightShift);
             }),
             (All{told(kCGEventFlagsChanged, kVK_RightShift), told(kCGEventFlagsChanged, kVK_RightShift)}));
}

void SessionInputTest::aModifierHeldByTwoKeyboardsChangesOnce() {
    QCOMPARE(hear([&] {
                 m_hand->press(control);
                 m_hand->fakePress(control);
                 m_hand->release(control);
                 m_hand->fakeRelease(control);
             }),
             (All{told(kCGEventFlagsChanged, kVK_Control), told(kCGEventFlagsChanged, kVK_Control)}));
}

void SessionInputTest::aModifierHeldSinceBeforeStartsWithItsNextPress() {
    m_hand->press(shift);
    m_source = vexa::inputBackend().open();
    QCOMPARE(hear([&] { m_hand->release(shift); }), All{});
    QCOMPARE(hear([&] {
                 m_hand->press(shift);
                 m_hand->release(shift);
             }),
             (All{told(kCGEventFlagsChanged, kVK_Shift), told(kCGEventFlagsChanged, kVK_Shift)}));
}

void SessionInputTest::aModifierHeldForLongStaysHeld() {
    InputEvent event;
    m_hand->press(control);
    QVERIFY(takeNext(event));
    // The source wakes now and then to ask the server about the key, and finds it held.
    for (int wakes = 0; wakes < 3; ++wakes) {
        pollfd descriptor{m_source->fd(), POLLIN, 0};
        QCOMPARE(poll(&descriptor, 1, 20000), 1);
        QVERIFY(!m_source->next(event));
    }
    QCOMPARE(hear([&] { m_hand->release(control); }), (All{told(kCGEventFlagsChanged, kVK_Control)}));
}

/// The server's repeats are no presses: each would open a tool.
void SessionInputTest::aKeyHeldDownIsPressedOnce() {
    m_hand->openFocusedWindow();
    const All heard = hear([&] {
        m_hand->press(letterA);
        int given = 0;
        QTRY_VERIFY((given += int(m_hand->takeGivenKeys().size())) >= 4);
        m_hand->release(letterA);
    });
    QCOMPARE(heard, (All{told(kCGEventKeyDown, kVK_ANSI_A), told(kCGEventKeyUp, kVK_ANSI_A)}));
}

void SessionInputTest::anUnpluggedKeyboardLetsGoOfItsModifiers() {
    InputEvent event;
    m_hand->press(control);
    m_hand->press(option);
    QVERIFY(takeNext(event) && takeNext(event));
    run(QStringLiteral("xinput disable 'Xvfb keyboard'"));
    QVector<std::int64_t> released;
    for (int i = 0; i < 2; ++i) {
        QVERIFY(takeNext(event));
        QCOMPARE(event.type, std::uint32_t{kCGEventFlagsChanged});
        released.append(event.keyCode);
    }
    std::sort(released.begin(), released.end());
    QCOMPARE(released, (QVector<std::int64_t>{kVK_Option, kVK_Control}));
    run(QStringLiteral("xinput enable 'Xvfb keyboard'"));
    QCOMPARE(hear([] {}), All{});
}

void SessionInputTest::clicksAreToldAndDragsAreNot() {
    QCOMPARE(hear([&] {
                 m_hand->moveTo(10, 20);
                 m_hand->button(1, true);
                 m_hand->moveTo(30, 40);
                 m_hand->moveTo(50, 60);
                 m_hand->button(1, false);
                 m_hand->moveTo(70, 80);
             }),
             (All{toldAt(kCGEventMouseMoved, 10, 20), toldAt(kCGEventLeftMouseDown, 10, 20),
                  toldAt(kCGEventLeftMouseUp, 50, 60), toldAt(kCGEventMouseMoved, 70, 80)}));
    QCOMPARE(hear([&] {
                 m_hand->button(3, true);
                 m_hand->moveTo(10, 10);
                 m_hand->button(3, false);
             }),
             All{});
}

void SessionInputTest::theWheelIsNotTold() {
    QCOMPARE(hear([&] {
                 for (const int wheel : {4, 5, 6, 7}) {
                     m_hand->button(wheel, true);
                     m_hand->button(wheel, false);
                 }
             }),
             All{});
}

void SessionInputTest::warpsAreToldAsMoves() {
    QCOMPARE(hear([&] { m_hand->warpTo(333, 222); }), (All{toldAt(kCGEventMouseMoved, 333, 222)}));
}

void SessionInputTest::keysAreHeardThroughOtherClientsGrabs_data() {
    QTest::addColumn<bool>("synchronous");
    QTest::newRow("asynchronous") << false;
    QTest::newRow("synchronous") << true;
}

void SessionInputTest::keysAreHeardThroughOtherClientsGrabs() {
    QFETCH(bool, synchronous);
    m_hand->grabKeyboard(synchronous);
    m_hand->press(letterG);
    InputEvent event;
    QVERIFY(takeNext(event));
    QCOMPARE(event.keyCode, std::int64_t{kVK_ANSI_G});
    m_hand->ungrab();
    m_hand->release(letterG);
    QVERIFY(takeNext(event));
    QCOMPARE(event.type, std::uint32_t{kCGEventKeyUp});
}

void SessionInputTest::movesAreHeardThroughAPointerGrab() {
    m_hand->grabPointer();
    QCOMPARE(hear([&] { m_hand->moveTo(7, 9); }), (All{toldAt(kCGEventMouseMoved, 7, 9)}));
}

void SessionInputTest::positionsFollowThePrimaryScreen() {
    vexa::platform::followPrimaryScreen({{800, 100}, {1120, 980}, 1});
    QCOMPARE(hear([&] { m_hand->moveTo(799, 99); }), (All{toldAt(kCGEventMouseMoved, -1, -1)}));
    QVERIFY(post(mouseEvent(kCGEventMouseMoved, -10, 20)));
    QCOMPARE(m_hand->pointer().x, 790);
    QCOMPARE(m_hand->pointer().y, 120);
}

/// The toolkit, whose screens the windows are on, knows nothing of the parts.
void SessionInputTest::aSplitMonitorIsOneScreen() {
    run(QStringLiteral("xrandr --setmonitor '*left' 960/300x1080/300+0+0 screen"));
    run(QStringLiteral("xrandr --setmonitor 'right' 960/300x1080/300+960+0 none"));
    QCOMPARE(hear([&] { m_hand->moveTo(1000, 20); }), (All{toldAt(kCGEventMouseMoved, 1000, 20)}));
    QVERIFY(post(mouseEvent(kCGEventMouseMoved, 990, 20)));
    QCOMPARE(m_hand->pointer().x, 990);
    run(QStringLiteral("xrandr --delmonitor left; xrandr --delmonitor right"));
}

void SessionInputTest::positionsAreInPoints() {
    vexa::platform::useSessionInput({{0, 0}, {1920, 1080}, 2});
    m_source = vexa::inputBackend().open();
    QCOMPARE(hear([&] { m_hand->moveTo(201, 100); }), (All{toldAt(kCGEventMouseMoved, 100.5, 50)}));
    QVERIFY(post(mouseEvent(kCGEventMouseMoved, 100, 30)));
    QCOMPARE(m_hand->pointer().x, 200);
    QCOMPARE(m_hand->pointer().y, 60);
}

/// Somebody else may end any client's connection.
void SessionInputTest::aLostConnectionIsMadeAgain() {
    QCOMPARE(hear([&] {
                 m_hand->press(control);
                 m_hand->press(shift);
                 m_hand->press(letterA);
             }),
             (All{told(kCGEventFlagsChanged, kVK_Control), told(kCGEventFlagsChanged, kVK_Shift),
                  told(kCGEventKeyDown, kVK_ANSI_A)}));
    breakConnections(); // before the keys go up, so that nobody tells of it
    m_hand->release(control);
    m_hand->release(letterA);
    InputEvent event;
    QVERIFY(takeNext(event));
    QCOMPARE((Told{event.type, event.keyCode, 0, 0}), told(kCGEventFlagsChanged, kVK_Control));
    QVERIFY(takeNext(event));
    QCOMPARE((Told{event.type, event.keyCode, 0, 0}), told(kCGEventKeyUp, kVK_ANSI_A));
    QCOMPARE(hear([&] { m_hand->release(shift); }), (All{told(kCGEventFlagsChanged, kVK_Shift)}));
}

void SessionInputTest::aConnectionLostForGoodIsTold() {
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":54321");
    breakConnections();
    InputEvent event;
    QVERIFY_EXCEPTION_THROWN(takeNext(event), std::runtime_error);
    qputenv("DISPLAY", display);
}

void SessionInputTest::severalSourcesHearTheSame() {
    auto second = vexa::inputBackend().open();
    QVERIFY(second);
    QCOMPARE(hear([&] { m_hand->moveTo(1, 2); }), (All{toldAt(kCGEventMouseMoved, 1, 2)}));
    std::swap(m_source, second);
    InputEvent event;
    QVERIFY(takeNext(event));
    QCOMPARE((Told{event.type, event.keyCode, event.x, event.y}), toldAt(kCGEventMouseMoved, 1, 2));
}

void SessionInputTest::commandReturnBecomesF5() {
    m_hand->openFocusedWindow();
    QVERIFY(post(keyEvent(kCGEventKeyDown, kVK_Return, kCGEventFlagMaskCommand)));
    const auto given = m_hand->takeGivenKeys();
    QCOMPARE(given.size(), std::size_t{2});
    QCOMPARE(given[0].xKeyCode, f5);
    QVERIFY(given[0].down && !given[1].down);
    QCOMPARE(given[0].modifiers, 0);
    QCOMPARE(hear([] {}), (All{told(kCGEventKeyDown, kVK_F5),
                               told(kCGEventKeyUp, kVK_F5)})); // comes back like any other key
}

void SessionInputTest::aKeyDownIsAPressAndAReleaseAndTheKeyUpNothing() {
    for (const auto &[key, x] :
         {std::pair{kVK_Escape, escape}, {kVK_Space, space}, {kVK_PageUp, pageUp}, {kVK_Return, returnKey}}) {
        QVERIFY(post(keyEvent(10, key)));
        QVERIFY(!m_hand->isDown(x));
        QCOMPARE(hear([] {}), (All{told(kCGEventKeyDown, key), told(kCGEventKeyUp, key)}));
        QVERIFY(post(keyEvent(11, key)));
        QCOMPARE(hear([] {}), All{});
    }
}

void SessionInputTest::keysThatCannotBePostedAreRefused() {
    QVERIFY(!post(keyEvent(kCGEventKeyDown, 127)));
    QVERIFY(!post(keyEvent(kCGEventKeyDown, -1)));
    QVERIFY(!post(keyEvent(kCGEventKeyDown, 1000)));
    QVERIFY(!post(
        keyEvent(kCGEventKeyDown, kVK_ANSI_A, kCGEventFlagMaskCommand))); // command+A means nothing here
    QVERIFY(!post(keyEvent(kCGEventFlagsChanged, kVK_Shift)));
    QVERIFY(!post(mouseEvent(6, 1, 1)));
    QCOMPARE(hear([] {}), All{});
}

void SessionInputTest::aClickMovesFirstAndThePointerStays() {
    QCOMPARE(
        hear([&] {
            for (const std::uint32_t type : {kCGEventMouseMoved, kCGEventLeftMouseDown, kCGEventLeftMouseUp})
                QVERIFY(post(mouseEvent(type, 120, 130)));
        }),
        (All{toldAt(kCGEventMouseMoved, 120, 130), toldAt(kCGEventLeftMouseDown, 120, 130),
             toldAt(kCGEventLeftMouseUp, 120, 130)}));
    QCOMPARE(m_hand->pointer().x, 120);
    QCOMPARE(m_hand->pointer().y, 130);
    outwaitAClick();
}

void SessionInputTest::keysArriveWithoutTheModifiersHeld_data() {
    QTest::addColumn<bool>("faked");
    QTest::newRow("held on the pen") << false;
    QTest::newRow("held by a program") << true;
}

void SessionInputTest::keysArriveWithoutTheModifiersHeld() {
    QFETCH(bool, faked);
    m_hand->openFocusedWindow();
    for (const int key : penModifiers)
        faked ? m_hand->fakePress(key) : m_hand->press(key);
    m_hand->takeGivenKeys();
    QVERIFY(post(keyEvent(kCGEventKeyDown, kVK_Escape)));
    int presses = 0;
    for (const auto &given : m_hand->takeGivenKeys()) {
        if (given.xKeyCode != escape)
            continue;
        QCOMPARE(given.modifiers, 0);
        ++presses;
    }
    QCOMPARE(presses, 2);
    for (const int key : penModifiers)
        faked ? m_hand->fakeRelease(key) : m_hand->release(key);
}

void SessionInputTest::modifiersAreAsBeforeAfterAPost() {
    for (const int key : penModifiers)
        m_hand->press(key);
    QCOMPARE(hear([] {}), (All{told(kCGEventFlagsChanged, kVK_Control), told(kCGEventFlagsChanged, kVK_Shift),
                               told(kCGEventFlagsChanged, kVK_Option)}));
    QCOMPARE(hear([] { QVERIFY(post(keyEvent(kCGEventKeyDown, kVK_Return, kCGEventFlagMaskCommand))); }),
             (All{told(kCGEventKeyDown, kVK_F5), told(kCGEventKeyUp, kVK_F5)}));
    for (const int key : penModifiers)
        QVERIFY(m_hand->isDown(key));

    // The release chord of a held tool, as the pen goes on.
    QCOMPARE(hear([&] {
                 m_hand->press(letterS);
                 m_hand->release(letterS);
                 for (const int key : penModifiers)
                     m_hand->release(key);
             }),
             (All{told(kCGEventKeyDown, kVK_ANSI_S), told(kCGEventKeyUp, kVK_ANSI_S),
                  told(kCGEventFlagsChanged, kVK_Control), told(kCGEventFlagsChanged, kVK_Shift),
                  told(kCGEventFlagsChanged, kVK_Option)}));
}

void SessionInputTest::clicksArriveWithoutTheModifiersHeld() {
    m_hand->press(option);
    QVERIFY(post(mouseEvent(kCGEventLeftMouseDown, 10, 10)));
    QVERIFY(post(mouseEvent(kCGEventLeftMouseUp, 10, 10)));
    QVERIFY(m_hand->isDown(option));
    QCOMPARE(hear([&] { m_hand->release(option); }),
             (All{told(kCGEventFlagsChanged, kVK_Option), toldAt(kCGEventMouseMoved, 10, 10),
                  toldAt(kCGEventLeftMouseDown, 10, 10), toldAt(kCGEventLeftMouseUp, 10, 10),
                  told(kCGEventFlagsChanged, kVK_Option)}));
    outwaitAClick();
}

void SessionInputTest::aModifierLetGoDuringAPostStaysReleased_data() {
    QTest::addColumn<bool>("heldByAProgramToo");
    QTest::addColumn<bool>("frozen");
    QTest::newRow("held on the pen") << false << false;
    QTest::newRow("held by a program too") << true << false;
    QTest::newRow("while a program keeps the keys back") << false << true;
}

void SessionInputTest::aModifierLetGoDuringAPostStaysReleased() {
    QFETCH(bool, heldByAProgramToo);
    QFETCH(bool, frozen);
    const auto connection = vexa::x11::Connection::open();
    m_hand->press(control);
    m_hand->press(shift);
    if (heldByAProgramToo)
        m_hand->fakePress(control);
    if (frozen)
        m_hand->grabKeyboard(true);
    vexa::x11::KeptKeys kept;
    vexa::x11::ModifierLift lift(*connection, kept);
    QVERIFY(connection->sync());
    QCOMPARE(m_hand->isDown(control), frozen);
    m_hand->release(control); // the server does not tell anybody: the key is up already
    lift.restore();
    QVERIFY(connection->sync());
    m_hand->ungrab();
    QVERIFY(kept[shift] && kept.count() == 1);
    QVERIFY(!m_hand->isDown(control));
    QVERIFY(m_hand->isDown(shift));
    m_hand->release(shift);
}

void SessionInputTest::whatAProgramHoldsStaysHeld() {
    m_hand->fakePress(control);
    for (int i = 0; i < 2; ++i) {
        QVERIFY(post(keyEvent(kCGEventKeyDown, kVK_Escape)));
        QVERIFY(m_hand->isDown(control));
    }
    QCOMPARE(hear([&] { m_hand->fakeRelease(control); }),
             (All{told(kCGEventFlagsChanged, kVK_Control), told(kCGEventKeyDown, kVK_Escape),
                  told(kCGEventKeyUp, kVK_Escape), told(kCGEventKeyDown, kVK_Escape),
                  told(kCGEventKeyUp, kVK_Escape), told(kCGEventFlagsChanged, kVK_Control)}));
}

void SessionInputTest::programsCanFakeModifiersAfterAPost() {
    m_hand->openFocusedWindow();
    for (const int key : penModifiers)
        m_hand->press(key);
    QVERIFY(post(keyEvent(kCGEventKeyDown, kVK_Escape)));
    for (const int key : penModifiers)
        m_hand->release(key);
    hear([] {});
    m_hand->takeGivenKeys();

    m_hand->fakePress(control);
    m_hand->fakePress(letterC);
    m_hand->fakeRelease(letterC);
    m_hand->fakeRelease(control);
    bool copied = false;
    for (const auto &given : m_hand->takeGivenKeys())
        copied = copied || (given.down && given.xKeyCode == letterC && given.modifiers == 4);
    QVERIFY2(copied, "a faked control+C arrived without its control");
}

void SessionInputTest::nothingSticksWhenModifiersChangeWhilePosting() {
    Hand pen;
    pen.goOnDuringServerGrabs();
    // In rounds, since the server drops records that it cannot get rid of.
    for (int round = 0; round < 300; ++round) {
        std::atomic<bool> posted{true};
        std::thread session([this, &pen, &posted] {
            std::thread typing([&pen] {
                for (int chord = 0; chord < 3; ++chord) {
                    for (const int key : penModifiers)
                        pen.press(key);
                    for (const int key : penModifiers)
                        pen.release(key);
                }
            });
            for (int i = 0; i < 2; ++i)
                posted = post(keyEvent(kCGEventKeyDown, kVK_Escape)) && posted;
            typing.join();
            mark();
        });
        const All heard = hearUpToMarker();
        session.join();
        QVERIFY(posted);
        QCOMPARE(heard.count(told(kCGEventKeyDown, kVK_Escape)), 2);
        for (const auto &[key, x] :
             {std::pair{kVK_Control, control}, {kVK_Shift, shift}, {kVK_Option, option}}) {
            // Each press has its release, and has it now, not only when the modifiers are next looked at: the
            // listener's toggles end where they began.
            const int changes = heard.count(told(kCGEventFlagsChanged, key));
            const QByteArray seen =
                QStringLiteral("round %1: key %2 changed %3 times").arg(round).arg(key).arg(changes).toUtf8();
            QVERIFY2(changes > 0, seen.constData());
            QVERIFY2(changes % 2 == 0, seen.constData());
            QVERIFY2(!m_hand->isDown(x), seen.constData());
        }
    }
}

QTEST_GUILESS_MAIN(SessionInputTest)
#include "SessionInputTest.moc"
