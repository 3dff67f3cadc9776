// Work for the main thread. GNUstep 1.28 has no dispatch queue, and its main operation queue runs on a worker thread.
#import "Platform.h"

#include <deque>
#include <memory>
#include <mutex>
#include <utility>

namespace {

struct MainQueue {
    std::mutex mutex;
    std::deque<std::function<void()>> work;
};

MainQueue &mainQueue() {
    static MainQueue queue;
    return queue;
}

// NSRunLoopCommonModes never fires here: the modes are named one by one.
NSArray *allModes() {
    static NSArray *modes = [[NSArray alloc]
        initWithObjects:NSDefaultRunLoopMode, NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode, nil];
    return modes;
}

} // namespace

@interface QVMainQueueWorker : NSObject {
    std::function<void()> _work;
}
- (instancetype)initWithWork:(std::function<void()>)work;
+ (void)runPendingWork;
- (void)timerFired:(NSTimer *)timer;
@end

@implementation QVMainQueueWorker

- (instancetype)initWithWork:(std::function<void()>)work {
    if ((self = [super init]) != nil) {
        _work = std::move(work);
    }
    return self;
}

+ (void)runPendingWork {
    std::deque<std::function<void()>> pending;
    {
        const std::lock_guard guard(mainQueue().mutex);
        pending.swap(mainQueue().work);
    }
    for (const auto &work : pending) {
        @autoreleasepool {
            work();
        }
    }
}

- (void)timerFired:(NSTimer *)timer {
    const auto work = std::exchange(_work, nullptr);
    work();
}

@end

namespace platform {

void async(std::function<void()> work) {
    {
        const std::lock_guard guard(mainQueue().mutex);
        mainQueue().work.push_back(std::move(work));
    }
    [QVMainQueueWorker performSelectorOnMainThread:@selector(runPendingWork)
                                        withObject:nil
                                     waitUntilDone:NO
                                             modes:allModes()];
}

void asyncAfter(double seconds, std::function<void()> work) {
    NSDate *date = [NSDate dateWithTimeIntervalSinceNow:seconds];
    auto schedule = [date = [date retain], work = std::move(work)]() mutable {
        QVMainQueueWorker *worker = [[QVMainQueueWorker alloc] initWithWork:std::move(work)];
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
