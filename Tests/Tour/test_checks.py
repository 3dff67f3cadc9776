"""The checks can fail: each is given something wrong and something right."""
import unittest

from PIL import Image, ImageDraw

import checks


def noise(size):
    picture = Image.new("RGB", size, (200, 200, 200))
    draw = ImageDraw.Draw(picture)
    for index in range(60):
        draw.rectangle((index * 3, index * 2, index * 3 + 20, index * 2 + 10), fill=(index * 4, 255 - index * 4, index))
    return picture


def window(*views, frame=(0, 0, 200, 100)):
    return {"title": "w", "frame": frame, "views": list(views)}


def label(text, frame, needs=(10, 10), depth=0, kind="NSTextField"):
    return {"class": kind, "text": text, "frame": list(frame), "visible": list(frame), "needs": list(needs), "depth": depth}


class Checks(unittest.TestCase):
    def test_a_plain_picture_is_empty(self):
        self.assertTrue(checks.empty(Image.new("RGB", (300, 200), (240, 240, 240))))
        self.assertFalse(checks.empty(noise((300, 200))))

    def test_a_text_that_needs_more_room_is_clipped(self):
        self.assertTrue(checks.clipped([window(label("long", (10, 10, 30, 14), needs=(60, 14)))]))
        self.assertFalse(checks.clipped([window(label("long", (10, 10, 70, 14), needs=(60, 14)))]))

    def test_a_view_that_leaves_its_window_is_found(self):
        self.assertTrue(checks.clipped([window(label("out", (180, 10, 60, 14)))]))

    def test_what_scrolls_may_leave_its_window(self):
        clip = {"class": "NSClipView", "frame": [0, 0, 200, 100], "visible": [0, 0, 200, 100], "depth": 0}
        self.assertFalse(checks.clipped([window(clip, label("out", (10, 300, 60, 14), depth=1))]))

    def test_texts_on_each_other_are_found(self):
        self.assertTrue(checks.overlapping([window(label("a", (10, 10, 50, 14)), label("b", (40, 12, 50, 14)))]))
        self.assertFalse(checks.overlapping([window(label("a", (10, 10, 50, 14)), label("b", (70, 12, 50, 14)))]))

    def test_contrast_is_that_of_black_on_white(self):
        self.assertAlmostEqual(checks.contrast((0, 0, 0), (255, 255, 255)), 21, places=2)

    def test_grey_text_on_grey_is_low(self):
        picture = Image.new("RGB", (100, 40), (150, 150, 150))
        ImageDraw.Draw(picture).rectangle((20, 15, 60, 20), fill=(120, 120, 120))
        measured = checks.contrasts(picture, [window(label("grey", (10, 10, 80, 20)))])
        self.assertEqual(len(checks.low_contrast(measured)), 1)

    def test_a_changed_region_is_told_and_a_shade_is_not(self):
        accepted = noise((240, 160))
        other = accepted.copy()
        ImageDraw.Draw(other).rectangle((100, 60, 200, 140), fill=(0, 0, 0))
        self.assertGreater(checks.changed(other, accepted), checks.SHARE_WANTED)
        shade = Image.eval(accepted, lambda value: min(255, value + 4))
        self.assertLessEqual(checks.changed(shade, accepted), checks.SHARE_WANTED)


if __name__ == "__main__":
    unittest.main()
