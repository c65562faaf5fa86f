"""What the level scripts share, on top of tiled.py: names of pictures, shapes, and machines
that come with their triggers, sounds and marks. docs/levels.md tells what the parts do.

    from kit import *
    stage = Stage()
    stage.backdrop(WALL, 0, 0, 1600, 1200)
    stage.shell([(40, 40), (1560, 40), (1560, 1160), (40, 1160)])
    stage.solid(box(40, 600, 700, 640), "wood")
    stage.lift(720, 600, 120, (720, 200), speed=60)
    stage.finish(1300, 1080, 200, 70)
    stage.start(200, 300, camera=(1400, 1000))
    stage.save("mine.tmj")

Layers: 0 far walls; 1 what stands behind the water; 2 solids, so that the water lies sunk in
their edge; 3 worn edges, grilles and marks; 4 the dark foreground. Inside of a layer the picture
that a script uses first lies lowest.
"""

import math

from tiled import Map

ROCK, STONE, PAVING, BRICK, TILE = ("img\\rock.png", "img\\masonry.png", "img\\stone.png",
                                    "img\\brick.png", "img\\tile.png")
WOOD, METAL, RUST, COPPER, PIPE = ("img\\wood.png", "img\\metal.png", "img\\rust.png",
                                   "img\\copper.png", "img\\pipe.png")
CLOTH, SACK, SAND, FROST = "img\\cloth.png", "img\\sack.png", "img\\sand.png", "img\\frost.png"
BRASS = "img\\brass.png"
WALL, PLASTER, BRICKWALL, ICEWALL = ("img\\wall.png", "img\\plaster.png", "img\\brickwall.png",
                                     "img\\icewall.png")
PLANKING, SANDWALL, SKY, SEA = ("img\\planking.png", "img\\sandwall.png", "img\\sky.png",
                                "img\\sea.png")
BEAM, IRON, MOSS, DARK = "img\\beam.png", "img\\iron.png", "img\\moss.png", "img\\dark.png"
GRATE, HAZARD, SHADE = "img\\grate.png", "img\\hazard.png", "img\\shade.png"
PIPE_UP, PIPE_ACROSS = "img\\pipeUp.png", "img\\pipeAcross.png"  # every 32 units one pipe

SKIN = {"stone": STONE, "metal": METAL, "wood": WOOD, "cloth": CLOTH, "sand": SAND}
EDGE = {surface: f"img\\edge_{surface}.png" for surface in SKIN}
EDGE_HEIGHT = 6


def box(left, top, right, bottom):
    return [(left, top), (right, top), (right, bottom), (left, bottom)]


def animation(name):
    return f"img\\{name}_FRAME01.png"


class Stage(Map):
    """A level. Areas are (x, y, width, height); machines return the id they got."""

    def __init__(self):
        super().__init__()
        self._last_id = 100
        self._edges = []  # (points, surface, id) of solids that get a worn upper edge
        self._playing = self.new_id()  # animations that run from the start
        self._at_start = []  # (trigger type, id, delay) fired as the water appears
        self._water = None

    def new_id(self):
        self._last_id += 1
        return self._last_id

    # -- shapes -------------------------------------------------------------------------------

    def solid(self, points, surface="stone", texture=None, id=0, edge=True, layer=2, **options):
        """Ground and walls. Solids that touch must share corners and whole sides."""
        self.polygon(points, surface, texture or SKIN[surface], layer=layer, id=id, **options)
        if edge:
            self._edges.append((points, surface, id))

    def scenery(self, layer, points, texture, id=0, name=""):
        self.polygon(points, "stone", texture, layer=layer, flags="scenery", id=id, name=name)

    def tiles(self, left, top, width, heights, thickness, surface="stone", texture=None, name=""):
        """Tiles side by side that share edges; `heights` are the tops at each joint."""
        for i in range(len(heights) - 1):
            x = left + i * width
            a, b = top + heights[i], top + heights[i + 1]
            self.solid([(x, a), (x + width, b), (x + width, b + thickness), (x, a + thickness)],
                       surface, texture, name=f"{name} {i + 1}" if name else "")

    def backdrop(self, texture, left, top, right, bottom):
        """The far wall; what is laid on it later in layer 0 with other pictures lies above."""
        self.scenery(0, box(left, top, right, bottom), texture, name="far wall")

    def shell(self, inside, texture=ROCK, margin=600):
        """Rough rock all round. `inside` is the outline of the hollow, either way round; its
        corners nearest to the corners of its box are where top, sides and ground meet."""
        left, right = min(p[0] for p in inside), max(p[0] for p in inside)
        top, bottom = min(p[1] for p in inside), max(p[1] for p in inside)
        if _area(inside) < 0:
            inside = inside[::-1]
        outer = box(left - margin, top - margin, right + margin, bottom + margin)
        nearest = [min(range(len(inside)), key=lambda i, c=corner: math.dist(inside[i], c))
                   for corner in box(left, top, right, bottom)]
        for side, name in enumerate(("roof", "right side", "ground", "left side")):
            first, last = nearest[side], nearest[(side + 1) % 4]
            chain = [inside[(first + i) % len(inside)]
                     for i in range((last - first) % len(inside) + 1)]
            self.solid([outer[side], outer[(side + 1) % 4]] + chain[::-1], "stone", texture,
                       name=name)

    def foreground(self, points):
        self.scenery(4, points, DARK, name="foreground")

    def surround(self, left, top, right, bottom, reach=2800):
        """Goes on with the foreground on all four sides of the box, for as far as a view goes that
        is zoomed out and three and a half times as wide as high."""
        for area in (box(left - reach, top - reach, right + reach, top),
                     box(left - reach, bottom, right + reach, bottom + reach),
                     box(left - reach, top - 20, left, bottom + 20),
                     box(right, top - 20, right + reach, bottom + 20)):
            self.foreground(area)

    def frame(self, left, top, right, bottom, reach=2800):
        """Dark rocks before the level's rim, on all four sides of the box, as far as `surround`
        goes."""
        for i, (a, b, out) in enumerate((((left, top), (right, top), (0, -reach)),
                                         ((right, top), (right, bottom), (reach, 0)),
                                         ((right, bottom), (left, bottom), (0, reach)),
                                         ((left, bottom), (left, top), (-reach, 0)))):
            steps = max(3, round(math.dist(a, b) / 160))
            rough = [((k * 37 + i * 11) % 23 - 11) * (0 < k < steps) for k in range(steps + 1)]
            sign = (out[0] > 0) - (out[0] < 0), (out[1] > 0) - (out[1] < 0)
            line = [(round(a[0] + (b[0] - a[0]) * k / steps) + sign[0] * rough[k],
                     round(a[1] + (b[1] - a[1]) * k / steps) + sign[1] * rough[k])
                    for k in range(steps + 1)]
            along = (b[0] > a[0]) - (b[0] < a[0]), (b[1] > a[1]) - (b[1] < a[1])
            far = [(b[0] + out[0] + along[0] * reach, b[1] + out[1] + along[1] * reach),
                   (a[0] + out[0] - along[0] * reach, a[1] + out[1] - along[1] * reach)]
            self.foreground(line + far)

    # -- scenery ------------------------------------------------------------------------------

    def arch(self, x, y, width, height, texture=PLASTER, layer=0):
        """An arched niche in the far wall; (x, y) is the top left of its box."""
        r = width / 2
        bow = [(round(x + r - r * math.cos(math.pi * i / 8)),
                round(y + r - r * math.sin(math.pi * i / 8))) for i in range(9)]
        self.scenery(layer, [(x, y + height)] + bow + [(x + width, y + height)], texture,
                     name="arch")

    def pipe(self, points, layer=1):
        """A run of pipe along level and upright lines, 32 wide, with flanges at its corners.
        Upright parts lie on columns of 32 units, level ones on rows: `points` are rounded."""
        def snap(value):
            return round((value - 16) / 32) * 32 + 16
        points = [(snap(x), snap(y)) for x, y in points]
        for (ax, ay), (bx, by) in zip(points, points[1:]):
            assert ax == bx or ay == by, "pipes run level or upright"
            if ax == bx:
                self.scenery(layer, box(ax - 16, min(ay, by), ax + 16, max(ay, by)), PIPE_UP,
                             name="pipe")
            else:
                self.scenery(layer, box(min(ax, bx), ay - 16, max(ax, bx), ay + 16), PIPE_ACROSS,
                             name="pipe")
        for x, y in points:
            self.object(x, y, "img\\pipeJoint.png", layer=layer, name="pipe joint")

    def post(self, x, top, bottom, width=22, texture=BEAM):
        self.scenery(1, box(x, top, x + width, bottom), texture, name="post")

    def beam(self, left, right, y, height=22, texture=BEAM):
        self.scenery(1, box(left, y, right, y + height), texture, name="beam")

    def brace(self, x, y, reach, width=22, texture=BEAM):
        """From a post at x up to a beam whose lower side is y; `reach` below 0 goes left."""
        side = width if reach > 0 else -width
        self.scenery(1, [(x, y + abs(reach)), (x + reach, y), (x + reach + side, y),
                         (x, y + abs(reach) + width)], texture, name="brace")

    def moss(self, points, drop=26, layer=3):
        """Growth that hangs from a line of points, in ragged ends."""
        lower = []
        for i, ((ax, ay), (bx, by)) in enumerate(zip(points, points[1:])):
            steps = max(2, round(math.dist((ax, ay), (bx, by)) / 18))
            for k in range(steps):
                hang = drop * (0.35 + 0.65 * (((k * 5 + i * 3) % 7) / 6)) * (k + i > 0)
                lower.append((round(ax + (bx - ax) * k / steps),
                              round(ay + (by - ay) * k / steps + hang)))
        self.scenery(layer, points[:1] + lower[1:] + points[:0:-1], MOSS, name="moss")

    def playing(self, x, y, name, layer=1, mirrored=False):
        """An animated object that runs from the start."""
        self.object(x, y, animation(name), layer=layer, mirrored=mirrored, id=self._playing,
                    name=name)

    def lamp(self, x, y, layer=1):
        """Hangs from y - 36; with a pool of warm light round it."""
        self.object(x, y, "img\\glow.png", layer=0, name="lamp light")
        self.playing(x, y, "lamp", layer)

    def lantern(self, x, y, layer=1):
        self.object(x, y, "img\\glow.png", layer=0, name="lantern light")
        self.object(x, y, "img\\lantern.png", layer=layer, name="lantern")

    def gauge(self, x, y):
        self.playing(x, y, "gauge")

    def wheel(self, x, y):
        self.playing(x, y, "wheel")

    def valve(self, x, y):
        self.playing(x, y, "valve")

    def gear(self, x, y, big=False, layer=1):
        """96 wide, or 192 when big."""
        self.playing(x, y, "bigGear" if big else "gear", layer)

    def clock_face(self, x, y):
        """Stands still at noon; a trigger for the id it returns may run it through a day."""
        id = self.new_id()
        self.object(x, y, animation("clockface"), layer=0, id=id, name="clock")
        return id

    def thing(self, x, y, name, layer=1, mirrored=False):
        """A still object: crate, barrel, chain, ladder, icicles, weeds, lantern, window, ...;
        (x, y) is its centre."""
        self.object(x, y, f"img\\{name}.png", layer=layer, mirrored=mirrored, name=name)

    def arrow(self, x, y, way):
        """A worn plate on the wall: `way` is left, right, up or down."""
        self.thing(x, y, f"arrow_{way}", 1)

    # -- sounds, effects, camera --------------------------------------------------------------

    def hum(self, x, y, radius, sound):
        """A looping sound of the place: drip, fan, furnace, gears, machine, pump, rumble, surf
        or wind."""
        self.sound(self.new_id(), x, y, radius, f"snd\\place_{sound}.wav", looping=True,
                   name=sound)

    def effect(self, x, y, settings, direction=(0, 0)):
        """An emitter that runs from the start if its settings say so."""
        id = self.new_id()
        self.emitter(id, (x, y), f"fx\\{settings}.cfg", direction, name=settings)
        return id

    def drip(self, x, y, sound=True):
        if sound:
            self.hum(x, y + 60, 260, "drip")
        return self.effect(x, y, "drip", (0, 1))

    def steam_leak(self, x, y, direction=(0, -1)):
        return self.effect(x, y, "steam", direction)

    def mist(self, x, y):
        return self.effect(x, y, "mist")

    def sparks(self, x, y, area, direction=(0, -1)):
        """One burst when water first comes into the area."""
        id = self.effect(x, y, "sparks", direction)
        self.trigger("Emitter_create_burst_1", area, target=id, name="sparks")
        return id

    def zoom(self, area, again=False):
        self.trigger("Camera_zoom_a" if again else "Camera_zoom_1", area, name="zoom")

    def shake(self, area, again=False, delay=0.0):
        self.trigger("Camera_shake_a" if again else "Camera_shake_1", area, delay=delay,
                     name="shake")

    # -- where water goes, is lost and arrives -------------------------------------------------

    def check_point(self, x, y, width, height):
        """Lost water comes back at the middle of the area: leave it room there. The marker
        stands on the area's lower side and lights up."""
        id = self.new_id()
        self.trigger("Checkpoint_1", (x, y, width, height), name="check point")
        self.trigger("Anim_play_once_1", (x, y, width, height), target=id, name="check point")
        self.object(x + width // 2, y + height - 32, animation("checkpoint"), layer=1, id=id,
                    name="check point")
        burst = self.new_id()
        self.emitter(burst, (x + width // 2, y + height - 50), "fx\\splash.cfg", (0, -1),
                     name="check point")
        self.trigger("Emitter_create_burst_1", (x, y, width, height), target=burst,
                     name="check point")
        return id

    def finish(self, x, y, width, height, basin=True):
        """The goal: a brass basin, whose inside is the area, and its sign above."""
        if basin:
            slant = min(24, width // 6)
            self.solid([(x - 18, y), (x, y), (x + slant, y + height),
                        (x + width - slant, y + height), (x + width, y), (x + width + 18, y),
                        (x + width + 18, y + height + 20), (x - 18, y + height + 20)], "metal",
                       BRASS, name="finish basin")
        self.trigger("Level_end_a", (x, y, width, height), name="finish")
        self.object(x + width // 2, y + height // 2, "img\\goalGlow.png", layer=0, name="finish")
        self.playing(x + width // 2, y - 90, "finishSign")

    def kill(self, area):
        """Water is lost here. Marks are the author's: see `hazard`."""
        self.trigger("Particle_kill_a", area, name="lost")

    def hazard(self, left, top, right, bottom, id=0):
        """Chevrons on an edge that leads to where it hurts; before the solids."""
        self.scenery(3, box(left, top, right, bottom), HAZARD, id=id, name="hazard")

    def drain(self, x, y, width, depth=60):
        """A gap in the floor, its upper left at (x, y), that swallows water: leave the gap
        open in the solids and `depth` deep at least."""
        self.kill((x, y + 14, width, depth - 14))
        self.scenery(1, box(x, y, x + width, y + depth), SHADE, name="drain")
        self.scenery(3, box(x, y + 8, x + width, y + 20), GRATE, name="drain")
        for left, right in ((x - 32, x), (x + width, x + width + 32)):
            self.hazard(left, y, right, y + 10)
        for i in range(max(1, round(width / 110))):
            at = x + width * (2 * i + 1) // (2 * max(1, round(width / 110)))
            self.object(at, y + 20, "img\\dangerGlow.png", layer=1, name="drain")
            self.playing(at, y + 34, "drain")

    def pit(self, left, right, y, depth=120):
        """An open bottom, wide: everything below y is lost; glows from below."""
        self.kill((left, y, right - left, depth))
        for i in range(max(1, round((right - left) / 130))):
            at = left + (right - left) * (2 * i + 1) // (2 * max(1, round((right - left) / 130)))
            self.object(at, y, "img\\dangerGlow.png", layer=1, name="pit")

    def sieve(self, left, right, y, gap=16, bar=10):
        """Bars that carry a lump of ice; water falls between them and is drawn down."""
        count = round((right - left - gap) / (gap + bar))
        step = (right - left - gap) / count
        for i in range(count):
            x = round(left + gap + i * step)
            self.solid(box(x, y, x + bar, y + 10), "metal", METAL, name="sieve")
        self.scenery(1, box(left, y + 10, right, y + 18), IRON, name="sieve")
        self.wind((left + 4, y - 12, right - left - 8, 80), (0, 1), 600)

    def lost(self, left, right, y, depth, edges=(), opaque=False):
        """A dark red pit below a sieve or a leap; `edges` are places of chevrons. An opaque one
        lies in the far wall and has fewer lights: wide ones cost much less to draw so."""
        if opaque:
            self.scenery(0, box(left, y - 16, right, y + depth), DARK, name="pit")
        else:
            self.scenery(1, box(left, y, right, y + depth), SHADE, name="pit")
        self.kill((left, y, right - left, depth))
        count = max(1, round((right - left) / (240 if opaque else 130)))
        for i in range(count):
            x = left + (right - left) * (2 * i + 1) // (2 * count)
            self.object(x, y + depth // 2, "img\\dangerGlow.png", layer=1, name="pit")
            self.playing(x, y + depth - 18, "drain")
        for area in edges:
            self.hazard(*area)

    # -- machines -----------------------------------------------------------------------------

    def gate(self, area, travel, opener, speed=80, surface="metal", texture=COPPER, delay=0.0,
             edge=True):
        """A slab that slides by `travel` (x, y) once water comes into the opener's area. One that
        slides into masonry wants no worn edge, which would show there."""
        x, y, width, height = area
        id = self.new_id()
        self.solid(box(x, y, x + width, y + height), surface, texture, id=id, edge=edge,
                   name="gate")
        middle = x + width // 2, y + height // 2
        self.mover(id, middle, (middle[0] + travel[0], middle[1] + travel[1]), speed, name="gate")
        self.trigger("Mover_goto_end_1", opener, target=id, delay=delay, name="gate opens")
        self.hum(*middle, 220, "machine")
        return id

    def plate(self, x, y, width):
        """The mark of an opener: a framed brass plate on the worn edge of the floor whose top
        is y."""
        right = x + width
        self.scenery(4, box(x, y - 1, right, y + 11), BRASS, name="plate")
        for part in (box(x - 5, y - 2, x, y + 16), box(right, y - 2, right + 5, y + 16),
                     box(x, y + 11, right, y + 16)):
            self.scenery(4, part, IRON, name="frame of a plate")
        return (x, y - 24, width, 24)

    def lift(self, x, y, width, end, speed=60, area=None, loop=True, rim=10, rails=True):
        """A platform, (x, y) the left end of its deck; the deck's left end travels to `end`.
        It runs to and fro from the start, or from when water comes into the area."""
        id = self.new_id()
        self.solid([(x, y - rim), (x + 8, y - rim), (x + 8, y), (x + width - 8, y),
                    (x + width - 8, y - rim), (x + width, y - rim), (x + width, y + 14),
                    (x, y + 14)], "metal", COPPER, id=id, name="lift")
        if rails:
            self.rail((x + width // 2, y + 7), (end[0] + width // 2, end[1] + 7), width)
        self.mover(id, (x, y), end, speed, name="lift")
        self._set_going(id, area, loop)
        return id

    def cradle(self, x, y, width, end, speed=60, dip=14, rails=True):
        """A platform that runs to and fro from the start; it sags in its middle, so that water
        stays on it while the tilt is small, and leaves it whole when it is large. (x, y) is its
        upper left corner, which travels to `end`."""
        points = [(x, y), (x + width // 2, y + dip), (x + width, y), (x + width, y + dip + 12),
                  (x, y + dip + 12)]
        if rails:
            self.rail((x + width // 2, y + dip), (end[0] + width // 2, end[1] + dip), width)
        return self.carry(points, (end[0] - x, end[1] - y), speed)

    def rail(self, start, end, width=80):
        """Guide rails of what moves from start to end, with a gear at each end."""
        (ax, ay), (bx, by) = start, end
        if abs(bx - ax) < abs(by - ay):
            for side in (-width // 2 + 10, width // 2 - 16):
                self.scenery(1, [(ax + side, ay), (ax + side + 6, ay), (bx + side + 6, by),
                                 (bx + side, by)], IRON, name="rail")
        else:
            self.scenery(1, [(ax, ay - 3), (bx, by - 3), (bx, by + 3), (ax, ay + 3)], IRON,
                         name="rail")
        self.gear(ax, ay)
        self.gear(bx, by)

    def _set_going(self, id, area, loop, delay=0.0):
        kind = "Mover_goto_end_loop_1" if loop else "Mover_goto_end_1"
        if area is None:
            self._at_start.append((kind, id, delay))
        else:
            self.trigger(kind, area, target=id, delay=delay, name="sets going")

    def carry(self, points, travel, speed=60, surface="metal", texture=COPPER, area=None,
              loop=True):
        """Any solid shape that moves by `travel` (x, y), as a lift does."""
        id = self.new_id()
        self.solid(points, surface, texture, id=id, name="moves")
        x, y = points[0]
        self.mover(id, (x, y), (x + travel[0], y + travel[1]), speed, name="moves")
        self._set_going(id, area, loop)
        return id

    def piston(self, x, y, width, height, travel, speed=120, area=None, loop=True, delay=0.0):
        """A crusher: a head that thrusts by `travel` (x, y), with chevrons on its face and its
        rod behind it. `delay` before its first stroke sets several in a row to one wave."""
        id = self.new_id()
        dx, dy = travel
        self.solid(box(x, y, x + width, y + height), "metal", COPPER, id=id, edge=False,
                   name="piston")
        if abs(dx) > abs(dy):
            face = x + width - 14 if dx > 0 else x
            self.hazard(face, y, face + 14, y + height, id=id)
            rod = (x - abs(dx) - 20, x + 4) if dx > 0 else (x + width - 4, x + width + abs(dx) + 20)
            middle = y + height // 2
            self.scenery(1, box(rod[0], middle - 10, rod[1], middle + 10), METAL, id=id,
                         name="piston rod")
        else:
            face = y + height - 14 if dy > 0 else y
            self.hazard(x, face, x + width, face + 14, id=id)
            rod = (y - abs(dy) - 20, y + 4) if dy > 0 else (y + height - 4, y + height + abs(dy) + 20)
            middle = x + width // 2
            self.scenery(1, box(middle - 10, rod[0], middle + 10, rod[1]), METAL, id=id,
                         name="piston rod")
        self.mover(id, (x, y), (x + dx, y + dy), speed, name="piston")
        self._set_going(id, area, loop, delay)
        self.hum(x + width // 2, y + height // 2, 320, "machine")
        return id

    def winch(self, x, y, area, delay, seconds, sound="machine", radius=420):
        """A wheel that turns, with its noise, for so many seconds from when water comes into
        the area: the time that what it moves is on its way. Returns its id."""
        id = self.new_id()
        self.object(x, y, animation("wheel"), layer=1, id=id, name="winch")
        self.sound(id, x, y, radius, f"snd\\place_{sound}.wav", looping=True, name="winch")
        for thing in ("Anim_play_loop_1", "Sound_play_1"):
            self.trigger(thing, area, target=id, delay=delay, name="winch runs")
        for thing in ("Anim_stop_1", "Sound_stop_1"):
            self.trigger(thing, area, target=id, delay=delay + seconds, name="winch stands")
        return id

    def spout(self, x, y, area, direction=(0, 1), delay=0.0, settings="jet"):
        """Begins to pour once water comes into the area. (Emitters outlast a restart as they
        are, so it is turned off at each start.)"""
        id = self.effect(x, y, settings, direction)
        self._at_start.append(("Emitter_stop_1", id, 0.0))
        self.trigger("Emitter_start_1", area, target=id, delay=delay, name="spout")
        return id

    def dries(self, x, y, settings, area, direction=(0, 1), delay=0.0):
        """A drip or leak that ends once water comes into the area."""
        id = self.effect(x, y, settings, direction)
        self._at_start.append(("Emitter_start_1", id, 0.0))
        self.trigger("Emitter_stop_1", area, target=id, delay=delay, name="dries up")
        return id

    def vanishing(self, points, area, surface="metal", texture=COPPER, delay=0.0):
        """A solid that is taken out of the level when water comes into the area."""
        id = self.new_id()
        self.solid(points, surface, texture, id=id, edge=False, name="way, closed at first")
        self.trigger("Entity_remove_1", area, target=id, delay=delay, name="opens")
        return id

    # -- forces -------------------------------------------------------------------------------

    def wind(self, area, direction, strength, id=None):
        """Speeds water up by `strength` units per second squared (gravity is 420)."""
        id = id or self.new_id()
        x, y, width, height = area
        self.force(id, (x + width // 2, y + height // 2), direction, strength / 10, name="wind")
        self.trigger("Force_directional_a", area, target=id, name="wind")
        return id

    def fan(self, x, y, area, direction, strength):
        """A fan on the wall at (x, y) that blows through the area."""
        self.playing(x, y, "fan")
        self.hum(x, y, 420, "fan")
        self.effect(x, y, "wind", direction)
        return self.wind(area, direction, strength)

    def jet(self, area, direction, speed):
        """Shoots water along with that speed (units per second)."""
        id = self.new_id()
        x, y, width, height = area
        self.force(id, (x + width // 2, y + height // 2), direction, speed / 10, name="jet")
        self.trigger("Force_instantenous_a", area, target=id, name="jet")
        self.effect(x + width // 2, y + height // 2, "jet", direction)
        return id

    def suction(self, x, y, area, strength):
        """Pulls water in the area to (x, y), by strength / sqrt(distance + 1)."""
        id = self.new_id()
        self.force(id, (x, y), (0, 0), strength / 10, name="suction")
        self.trigger("Force_multi_dir_pull_a", area, target=id, name="suction")
        self.hum(x, y, 360, "pump")
        return id

    def blower(self, x, y, area, strength):
        """Pushes water in the area away from (x, y)."""
        id = self.new_id()
        self.force(id, (x, y), (0, 0), strength / 10, name="blower")
        self.trigger("Force_multi_dir_push_a", area, target=id, name="blower")
        self.hum(x, y, 360, "fan")
        return id

    # -- heat and cold ------------------------------------------------------------------------

    def furnace(self, x, y, area):
        """Boils water in the area; the fire, 128 by 96, has its centre at (x, y)."""
        self.trigger("To_steam_a", area, name="furnace")
        self.object(x, y - 20, "img\\fireGlow.png", layer=0, name="furnace")
        self.playing(x, y, "furnace")
        self.hum(x, y, 420, "furnace")

    def freezer(self, area):
        """Freezes water in the area, which is frosted and full of cold mist."""
        x, y, width, height = area
        self.trigger("To_ice_a", area, name="freezer")
        for i in range(max(1, width // 140)):
            at = x + width * (2 * i + 1) // (2 * max(1, width // 140))
            self.object(at, y + height // 2, "img\\coldGlow.png", layer=1, name="freezer")
            self.effect(at, y + height // 2, "frost", (0, 1))
        self.hum(x + width // 2, y + height // 2, 320, "wind")

    def warmer(self, area, lamp=True):
        """Melts ice and condenses steam in the area."""
        x, y, width, height = area
        self.trigger("To_water_a", area, name="warmer")
        if lamp:
            self.lamp(x + width // 2, y + 36)

    def at_start(self, kind, id, delay=0.0):
        """Fires a trigger type for the id as the water appears: `Entity_remove_1` for what is to
        be added later, `Emitter_stop_1` for what is to be started later."""
        self._at_start.append((kind, id, delay))

    # -- the whole ----------------------------------------------------------------------------

    def start(self, x, y, camera):
        """The water's start, and from where the camera flies to it."""
        self._water = x, y
        self.water_start(x, y)
        self.camera_start(*camera)

    def save(self, path):
        self._draw_edges()
        x, y = self._water
        around = (x - 40, y - 40, 80, 80)
        for kind, id, delay in [("Anim_play_loop_1", self._playing, 0.0)] + self._at_start:
            self.trigger(kind, around, target=id, delay=delay, name="from the start")
        super().save(path)

    def _draw_edges(self):
        """A light worn ribbon along all sides of solids that look up."""
        sides = {}
        for points, _, _ in self._edges:
            for a, b in _sides(points):
                sides[frozenset((a, b))] = sides.get(frozenset((a, b)), 0) + 1
        for points, surface, id in self._edges:
            for run in _upper_runs(points, sides):
                for ribbon in _ribbons(run):
                    self.scenery(3, ribbon, EDGE[surface], id=id, name="edge")


def _sides(points):
    return list(zip(points, points[1:] + points[:1]))


def _area(points):
    return sum(ax * by - bx * ay for (ax, ay), (bx, by) in _sides(points)) / 2


def _upper_runs(points, sides):
    """Chains of sides, from left to right, that look up and belong to one solid alone."""
    if _area(points) < 0:
        points = points[::-1]
    upper = [b[0] - a[0] > 0.3 * math.dist(a, b) and sides[frozenset((a, b))] == 1
             for a, b in _sides(points)]
    runs, count = [], len(points)
    for first in range(count):
        if upper[first] and not upper[first - 1]:
            last = first
            while upper[last % count] and last < first + count:
                last += 1
            runs.append([points[i % count] for i in range(first, last + 1)])
    return runs


def _ribbons(run):
    """One strip below each side, of which neighbours meet on the line between them."""
    inner = []
    for i, (x, y) in enumerate(run):
        normals = [_down(a, b) for a, b in zip(run[max(i - 1, 0):], run[max(i, 1):i + 2])]
        nx, ny = sum(n[0] for n in normals), sum(n[1] for n in normals)
        length = math.hypot(nx, ny)
        reach = EDGE_HEIGHT * min(len(normals) / length, 1.6)
        inner.append((round(x + nx / length * reach), round(y + ny / length * reach)))
    strips = []
    for a, b, d, c in zip(run, run[1:], inner, inner[1:]):
        if c[0] > d[0] and math.dist(a, b) > 4:
            strips.append([a, b, c, d])
    return strips


def _down(a, b):
    length = math.dist(a, b)
    return (a[1] - b[1]) / length, (b[0] - a[0]) / length
