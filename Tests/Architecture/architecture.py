"""The rules of who may know whom, as functions that return what breaks them.

Usage: architecture.py ROOT    prints every breach in the source tree at ROOT; exit code 1 if there is any.
"""
import os
import re
import sys

SOURCES = (".h", ".cpp", ".mm", ".m", ".c", ".py")
FOLDERS = ("AppKitGlue", "Platform", "SampleHost", "Tests", "Benchmarks")
LONGEST = 400

# What the bundle and the sample host may include of Platform/.
DOORS = {
    "AppKitGlue": {"Platform.h", "NSToolbarDelegate.h"},
    "SampleHost": {"Platform.h", "NSToolbarDelegate.h", "FlatTheme.h"},
}

INCLUDE = re.compile(r'^\s*#\s*(include|import)\s*(?:"([^"]+)"|<([^>]+)>)')
OBJECTIVE_C = re.compile(r"^\s*(#\s*import\b|@(interface|implementation|protocol|class|property|autoreleasepool|end)\b)")
OBJECTIVE_C_FRAMEWORK = re.compile(r"^(AppKit|Foundation|Cocoa|CoreFoundation|GNUstepGUI|GNUstepBase|objc)/")
PLATFORM_CONDITION = re.compile(
    r"^\s*#\s*(if|ifdef|ifndef|elif|elifdef|elifndef)\b.*"
    r"\b(__APPLE__|GNUSTEP\w*|TARGET_OS_\w+|__linux__|__unix__|GNU_RUNTIME|GNU_GUI_LIBRARY|__GNUSTEP_RUNTIME__)\b")


def files(root, folder, endings=SOURCES):
    """The paths below a folder, relative to the root, in order."""
    found = []
    for directory, _, names in os.walk(os.path.join(root, folder)):
        found += [os.path.relpath(os.path.join(directory, name), root) for name in names if name.endswith(endings)]
    return sorted(found)


def lines(root, path):
    """The lines without their comments (line comments only: blocks are not in use here)."""
    with open(os.path.join(root, path), encoding="utf-8") as source:
        return [re.sub(r"(^|\s)//.*", "", line.rstrip("\n")) for line in source]


def includes(root, path):
    """What a file includes: (name, whether in quotes)."""
    found = []
    for line in lines(root, path):
        match = INCLUDE.match(line)
        if match:
            found.append((match.group(2) or match.group(3), match.group(2) is not None))
    return found


def by_name(root, folder):
    """The headers below a folder by their names without folders: include paths are flat."""
    return {os.path.basename(path): path for path in files(root, folder, (".h",))}


def core_without_objective_c(root):
    """Nothing that a plain C++ source reaches is Objective-C."""
    breaches = []
    for folder in ("AppKitGlue", os.path.join("SampleHost", "Model")):
        own = by_name(root, folder)
        everywhere = {name: path for other in ("Platform", "SampleHost", "AppKitGlue")
                      for name, path in by_name(root, other).items()}
        for source in files(root, folder, (".cpp",)):
            breaches += reached_objective_c(root, source, {**everywhere, **own})
    return breaches


def reached_objective_c(root, source, headers):
    breaches, waiting, seen = [], [(source, source)], {source}
    while waiting:
        path, way = waiting.pop()
        for number, line in enumerate(lines(root, path), 1):
            if OBJECTIVE_C.match(line):
                breaches.append(f"{path}:{number}: Objective-C is reachable from core: {way}")
                break
        for name, quoted in includes(root, path):
            header = headers.get(os.path.basename(name)) if quoted else None
            if OBJECTIVE_C_FRAMEWORK.match(name):
                breaches.append(f"{path}: Objective-C header <{name}> is reachable from core: {way}")
            if header and header not in seen:
                seen.add(header)
                waiting.append((header, f"{way} > {os.path.basename(header)}"))
    return breaches


def platform_only_through_its_door(root):
    """The bundle and the sample host include only Platform's doors and have no condition on the platform."""
    breaches = []
    platform = by_name(root, "Platform")
    for folder, doors in DOORS.items():
        own = by_name(root, folder)
        if folder == "SampleHost":
            own = {**by_name(root, "AppKitGlue"), **own}
        for path in files(root, folder):
            for name, quoted in includes(root, path):
                base = os.path.basename(name)
                if name.startswith(("GNUstepGUI/", "GNUstepBase/", "X11/")):
                    breaches.append(f"{path}: <{name}> belongs to one platform")
                if quoted and base in platform and base not in own and base not in doors:
                    breaches.append(f"{path}: \"{name}\" is inside Platform/; include \"Platform.h\"")
            for number, line in enumerate(lines(root, path), 1):
                if PLATFORM_CONDITION.match(line):
                    breaches.append(f"{path}:{number}: a condition on the platform belongs in Platform/")
    return breaches


def platform_knows_nobody(root):
    """Platform/ includes nothing of the bundle or the sample host."""
    others = {**by_name(root, "AppKitGlue"), **by_name(root, "SampleHost")}
    platform = by_name(root, "Platform")
    return [f"{path}: \"{name}\" belongs to {os.path.dirname(others[os.path.basename(name)])}"
            for path in files(root, "Platform")
            for name, quoted in includes(root, path)
            if quoted and os.path.basename(name) in others and os.path.basename(name) not in platform]


def short_files(root):
    """No source passes the limit without saying why."""
    breaches = []
    for folder in FOLDERS:
        for path in files(root, folder):
            with open(os.path.join(root, path), encoding="utf-8") as source:
                text = source.read()
            count = text.count("\n")
            if count > LONGEST and not re.search(r"^(//|#) Long because: \S", text, re.MULTILINE):
                breaches.append(f"{path}: {count} lines; split it or say '// Long because: ...'")
    return breaches


def work_at_load(root):
    """No class does work when the library is loaded."""
    return [f"{path}:{number}: +load runs when the library is loaded"
            for folder in ("AppKitGlue", "Platform")
            for path in files(root, folder)
            for number, line in enumerate(lines(root, path), 1)
            if re.match(r"^\s*\+\s*\(void\)\s*load\b", line) or "__attribute__((constructor" in line
            or "[[gnu::constructor" in line]


CHECKS = (core_without_objective_c, platform_only_through_its_door, platform_knows_nobody, short_files, work_at_load)


def main():
    root = sys.argv[1]
    breaches = [breach for check in CHECKS for breach in check(root)]
    print("\n".join(breaches) if breaches else "architecture: no breach")
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
