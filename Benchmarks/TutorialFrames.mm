// How evenly the startup tutorial's introduction moves: opens it from the bundle as built and prints how many frames
// were shown while it moved, the worst gap between two of them, how many a 60 Hz display would have missed, and the
// processor time that a frame took.
#import <AppKit/AppKit.h>

#import "Hooks.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace {

constexpr double start = 1.2; // seconds; everything between these moves
constexpr double end = 4.6;
constexpr double frameTime = 1.0 / 60;

double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

platform::Hook<void> flushWindow;
std::vector<double> flushes;
double opened = 0;
std::clock_t cpuBefore = 0;

void countFlush(id self, SEL command) {
    flushWindow.original(self, command);
    const double time = now() - opened;
    if (opened > 0 && time > start && time < end) {
        flushes.push_back(time);
    }
}

int report() {
    // What is flushed right after another part of the window belongs to the same frame.
    std::vector<double> frames;
    for (const double time : flushes) {
        if (frames.empty() || time - frames.back() > frameTime / 2) {
            frames.push_back(time);
        }
    }
    if (frames.size() < 2) {
        std::fprintf(stderr, "TutorialFrames: nothing moved\n");
        return 1;
    }
    double worst = 0;
    double worstAt = 0;
    long dropped = 0;
    for (std::size_t i = 1; i < frames.size(); ++i) {
        const double gap = frames[i] - frames[i - 1];
        if (gap > worst) {
            worst = gap;
            worstAt = frames[i - 1];
        }
        dropped += std::max(0L, std::lround(gap / frameTime) - 1);
    }
    std::printf(
        "introduction: %zu frames in %.2f s, worst gap %.1f ms (at %.2f s), %ld dropped, %.1f ms of CPU a frame\n",
        frames.size(), frames.back() - frames.front(), worst * 1000, worstAt, dropped,
        1000.0 * static_cast<double>(std::clock() - cpuBefore) / CLOCKS_PER_SEC / static_cast<double>(frames.size()));
    return 0;
}

} // namespace

@interface FrameCounter : NSObject
@end

@implementation FrameCounter

- (void)applicationDidFinishLaunching:(NSNotification *)notification {
    NSBundle *bundle = [NSBundle bundleWithPath:@QV_BUNDLE_PATH];
    Class principal = [bundle principalClass];
    flushWindow.install([NSWindow class], @selector(flushWindow), countFlush);
    [principal performSelector:sel_registerName("showTutorialWindow")];
    opened = now();
    cpuBefore = std::clock();
    [NSTimer scheduledTimerWithTimeInterval:end + 0.5 target:self selector:@selector(finish:) userInfo:nil repeats:NO];
}

- (void)finish:(NSTimer *)timer {
    std::exit(report());
}

@end

int main() {
    @autoreleasepool {
        [NSApplication sharedApplication];
        [[NSUserDefaults standardUserDefaults] registerDefaults:@{@"GSSuppressAppIcon" : @"YES"}];
        FrameCounter *counter = [[FrameCounter alloc] init];
        [NSApp setDelegate:(id)counter];
        [NSApp run];
        [counter release];
    }
    return 0;
}
