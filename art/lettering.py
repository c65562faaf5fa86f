"""Painting with the letters: strokes to distances, single glyphs in fixed cells and whole lines."""
import math

import numpy as np

from letters import (ACCENTED, DIGITS, FRACTIONS, IN_LINE, LETTERS, MARKS, SIGNS, SMALL_SIGNS)

BASE_LINE = 19.0  # capitals stand from 0 to here
UNKNOWN = "2,1 18,1 18,18 2,18 z"  # control codes show as a box, so that stray ones are seen


def corner(before, at, after, radius, inner):
    """The points of a rounded corner; `inner` says whether each neighbour has a corner too."""
    reach = []
    for other, shared in zip((before, after), inner):
        length = math.dist(at, other)
        reach.append(length / 2 if shared else length)
    ux, uy = (np.subtract(before, at) / max(math.dist(at, before), 1e-9))
    vx, vy = (np.subtract(after, at) / max(math.dist(at, after), 1e-9))
    half = math.acos(np.clip(ux * vx + uy * vy, -1, 1)) / 2
    if radius <= 0 or half > 1.55 or half < 0.02:
        return [at]
    cut = min(radius / math.tan(half), *reach)
    start = (at[0] + ux * cut, at[1] + uy * cut)
    end = (at[0] + vx * cut, at[1] + vy * cut)
    radius = cut * math.tan(half)
    to_centre = radius / math.sin(half)
    bx, by = ux + vx, uy + vy
    length = math.hypot(bx, by)
    cx, cy = at[0] + bx / length * to_centre, at[1] + by / length * to_centre
    a = math.atan2(start[1] - cy, start[0] - cx)
    b = math.atan2(end[1] - cy, end[0] - cx)
    turn = (b - a + math.pi) % (2 * math.pi) - math.pi
    return [(cx + radius * math.cos(a + turn * i / 12), cy + radius * math.sin(a + turn * i / 12))
            for i in range(13)]


def strokes(text):
    """Lists of points from a glyph's text."""
    found = []
    for part in text.split("/"):
        words = part.split()
        if not words:
            continue
        closed = words[-1] == "z"
        raw = [tuple(float(v) for v in word.split(",")) for word in words[:len(words) - closed]]
        points = []
        for i, p in enumerate(raw):
            radius = p[2] if len(p) > 2 else 0.0
            if not closed and i in (0, len(raw) - 1):
                points.append(p[:2])
                continue
            before, after = raw[i - 1], raw[(i + 1) % len(raw)]
            points += corner(before[:2], p[:2], after[:2], radius,
                             (len(before) > 2, len(after) > 2))
        if closed:
            points.append(points[0])
        found.append(points)
    return found


def moved(paths, dx, dy, sx=1.0, sy=1.0):
    return [[(x * sx + dx, y * sy + dy) for x, y in path] for path in paths]


def glyph(char):
    """Strokes and, per stroke, how much thinner than others it is drawn."""
    for table in (LETTERS, DIGITS, SIGNS):
        if char in table:
            return [(path, 1.0) for path in strokes(table[char])]
    if char == "\xa0":
        return []
    if char in SMALL_SIGNS:
        base = strokes({**LETTERS, **DIGITS}[SMALL_SIGNS[char]])
        if char in "©®":
            inner = moved(base, 6, 5.6, 0.42, 0.42)
            ring = strokes("-1,-0.5,10 21,-0.5,10 21,19.5,10 -1,19.5,10 z")
            return [(p, 0.7) for p in inner] + [(p, 0.75) for p in ring]
        small = [(p, 0.75) for p in moved(base, 4.5, -3 if char in "ªº" else 0, 0.55, 0.58)]
        return small + ([(strokes("4,12.5 16,12.5")[0], 0.75)] if char in "ªº" else [])
    if char in FRACTIONS:
        over, under = FRACTIONS[char]
        return ([(p, 0.68) for p in moved(strokes(DIGITS[over]), -1.5, -1, 0.42, 0.47)] +
                [(p, 0.68) for p in moved(strokes(DIGITS[under]), 12.5, 11.5, 0.42, 0.47)] +
                [(strokes("17.5,-0.5 2.5,19.5")[0], 0.68)])
    name = ACCENTED.get(char.upper()) if char != "ÿ" else "Y dots"
    if name is None:
        return [(path, 0.6) for path in strokes(UNKNOWN)]
    base, mark = name.split()
    above = [(p, 0.85) for p in strokes(MARKS[mark])]
    if char == char.upper() and char != "ÿ":
        body = strokes(LETTERS[base])
        if mark == "cedilla":
            return [(p, 1.0) for p in body] + above
        lifted = [(p, 0.85) for p in moved(strokes(MARKS[mark]), 0, -1.2)]
        return [(p, 1.0) for p in moved(body, 0, 5.7, 1.0, 0.70)] + lifted
    small = strokes(LETTERS["ı" if base == "I" else base.lower()])
    return [(p, 1.0) for p in small] + above


class Field:
    """Distances to strokes on a picture of width by height pixels."""

    def __init__(self, width, height):
        self.y, self.x = np.mgrid[0:height, 0:width] + 0.5
        self.distance = np.full((height, width), 1e4)

    def add(self, path, thinner=0.0, reach=40.0):
        """`thinner` pixels are added to the distance, so that the stroke comes out slimmer."""
        ends = list(zip(path[:-1], path[1:])) or [(path[0], path[0])]
        for (ax, ay), (bx, by) in ends:
            left, right = int(min(ax, bx) - reach), int(max(ax, bx) + reach) + 1
            top, bottom = int(min(ay, by) - reach), int(max(ay, by) + reach) + 1
            box = np.s_[max(top, 0):max(bottom, 0), max(left, 0):max(right, 0)]
            x, y = self.x[box], self.y[box]
            dx, dy = bx - ax, by - ay
            t = np.clip(((x - ax) * dx + (y - ay) * dy) / max(dx * dx + dy * dy, 1e-9), 0, 1)
            d = np.hypot(x - ax - t * dx, y - ay - t * dy) + thinner
            self.distance[box] = np.minimum(self.distance[box], d)


def line_layout(text, gap):
    """Each letter's strokes and place in a line, in letter units, and the line's width."""
    placed, at = [], 0.0
    for char in text:
        if char == " ":
            at += 9.0
            continue
        paths = strokes(IN_LINE[char]) if char in IN_LINE else [p for p, _ in glyph(char)]
        xs = [x for path in paths for x, _ in path]
        placed += moved(paths, at - min(xs), 0)
        at += max(xs) - min(xs) + gap
    return placed, at - gap


def line_distance(width, height, text, cap_height, centre, gap, widest=None):
    """Distances, in pixels, to a line whose capitals are `cap_height` pixels high and stand about
    `centre` (x, y); the letters become narrower where it would be wider than `widest`."""
    paths, length = line_layout(text, gap)
    unit = cap_height / BASE_LINE
    squeeze = min(1.0, widest / (length * unit)) if widest else 1.0
    field = Field(width, height)
    left = centre[0] - length * unit * squeeze / 2
    top = centre[1] - cap_height / 2
    for path in moved(paths, left, top, unit * squeeze, unit):
        field.add(path)
    return field.distance
