"""Draws docs/img/authoring.png: a small level as its map looks in Tiled, with every kind of
object in it. The map is made here, drawn in the colours of the project file, and labelled."""

import json
import os
import sys

from PIL import Image, ImageDraw, ImageFont

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
sys.path.insert(0, os.path.join(ROOT, "levels"))
from tiled import Map  # noqa: E402

WIDTH, HEIGHT, SCALE = 1000, 620, 2  # drawn at twice the size, then halved for smooth lines
SURFACES = {"metal": "#9fb3c0", "wood": "#b98d57", "stone": "#8c8f86", "cloth": "#b06a74",
            "sand": "#d8c27e"}


def example():
    level = Map()
    level.polygon([(40, 120), (60, 120), (60, 560), (960, 560), (960, 600), (40, 600)],
                  name="Polygon, stone")
    level.polygon([(60, 240), (330, 300), (330, 322), (60, 262)], "wood", name="Polygon, wood")
    level.polygon([(560, 420), (700, 470), (700, 560), (560, 560)], "sand", name="sand")
    level.polygon([(700, 470), (960, 470), (960, 560), (700, 560)], "metal", name="metal")
    level.polygon([(120, 470), (250, 470), (250, 560), (120, 560)], "stone", layer=3,
                  flags="scenery", name="scenery")
    level.rectangle(420, 360, 120, 20, "wood", id=7, name="Polygon, id 7")
    level.mover(7, (480, 370), (480, 190), name="Mover, id 7")
    level.trigger("Mover_goto_end_loop_1", (350, 420, 110, 80), 7,
                  name="Trigger, target 7")
    level.trigger("Level_end_a", (820, 380, 120, 88), name="Trigger, Level_end_a")
    level.object(290, 520, "img\\fern.png", layer=3, name="Object")
    level.sound(3, 760, 200, 110, "snd\\drip.wav", True, name="Sound, radius 110")
    level.emitter(4, (620, 130), "cfg\\mist.cfg", (50, 30), name="Emitter")
    level.force(5, (880, 330), (0, -70), name="Force")
    level.water_start(120, 170)
    level.camera_start(250, 190)
    return level.document()


def colours():
    with open(os.path.join(ROOT, "levels", "vantrel.tiled-project"), encoding="utf-8") as file:
        types = json.load(file)["propertyTypes"]
    return {t["name"]: "#" + t["color"][3:] for t in types if t["type"] == "class"}


class Sheet:
    def __init__(self):
        self.image = Image.new("RGB", (WIDTH * SCALE, HEIGHT * SCALE), "#f4f1ea")
        self.draw = ImageDraw.Draw(self.image, "RGBA")
        self.font = ImageFont.truetype("DejaVuSans.ttf", 13 * SCALE)
        for x in range(0, WIDTH, 20):
            self.line([(x, 0), (x, HEIGHT)], "#e5e0d4", 1)
        for y in range(0, HEIGHT, 20):
            self.line([(0, y), (WIDTH, y)], "#e5e0d4", 1)

    @staticmethod
    def at(points):
        return [(x * SCALE, y * SCALE) for x, y in points]

    def line(self, points, colour, width=2):
        self.draw.line(self.at(points), fill=colour, width=width * SCALE // 2)

    def area(self, points, fill, edge):
        self.draw.polygon(self.at(points), fill=fill)
        self.line(points + points[:1], edge, 4)

    def arrow(self, start, end, colour):
        dx, dy = end[0] - start[0], end[1] - start[1]
        length = (dx * dx + dy * dy) ** 0.5
        dx, dy = dx / length * 10, dy / length * 10
        self.line([start, end], colour, 5)
        for side in (1, -1):
            self.line([end, (end[0] - dx + dy * side * .6, end[1] - dy - dx * side * .6)],
                      colour, 5)

    def circle(self, x, y, radius, fill, edge):
        box = self.at([(x - radius, y - radius), (x + radius, y + radius)])
        self.draw.ellipse(box, fill=fill, outline=edge, width=2 * SCALE)

    def label(self, x, y, text, colour):
        self.draw.text((x * SCALE, y * SCALE), text, font=self.font, fill=colour,
                       anchor="lm", stroke_width=3 * SCALE, stroke_fill="#f4f1ea")


def values(thing):
    return {entry["name"]: entry["value"] for entry in thing.get("properties", [])}


def draw_thing(sheet, thing, colour):
    x, y, kind, own = thing["x"], thing["y"], thing["type"], values(thing)
    label = (x + 12, y - 2)
    if "polygon" in thing:
        points = [(x + p["x"], y + p["y"]) for p in thing["polygon"]]
        is_scenery = own.get("flags") == "scenery"
        fill = SURFACES[own.get("surface", "stone")] + ("60" if is_scenery else "ff")
        sheet.area(points, fill, colour)
        bottom = max(p[1] for p in points)
        is_thin = bottom - min(p[1] for p in points) < 30
        label = (min(p[0] for p in points) + 8, bottom + 12 if is_thin else bottom - 12)
    elif "polyline" in thing:
        end = thing["polyline"][1]
        sheet.arrow((x, y), (x + end["x"], y + end["y"]), colour)
        label = (x + 12, y + end["y"] / 2)
    elif thing.get("ellipse"):
        radius = thing["width"] / 2
        sheet.circle(x + radius, y + radius, radius, colour + "22", colour)
        label = (x + 40, y + radius)
    elif thing.get("point"):
        sheet.circle(x, y, 5, colour, colour)
        if "directionX" in own or "directionY" in own:
            end = (x + own.get("directionX", 0), y + own.get("directionY", 0))
            sheet.arrow((x, y), end, colour)
    else:
        w, h = thing["width"], thing["height"]
        sheet.area([(x, y), (x + w, y), (x + w, y + h), (x, y + h)], colour + "28", colour)
        label = (x + 2, y - 12)
    return label, thing["name"] or kind, colour


def main():
    sheet, palette = Sheet(), colours()
    labels = [draw_thing(sheet, thing, palette[thing["type"]])
              for layer in example()["layers"] for thing in layer["objects"]]
    for (x, y), text, colour in labels:
        sheet.label(x, y, text, colour)
    image = sheet.image.resize((WIDTH, HEIGHT), Image.LANCZOS)
    image.save(os.path.join(ROOT, "docs", "img", "authoring.png"), optimize=True)


if __name__ == "__main__":
    main()
