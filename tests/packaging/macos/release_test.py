#!/usr/bin/env python3
# release_test.py SOURCE-FOLDER
#
# Takes the steps of the release script, and asks the build what follows from Qt, with stand-ins for the tools of a Mac
# that keep what they are called with.
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(sys.argv[1])
PACKAGING = SOURCE / "packaging" / "macos"
BUNDLE = "build/macos/bin/VexaOrbilo.app"

# What a tool does beside being called.
TOOLS = {
    "uname": "echo Darwin",
    "cmake": f"""
        [ "$1" != --build ] || mkdir -p {BUNDLE}/Contents/MacOS
        mkdir -p build/macos && echo "$ROOT/qt/bin/qmake" >build/macos/qmake-in-use""",
    "macdeployqt": "exit 1",  # that of another Qt
    "codesign": "", "ditto": "", "hdiutil": "", "xcrun": "", "spctl": "",
}
DEPLOYED = ["Frameworks/QtCore.framework/QtCore", "PlugIns/platforms/libqcocoa.dylib",
            "Resources/qml/QtQuick/libqml.dylib"]
DEPLOY = "".join(f'mkdir -p "$(dirname "$1/Contents/{file}")"; touch "$1/Contents/{file}"\n' for file in DEPLOYED)


def write_tool(path, body):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(f'#!/bin/bash\necho "${{0#$ROOT/}} $*" >>"$ROOT/calls"\n{body}\n')
    path.chmod(0o755)


class Release(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        shutil.copytree(PACKAGING, self.root / "packaging" / "macos")
        for name, body in TOOLS.items():
            write_tool(self.root / "tools" / name, body)
        write_tool(self.root / "qt" / "bin" / "macdeployqt", DEPLOY)

    def release(self, **environment):
        """The calls of one run, without the temporary folder's name."""
        path = f"{self.root / 'tools'}:{os.environ['PATH']}"
        subprocess.run([self.root / "packaging" / "macos" / "release"], check=True, capture_output=True,
                       env={**os.environ, "PATH": path, "ROOT": str(self.root), **environment})
        return (self.root / "calls").read_text().replace(f"{self.root}/", "").splitlines()

    def signatures(self, calls):
        return [call for call in calls if call.startswith("tools/codesign --force")]

    def test_hardens_nothing_that_is_signed_ad_hoc(self):
        signatures = self.signatures(self.release())
        self.assertEqual(len(signatures), 6)
        for call in signatures:
            self.assertIn(" --sign - ", call)
            self.assertNotIn("runtime", call)

    def test_hardens_everything_that_is_signed_for_others(self):
        signatures = self.signatures(self.release(SIGNING_IDENTITY="Somebody"))
        self.assertEqual(len(signatures), 6)
        for call in signatures:
            self.assertIn(" --options runtime --timestamp --sign Somebody ", call)

    def test_signs_the_program_last_and_then_looks_at_all_of_it(self):
        calls = self.release()
        signed = [call.rpartition(" ")[2] for call in self.signatures(calls)]
        self.assertEqual(signed[-1], BUNDLE)
        self.assertEqual(set(signed[:-1]), {
            f"{BUNDLE}/Contents/{part}" for part in
            ("Frameworks/QtCore.framework", *DEPLOYED[1:], "MacOS/setAutoStartOpen.scpt",
             "MacOS/setAutoStartClose.scpt")})
        self.assertLess(calls.index(self.signatures(calls)[-1]),
                        calls.index(f"tools/codesign --verify --deep --strict --verbose=2 {BUNDLE}"))

    def test_deploys_with_the_tool_of_the_qt_that_was_built_with(self):
        calls = self.release()
        self.assertEqual([call.split()[0] for call in calls if "macdeployqt" in call], ["qt/bin/macdeployqt"])

    def test_names_no_processor_and_no_system_of_its_own(self):
        for call in self.release():
            self.assertNotRegex(call, r"OSX|arm64|x86_64|\b1[0-9]\.[0-9]")

    def test_notarises_with_an_identity_and_a_profile_only(self):
        self.assertFalse([call for call in self.release(NOTARY_PROFILE="profile") if "notarytool" in call])
        calls = self.release(SIGNING_IDENTITY="Somebody", NOTARY_PROFILE="profile")
        self.assertTrue([call for call in calls if "notarytool submit" in call and "--keychain-profile profile" in call])

    def test_refuses_to_run_elsewhere(self):
        write_tool(self.root / "tools" / "uname", "echo Linux")
        with self.assertRaises(subprocess.CalledProcessError) as refusal:
            self.release()
        self.assertIn(b"macOS", refusal.exception.stderr)


class FollowsQt(unittest.TestCase):
    """What FollowQt.cmake reads from a library, of which lipo and otool say this."""

    OLD = "      cmd LC_VERSION_MIN_MACOSX\n  cmdsize 16\n  version {}\n      sdk 11.1\n"
    NEW = "      cmd LC_BUILD_VERSION\n  cmdsize 32\n platform 1\n    minos {}\n      sdk 14.0\n"

    def follow(self, architectures, load_commands):
        with tempfile.TemporaryDirectory() as name:
            root = pathlib.Path(name)
            write_tool(root / "tools" / "lipo", f"echo '{architectures}'")
            write_tool(root / "tools" / "otool", f"cat <<'.'\nQtCore:\nLoad command 9\n{load_commands}.")
            script = root / "follow.cmake"
            script.write_text(f'include("{PACKAGING}/FollowQt.cmake")\n'
                              'vexa_architectures_in(QtCore architectures)\n'
                              'vexa_minimum_of(QtCore "${architectures}" minimum)\n'
                              'message("${architectures} ${minimum}")\n')
            path = f"{root / 'tools'}:{os.environ['PATH']}"
            answer = subprocess.run(["cmake", "-P", script], check=True, capture_output=True, text=True,
                                    env={**os.environ, "PATH": path, "ROOT": name})
            return answer.stderr.strip()

    def test_the_processors_are_those_of_the_library(self):
        self.assertEqual(self.follow("x86_64", self.OLD.format("10.13")), "x86_64 10.13")
        self.assertEqual(self.follow("arm64", self.NEW.format("11.0")), "arm64 11.0")

    def test_a_newer_library_raises_the_oldest_system(self):
        self.assertEqual(self.follow("arm64", self.NEW.format("14.0")), "arm64 14.0")
        self.assertEqual(self.follow("x86_64", self.NEW.format("13.0")), "x86_64 13.0")

    def test_an_older_library_does_not_lower_it(self):
        self.assertEqual(self.follow("x86_64", self.OLD.format("10.9")), "x86_64 10.13")

    def test_a_library_for_both_takes_what_both_need(self):
        commands = self.OLD.format("10.13") + "Load command 9\n" + self.NEW.format("11.0")
        self.assertEqual(self.follow("x86_64 arm64", commands), "x86_64;arm64 11.0")


class OnePlace(unittest.TestCase):
    def test_the_oldest_system_is_written_in_one_file(self):
        places = {path.name for path in PACKAGING.glob("*") if path.is_file() and path.suffix != ".icns" and
                  re.search(r"\b10\.13\b", re.sub(r"#.*", "", path.read_text("utf-8")))}
        self.assertEqual(places, {"MinimumSystems.cmake"})


unittest.main(argv=sys.argv[:1], verbosity=2)
