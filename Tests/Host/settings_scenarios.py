"""The Preferences window in the running host: what it sends, and what the host makes of it."""
from sample_host import Host, wait_for
from steps import logged, open_document, open_with_key


def changed(host, key):
    return host.wait_log(lambda entry: entry.get("affectedKey") == key, f"a change of {key}")["record"]


def open_preferences(host, tab=None):
    open_with_key(host, 2, "Preferences", "comma", "Control_L")
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


def scenario_slide_size_editor_theme_and_font_change_what_is_seen():
    with open_document("# One\n\nSome *text* and `code`.\n") as host:
        slide, editor = host.find(kind="SHSlideView").frame, (300, 140, 300, 160)

        def changes(area, what, act):
            before = host.screen.still_picture(area).tobytes()
            open_preferences(host, what)
            act()
            host.key("w", "Control_L")
            host.window_gone("Preferences")
            wait_for(lambda: host.screen.picture(area).tobytes() != before, f"another picture after a change in {what}")

        changes(slide, "General", lambda: choose(host, "16:9", "4:3"))
        assert changed(host, "generalSlideSize")["generalSlideSize"] == "4:3"
        changes(editor, "Editor", lambda: choose(host, "Automatic", "Sepia"))
        assert changed(host, "editorTheme")["editorTheme"] == "Sepia"
        before = host.screen.still_picture(editor).tobytes()
        host.menu_bar("Format", "Bigger Text")
        wait_for(lambda: host.screen.picture(editor).tobytes() != before, "bigger text in the editor")


def scenario_a_slideshow_that_may_not_end_stays_on_its_last_slide():
    with open_document("# Only\n") as host:
        open_preferences(host, "Slideshow")
        host.click("End after the last slide", window="Preferences")
        assert changed(host, "presenterExitLastSlide")["presenterExitLastSlide"] is False
        host.click("Mute videos", window="Preferences")
        assert changed(host, "presenterMuteVideos")["presenterMuteVideos"] is True
        host.key("w", "Control_L")
        host.window_gone("Preferences")
        host.key("F5")
        host.wait_log(lambda entry: logged(entry, "slideshow", what="began"), "the slideshow")
        host.key("Right")
        host.key("Right")
        host.key("b")
        host.wait_log(lambda entry: logged(entry, "slideshow", what="black"), "a key that is still obeyed")
        assert not [entry for entry in host.log() if logged(entry, "slideshow", what="ended")]


def scenario_settings_are_kept_and_the_sample_talk_opens_only_when_wanted():
    with Host("--no-tutorial") as host:
        host.window("Sample Talk")
        open_preferences(host)
        host.click("Open the sample presentation", window="Preferences")
        assert changed(host, "generalSamplePresentation")["generalSamplePresentation"] is False
        choose(host, "Paper", "Chalk")
        changed(host, "generalTheme")
    with Host("--no-tutorial", defaults_fresh=False) as host:
        wait_for(lambda: [w for w in host.describe() if "Document" in w["class"]], "a document")
        assert all(w["title"] != "Sample Talk" for w in host.describe())
        open_preferences(host)
        host.find("Chalk", kind="PopUpButton", window="Preferences")


def scenario_a_tab_chosen_while_the_window_still_resizes_gets_its_own_height():
    with open_document("# One\n") as host:
        open_preferences(host, "About")
        about = host.find("About", kind="GSToolbar", window="Preferences")
        height = host.window("Preferences")["frame"][3]
        host.click("Slideshow", kind="GSToolbar", window="Preferences")
        caption = host.find("Show notes and the next slide on another display", window="Preferences")
        host.screen.click(*caption.middle)
        host.screen.click(*about.middle)
        changed(host, "presenterActive")
        host.find("About", kind="GSToolbar", window="Preferences")
        wait_for(lambda: host.window("Preferences")["frame"][3] == height, lambda: f"the height of {height}")
