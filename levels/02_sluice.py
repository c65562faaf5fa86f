"""Draws levels/02_sluice.tmj: gates that the water opens itself. Run it in this folder.

Five floors: a reservoir whose plate lifts the first gate, and a hammer that comes down on the
spillway; a lock whose floor sinks under the water; a long race between a plate in the far left
and the gate in the right that it opens, but that closes again behind whoever dawdles; a chain of
three locks, each with a slower or a restless gate, and a barge that the water sends off; a goal
under a hatch, which a plate behind the hill draws aside.
"""

from kit import *

stage = Stage()


def mountain():
    for area in ((30, 30, 1970, 1480), (30, 1480, 1160, 1560), (30, 1560, 830, 1960),
                 (830, 1630, 1430, 1900)):
        stage.backdrop(WALL, *area)
    stage.shell([(40, 60), (300, 40), (700, 64), (1100, 44), (1500, 70), (1960, 50),
                 (1930, 300), (1960, 500), (1960, 820), (1938, 1000), (1938, 1396), (1938, 1440),
                 (1400, 1760), (1420, 1832), (1420, 1876), (1100, 1890), (790, 1960), (630, 1960),
                 (300, 1890), (40, 1876), (40, 1806), (40, 1240), (40, 1180), (40, 960), (40, 920),
                 (40, 460), (40, 400)], margin=120)
    stage.solid([(40, 1180), (300, 1180), (300, 1184), (560, 1184), (564, 1188), (796, 1188),
                 (800, 1184), (1140, 1184), (1140, 1180), (1300, 1180), (1300, 1184),
                 (1540, 1184), (1610, 1310), (1490, 1250), (1450, 1236), (1320, 1252),
                 (1190, 1240), (1150, 1236), (1020, 1256), (870, 1240), (830, 1244), (660, 1262),
                 (404, 1240), (380, 1242), (220, 1258), (40, 1240)], "stone", ROCK, name="rock under the race")
    stage.solid([(1938, 1440), (1700, 1474), (1440, 1470), (1440, 1516), (1140, 1510),
                 (1140, 1556), (820, 1545), (820, 1600), (670, 1720), (230, 1720), (110, 1756),
                 (300, 1764), (560, 1748), (780, 1764), (880, 1690), (980, 1646),
                 (1180, 1636), (1360, 1654), (1400, 1760)],
                "stone", ROCK, name="rock under the locks")
    stage.frame(-20, -10, 2010, 1980)


def reservoir():
    """Tilt left to the plate, then right through the gate it has lifted."""
    stage.solid([(40, 400), (120, 400), (200, 345), (420, 345), (460, 330), (600, 330),
                 (600, 460), (40, 460)], "stone", name="reservoir floor")
    stage.solid([(500, 64 - 12), (600, 58), (600, 230), (500, 230)], "stone", BRICK,
                name="gate house")
    plate = stage.plate(44, 400, 76)
    stage.gate((540, 228, 24, 104), (0, -96), plate, speed=50, edge=False)
    stage.arrow(150, 290, "left")
    stage.arrow(640, 270, "right")
    stage.pipe([(80, 460), (80, 250), (500, 250)])
    stage.gauge(80, 250)
    for settings in ("splash", "jet"):
        stage.dries(566, 324, settings, plate, (1, -0.4))
    stage.drip(330, 60)
    stage.lamp(300, 130)


def spillway():
    """A metal slide; a hammer beats on its lower end."""
    stage.solid([(600, 330), (1000, 470), (1120, 500), (1120, 560), (600, 460)], "metal",
                name="spillway")
    stage.solid([(1120, 500), (1300, 500), (1400, 520), (1400, 560), (1120, 560)],
                "wood", name="landing")
    stage.solid([(1150, 52), (1270, 58), (1270, 200), (1150, 200)], "stone", BRICK,
                name="hammer house")
    stage.piston(1180, 290, 60, 110, (0, 98), speed=80)
    stage.hazard(1140, 500, 1280, 510)
    stage.lamp(1060, 300)
    stage.lamp(1340, 300)
    stage.wheel(880, 250)
    stage.arch(690, 120, 150, 220)
    stage.arch(920, 150, 150, 260)
    stage.shake((1240, 420, 60, 80))


def landing_hall():
    """The fall from the first floor; behind it the great wheels of the lock."""
    stage.solid([(1300, 780), (1400, 780), (1400, 820), (1300, 820)], "metal", name="lock sill")
    stage.solid([(1400, 780), (1450, 750), (1500, 780), (1500, 824), (1400, 824)], "wood",
                name="weir")
    stage.solid([(1500, 780), (1860, 765), (1960, 700), (1960, 820), (1534, 828), (1500, 828)], "stone",
                name="hall floor")
    stage.check_point(1600, 660, 160, 116)
    stage.gear(1700, 330, big=True)
    stage.gear(1810, 440)
    stage.post(1640, 330, 776)
    stage.thing(1560, 400, "chain")
    stage.mist(1640, 740)
    stage.drip(1850, 60)
    stage.arrow(1760, 640, "left")
    stage.lantern(1880, 600)


def lock():
    """The floor waits until there is water on it, then sinks with it to the lowest floor."""
    stage.solid(box(1122, 560, 1140, 920), "stone", name="lock wall, left")
    stage.solid(box(1122, 960, 1140, 1036), "stone", name="lock wall, left below")
    stage.solid(box(1302, 820, 1320, 1036), "stone", name="lock wall, right")
    stage.gate((1138, 780, 166, 22), (0, 300), (1150, 700, 140, 78), speed=70, delay=1.5)
    stage.rail((1220, 790), (1220, 1090), 150)
    stage.pipe([(1340, 600), (1340, 700)], layer=0)
    stage.gauge(1220, 640)
    stage.arrow(1220, 880, "down")


def gear_room():
    """Behind the lock's wall, closed to the water: what drives the gates."""
    stage.solid(box(40, 920, 1140, 960), "stone", name="gear room floor")
    for x, y, big in ((300, 760, True), (420, 650, False), (520, 740, True), (640, 850, False),
                      (860, 800, True), (980, 700, False)):
        stage.gear(x, y, big)
    stage.beam(60, 1120, 560)
    for x in (180, 700, 1040):
        stage.post(x, 582, 920)
    stage.lamp(420, 800)
    stage.lamp(760, 690)
    stage.thing(120, 896, "barrel")
    stage.thing(1080, 894, "crate")
    stage.hum(600, 760, 700, "gears")


def race():
    """The plate in the left opens the gate in the right; the line in between closes it."""
    stage.solid([(40, 1120), (220, 1120), (300, 1080), (300, 1180), (40, 1180)], "stone",
                name="plate floor")
    stage.solid([(300, 1080), (560, 1080), (560, 1184), (300, 1184)], "wood", name="race, wood")
    stage.solid([(560, 1080), (680, 1066), (800, 1080), (800, 1184), (796, 1188),
                 (564, 1188), (560, 1184)], "sand",
                name="race, sand")
    stage.solid([(800, 1080), (1140, 1080), (1140, 1184), (800, 1184)], "stone", PAVING,
                name="race, stone")
    stage.solid([(1140, 1100), (1300, 1100), (1300, 1180), (1140, 1180)], "stone",
                name="lock bottom")
    stage.solid([(1300, 1080), (1540, 1080), (1540, 1184), (1300, 1184)], "metal",
                name="race, metal")
    stage.solid(box(1500, 828, 1534, 980), "stone", BRICK, name="gate house")
    gate, middle = stage.new_id(), (1517, 1030)
    stage.solid(box(1506, 978, 1528, 1082), "metal", COPPER, id=gate, edge=False,
                name="race gate")
    stage.mover(gate, middle, (1517, 934), 15, name="race gate")
    stage.trigger("Mover_goto_end_a", stage.plate(60, 1120, 150), target=gate, name="opens")
    stage.trigger("Mover_goto_start_a", (900, 980, 40, 100), target=gate, name="closes")
    stage.scenery(3, box(900, 1080, 940, 1088), RUST, name="closing line")
    stage.check_point(1000, 970, 110, 110)
    stage.hum(1512, 1030, 300, "machine")
    stage.pipe([(80, 1100), (80, 1000), (1480, 1000)])
    stage.gauge(1410, 1000)
    stage.arrow(860, 1030, "left")
    stage.arrow(1420, 1040, "right")
    for x in (400, 700):
        stage.lamp(x, 1010)


def cascade():
    stage.solid([(1540, 1080), (1590, 1100), (1590, 1160), (1640, 1180), (1640, 1240),
                 (1722, 1270), (1722, 1304), (1610, 1310), (1540, 1184)], "stone", PAVING,
                name="cascade")
    stage.thing(1900, 1100, "chain")
    stage.lantern(1600, 980)
    stage.arch(1640, 900, 150, 240)
    stage.mist(1800, 1360)
    stage.arrow(1830, 1250, "down")


def gate_house(x, bottom):
    """Hangs from the rock above, over the gate at x."""
    left, right = {1460: (1236, 1250), 1160: (1236, 1240), 840: (1244, 1240)}[x]
    stage.solid([(x - 10, left), (x + 30, right), (x + 30, bottom), (x - 10, bottom)], "stone",
                BRICK, name="gate house")


def winched(x, top, bottom, plate, delay, speed):
    """A gate that a winch lifts in its own time; until then water squirts through its foot."""
    gate_house(x, top)
    travel = bottom - top - 6
    stage.gate((x, top - 2, 20, bottom - top + 4), (0, -travel), plate, speed=speed, delay=delay,
               edge=False)
    stage.winch(x + 60, top + 44, plate, delay, travel / speed)
    for settings in ("splash", "jet"):
        stage.dries(x - 2, bottom - 6, settings, plate, (-1, -0.6), delay=delay)


def locks():
    """Three chambers, one below the other. The first gate opens for whoever waits; the second
    plate lies behind, under the ledge; the third gate beats up and down."""
    stage.solid([(1938, 1396), (1700, 1430), (1366, 1430), (1366, 1440), (1440, 1440),
                 (1440, 1470), (1700, 1474), (1938, 1440)], "stone", name="first lock")
    stage.solid([(1440, 1470), (1140, 1470), (1140, 1510), (1440, 1516)], "wood",
                name="second lock")
    stage.solid([(1140, 1510), (820, 1510), (820, 1545), (1140, 1556)], "metal",
                name="third lock")
    stage.check_point(1740, 1300, 150, 116)
    winched(1460, 1334, 1430, stage.plate(1500, 1430, 90), 0.8, 24)
    winched(1160, 1374, 1470, stage.plate(1380, 1470, 60), 0.4, 15)
    gate_house(840, 1414)
    gate = stage.new_id()
    stage.solid(box(840, 1412, 860, 1512), "metal", COPPER, id=gate, edge=False,
                name="third gate")
    stage.hazard(840, 1500, 860, 1510, id=gate)
    stage.mover(gate, (850, 1460), (850, 1366), 45, name="third gate")
    stage.trigger("Mover_goto_end_loop_1", stage.plate(950, 1510, 90), target=gate, delay=0.5,
                  name="begins to beat")
    stage.hum(850, 1460, 360, "machine")
    for x, y in ((1580, 1330), (1330, 1330), (890, 1330)):
        stage.lamp(x, y)
    for x, y in ((1400, 1330), (1090, 1370)):
        stage.thing(x, y, "window", layer=0)
    stage.arch(1270, 1290, 120, 180)
    stage.gear(1270, 1330)
    stage.gear(960, 1390, big=True)
    stage.pipe([(1648, 1330), (1648, 1420)])
    stage.gauge(1648, 1330)
    stage.valve(1080, 1290)
    stage.arrow(1700, 1360, "left")
    stage.arrow(1330, 1420, "right")
    stage.arrow(1096, 1460, "left")
    stage.drip(1020, 1256)
    stage.moss([(1190, 1240), (1320, 1252), (1450, 1236)])
    stage.moss([(870, 1240), (1020, 1256), (1150, 1236)])


def ferry():
    """A barge that the water sends off over the pit; it comes back for whoever calls it, and so
    waits until all are on board."""
    stage.solid([(820, 1545), (806, 1557), (714, 1557), (684, 1545), (670, 1545), (670, 1720),
                 (820, 1600)], "wood", name="jetty")
    stage.solid([(230, 1548), (110, 1562), (110, 1756), (230, 1720)], "stone", BRICK,
                name="far jetty")
    stage.solid([(380, 1242), (404, 1240), (404, 1508), (380, 1508)], "stone", BRICK,
                name="pier that none leaps over")
    stage.check_point(712, 1450, 96, 106)
    stage.lost(230, 670, 1660, 60, [(670, 1548, 684, 1620), (216, 1552, 230, 1620)])
    x, y, id = 540, 1545, stage.new_id()
    stage.solid([(x, y - 20), (x + 8, y - 20), (x + 46, y + 14), (x + 108, y + 14), (x + 122, y),
                 (x + 130, y), (x + 106, y + 30), (x + 24, y + 30)], "metal", COPPER, id=id,
                name="barge")
    stage.rail((x + 65, y + 14), (x - 245, y + 14))
    stage.mover(id, (x, y), (x - 310, y), 40, name="barge")
    stage.trigger("Mover_goto_end_a", (x + 90, y - 30, 30, 44), target=id, name="sends off")
    stage.plate(716, 1557, 88)
    stage.trigger("Mover_goto_start_a", (676, 1518, 130, 39), target=id, name="calls")
    stage.hum(450, 1560, 420, "machine")
    for at in (250, 560):
        stage.post(at, 1268, 1660)
        stage.brace(at + 22, 1350, 60, 18)
        stage.brace(at, 1350, -60, 18)
    stage.beam(60, 812, 1330)
    stage.gear(490, 1410, big=True)
    stage.gear(310, 1400)
    stage.arch(620, 1400, 130, 240)
    stage.thing(700, 1420, "window", layer=0)
    stage.pipe([(176, 1260), (176, 1460), (80, 1460)])
    stage.wheel(176, 1400)
    for at in (640, 200):
        stage.lamp(at, 1490)
    stage.arrow(790, 1480, "left")
    stage.arrow(76, 1600, "down")
    stage.drip(480, 1247)
    stage.moss([(220, 1258), (380, 1242)])
    stage.moss([(404, 1240), (660, 1262)])


def goal():
    """The hatch over the goal is passed, the plate behind the hill is pressed, and then back."""
    stage.solid([(40, 1806), (160, 1826), (400, 1838), (600, 1840), (636, 1862), (630, 1900),
                 (630, 1960), (300, 1890), (40, 1876)], "stone", PAVING, name="floor, left")
    stage.solid([(1420, 1832), (1290, 1832), (1190, 1802), (1080, 1806), (960, 1824),
                 (820, 1840), (784, 1862), (790, 1900), (790, 1960), (1100, 1890),
                 (1420, 1876)], "stone", PAVING, name="floor, right")
    stage.solid([(630, 1900), (660, 1938), (760, 1938), (790, 1900), (790, 1960), (630, 1960)],
                "metal", BRASS, name="finish basin")
    stage.finish(630, 1890, 160, 50, basin=False)
    hatch, plate = stage.new_id(), stage.plate(1310, 1832, 96)
    stage.solid(box(626, 1862, 794, 1876), "metal", COPPER, id=hatch, name="hatch")
    stage.mover(hatch, (710, 1869), (870, 1869), 25, name="hatch")
    stage.trigger("Mover_goto_end_1", plate, target=hatch, delay=0.5, name="hatch opens")
    stage.winch(1240, 1768, plate, 0.5, 6.4, "gears", 900)
    stage.spout(1368, 1738, plate, (0, 1), settings="splash")
    stage.pipe([(1040, 1650), (1040, 1720), (1360, 1720)])
    stage.gauge(1168, 1712)
    stage.gear(960, 1750)
    stage.thing(1270, 1700, "window", layer=0)
    stage.moss([(980, 1646), (1180, 1636), (1360, 1654)])
    stage.check_point(150, 1740, 120, 84)
    stage.thing(880, 1806, "barrel")
    for x, y in ((420, 1796), (900, 1750), (1350, 1770)):
        stage.lamp(x, y)
    stage.arrow(520, 1790, "right")
    stage.arrow(1130, 1766, "right")


for part in (mountain, reservoir, spillway, landing_hall, lock, gear_room, race, cascade, locks,
             ferry, goal):
    part()
stage.start(320, 220, camera=(710, 1800))
stage.save("02_sluice.tmj")
