#import "PreferencesWindowFixture.h"

#import "PreferencesManager.h"
#import "TestSupport.h"

#include "StringBridging.h"

#include <filesystem>
#include <unistd.h>

using namespace appkitglue;

namespace test {

PreferencesWindowFixture::PreferencesWindowFixture() {
    platform::prepareAppKit();
}

PreferencesWindowFixture::~PreferencesWindowFixture() {
    [window() close];
}

void PreferencesWindowFixture::bind(const SettingsPayload &settings) {
    bound_ = settings;
    [host.get() answerWith:settings];
    RoutingSettingsProvider::shared()->setup(host.get());
    host.get()->changes.clear();
}

void PreferencesWindowFixture::open(const SettingsPayload &settings) {
    bind(settings);
    @autoreleasepool {
        [PreferencesWindowController openPreferences];
    }
    runUntil([] { return [window() isVisible]; });
}

SettingsPayload PreferencesWindowFixture::settings() {
    SettingsPayload settings = distinctSettings();
    settings.affectedKey.reset();
    settings.allPreviewPaths.clear();
    return settings;
}

std::string PreferencesWindowFixture::selectedTab() {
    return toUTF8([[[controller() tabView] selectedTabViewItem] identifier]);
}

int PreferencesWindowFixture::selectedItem() {
    NSToolbar *toolbar = [window() toolbar];
    NSArray *items = [toolbar items];
    for (NSUInteger i = 0; i < [items count]; ++i) {
        NSToolbarItem *item = [items objectAtIndex:i];
        if ([[item itemIdentifier] isEqual:[toolbar selectedItemIdentifier]]) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

namespace {

NSButton *buttonTitled(NSView *view, NSString *title) {
    if ([view isKindOfClass:[NSButton class]] && [[static_cast<NSButton *>(view) title] isEqual:title]) {
        return static_cast<NSButton *>(view);
    }
    for (NSView *subview in [view subviews]) {
        if (NSButton *found = buttonTitled(subview, title); found != nil) {
            return found;
        }
    }
    return nil;
}

} // namespace

void PreferencesWindowFixture::press(const std::string &label) {
    NSView *frameView = [[window() contentView] superview];
    NSButton *button = buttonTitled(frameView, toNSString(label));
    ASSERT_NE(button, nil) << label;
    [button performClick:nil];
}

SettingsPayload PreferencesWindowFixture::changed(const std::string &key,
                                                  const std::function<void(SettingsPayload &)> &change) const {
    SettingsPayload result = bound_;
    change(result);
    result.affectedKey = key;
    return result;
}

std::vector<std::string> titlesOf(NSPopUpButton *button) {
    std::vector<std::string> result;
    for (NSString *title in [button itemTitles]) {
        result.push_back(toUTF8(title));
    }
    return result;
}

std::string selectedTitleOf(NSPopUpButton *button) {
    return [button selectedItem] != nil ? toUTF8([button titleOfSelectedItem]) : "";
}

void choose(NSPopUpButton *button, const std::string &title) {
    [button selectItemWithTitle:toNSString(title)];
    [button sendAction:[button action] to:[button target]];
}

std::vector<NSWindow *> visibleWindows(const std::string &title) {
    std::vector<NSWindow *> result;
    for (NSWindow *window in [NSApp windows]) {
        if ([window isVisible] && toUTF8([window title]) == title) {
            result.push_back(window);
        }
    }
    return result;
}

std::string temporaryPath(const std::string &name) {
    const std::filesystem::path folder =
        std::filesystem::path(binaryDirectory()) / "test-output" / ("preferences-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    return folder / name;
}

std::string writePicture(const std::string &name, int width, int height) {
    @autoreleasepool {
        NSBitmapImageRep *bitmap = [[[NSBitmapImageRep alloc] initWithBitmapDataPlanes:nullptr
                                                                            pixelsWide:width
                                                                            pixelsHigh:height
                                                                         bitsPerSample:8
                                                                       samplesPerPixel:3
                                                                              hasAlpha:NO
                                                                              isPlanar:NO
                                                                        colorSpaceName:NSCalibratedRGBColorSpace
                                                                           bytesPerRow:0
                                                                          bitsPerPixel:0] autorelease];
        const std::string path = temporaryPath(name);
        [[bitmap representationUsingType:NSPNGFileType properties:@{}] writeToFile:toNSString(path) atomically:NO];
        return path;
    }
}

} // namespace test
