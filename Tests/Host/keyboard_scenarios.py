"""What the keyboard alone can do."""
import os

from sample_host import wait_for
from steps import logged, open_document, open_with_key, read


def scenario_new_type_and_save_with_the_keyboard():
    with open_document("# One\n") as host:
        host.key("n", "Control_L")
        wait_for(lambda: len(host.describe()) == 2, "a second window")
        host.key("w", "Control_L")
        wait_for(lambda: len(host.describe()) == 1, "it to close")
        host.click_into_editor_at_end()
        host.screen.type("more words")
        host.key("s", "Control_L")
        wait_for(lambda: "more words" in read(host.file), "the words in the file")


def scenario_f10_opens_the_menu_bar_and_arrows_choose():
    with open_document("# One\n") as host:
        host.click_into_editor_at_end()
        host.key("F10")
        wait_for(lambda: host.shows("Preferences…", "NSMenuItem"), "the first menu")
        host.key("Right")
        wait_for(lambda: host.shows("Save As…", "NSMenuItem"), "the second menu")
        host.key("Escape")
        wait_for(lambda: not host.shows("Save As…", "NSMenuItem"), "the menu to close")


def walk_with_tab(host, title, kinds=("NSPopUpButton", "NSButton")):
    """Presses Tab until every enabled control of the window has had the keys."""
    def focused():
        return next((tuple(v.frame) for v in host.views(title) if v["focused"]), None)
    wanted = {tuple(v.frame) for v in host.views(title)
              if v.kind in kinds and v["enabled"] and v["visible"][2] > 0 and v["visible"][3] > 0}
    assert len(wanted) >= 2, wanted
    reached = set()
    for _ in range(2 * len(wanted) + 8):
        host.key("Tab")
        place = focused()
        if place:
            reached.add(place)
        if wanted <= reached:
            break
    assert wanted <= reached, f"not reached: {wanted - reached} of {wanted}"


def scenario_tab_reaches_every_control_of_preferences():
    with open_document("# One\n") as host:
        open_with_key(host, 2, "Preferences", "comma", "Control_L")
        host.window("Preferences")
        walk_with_tab(host, "Preferences")
        host.key("Escape")
        host.key("w", "Control_L")
        host.window_gone("Preferences")


def scenario_unsaved_changes_ask_and_escape_keeps_the_window():
    with open_document("# One\n") as host:
        host.click_into_editor_at_end()
        host.screen.type("x")
        open_with_key(host, 2, "the question", "w", "Control_L")
        host.key("Escape")
        wait_for(lambda: len(host.describe()) == 1, "the answer")
        assert host.window(host.title)
        open_with_key(host, 2, "the question again", "w", "Control_L")
        host.key("Return")
        wait_for(lambda: "x" in read(host.file), "the change in the file")
        assert os.path.exists(host.file)


def scenario_font_size_commands_report_each_step():
    with open_document("# One\n") as host:
        host.click_into_editor_at_end()
        host.menu_bar("Format", "Bigger Text")
        entry = host.wait_log(lambda entry: entry.get("affectedKey") == "editorFontSize", "the new size")
        size = entry["record"]["editorFontSize"]
        host.menu_bar("Format", "Smaller Text")
        host.wait_log(lambda entry: entry.get("affectedKey") == "editorFontSize"
                      and entry["record"]["editorFontSize"] == size - 2, "two points less")
        assert not [entry for entry in host.log() if logged(entry, "error")]


def scenario_tab_reaches_every_button_of_the_introduction():
    with open_document("# One\n") as host:
        host.menu_bar("Help", "Introduction")
        title = wait_for(lambda: next((w["title"] for w in host.describe() if w["title"] != host.title), None), "the introduction")
        host.find("Markdown editor", window=title)          # a label that the introduction reveals late
        wait_for(lambda: any(v.text == "Next" and v["enabled"] for v in host.views(title)), "its end", patience=40)
        walk_with_tab(host, title)
        host.key("Escape")
        host.window_gone(title)


def scenario_tab_reaches_the_buttons_of_the_about_screen():
    with open_document("# One\n") as host:
        host.menu_bar("Quorvel", "About Quorvel")
        close = host.find("Close", kind="Button")
        for _ in range(80):
            host.key("Tab")
            if any(v["focused"] and v.text == "Close" for v in host.views(close.window["title"])):
                break
        else:
            raise AssertionError("Close was not reached")
        host.key("space")
        wait_for(lambda: len(host.describe()) == 1, "the About screen to close")
