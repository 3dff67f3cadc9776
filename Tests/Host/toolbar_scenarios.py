"""The toolbar and its menus, as the bundle sends them and as the host acts on them."""
from sample_host import wait_for
from steps import logged, open_document, opened, press_toolbar, read, save


def scenario_insert_menu_reports_its_opening_and_the_choice_and_the_file_gets_a_numbered_list():
    with open_document("# One\n\nfirst\n") as host:
        host.click_into_editor_at_end()
        press_toolbar(host, "Insert")
        host.menu("Lists", "Numbered List")
        host.wait_log(lambda entry: logged(entry, "action", code=7), "the chosen entry's code")
        codes = [entry["code"] for entry in host.log() if entry["event"] == "action"]
        assert codes == [21, 7], codes
        save(host)
        wait_for(lambda: "1. " in read(host.file), lambda: f"a numbered list in the saved file: {read(host.file)!r}")


def scenario_search_sends_the_text_and_nothing_when_it_is_emptied():
    with open_document("# One\n\n---\n\n# Two\n") as host:
        field = host.find(kind="SearchField")
        host.screen.click(*field.middle)
        host.screen.type("two")
        host.wait_log(lambda entry: logged(entry, "search", text="two"), "the typed text")
        for _ in range(3):
            host.key("BackSpace")
        wait_for(lambda: host.log()[-1]["event"] == "search" and host.log()[-1].get("text") is None, "an emptied search")


def scenario_each_popover_button_sends_its_action_and_a_rectangle():
    with open_document("# One\n") as host:
        window = host.window(host.title)
        for label, code in (("Media", 2), ("Inspector", 14), ("Play", 18), ("Overrides", 16), ("Themes", 22)):
            button = press_toolbar(host, label)
            entry = host.wait_log(lambda entry: logged(entry, "popover", code=code), f"the popover of {label}")
            x, y, width, height = (entry[name] for name in ("x", "y", "width", "height"))
            assert width == 4, entry
            # The rectangle's x is that of the button in the window, divided by 0.77.
            assert abs(x * 0.77 - (button.frame[0] - window["frame"][0])) < 40, (entry, button, window["frame"])
            assert 0 < y <= window["frame"][3] + 60 and height > 10, entry
            host.key("Escape")
            wait_for(lambda: len(host.describe()) == 1, lambda: f"the popover to close: {[w['title'] for w in host.describe()]}")


def scenario_add_slide_reports_its_code_and_begins_a_slide():
    with open_document("# One\n") as host:
        host.click_into_editor_at_end()
        press_toolbar(host, "Add Slide")
        host.wait_log(lambda entry: logged(entry, "action", code=1), "the action")
        save(host)
        wait_for(lambda: "\n---\n" in read(host.file), "a slide separator in the file")


def scenario_undo_takes_an_insertion_back_and_redo_brings_it_again():
    with open_document("# One\n\ntext\n") as host:
        host.click_into_editor_at_end()
        press_toolbar(host, "Insert")
        host.menu("Table")
        host.wait_log(lambda entry: logged(entry, "action", code=11), "the table's code")
        wait_for(lambda: "|" in host.editor_text(), "a table in the editor")
        host.key("z", "Control_L")
        wait_for(lambda: "|" not in host.editor_text(), "the table to be taken back")
        host.key("z", "Control_L", "Shift_L")
        wait_for(lambda: "|" in host.editor_text(), "the table to come again")


def scenario_tab_overview_shows_the_windows_and_brings_the_chosen_one_forward():
    with open_document("# One\n", "# Two\n") as host:
        press_toolbar(host, "Tab Overview", window="talk2.md")
        opened(host, 3, "the overview's window")
        host.key("Escape")
        wait_for(lambda: len(host.describe()) == 2, "the overview to close")
        for step in ("Right", "Left"):                  # the overview lists the windows as they lie
            press_toolbar(host, "Tab Overview", window="talk2.md")
            opened(host, 3, "the overview's window again")
            host.key(step)
            host.key("Return")
            wait_for(lambda: len(host.describe()) == 2 and any(w["key"] for w in host.describe()), "a window with the keys")
            if host.window(host.title)["key"]:
                return
        raise AssertionError("the other window did not come forward")


def scenario_a_slide_dragged_in_the_grid_moves_in_the_text():
    with open_document("# One\n\n---\n\n# Two\n\n---\n\n# Three\n") as host:
        press_toolbar(host, "Arrange")
        host.wait_log(lambda entry: logged(entry, "action", code=17), "the action")
        grid = host.find(kind="SlideListView")
        x, y = grid["visible"][:2]
        host.screen.drag((x + 100, y + 80), (x + 100 + 2 * 275, y + 80))
        press_toolbar(host, "Arrange")
        save(host)
        wait_for(lambda: read(host.file).index("# One") > read(host.file).index("# Two"), lambda: f"another order: {read(host.file)!r}")
