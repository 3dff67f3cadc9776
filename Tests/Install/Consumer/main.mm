// The smallest host, over all public headers: loads the installed bundle and makes a controller.
#import <QVAppKitController.h>

#import <MenuEventDelegate.h>
#import <QVAboutScreen.h>

#include <AboutScreenView.h>
#include <FlatTheme.h>
#include <MenuItem+Ext.h>
#include <SettingsPayload.h>
#include <ToolbarAction.h>

#include <cstdio>

int main() {
    @autoreleasepool {
        flattheme::registerDefaults();
        Class principal = [[NSBundle bundleWithPath:@BUNDLE] principalClass];
        QVAppKitController *controller = [[[principal alloc] init] autorelease];
        const auto record = appkitglue::SettingsPayload::defaultSettings().encode();
        std::printf("%s %s\n", [[controller description] UTF8String], record ? record->c_str() : "");
        return controller != nil && record ? 0 : 1;
    }
}
