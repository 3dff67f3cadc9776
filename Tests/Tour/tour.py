#!/usr/bin/python3
"""Walks every feature of the sample host once, in light and in dark, and keeps one picture of each scene.

Usage: tour.py DIRECTORY [--look light|dark] [--scene NAME]... [--font-scale 1.5] [--accepted DIRECTORY [--accept]]

The exit code is 1 when a scene failed or a check found something; DIRECTORY/index.html tells what.
"""
import argparse
import json
import os
import shutil
import subprocess
import sys
import time
import traceback

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.join(HERE, "..", "Host")]

from PIL import Image  # noqa: E402

import checks  # noqa: E402
import page  # noqa: E402

LOOKS = ("light", "dark")


def walk(directory, look, names, font_scale):
    """Runs inside a display session: acts out the scenes of one look, keeping picture and description of each."""
    import scenes
    failed = []
    for group in scenes.groups(names):
        try:
            group.act(look, directory, font_scale)
        except Exception:
            traceback.print_exc()
            failed.append(group.name)
    if failed:
        print(f"tour: {look}: did not reach the end of {', '.join(failed)}", file=sys.stderr)
    return 1 if failed else 0


def judge(directory, accepted):
    """Checks every picture of the directory; returns the scenes with their findings."""
    results = []
    for file in sorted(os.listdir(directory)):
        if not file.endswith(".json"):
            continue
        with open(os.path.join(directory, file), encoding="utf-8") as source:
            scene = json.load(source)
        stem = file[:-len(".json")]
        path = os.path.join(directory, stem + ".png")
        picture = Image.open(path).convert("RGB")
        windows = scene["windows"]
        findings = checks.empty(picture)
        if "layout" in scene["checks"]:
            findings += checks.clipped(windows, scene["exempt"]) + checks.overlapping(windows)
        measured = checks.contrasts(picture, windows) if "contrast" in scene["checks"] else []
        findings += checks.low_contrast(measured)
        result = {"name": scene["name"], "look": scene["look"], "picture": path, "findings": findings, "texts": len(measured),
                  "weakest": min((ratio for ratio, enabled, _ in measured if enabled), default=None), "changed": None}
        if "compare" in scene["checks"] and accepted:
            compare(result, picture, windows, os.path.join(accepted, stem + ".jpg"), directory, stem)
        results.append(result)
    order = {name: index for index, name in enumerate(scene_order())}
    results.sort(key=lambda result: (order.get(result["name"], 999), LOOKS.index(result["look"])))
    return results


def compare(result, picture, windows, accepted_path, directory, stem):
    small = checks.reduced(picture, windows)
    small.save(os.path.join(directory, stem + ".reduced.jpg"), quality=88)
    if not os.path.exists(accepted_path):
        result["findings"].append("no accepted picture: look at this one, then accept it (scripts/tour-accept)")
        return
    result["changed"] = checks.changed(small, Image.open(accepted_path).convert("RGB"))
    if result["changed"] > checks.SHARE_WANTED:
        shutil.copy(accepted_path, os.path.join(directory, stem + ".accepted.jpg"))
        result["accepted"], result["reduced"] = stem + ".accepted.jpg", stem + ".reduced.jpg"
        result["findings"].append(f"changed: {result['changed']:.1%} of the picture differs from the accepted one")


def accept(directory, accepted):
    """Makes the pictures of the directory the accepted ones."""
    os.makedirs(accepted, exist_ok=True)
    for file in os.listdir(accepted):
        if file.endswith(".jpg"):
            os.remove(os.path.join(accepted, file))
    for file in sorted(os.listdir(directory)):
        if not file.endswith(".json"):
            continue
        with open(os.path.join(directory, file), encoding="utf-8") as source:
            scene = json.load(source)
        if "compare" in scene["checks"]:
            stem = file[:-len(".json")]
            picture = Image.open(os.path.join(directory, stem + ".png")).convert("RGB")
            checks.reduced(picture, scene["windows"]).save(os.path.join(accepted, stem + ".jpg"), quality=80)
    return 0


def scene_order():
    import scenes
    return scenes.names()


def missing(results, looks):
    have = {(result["name"], result["look"]) for result in results}
    return [f"{name} ({look})" for name in scene_order() for look in looks if (name, look) not in have]


def run_sessions(directory, looks, names, font_scale):
    sessions = []
    for look in looks:
        command = [os.path.join(HERE, "../../scripts/with-displays"), "--displays", "2", "--timeout", "400", "--output",
                   os.path.join(directory, f"failed-{look}"), "--", sys.executable, os.path.abspath(__file__), directory,
                   "--look", look, "--inside", "--font-scale", str(font_scale)]
        for name in names:
            command += ["--scene", name]
        sessions.append(subprocess.Popen(command))
    return [session.wait() for session in sessions]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("directory")
    parser.add_argument("--look", choices=LOOKS)
    parser.add_argument("--scene", action="append", default=[])
    parser.add_argument("--font-scale", type=float, default=1)
    parser.add_argument("--accepted")
    parser.add_argument("--accept", action="store_true", help="only make DIRECTORY's pictures the accepted ones")
    parser.add_argument("--inside", action="store_true", help=argparse.SUPPRESS)
    options = parser.parse_args()
    os.makedirs(options.directory, exist_ok=True)
    directory = os.path.abspath(options.directory)
    if options.accept:
        return accept(directory, options.accepted)
    if options.inside:
        return walk(directory, options.look, options.scene, options.font_scale)

    looks = [options.look] if options.look else list(LOOKS)
    if not options.scene:
        for file in os.listdir(directory):
            if file.endswith((".png", ".json", ".jpg", ".html")):
                os.remove(os.path.join(directory, file))
    start = time.monotonic()
    codes = run_sessions(directory, looks, options.scene, options.font_scale)
    results = judge(directory, options.accepted)
    page.write(directory, results)
    findings = [f"{result['name']} ({result['look']}): {finding}" for result in results for finding in result["findings"]]
    if not options.scene:
        findings += [f"missing: {name}" for name in missing(results, looks)]
    print(f"tour: {len(results)} pictures in {time.monotonic() - start:.0f} s, {len(findings)} findings, "
          f"{sum(result['texts'] for result in results)} texts measured; see {os.path.join(options.directory, 'index.html')}")
    for finding in findings:
        print("  " + finding)
    return 1 if any(codes) or findings else 0


if __name__ == "__main__":
    sys.exit(main())
