#!/usr/bin/env python3
# platform_branches_test.py SOURCE-FOLDER
#
# Which system the program runs on is the business of src/platform and of the build files alone: everything else, the
# tests with it, is the same text on all of them, and what is tested on one is what runs on the other.
import pathlib
import re
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(sys.argv[1])
SYSTEM = re.compile(r"__APPLE__|__MACH__|__linux__|__unix__|_WIN32|TARGET_OS_\w+|Q_OS_\w+|Q_WS_\w+|QT_MAC\w*")
BRANCH = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif)\b(.*)$")
NOT_OURS = {"build", ".git", ".cache"}
ENDINGS = {".cpp", ".h", ".hpp", ".cc", ".inc", ".mm"}


def branches(source):
    """Every preprocessor branch by system outside of src/platform, as file:line."""
    found = []
    folders = [folder for folder in sorted(source.iterdir()) if folder.is_dir() and folder.name not in NOT_OURS]
    for path in (path for folder in folders for path in sorted(folder.rglob("*"))):
        relative = path.relative_to(source)
        if path.suffix not in ENDINGS or relative.parts[:2] == ("src", "platform"):
            continue
        for number, line in enumerate(path.read_text("utf-8").splitlines(), 1):
            branch = BRANCH.match(line)
            if branch and SYSTEM.search(branch.group(2)):
                found.append(f"{relative}:{number}")
    return found


class PlatformBranches(unittest.TestCase):
    def test_stand_in_the_platform_folder_only(self):
        self.assertEqual(branches(SOURCE), [])

    def test_are_found_where_they_must_not_be(self):
        with tempfile.TemporaryDirectory() as folder:
            copy = pathlib.Path(folder)
            for name in ("src/app", "src/platform", "packaging/sdk", "build"):
                (copy / name).mkdir(parents=True)
            (copy / "src/app/Bad.cpp").write_text("int a;\n#ifdef __APPLE__\n#endif\n#if defined(Q_OS_MACOS)\n#endif\n")
            (copy / "packaging/sdk/Bad.h").write_text("#if defined(__APPLE__) && defined(__x86_64__)\n#endif\n")
            (copy / "src/platform/Good.h").write_text("#ifdef __APPLE__\n#endif\n")
            (copy / "build/Generated.h").write_text("#ifdef __APPLE__\n#endif\n")
            (copy / "src/app/Good.cpp").write_text("// __APPLE__ is not asked here\n#ifdef NDEBUG\n#endif\n")
            self.assertEqual(branches(copy), ["packaging/sdk/Bad.h:1", "src/app/Bad.cpp:2", "src/app/Bad.cpp:4"])

    def test_has_sources_to_look_at(self):
        self.assertGreater(len(list((SOURCE / "src" / "app").glob("*.cpp"))), 5)


unittest.main(argv=sys.argv[:1], verbosity=2)
