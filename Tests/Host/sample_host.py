"""Drives the sample host as a user does: a real pointer, real keys, and eyes that know where everything is.

The display comes from scripts/with-displays; every wait is for a condition, never for a number of seconds.
"""
import json
import os
import subprocess
import tempfile
import time

from PIL import Image
from Xlib import X, XK, display as xdisplay
from Xlib.ext import xtest

PATIENCE = float(os.environ.get("QV_PATIENCE", "30"))
BUILD = os.environ.get("QV_BUILD", os.path.join(os.path.dirname(__file__), "../../build"))


class Failure(AssertionError):
    pass


def wait_for(condition, what, patience=None, interval=0.03):
    """Waits until condition() is true (and returns what it gave); fails saying what did not come."""
    deadline = time.monotonic() + (patience or PATIENCE)
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise Failure(f"did not come: {what() if callable(what) else what}")
        time.sleep(interval)


class View:
    def __init__(self, window, values):
        self.window = window
        self.values = values
        self.text = values.get("text", "")
        self.kind = values["class"]
        self.frame = tuple(values["frame"])

    def __getitem__(self, name):
        return self.values.get(name)

    @property
    def middle(self):
        x, y, width, height = self.frame
        return int(x + width / 2), int(y + height / 2)

    def __repr__(self):
        return f"<{self.kind} {self.text[:30]!r} {self.frame}>"


class Screen:
    """The X screen: pointer, keys and pictures."""

    def __init__(self):
        self.display = xdisplay.Display()
        self.root = self.display.screen().root

    def move(self, x, y):
        xtest.fake_input(self.display, X.MotionNotify, x=int(x), y=int(y))
        self.display.sync()
        time.sleep(0.08)

    def press(self):
        xtest.fake_input(self.display, X.ButtonPress, 1)
        self.display.sync()

    def release(self):
        xtest.fake_input(self.display, X.ButtonRelease, 1)
        self.display.sync()

    def click(self, x, y):
        self.move(x, y)
        self.press()
        time.sleep(0.12)
        self.release()
        time.sleep(0.05)

    def drag(self, start, end, steps=12):
        self.move(*start)
        self.press()
        time.sleep(0.2)
        for step in range(1, steps + 1):
            self.move(start[0] + (end[0] - start[0]) * step / steps, start[1] + (end[1] - start[1]) * step / steps)
        time.sleep(0.2)
        self.release()

    def _code(self, name):
        keysym = XK.string_to_keysym(name)
        if keysym == 0:
            keysym = ord(name)
        for code, index in self.display.keysym_to_keycodes(keysym):
            if index in (0, 1):
                return code, index == 1
        raise Failure(f"no key gives {name!r}")

    def key(self, name, *modifiers):
        """Presses a key by its X name ("Return", "a"), with modifiers by theirs ("Control_L")."""
        code, shifted = self._code(name)
        held = [self._code(modifier)[0] for modifier in modifiers]
        if shifted and "Shift_L" not in modifiers:
            held.append(self._code("Shift_L")[0])
        for modifier in held:
            xtest.fake_input(self.display, X.KeyPress, modifier)
        xtest.fake_input(self.display, X.KeyPress, code)
        self.display.sync()
        time.sleep(0.03)
        xtest.fake_input(self.display, X.KeyRelease, code)
        for modifier in reversed(held):
            xtest.fake_input(self.display, X.KeyRelease, modifier)
        self.display.sync()
        time.sleep(0.05)

    def type(self, text):
        names = {" ": "space", "\n": "Return", ".": "period", ",": "comma", "-": "minus", "#": "numbersign", "!": "exclam"}
        for character in text:
            self.key(names.get(character, character))

    def picture(self, frame=None):
        if frame is None:
            geometry = self.root.get_geometry()
            frame = (0, 0, geometry.width, geometry.height)
        x, y, width, height = (int(value) for value in frame)
        raw = self.root.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF)
        return Image.frombytes("RGB", (width, height), raw.data, "raw", "BGRX")

    def still_picture(self, frame=None, patience=8):
        """A picture of the screen once it has stopped changing (a blinking caret or a clock gives up after a while)."""
        deadline = time.monotonic() + patience
        last, since = self.picture(frame), time.monotonic()
        while time.monotonic() < deadline:
            time.sleep(0.08)
            new = self.picture(frame)
            if new.tobytes() != last.tobytes():
                last, since = new, time.monotonic()
            elif time.monotonic() - since > 0.35:
                break
        return last


class Host:
    """A running sample host."""

    def __init__(self, *arguments, defaults_fresh=True):
        self.folder = tempfile.mkdtemp(prefix="host-")
        self.log_path = os.path.join(self.folder, "log.jsonl")
        self.description_path = os.path.join(self.folder, "windows.json")
        self.output_path = os.path.join(self.folder, "output.txt")
        self.screen = Screen()
        self.output = open(self.output_path, "wb")
        command = [os.path.join(BUILD, "SampleHost"), "--log", self.log_path, "--describe", self.description_path]
        if defaults_fresh:
            command.append("--defaults-fresh")
        self.process = subprocess.Popen(command + list(arguments), stdin=subprocess.DEVNULL, stdout=self.output,
                                        stderr=subprocess.STDOUT)

    def __enter__(self):
        return self

    def __exit__(self, kind, value, traceback):
        running = self.process.poll() is None
        if kind is not None:
            print(f"--- the host {'runs' if running else f'ended with {self.process.returncode}'}; its output:")
            with open(self.output_path, errors="replace") as output:
                print(output.read()[-3000:])
            print("--- its log:", *self.log()[-10:], sep="\n")
            try:
                if running:
                    for window in self.describe():
                        print("---", window["title"], window["frame"], [view for view in self.views() if view.text][:60])
            except Failure as failure:
                print(failure)
        if running:
            self.process.kill()
            self.process.wait()
        self.output.close()

    def describe(self):
        request = self.description_path + ".request"
        if os.path.exists(self.description_path):
            os.remove(self.description_path)
        open(request, "w").close()

        def answered():
            if self.process.poll() is not None:
                raise Failure(f"the host has ended with exit code {self.process.returncode}")
            return os.path.exists(self.description_path)
        wait_for(answered, "a description of the windows", interval=0.01)
        with open(self.description_path, encoding="utf-8") as source:
            return json.load(source)["windows"]

    def windows(self):
        return self.describe()

    def window(self, title):
        return wait_for(lambda: next((w for w in self.describe() if w["title"] == title), None),
                        lambda: f"a window titled {title!r} among {[w['title'] for w in self.describe()]}")

    def window_gone(self, title):
        wait_for(lambda: all(w["title"] != title for w in self.describe()), f"the window {title!r} to close")

    def views(self, window=None):
        return [View(w, values) for w in self.describe() if window is None or w["title"] == window for values in w["views"]]

    @staticmethod
    def _matches(view, text, kind, tip):
        visible = view["visible"]
        return ((text is None or view.text == text) and (kind is None or kind in view.kind) and (tip is None or view["tip"] == tip)
                and (visible is None or (visible[2] >= 1 and visible[3] >= 1)))

    def find(self, text=None, kind=None, tip=None, window=None, last=False):
        """The first such view, once it has come to rest (two looks in a row see it at the same place)."""
        seen = []

        def resting():
            found = [v for v in self.views(window) if self._matches(v, text, kind, tip)]
            if not found:
                seen.clear()
                return None
            view = found[-1 if last else 0]
            seen.append(view.frame)
            return view if len(seen) >= 3 and seen[-1] == seen[-2] == seen[-3] else None
        return wait_for(resting, lambda: f"a view with text={text!r} kind={kind!r} tip={tip!r} in {window!r}", interval=0.05)

    def shows(self, text=None, kind=None, window=None):
        return any(self._matches(v, text, kind, None) for v in self.views(window))

    def click(self, text=None, kind=None, tip=None, window=None, last=False):
        view = self.find(text, kind, tip, window, last)
        self.screen.click(*view.middle)
        return view

    def menu(self, *titles):
        """Chooses from the open menu, title by title: a submenu opens under the pointer, the last title is clicked."""
        for title in titles[:-1]:
            self.screen.move(*self.find(title, "NSMenuItem").middle)
        x, y = self.find(titles[-1], "NSMenuItem").middle
        self.screen.move(x - 8, y)
        self.screen.click(x, y)

    def menu_bar(self, title, *titles, window=None):
        """Opens a menu of the menu bar and chooses from it."""
        self.screen.click(*self.find(title, "NSMenuItem", window=window).middle)
        self.menu(*titles)

    def key(self, name, *modifiers):
        """Presses a key once the keys go to one of our windows: a window that has just opened or closed may not have them yet."""
        self.wait_for_focus()
        self.screen.key(name, *modifiers)

    def click_title_bar(self, window):
        """What a user does when keys do not go where they should."""
        x, y, width, _ = window["frame"]
        self.screen.click(x + width / 3, y - 9)

    def has_focus(self):
        """Whether the X server sends keys to a window of the host: its windows' numbers share the client's base."""
        display = self.screen.display
        focus = getattr(display.get_input_focus().focus, "id", None)
        if not isinstance(focus, int):
            return False
        clients = self.screen.root.get_full_property(display.intern_atom("_NET_CLIENT_LIST"), X.AnyPropertyType)
        mask = display.display.info.resource_id_mask
        return any(focus & ~mask == client & ~mask for client in (clients.value if clients else ()))

    def wait_for_focus(self):
        seen = []
        lost_since = time.monotonic()

        def settled():
            nonlocal lost_since
            key = [w for w in self.describe() if w["key"]]
            focused = self.has_focus()
            seen.append((focused, tuple(w["title"] for w in key)))
            if focused:
                lost_since = time.monotonic()
            elif key and time.monotonic() - lost_since > 2:
                # The window manager has given the keys to nobody.
                self.click_title_bar(key[0])
                lost_since = time.monotonic()
            return focused and bool(key) and len(seen) >= 3 and seen[-1] == seen[-2] == seen[-3]
        wait_for(settled, lambda: f"the keys to go to one of our windows: {seen[-3:]}", interval=0.04)

    def log(self):
        if not os.path.exists(self.log_path):
            return []
        with open(self.log_path, encoding="utf-8") as source:
            return [json.loads(line) for line in source.read().splitlines() if line.endswith("}")]

    def wait_log(self, predicate, what):
        return wait_for(lambda: next((entry for entry in self.log() if predicate(entry)), None),
                        lambda: f"{what}; the log: {self.log()[-8:]}")
