"""Writes Tiled maps (.tmj) of Vantrel levels from Python, for levels that are drawn by script.

    from tiled import Map
    level = Map()
    level.polygon([(0, 500), (800, 500), (800, 600), (0, 600)], "stone", "img\\stone.png")
    level.rectangle(100, 300, 200, 20, "wood", id=7)          # x, y, width, height
    level.mover(7, (100, 300), (100, 100), speed=60)
    level.trigger("Mover_goto_end_loop_1", (300, 400, 80, 80), target=7)
    level.trigger("Level_end_a", (700, 400, 100, 100))
    level.water_start(50, 50)
    level.camera_start(400, 300)
    level.save("levels/mine.tmj")

World units, y downwards. Whole numbers are kept; others are rounded by `vantrel-level compile`.
Records keep the order of the calls, within each kind and drawing layer. Properties that are
at their default aren't written, as Tiled does it. What the names mean: docs/levels.md.
"""

import json

SURFACES = ("metal", "wood", "stone", "cloth", "sand")
FLAGS = ("solid", "scenery", "invisible", "cutting")
LAYERS = ("0 far back", "1 behind the water", "2 before the water", "3 front", "4 foremost")


class Map:
    def __init__(self):
        self._groups = {}  # name of the group to its objects; groups stand in order of name
        self._next = 1

    # -- what is drawn and collides -----------------------------------------------------------

    def polygon(self, points, surface="stone", texture="", layer=1, flags="solid", id=0,
                exact=False, name=""):
        """An outline, either way round, not closed. `layer` 0 to 4, the water flows between
        1 and 2. `exact` keeps the points as they are: no tidying by the compiler."""
        assert surface in SURFACES and flags in FLAGS and 0 <= layer <= 4
        return self._add(self._layer(layer), "Polygon", name, points[0],
                         {"polygon": _relative(points)}, id=id,
                         surface=_enum("Surface", surface, "stone"), texture=texture,
                         flags=_enum("Flags", flags, "solid"), exact=exact)

    def rectangle(self, x, y, width, height, *args, **options):
        """An axis-aligned polygon; arguments after the size as for `polygon`."""
        return self.polygon(_corners(x, y, width, height), *args, **options)

    def object(self, x, y, texture, layer=2, mirrored=False, id=0, name=""):
        """A sprite round its centre. A texture name with "_FRAME" is an animation."""
        return self._add(self._layer(layer), "Object", name, (x, y), {"point": True}, id=id,
                         texture=texture, mirrored=mirrored)

    # -- what acts ----------------------------------------------------------------------------

    def force(self, id, position, direction=(0, 0), strength=10.0, name=""):
        return self._add("actors", "Force", name, position, {"point": True}, id=id,
                         directionX=float(direction[0]), directionY=float(direction[1]),
                         strength=_Default(float(strength), 10.0))

    def mover(self, id, start, end, speed=50.0, name=""):
        """Carries every polygon and object with this id from start to end."""
        return self._add("actors", "Mover", name, start, {"polyline": _relative([start, end])},
                         id=id, speed=_Default(float(speed), 50.0))

    def trigger(self, type, area, target=0, delay=0.0, name=""):
        """`type` as in the table of docs/levels.md; `area` is (x, y, width, height) or four
        corners in order along the outline."""
        kind = _enum("TriggerType", type, "Null_a")
        if len(area) == 4 and not isinstance(area[0], (tuple, list)):
            x, y, width, height = area
            shape = {"width": width, "height": height}
            return self._add("triggers", "Trigger", name, (x, y), shape, type=kind,
                             target=target, delay=float(delay))
        assert len(area) == 4
        return self._add("triggers", "Trigger", name, area[0], {"polygon": _relative(area)},
                         type=kind, target=target, delay=float(delay))

    def sound(self, id, x, y, radius, sound, looping=False, name=""):
        """Heard within `radius` of (x, y)."""
        shape = {"ellipse": True, "width": 2 * radius, "height": 2 * radius}
        return self._add("actors", "Sound", name, (x - radius, y - radius), shape, id=id,
                         sound=sound, looping=looping)

    def emitter(self, id, position, settings, direction=(0, 0), name=""):
        """Direction (0, 0) is random. `settings` is the emitter settings file."""
        return self._add("actors", "Emitter", name, position, {"point": True}, id=id,
                         directionX=float(direction[0]), directionY=float(direction[1]),
                         settings=settings)

    def water_start(self, x, y):
        return self._add("start", "WaterStart", "", (x, y), {"point": True})

    def camera_start(self, x, y):
        return self._add("start", "CameraStart", "", (x, y), {"point": True})

    # -- the map ------------------------------------------------------------------------------

    def document(self):
        """The map as Tiled stores it."""
        layers = []
        for index, (name, objects) in enumerate(sorted(self._groups.items()), 1):
            layers.append({"id": index, "name": name, "type": "objectgroup", "x": 0, "y": 0,
                           "opacity": 1, "visible": True, "draworder": "index",
                           "objects": objects})
        layers.sort(key=lambda layer: not layer["name"].startswith("layer"))
        return {"type": "map", "version": "1.10", "tiledversion": "1.10.2",
                "orientation": "orthogonal", "renderorder": "right-down", "infinite": True,
                "width": 40, "height": 30, "tilewidth": 20, "tileheight": 20,
                "compressionlevel": -1, "tilesets": [], "layers": layers,
                "nextlayerid": len(layers) + 1, "nextobjectid": self._next}

    def save(self, path):
        with open(path, "w", encoding="utf-8") as file:
            json.dump(self.document(), file, indent=1)
            file.write("\n")

    @staticmethod
    def _layer(layer):
        return f"layer {layer}"

    def _add(self, group, kind, name, position, shape, **properties):
        record = {"id": self._next, "name": name, "type": kind, "x": position[0],
                  "y": position[1], "width": 0, "height": 0, "rotation": 0, "visible": True}
        record.update(shape)
        written = [_property(key, value) for key, value in properties.items()]
        written = [entry for entry in written if entry]
        if written:
            record["properties"] = written
        self._groups.setdefault(group, []).append(record)
        self._next += 1
        return record["id"]


class _Default:
    """A value with a default other than 0, false or empty."""

    def __init__(self, value, default):
        self.value, self.default = value, default


def _enum(propertytype, value, default):
    entry = _Default(value, default)
    entry.propertytype = propertytype
    return entry


def _property(name, value):
    """The property as Tiled stores it, or None at its default."""
    default = value.default if isinstance(value, _Default) else type(value)()
    plain = value.value if isinstance(value, _Default) else value
    if plain == default:
        return None
    entry = {"name": name}
    if hasattr(value, "propertytype"):
        entry["propertytype"] = value.propertytype
    entry["type"] = {bool: "bool", int: "int", float: "float", str: "string"}[type(plain)]
    if entry["type"] == "string" and not hasattr(value, "propertytype"):
        plain = plain.replace("%", "%25")
    entry["value"] = plain
    return entry


def _relative(points):
    x, y = points[0]
    return [{"x": px - x, "y": py - y} for px, py in points]


def _corners(x, y, width, height):
    return [(x, y), (x + width, y), (x + width, y + height), (x, y + height)]
