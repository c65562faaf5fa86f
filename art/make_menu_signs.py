#!/usr/bin/env python3
"""Paints the mouse pointer and the arrows of the menus' choosers: small round windows of glass in
brass, in which water rises like in the buttons."""
import numpy as np

from menu_paint import (BRASS_LIGHT, CREAM, GLASS, GLASS_DARK, NIGHT, RIM, WATER, WATER_DEEP,
                        WATER_LIGHT, Sheet, save)
from painting import blur, colour, mix, smooth

IDLE, FOCUS, CLICK = 8, 6, 8  # frames
LOW, FULL = 23.0, 3.0


def segment(s, ax, ay, bx, by):
    dx, dy = bx - ax, by - ay
    t = np.clip(((s.x - ax) * dx + (s.y - ay) * dy) / (dx * dx + dy * dy), 0, 1)
    return np.hypot(s.x - ax - t * dx, s.y - ay - t * dy)


def ring():
    s = Sheet(32, 32, 4)
    d = s.disc(16, 16, 0)
    s.over(s.brass(441, 0.8), s.soft(d - 15.2))
    band = np.clip(1 - ((d - 13.2) / 2.2) ** 2, 0, 1)
    s.relief(blur(np.sqrt(band) * 2.0, 1.2), 0.5, s.soft(d - 15.2))
    s.tint(NIGHT, 0.7 * smooth(14.2, 15.2, d))
    s.tint(NIGHT, 0.85 * np.exp(-((d - 11.3) / 0.8) ** 2))
    inside = s.soft(d - 11)
    s.tint(mix(GLASS_DARK, GLASS, smooth(6, 26, s.y)), inside)
    s.tint(colour("060d10"), inside * 0.7 * smooth(7, 11, s.disc(17, 18, 0)))
    return s, inside


def arrow(base, inside, side, level, phase, wet, flash=0.0, fade=1.0):
    s = base.copy()
    s.water(inside, level + 0.8 * np.sin(2 * np.pi * (s.x / 22.0 - phase)), 29.0, 1.1)
    tip, back = 16 + 5.2 * side, 16 - 3.4 * side
    d = np.minimum(segment(s, tip, 16, back, 9.6), segment(s, tip, 16, back, 22.4)) - 1.9
    s.tint(mix(colour("04090b"), colour("053049"), wet), inside * np.exp(-(np.maximum(d, 0) / 2.2)
                                                                         ** 2))
    face = mix(mix(colour("c9a865"), CREAM, smooth(24, 12, s.y)), colour("ffffff"), wet)
    s.tint(face, s.soft(d))
    glint = s.soft(s.disc(13, 11, 5.5), 2.0) * smooth(16, 7, s.y)
    s.tint(RIM, inside * glint * 0.22)
    s.tint(RIM, inside * flash * 0.8)
    return s.image(fade, steps=64)


def arrows():
    base, inside = ring()
    for name, side in (("arrow_left", -1), ("arrow_right", 1)):
        for i in range(IDLE):
            save(arrow(base, inside, side, LOW, i / IDLE, 0), f"{name}_idle_FRAME{i + 1:02}")
        for i in range(FOCUS):
            t = i / (FOCUS - 1)
            save(arrow(base, inside, side, LOW + (FULL - LOW) * t, i / IDLE, t),
                 f"{name}_focus_FRAME{i + 1:02}")
        for i in range(CLICK):
            t = i / (CLICK - 1)
            save(arrow(base, inside, side, FULL + 24 * t, i / IDLE, 1 - t, max(0, 0.9 - 2.2 * t),
                       1 - smooth(0.25, 1.0, t)), f"{name}_click_FRAME{i + 1:02}")


def pointer():
    """A drop of water that points to the top left corner."""
    s = Sheet(32, 32, 8)
    along, across = (s.x + s.y) / np.sqrt(2), (s.x - s.y) / np.sqrt(2)
    centre, radius = 24.5, 9.4
    # The drop's sides run straight from the tip to where they touch its round end.
    touch = centre - radius * radius / centre
    slope = radius / np.sqrt(centre * centre - radius * radius)
    cone = (np.abs(across) - along * slope) / np.sqrt(1 + slope * slope)
    d = np.where(along < touch, cone, np.hypot(along - centre, across) - radius)
    s.over(NIGHT, s.soft(d))
    s.over(RIM, s.soft(d + 1.4))
    body = mix(WATER_LIGHT, WATER, smooth(8, 20, along + across * 0.3))
    body = mix(body, WATER_DEEP, smooth(19, 30, along + across * 0.2))
    s.over(body, s.soft(d + 2.4))
    s.tint(WATER_LIGHT, 0.7 * np.exp(-((d + 3.4) / 1.0) ** 2) * smooth(20, 28, along))
    s.tint(RIM, 0.9 * np.exp(-(((along - 17) / 4.2) ** 2 + ((across + 2.2) / 1.2) ** 2)))
    save(s.image(), "cursor")


def main():
    arrows()
    pointer()


if __name__ == "__main__":
    main()
