"""The About screen in the host's own window."""
import os
import stat
import tempfile

from sample_host import wait_for
from steps import open_document, read


def recording_opener():
    """Puts a program in front of PATH that notes the addresses it is asked to open; returns the path of the notes."""
    folder = tempfile.mkdtemp(prefix="opener-")
    notes = os.path.join(folder, "notes")
    program = os.path.join(folder, "xdg-open")
    with open(program, "w", encoding="utf-8") as target:
        target.write(f"#!/bin/sh\nprintf '%s\\n' \"$1\" >> {notes}\n")
    os.chmod(program, stat.S_IRWXU)
    os.environ["PATH"] = folder + ":" + os.environ["PATH"]
    return notes


def scenario_the_about_screen_opens_project_pages_and_closes():
    notes = recording_opener()
    with open_document("# One\n") as host:
        host.menu_bar("Quorvel", "About Quorvel")
        host.window("About Quorvel")
        host.find("simplecss", window="About Quorvel")
        host.click("Open", window="About Quorvel")
        wait_for(lambda: os.path.exists(notes) and read(notes), "an opened address")
        assert read(notes) == "https://github.com/linebender/simplecss\n", read(notes)
        host.click("Close", window="About Quorvel")
        host.window_gone("About Quorvel")
        host.menu_bar("Quorvel", "About Quorvel")
        host.window("About Quorvel")
