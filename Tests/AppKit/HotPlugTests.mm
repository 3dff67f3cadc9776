// test: displays=2
// test: timeout=300
//
// Random sequences of what happens to displays while an application presents, against a model of what must hold after
// each step. RC_PARAMS="seed=N" runs one again.
#import "PresentationWindows.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>

#include <rapidcheck.h>

using namespace appkitglue;

namespace {

NSString *const key = @"SCREEN_CONFIGURATIONS2";

// RapidCheck reports by exceptions, which end the process in this language mix: what fails is kept as text instead.
#define QV_REQUIRE(...) require(static_cast<bool>(__VA_ARGS__), #__VA_ARGS__)

enum class Action { Plug, Unplug, Rearrange, Mirror, Resize, BeginOnOne, BeginOnTwo, End, Store, Query };

/// One step; the numbers choose among what is there when it comes.
struct Step {
    Action action = Action::Query;
    unsigned first = 0;
    unsigned second = 0;
    bool wait = true;
};

std::ostream &operator<<(std::ostream &stream, const Step &step) {
    static constexpr const char *names[] = {"plug",     "unplug",   "rearrange", "mirror", "resize",
                                            "beginOne", "beginTwo", "end",       "store",  "query"};
    return stream << names[static_cast<int>(step.action)] << "(" << step.first << "," << step.second << "," << step.wait
                  << ")";
}

Step anyStep() {
    return {static_cast<Action>(*rc::gen::inRange(0, 10)), *rc::gen::inRange(0U, 6U), *rc::gen::inRange(0U, 6U),
            *rc::gen::inRange(0, 4) != 0};
}

class HotPlug : public test::PresentationWindows {
protected:
    /// Runs a sequence; returns whether all held, and prints where it did not.
    bool run(const std::vector<Step> &sequence);

private:
    void require(bool holds, const char *what) {
        if (!holds && failure_.empty()) {
            failure_ = what;
        }
    }
    void apply(const Step &step);
    void check(const Step &step);
    void reset();

    void rearrange(bool wait);
    void begin(NSWindow *slides);
    void store(const Step &step);
    void query();
    [[nodiscard]] bool windowsAreOnScreens() const;

protected:
    std::size_t done_ = 0;

private:
    std::vector<test::Display> displays_ = test::usualDisplays(2);
    std::vector<std::pair<std::string, std::string>> pairs_;
    bool settled_ = true;
    std::string failure_;
};

std::vector<NSWindow *> visibleWindows() {
    std::vector<NSWindow *> windows;
    for (NSWindow *window in [NSApp windows]) {
        if ([window isVisible] && [window contentView] != nil &&
            ![window isKindOfClass:NSClassFromString(@"NSMenuPanel")]) {
            windows.push_back(window);
        }
    }
    return windows;
}

/// Lays the displays out beside each other, in their order; the first one is primary.
void HotPlug::rearrange(bool wait) {
    int x = 0;
    for (auto &display : displays_) {
        display.x = x;
        display.y = 0;
        display.primary = &display == &displays_.front();
        x += display.width;
    }
    test::arrangeWithoutWaiting(displays_);
    settled_ = wait;
}

void HotPlug::begin(NSWindow *slides) {
    const bool wasPresenting = [[document_ contentView] isInFullScreenMode];
    NSString *problem = [controller_ beginFullscreenSetupWithExternalSlides:slides];
    const std::string text = problem == nil ? "" : toUTF8(problem);
    if (!text.empty()) {
        QV_REQUIRE(slides != nil);
        QV_REQUIRE(text == "Invalid configuration. Missing external slides screen" ||
                   text == "Invalid configuration. Presenter screen is equal to Slideshow screen");
        QV_REQUIRE([[document_ contentView] isInFullScreenMode] == wasPresenting);
    } else {
        QV_REQUIRE([[document_ contentView] isInFullScreenMode]);
    }
}

void HotPlug::store(const Step &step) {
    const auto names = provider().availableScreenNames();
    const std::string presenter = names[step.first % names.size()];
    const std::string slideshow = names[step.second % names.size()];
    PresentationWindows::store(presenter, slideshow);
    if (const std::pair pair(presenter, slideshow); std::ranges::find(pairs_, pair) == pairs_.end()) {
        pairs_.push_back(pair);
    }
}

void HotPlug::query() {
    NSDictionary *answer = [controller_ multipleWindowConfiguration];
    QV_REQUIRE([[answer objectForKey:@"screens"] count] == [[NSScreen screens] count]);
    NSValue *bounds = [controller_ slideshowWindowBounds];
    const bool isAScreen = bounds != nil && [[[NSScreen screens] valueForKey:@"frame"] containsObject:bounds];
    QV_REQUIRE(bounds == nil || isAScreen);
    QV_REQUIRE(bounds != nil || [[NSScreen screens] count] == 1);
}

void HotPlug::apply(const Step &step) {
    switch (step.action) {
    case Action::Plug:
        for (const auto &usual : test::usualDisplays(3)) {
            if (std::ranges::find(displays_, usual.output, &test::Display::output) == displays_.end()) {
                displays_.push_back(usual);
                return rearrange(step.wait);
            }
        }
        return;
    case Action::Unplug:
        if (displays_.size() > 1) {
            displays_.erase(displays_.begin() + step.first % static_cast<unsigned>(displays_.size()));
            rearrange(step.wait);
        }
        return;
    case Action::Rearrange:
        std::swap(displays_.front(), displays_[step.first % displays_.size()]);
        return rearrange(step.wait);
    case Action::Mirror:
        for (auto &display : displays_) {
            display = {display.output, 1280, 720, 0, 0, &display == &displays_.front()};
        }
        test::arrangeWithoutWaiting(displays_);
        settled_ = step.wait;
        return;
    case Action::Resize: {
        auto &display = displays_[step.first % displays_.size()];
        const auto sizes = test::usualDisplays(3);
        display.width = sizes[step.second % 3].width;
        display.height = sizes[step.second % 3].height;
        return rearrange(step.wait);
    }
    case Action::BeginOnOne:
        return begin(nil);
    case Action::BeginOnTwo:
        return begin(slides_);
    case Action::End:
        [controller_ endFullscreenSetup];
        QV_REQUIRE(![[document_ contentView] isInFullScreenMode]);
        QV_REQUIRE(![[slides_ contentView] isInFullScreenMode]);
        return;
    case Action::Store:
        return store(step);
    case Action::Query:
        return query();
    }
}

bool HotPlug::windowsAreOnScreens() const {
    return std::ranges::all_of(visibleWindows(), [&](NSWindow *window) {
        const bool isFullScreen =
            window != document_ && window != slides_ &&
            ([[document_ contentView] window] == window || [[slides_ contentView] window] == window);
        for (NSScreen *screen in [NSScreen screens]) {
            if (isFullScreen ? test::covers(window, [screen frame])
                             : NSIntersectsRect([window frame], NSInsetRect([screen frame], 10, 10))) {
                return true;
            }
        }
        return false;
    });
}

void HotPlug::check(const Step &step) {
    // A step that does not wait is followed by the next one at once, with the change still on its way.
    if (!settled_) {
        settled_ = true;
        return;
    }
    QV_REQUIRE(test::runUntil([&] { return test::screensMatch(displays_); }, 20));
    QV_REQUIRE(test::runUntil([&] { return windowsAreOnScreens(); }, 20));
    if (step.action == Action::End) {
        QV_REQUIRE(test::runUntil([] { return test::cursorShows(); }, 20));
    }
    const ScreenHandling &handling = provider().screenHandler();
    std::vector<std::pair<std::string, std::string>> remembered;
    for (const auto &combination : handling.combinations) {
        remembered.emplace_back(combination.presenter.displayName(), combination.slideshow.displayName());
    }
    QV_REQUIRE(remembered == pairs_);
    if (!pairs_.empty()) {
        QV_REQUIRE(ScreenHandling::decode(bytesOf([[NSUserDefaults standardUserDefaults] dataForKey:key])).value() ==
                   handling);
    }
}

void HotPlug::reset() {
    [controller_ endFullscreenSetup];
    provider().currentDisplayConfiguration() = {};
    displays_ = test::usualDisplays(2);
    settled_ = true;
    QV_REQUIRE(test::arrange(displays_));
    [document_ makeKeyAndOrderFront:nil];
}

bool HotPlug::run(const std::vector<Step> &sequence) {
    reset();
    for (std::size_t i = 0; i < sequence.size() && failure_.empty(); ++i) {
        @autoreleasepool {
            apply(sequence[i]);
            check(sequence[i]);
            ++done_;
        }
        if (!failure_.empty()) {
            std::cout << "does not hold: " << failure_ << "\nafter";
            for (std::size_t k = 0; k <= i; ++k) {
                std::cout << " " << sequence[k];
            }
            std::cout << "\n";
            for (NSWindow *window : visibleWindows()) {
                std::cout << toUTF8([window description]) << " " << toUTF8(NSStringFromRect([window frame])) << "\n";
            }
            for (NSScreen *screen in [NSScreen screens]) {
                std::cout << "screen " << toUTF8(NSStringFromRect([screen frame])) << "\n";
            }
            test::savePicture(nil, "hot-plug");
        }
    }
    return failure_.empty();
}

TEST_F(HotPlug, NeverLosesAWindowACursorOrAChoice) {
    constexpr int sequences = 12;
    constexpr std::size_t steps = 28;
    if (std::getenv("RC_PARAMS") == nullptr) {
        const std::string parameters =
            "noshrink=1 max_success=" + std::to_string(sequences) + " seed=" + std::to_string(std::random_device{}());
        setenv("RC_PARAMS", parameters.c_str(), 1);
    }
    std::cout << "RC_PARAMS=\"" << std::getenv("RC_PARAMS") << "\"\n";
    EXPECT_TRUE(rc::check([&] {
        // At full size from the start: small sizes choose the same few actions.
        const auto sequence =
            *rc::gen::resize(rc::kNominalSize, rc::gen::container<std::vector<Step>>(steps, rc::gen::exec(anyStep)));
        return run(sequence);
    }));
    std::cout << done_ << " steps\n";
    EXPECT_GE(done_, 300U);
}

} // namespace
