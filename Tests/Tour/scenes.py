"""The scenes of the tour: what a user would do to see each feature, in groups that share one running host."""
import json
import os
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "Host"))

from PIL import Image  # noqa: E402

from sample_host import Host, wait_for  # noqa: E402
from steps import open_with_key, opened, press_toolbar  # noqa: E402

ALL_CHECKS = ("layout", "contrast", "compare")
PRIMARY = (0, 0, 1440, 900)
PRESENTER_CAPTION = "Show notes and the next slide on another display"
BOTH = (0, 0, 3360, 1080)


class Stage(Host):
    """A host in one look whose scenes are kept."""

    def __init__(self, look, directory, font_scale=1, arguments=("--no-tutorial",)):
        self.look, self.directory = look, directory
        super().__init__(*arguments, "--clock", "10:05", "--appearance", look, "-NSTextInsertionPointBlinkPeriod", "1000000",
                         *(["-NSFontSize", str(12 * font_scale), "-NSControlFontSize", str(13 * font_scale)] if font_scale != 1 else []))

    def settled(self):
        """Waits until nothing moves any more: neither windows nor pixels."""
        last = None

        def still():
            nonlocal last
            now = self.describe(), self.screen.picture((0, 0, 1440, 900)).tobytes()
            same, last = now == last, now
            return same
        wait_for(still, "the screen to come to rest", patience=10, interval=0.2)

    def keep(self, name, area=PRIMARY, judged=ALL_CHECKS, exempt=()):
        try:
            self.settled()
        except AssertionError:
            pass                                   # something animates on purpose; the picture tells
        picture = self.screen.picture(area)
        windows = [window for window in self.describe() if window["title"] != "drag"]
        stem = os.path.join(self.directory, f"{name}-{self.look}")
        picture.save(stem + ".png")
        with open(stem + ".json", "w", encoding="utf-8") as target:
            json.dump({"name": name, "look": self.look, "windows": windows, "checks": list(judged), "exempt": list(exempt)}, target)

    def park_pointer(self):
        self.screen.move(1430, 890)


class Group:
    def __init__(self, name, scenes, function):
        self.name, self.scenes, self.function = name, scenes, function

    def act(self, look, directory, font_scale):
        self.function(look, directory, font_scale)


GROUPS = []


def group(*scenes):
    def register(function):
        GROUPS.append(Group(function.__name__.replace("_", "-"), scenes, function))
        return function
    return register


def groups(wanted):
    return [entry for entry in GROUPS if not wanted or entry.name in wanted or set(wanted) & set(entry.scenes)]


def names():
    return [scene for entry in GROUPS for scene in entry.scenes]


def title_of(host):
    return next(w["title"] for w in host.describe() if "Document" in w["class"])


@group("document", "insert-menu", "popover-media", "popover-inspector", "popover-play", "popover-overrides", "popover-themes",
       "search", "arrange")
def document(look, directory, font_scale):
    with Stage(look, directory, font_scale) as host:
        host.find(kind="Editor")
        host.park_pointer()
        host.keep("document")
        press_toolbar(host, "Insert")
        host.screen.move(*host.find("Lists", "NSMenuItem").middle)
        host.find("Numbered List", "NSMenuItem")
        host.keep("insert-menu")
        host.key("Escape")
        wait_for(lambda: not host.shows("Comment", "NSMenuItem", None) or len(host.describe()) == 1, "the menu to close")
        for name in ("Media", "Inspector", "Play", "Overrides", "Themes"):
            press_toolbar(host, name)
            opened(host, 2, f"the popover of {name}")
            host.park_pointer()
            host.keep("popover-" + name.lower())
            host.key("Escape")
            wait_for(lambda: len(host.describe()) == 1, f"the popover of {name} to close")
        field = host.find(kind="SearchField")
        host.screen.click(*field.middle)
        host.screen.type("text")
        host.park_pointer()
        host.keep("search")
        for _ in range(4):
            host.key("BackSpace")
        press_toolbar(host, "Arrange")
        host.park_pointer()
        host.keep("arrange")


@group("preferences-general", "preferences-editor", "font-panel", "preferences-slideshow", "preferences-slideshow-without-presenter",
       "preferences-about")
def preferences(look, directory, font_scale):
    with Stage(look, directory, font_scale) as host:
        host.find(kind="Editor")
        open_with_key(host, 2, "Preferences", "comma", "Control_L")
        host.window("Preferences")
        host.park_pointer()
        host.keep("preferences-general")
        host.click("Editor", kind="GSToolbar", window="Preferences")
        host.park_pointer()
        host.keep("preferences-editor")
        choose = next(v for v in host.views("Preferences") if v.kind == "NSButton" and v.text == "Choose…")
        host.click(choose.text, kind="Button", window="Preferences")
        host.window("Font Panel")
        host.park_pointer()
        host.keep("font-panel", exempt=("αβ",))
        host.key("Escape")
        host.click("Slideshow", kind="GSToolbar", window="Preferences")
        host.park_pointer()
        host.keep("preferences-slideshow")
        caption = host.find(PRESENTER_CAPTION, window="Preferences")
        host.screen.click(*caption.middle)
        host.park_pointer()
        host.keep("preferences-slideshow-without-presenter")
        host.screen.click(*host.find(PRESENTER_CAPTION, window="Preferences").middle)
        host.click("About", kind="GSToolbar", window="Preferences")
        host.park_pointer()
        host.keep("preferences-about")


@group("about-screen")
def about_screen(look, directory, font_scale):
    with Stage(look, directory, font_scale) as host:
        host.find(kind="Editor")
        host.menu_bar("Quorvel", "About Quorvel")
        wait_for(lambda: len(host.describe()) > 1, "the About window")
        host.park_pointer()
        host.keep("about-screen")


@group("tab-overview", "save-alert", "open-panel", "menu-bar", "long-title")
def windows(look, directory, font_scale):
    folder = os.path.join(tempfile.gettempdir(), "tour-documents")
    os.makedirs(folder, exist_ok=True)
    long_name = "a talk whose file has a very long name that no title bar and no menu was ever made for " * 2
    paths = [os.path.join(folder, name + ".md") for name in ("alpha", "beta", long_name.strip()[:170])]
    for index, path in enumerate(paths):
        with open(path, "w", encoding="utf-8") as target:
            target.write(f"# Talk {index + 1}\n\nOne line.\n\n---\n\n# End\n")
    with Stage(look, directory, font_scale, arguments=("--no-tutorial", paths[0], paths[1])) as host:
        host.window("beta.md")
        open_with_key(host, 3, "the open panel", "o", "Control_L")
        host.park_pointer()
        host.keep("open-panel", judged=("contrast",))       # it lists what lies around
        host.key("Escape")
        wait_for(lambda: len(host.describe()) == 2, "the open panel to close")
        press_toolbar(host, "Tab Overview", window="beta.md")
        opened(host, 3, "the overview")
        host.park_pointer()
        host.keep("tab-overview", judged=("layout", "compare"))
        host.key("Escape")
        wait_for(lambda: len(host.describe()) == 2, "the overview to close")
        host.screen.click(*host.find("Format", "NSMenuItem", window="beta.md").middle)
        host.find("Bold", "NSMenuItem")
        host.park_pointer()
        host.keep("menu-bar", judged=("contrast", "compare"))
        host.key("Escape")
        host.click(kind="Editor", window="beta.md")
        host.screen.type("x")
        open_with_key(host, 3, "the alert", "w", "Control_L")
        host.park_pointer()
        host.keep("save-alert", exempt=("Button",))     # the icon is a button without a title
    with Stage(look, directory, font_scale, arguments=("--no-tutorial", paths[2])) as host:
        host.find(kind="Editor")
        host.park_pointer()
        host.keep("long-title")


@group("slideshow", "presenter")
def slideshow(look, directory, font_scale):
    with Stage(look, directory, font_scale) as host:
        host.find(kind="Editor")
        open_with_key(host, 2, "presenter view and slides", "F5")
        host.key("Right")
        host.park_pointer()
        host.keep("presenter", area=BOTH, judged=("compare",))
        host.key("Escape")
        wait_for(lambda: len(host.describe()) == 1, "the slideshow to end")
        open_with_key(host, 2, "Preferences", "comma", "Control_L")
        host.window("Preferences")
        host.click("Slideshow", kind="GSToolbar", window="Preferences")
        host.screen.click(*host.find(PRESENTER_CAPTION, window="Preferences").middle)
        host.wait_log(lambda entry: entry.get("affectedKey") == "presenterActive", "presenter mode off")
        host.key("w", "Control_L")
        host.window_gone("Preferences")
        host.key("F5")
        wait_for(lambda: len(host.describe()) >= 2, "the slides")
        host.keep("slideshow", judged=("compare",))


@group("introduction", "tutorial-1", "tutorial-2", "tutorial-3", "tutorial-4")
def tutorial(look, directory, font_scale):
    with Stage(look, directory, font_scale, arguments=()) as host:
        window = wait_for(lambda: next((w for w in host.describe() if "Document" not in w["class"]), None), "the introduction")
        frame = window["frame"]
        strip, begin = [], time.monotonic()
        for index in range(16):
            time.sleep(max(0, begin + 0.4 * index - time.monotonic()))
            picture = host.screen.picture(frame)
            strip.append(picture.resize((picture.width * 2 // 5, picture.height * 2 // 5), Image.BOX))
        width, height = strip[0].size
        sheet = Image.new("RGB", (width * 4, height * 4))
        for index, picture in enumerate(strip):
            sheet.paste(picture, (width * (index % 4), height * (index // 4)))
        sheet.save(os.path.join(directory, f"introduction-{look}.png"))
        with open(os.path.join(directory, f"introduction-{look}.json"), "w", encoding="utf-8") as target:
            json.dump({"name": "introduction", "look": look, "windows": [], "checks": [], "exempt": []}, target)
        title = window["title"]
        button = wait_for(lambda: next((v for v in host.views(title) if v.kind.endswith("Button") and v.text == "Next"
                                        and v["enabled"]), None), "the next button", patience=20)
        for page in range(1, 5):
            host.park_pointer()
            host.keep(f"tutorial-{page}")
            if page < 4:
                host.screen.click(*button.middle)
                host.settled()
