#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

namespace {

// What the toolbar, the menus and the windows of the bundle ask for.
TEST(SymbolImages, ExistForEveryNameInUse) {
    for (const char *name : {"plus",
                             "photo",
                             "square.on.circle",
                             "paintbrush",
                             "exclamationmark.bubble",
                             "gear",
                             "rectangle.grid.2x2",
                             "play.circle",
                             "paintpalette.fill",
                             "rectangle.on.rectangle",
                             "h.circle",
                             "1.circle",
                             "2.circle",
                             "3.circle",
                             "text.quote",
                             "text.justify",
                             "list.bullet",
                             "list.number",
                             "chevron.left.slash.chevron.right",
                             "textformat.superscript",
                             "table",
                             "globe",
                             "bubble.right",
                             "gearshape",
                             "textformat",
                             "play.rectangle",
                             "info.circle",
                             "magnifyingglass",
                             "xmark.circle.fill",
                             "folder",
                             "doc",
                             "square.and.arrow.down",
                             "trash",
                             "speaker.slash",
                             "display",
                             "rectangle.split.2x1"}) {
        @autoreleasepool {
            NSImage *image = [NSImage imageWithSystemSymbolName:[NSString stringWithUTF8String:name]
                                       accessibilityDescription:@"what it is"];
            ASSERT_NE(image, nil) << name;
            EXPECT_EQ([image size].width, 20);
            EXPECT_TRUE([[image accessibilityDescription] isEqualToString:@"what it is"]);
        }
    }
}

TEST(SymbolImages, AnUnknownNameGivesNoImage) {
    @autoreleasepool {
        EXPECT_EQ([NSImage imageWithSystemSymbolName:@"no.such.symbol" accessibilityDescription:nil], nil);
        EXPECT_EQ([NSImage imageWithSystemSymbolName:@"" accessibilityDescription:nil], nil);
        EXPECT_EQ([NSImage imageWithSystemSymbolName:@"../Symbols/plus" accessibilityDescription:nil], nil);
    }
}

TEST(SymbolImages, AreDrawnInTheTextColourAlsoAtADifferentSizeAndInCopies) {
    @autoreleasepool {
        NSWindow *window = [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 200, 200, 100)
                                                       styleMask:NSTitledWindowMask
                                                         backing:NSBackingStoreBuffered
                                                           defer:NO];
        [window setReleasedWhenClosed:NO];
        [window setBackgroundColor:[NSColor whiteColor]];
        NSImage *image = [NSImage imageWithSystemSymbolName:@"stop.fill" accessibilityDescription:nil];
        NSImage *large = [[image copy] autorelease];
        [large setSize:NSMakeSize(40, 40)];
        NSImageView *small = [[[NSImageView alloc] initWithFrame:NSMakeRect(10, 10, 40, 40)] autorelease];
        [small setImage:image];
        NSImageView *big = [[[NSImageView alloc] initWithFrame:NSMakeRect(80, 10, 60, 60)] autorelease];
        [big setImage:large];
        [[window contentView] addSubview:small];
        [[window contentView] addSubview:big];
        [window orderFront:nil];
        NSColor *text = [[NSColor controlTextColor] colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
        const auto byte = [](CGFloat v) { return static_cast<unsigned>(v * 255 + 0.5); };
        const unsigned expected =
            byte([text redComponent]) << 16 | byte([text greenComponent]) << 8 | byte([text blueComponent]);
        EXPECT_TRUE(test::runUntil([&] { return test::pixel(window, NSMakePoint(12, 12)) == 0xFFFFFF; }))
            << "beside the symbol the background shows";
        EXPECT_TRUE(test::runUntil([&] { return test::pixel(window, NSMakePoint(30, 30)) == expected; }));
        EXPECT_TRUE(test::runUntil([&] { return test::pixel(window, NSMakePoint(110, 40)) == expected; }));
        [window close];
        [window release];
    }
}

TEST(SymbolImages, AreSmallerInMenusAndOtherImagesAreNot) {
    @autoreleasepool {
        platform::prepareAppKit();
        NSMenuItem *item = [[[NSMenuItem alloc] initWithTitle:@"Quote" action:nullptr keyEquivalent:@""] autorelease];
        NSImage *symbol = [NSImage imageWithSystemSymbolName:@"text.quote" accessibilityDescription:@"Quote"];
        [item setImage:symbol];
        EXPECT_EQ([[item image] size].height, 16);
        EXPECT_TRUE([[[item image] accessibilityDescription] isEqualToString:@"Quote"]);
        EXPECT_EQ([symbol size].height, 20);
        NSImage *other = [[[NSImage alloc] initWithSize:NSMakeSize(20, 20)] autorelease];
        [item setImage:other];
        EXPECT_EQ([item image], other);
    }
}

} // namespace
