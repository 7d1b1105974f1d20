#!/usr/bin/env python3
# bundle_test.py BUILD-FOLDER SOURCE-FOLDER
#
# Looks into the bundle that the macOS build makes here, down to the last file. Its program is one for macOS, but has
# never met Apple's libraries.
import os
import pathlib
import plistlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest

BUILD, SOURCE = (pathlib.Path(word) for word in sys.argv[1:3])
BUNDLE = BUILD / "bin" / "VexaOrbilo.app" / "Contents"
PACKAGING = SOURCE / "packaging" / "macos"


def icon_pictures(data):
    """The name and content of each picture in an icon set."""
    place = 8
    while place < len(data):
        name, length = struct.unpack(">4sI", data[place:place + 8])
        yield name.decode("ascii"), data[place + 8:place + length]
        place += length


def script(name):
    return (BUNDLE / "MacOS" / name).read_text("ascii")


def commands(text):
    return "\n".join(line for line in text.splitlines() if not line.startswith("--"))


class Bundle(unittest.TestCase):
    def test_holds_these_files_and_no_others(self):
        files = {str(path.relative_to(BUNDLE)) for path in BUNDLE.rglob("*") if path.is_file()}
        self.assertEqual(files, {"Info.plist", "MacOS/VexaOrbilo", "MacOS/setAutoStartOpen.scpt",
                                 "MacOS/setAutoStartClose.scpt", "Resources/VexaOrbilo.icns"})


    def test_holds_a_program_for_macos(self):
        magic, processor = struct.unpack("<II", (BUNDLE / "MacOS" / "VexaOrbilo").read_bytes()[:8])
        self.assertEqual(magic, 0xFEEDFACF)
        self.assertEqual(processor, 0x0100000C)  # arm64


class Information(unittest.TestCase):
    def setUp(self):
        with open(BUNDLE / "Info.plist", "rb") as file:
            self.entries = plistlib.load(file)

    def test_names_the_program(self):
        for key, value in {"CFBundleExecutable": "VexaOrbilo", "CFBundleName": "VexaOrbilo",
                           "CFBundlePackageType": "APPL", "CFBundleIconFile": "VexaOrbilo",
                           "NSPrincipalClass": "NSApplication"}.items():
            self.assertEqual(self.entries[key], value, key)
        self.assertTrue(self.entries["NSHighResolutionCapable"])
        self.assertRegex(self.entries["CFBundleIdentifier"], r"^[A-Za-z0-9-]+(\.[A-Za-z0-9-]+){2,}$")

    def test_has_the_projects_version(self):
        version = re.search(r"project\(\s*VexaOrbilo\s+VERSION ([0-9.]+)", (SOURCE / "CMakeLists.txt").read_text()).group(1)
        self.assertEqual(self.entries["CFBundleVersion"], version)
        self.assertEqual(self.entries["CFBundleShortVersionString"], version)

    def test_asks_for_the_system_that_the_compiler_was_told(self):
        flag = f"-mmacosx-version-min={self.entries['LSMinimumSystemVersion']} "
        self.assertIn(flag, (BUILD / "compile_commands.json").read_text())

    def test_says_why_it_asks_for_permissions(self):
        self.assertIn("System Events", self.entries["NSAppleEventsUsageDescription"])
        self.assertIn("screenshots", self.entries["NSDesktopFolderUsageDescription"])

    def test_keeps_the_dock_icon(self):
        self.assertNotIn("LSUIElement", self.entries)
        self.assertNotIn("LSBackgroundOnly", self.entries)

    def test_leaves_nothing_unfilled(self):
        self.assertNotIn("$", (BUNDLE / "Info.plist").read_text("utf-8"))
        self.assertNotIn("", [value for value in self.entries.values() if isinstance(value, str)])


class LoginScripts(unittest.TestCase):
    def test_are_where_the_program_runs_them(self):
        command = (SOURCE / "src" / "platform" / "mac" / "AutoStart.cpp").read_text()
        self.assertIn("osascript /Applications/VexaOrbilo.app/Contents/MacOS/", command)
        for name in ("setAutoStartOpen.scpt", "setAutoStartClose.scpt"):
            self.assertIn(name, command)
            self.assertTrue((BUNDLE / "MacOS" / name).is_file())

    def test_are_about_this_program_alone(self):
        for name in ("setAutoStartOpen.scpt", "setAutoStartClose.scpt"):
            text = commands(script(name))
            self.assertEqual(re.findall(r'"(/[^"]*)"', text), ["/Applications/VexaOrbilo.app"])
            self.assertIn('tell application "System Events"', text)
            for place in re.finditer(r"(first|every) login item", text):
                self.assertTrue(text[place.end():].startswith(" whose path is applicationPath"), text)

    def test_opening_makes_one_item_and_no_second(self):
        text = commands(script("setAutoStartOpen.scpt"))
        self.assertEqual(text.count("make new login item at end of login items"), 1)
        self.assertLess(text.index("if not (exists"), text.index("make new login item"))
        self.assertNotIn("delete", text)

    def test_closing_deletes_what_is_there(self):
        text = commands(script("setAutoStartClose.scpt"))
        self.assertEqual(text.count("delete (every login item whose path is applicationPath)"), 1)
        self.assertLess(text.index("if exists"), text.index("delete"))
        self.assertNotIn("make", text)

    def test_end_with_an_error_when_it_did_not_work(self):
        for name in ("setAutoStartOpen.scpt", "setAutoStartClose.scpt"):
            text = commands(script(name))
            self.assertGreater(text.index("error "), max(text.find("make new"), text.find("delete")))
            self.assertNotIn("try", text)

    def test_close_what_they_open(self):
        for name in ("setAutoStartOpen.scpt", "setAutoStartClose.scpt"):
            open_blocks = []
            for line in commands(script(name)).splitlines():
                word = line.split()[:1]
                if word in (["tell"], ["if"]):
                    open_blocks.append(word[0])
                elif word == ["end"]:
                    self.assertEqual(line.split()[1], open_blocks.pop())
            self.assertEqual(open_blocks, [])


class Icon(unittest.TestCase):
    SIZES = {"icp4": 16, "icp5": 32, "ic11": 32, "ic12": 64, "ic07": 128, "ic13": 256, "ic08": 256, "ic14": 512,
             "ic09": 512, "ic10": 1024}

    def setUp(self):
        self.data = (BUNDLE / "Resources" / "VexaOrbilo.icns").read_bytes()

    def test_has_a_picture_of_every_size(self):
        self.assertEqual(self.data[:4], b"icns")
        self.assertEqual(struct.unpack(">I", self.data[4:8])[0], len(self.data))
        sizes = {}
        for name, picture in icon_pictures(self.data):
            self.assertEqual(picture[:8], b"\x89PNG\r\n\x1a\n")
            width, height = struct.unpack(">II", picture[16:24])
            self.assertEqual(width, height)
            sizes[name] = width
        self.assertEqual(sizes, self.SIZES)

    def test_is_the_drawing_as_it_is_now(self):
        with tempfile.TemporaryDirectory() as folder:
            fresh = os.path.join(folder, "fresh.icns")
            subprocess.run([PACKAGING / "make-icon", fresh], check=True)
            self.assertEqual(pathlib.Path(fresh).read_bytes(), self.data, "run packaging/macos/make-icon")


class Signing(unittest.TestCase):
    def test_entitlements_let_the_login_scripts_work(self):
        with open(PACKAGING / "VexaOrbilo.entitlements", "rb") as file:
            entitlements = plistlib.load(file)
        self.assertIs(entitlements["com.apple.security.automation.apple-events"], True)

    def test_entitlements_let_the_program_do_nothing_else(self):
        with open(PACKAGING / "VexaOrbilo.entitlements", "rb") as file:
            self.assertEqual(list(plistlib.load(file)), ["com.apple.security.automation.apple-events"])


unittest.main(argv=sys.argv[:1], verbosity=2)
