"""Draws levels/08_clocktower.tmj: the clock tower, from its foot up to the bells. Run it in this
folder.

Lifts along the walls, bobs that swing over the gaps, weights that come down on the ledges, all to
one beat. Who slips falls back a floor or two, but isn't lost.
"""

from kit import *

BEAT, LIFT = 70, 90  # units a second: of bobs and weights, of lifts
LEFT, RIGHT, FOOT = 60, 1140, 1880  # the inside of the tower

stage = Stage()


def tower():
    stage.backdrop(PLANKING, -100, -100, 1300, 2160)
    stage.shell([(LEFT, 80), (600, 40), (RIGHT, 80), (RIGHT, 2020), (LEFT, 2020)])
    stage.frame(0, 0, 1200, 2080)
    stage.clock_face(380, 700)
    for x, y, big in ((820, 860, True), (960, 780, False), (640, 1260, True), (480, 1330, False),
                      (380, 1660, True), (250, 1750, False), (540, 1640, False),
                      (880, 360, True), (1010, 290, False)):
        stage.gear(x, y, big, layer=0)
    for y in (620, 1040, 1460):
        stage.beam(LEFT, RIGHT, y + 60, 26)
    for y in (300, 720, 1180, 1600):
        stage.lamp(600, y)
    stage.hum(600, 900, 900, "gears")


def ledge(left, right, y, surface="stone", lift=None):
    """`lift` is the side, left or right, where one comes up: the ledge dips behind that edge,
    as what stands beside a lift goes down with it."""
    points = box(left, y, right, y + 34)
    if lift == "right":
        points[1:1] = [(right - 92, y), (right - 60, y + 12), (right - 26, y + 12)]
    if lift == "left":
        points[1:1] = [(left + 26, y + 12), (left + 60, y + 12), (left + 92, y)]
    stage.solid(points, surface, name="ledge")
    for x in (left + 12, right - 30):
        stage.scenery(1, [(x, y + 34), (x + 18, y + 34), (x + 18, y + 64), (x, y + 54)], BEAM,
                      name="bracket")


def wall_lift(left, low, high, deck, call):
    """A lift of 140 that waits below the ledge at low, rises when water has come into the area
    `deck`, waits at the ledge at high, and comes back when there is water in the area `call`."""
    id = stage.new_id()
    y = low + 10
    stage.solid([(left, y), (left + 70, y + 14), (left + 140, y), (left + 140, y + 26),
                 (left, y + 26)], "metal", COPPER, id=id, name="lift")
    stage.mover(id, (left, y), (left, high), LIFT, name="lift")
    stage.trigger("Mover_goto_end_a", deck, target=id, delay=0.9, name="lift rises")
    stage.trigger("Mover_goto_start_a", call, target=id, name="lift is called")
    x, bottom, width = call[0], call[1] + call[3], call[2]
    stage.scenery(3, box(x, bottom, x + width, bottom + 8), BRASS, name="call plate")
    stage.rail((left + 70, y + 14), (left + 70, high + 14), 140)


def bob(left, right, y):
    """A weight that swings from left to right and carries what stands on it."""
    stage.cradle(left, y, 120, (right, y), speed=BEAT, rails=False)
    stage.rail((min(left, right), y + 60), (max(left, right) + 120, y + 60))


def foot():
    stage.solid([(LEFT, 1840), (170, FOOT), (1000, FOOT), (1000, 2020), (LEFT, 2020)], "stone",
                PAVING, name="foot of the tower")
    wall_lift(1000, FOOT, 1480, deck=(1090, FOOT - 20, 50, 40), call=(200, FOOT - 24, 60, 24))
    stage.kill((1000, FOOT + 92, 140, 48))
    stage.scenery(3, box(1000, FOOT + 86, RIGHT, FOOT + 98), GRATE, name="grille")
    stage.object(1070, FOOT + 104, "img\\dangerGlow.png", layer=1)
    stage.hazard(960, FOOT, 1000, FOOT + 10)
    stage.zoom((500, 1740, 120, 139))
    stage.arrow(820, 1800, "right")
    stage.arrow(1070, 1700, "up")
    stage.thing(110, 1830, "barrel")
    stage.thing(740, 1842, "crate")


def first_floor():
    """A bob over the gap, a weight before the lift."""
    ledge(760, 1000, 1480, lift="right")
    bob(440, 640, 1480)
    ledge(200, 440, 1480, "wood", lift="left")
    stage.piston(290, 1330, 64, 80, (0, 66), speed=BEAT)
    stage.hazard(282, 1480, 362, 1490)
    wall_lift(LEFT, 1480, 1060, deck=(LEFT, 1460, 50, 40), call=(400, 1456, 40, 24))
    stage.check_point(860, 1350, 110, 128)
    stage.arrow(900, 1310, "left")
    stage.arrow(130, 1330, "up")


def second_floor():
    """Two weights, then two bobs that meet over the middle."""
    ledge(200, 520, 1060, lift="left")
    stage.piston(280, 900, 64, 90, (0, 68), speed=BEAT)
    stage.piston(420, 866, 64, 90, (0, 102), speed=BEAT)
    stage.hazard(272, 1060, 352, 1070)
    stage.hazard(412, 1060, 492, 1070)
    bob(520, 635, 1060)
    bob(880, 765, 1060)
    wall_lift(1000, 1060, 640, deck=(1090, 1040, 50, 40), call=(494, 1036, 26, 24))
    stage.check_point(206, 930, 70, 128)
    stage.zoom((206, 930, 70, 128))
    stage.arrow(370, 900, "right")
    stage.arrow(1070, 900, "up")


def third_floor():
    """The great weight, that shakes the tower, and the lift to the bells."""
    ledge(700, 1000, 640, "metal", lift="right")
    stage.piston(790, 460, 120, 110, (0, 68), speed=50)
    stage.shake((780, 572, 140, 66))
    stage.hazard(782, 640, 918, 650)
    wall_lift(560, 640, 300, deck=(560, 620, 60, 40), call=(966, 616, 34, 24))
    stage.check_point(926, 510, 70, 128)
    stage.arrow(960, 470, "left")
    stage.arrow(630, 480, "up")


def bells():
    stage.solid([(300, 330), (380, 300), (470, 300), (500, 310), (534, 310), (560, 300), (560, 334), (300, 410)], "cloth", SACK,
                name="belfry floor")
    stage.finish(102, 330, 180, 60)
    stage.solid([(LEFT, 330), (84, 330), (84, 410), (LEFT, 410)], "metal", name="corbel")
    stage.thing(460, 120, "chain")
    stage.thing(220, 140, "window")
    stage.lantern(330, 200)


for part in (tower, foot, first_floor, second_floor, third_floor, bells):
    part()
stage.start(330, 1780, camera=(190, 300))
stage.save("08_clocktower.tmj")
