#!/usr/bin/env python3
"""Paints the menus' buttons: a brass frame with a window of dark glass, in which water stands.
Out of focus it ripples at the bottom, in focus it rises behind the text, and when a button is
pressed it flashes up, splashes out and the button goes."""
import numpy as np

from lettering import line_distance
from menu_paint import (BRASS_LIGHT, CREAM, GLASS, GLASS_DARK, NIGHT, RIM, WATER_LIGHT, Sheet,
                        save)
from painting import blur, colour, mix, smooth

TEXTS = {"start": "Start", "load": "Load level", "options": "Options",
         "instructions": "Instructions", "scores": "High scores", "credits": "Credits",
         "quit": "Quit", "resume": "Resume", "restart": "Restart level", "back": "Back",
         "yes": "Yes", "no": "No", "continue": "Continue"}
IDLE, FOCUS, CLICK = 8, 6, 8  # frames
LOW, FULL = 44.2, 13.0  # where the water stands, in pixels from above
LEFT, TOP, RIGHT, BOTTOM = 8, 10, 248, 54
WINDOW = (27, 15.5, 229, 48.5, 9)
STEPS = 40  # colour levels; the metal hides them and the files stay small


def plate():
    """The frame with its empty window, and the window's mask."""
    s = Sheet(256, 64)
    outer = s.box(LEFT, TOP, RIGHT, BOTTOM, 11)
    window = s.box(*WINDOW)
    mask = s.soft(outer)
    s.over(s.brass(401), mask)
    ridge = np.minimum(np.clip(-outer, 0, 3.0), np.clip(window + 0.8, 0, 2.6))
    s.relief(blur(ridge, 1.2), 0.55, mask)
    for x in (17.5, 238.5):
        s.rivet(x, 21.5, 2.9)
        s.rivet(x, 42.5, 2.9)
    s.tint(NIGHT, 0.75 * mask * smooth(-1.1, 0.0, outer))
    s.tint(BRASS_LIGHT, 0.5 * mask * np.exp(-((outer + 1.9) / 0.8) ** 2) * smooth(40, 12, s.y))
    s.tint(NIGHT, 0.8 * (1 - smooth(0.0, 1.6, window)))
    s.tint(BRASS_LIGHT, 0.45 * np.exp(-((window - 2.0) / 0.7) ** 2) * smooth(36, 50, s.y))
    inside = s.soft(window)
    glass = mix(GLASS_DARK, GLASS, smooth(14, 52, s.y))
    s.tint(glass, inside)
    s.tint(colour("060d10"), inside * 0.75 * smooth(-5.5, 0.0, s.box(28, 17.5, 232, 54, 9)))
    return s, inside


def ripple(s, level, phase, height):
    """A surface that is the same again after a phase of 1."""
    turn = 2 * np.pi
    return (level + height * np.sin(turn * (s.x / 67.0 - phase)) +
            0.5 * height * np.sin(turn * (s.x / 31.0 + phase) + 1.0))


def letter(s, text):
    d = line_distance(256 * s.fine, 64 * s.fine, text, 16.5 * s.fine, (128 * s.fine, 32 * s.fine),
                      6.2, 184 * s.fine)
    return d / s.fine - 1.55


def face(base, inside, distance, level, phase, height, wet, flash=0.0):
    """One frame: water, text and the glints of the glass. `wet` (0 to 1) turns the text from
    cream to white."""
    s = base.copy()
    s.water(inside, ripple(s, level, phase, height), 47.0)
    if wet > 0:
        beams = 0.5 + 0.5 * np.sin(s.x / 9.0 + s.y / 5.0 + 1.4 * np.sin(s.x / 23.0))
        s.tint(WATER_LIGHT, inside * 0.16 * wet * beams * smooth(50, 20, s.y))
    near = np.maximum(distance, 0)
    s.tint(mix(colour("04090b"), colour("053049"), wet),
           inside * (0.95 - 0.05 * wet) * np.exp(-(near / 2.4) ** 2))
    ink = s.soft(distance)
    top = mix(CREAM, colour("ffffff"), wet)
    low = mix(colour("c9a865"), colour("d4f4ff"), wet)
    s.tint(mix(low[None, None], top[None, None], smooth(42, 22, s.y)), ink)
    glint = s.soft(s.box(33, 17.6, 223, 25.5, 6), 1.2)
    s.tint(RIM, inside * glint * (0.10 + 0.08 * wet) * smooth(27, 17, s.y) * (1 - 0.6 * ink))
    edge = np.exp(-((s.box(*WINDOW) + 1.1) / 0.7) ** 2)
    s.tint(RIM, inside * edge * 0.3 * smooth(40, 52, s.y))
    if flash > 0:
        glow = np.exp(-np.maximum(s.box(*WINDOW), 0) / 4.5)
        s.tint(mix(WATER_LIGHT, RIM, flash), (0.25 + 0.6 * inside) * flash * glow * (1 - 0.5 * ink))
    return s


def splash(s, moment):
    """Drops thrown out of the window; `moment` goes from 0 to 1."""
    rng = np.random.default_rng(411)
    for _ in range(34):
        x, speed, side = rng.uniform(34, 222), rng.uniform(40, 100), rng.normal(0, 26)
        radius = rng.uniform(1.2, 3.3) * (1 - 0.45 * moment)
        y = 28 - speed * moment + 95 * moment * moment
        s.drop(x + side * moment, y, radius, smooth(1.0, 0.7, moment))


def click_frames(base, inside, distance):
    levels = (FULL, 15, 21, 29, 37, 44, 50, 52)
    flashes = (0.75, 1.0, 0.55, 0.25, 0.1, 0.0, 0.0, 0.0)
    fade = (1.0, 1.0, 1.0, 0.86, 0.62, 0.38, 0.16, 0.0)
    for i in range(CLICK):
        wet = max(0.0, 1.0 - i / 6)
        s = face(base, inside, distance, levels[i], i / CLICK, 1.5 + i * 0.3, wet, flashes[i])
        s.alpha = s.alpha * fade[i]
        if 0 < i < CLICK - 1:
            splash(s, i / (CLICK - 1))
        yield s.image(steps=STEPS)


def focus_frames(base, inside, distance):
    for i in range(FOCUS):
        t = i / (FOCUS - 1)
        wet = t * t * (3 - 2 * t)
        level = LOW + (FULL - LOW) * (wet if i < FOCUS - 1 else 1.0)
        yield face(base, inside, distance, level, i / IDLE, 0.9 + 5.0 * t * (1 - t),
                   wet).image(steps=STEPS)


def idle_frames(base, inside, distance):
    for i in range(IDLE):
        yield face(base, inside, distance, LOW, i / IDLE, 0.9, 0.0).image(steps=STEPS)


def main():
    base, inside = plate()
    for name, text in TEXTS.items():
        distance = letter(base, text)
        for kind, frames in (("idle", idle_frames), ("focus", focus_frames),
                             ("click", click_frames)):
            for i, image in enumerate(frames(base, inside, distance)):
                save(image, f"{name}_{kind}_FRAME{i + 1:02}")


if __name__ == "__main__":
    main()
