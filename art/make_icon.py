#!/usr/bin/env python3
"""Paints the program's icon: a drop above a tilted basin. Writes the built-in 32 by 32 icon
(24 bits with a mask) and larger pictures for the desktop."""
import pathlib
import struct

import numpy as np
from PIL import Image

from painting import colour, mix, smooth, to_image

HERE = pathlib.Path(__file__).parent
SIDE = 1024  # painted large, then shrunk


def coverage(distance):
    """1 inside (distance below 0), with an edge of about one pixel of the shrunken picture."""
    return 1.0 - smooth(-3.0 / SIDE, 3.0 / SIDE, distance)


def rounded_box(x, y, half_w, half_h, radius):
    qx, qy = np.abs(x) - half_w + radius, np.abs(y) - half_h + radius
    return np.hypot(np.maximum(qx, 0), np.maximum(qy, 0)) + np.minimum(np.maximum(qx, qy),
                                                                      0) - radius


def drop(x, y, radius):
    """Distance to a drop whose round part is at the origin and whose tip is 2.3 radii up."""
    tip = 2.3 * radius
    side = np.arccos(radius / tip)  # angle between the axis and the touching line's normal
    normal = np.abs(x) * np.sin(side) - y * np.cos(side)
    cone = np.maximum(normal - radius, -tip - y)
    in_cone = (y < -radius * np.cos(side))
    return np.where(in_cone, cone, np.hypot(x, y) - radius)


def paint():
    y, x = (np.mgrid[0:SIDE, 0:SIDE] + 0.5) / SIDE - 0.5
    plate = coverage(rounded_box(x, y, 0.48, 0.48, 0.12))
    rgb = mix(colour("24505a"), colour("0e242c"), smooth(-0.5, 0.5, y))

    angle = np.radians(14.0)
    u = x * np.cos(angle) + y * np.sin(angle)
    v = -x * np.sin(angle) + y * np.cos(angle) - 0.15
    basin = np.minimum(rounded_box(u, v - 0.17, 0.36, 0.06, 0.03),
                       np.minimum(rounded_box(u - 0.31, v - 0.08, 0.05, 0.15, 0.03),
                                  rounded_box(u + 0.31, v - 0.08, 0.05, 0.15, 0.03)))
    # The water in the basin stays level while the basin tilts.
    inside = np.maximum(np.maximum(np.abs(u) - 0.27, v - 0.12), 0.185 - y)
    rgb = mix(rgb, mix(colour("4fe0ff"), colour("0f7fc4"), smooth(0.18, 0.33, y)),
              coverage(inside))
    rgb = mix(rgb, colour("d9fbff"), coverage(np.maximum(inside, y - 0.205)))
    stone = mix(colour("d8c7a0"), colour("8a7858"), smooth(-0.09, 0.27, v))
    rgb = mix(rgb, stone, coverage(basin))

    px, py = x + 0.02, y + 0.105
    shape = drop(px, py, 0.14)
    water = mix(colour("7ff0ff"), colour("0c86d0"), smooth(-0.2, 0.16, py + 0.5 * px))
    rgb = mix(rgb, colour("0a1d24"), 0.55 * coverage(shape - 0.02))
    rgb = mix(rgb, water, coverage(shape))
    glint = np.hypot((px + 0.062) / 0.6, py + 0.005) - 0.055
    rgb = mix(rgb, colour("f4feff"), 0.9 * coverage(glint))
    return to_image(rgb, plate)


def icon_file(image):
    """One 32 by 32 image of 24 bits, with the mask of what doesn't show below it."""
    rows, masks = b"", b""
    for y in range(31, -1, -1):
        mask = 0
        for x in range(32):
            r, g, b, a = image.getpixel((x, y))
            shows = a >= 128
            rows += bytes((b, g, r)) if shows else b"\0\0\0"
            mask = mask << 1 | (0 if shows else 1)
        masks += struct.pack(">I", mask)
    header = struct.pack("<IiiHHIIiiII", 40, 32, 64, 1, 24, 0, len(rows) + len(masks), 0, 0, 0, 0)
    body = header + rows + masks
    assert len(body) == 3240
    return struct.pack("<HHH", 0, 1, 1) + struct.pack("<BBBBHHII", 32, 32, 0, 0, 1, 24, len(body),
                                                     22) + body


def main():
    image = paint()
    (HERE / "icon").mkdir(exist_ok=True)
    for side in (48, 128, 256):
        image.resize((side, side), Image.LANCZOS).save(HERE / "icon" / f"vantrel-{side}.png",
                                                       optimize=True)
    small = image.resize((32, 32), Image.LANCZOS)
    (HERE / "embedded" / "PROGRAM_ICON.ico").write_bytes(icon_file(small))


if __name__ == "__main__":
    main()
