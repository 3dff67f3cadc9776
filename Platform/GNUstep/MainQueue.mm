// Work for the main thread. GNUstep 1.28 has no dispatch queue, and its main operation queue runs on a worker thread.
#import "Platform.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <deque>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace {

struct MainQueue {
    std::mutex mutex;
    std::deque<std::function<void()>> work;
    // By the time when it is due, in nanoseconds of the monotonic clock; what is due together stays in order.
    std::multimap<std::int64_t, std::function<void()>> delayed;
};

std::int64_t monotonicNow() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

MainQueue &mainQueue() {
    [[clang::no_destroy]] static MainQueue queue; // other threads may still use it while the process ends
    return queue;
}

// NSRunLoopCommonModes never fires here: the modes are named one by one.
NSArray *allModes() {
    static NSArray *modes = [[NSArray alloc]
        initWithObjects:NSDefaultRunLoopMode, NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode, nil];
    return modes;
}

} // namespace

// An event that work posts, or a modal panel that it stops, is noticed only when the run loop returns to the event
// loop, which timers do not make it do. A byte in a pipe that the run loop watches does.
@interface QVRunLoopWaker : NSObject <RunLoopEvents> {
    int _reading;
    int _writing;
}
+ (QVRunLoopWaker *)sharedWaker;
- (void)wake;
@end

@implementation QVRunLoopWaker

+ (QVRunLoopWaker *)sharedWaker {
    static QVRunLoopWaker *waker = [[QVRunLoopWaker alloc] init];
    return waker;
}

- (instancetype)init {
    if ((self = [super init]) != nil) {
        int ends[2] = {-1, -1};
        if (pipe2(ends, O_NONBLOCK | O_CLOEXEC) == 0) {
            _reading = ends[0];
            _writing = ends[1];
            for (NSString *mode in allModes()) {
                [[NSRunLoop currentRunLoop] addEvent:reinterpret_cast<void *>(static_cast<intptr_t>(_reading))
                                                type:ET_RDESC
                                             watcher:self
                                             forMode:mode];
            }
        }
    }
    return self;
}

- (void)wake {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(_writing, &byte, 1); // a full pipe wakes as well
}

- (void)receivedEvent:(void *)data type:(RunLoopEventType)type extra:(void *)extra forMode:(NSString *)mode {
    char bytes[64];
    while (read(_reading, bytes, sizeof bytes) > 0) {
    }
}

@end

@interface QVMainQueueWorker : NSObject
+ (void)runNextWork;
+ (void)askForTurn;
@end

@implementation QVMainQueueWorker

// Runs one piece of work; each call of async asks for one such turn. While more is waiting, another turn is asked for
// before the work runs: should it start a loop of its own (a modal panel), or raise an exception, the rest is run all
// the same.
+ (void)runNextWork {
    std::function<void()> work;
    bool more = false;
    {
        const std::lock_guard guard(mainQueue().mutex);
        auto &waiting = mainQueue().work;
        if (waiting.empty()) {
            return;
        }
        work = std::move(waiting.front());
        waiting.pop_front();
        more = !waiting.empty();
    }
    if (more) {
        [self askForTurn];
    }
    @autoreleasepool {
        work();
        work = nullptr;
    }
    [[QVRunLoopWaker sharedWaker] wake];
}

+ (void)askForTurn {
    [self performSelectorOnMainThread:@selector(runNextWork) withObject:nil waitUntilDone:NO modes:allModes()];
}

@end

// Counts delays with one timer of the system that the run loop watches: a fired NSTimer would stay behind in every mode
// that does not run.
@interface QVDelays : NSObject <RunLoopEvents> {
    int _timer;
}
+ (QVDelays *)sharedDelays; // first asked for on the main thread
- (void)arm;
@end

@implementation QVDelays

+ (QVDelays *)sharedDelays {
    static QVDelays *delays = [[QVDelays alloc] init];
    return delays;
}

- (instancetype)init {
    if ((self = [super init]) != nil) {
        _timer = timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
        for (NSString *mode in allModes()) {
            [[NSRunLoop currentRunLoop] addEvent:reinterpret_cast<void *>(static_cast<intptr_t>(_timer))
                                            type:ET_RDESC
                                         watcher:self
                                         forMode:mode];
        }
    }
    return self;
}

- (void)arm {
    const std::lock_guard guard(mainQueue().mutex);
    const auto &delayed = mainQueue().delayed;
    itimerspec setting{};
    if (!delayed.empty()) {
        constexpr std::int64_t second = 1'000'000'000;
        const std::int64_t due = std::max<std::int64_t>(delayed.begin()->first, 1); // zero would mean never
        setting.it_value = {.tv_sec = due / second, .tv_nsec = due % second};
    }
    timerfd_settime(_timer, TFD_TIMER_ABSTIME, &setting, nullptr);
}

- (void)receivedEvent:(void *)data type:(RunLoopEventType)type extra:(void *)extra forMode:(NSString *)mode {
    std::uint64_t expirations = 0;
    [[maybe_unused]] const ssize_t size = read(_timer, &expirations, sizeof expirations);
    std::vector<std::function<void()>> due;
    {
        const std::lock_guard guard(mainQueue().mutex);
        auto &delayed = mainQueue().delayed;
        const auto end = delayed.upper_bound(monotonicNow());
        for (auto entry = delayed.begin(); entry != end; ++entry) {
            due.push_back(std::move(entry->second));
        }
        delayed.erase(delayed.begin(), end);
    }
    for (auto &work : due) {
        platform::async(std::move(work));
    }
    [self arm];
}

@end

namespace platform {

void async(std::function<void()> work) {
    {
        const std::lock_guard guard(mainQueue().mutex);
        mainQueue().work.push_back(std::move(work));
    }
    @autoreleasepool { // the thread may have no pool
        [QVMainQueueWorker askForTurn];
    }
}

void asyncAfter(double seconds, std::function<void()> work) {
    constexpr double longest = 1e9; // seconds: beyond any process's life, within the clock's range
    const auto pause = static_cast<std::int64_t>(std::clamp(seconds, 0.0, longest) * 1e9);
    {
        const std::lock_guard guard(mainQueue().mutex);
        mainQueue().delayed.emplace(monotonicNow() + pause, std::move(work));
    }
    if ([NSThread isMainThread]) {
        [[QVDelays sharedDelays] arm];
    } else {
        async([] { [[QVDelays sharedDelays] arm]; });
    }
}

} // namespace platform
