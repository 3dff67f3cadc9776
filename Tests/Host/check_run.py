#!/usr/bin/python3
"""What a newcomer does on a machine without a display: scripts/run shows the sample talk on displays of its own."""
import os
import subprocess
import sys

from PIL import Image

source, build = sys.argv[1:3]
environment = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
pictures = os.path.join(build, "pictures")
for name in ("window.png", "displays.png"):
    if os.path.exists(os.path.join(pictures, name)):
        os.remove(os.path.join(pictures, name))
done = subprocess.run([os.path.join(source, "scripts/run")], env=environment, stdin=subprocess.DEVNULL, capture_output=True,
                      text=True, check=False)
print(done.stdout[-1500:], done.stderr[-1500:])
assert done.returncode == 0, done.returncode
assert "displays.png" in done.stdout
for name in ("window.png", "displays.png"):
    with Image.open(os.path.join(pictures, name)) as picture:
        colours = len(picture.convert("RGB").getcolors(1 << 24))
        print(name, picture.size, colours, "colours")
        assert colours > 500, name
