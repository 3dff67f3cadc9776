// test: timeout=240
#import "PreferencesWindowFixture.h"
#import "TestSupport.h"

#include "WeakObjCPtr.h"

#include <cstdio>
#include <cstdlib>

using namespace appkitglue;

namespace {

/// What one opening of the window makes.
struct Opening {
    std::vector<WeakObjCPtr<id>> objects;
    std::weak_ptr<SettingsStore> store;

    void addViews(NSView *view) {
        objects.emplace_back(view);
        for (NSView *subview in [view subviews]) {
            addViews(subview);
        }
    }

    std::size_t alive() const {
        std::size_t count = store.expired() ? 0 : 1;
        for (const auto &object : objects) {
            count += object ? 1 : 0;
        }
        return count;
    }
};

NSUInteger countWindows() {
    @autoreleasepool {
        return [[NSApp windows] count];
    }
}

class PreferencesLifetime : public test::PreferencesWindowFixture {
protected:
    static Opening current() {
        Opening opening;
        opening.store = [controller() store];
        for (id object : std::initializer_list<id>{controller(), window(), general(), editor(), slideshow(), about()}) {
            opening.objects.emplace_back(object);
        }
        opening.addViews([window() contentView]);
        for (NSViewController *tab :
             std::initializer_list<NSViewController *>{general(), editor(), slideshow(), about()}) {
            opening.addViews([tab view]);
        }
        return opening;
    }
};

TEST_F(PreferencesLifetime, LeavesNothingBehindAfterManyOpenings) {
    const char *asked = std::getenv("QV_OPENINGS");
    const int count = asked != nullptr ? std::atoi(asked) : 50;
    bind(settings());
    NSDate *start = [NSDate date];
    NSUInteger windows = 0;
    std::vector<Opening> openings;
    for (int i = 0; i < count; ++i) {
        @autoreleasepool {
            [PreferencesWindowController openPreferences];
            press(i % 2 == 0 ? "Slideshow" : "Editor");
            if (i % 10 == 1) {
                press("About");
            }
            openings.push_back(current());
        }
        test::spin(0);
        if (i == 3) { // menus have their windows by now, which stay
            windows = countWindows();
        }
    }
    std::printf("%d openings took %.1f s\n", count, -[start timeIntervalSinceNow]);
    openings.pop_back();
    const auto alive = [&] {
        std::size_t count = 0;
        for (const auto &opening : openings) {
            count += opening.alive();
        }
        return count;
    };
    EXPECT_TRUE(test::runUntil([&] { return alive() == 0; })) << alive() << " objects are left";
    EXPECT_EQ(countWindows(), windows);
}

} // namespace
