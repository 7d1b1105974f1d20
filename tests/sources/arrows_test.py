#!/usr/bin/env python3
# arrows_test.py SOURCE-FOLDER
#
# Which room of src/ may include headers of which other is said once, in the table of docs/architecture.md. Here the
# includes are held against it: none that the table does not name, and no arrow in the table that nothing uses. So are
# the libraries: one links the libraries of the rooms that its own looks into.
import pathlib
import re
import sys
import unittest

SOURCE = pathlib.Path(sys.argv[1])
ARROW = re.compile(r"^    (\S+) +→ +(.+)$", re.MULTILINE)
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+/)[^"/]+"', re.MULTILINE)
LIBRARY = re.compile(r"vexa_library\(\s*(vexa_\w+)([^()]*(?:\([^()]*\)[^()]*)*)\)")
ROOMS_OF = {"vexa_x11": ["platform/x11/input"], "vexa_quartz": ["platform/quartz"],
            "vexa_platform": ["platform", "platform/x11", "platform/mac"]}  # of the others the room has the name
X11_INCLUDE = re.compile(r"^\s*#\s*include\s+<(?:X11|xcb)/", re.MULTILINE)


def table(page):
    """The arrows that the page draws: room -> the rooms it may look into."""
    return {room: set() if targets == "nothing" else set(targets.split(", ")) for room, targets in ARROW.findall(page)}


def room_of(path, rooms):
    """The innermost room that the path lies in."""
    return max((room for room in rooms if path.startswith(room + "/")), key=len, default=None)


def includes(rooms, files):
    """Every (room, included room, file) of the files, a mapping from path to text, that leaves its room."""
    for path, text in files.items():
        room = room_of(path, rooms)
        for folder in INCLUDE.findall(text):
            target = room_of(folder, rooms)
            if target != room:
                yield room, target, path


def sources():
    root = SOURCE / "src"
    return {str(path.relative_to(root)): path.read_text("utf-8")
            for path in root.rglob("*") if path.suffix in (".cpp", ".h")}


def links(files):
    """Every (library, linked library) of the build files."""
    for text in files:
        for library, arguments in LIBRARY.findall(text):
            for linked in re.findall(r"(?<!{)\bvexa_\w+", arguments):
                yield library, linked


def rooms_of(library):
    return ROOMS_OF.get(library, [library.removeprefix("vexa_")])


class Arrows(unittest.TestCase):
    rooms = table((SOURCE / "docs" / "architecture.md").read_text("utf-8"))

    def test_every_source_is_in_a_room_of_the_table(self):
        self.assertGreater(len(sources()), 150)
        self.assertEqual([path for path in sources() if room_of(path, self.rooms) is None], [])

    def test_no_include_goes_where_no_arrow_points(self):
        wrong = [f"{path} includes {target}" for room, target, path in includes(self.rooms, sources())
                 if target not in self.rooms[room]]
        self.assertEqual(wrong, [])

    def test_every_arrow_is_used(self):
        used = {(room, target) for room, target, _ in includes(self.rooms, sources())}
        drawn = {(room, target) for room, targets in self.rooms.items() for target in targets}
        self.assertEqual(drawn - used, set())

    def test_no_way_along_the_arrows_comes_back(self):
        def reach(room, way):
            self.assertNotIn(room, way, "a circle")
            for target in self.rooms[room]:
                reach(target, way + [room])
        for room in self.rooms:
            reach(room, [])

    def test_finds_an_include_against_the_arrows(self):
        rooms = table("    app → settings\n    settings → nothing\n    platform/x11 → platform\n    platform → nothing\n")
        files = {"settings/A.cpp": '#include "app/B.h"\n#include "settings/A.h"\n#include <QFile>\n',
                 "platform/x11/C.cpp": '  #  include "platform/D.h"\n'}
        self.assertEqual(list(includes(rooms, files)),
                         [("settings", "app", "settings/A.cpp"), ("platform/x11", "platform", "platform/x11/C.cpp")])

    def test_libraries_link_along_the_arrows(self):
        files = [path.read_text("utf-8") for path in (SOURCE / "src").rglob("CMakeLists.txt")]
        found = list(links(files))
        self.assertGreater(len(found), 10)
        wrong = [f"{library} links {linked}" for library, linked in found
                 if not any(target in self.rooms[room] for room in rooms_of(library) for target in rooms_of(linked))]
        self.assertEqual(wrong, [])

    def test_finds_a_link_against_the_arrows(self):
        text = "vexa_library(\n  vexa_a\n  QT\n  SOURCES\n    A.cpp\n  PUBLIC vexa_b Qt5::Core\n  PRIVATE vexa_c)\n"
        self.assertEqual(list(links([text])), [("vexa_a", "vexa_b"), ("vexa_a", "vexa_c")])

    def test_x_headers_stay_in_their_room(self):
        """Xlib's macros break Qt's headers, so its own stand in .cpp files, too."""
        users = {path for path, text in sources().items() if X11_INCLUDE.search(text)}
        self.assertGreater(len(users), 5)
        self.assertEqual([path for path in users if not re.fullmatch(r"platform/x11/.*\.cpp", path)], [])


unittest.main(argv=sys.argv[:1], verbosity=2)
