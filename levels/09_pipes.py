"""Draws levels/09_pipes.tmj: a maze of pipes. Run it in this folder.

The pipes run between plates that stand in rows and columns. Jets shoot the water along, lids keep
it from falling, and hand wheels that it passes take lids away somewhere else:

    start, right to the first wheel, back to the hatch it opened, down; right and down again; the
    jet to the left, braked in time; right along the low pipe into the riser, up to the top; right
    to the second wheel, all the way down, through the hatch that wheel opened, left to the goal.
"""

from kit import *

PIPE_WIDTH = 60
COLUMNS, ROWS = 6, 5  # of plates
LEFT, TOP = 40, 60
RIGHT, BOTTOM = 1660, 1140

stage = Stage()


def column(c):
    """The left side of upright pipe c, 0 to COLUMNS."""
    return LEFT + 260 * c


def row(r):
    """The upper side of level pipe r, 0 to ROWS."""
    return TOP + 200 * r


def crossing(c, r):
    return column(c), row(r), PIPE_WIDTH, PIPE_WIDTH


def lid_points(c, r):
    """Closes upright pipe c below level pipe r, level with its floor."""
    x, y = column(c), row(r) + PIPE_WIDTH
    return box(x, y, x + PIPE_WIDTH, y + 18)


def lid(c, r):
    stage.solid(lid_points(c, r), "metal", name="lid")


def wall(c, r):
    """Closes level pipe r between the upright pipes c and c + 1."""
    x, y = column(c) + PIPE_WIDTH + 92, row(r)
    stage.solid(box(x, y, x + 16, y + PIPE_WIDTH), "metal", RUST, edge=False, name="closed")
    stage.thing(x + 8, y + 30, "valve_FRAME01", layer=3)


def hand_wheel(c, r, hatch):
    """At crossing (c, r); opens the lid at crossing `hatch` for good."""
    x, y, width, height = crossing(c, r)
    stage.vanishing(lid_points(*hatch), (x, y, width, height), texture=BRASS)
    stage.wheel(x + 30, y + 30)
    hx, hy, _, _ = crossing(*hatch)
    stage.thing(hx + 30, hy + 30, "arrow_down")


def maze():
    stage.backdrop(WALL, -100, -100, 1800, 1300)
    stage.shell([(LEFT, TOP), (RIGHT, TOP), (RIGHT, BOTTOM - 20), (300, BOTTOM - 20),
                 (300, BOTTOM), (LEFT, BOTTOM)])
    stage.frame(-20, 0, 1720, 1200)
    for j in range(ROWS):
        for i in range(COLUMNS):
            if (i, j) != (0, ROWS - 1):
                x, y = column(i) + PIPE_WIDTH, row(j) + PIPE_WIDTH
                stage.solid(box(x, y, x + 200, y + 140), "metal",
                            COPPER if (i + j) % 3 == 0 else METAL, name="plate")
    for c in range(1, COLUMNS):
        for r in range(1, ROWS):
            if (c + 2 * r) % 5 == 0:
                stage.lamp(column(c) + 30, row(r) + 30)


def first_wheel():
    for c in (0, 2, 3):
        lid(c, 0)
    wall(3, 0)
    hand_wheel(3, 0, hatch=(1, 0))
    stage.zoom((180, 62, 70, 56))
    stage.arrow(480, 90, "right")


def gully():
    """The second pipe: a drain in its left, the way on in its right."""
    for c in (1, 2):
        lid(c, 1)
    lid(0, 2)
    x, y = column(0), row(2)
    stage.kill((x, y + 10, PIPE_WIDTH, 50))
    stage.scenery(3, box(x, y + 40, x + PIPE_WIDTH, y + 54), GRATE, name="drain")
    stage.object(x + 30, y + 40, "img\\dangerGlow.png", layer=1)
    stage.playing(x + 30, y + 48, "drain")
    stage.hazard(x + PIPE_WIDTH, y + PIPE_WIDTH, x + PIPE_WIDTH + 60, y + PIPE_WIDTH + 10)
    stage.hazard(x + PIPE_WIDTH, row(1) + PIPE_WIDTH, x + PIPE_WIDTH + 60,
                 row(1) + PIPE_WIDTH + 10)
    wall(3, 1)
    stage.check_point(column(1) + 70, row(1) + 2, 60, 57)
    stage.arrow(720, row(1) + 30, "right")


def shot_left():
    """A jet; who doesn't brake shoots past the way down and into the drain."""
    lid(3, 2)
    lid(2, 2)
    wall(3, 2)
    stage.jet((column(2) + 80, row(2), 160, PIPE_WIDTH), (-1, 0), 380)
    stage.hum(column(2) + 160, row(2) + 30, 300, "pump")
    stage.arrow(460, row(2) + 30, "left")
    for c in (0, 1, 2, 3, 4, 6):
        lid(c, 3)
    stage.check_point(column(1) + 70, row(3) + 2, 60, 57)
    stage.arrow(720, row(3) + 30, "right")


def riser():
    """Three jets, one above the other, from the fourth pipe to the first."""
    for r in (0, 1, 2):
        x, y = column(4), row(r) + PIPE_WIDTH
        stage.jet((x, y - 20, PIPE_WIDTH, 222), (0, -1), 360)
    wall(4, 1)
    wall(4, 2)
    wall(4, 3)
    stage.hum(column(4) + 30, row(2), 400, "pump")
    stage.arrow(column(4) + 30, row(3) - 40, "up")


def second_wheel():
    lid(5, 0)
    hand_wheel(6, 0, hatch=(5, 3))
    wall(5, 1)
    wall(5, 2)
    stage.check_point(column(5) - 80, row(0) + 2, 60, 57)
    stage.check_point(column(5) + 90, row(3) + 2, 60, 57)
    stage.arrow(1500, 90, "right")
    stage.arrow(column(6) + 30, row(2) + 30, "down")


def way_out():
    for c in (1, 2, 3, 4, 5):
        lid(c, 4)
    wall(5, 4)
    stage.jet((column(3) + 80, row(4), 160, PIPE_WIDTH), (-1, 0), 320)
    stage.arrow(720, row(4) + 30, "left")
    stage.finish(LEFT + 18, 1060, 224, 60)
    stage.lantern(200, 960)
    stage.mist(170, 1030)


for part in (maze, first_wheel, gully, shot_left, riser, second_wheel, way_out):
    part()
stage.start(150, 84, camera=(170, 1000))
stage.save("09_pipes.tmj")
