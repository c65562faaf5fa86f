"""Holds docs/formats.md to the shipped settings: each key stands under its file's heading. Of keys
that are counted or coloured, the first stands for all. Menus have a table of their own shape.

    test_settings.py SOURCE_FOLDER
"""

import pathlib
import re
import sys
import unittest

SOURCES = pathlib.Path(sys.argv.pop(1))


def stem(key):
    counted = re.sub(r"(?i)(level)\d", r"\g<1>1", key)
    return re.sub(r"(_[rgba]|_\d_\d|\d)$", "", counted)


class Settings(unittest.TestCase):
    def test_stand_in_the_docs(self):
        sections = dict(re.findall(r"^### (\w+\.cfg)\n(.*?)(?=^##)",
                                   (SOURCES / "docs/formats.md").read_text(),
                                   re.MULTILINE | re.DOTALL))
        for file in sorted((SOURCES / "data/cfg").glob("*.cfg")):
            if file.name.startswith("menu_"):
                continue
            self.assertIn(file.name, sections)
            for key in file.read_text().replace("=", " ").split()[::2]:
                with self.subTest(file=file.name, key=key):
                    self.assertTrue(f"`{stem(key)}" in sections[file.name])


if __name__ == "__main__":
    unittest.main(verbosity=2)
