#!/usr/bin/env python3
# message_names_test SOURCES: the view calls its messages by the names and the numbers that its host gives them, and
# nothing in the views is called by number.
import pathlib
import re
import sys
import unittest

SOURCES = pathlib.Path(sys.argv.pop())
VIEWS = SOURCES / "qml"


def members(file, enum):
    """The enum's members, name: number."""
    body = re.search(rf"{enum} \{{(.*?)\}}", file.read_text(), re.S)[1]
    return {name: int(number) for name, number in re.findall(r"(\w+) = (\d+)", body)}


class MessageNames(unittest.TestCase):
    def test_view_and_host_agree(self):
        host = members(SOURCES / "src/settings/ViewMessage.h", "enum class ViewMessage")
        self.assertEqual(18, len(host))
        self.assertEqual(host, members(VIEWS / "ViewMessage.qml", "enum Id"))

    def test_views_use_names_that_exist(self):
        known = members(VIEWS / "ViewMessage.qml", "enum Id")
        used = {name for file in VIEWS.glob("*.qml") for name in re.findall(r"ViewMessage\.(\w+)", file.read_text())}
        self.assertTrue(used)
        self.assertLessEqual(used, set(known))

    def test_no_message_goes_by_its_number(self):
        number = re.compile(r"\b(?:id1? ===|setvalue\(|qmlSignal\w*\(|[mM]essage(?:Id)?:) *\d")
        found = [f"{file.name}: {line.strip()}" for file in VIEWS.glob("*.qml")
                 for line in file.read_text().splitlines() if number.search(line)]
        self.assertEqual([], found)


unittest.main()
