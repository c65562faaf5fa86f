"""Draws levels/02_sluice.tmj: gates that the water opens itself. Run it in this folder.

Three floors: a reservoir whose plate lifts the first gate, and a hammer that comes down on the
spillway; a lock whose floor sinks under the water; a long race between a plate in the far left
and the gate in the right that it opens, but that closes again behind whoever dawdles.
"""

from kit import *

stage = Stage()


def mountain():
    stage.backdrop(WALL, -100, -100, 2100, 1500)
    stage.shell([(40, 60), (300, 40), (700, 64), (1100, 44), (1500, 70), (1960, 50),
                 (1930, 300), (1960, 500), (1960, 820), (1938, 1000), (1938, 1370), (1722, 1370),
                 (1722, 1364), (1640, 1364), (1540, 1184), (1300, 1184), (1300, 1180),
                 (1140, 1180), (1140, 1184), (800, 1184), (796, 1188), (564, 1188), (560, 1184),
                 (300, 1184), (300, 1180), (40, 1180), (40, 960), (40, 920), (40, 460), (40, 400)])
    stage.frame(-20, -10, 2010, 1440)


def reservoir():
    """Tilt left to the plate, then right through the gate it has lifted."""
    stage.solid([(40, 400), (120, 400), (200, 345), (420, 345), (460, 330), (600, 330),
                 (600, 460), (40, 460)], "stone", name="reservoir floor")
    stage.solid([(500, 64 - 12), (600, 58), (600, 230), (500, 230)], "stone", BRICK,
                name="gate house")
    plate = stage.plate(44, 400, 76)
    stage.gate((540, 230, 24, 100), (0, -96), plate, speed=50)
    stage.arrow(150, 290, "left")
    stage.arrow(640, 270, "right")
    stage.pipe([(80, 460), (80, 250), (500, 250)])
    stage.gauge(80, 250)
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
    stage.solid(box(1302, 820, 1320, 960), "stone", name="lock wall, right")
    stage.gate((1140, 780, 160, 20), (0, 300), (1150, 700, 140, 78), speed=70, delay=1.5)
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
    stage.solid(box(1506, 980, 1528, 1080), "metal", COPPER, id=gate, name="race gate")
    stage.mover(gate, middle, (1517, 934), 15, name="race gate")
    stage.trigger("Mover_goto_end_a", stage.plate(60, 1120, 150), target=gate, name="opens")
    stage.trigger("Mover_goto_start_a", (900, 980, 40, 100), target=gate, name="closes")
    stage.scenery(3, box(900, 1080, 940, 1088), RUST, name="closing line")
    stage.zoom((60, 1040, 150, 80))
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
                 (1722, 1270), (1722, 1364), (1640, 1364), (1540, 1184)], "stone", PAVING,
                name="cascade")
    stage.finish(1740, 1290, 180, 60)
    stage.thing(1900, 1100, "chain")
    stage.lantern(1600, 980)
    stage.arch(1640, 900, 150, 240)
    stage.mist(1760, 1240)


for part in (mountain, reservoir, spillway, landing_hall, lock, gear_room, race, cascade):
    part()
stage.start(320, 220, camera=(1800, 1240))
stage.save("02_sluice.tmj")
