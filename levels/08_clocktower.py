"""Draws levels/08_clocktower.tmj: the clock tower, from its foot up to the bell. Run it in this
folder.

Lifts that are called and sent off by the water, bobs that swing over gears, weights that come
down on the ledges, an escapement whose two rods go up by turns, a wave of hammers, and the bell:
all to one beat. What slips falls into the gears of its own floor and comes back on that floor.
"""

from kit import *

BEAT, LIFT = 55, 90  # units a second: of weights, of lifts
LEFT, RIGHT = 60, 1140  # the inside of the tower
# The floors, from the foot up to the belfry.
FOOT, FIRST, SECOND, THIRD, FOURTH, BELFRY = 1880, 1480, 1060, 640, 310, -190
STEP = 10  # from a ledge down to a bob, and from the bob down to the far ledge

stage = Stage()


def tower():
    stage.backdrop(PLANKING, -100, -700, 1300, 2160)
    stage.shell([(LEFT, -420), (600, -500), (RIGHT, -420), (RIGHT, 2020), (LEFT, 2020)])
    stage.frame(0, -540, 1200, 2080)
    for x, y, big in ((820, 860, True), (960, 780, False), (640, 1260, True), (480, 1330, False),
                      (380, 1730, True), (250, 1800, False), (900, 400, True), (1030, 330, False),
                      (300, 40, True), (430, -30, False)):
        stage.gear(x, y, big, layer=0)
    for y in (FIRST, SECOND, FOURTH):
        stage.beam(LEFT, RIGHT, y - 240, 26)
    for x, y in ((600, 1640), (560, 1180), (600, 760), (1000, 470), (520, -20), (860, -380)):
        stage.lamp(x, y)
    for y in (1300, 300):
        stage.hum(600, y, 800, "gears")


def wall_lift(left, low, high, call):
    """A lift of 140 that waits at the ledge at low, rises when water has come into the half of
    its deck beside the wall, waits at the ledge at high, and comes back when there is water
    in the area `call`. It runs in a groove of the wall, as nothing must get in beside it.
    Below it, gears."""
    id = stage.new_id()
    y = low + 10
    a, b = (left - 8, left + 142) if left == LEFT else (left - 2, left + 148)
    # The lower corner before the ledges is cut off, to push aside what lies on them.
    below = ([(b, y + 14), (b - 12, y + 26), (a, y + 26)] if left == LEFT else
             [(b, y + 26), (a + 12, y + 26), (a, y + 14)])
    stage.solid([(a, y), (left + 70, y + 14), (b, y)] + below, "metal", COPPER, id=id,
                name="lift")
    stage.mover(id, (left, y), (left, high), LIFT, name="lift")
    wall = left if left == LEFT else left + 90
    stage.trigger("Mover_goto_end_a", (wall, low - 20, 50, 40), target=id, delay=1.6,
                  name="lift rises")
    stage.trigger("Mover_goto_start_a", call, target=id, name="lift is called")
    stage.scenery(3, box(call[0], call[1] + call[3], call[0] + call[2], call[1] + call[3] + 8),
                  BRASS, name="call plate")
    stage.rail((left + 70, y + 14), (left + 70, high + 14), 140)
    gears(left, left + 140, low + 40)


def gears(left, right, y):
    """A pit whose gears grind up what falls in; y is the height of its teeth."""
    stage.kill((left + 2, y + 14, right - left - 4, 52))
    count = max(1, round((right - left) / 100))
    for i in range(count):
        x = left + (right - left) * (2 * i + 1) // (2 * count)
        stage.gear(x, y + 50)
        stage.object(x, y + 44, "img\\dangerGlow.png", layer=1, name="pit")


def floor(points, surface, pits, texture=None):
    """The whole floor of a storey with its pits, each (left, right, y of its edge)."""
    stage.solid(points, surface, texture, name="floor")
    for left, right, y in pits:
        gears(left, right, y + 30)
        stage.hazard(left - 32, y, left, y + 10)
        stage.hazard(right, y, right + 32, y + 10)


def hollow(left, right, y, depth=10):
    """Points of a dip in which water waits while the tilt is small."""
    return [(left, y), ((left + right) // 2, y + depth), (right, y)]


def bob(left, right, y, deck=150, speed=45):
    """A weight that swings from left to right and carries what stands on it; sackcloth on its
    deck brakes."""
    stage.carry([(left, y), (left + deck // 2, y + 14), (left + deck, y), (left + deck, y + 28),
                 (left, y + 28)], (right - left, 0), speed, surface="cloth")
    stage.rail((min(left, right), y + 60), (max(left, right) + deck, y + 60))


def weight(x, y, travel, speed=BEAT, width=64, delay=0.0):
    """Comes down to 4 above the floor at y."""
    height = 90
    stage.piston(x, y - 4 - travel - height, width, height, (0, travel), speed=speed, delay=delay)
    stage.hazard(x - 4, y, x + width + 4, y + 10)


def foot():
    stage.solid([(LEFT, 1840), (170, FOOT), (1000, FOOT), (1000, 2020), (LEFT, 2020)], "stone",
                PAVING, name="foot of the tower")
    wall_lift(1000, FOOT, FIRST, call=(620, FOOT - 24, 60, 24))
    stage.hazard(960, FOOT, 1000, FOOT + 10)
    stage.zoom((500, 1740, 120, 139))
    stage.arrow(820, 1800, "right")
    stage.arrow(1070, 1700, "up")
    stage.thing(110, 1830, "barrel")
    stage.thing(740, 1842, "crate")


def first_floor():
    """A bob over the gap, a weight before the lift."""
    y, low = FIRST, FIRST + 2 * STEP
    floor([(60, y + 130), (200, y + 130), (200, low)] + hollow(366, 426, low) +
          [(440, low), (440, y + 130), (706, y + 130), (706, y + 8), (700, y + 8), (700, y)] + hollow(742, 818, y) +
          [(908, y), (940, y + 12), (974, y + 12), (1000, y), (1000, y + 34), (716, y + 34),
           (716, y + 146), (424, y + 146), (424, low + 34), (216, low + 34), (216, y + 146),
           (60, y + 146)], "stone", [(440, 700, low)])
    bob(438, 548, y + STEP, 152)
    weight(290, low, 80)
    wall_lift(LEFT, low, SECOND, call=(380, low - 24, 40, 24))
    stage.check_point(910, y - 116, 80, 128)
    stage.arrow(860, y - 150, "left")
    stage.arrow(130, y - 150, "up")


def second_floor():
    """Two weights, then two bobs that meet over the middle."""
    y, low = SECOND, SECOND + 3 * STEP
    floor([(200, y), (226, y + 12), (260, y + 12), (292, y)] + hollow(364, 444, y, 12) +
          [(512, y), (540, y + 12), (572, y), (584, y), (584, y + 8), (578, y + 8), (578, y + 150),
           (964, y + 150), (964, low), (1000, low), (1000, y + 150), (1140, y + 150), (1140, y + 166), (568, y + 166),
           (568, y + 34), (200, y + 34)], "wood", [(584, 964, low)])
    weight(296, y, 80)
    weight(448, y, 100)
    bob(584, 634, y + STEP, 140, speed=30)
    bob(824, 774, y + 2 * STEP, 142, speed=30)
    wall_lift(1000, low, THIRD, call=(966, low - 24, 32, 24))
    stage.check_point(208, y - 116, 76, 128)
    stage.arrow(390, y - 150, "right")
    stage.arrow(1070, y - 150, "up")


def third_floor():
    """The great weight that shakes the tower, and a bob on the way to the escapement."""
    y, low = THIRD, THIRD + 2 * STEP
    floor([(60, y + 180), (356, y + 180), (356, low), (382, low + 12), (416, low + 12),
           (448, low), (460, low), (460, y + 130), (706, y + 130), (706, y + 8), (700, y + 8), (700, y),
           (712, y), (744, y + 12), (776, y), (908, y), (940, y + 12), (974, y + 12),
           (1000, y), (1000, y + 34), (716, y + 34), (716, y + 146), (444, y + 146), (444, low + 34), (372, low + 34), (372, y + 196),
           (60, y + 196)], "stone", [(460, 700, low)])
    weight(780, y, 110, speed=60, width=110)
    stage.shake((776, y - 70, 118, 68), again=True)
    bob(458, 548, y + STEP, 152)
    stage.check_point(910, y - 116, 80, 128)
    stage.arrow(940, y - 150, "left")
    clock = stage.clock_face(600, 470)
    stage.trigger("Anim_play_once_1", (460, y - 100, 240, 98), target=clock, name="an hour goes by")


def escapement():
    """Two rods, of which one sinks while the other rises: step over through the windows, from
    the right one to the left one and back, each time a little higher."""
    foot, stroke = THIRD + 2 * STEP, 180
    y = foot + 40  # the lowest step when it is down
    right, left = stage.new_id(), stage.new_id()
    for step in (y, y - 240):
        stage.solid([(214, step), (286, step + 14), (358, step), (358, step + 14),
                     (346, step + 26), (226, step + 26), (214, step + 14)], "cloth", COPPER,
                    id=right, name="step of the right rod")
    stage.solid([(52, y - 300), (130, y - 286), (202, y - 300), (202, y - 286),
                 (190, y - 274), (52, y - 274)], "cloth", COPPER,
                id=left, name="step of the left rod")
    stage.scenery(1, box(280, y - 470, 292, y + 20), IRON, id=right, name="right rod")
    stage.scenery(1, box(124, y - 650, 136, y - 280), IRON, id=left, name="left rod")
    for id, x, top, travel in ((right, 286, y - 230, -stroke), (left, 130, y - 286, stroke)):
        stage.mover(id, (x, top), (x, top + travel), 60, name="rod")
        stage.trigger("Mover_goto_end_loop_1", (366, foot - 112, 80, 124), target=id,
                      name="sets the rods going")
    # Sills are 30 above where one rod begins to sink and 30 below where the other does.
    for upper, lower in ((y - 150, y + 80), (y - 270, y - 220)):
        stage.solid([(200, upper + 2), (216, upper), (216, lower), (200, lower)], "wood", WOOD,
                    name="mast")
    stage.solid([(60, y - 560), (216, y - 560), (216, y - 340), (200, y - 340), (200, y - 544),
                 (60, y - 544)], "wood", WOOD, name="mast")
    gears(60, 356, THIRD + 110)
    stage.hazard(356, foot, 372, foot + 10)
    stage.check_point(366, foot - 116, 80, 128)
    stage.zoom((366, foot - 116, 80, 128))
    for x, up, way in ((290, 230, "up"), (130, 400, "right"), (244, 180, "left")):
        stage.arrow(x, y - up, way)


def fourth_floor():
    """Four hammers that strike one after the other: go with the wave, rest in the hollows."""
    y = FOURTH
    hollows = [point for x in (524, 652, 780) for point in hollow(x, x + 64, y)]
    floor([(356, y), (382, y + 12), (416, y + 12), (448, y)] + hollows +
          [(908, y), (940, y + 12), (974, y + 12), (1000, y), (1000, y + 110), (1140, y + 110),
           (1140, y + 126), (984, y + 126), (984, y + 36), (372, y + 36), (372, y + 250),
           (356, y + 250)], "stone", [], TILE)
    for i, x in enumerate((460, 588, 716, 844)):
        weight(x, y, 102, speed=75, delay=0.5 * i)
    wall_lift(1000, y, BELFRY, call=(950, y - 14, 40, 24))
    stage.check_point(366, y - 116, 80, 128)
    stage.arrow(420, y - 150, "right")
    stage.arrow(1070, y - 150, "up")


def belfry():
    """Water on the plate rings the bell, and the shutter before the finish goes up."""
    y = BELFRY
    stage.solid([(300, y + 30), (380, y), (500, y), (556, y + 28), (624, y + 28), (680, y),
                 (908, y), (940, y + 12), (974, y + 12), (1000, y), (1000, y + 34),
                 (700, y + 34), (640, y + 60), (540, y + 60), (300, y + 110)], "wood",
                name="belfry floor")
    rope = stage.plate(556, y + 28, 68)
    stage.thing(590, y - 236, "chain")
    bell = stage.new_id()
    stage.object(575, y - 130, "img\\bell.png", layer=1, id=bell, name="the bell")
    stage.mover(bell, (575, y - 130), (605, y - 130), 60, name="the bell swings")
    stage.trigger("Mover_goto_end_loop_1", rope, target=bell, name="the bell swings")
    stage.sound(bell, 590, y - 130, 900, "snd\\bell.wav", name="the bell")
    stage.trigger("Sound_play_1", rope, target=bell, name="the bell rings")
    stage.shake(rope, again=True)
    stage.sparks(590, y - 60, rope)
    stage.solid(box(420, -452, 440, y - 110), "stone", name="lintel")
    stage.gate((420, y - 112, 20, 114), (0, -104), rope, speed=50, delay=1.0)
    stage.check_point(910, y - 116, 80, 128)
    stage.finish(102, y + 30, 180, 60)
    stage.solid([(LEFT, y + 30), (84, y + 30), (84, y + 110), (LEFT, y + 110)], "metal",
                name="corbel")
    stage.arrow(800, y - 120, "left")
    stage.thing(220, y - 160, "window")
    stage.lantern(330, y - 100)


for part in (tower, foot, first_floor, second_floor, third_floor, escapement, fourth_floor,
             belfry):
    part()
stage.start(330, 1780, camera=(190, BELFRY - 30))
stage.save("08_clocktower.tmj")
