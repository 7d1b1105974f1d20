// SPDX-License-Identifier: MIT
#include "platform/quartz/RunLoop.h"

#include "platform/quartz/Quartz.h"

#include <QTest>

#include <atomic>
#include <future>
#include <stdexcept>
#include <thread>
#include <unistd.h>

using vexa::quartz::Handle;
using vexa::quartz::RunLoop;
using vexa::quartz::RunLoopSource;

namespace {

/// A source that calls a function each time it is served.
class CallSource : public RunLoopSource {
public:
    explicit CallSource(std::function<bool()> call_) : call(std::move(call_)) {}

    int fd() const override { return wake.fd(); }
    bool isValid() const override { return valid; }
    bool serve() override {
        ++served;
        wake.clear();
        return call();
    }

    std::function<bool()> call;
    vexa::quartz::WakeFd wake;
    bool valid = true;
    int served = 0;
};

Handle<CallSource> addSource(std::function<bool()> call) {
    auto source = Handle<CallSource>::adopt(new CallSource(std::move(call)));
    RunLoop::current().add(source.get());
    return source;
}

void stopCurrent() {
    CFRunLoopStop(CFRunLoopGetCurrent());
}

} // namespace

class RunLoopTest : public QObject {
    Q_OBJECT

private slots:
    void eachThreadHasItsOwnLoop() {
        CFRunLoopRef other = nullptr;
        std::thread([&other] { other = CFRunLoopGetCurrent(); }).join();
        QCOMPARE(CFRunLoopGetCurrent(), CFRunLoopGetCurrent());
        QVERIFY(CFRunLoopGetCurrent() != other);
    }

    void aLoopWithoutSourcesReturns() {
        std::thread([] { CFRunLoopRun(); }).join();
    }

    void aLoopReturnsWhenItsLastSourceBecomesInvalid() {
        std::thread([] {
            Handle<CallSource> source;
            source = addSource([&source] {
                source->valid = false;
                return true;
            });
            CFRunLoopRun();
            QCOMPARE(source->served, 1);
        }).join();
    }

    void aStopEndsTheRun() {
        std::thread([] {
            const auto source = addSource([] {
                stopCurrent();
                return true;
            });
            CFRunLoopRun();
            QCOMPARE(source->served, 1);
            CFRunLoopRun();
            QCOMPARE(source->served, 2);
        }).join();
    }

    void aStopWithoutARunDoesNotEndTheNextOne() {
        std::thread([] {
            stopCurrent();
            const auto source = addSource([] { // its descriptor never becomes readable: it waits inside
                stopCurrent();
                return false;
            });
            CFRunLoopRun();
            QCOMPARE(source->served, 1);
        }).join();
    }

    void aStopEndsTheInnermostRunOnly() {
        std::thread([] {
            int depth = 0;
            bool innerReturned = false;
            const auto source = addSource([&] {
                if (depth++ == 0) {
                    CFRunLoopRun();
                    innerReturned = true;
                }
                stopCurrent();
                return true;
            });
            CFRunLoopRun();
            QVERIFY(innerReturned);
            QVERIFY(source->served >= 2);
        }).join();
    }

    void aRunThatAnExceptionLeavesIsOver() {
        std::thread([] {
            int depth = 0;
            bool caught = false;
            const auto source = addSource([&] {
                switch (depth++) {
                case 0:
                    try {
                        CFRunLoopRun();
                    } catch (const std::runtime_error &) {
                        caught = true;
                    }
                    stopCurrent(); // of the outer run, as the inner one is over
                    return true;
                case 1:
                    throw std::runtime_error("the source is lost");
                default:
                    stopCurrent();
                    return true;
                }
            });
            CFRunLoopRun();
            QVERIFY(caught);
            QCOMPARE(source->served, 2);
            CFRunLoopRun(); // and the loop runs again
            QCOMPARE(source->served, 3);
        }).join();
    }

    void aStopGetsBetweenTheEventsOfABurst() {
        std::thread([] {
            const auto endless = addSource([] { return true; });
            int rounds = 0;
            const auto stopper = addSource([&rounds] {
                if (++rounds == 3)
                    stopCurrent();
                return true;
            });
            CFRunLoopRun();
            QCOMPARE(rounds, 3);
            QCOMPARE(endless->served, 3);
        }).join();
    }

    void aSourceAddedWhileRunningIsServed() {
        std::promise<RunLoop *> running;
        std::atomic<bool> stopped{false};
        std::thread loop([&] {
            const auto idle = addSource([&running, told = false]() mutable {
                if (!std::exchange(told, true))
                    running.set_value(&RunLoop::current());
                return false;
            });
            CFRunLoopRun();
            stopped = true;
        });
        auto *other = running.get_future().get();
        const auto late = Handle<CallSource>::adopt(new CallSource([] {
            stopCurrent();
            return false;
        }));
        other->add(late.get());
        loop.join();
        QVERIFY(stopped);
        QCOMPARE(late->served, 1);
    }

    void aBrokenDescriptorIsNotPolledForEver() {
        class Broken : public RunLoopSource {
        public:
            int fd() const override { return closed; }
            bool isValid() const override { return true; }
            bool serve() override { return false; }
            int closed = -1;
        };
        std::thread([] {
            int ends[2];
            QCOMPARE(pipe(ends), 0);
            const auto broken = Handle<Broken>::adopt(new Broken);
            broken->closed = ends[0];
            RunLoop::current().add(broken.get());
            close(ends[1]); // hung up: reported at each poll, and never readable
            CFRunLoopRun(); // returns only because the source is given up
            close(ends[0]);
        }).join();
    }

    void constantStringsAreTheSameObject() {
        QCOMPARE(CFSTR("a name"), CFSTR("a name"));
        QVERIFY(CFSTR("a name") != CFSTR("another"));
    }
};

QTEST_GUILESS_MAIN(RunLoopTest)
#include "RunLoopTest.moc"
