#import "RecordingHost.h"

#include "StringBridging.h"

#include <cstdio>

using namespace appkitglue;

@implementation RecordingHost

- (void)note:(const std::string &)entry argument:(id)argument {
    log.push_back(entry);
    argumentClasses.push_back([argument isKindOfClass:[NSNumber class]]   ? "number"
                              : [argument isKindOfClass:[NSString class]] ? "string"
                              : argument == nil                           ? "nil"
                                                                          : "other");
    if (whileCalled) {
        whileCalled();
    }
}

- (void)toolbarActionForAction:(id)action {
    [self note:"action " + toUTF8([action description]) argument:action];
}

- (void)toolbarActionForSearch:(id)text {
    [self note:"search " + (text != nil ? toUTF8(text) : "nil") argument:text];
}

- (void)toolbarActionForPopover:(id)action CGRect:(id)rect {
    const NSRect r = [rect rectValue];
    char text[128];
    std::snprintf(text, sizeof text, " (%g, %g, %g, %g)", r.origin.x, r.origin.y, r.size.width, r.size.height);
    [self note:"popover " + toUTF8([action description]) + text argument:action];
}

- (id)preferenceValues {
    ++reads;
    return values.get();
}

- (void)setPreferencesValues:(NSData *)data {
    lastMessage = bytesOf(data);
    const auto change = SettingsPayload::decode(lastMessage);
    if (change) {
        changes.push_back(*change);
    }
    if (whileCalled) {
        whileCalled();
    }
}

- (void)answerWith:(const SettingsPayload &)settings {
    values = RetainPtr<id>(toNSData(settings.encode().value()));
}

- (BOOL)respondsToSelector:(SEL)selector {
    if (missing != nullptr && sel_isEqual(selector, missing)) {
        return NO;
    }
    return [super respondsToSelector:selector];
}

@end

namespace test {

RetainPtr<RecordingHost> makeHost() {
    auto host = adoptNS([[RecordingHost alloc] init]);
    [host.get() answerWith:SettingsPayload::defaultSettings()];
    return host;
}

SettingsPayload distinctSettings() {
    SettingsPayload settings;
    settings.affectedKey = "editorTheme";
    settings.generalSamplePresentation = false;
    settings.generalTheme = "Paper";
    settings.generalSlideSize = "4:3";
    settings.generalAppearance = "auto";
    settings.editorFontName = "DejaVuSans";
    settings.editorFontSize = 13.5;
    settings.editorTheme = "Dusk";
    settings.allPreviewPaths = {{"Paper", {"/previews/paper-1.png", "/previews/paper-2.png"}}, {"Ink", {}}};
    settings.allGeneralThemes = {"Paper", "Ink", "Plain"};
    settings.allGeneralSizes = {"4:3", "16:9"};
    settings.allAppearances = {"light", "dark", "auto"};
    settings.allEditorThemes = {"Dusk", "Dawn"};
    return settings;
}

} // namespace test
