"""Looks at a scene: its picture and the description of its windows. Each check returns a list of findings (text)."""
from collections import Counter

from PIL import Image, ImageChops, ImageDraw

CONTRAST_WANTED = 4.5    # WCAG 2.1, success criterion 1.4.3, for text of normal size


def channel(value):
    value /= 255
    return value / 12.92 if value <= 0.03928 else ((value + 0.055) / 1.055) ** 2.4


def luminance(colour):
    red, green, blue = (channel(value) for value in colour)
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue


def contrast(first, second):
    lighter, darker = sorted((luminance(first), luminance(second)), reverse=True)
    return (lighter + 0.05) / (darker + 0.05)


def empty(picture):
    """A picture that shows nothing: hardly any colours, or one that fills nearly all of it."""
    colours = Counter(picture.resize((picture.width // 2, picture.height // 2), Image.NEAREST).getdata())
    share = colours.most_common(1)[0][1] / sum(colours.values())
    if len(colours) < 12 or share > 0.997:
        return [f"empty: {len(colours)} colours, {share:.1%} of it in one"]
    return []


def intersection(first, second):
    left, top = max(first[0], second[0]), max(first[1], second[1])
    right = min(first[0] + first[2], second[0] + second[2])
    bottom = min(first[1] + first[3], second[1] + second[3])
    return (left, top, max(0, right - left), max(0, bottom - top))


def with_ancestors(views):
    """Each view with the views that contain it, outermost first (the list is in drawing order with depths)."""
    stack = []
    for view in views:
        depth = view.get("depth")
        if depth is None:                      # a menu item, described after its menu
            yield view, list(stack)
            continue
        del stack[depth:]
        yield view, list(stack)
        stack.append(view)


def scrolls(ancestors):
    return any("ClipView" in ancestor["class"] for ancestor in ancestors)


def clipped(windows, exempt=()):
    """Views that reach out of their window, and texts that need more room than they have."""
    findings = []
    for window in windows:
        for view, ancestors in with_ancestors(window["views"]):
            text = view.get("text", "")
            if scrolls(ancestors) or any(name in view["class"] or name == text for name in exempt):
                continue
            name = f"{view['class']} {text[:40]!r} in {window['title']!r}"
            frame, inside = view["frame"], window["frame"]
            if text and not view.get("separator"):
                shown = intersection(frame, inside)
                if frame[2] * frame[3] > 0 and shown[2] * shown[3] < 0.98 * frame[2] * frame[3]:
                    findings.append(f"outside: {name} has {frame}, its window {inside}")
            needs, size = view.get("needs"), view.get("size", frame[2:])
            if text and needs and (needs[0] > size[0] + 3 or needs[1] > size[1] + 3):
                multiline = "Text" in view["class"] and size[1] > 1.6 * needs[1]
                editable = "SearchField" in view["class"]
                if not multiline and not editable:
                    findings.append(f"clipped: {name} needs {needs}, has {size}")
    return findings


def overlapping(windows):
    """Texts of one window that lie on each other."""
    findings = []
    for window in windows:
        texts = [view for view, ancestors in with_ancestors(window["views"])
                 if view.get("text") and "needs" in view and not scrolls(ancestors)]
        for index, first in enumerate(texts):
            for second in texts[index + 1:]:
                common = intersection(first["frame"], second["frame"])
                if common[2] > 3 and common[3] > 3:
                    findings.append(f"overlapping: {first['text'][:30]!r} and {second['text'][:30]!r} in {window['title']!r}")
    return findings


def covered(view, window, windows):
    """Whether a window that is further to the front (the X stacking is not known: a smaller or later one) may lie on it."""
    later = windows[windows.index(window) + 1:] + windows[:windows.index(window)]
    return any(intersection(view["visible"], other["frame"])[2:] > (0, 0) and min(intersection(view["visible"], other["frame"])[2:]) > 0
               for other in later)


def text_contrast(picture, frame):
    """The contrast between the commonest colour of a frame (the background) and the colour furthest from it (the strokes'
    cores: antialiasing only ever lowers the contrast)."""
    x, y, width, height = (int(round(value)) for value in frame)
    box = (max(0, x + 1), max(0, y + 1), min(picture.width, x + width - 1), min(picture.height, y + height - 1))
    if box[2] - box[0] < 4 or box[3] - box[1] < 6:
        return None
    colours = Counter(picture.crop(box).getdata())
    background = colours.most_common(1)[0][0]
    strokes = max((colour for colour, count in colours.items() if count >= 2 or len(colours) < 20), default=background,
                  key=lambda colour: contrast(colour, background))
    return contrast(strokes, background)


def contrasts(picture, windows):
    """Every text with its contrast: a list of (ratio, enabled, description)."""
    results = []
    for window in windows:
        for view, _ in with_ancestors(window["views"]):
            text = view.get("text", "").strip()
            visible = view.get("visible", view["frame"])
            if not text or view.get("separator") or "Box" in view["class"] or covered({"visible": visible}, window, windows):
                continue
            if "Text" in view["class"] and "Field" not in view["class"] and len(text) > 400:
                visible = [*visible[:3], min(visible[3], 300)]
            ratio = text_contrast(picture, visible)
            if ratio is not None:
                results.append((ratio, view.get("enabled", True) is not False, f"{view['class']} {text[:40]!r} in {window['title']!r}"))
    return results


def low_contrast(measured):
    return [f"contrast {ratio:.2f}: {name}" for ratio, enabled, name in measured if enabled and ratio < CONTRAST_WANTED]


# --- comparison with accepted pictures

BLOCK = 12               # pixels of the reduced picture
BLOCK_DIFFERENCE = 26    # levels of 255 that a block may differ on average
SHARE_WANTED = 0.02      # of the blocks inside windows


def reduced(picture, windows):
    """Half the size, and only what lies in our own windows: the window manager's decorations vary from run to run."""
    mask = Image.new("L", picture.size, 0)
    draw = ImageDraw.Draw(mask)
    for window in windows:
        x, y, width, height = window["frame"]
        draw.rectangle((x, y, x + width - 1, y + height - 1), fill=255)
    ground = Image.new("RGB", picture.size, (128, 128, 128))
    ground.paste(picture, mask=mask)
    return ground.resize((picture.width // 2, picture.height // 2), Image.BOX)


def changed(new, accepted):
    """The share of blocks that differ between two reduced pictures (1 when their sizes differ)."""
    if new.size != accepted.size:
        return 1.0
    difference = ImageChops.difference(new, accepted).convert("L")
    blocks = difference.resize((max(1, new.width // BLOCK), max(1, new.height // BLOCK)), Image.BOX)
    touched = sum(1 for value in blocks.getdata() if value > BLOCK_DIFFERENCE)
    return touched / (blocks.width * blocks.height)
