"""The slideshow on one display and on two: what the keys do, what the displays show, when the cursor is there."""
import ctypes

from sample_host import Failure, wait_for
from steps import logged, open_document, open_with_key

DECK = "\n\n---\n\n".join(f"# Slide {number}\n\nText {number}\n\n<!-- Note {number} -->" for number in range(1, 6))
FIRST, SECOND = (0, 0, 1440, 900), (1440, 0, 1920, 1080)


def slide(host, number):
    host.wait_log(lambda entry: logged(entry, "slideshow", what="slide", slide=number), f"slide {number}")


def last_slide(host):
    return next((entry["slide"] for entry in reversed(host.log()) if entry["event"] == "slideshow" and entry["what"] in ("slide", "began")),
                None)


def begun(host):
    return host.wait_log(lambda entry: logged(entry, "slideshow", what="began"), "the slideshow to begin")


def covers(host, display):
    """A window of ours covers the display wholly."""
    return any(tuple(int(value) for value in w["frame"]) == display for w in host.describe())


class CursorImage(ctypes.Structure):
    _fields_ = [("x", ctypes.c_short), ("y", ctypes.c_short), ("width", ctypes.c_ushort), ("height", ctypes.c_ushort),
                ("xhot", ctypes.c_ushort), ("yhot", ctypes.c_ushort), ("serial", ctypes.c_ulong),
                ("pixels", ctypes.POINTER(ctypes.c_ulong))]


def cursor_shows():
    """Whether the pointer has an opaque pixel, as the X server draws it."""
    x11, xfixes = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXfixes.so.3")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    xfixes.XFixesGetCursorImage.restype = ctypes.POINTER(CursorImage)
    image = xfixes.XFixesGetCursorImage(display).contents
    shows = any(image.pixels[index] >> 24 & 0xFF for index in range(image.width * image.height))
    x11.XCloseDisplay(display)
    return shows



def scenario_slideshow_on_one_display_obeys_its_keys_and_escape_ends_it():
    with open_document(DECK) as host:
        host.key("F5")
        begun(host)
        wait_for(lambda: covers(host, FIRST), "slides over the whole display")
        for key, number in (("Right", 2), ("space", 3), ("Left", 2), ("Next", 3), ("Prior", 2), ("End", 5), ("Home", 1)):
            host.key(key)
            wait_for(lambda: last_slide(host) == number, lambda: f"slide {number} after {key}, not {last_slide(host)}")
        host.key("4")
        host.key("Return")
        wait_for(lambda: last_slide(host) == 4, "slide 4 by its number")
        host.key("b")
        wait_for(lambda: len(set(host.screen.picture((200, 200, 400, 300)).getdata())) == 1, "a black screen")
        host.key("b")
        wait_for(lambda: len(set(host.screen.picture((0, 0, 1440, 900)).getdata())) > 5, "the slide again")
        host.key("Escape")
        host.wait_log(lambda entry: logged(entry, "slideshow", what="ended"), "the end")
        wait_for(lambda: not covers(host, FIRST) and host.shows(kind="Editor"), "the document window as it was")
        # The pointer is there again once it moves.
        host.screen.move(700, 450)
        wait_for(cursor_shows, "the cursor")


def scenario_slideshow_on_one_display_hides_the_cursor():
    with open_document(DECK) as host:
        host.screen.move(600, 500)
        host.key("F5")
        begun(host)
        wait_for(lambda: not cursor_shows(), "the cursor to hide")
        host.screen.move(620, 520)
        wait_for(cursor_shows, "the cursor to come with the pointer's movement")
        wait_for(lambda: not cursor_shows(), "the cursor to hide again", patience=15)
        host.key("Escape")
        host.wait_log(lambda entry: logged(entry, "slideshow", what="ended"), "the end")
        host.screen.move(700, 450)
        wait_for(cursor_shows, "the cursor")


# displays: 2
def scenario_presenter_mode_shows_notes_on_one_display_and_slides_on_the_other():
    with open_document(DECK) as host:
        host.key("F5")
        begun(host)
        wait_for(lambda: covers(host, FIRST) and covers(host, SECOND), lambda: f"both displays covered: {host.describe()}")
        wait_for(lambda: any("Note 1" in view.text for view in host.views()), "the notes")
        before = host.screen.still_picture(SECOND)
        host.key("Right")
        wait_for(lambda: last_slide(host) == 2, "slide 2")
        wait_for(lambda: host.screen.picture(SECOND).tobytes() != before.tobytes(), "other pixels on the second display")
        assert cursor_shows(), "the cursor stays while presenting on two displays"
        host.key("Escape")
        host.wait_log(lambda entry: logged(entry, "slideshow", what="ended"), "the end")
        wait_for(lambda: not covers(host, FIRST) and not covers(host, SECOND), "both displays free")


# displays: 2
def scenario_swapped_displays_are_remembered_and_used():
    with open_document(DECK) as host:
        host.menu_bar("Slide", "Swap Displays")
        open_with_key(host, 2, "Preferences", "comma", "Control_L")
        host.window("Preferences")
        host.click("Slideshow", kind="GSToolbar", window="Preferences")
        host.find("DUMMY0 Main 1440×900", kind="PopUpButton", window="Preferences")
        shown = [v.text for v in host.views("Preferences") if "PopUpButton" in v.kind and v["visible"][2] > 0]
        assert shown == ["DUMMY0 Main 1440×900", "DUMMY1  1920×1080"], shown
        host.key("w", "Control_L")
        host.window_gone("Preferences")
        host.key("F5")
        begun(host)
        wait_for(lambda: covers(host, FIRST) and covers(host, SECOND), "both displays covered")
        presenter = next(v for v in host.views() if "PresenterView" in v.kind)
        assert presenter.frame[0] >= 1440, presenter


# displays: 2
def scenario_a_display_unplugged_while_presenting_leaves_a_usable_window():
    import subprocess
    with open_document(DECK) as host:
        host.key("F5")
        begun(host)
        wait_for(lambda: covers(host, SECOND), "slides on the second display")
        subprocess.run(["xrandr", "--output", "DUMMY1", "--off"], check=True)

        def inside():
            return all(w["frame"][0] < 1440 for w in host.describe())
        wait_for(inside, lambda: f"every window on the display that is left: {[w['frame'] for w in host.describe()]}")
        host.key("Escape")
        wait_for(lambda: any("ended" == entry.get("what") for entry in host.log()) or not covers(host, FIRST), "the end")
        wait_for(lambda: host.shows(kind="Editor"), "the document")
        subprocess.run(["xrandr", "--output", "DUMMY1", "--mode", "1920x1080", "--pos", "1440x0"], check=True)
        count = sum(1 for entry in host.log() if logged(entry, "slideshow", what="began"))
        host.click(kind="Editor")

        def again():
            host.key("F5")
            return sum(1 for entry in host.log() if logged(entry, "slideshow", what="began")) > count
        wait_for(again, "a new slideshow", interval=1.0)
        wait_for(lambda: covers(host, SECOND), "slides on the second display again")


def scenario_the_last_slide_ends_the_slideshow_as_the_settings_say():
    with open_document("# Only\n") as host:
        host.key("F5")
        begun(host)
        host.key("Right")
        host.wait_log(lambda entry: logged(entry, "slideshow", what="ended"), "the end after the last slide")
        if covers(host, FIRST):
            raise Failure("the slides still cover the display")
