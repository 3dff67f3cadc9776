// Work for the main thread. GNUstep 1.28 has no dispatch queue, and its main operation queue runs on a worker thread.
#import "Platform.h"

#include <deque>
#include <memory>
#include <mutex>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

struct MainQueue {
    std::mutex mutex;
    std::deque<std::function<void()>> work;
};

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

@interface QVMainQueueWorker : NSObject {
    std::function<void()> _work;
}
- (instancetype)initWithWork:(std::function<void()>)work;
+ (void)runNextWork;
+ (void)askForTurn;
- (void)timerFired:(NSTimer *)timer;
@end

@implementation QVMainQueueWorker

- (instancetype)initWithWork:(std::function<void()>)work {
    if ((self = [super init]) != nil) {
        _work = std::move(work);
    }
    return self;
}

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

- (void)timerFired:(NSTimer *)timer {
    const auto work = std::exchange(_work, nullptr);
    work();
    [[QVRunLoopWaker sharedWaker] wake];
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
    const double time = [NSDate timeIntervalSinceReferenceDate] + seconds;
    auto schedule = [time, work = std::move(work)]() mutable {
        QVMainQueueWorker *worker = [[QVMainQueueWorker alloc] initWithWork:std::move(work)];
        NSDate *date = [[NSDate alloc] initWithTimeIntervalSinceReferenceDate:time];
        NSTimer *timer = [[NSTimer alloc] initWithFireDate:date
                                                  interval:0
                                                    target:worker
                                                  selector:@selector(timerFired:)
                                                  userInfo:nil
                                                   repeats:NO];
        for (NSString *mode in allModes()) {
            [[NSRunLoop currentRunLoop] addTimer:timer forMode:mode];
        }
        [timer release];
        [worker release];
        [date release];
    };
    if ([NSThread isMainThread]) {
        schedule();
    } else {
        async(std::move(schedule));
    }
}

} // namespace platform
