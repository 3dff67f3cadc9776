"""The checks of the architecture can fail: each is shown a small tree that breaks its rule, and one that does not."""
import os
import subprocess
import sys
import tempfile
import unittest

import architecture

COMPILER = sys.argv[1:]
sys.argv = sys.argv[:1]


class Tree(unittest.TestCase):
    def setUp(self):
        self.scratch = tempfile.TemporaryDirectory()
        self.root = self.scratch.name

    def tearDown(self):
        self.scratch.cleanup()

    def write(self, path, text):
        full = os.path.join(self.root, path)
        os.makedirs(os.path.dirname(full), exist_ok=True)
        with open(full, "w", encoding="utf-8") as target:
            target.write(text)


class Core(Tree):
    def test_finds_objective_c_behind_two_headers(self):
        self.write("AppKitGlue/A.cpp", '#include "A.h"\n')
        self.write("AppKitGlue/A.h", '#include "B.h"\n')
        self.write("AppKitGlue/B.h", "#import <AppKit/AppKit.h>\n@class NSWindow;\n")
        breaches = architecture.core_without_objective_c(self.root)
        self.assertTrue(any("A.cpp > A.h > B.h" in breach for breach in breaches), breaches)

    def test_finds_platform_headers(self):
        self.write("SampleHost/Model/A.cpp", '#include "Platform.h"\n')
        self.write("Platform/Platform.h", "#import <Foundation/Foundation.h>\n")
        self.assertTrue(architecture.core_without_objective_c(self.root))

    def test_accepts_plain_cpp_and_comments(self):
        self.write("AppKitGlue/A.cpp", '#include "A.h"\n#include <string>\n')
        self.write("AppKitGlue/A.h", "// @class in a comment\nnamespace a {}\n")
        self.write("AppKitGlue/Edge.h", "#import <AppKit/AppKit.h>\n")
        self.assertEqual(architecture.core_without_objective_c(self.root), [])


class Door(Tree):
    def setUp(self):
        super().setUp()
        self.write("Platform/Platform.h", "")
        self.write("Platform/GNUstep/Hooks.h", "")
        self.write("Platform/GNUstep/Theme/FlatTheme.h", "")

    def test_finds_inner_headers(self):
        self.write("AppKitGlue/A.mm", '#import "Hooks.h"\n')
        self.write("SampleHost/Views/B.mm", '#import "GNUstep/Hooks.h"\n#import <GNUstepGUI/GSTheme.h>\n')
        self.assertEqual(len(architecture.platform_only_through_its_door(self.root)), 3)

    def test_only_the_host_chooses_the_theme(self):
        self.write("AppKitGlue/A.mm", '#import "FlatTheme.h"\n')
        self.write("SampleHost/B.mm", '#import "FlatTheme.h"\n#import "Platform.h"\n')
        self.assertEqual(len(architecture.platform_only_through_its_door(self.root)), 1)

    def test_finds_platform_conditions(self):
        for condition in ("#ifdef __APPLE__", "#if defined(GNUSTEP)", "# if TARGET_OS_OSX", "#elif !GNUSTEP_BASE_LIBRARY"):
            self.write("AppKitGlue/A.mm", condition + "\n#endif\n")
            self.assertTrue(architecture.platform_only_through_its_door(self.root), condition)
        self.write("AppKitGlue/A.mm", "#ifdef NDEBUG\n#endif\n// #ifdef __APPLE__\n")
        self.assertEqual(architecture.platform_only_through_its_door(self.root), [])


class PlatformAlone(Tree):
    def test_finds_headers_of_the_bundle(self):
        self.write("AppKitGlue/RetainPtr.h", "")
        self.write("Platform/GNUstep/A.mm", '#import "RetainPtr.h"\n')
        self.assertEqual(len(architecture.platform_knows_nobody(self.root)), 1)
        self.write("Platform/GNUstep/A.mm", '#import "Platform.h"\n')
        self.assertEqual(architecture.platform_knows_nobody(self.root), [])


class Length(Tree):
    def test_finds_long_files_without_a_reason(self):
        self.write("AppKitGlue/Long.cpp", "int a;\n" * 401)
        self.write("Tests/Core/Reason.cpp", "// Long because: it is one table.\n" + "int a;\n" * 401)
        self.write("Platform/Short.mm", "int a;\n" * 400)
        breaches = architecture.short_files(self.root)
        self.assertEqual(len(breaches), 1)
        self.assertIn("Long.cpp", breaches[0])


class Loading(Tree):
    def test_finds_work_at_load(self):
        self.write("Platform/GNUstep/A.mm", "+ (void)load {\n}\n")
        self.write("Platform/GNUstep/B.mm", "__attribute__((constructor)) void f() {}\n+ (void)loadMore {\n}\n")
        self.assertEqual(len(architecture.work_at_load(self.root)), 2)


@unittest.skipUnless(COMPILER, "no compiler given")
class PublicHeader(Tree):
    """QVAppKitController.h is usable from plain Objective-C."""

    def compiles(self, text):
        self.write("probe.m", text)
        result = subprocess.run([*COMPILER, "-x", "objective-c", "-fsyntax-only", "-Wall", "-Werror",
                                 os.path.join(self.root, "probe.m")], capture_output=True, text=True, check=False)
        return result.returncode == 0, result.stderr

    def test_compiles_as_plain_objective_c(self):
        accepted, errors = self.compiles('#import "QVAppKitController.h"\nint main(void) { return 0; }\n')
        self.assertTrue(accepted, errors)

    def test_cpp_would_be_found(self):
        accepted, _ = self.compiles('#import "QVAppKitController.h"\n#include <string>\nstd::string text;\n')
        self.assertFalse(accepted)


if __name__ == "__main__":
    unittest.main()
