// The nib of the startup tutorial and its window.
#import "Input.h"
#import "QVAppKitController.h"
#import "TestSupport.h"
#import "Tutorials.h"

#include "WeakObjCPtr.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace appkitglue;
using testing::ElementsAre;

namespace {

class TutorialLayout : public testing::Test {
protected:
    test::TutorialReports reports;
    test::Tutorial tutorial;
    StartupTutorialViewController *controller = tutorial.controller;
};

TEST_F(TutorialLayout, ConnectsEveryOutlet) {
    for (NSString *outlet in @[
             @"containerView",    @"headline",
             @"subline",          @"descriptionField",
             @"nextActionButton", @"exitActionButton",
             @"bluebar",          @"headlinesContainer",
             @"contentBoxEmpty",  @"contentBoxDrawing",
             @"contentBoxTm2",    @"contentBoxTm3",
             @"contentBoxTm4",    @"contentBoxTm5",
             @"contentBoxTm6",    @"contentBoxTm7",
             @"pagerStackView",   @"pagerButton1",
             @"pagerButton2",     @"pagerButton3",
             @"pagerButton4",     @"buttonSampleDocument",
             @"buttonFinish",     @"view"
         ]) {
        EXPECT_NE([controller valueForKey:outlet], nil) << toUTF8(outlet);
    }
    EXPECT_EQ([tutorial.window delegate], controller);
    EXPECT_EQ([tutorial.window windowController], tutorial.windowController.get());
}

TEST_F(TutorialLayout, ConnectsTheButtons) {
    const auto action = [](NSButton *button) { return std::string(sel_getName([button action])); };
    EXPECT_EQ(action([controller nextActionButton]), "doNextWithSender:");
    EXPECT_EQ(action([controller buttonSampleDocument]), "doSampleDocumentWithSender:");
    EXPECT_EQ(action([controller buttonFinish]), "doFinishWithSender:");
    EXPECT_EQ(toUTF8([[controller nextActionButton] keyEquivalent]), "\r");
    EXPECT_EQ(toUTF8([[controller exitActionButton] keyEquivalent]), "\x1b");
    NSInteger tag = 0;
    for (NSButton *button in @[
             [controller pagerButton1], [controller pagerButton2], [controller pagerButton3], [controller pagerButton4]
         ]) {
        EXPECT_EQ([button tag], ++tag);
        EXPECT_EQ(action(button), "doSpecificWithSender:");
        EXPECT_EQ([button target], controller);
        EXPECT_NE([button image], nil);
        EXPECT_TRUE([button isDescendantOf:[controller pagerStackView]]);
    }
}

TEST_F(TutorialLayout, GivesEachPageAFrameWithinTheContainer) {
    const NSRect container = [[controller containerView] bounds];
    for (NSView *box in @[ [controller contentBoxTm2], [controller contentBoxTm3], [controller contentBoxTm4] ]) {
        EXPECT_TRUE(NSContainsRect(container, [box frame]));
        EXPECT_FALSE(NSIsEmptyRect([box frame]));
    }
}

TEST_F(TutorialLayout, HasAWindowOfAFixedSize) {
    EXPECT_FALSE([tutorial.window styleMask] & NSResizableWindowMask);
    EXPECT_TRUE([tutorial.window styleMask] & NSClosableWindowMask);
    EXPECT_TRUE(NSEqualSizes([[tutorial.window contentView] frame].size, NSMakeSize(760, 580)));
}

TEST_F(TutorialLayout, BeginsWithTheHeadlinesAndTheEndButtons) {
    EXPECT_EQ([controller currentStep], Steps::begin);
    EXPECT_EQ([controller currentView], nil);
    EXPECT_EQ(toUTF8([[controller descriptionField] stringValue]), "");
    EXPECT_EQ([[controller contentBoxEmpty] superview], [controller containerView]);
    EXPECT_TRUE(NSEqualRects([[controller contentBoxEmpty] frame], [[controller containerView] bounds]));
    EXPECT_EQ([[controller bluebar] alphaValue], 0);
    EXPECT_EQ([[controller pagerStackView] alphaValue], 0);
    EXPECT_FALSE([[controller buttonSampleDocument] isHidden]);
    EXPECT_FALSE([[controller buttonFinish] isHidden]);
    EXPECT_FALSE([controller didTapSampleDocumentBeforeClose]);
}

TEST_F(TutorialLayout, HasLabelsOnTheDrawingThatAreHiddenAtFirst) {
    int labels = 0;
    for (NSView *subview in [[controller contentBoxDrawing] subviews]) {
        if ([subview isKindOfClass:[NSTextField class]]) {
            EXPECT_TRUE([subview isHidden]);
            EXPECT_TRUE([[(NSTextField *)subview stringValue] length] > 0);
            ++labels;
        }
    }
    EXPECT_EQ(labels, 4);
}

TEST_F(TutorialLayout, LeadsTheTabKeyThroughItsButtons) {
    std::vector<NSView *> order;
    NSView *at = [controller nextActionButton];
    for (int i = 0; i < 8; ++i) {
        order.push_back(at);
        at = [at nextKeyView];
    }
    EXPECT_EQ(at, [controller nextActionButton]) << "round and round";
    EXPECT_THAT(order,
                ElementsAre([controller nextActionButton], [controller pagerButton1], [controller pagerButton2],
                            [controller pagerButton3], [controller pagerButton4], [controller buttonSampleDocument],
                            [controller buttonFinish], [controller exitActionButton]));
}

TEST_F(TutorialLayout, ClosesOnEscape) {
    // The window manager may take the keyboard away once more while it places the window.
    for (int attempt = 0; attempt < 3 && reports.log.empty(); ++attempt) {
        ASSERT_TRUE(test::giveKeyboard(tutorial.window));
        test::pressKey("Escape");
        test::runUntil([&] { return !reports.log.empty(); }, 3);
    }
    EXPECT_THAT(reports.log, ElementsAre(testing::StartsWith("macOStutorialScreenClose: ")));
}

TEST_F(TutorialLayout, OutlivesItsWindowControllerUntilItCloses) {
    WeakObjCPtr<NSWindow> window(tutorial.window);
    WeakObjCPtr<StartupTutorialViewController> viewController(controller);
    @autoreleasepool {
        tutorial.windowController = nullptr;
    }
    test::spin(0.05);
    ASSERT_TRUE(window);
    EXPECT_TRUE([tutorial.window isVisible]);
    @autoreleasepool {
        [tutorial.window close];
    }
    EXPECT_THAT(reports.log, ElementsAre("macOStutorialScreenClose: begin"));
    tutorial.window = nil;
    EXPECT_TRUE(test::runUntil([&] { return !window && !viewController; }, 20)) << "when all that was pending is over";
}

TEST(TutorialWindows, StayOpenAndMoveOnWhenTheHostClearsItsToolbar) {
    test::TutorialReports reports;
    const auto host = adoptNS([[QVAppKitController alloc] init]);
    const auto tutorials = [] {
        std::vector<RetainPtr<NSWindow>> windows;
        for (NSWindow *window in [NSApp windows]) {
            if ([window isVisible] &&
                [[window contentViewController] isKindOfClass:[StartupTutorialViewController class]]) {
                windows.emplace_back(window);
            }
        }
        return windows;
    };
    @autoreleasepool {
        [QVAppKitController showTutorialWindow];
        [QVAppKitController showTutorialWindow];
    }
    const auto open = tutorials();
    ASSERT_EQ(open.size(), 2U);
    const auto stepOf = [](NSWindow *window) {
        return [static_cast<StartupTutorialViewController *>([window contentViewController]) currentStep];
    };
    EXPECT_TRUE(test::runUntil([&] { return stepOf(open[1].get()) == Steps::animateDrawing; }));
    @autoreleasepool {
        [host.get() clearWindowToolbar];
    }
    EXPECT_TRUE(
        test::runUntil([&] { return stepOf(open[0].get()) == Steps::tm1 && stepOf(open[1].get()) == Steps::tm1; }));
    EXPECT_EQ(tutorials().size(), 2U);
    for (const auto &window : open) {
        [window.get() close];
    }
    EXPECT_THAT(reports.log, ElementsAre("macOStutorialScreenClose: tm1", "macOStutorialScreenClose: tm1"));
}

} // namespace
