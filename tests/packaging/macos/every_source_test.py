#!/usr/bin/env python3
# every_source_test.py BUILD-FOLDER SOURCE-FOLDER
#
# The check of the macOS build compiles every source of the program, for both processors: the shared ones, those of
# macOS, and what the code generators make. Only what stands in macOS's place on other systems is not among them.
import json
import pathlib
import sys
import unittest

BUILD, SOURCE = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
ELSEWHERE = ("src/platform/x11/", "src/platform/quartz/")


def compiled(architecture):
    with open(BUILD / architecture / "compile_commands.json") as file:
        return [(pathlib.Path(entry["file"]), entry["command"]) for entry in json.load(file)]


class EverySource(unittest.TestCase):
    def test_is_compiled_for_both_processors(self):
        program = {str(path.relative_to(SOURCE)) for path in (SOURCE / "src").rglob("*.cpp")}
        wanted = {path for path in program if not path.startswith(ELSEWHERE)}
        self.assertGreater(len(wanted), 30)
        for architecture in ("arm64", "x86_64"):
            found = {str(path.relative_to(SOURCE)) for path, _ in compiled(architecture) if SOURCE in path.parents}
            self.assertEqual(wanted - found, set(), architecture)

    def test_of_another_system_is_left_out(self):
        for architecture in ("arm64", "x86_64"):
            files = [str(path.relative_to(SOURCE)) for path, _ in compiled(architecture) if SOURCE in path.parents]
            self.assertEqual([file for file in files if file.startswith(ELSEWHERE)], [])

    def test_is_compiled_for_macos(self):
        for architecture, oldest in {"arm64": "11.0", "x86_64": "10.13"}.items():
            for path, command in compiled(architecture):
                words = [f"--target={architecture}-apple-macos", f"-arch {architecture}", f"-mmacosx-version-min={oldest}"]
                # What the views were translated into is the toolkit's code: warnings in it are not ours to mend.
                if BUILD / architecture / "qml" not in path.parents:
                    words.append("-Werror")
                for word in words:
                    self.assertIn(f" {word} ", command, path)

    def test_has_its_generated_code_compiled(self):
        for architecture in ("arm64", "x86_64"):
            generated = [path.name for path, _ in compiled(architecture)]
            self.assertIn("mocs_compilation.cpp", generated)
            objects = BUILD / architecture
            self.assertTrue(list(objects.rglob("mocs_compilation.cpp.o")))
            self.assertTrue(list(objects.rglob("ui_*.h")))


unittest.main(argv=sys.argv[:1], verbosity=2)
