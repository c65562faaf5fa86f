"""Draws levels/09_pipes.tmj: a maze of pipes. Run it in this folder.

The pipes run between plates that stand in rows and columns. Jets shoot the water along, lids keep
it from falling, and hand wheels that it passes take lids away somewhere else, or bring them back:

    start, right to the first wheel, back to the hatch it opened, down; right and down again; the
    jet to the left, braked in time; left along the low pipe to the wheel that turns on the riser,
    right and up through it, not too far to the left; all the way down in the right, to the wheel
    that closes this way and opens two; round again, now through the middle; the last wheel in its
    pocket, down; right to one more, and left to the goal.
"""

from kit import *

PIPE_WIDTH = 60
COLUMNS, ROWS = 6, 5  # of plates
LEFT, TOP = 40, 60
RIGHT, BOTTOM = 1660, 1140
BEND = 26  # radius of the bends

# Crossings (column, row) of which the upright pipe is closed below, for ever or at times.
LIDS = ([(0, 0), (2, 0), (3, 0), (1, 1), (2, 1), (0, 2), (2, 2), (3, 2)] +
        [(c, 3) for c in (0, 1, 2, 3, 4, 6)] + [(c, 4) for c in (1, 2, 3, 4, 5, 6)])
HATCHES = [(1, 0), (5, 0), (6, 0), (5, 1), (5, 3)]

START = 150, 84
STARTING = (110, 62, 80, 56)  # where the water is as the level starts

stage = Stage()


def column(c):
    """The left side of upright pipe c, 0 to COLUMNS."""
    return LEFT + 260 * c


def row(r):
    """The upper side of level pipe r, 0 to ROWS."""
    return TOP + 200 * r


def crossing(c, r):
    return column(c), row(r), PIPE_WIDTH, PIPE_WIDTH


POCKET = (column(5) - 70, row(1), PIPE_WIDTH, PIPE_WIDTH)  # where the last wheel of the loop is


def lid_points(c, r):
    """Closes upright pipe c below level pipe r, level with its floor."""
    x, y = column(c), row(r) + PIPE_WIDTH
    return box(x, y, x + PIPE_WIDTH, y + 18)


def wall_points(c, r):
    """Closes level pipe r between the upright pipes c and c + 1."""
    x, y = column(c) + PIPE_WIDTH + 92, row(r)
    return box(x, y, x + 16, y + PIPE_WIDTH)


def wall(c, r):
    stage.solid(wall_points(c, r), "metal", METAL, edge=False, name="closed")
    x, y = wall_points(c, r)[0]
    stage.scenery(3, box(x - 6, y, x + 22, y + PIPE_WIDTH), METAL, name="closed")
    stage.thing(x + 8, y + 30, "valve_FRAME01", layer=3)


def bend(x, y, dx, dy):
    """A round corner at (x, y), of a plate that lies in direction (dx, dy) from it."""
    near = round(BEND * 0.3)
    side, mid, top = (x, y + dy * BEND), (x + dx * near, y + dy * near), (x + dx * BEND, y)
    return [side, mid, top] if dx == dy else [top, mid, side]


def plate_points(i, j):
    """Round where no lid and no ground adjoins."""
    left, top = column(i) + PIPE_WIDTH, row(j) + PIPE_WIDTH
    right, bottom = left + 200, top + 140
    closed = LIDS + HATCHES
    return (([(left, top)] if (i, j) in closed else bend(left, top, 1, 1)) +
            ([(right, top)] if (i + 1, j) in closed else bend(right, top, -1, 1)) +
            ([(right, bottom), (left, bottom)] if j == ROWS - 1 else
             bend(right, bottom, -1, -1) + bend(left, bottom, 1, -1)))


def maze():
    for r in range(ROWS):
        stage.backdrop(WALL, LEFT, row(r) - BEND, RIGHT, row(r) + PIPE_WIDTH + BEND)
    for c in range(COLUMNS + 1):
        for r in range(ROWS):
            x = column(c)
            stage.backdrop(WALL, max(x - BEND, LEFT), row(r) + PIPE_WIDTH + BEND,
                           min(x + PIPE_WIDTH + BEND, RIGHT),
                           row(r + 1) - (BEND if r < ROWS - 1 else 0))
    stage.backdrop(WALL, LEFT, 946, 300, BOTTOM)
    stage.shell([(LEFT, TOP), (RIGHT, TOP), (RIGHT, row(ROWS)), (360, row(ROWS)), (300, row(ROWS) - 4),
                 (300, BOTTOM), (LEFT, BOTTOM)], margin=90)
    stage.frame(-20, 0, 1720, 1200)
    for j in range(ROWS):
        for i in range(COLUMNS):
            if (i, j) != (0, ROWS - 1):
                stage.solid(plate_points(i, j), "metal",
                            COPPER if (i + j) % 3 == 0 else METAL, name="plate")
                if (i + j) % 3 == 0:
                    boiler(column(i) + PIPE_WIDTH + 100, row(j) + PIPE_WIDTH + 72)
    for c, r in LIDS:
        stage.solid(lid_points(c, r), "metal", name="lid")
    for c, r in ((3, 0), (3, 1), (3, 2), (4, 1), (4, 2), (5, 1), (5, 2)):
        wall(c, r)


def boiler(x, y):
    """Round, on a plate, with two hoops: only to look at."""
    ends = [(76, -14), (64, -38), (44, -44)]
    points = ([(x + dx, y + dy) for dx, dy in ends] + [(x - dx, y + dy) for dx, dy in ends[::-1]] +
              [(x - dx, y - dy) for dx, dy in ends] + [(x + dx, y - dy) for dx, dy in ends[::-1]])
    stage.scenery(3, points, RUST, name="boiler")
    for hoop in (x - 50, x + 40):
        stage.scenery(3, box(hoop, y - 43, hoop + 10, y + 43), BRASS, name="hoop")


def hand_wheel(c, r, opens, closes=(), area=None):
    """A wheel at crossing (c, r), that turns from when water comes to it: takes the shapes of
    `opens` away for good, and after a moment puts those of `closes` in their place."""
    area = area or crossing(c, r)
    x, y = area[0] + 30, area[1] + 30
    wheel, gone, come = stage.new_id(), stage.new_id(), stage.new_id()
    stage.object(x, y, animation("wheel"), layer=1, id=wheel, name="hand wheel")
    stage.trigger("Anim_play_loop_1", area, target=wheel, name="hand wheel")
    for points in opens:
        stage.solid(points, "metal", BRASS, id=gone, edge=False, name="way, closed at first")
    if opens:
        stage.trigger("Entity_remove_1", area, target=gone, name="opens")
    for points in closes:
        stage.solid(points, "metal", BRASS, id=come, edge=False, name="way, open at first")
    if closes:
        stage.trigger("Entity_remove_1", STARTING, target=come, name="open at first")
        stage.trigger("Entity_add_1", area, target=come, delay=0.8, name="closes")
    stage.sparks(x, y, area)


def first_wheel():
    hand_wheel(3, 0, [lid_points(1, 0)])
    stage.thing(column(1) + 30, row(0) + 30, "arrow_down")
    stage.zoom((180, 62, 70, 56))
    stage.arrow(480, 90, "right")


def kill_end(area, glow):
    """A dead end that swallows."""
    x, y, width, height = area
    stage.kill(area)
    stage.scenery(3, box(x, y + height - 20, x + width, y + height - 6), GRATE, name="drain")
    stage.object(*glow, "img\\dangerGlow.png", layer=1)
    stage.playing(glow[0], glow[1] + 8, "drain")


def gully():
    """The second pipe: a drain in its left, the way on in its right."""
    x, y = column(0), row(2)
    kill_end((x, y + 10, PIPE_WIDTH, 50), (x + 30, y + 40))
    for r in (1, 2):
        stage.hazard(x + PIPE_WIDTH, row(r) + PIPE_WIDTH, x + PIPE_WIDTH + 60,
                     row(r) + PIPE_WIDTH + 10)
    stage.check_point(column(1) + 70, row(1) + 2, 60, 57)
    stage.arrow(720, row(1) + 30, "right")


def shot_left():
    """A jet; who doesn't brake shoots past the way down and into the drain."""
    stage.jet((column(2) + 80, row(2), 160, PIPE_WIDTH), (-1, 0), 380)
    stage.hum(column(2) + 160, row(2) + 30, 300, "pump")
    stage.arrow(460, row(2) + 30, "left")
    stage.check_point(column(1) + 70, row(3) + 2, 60, 57)


def riser():
    """Three jets, one above the other, dead until the wheel in the left has turned; then they
    start one after the other. In the top a drain for who leaves to the left."""
    wheel = crossing(0, 3)
    hand_wheel(0, 3, [])
    stage.arrow(column(0) + 160, row(3) + 30, "left")
    stage.arrow(720, row(3) + 30, "right")
    sound, gauges = stage.new_id(), stage.new_id()
    for i, r in enumerate((2, 1, 0)):
        x, y = column(4), row(r) + PIPE_WIDTH
        jet, spray = stage.new_id(), stage.new_id()
        stage.force(jet, (x + 30, y + 90), (0, -1), 36, name="riser")
        stage.trigger("Force_instantenous_a", (x, y - 20, PIPE_WIDTH, 222), target=jet,
                      name="riser")
        for level in (y + 30, y + 120):
            stage.emitter(spray, (x + 30, level), "fx\\jet.cfg", (0, -1), name="riser")
        stage.trigger("Entity_remove_1", STARTING, target=jet, name="off at first")
        stage.trigger("Emitter_stop_1", STARTING, target=spray, name="off at first")
        stage.trigger("Entity_add_1", wheel, target=jet, delay=0.4 + 0.7 * i, name="jet on")
        stage.trigger("Emitter_start_1", wheel, target=spray, delay=0.4 + 0.7 * i, name="jet on")
        stage.trigger("Entity_remove_1", POCKET, target=jet, name="jet off")
        stage.trigger("Emitter_stop_1", POCKET, target=spray, name="jet off")
        stage.object(x - 100, y + 70, animation("gauge"), layer=3, id=gauges, name="gauge")
    stage.object(column(0) + 130, row(3) + PIPE_WIDTH + 60, animation("gauge"), layer=3, id=gauges,
                 name="gauge")
    stage.trigger("Anim_play_loop_1", wheel, target=gauges, name="pressure")
    stage.trigger("Anim_stop_1", POCKET, target=gauges, name="pressure")
    stage.sound(sound, column(4) + 30, row(2), 520, "snd\\place_pump.wav", looping=True,
                name="riser")
    stage.trigger("Sound_play_1", wheel, target=sound, delay=0.4, name="riser")
    stage.trigger("Sound_stop_1", POCKET, target=sound, name="riser")
    x, y = column(3) + PIPE_WIDTH + 108, row(0)
    kill_end((x, y + 2, 40, 56), (x + 24, y + 40))
    stage.hazard(x + 40, y + PIPE_WIDTH, x + 92, y + PIPE_WIDTH + 10)
    stage.arrow(column(4) + 30, row(3) - 40, "up")
    stage.check_point(column(5) - 80, row(0) + 2, 60, 57)


def loop():
    """Down in the right; the wheel there closes that way, and opens the low pipe back to the
    riser, and the way down in the middle for the second round."""
    hand_wheel(6, 3, [wall_points(4, 3), lid_points(5, 0)], [lid_points(6, 0)])
    stage.check_point(column(5) + 90, row(3) + 2, 60, 57)
    stage.arrow(1500, 90, "right")
    stage.arrow(column(6) + 30, row(2) + 30, "down")
    stage.arrow(column(4) + 200, row(3) + 30, "left")


def last_wheel():
    """In a pocket beside the middle pipe; it stops the riser, too, which nobody needs any more."""
    hand_wheel(5, 1, [lid_points(5, 1), lid_points(5, 3)], area=POCKET)
    stage.arrow(column(5) + 30, row(1) - 50, "down")
    stage.arrow(column(5) + 30, row(2) + 60, "down")


def way_out():
    """First to the wheel in the right, which opens the way to the left."""
    hand_wheel(6, 4, [wall_points(4, 4)])
    stage.arrow(column(5) + 160, row(4) + 30, "right")
    stage.check_point(column(5) + 66, row(4) + 2, 60, 57)
    stage.jet((column(3) + 80, row(4), 160, PIPE_WIDTH), (-1, 0), 320)
    stage.arrow(720, row(4) + 30, "left")
    stage.finish(LEFT + 18, 1060, 224, 60)
    stage.lantern(200, 960)
    stage.mist(170, 1030)


def hall():
    """Lamps in the pipes, and what hangs on the plates."""
    for c, r in ((1, 2), (3, 1), (2, 4), (6, 1), (4, 4)):
        stage.lamp(column(c) + 30, row(r) + 30)
    for i, j, what in ((1, 1, "gauge"), (4, 0, "valve"), (0, 2, "valve"), (3, 2, "gauge"),
                       (1, 3, "valve"), (5, 2, "gauge"), (2, 0, "gear"), (4, 4, "gear")):
        stage.playing(column(i) + 160, row(j) + 130, what, layer=3)
    stage.steam_leak(column(2) + PIPE_WIDTH, row(0) + 150, (1, -0.4))
    stage.steam_leak(column(5) + 250, row(3) + 150, (1, -0.4))
    stage.drip(column(1) + 120, row(3))
    stage.hum(column(3), row(2), 900, "machine")


for part in (maze, first_wheel, gully, shot_left, riser, loop, last_wheel, way_out, hall):
    part()
stage.start(*START, camera=(170, 1000))
stage.save("09_pipes.tmj")
