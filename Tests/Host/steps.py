"""Steps that several scenarios share."""
import os
import tempfile

from sample_host import Host, wait_for


def logged(entry, event, **values):
    return entry.get("event") == event and all(entry.get(name) == value for name, value in values.items())


def read(path):
    with open(path, encoding="utf-8") as source:
        return source.read()


class OpenDocument(Host):
    """A host with documents of given texts open; the first one's file and title are `file` and `title`."""

    def __init__(self, texts, arguments=()):
        folder = tempfile.mkdtemp(prefix="talk-")
        self.files = []
        for index, text in enumerate(texts):
            path = os.path.join(folder, f"talk{index + 1 if index else ''}.md")
            with open(path, "w", encoding="utf-8") as target:
                target.write(text)
            self.files.append(path)
        self.file = self.files[0]
        self.title = os.path.basename(self.file)
        super().__init__("--no-tutorial", *arguments, *self.files)
        for path in self.files:
            self.window(os.path.basename(path))
        self.find(kind="Editor", window=self.title)

    def editor_text(self):
        return next((view.text for view in self.views(self.title) if "Editor" in view.kind), "")

    def click_into_editor_at_end(self):
        editor = self.find(kind="Editor", window=self.title)
        x, y, width, height = editor["visible"]
        self.screen.click(x + width / 2, y + min(height - 10, 60))
        self.key("End", "Control_L")


def open_document(*texts, arguments=()):
    return OpenDocument(texts, arguments)


def press_toolbar(host, label, window=None):
    """Presses a toolbar item: its upper half, where the button is, above the label."""
    item = host.find(label, kind="GSToolbar", window=window)
    x, y, width, height = item.frame
    host.screen.click(x + width / 2, y + height * 0.35)
    return item


def opened(host, count, what):
    """Waits until there are `count` windows and one that is not a document has the keys."""
    wait_for(lambda: len(host.describe()) == count and any(w["key"] and "Document" not in w["class"] for w in host.describe()),
             lambda: f"{what}: {[(w['title'], w['key']) for w in host.describe()]}")


def open_with_key(host, count, what, *chord):
    """Presses a shortcut that opens a window; once more when a busy window manager has moved the keys meanwhile."""
    for patience in (8, 8, 15):
        host.key(*chord)
        try:
            wait_for(lambda: len(host.describe()) >= count, what, patience=patience)
            break
        except AssertionError:
            window = next((w for w in host.describe() if w["key"]), None)
            if window:
                host.click_title_bar(window)
    wait_for(lambda: any(w["key"] and "DocumentWindow" not in w["class"] for w in host.describe()), f"the keys in {what}")


def save(host):
    host.key("s", "Control_L")
    host.wait_log(lambda entry: entry["event"] == "saved" or entry.get("what") == "saved", "the document to be saved")
