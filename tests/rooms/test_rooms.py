"""Holds the rooms of src/ to their order: no file includes from a room above, and a room links the
rooms that it includes, all of them and no others.

    test_rooms.py SOURCE_FOLDER
"""

import pathlib
import re
import sys
import unittest

SOURCES = pathlib.Path(sys.argv.pop(1))
INCLUDE = re.compile(r'^#include "(\w+)/', re.MULTILINE)


def words_after(keyword, call):
    """What follows a keyword of a CMake call, up to the next one."""
    found = re.search(rf"\b{keyword}\s+((?:[\w.]+\s*)*?)(?=\b[A-Z]+(?:_[A-Z]+)?\b\s|$)", call)
    return found.group(1).split() if found else []


class Room:
    def __init__(self, name):
        self.name = name
        folder = SOURCES / name
        call = re.search(r"vantrel_room\(\s*\w+\s*([^)]*)\)", (folder / "CMakeLists.txt").read_text())
        self.links = set(words_after("LINK", call.group(1)))
        self.draw_links = set(words_after("DRAW_LINK", call.group(1)))
        draws = words_after("DRAW_ALSO", call.group(1))
        self.includes, self.draw_includes = {}, {}
        for file in sorted(folder.glob("*.[ch]*")):
            kept = self.draw_includes if file.name.endswith("Draw.cpp") or file.name in draws \
                else self.includes
            for room in set(INCLUDE.findall(file.read_text())) - {name}:
                kept.setdefault(room, []).append(file.name)


def read_rooms():
    order = re.search(r"foreach\(room ([^)]*)\)", (SOURCES / "CMakeLists.txt").read_text())
    return [Room(name) for name in order.group(1).split()]


class Rooms(unittest.TestCase):
    def setUp(self):
        self.rooms = read_rooms()
        self.names = [room.name for room in self.rooms]
        self.assertEqual(sorted(self.names),
                         sorted(path.parent.name for path in SOURCES.glob("*/CMakeLists.txt")))

    def test_no_file_includes_from_a_room_above(self):
        for place, room in enumerate(self.rooms):
            for included in (room.includes, room.draw_includes):
                for other, files in included.items():
                    self.assertIn(other, self.names[:place], f"{room.name}: {files}")

    def test_a_room_links_what_it_includes(self):
        for room in self.rooms:
            self.assertEqual(room.links, set(room.includes), room.name)
            libraries = {library.removesuffix("_draw") for library in room.draw_links
                         if not library.startswith("platform_")}
            self.assertLessEqual(libraries, set(room.draw_includes),
                                 f"{room.name} draws with more than it includes")
            known = room.links | libraries
            for other, files in room.draw_includes.items():
                self.assertIn(other, known, f"{room.name}: {files}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
