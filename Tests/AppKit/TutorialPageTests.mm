// The pages of the startup tutorial: steps, buttons and reports. Nothing here depends on how fast the machine is.
#import "TestSupport.h"
#import "Tutorials.h"

#include "WeakObjCPtr.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace appkitglue;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Something with a tag.
NSButton *senderWithTag(NSInteger tag) {
    NSButton *button = [[[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)] autorelease];
    [button setTag:tag];
    return button;
}

class TutorialPages : public testing::Test {
protected:
    bool reaches(Steps::Case step) {
        return test::runUntil(
            [&] { return [controller currentStep] == step && [[controller pagerButton1] isEnabled]; });
    }
    /// Both fades of the description are over.
    bool isDescribedBy(const char *text) {
        return test::runUntil([&] {
            NSTextField *field = [controller descriptionField];
            return toUTF8([field stringValue]) == text && [field alphaValue] == 1;
        });
    }

    test::TutorialReports reports;
    test::QuietTutorial tutorial;
    StartupTutorialViewController *controller = tutorial.controller.get();
};

TEST_F(TutorialPages, GoOnWithTheNextButtonUpToTheLast) {
    [controller doNextWithSender:nil];
    EXPECT_EQ([controller currentStep], Steps::tm1) << "until the swap is complete";
    EXPECT_TRUE(reaches(Steps::tm2));
    EXPECT_EQ([controller currentView], [controller contentBoxTm2]);
    EXPECT_EQ([[controller contentBoxTm2] superview], [controller containerView]);
    EXPECT_EQ([[controller contentBoxEmpty] superview], nil);
    EXPECT_TRUE(isDescribedBy("Modify the Current Slide or Element with Action Buttons"));
    [controller doNextWithSender:nil];
    EXPECT_TRUE(reaches(Steps::tm3));
    EXPECT_FALSE([[controller nextActionButton] isHidden]);
    [controller doNextWithSender:nil];
    EXPECT_TRUE(reaches(Steps::tm4));
    EXPECT_TRUE(isDescribedBy("Quickly Reorder Slides in the Reorder Mode"));
    [controller doNextWithSender:nil];
    EXPECT_TRUE([[controller nextActionButton] isEnabled]) << "no transition runs";
    EXPECT_EQ([controller currentStep], Steps::tm4);
}

TEST_F(TutorialPages, DisableTheirButtonsDuringATransition) {
    [controller doNextWithSender:nil];
    EXPECT_FALSE([[controller nextActionButton] isEnabled]);
    for (NSButton *button in @[
             [controller pagerButton1], [controller pagerButton2], [controller pagerButton3], [controller pagerButton4]
         ]) {
        EXPECT_FALSE([button isEnabled]);
        EXPECT_NE([button image], nil);
    }
    // Double clicks find them disabled.
    [[controller nextActionButton] setTarget:controller];
    [[controller nextActionButton] setAction:@selector(doNextWithSender:)];
    [[controller nextActionButton] performClick:nil];
    EXPECT_TRUE(reaches(Steps::tm2));
    EXPECT_TRUE([[controller nextActionButton] isEnabled]);
    test::spin(0.1);
    EXPECT_EQ([controller currentStep], Steps::tm2);
}

TEST_F(TutorialPages, MarkThePagerDotOfTheStep) {
    [controller doSpecificWithSender:[controller pagerButton3]];
    EXPECT_TRUE(reaches(Steps::tm3));
    EXPECT_EQ([controller currentView], [controller contentBoxTm3]);
    const auto bytes = [](NSButton *button) { return [[button image] TIFFRepresentation]; };
    EXPECT_FALSE([bytes([controller pagerButton3]) isEqual:bytes([controller pagerButton1])]);
    EXPECT_TRUE([bytes([controller pagerButton2]) isEqual:bytes([controller pagerButton1])]);
    EXPECT_TRUE([bytes([controller pagerButton4]) isEqual:bytes([controller pagerButton1])]);
}

TEST_F(TutorialPages, IgnoreThePagerDotOfTheStepItself) {
    [controller doSpecificWithSender:[controller pagerButton1]];
    EXPECT_TRUE([[controller nextActionButton] isEnabled]);
    EXPECT_EQ([controller currentView], [controller contentBoxEmpty]);
}

TEST_F(TutorialPages, IgnoreTagsWithoutAStep) {
    for (const NSInteger tag :
         {NSInteger{0}, NSInteger{-1}, NSInteger{5}, NSInteger{100}, NSIntegerMax, NSIntegerMin}) {
        [controller doSpecificWithSender:senderWithTag(tag)];
        EXPECT_TRUE([[controller nextActionButton] isEnabled]) << tag;
    }
    EXPECT_EQ([controller currentStep], Steps::tm1);
}

TEST_F(TutorialPages, GoStraightToTheLastPageAndHideWhatLeadsOn) {
    [[controller buttonSampleDocument] setHidden:YES];
    [[controller buttonFinish] setHidden:YES];
    [controller doSpecificWithSender:[controller pagerButton4]];
    EXPECT_TRUE([[controller nextActionButton] isHidden]) << "at once";
    EXPECT_TRUE([[controller pagerStackView] isHidden]);
    EXPECT_FALSE([[controller buttonSampleDocument] isHidden]);
    EXPECT_FALSE([[controller buttonFinish] isHidden]);
    EXPECT_EQ([controller currentStep], Steps::tm1);
    EXPECT_TRUE(reaches(Steps::tm4));
    EXPECT_TRUE([[controller nextActionButton] isHidden]) << "for good";
}

TEST_F(TutorialPages, KeepTheFrameThatTheContentBoxHas) {
    [[controller contentBoxTm2] setFrame:NSMakeRect(3, 4, 50, 60)];
    [controller doNextWithSender:nil];
    EXPECT_TRUE(reaches(Steps::tm2));
    EXPECT_TRUE(NSEqualRects([[controller contentBoxTm2] frame], NSMakeRect(3, 4, 50, 60)));
}

TEST_F(TutorialPages, DoNothingBeforeTheIntroductionIsOver) {
    [controller setCurrentView:nil];
    [controller setCurrentStep:Steps::begin];
    [controller doNextWithSender:nil];
    [controller doSpecificWithSender:[controller pagerButton4]];
    EXPECT_TRUE([[controller nextActionButton] isEnabled]);
    EXPECT_FALSE([[controller nextActionButton] isHidden]);
    EXPECT_EQ([controller currentStep], Steps::begin);
}

TEST_F(TutorialPages, ReportTheStepWhenTheWindowCloses) {
    [controller setCurrentStep:Steps::tm3];
    [controller doFinishWithSender:nil];
    EXPECT_FALSE([tutorial.window.get() isVisible]);
    EXPECT_THAT(reports.log, ElementsAre("macOStutorialScreenClose: tm3"));
}

TEST_F(TutorialPages, RequestTheSampleDocumentBeforeClosing) {
    [controller doSampleDocumentWithSender:nil];
    EXPECT_FALSE([tutorial.window.get() isVisible]);
    EXPECT_TRUE([controller didTapSampleDocumentBeforeClose]);
    EXPECT_THAT(reports.log, ElementsAre("sample", "macOStutorialScreenClose: tm1-sample"));
}

TEST_F(TutorialPages, ReportTheOldStepWhenClosedDuringATransition) {
    [controller doNextWithSender:nil];
    [tutorial.window.get() performClose:nil];
    EXPECT_THAT(reports.log, ElementsAre("macOStutorialScreenClose: tm1"));
    EXPECT_TRUE(reaches(Steps::tm2)) << "pending work still runs";
    EXPECT_THAT(reports.log, ElementsAre("macOStutorialScreenClose: tm1")) << "and reports nothing";
}

TEST_F(TutorialPages, LetTheDescriptionOfTheLastFadeStay) {
    [controller doSpecificWithSender:[controller pagerButton2]];
    // A transition that the disabled buttons prevent in normal use.
    [controller doSpecificWithSender:[controller pagerButton3]];
    EXPECT_TRUE(isDescribedBy("Document Overrides Allow Setting Headers, Footers or Custom Animations"));
}

TEST_F(TutorialPages, EndTheIntroductionWithTheDrawingWhenItHasNoLabels) {
    [controller setCurrentView:nil];
    [controller setCurrentStep:Steps::begin];
    [controller setValue:nil forKey:@"headline"];
    [controller performSelector:@selector(startIntro)];
    EXPECT_EQ([controller currentStep], Steps::animateDrawing);
    EXPECT_FALSE([[controller nextActionButton] isEnabled]);
    EXPECT_TRUE(test::runUntil([&] { return [[controller contentBoxDrawing] superview] != nil; }));
    EXPECT_EQ([controller currentStep], Steps::tm1) << "when the drawing begins to slide";
    EXPECT_EQ([controller currentView], nil);
    EXPECT_TRUE(test::runUntil([&] { return [controller currentView] != nil; }));
    EXPECT_EQ([[controller contentBoxDrawing] frame].origin.y, 0);
    EXPECT_TRUE([[controller nextActionButton] isEnabled]);
    EXPECT_TRUE(NSEqualRects([[controller headlinesContainer] frame], NSMakeRect(10, 10, 200, 100)))
        << "without a layer the headlines stay";
}

using TutorialDeathTest = TutorialPages;

TEST_F(TutorialDeathTest, EndsTheProcessWithoutAMessageWhenAnOutletIsMissing) {
    [controller setPagerButton4:nil];
    EXPECT_EXIT([controller doNextWithSender:nil], testing::KilledBySignal(SIGABRT),
                "AppKitGlue/StartupTutorialViewController:[0-9]+: Fatal error: \n");
}

TEST_F(TutorialDeathTest, NeedsTheContentBoxOnlyOfTheStepThatIsShown) {
    [controller setContentBoxTm3:nil];
    [controller doNextWithSender:nil];
    EXPECT_TRUE(reaches(Steps::tm2));
    EXPECT_EXIT([controller doNextWithSender:nil], testing::KilledBySignal(SIGABRT), "Fatal error: ");
}

} // namespace
