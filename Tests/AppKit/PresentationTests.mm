// test: displays=2
#import "PresentationWindows.h"

#import "MouseMoveManager.h"
#import "QVAppKitController+Private.h"

#include <gmock/gmock.h>
#include <objc/runtime.h>

using namespace appkitglue;

namespace {

class Presentation : public test::PresentationWindows {};

std::string begin(QVAppKitController *controller, NSWindow *slides) {
    NSString *text = [controller beginFullscreenSetupWithExternalSlides:slides];
    return text == nil ? "no problem" : toUTF8(text);
}

MouseMoveManager *manager(QVAppKitController *controller) {
    return controller.state->mouseMoveManager.get();
}

TEST_F(Presentation, WindowFullscreenIsAToggle) {
    [controller_ beginFullscreen];
    EXPECT_TRUE(test::runUntil([&] { return test::covers(document_, [screen(0) frame]); }));
    [controller_ endFullscreen];
    EXPECT_TRUE(test::runUntil([&] { return NSWidth([document_ frame]) < NSWidth([screen(0) frame]); }));
    [controller_ endFullscreen];
    EXPECT_TRUE(test::runUntil([&] { return test::covers(document_, [screen(0) frame]); }));
    [controller_ beginFullscreen];
}

TEST_F(Presentation, WithoutDocumentWindowTellsSoAndDoesNothing) {
    [controller_ setupToolbarInWindow:nil];
    EXPECT_EQ(begin(controller_, nil), "Missing Presentation Main Window");
    EXPECT_EQ(begin(controller_, slides_), "Missing Presentation Main Window");
    [controller_ beginFullscreen];
    [controller_ endFullscreen];
    [controller_ endFullscreenSetup];
    EXPECT_FALSE([[slides_ contentView] isInFullScreenMode]);
}

TEST_F(Presentation, OfAWindowWithoutContentIsRefused) {
    document_->_hidesContent = YES;
    EXPECT_EQ(begin(controller_, nil), "Missing Presentation Main Window");
    document_->_hidesContent = NO;
}

TEST_F(Presentation, OnOneScreenCoversTheWindowsScreenAndHidesTheCursor) {
    [document_ setFrame:NSMakeRect(1600, 300, 600, 400) display:YES];
    test::runUntilQuiet(document_);
    test::movePointer(2000, 300);
    ASSERT_TRUE(test::runUntil([] { return test::cursorShows(); }));
    EXPECT_EQ(begin(controller_, nil), "no problem");
    EXPECT_TRUE(shows(documentColour, 1));
    EXPECT_TRUE(test::runUntil([] { return !test::cursorShows(); }));
    EXPECT_EQ(static_cast<int>([NSApp presentationOptions]), 3077);
    NSTrackingArea *area = [manager(controller_) trackingArea];
    EXPECT_EQ([area options], 643U);
    EXPECT_EQ([area owner], manager(controller_));
    EXPECT_EQ([area userInfo], nil);
    EXPECT_TRUE(NSEqualSizes([area rect].size, [screen(1) frame].size));
    EXPECT_THAT([[document_ contentView] trackingAreas],
                testing::Truly([&](NSArray *areas) { return [areas count] == 1 && [areas lastObject] == area; }));
}

TEST_F(Presentation, OnOneScreenFallsBackToTheMainScreen) {
    // The main screen is the key window's.
    [slides_ makeKeyAndOrderFront:nil];
    ASSERT_TRUE(test::runUntil([&] { return [slides_ isKeyWindow]; }));
    document_->_hidesScreen = YES;
    EXPECT_EQ(begin(controller_, nil), "no problem");
    EXPECT_TRUE(shows(documentColour, 0));
    document_->_hidesScreen = NO;
}

TEST_F(Presentation, WithoutAnyScreenTellsWhichWindowHasNone) {
    document_->_hidesScreen = YES;
    Method method = class_getClassMethod([NSScreen class], @selector(mainScreen));
    IMP original = method_setImplementation(method, reinterpret_cast<IMP>(+[](id, SEL) -> id { return nil; }));
    const std::string text = begin(controller_, nil);
    method_setImplementation(method, original);
    document_->_hidesScreen = NO;
    EXPECT_EQ(text, "Could not find screen for window " + toUTF8([document_ description]) + " or main screen");
    EXPECT_FALSE([[document_ contentView] isInFullScreenMode]);
}

TEST_F(Presentation, OnTwoScreensShowsThePresenterViewAndTheSlides) {
    test::movePointer(700, 300);
    ASSERT_TRUE(test::runUntil([] { return test::cursorShows(); }));
    EXPECT_EQ(begin(controller_, slides_), "no problem");
    EXPECT_TRUE(shows(documentColour, 0));
    EXPECT_TRUE(shows(slidesColour, 1));
    EXPECT_EQ([manager(controller_) trackingArea], nil);
    EXPECT_TRUE(test::cursorShows());
}

TEST_F(Presentation, OnTwoScreensCoversThePanelsOfBoth) {
    const test::Panel first(NSMakeRect(0, 1040, 1440, 40));
    const test::Panel second(NSMakeRect(1440, 0, 1920, 60));
    ASSERT_TRUE(test::runUntil([] {
        return test::screenPixel(NSMakePoint(700, 1060)) == test::Panel::colour &&
               test::screenPixel(NSMakePoint(2000, 30)) == test::Panel::colour;
    }));
    EXPECT_EQ(begin(controller_, slides_), "no problem");
    EXPECT_TRUE(shows(documentColour, 0));
    EXPECT_TRUE(shows(slidesColour, 1));
    [controller_ endFullscreenSetup];
    EXPECT_TRUE(test::runUntil([] { return test::screenPixel(NSMakePoint(2000, 30)) == test::Panel::colour; }));
}

TEST_F(Presentation, OnTwoScreensFollowsTheStoredChoice) {
    store("DUMMY1  1920×1080", "DUMMY0 Main 1440×900");
    EXPECT_EQ(begin(controller_, slides_), "no problem");
    EXPECT_TRUE(shows(documentColour, 1));
    EXPECT_TRUE(shows(slidesColour, 0));
}

TEST_F(Presentation, OnOneConnectedScreenRefusesASlidesWindow) {
    ASSERT_TRUE(test::arrange(test::usualDisplays(1)));
    EXPECT_EQ(begin(controller_, slides_), "Invalid configuration. Missing external slides screen");
    EXPECT_FALSE([[document_ contentView] isInFullScreenMode]);
    EXPECT_FALSE([[slides_ contentView] isInFullScreenMode]);
}

TEST_F(Presentation, RefusesOneScreenForBoth) {
    store("DUMMY0 Main 1440×900", "DUMMY0 Main 1440×900");
    EXPECT_EQ(begin(controller_, slides_), "Invalid configuration. Presenter screen is equal to Slideshow screen");
    EXPECT_FALSE([[document_ contentView] isInFullScreenMode]);
    EXPECT_FALSE([[slides_ contentView] isInFullScreenMode]);
}

TEST_F(Presentation, SkipsASlidesWindowWithoutContent) {
    slides_->_hidesContent = YES;
    EXPECT_EQ(begin(controller_, slides_), "no problem");
    EXPECT_TRUE(shows(documentColour, 0));
    [controller_ endFullscreenSetup];
    EXPECT_FALSE([[document_ contentView] isInFullScreenMode]);
    slides_->_hidesContent = NO;
}

TEST_F(Presentation, PressesTheMouseTwiceWithoutReleasingItAndTakesTheKeysLater) {
    [document_->_events removeAllObjects];
    begin(controller_, nil);
    EXPECT_EQ(document_->_broughtToFront, 0);
    EXPECT_EQ([document_->_events count], 0U);
    ASSERT_TRUE(test::runUntil([&] { return [document_->_events count] >= 2; }));
    test::spin(0.1);
    ASSERT_EQ([document_->_events count], 2U);
    EXPECT_EQ(document_->_broughtToFront, 1);
    for (NSEvent *event in document_->_events) {
        EXPECT_EQ([event type], NSLeftMouseDown);
        EXPECT_TRUE(NSEqualPoints([event locationInWindow], NSMakePoint(1, 1)));
        EXPECT_EQ([event windowNumber], [document_ windowNumber]);
        EXPECT_EQ([event clickCount], 1);
        EXPECT_EQ([event pressure], 1.0F);
        EXPECT_EQ([event modifierFlags], 0U);
        EXPECT_EQ([event timestamp], 0);
    }
}

TEST_F(Presentation, BegunTwiceLeavesTheFirstTrackingAreaOnTheView) {
    begin(controller_, nil);
    NSTrackingArea *first = [[[manager(controller_) trackingArea] retain] autorelease];
    begin(controller_, nil);
    NSTrackingArea *second = [manager(controller_) trackingArea];
    EXPECT_NE(first, second);
    EXPECT_TRUE([[[document_ contentView] trackingAreas] isEqualToArray:(@[ first, second ])]);
    [controller_ endFullscreenSetup];
    EXPECT_TRUE([[[document_ contentView] trackingAreas] isEqualToArray:@[ first ]]);
    EXPECT_EQ([manager(controller_) trackingArea], nil);
}

TEST_F(Presentation, EndPutsBothWindowsBackAndClosesNone) {
    begin(controller_, slides_);
    ASSERT_TRUE(shows(slidesColour, 1));
    [controller_ endFullscreenSetup];
    for (NSWindow *window : {static_cast<NSWindow *>(document_), static_cast<NSWindow *>(slides_)}) {
        EXPECT_FALSE([[window contentView] isInFullScreenMode]);
        EXPECT_EQ([[window contentView] window], window);
        EXPECT_TRUE([window isVisible]);
    }
    EXPECT_FALSE(controller_.state->currentExternalSlidesWindow);
    EXPECT_TRUE(test::runUntil([&] { return test::screenPixel(NSMakePoint(3000, 500)) != slidesColour; }));
}

TEST_F(Presentation, EndOnOneScreenShowsTheCursorAgain) {
    test::movePointer(300, 450);
    begin(controller_, nil);
    ASSERT_TRUE(test::runUntil([] { return !test::cursorShows(); }));
    [controller_ endFullscreenSetup];
    EXPECT_TRUE(test::runUntil([] { return test::cursorShows(); }));
    EXPECT_EQ([manager(controller_) trackingArea], nil);
    EXPECT_EQ([[[document_ contentView] trackingAreas] count], 0U);
}

TEST_F(Presentation, EndWithoutBeginLeavesTheCursorAlone) {
    test::movePointer(300, 450);
    ASSERT_TRUE(test::runUntil([] { return test::cursorShows(); }));
    [NSCursor setHiddenUntilMouseMoves:YES];
    ASSERT_TRUE(test::runUntil([] { return !test::cursorShows(); }));
    [controller_ endFullscreenSetup];
    test::spin(0.1);
    EXPECT_FALSE(test::cursorShows());
    EXPECT_FALSE([[document_ contentView] isInFullScreenMode]);
    [NSCursor setHiddenUntilMouseMoves:NO];
}

TEST_F(Presentation, SurvivesTheLossOfEitherDisplayAndBeginsAnewWhenItIsBack) {
    for (const std::size_t lost : {0U, 1U}) {
        ASSERT_EQ(begin(controller_, slides_), "no problem");
        ASSERT_TRUE(shows(slidesColour, 1));
        auto rest = test::usualDisplays(2);
        rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(lost));
        rest[0].x = 0;
        ASSERT_TRUE(test::arrange(rest));
        for (NSWindow *window : {[[document_ contentView] window], [[slides_ contentView] window]}) {
            EXPECT_TRUE(test::runUntil([&] { return test::covers(window, [screen(0) frame]); })) << lost;
        }
        EXPECT_TRUE(shows(documentColour, 0)) << "the presenter's view has the keys";
        [controller_ endFullscreenSetup];
        EXPECT_FALSE([[document_ contentView] isInFullScreenMode]);
        EXPECT_FALSE([[slides_ contentView] isInFullScreenMode]);
        EXPECT_NE(begin(controller_, slides_), "no problem");
        ASSERT_TRUE(test::arrange(test::usualDisplays(2)));
    }
    EXPECT_EQ(begin(controller_, slides_), "no problem");
    EXPECT_TRUE(shows(documentColour, 0));
    EXPECT_TRUE(shows(slidesColour, 1));
}

TEST_F(Presentation, EndsWhenTheSlidesWindowIsGone) {
    begin(controller_, slides_);
    [slides_ close];
    [controller_ endFullscreenSetup];
    EXPECT_FALSE([[document_ contentView] isInFullScreenMode]);
}

TEST_F(Presentation, HoldsTheSlidesWindowWeakly) {
    NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
    begin(controller_, slides_);
    [slides_ close];
    [slides_ release];
    slides_ = nil;
    [pool drain];
    EXPECT_TRUE(test::runUntil([&] { return !controller_.state->currentExternalSlidesWindow; }));
    [controller_ endFullscreenSetup];
}

} // namespace
