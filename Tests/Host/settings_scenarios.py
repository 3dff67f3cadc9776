"""The Preferences window in the running host: what it sends, and what the host makes of it."""
from sample_host import wait_for
from steps import logged, open_document


def changed(host, key):
    return host.wait_log(lambda entry: entry.get("affectedKey") == key, f"a change of {key}")["record"]


def open_preferences(host, tab=None):
    host.key("comma", "Control_L")
    host.window("Preferences")
    if tab:
        host.click(tab, kind="GSToolbar", window="Preferences")


def choose(host, shown, wanted):
    """Opens the pop-up button that shows one title and chooses another."""
    host.click(shown, kind="PopUpButton", window="Preferences")
    host.menu(wanted)


def scenario_a_theme_chosen_in_preferences_changes_the_slide():
    with open_document("# One\n") as host:
        slide = host.find(kind="SHSlideView").frame
        before = host.screen.still_picture(slide)
        open_preferences(host)
        choose(host, "Paper", "Midnight")
        record = changed(host, "generalTheme")
        assert record["generalTheme"] == "Midnight" and len(record) == 16, record
        host.key("w", "Control_L")
        host.window_gone("Preferences")
        wait_for(lambda: host.screen.picture(slide).tobytes() != before.tobytes(), "another slide")


def scenario_dark_chosen_in_preferences_darkens_every_window():
    with open_document("# One\n") as host:
        open_preferences(host)
        choose(host, "auto", "dark")
        assert changed(host, "generalAppearance")["generalAppearance"] == "dark"
        frame = host.window("Preferences")["frame"]

        def dark():
            x, y, width, height = frame
            return max(host.screen.picture((x + 4, y + height - 8, 4, 4)).getpixel((1, 1))) < 90
        wait_for(dark, "a dark Preferences window")


def scenario_the_sample_document_is_opened_from_the_introduction_and_its_close_is_reported():
    with open_document("# One\n") as host:
        host.menu_bar("Help", "Introduction")
        button = host.find("Open Sample Document", kind="Button")
        host.screen.click(*button.middle)
        host.wait_log(lambda entry: logged(entry, "notification", name="OpenSampleDocumentNotification"), "the request")
        entry = host.wait_log(lambda entry: logged(entry, "notification", name="MetricsFromAppKitNotification"), "the metric")
        assert entry["metric"] == "macOStutorialScreenClose" and entry["payload"].endswith("-sample"), entry
        host.window("Sample Talk")


def scenario_the_about_screen_closes_by_its_button():
    with open_document("# One\n") as host:
        host.menu_bar("Quorvel", "About Quorvel")
        host.click("Close", kind="Button")
        wait_for(lambda: len(host.describe()) == 1, "the About screen to close")
