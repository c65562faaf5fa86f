"""Makes docs/img/levels.jpg: start, middle and end of every level's winning run side by side.

    with_display.sh python3 levels.py RUN-PICTURES [FOLDER]

RUN-PICTURES is the program of that name in a build. FOLDER gets the pictures at full size.
"""

import pathlib
import subprocess
import sys

from PIL import Image, ImageDraw, ImageFont

ROOT = pathlib.Path(__file__).resolve().parents[2]
MOMENTS = ("4", "50", "97")  # percent of the run
FULL, SMALL, GAP = (1280, 720), (400, 225), 6
ORDER = ("testLevel",)  # what comes before the names in order


def names():
    found = {path.stem for path in (ROOT / "levels").glob("*.run")}
    return [name for name in ORDER if name in found] + sorted(found - set(ORDER))


def pictures(program, name):
    raw = subprocess.run([program, ROOT / "levels" / f"{name}.run", *MOMENTS], check=True,
                         capture_output=True).stdout
    size = FULL[0] * FULL[1] * 3
    return [Image.frombytes("RGB", FULL, raw[i * size:(i + 1) * size])
            for i in range(len(MOMENTS))]


def main(program, folder=None):
    levels = names()
    sheet = Image.new("RGB", (len(MOMENTS) * (SMALL[0] + GAP) - GAP,
                              len(levels) * (SMALL[1] + GAP) - GAP), (14, 19, 24))
    for row, name in enumerate(levels):
        for column, picture in enumerate(pictures(program, name)):
            if folder:
                picture.save(pathlib.Path(folder) / f"{name}_{column}.png")
            place = column * (SMALL[0] + GAP), row * (SMALL[1] + GAP)
            sheet.paste(picture.resize(SMALL, Image.LANCZOS), place)
        ImageDraw.Draw(sheet).text((8, row * (SMALL[1] + GAP) + 6), name, (239, 228, 196),
                                   ImageFont.load_default())
    sheet.save(ROOT / "docs" / "img" / "levels.jpg", quality=86)


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    main(*sys.argv[1:])
