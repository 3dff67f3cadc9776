// The startup tutorial in real time: when each phase begins, and what a click or a close does in it.
// test: alone
// test: timing
#import "TestSupport.h"
#import "Tutorials.h"

#include "WeakObjCPtr.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>

using namespace appkitglue;
using testing::ElementsAre;

namespace {

constexpr double tolerance = 0.06;

double now() {
    return [NSDate timeIntervalSinceReferenceDate];
}

/// Notes when conditions first hold, in seconds since it was made.
class Watch {
public:
    using Phase = std::size_t;

    /// `condition` must come to hold `delay` seconds after an earlier phase did (after the beginning without one).
    Phase expect(const std::string &name, std::optional<Phase> before, double delay, std::function<bool()> condition) {
        phases_.push_back({name, before, delay, std::move(condition), -1});
        return phases_.size() - 1;
    }
    /// Runs until everything has happened, calling `meanwhile` all the time; then compares.
    void run(const std::function<void()> &meanwhile) {
        test::runUntil([&] {
            meanwhile();
            bool all = true;
            for (Entry &phase : phases_) {
                if (phase.happened < 0 && phase.condition()) {
                    phase.happened = time();
                }
                all = all && phase.happened >= 0;
            }
            return all;
        });
        for (const Entry &phase : phases_) {
            const double before = phase.before ? phases_.at(*phase.before).happened : 0;
            EXPECT_NEAR(phase.happened - before, phase.delay, tolerance) << phase.name;
        }
    }
    [[nodiscard]] double time() const { return now() - start_; }

private:
    struct Entry {
        std::string name;
        std::optional<Phase> before;
        double delay;
        std::function<bool()> condition;
        double happened;
    };
    std::vector<Entry> phases_;
    double start_ = now();
};

void clickEverything(StartupTutorialViewController *controller) {
    [controller doNextWithSender:nil];
    [controller doSpecificWithSender:[controller pagerButton2]];
    [controller doSpecificWithSender:[controller pagerButton4]];
}

TEST(TutorialTiming, EachPhaseBeginsInItsTimeAndClicksBeforeTheEndDoNothing) {
    test::Tutorial tutorial;
    Watch watch;
    StartupTutorialViewController *c = tutorial.controller;
    const NSRect headlines = [[c headlinesContainer] frame];
    const auto introduction =
        watch.expect("introduction", {}, 1.1, [c] { return [c currentStep] == Steps::animateDrawing; });
    watch.expect("bar", introduction, 0.8, [c] { return [[c bluebar] alphaValue] == 1; });
    const auto drawing = watch.expect("drawing", introduction, 0.8, [c] {
        return [c currentStep] == Steps::tm1 && [[c contentBoxDrawing] superview] != nil;
    });
    const auto atRest = watch.expect("drawing at rest", drawing, 0.7, [c] {
        return [[c contentBoxDrawing] superview] != nil && [[c contentBoxDrawing] frame].origin.y == 0;
    });
    Watch::Phase before = atRest;
    for (NSView *label in [[c contentBoxDrawing] subviews]) {
        watch.expect("label begins", before, 0, [label] { return ![label isHidden]; });
        before = watch.expect("label", before, 0.45, [label] { return ![label isHidden] && [label alphaValue] == 1; });
    }
    const auto text = watch.expect("description", atRest, 0.65,
                                   [c] { return [[[c descriptionField] stringValue] hasPrefix:@"Quorvel is Split"]; });
    watch.expect("description is there", text, 0.65, [c] {
        return [[[c descriptionField] stringValue] length] > 0 && [[c descriptionField] alphaValue] == 1;
    });
    watch.expect("end", before, 0, [c] { return [c currentView] != nil; });
    watch.expect("next button", before, 0, [c] { return [c currentView] != nil && [[c nextActionButton] isEnabled]; });
    watch.expect("pager", before, 0.25, [c] { return [[c pagerStackView] alphaValue] == 1; });
    watch.run([&] {
        if ([c currentView] == nil) {
            clickEverything(c);
        }
        if ([c currentStep] != Steps::begin && [c currentView] == nil) {
            EXPECT_FALSE([[c nextActionButton] isEnabled]);
        }
    });
    EXPECT_EQ([c currentStep], Steps::tm1);
    EXPECT_EQ([c currentView], [c contentBoxEmpty]);
    EXPECT_FALSE([[c nextActionButton] isHidden]);
    const NSRect moved = [[c headlinesContainer] frame];
    EXPECT_NEAR(moved.size.width, headlines.size.width * 0.7, 0.01);
    EXPECT_NEAR(moved.origin.x, headlines.origin.x - 7, 0.01);
    EXPECT_NEAR(moved.origin.y, headlines.origin.y + 91, 0.01);
    test::savePicture(tutorial.window, "tutorial-first-page");
}

TEST(TutorialTiming, APageSwapTakesHalfASecondAndItsDescriptionTwoFades) {
    test::QuietTutorial tutorial;
    StartupTutorialViewController *c = tutorial.controller.get();
    [[c descriptionField] setStringValue:@"Fonts are loaded with the first text"];
    [[c descriptionField] display];
    Watch watch;
    watch.expect("page", {}, 0.5, [c] { return [c currentStep] == Steps::tm2; });
    const auto text =
        watch.expect("description", {}, 0.65, [c] { return [[[c descriptionField] stringValue] hasPrefix:@"Modify"]; });
    watch.expect("description is there", text, 0.65, [c] {
        return [[[c descriptionField] stringValue] hasPrefix:@"Modify"] && [[c descriptionField] alphaValue] == 1;
    });
    [c doNextWithSender:nil];
    watch.run([] {});
}

TEST(TutorialTiming, ClosingInEachPhaseReportsTheStepAndEndsTheTutorial) {
    test::TutorialReports reports;
    std::vector<WeakObjCPtr<StartupTutorialViewController>> controllers;
    {
        // All at once: tutorials do not disturb each other.
        const double start = now();
        std::map<double, test::Tutorial> tutorials;
        for (const double closing : {0.5, 1.5, 2.2, 3.2}) {
            controllers.emplace_back(tutorials[closing].controller);
        }
        for (auto &[closing, tutorial] : tutorials) {
            EXPECT_TRUE(test::runUntil([&] { return now() - start >= closing; }));
            @autoreleasepool {
                [tutorial.window close];
            }
        }
    }
    EXPECT_THAT(reports.log, ElementsAre("macOStutorialScreenClose: begin", "macOStutorialScreenClose: animateDrawing",
                                         "macOStutorialScreenClose: tm1", "macOStutorialScreenClose: tm1"));
    EXPECT_TRUE(
        test::runUntil([&] { return std::ranges::none_of(controllers, [](const auto &c) { return bool(c); }); }));
    EXPECT_EQ(reports.log.size(), 4U) << "what was pending reports nothing";
}

} // namespace
