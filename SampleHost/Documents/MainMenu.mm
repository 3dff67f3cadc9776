#import "MainMenu.h"

#import "Bridge.h"

#include "Edits.h"

#include <vector>

namespace samplehost {

namespace {

/// One entry; a null title is a separator. Actions go to whoever in the window takes them.
struct Entry {
    NSString *title = nil;
    SEL action = nullptr;
    NSString *key = @"";
    NSInteger tag = 0;
};

NSString *keyOf(unichar character) {
    return [NSString stringWithCharacters:&character length:1];
}

NSMenu *addMenu(NSMenu *bar, NSString *title, const std::vector<Entry> &entries) {
    const auto menu = own([[NSMenu alloc] initWithTitle:title]);
    for (const Entry &entry : entries) {
        if (entry.title == nil) {
            [menu.get() addItem:[NSMenuItem separatorItem]];
            continue;
        }
        const auto item = own([[NSMenuItem alloc] initWithTitle:entry.title
                                                         action:entry.action
                                                  keyEquivalent:entry.key]);
        [item.get() setTag:entry.tag];
        [menu.get() addItem:item.get()];
    }
    const auto holder = own([[NSMenuItem alloc] initWithTitle:title action:nullptr keyEquivalent:@""]);
    [bar addItem:holder.get()];
    [bar setSubmenu:menu.get() forItem:holder.get()];
    return menu.get();
}

Entry actionEntry(NSString *title, Action action, NSString *key = @"") {
    return {
        title, @selector(performTaggedAction:), key, static_cast<NSInteger>(action)
    };
}

void addFileAndEdit(NSMenu *bar) {
    addMenu(bar, @"File",
            {{@"New", @selector(newDocument:), @"n"},
             {@"Open…", @selector(openDocument:), @"o"},
             {@"Open Sample Talk", @selector(openSample:)},
             {},
             {@"Close", @selector(performClose:), @"w"},
             {@"Save", @selector(saveDocument:), @"s"},
             {@"Save As…", @selector(saveDocumentAs:), @"S"}});
    addMenu(bar, @"Edit",
            {{@"Undo", @selector(undoChange:), @"z"},
             {@"Redo", @selector(redoChange:), @"Z"},
             {},
             {@"Cut", @selector(cut:), @"x"},
             {@"Copy", @selector(copy:), @"c"},
             {@"Paste", @selector(paste:), @"v"},
             {@"Select All", @selector(selectAll:), @"a"},
             {},
             {@"Find", @selector(focusSearch:), @"f"}});
}

void addFormat(NSMenu *bar) {
    addMenu(bar, @"Format",
            {actionEntry(@"Headline Level 1", Action::headlineLevel1, @"1"),
             actionEntry(@"Headline Level 2", Action::headlineLevel2, @"2"),
             actionEntry(@"Headline Level 3", Action::headlineLevel3, @"3"),
             {},
             {@"Bold", @selector(makeBold:), @"b"},
             {@"Italic", @selector(makeItalic:), @"i"},
             {@"Inline Code", @selector(makeCode:), @"K"},
             {},
             actionEntry(@"Quote", Action::quote),
             actionEntry(@"Bulleted List", Action::bulletedList, @"l"),
             actionEntry(@"Numbered List", Action::numberedList, @"L"),
             actionEntry(@"Code Block", Action::code),
             actionEntry(@"Table", Action::table, @"t"),
             actionEntry(@"Footnote", Action::footnote),
             actionEntry(@"Website", Action::website, @"k"),
             actionEntry(@"Comment", Action::comment, @"/"),
             {},
             {@"Bigger Text", @selector(makeTextBigger:), @"+"},
             {@"Smaller Text", @selector(makeTextSmaller:), @"-"}});
}

void addSlide(NSMenu *bar) {
    NSMenu *menu = addMenu(bar, @"Slide",
                           {actionEntry(@"Add Slide", Action::addSlide, @"\r"),
                            actionEntry(@"Duplicate Slide", Action::duplicateSlide, @"d"),
                            actionEntry(@"Delete Slide", Action::deleteSlide),
                            {},
                            {@"Next Slide", @selector(nextSlide:), keyOf(NSPageDownFunctionKey)},
                            {@"Previous Slide", @selector(previousSlide:), keyOf(NSPageUpFunctionKey)},
                            {@"Arrange Slides", @selector(arrangeSlides:), @"R"},
                            {},
                            {@"Play from Start", @selector(playFromStart:), keyOf(NSF5FunctionKey)},
                            {@"Play from Current Slide", @selector(playFromCurrent:), keyOf(NSF5FunctionKey)},
                            {@"Swap Displays", @selector(swapDisplays:)}});
    [[menu itemWithTitle:@"Play from Start"] setKeyEquivalentModifierMask:0];
    [[menu itemWithTitle:@"Play from Current Slide"] setKeyEquivalentModifierMask:NSShiftKeyMask];
}

} // namespace

void installMainMenu() {
    const auto bar = own([[NSMenu alloc] initWithTitle:@"Quorvel"]);
    addMenu(bar.get(), @"Quorvel",
            {{@"About Quorvel", @selector(showAbout:)},
             {@"Check for Updates…", @selector(checkForUpdates:)},
             {},
             {@"Preferences…", @selector(showPreferences:), @","},
             {},
             {@"Quit Quorvel", @selector(quit:), @"q"}});
    addFileAndEdit(bar.get());
    addFormat(bar.get());
    addSlide(bar.get());
    NSMenu *view = addMenu(bar.get(), @"View",
                           {{@"Show or Hide Toolbar", @selector(flipToolbar:)},
                            actionEntry(@"Themes", Action::themes),
                            actionEntry(@"Document Settings", Action::document),
                            actionEntry(@"Inspector", Action::inspector),
                            {},
                            {@"Full Screen", @selector(flipFullScreen:), keyOf(NSF11FunctionKey)}});
    [[view itemWithTitle:@"Full Screen"] setKeyEquivalentModifierMask:0];
    NSMenu *window = addMenu(bar.get(), @"Window", {{@"Minimize", @selector(performMiniaturize:), @"m"}});
    addMenu(bar.get(), @"Help",
            {{@"Introduction", @selector(showTutorial:)}, {@"Open Sample Talk", @selector(openSample:)}});
    [NSApp setMainMenu:bar.get()];
    [NSApp setWindowsMenu:window];
}

} // namespace samplehost
