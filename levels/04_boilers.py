"""Draws levels/04_boilers.tmj: the boiler house. Run it in this folder.

Fire turns the water to steam, and steam falls upwards: ceilings are its floors, and it goes
against the tilt. Two boilers in the left half lift the water to a hall below the roof, where an
open flue must be passed as water; a third one lifts it over the wall of the cooling tower.
From there it drops to the ash cellar, where a pipe bursts: its jet bars the way until steam,
led through the left one of a chimney's two mouths, reaches the valve above; the cold room there
drips through its grating behind the jet. Then it goes over a trench of embers once more as
steam, and boils in the great kettle at the lower left. The last way is the ladder: shelves to
and fro that the steam climbs, over a fire on every landing, into the tank below the start.
"""

from kit import *

stage = Stage()

# The hollow, in chains from left to right or from top to bottom. Masonry and copper that stand
# in it take over some of its sides.
BOILER_1 = [(420, 950), (450, 990), (480, 1004), (600, 1004), (630, 990), (650, 950)]
BOILER_1_BACK = [(406, 964), (440, 1008), (474, 1024), (606, 1024), (642, 1006), (670, 950)]
BOILER_2 = [(1030, 800), (1060, 830), (1090, 844), (1190, 844), (1220, 830), (1244, 790)]
BOILER_2_BACK = [(1016, 812), (1050, 846), (1084, 864), (1196, 864), (1232, 846), (1264, 790)]
BOILER_3 = [(1530, 520), (1546, 548), (1570, 558), (1640, 558), (1670, 548), (1690, 516)]
BOILER_3_BACK = [(1512, 530), (1534, 562), (1564, 576), (1646, 576), (1682, 562), (1710, 516)]
BOILER_4 = [(1796, 1246), (1780, 1276), (1750, 1290), (1690, 1290), (1660, 1276), (1644, 1247)]
BOILER_4_BACK = [(1814, 1244), (1796, 1288), (1756, 1308), (1684, 1308), (1644, 1288), (1626, 1247)]
KETTLE = [(900, 1256), (866, 1330), (800, 1372), (720, 1386), (600, 1380), (530, 1350), (500, 1290)]
KETTLE_BACK = [(918, 1262), (884, 1344), (808, 1392), (720, 1406), (594, 1400), (514, 1364),
               (480, 1292)]
LADDER_FLOOR = [(480, 1292), (300, 1266), (70, 1240)]
LADDER_RIGHT = [(560, 1090), (400, 1066), (302, 1056), (298, 664)]
TANK_ROOF = [(298, 664), (240, 632), (120, 628), (74, 654)]

START_ROOM_ROOF = [(80, 300), (200, 282), (330, 300), (400, 350)]
SHAFT_LEFT = [(80, 470), (180, 500), (330, 570), (330, 860), (352, 912), BOILER_1[0]]
BLOCK_1 = [(400, 350), (400, 870), (414, 890), (446, 888), (560, 824), (560, 540), (580, 494),
           (640, 460)]
CONDENSER_1_ROOF = [(640, 460), (720, 430), (840, 430), (880, 462)]
BLOCK_2 = [(880, 462), (890, 520), (950, 536), (1000, 600), (1010, 690), (1034, 696),
           (1120, 634), (1120, 430), (1094, 404), (1100, 352), (1140, 325)]
HALL_ROOF = [(1140, 325), (1180, 325), (1290, 318), (1320, 298), (1396, 298), (1410, 332),
             (1424, 332), (1424, 120), (1484, 120)]
BLOCK_3 = [(1484, 120), (1484, 332), (1500, 338), (1524, 322), (1640, 270), (1640, 130),
           (1670, 90)]
TOWER_ROOF = [(1670, 90), (1740, 66), (1840, 58), (1960, 70), (2030, 110)]

WALL_1 = [(650, 950), (650, 880), (616, 820), (616, 584), (624, 574), (638, 580), (650, 596),
          (668, 599), (674, 660), (710, 660), (716, 607), (900, 636), (960, 664),
          (990, 740), (1030, 800)]
WALL_2 = [(1244, 790), (1244, 720), (1180, 640), (1180, 425), (1200, 421), (1250, 449),
          (1256, 512), (1294, 512), (1300, 467), (1320, 474), (1530, 520)]
WALL_3 = [(1690, 516), (1700, 470), (1700, 196), (1712, 186), (1730, 200), (1784, 214),
          (1800, 240)]
TWO_MOUTHS = [(1800, 850), (1738, 900), (1720, 830), (1650, 806), (1520, 796), (1440, 804),
              (1424, 830), (1424, 1100)]
COLD_FLOOR = [(1690, 876), (1690, 1064), (1600, 1074), (1504, 1092), (1504, 930), (1660, 898),
              (1676, 880)]
CELLAR_ROOF = [(1424, 1100), (1240, 1100), (1200, 1052), (1080, 1036), (980, 1048), (900, 1046),
               (870, 1100), (820, 1114), (560, 1090)]
CELLAR_FLOOR = [(2030, 1180), (2000, 1226), (1900, 1238)] + BOILER_4_BACK + [
    (1604, 1244), (1580, 1240), (1574, 1336), (1522, 1336), (1516, 1258), (1440, 1264),
    (1318, 1260), (1204, 1262), (1184, 1336), (984, 1336), (960, 1244), (900, 1256)]


def hollow():
    """Rock all round, and the inner walls of masonry."""
    stage.shell(START_ROOM_ROOF[:-1] + [BLOCK_1[0], BLOCK_1[-1]] + CONDENSER_1_ROOF[1:-1] +
                [BLOCK_2[0], BLOCK_2[-1]] + HALL_ROOF[1:-1] + [BLOCK_3[0], BLOCK_3[-1]] +
                TOWER_ROOF[1:] + CELLAR_FLOOR + KETTLE_BACK + LADDER_FLOOR[1:] +
                [TANK_ROOF[-1], SHAFT_LEFT[0]], margin=100)
    stage.solid(SHAFT_LEFT + BOILER_1_BACK[:3] + LADDER_RIGHT + TANK_ROOF[1:], "stone", STONE,
                name="between ladder and shaft")
    stage.solid(BLOCK_1, "stone", BRICK, name="between shaft and first chimney")
    stage.solid(BLOCK_2, "stone", BRICK, name="before the second chimney")
    stage.solid(BLOCK_3, "stone", BRICK, name="before the third chimney")
    stage.solid(BOILER_1_BACK[2:] + WALL_1 + BOILER_2_BACK[:3] + CELLAR_ROOF[2:], "stone", STONE,
                name="below the condenser")
    stage.solid(BOILER_2_BACK[2:] + WALL_2 + BOILER_3_BACK + WALL_3 + TWO_MOUTHS + CELLAR_ROOF[1:3],
                "stone", STONE, name="below the hall")
    stage.solid(COLD_FLOOR, "stone", STONE, name="below the cold room")
    stage.solid(box(1750, 940, 1800, 1060), "stone", STONE, name="between chimney and tower")


def fire(x, y, area):
    """A furnace without a glow on the wall: where another one lights the room."""
    stage.trigger("To_steam_a", area, name="furnace")
    stage.playing(x, y, "furnace")
    stage.hum(x, y, 420, "furnace")


def boilers():
    for inner, back, name in ((BOILER_1, BOILER_1_BACK, "first boiler"),
                              (BOILER_2, BOILER_2_BACK, "second boiler"),
                              (BOILER_3, BOILER_3_BACK, "third boiler"),
                              (BOILER_4, BOILER_4_BACK, "fourth boiler")):
        stage.solid(inner + back[::-1], "metal", COPPER, name=name)
    stage.solid(KETTLE + KETTLE_BACK[::-1], "metal", COPPER, name="kettle")
    fire(700, 1330, (510, 1180, 380, 206))
    stage.furnace(540, 960, (410, 880, 240, 124))
    stage.furnace(1140, 800, (1010, 720, 240, 124))
    stage.furnace(1610, 512, (1520, 440, 180, 118))
    fire(1720, 1246, (1650, 1090, 140, 200))


def hall():
    """The bell at the top of the second chimney opens the hall when steam presses into it."""
    stage.gate((1183, 327, 12, 100), (0, -98), (1096, 330, 84, 50), speed=90)
    stage.shake((1096, 330, 84, 50), delay=1.0)
    stage.trigger("To_steam_a", (1094, 326, 86, 110), name="hot bell")
    stage.warmer((1290, 300, 120, 70), lamp=False)
    stage.drain(1252, 454, 46, 58)
    stage.kill((1424, 130, 60, 90))


def damper(x, y, width):
    """A plate that slides to and fro across a chimney; shut, it leaves a gap of 12 at the left,
    so that it holds steam up but crushes none, and reaches into the wall at the right, so that
    none is pressed into the crack."""
    id = stage.carry(box(x, y, x + width + 14, y + 12), (width + 4, 0), 46, texture=RUST)
    stage.hazard(x, y, x + 14, y + 12, id=id)


def tower():
    """Slats to and fro; the first is a tray in which the water can gather."""
    stage.solid([(1802, 340), (1818, 340), (1936, 384), (1950, 366), (1962, 370), (1944, 404),
                 (1802, 358)], "wood", name="tray")
    for y in (660, 980):
        stage.solid([(1802, y), (1818, y), (1950, y + 56), (1950, y + 72), (1802, y + 18)],
                    "wood", name="slat")
        stage.solid([(2028, y - 160), (2028, y - 142), (1880, y - 88), (1880, y - 104),
                     (2012, y - 160)], "wood", name="slat")


def leak():
    """A pipe in the cellar bursts as water comes down the tower, and its steam throws back all
    that passes, into the drain. In the cold room above the valve waits that shuts it off."""
    jet, hiss, spray, valve = (stage.new_id() for _ in range(4))
    stage.force(jet, (1400, 1180), (1, -0.3), 30, name="leak")
    stage.trigger("Force_instantenous_a", (1392, 1100, 118, 166), target=jet, name="leak")
    for y in (1196, 1206):
        stage.emitter(spray, (1400, y), "fx\\wind.cfg", (1, -0.1), name="leak")
    stage.emitter(spray, (1400, 1200), "fx\\steam.cfg", (1, 0), name="leak")
    stage.sound(hiss, 1430, 1190, 520, "snd\\place_wind.wav", looping=True, name="leak")
    stage.trigger("Emitter_stop_1", (130, 340, 80, 80), target=spray, name="whole at first")
    begins, ends = (1802, 820, 226, 300), (1426, 798, 130, 142)
    for kind, target in (("Entity_add_1", jet), ("Emitter_start_1", spray),
                         ("Sound_play_1", hiss), ("Camera_shake_1", 0)):
        stage.trigger(kind, begins, target=target, name="pipe bursts")
    for kind, target in (("Entity_remove_1", jet), ("Emitter_stop_1", spray),
                         ("Sound_stop_1", hiss), ("Anim_play_once_1", valve)):
        stage.trigger(kind, ends, target=target, name="valve shuts")
    stage.object(1456, 848, animation("valve"), layer=1, id=valve, name="valve")


def cold_room():
    """Steam that comes in at the right turns to water and drips through the grating."""
    stage.warmer((1426, 796, 150, 110), lamp=False)
    for x in (1443, 1472):
        stage.solid(box(x, 930, x + 12, 942), "metal", METAL, name="grating")
    stage.object(1500, 856, "img\\coldGlow.png", layer=1, name="cold")
    stage.drip(1465, 950)


def cellar():
    """A drain, then the trench: over its embers the water turns to steam and must be led left
    below the roof, with the tilt to the right."""
    stage.drain(1516, 1258, 64, 72)
    fire(1084, 1292, (984, 1044, 200, 292))
    stage.steam_leak(984, 1330)


def ways():
    """Cold places, check points, views ahead, and the end."""
    stage.warmer((690, 430, 190, 190), lamp=False)
    stage.drain(670, 600, 44, 60)
    stage.warmer((1790, 60, 200, 140), lamp=False)
    stage.warmer((870, 1046, 90, 150), lamp=False)
    stage.check_point(900, 556, 56, 84)
    stage.check_point(1420, 400, 70, 92)
    stage.check_point(1850, 1156, 60, 84)
    stage.check_point(904, 1160, 56, 84)
    stage.warmer((76, 634, 220, 70), lamp=False)
    stage.trigger("Level_end_a", (164, 690, 132, 52), name="finish")
    stage.object(228, 712, "img\\goalGlow.png", layer=0, name="finish")
    stage.playing(130, 700, "finishSign")


def ladder():
    """Shelves that steam climbs, each lower at its free end; the last one is the tank."""
    stage.solid([(296, 956), (296, 978), (164, 1002), (152, 992), (162, 976)], "metal", COPPER,
                name="shelf")
    stage.solid([(74, 846), (208, 866), (218, 880), (206, 892), (74, 868)], "metal", COPPER,
                name="shelf")
    stage.solid([(150, 712), (162, 708), (178, 742), (282, 742), (295, 716), (296, 762),
                 (164, 786), (152, 774)], "metal", BRASS, name="tank")
    fire(446, 1220, (380, 1060, 140, 220))
    fire(150, 1200, (74, 1004, 222, 250))
    fire(188, 922, (74, 870, 222, 86))
    stage.trigger("To_steam_a", (74, 772, 222, 96), name="hot landing")
    stage.object(230, 820, "img\\fireGlow.png", layer=0, name="hot landing")


def casings():
    """Copper and iron round boilers and chimneys, laid on the masonry."""
    for jacket in ([(414, 890), (446, 888), (560, 824), (560, 800), (440, 868), (414, 868)],
                   [(650, 950), (650, 880), (616, 820), (616, 796), (636, 814), (670, 874),
                    (670, 950)],
                   [(1010, 690), (1034, 696), (1120, 634), (1120, 610), (1032, 674), (1010, 668)],
                   [(1244, 790), (1244, 720), (1180, 640), (1180, 616), (1196, 626), (1264, 712),
                    (1264, 790)],
                   [(1690, 516), (1700, 470), (1700, 430), (1720, 430), (1720, 470), (1710, 516)]):
        stage.scenery(3, jacket, COPPER, name="jacket")
    for pipe in (box(546, 560, 560, 800), box(616, 600, 630, 796), box(1106, 440, 1120, 610),
                 box(1180, 440, 1194, 616), box(1626, 140, 1640, 270), box(1700, 210, 1714, 430),
                 box(1676, 894, 1690, 1060), box(1750, 946, 1764, 1060)):
        stage.scenery(3, pipe, METAL, name="chimney casing")
    for band in ((540, 690, 566, 704), (610, 690, 636, 704), (1100, 520, 1126, 534),
                 (1174, 520, 1200, 534), (1620, 200, 1646, 214), (1694, 320, 1720, 334),
                 (1670, 980, 1696, 994), (1744, 980, 1770, 994)):
        stage.scenery(3, box(*band), BRASS, name="band")


def coil(left, right, top, rows):
    """Cold pipes to and fro behind the water, where steam condenses."""
    points = []
    for row in range(rows):
        ends = [(left, top + 64 * row), (right, top + 64 * row)]
        points += ends if row % 2 == 0 else ends[::-1]
    stage.pipe(points)
    stage.object((left + right) // 2, top + 32, "img\\coldGlow.png", layer=1, name="cold")
    stage.drip((left + right) // 2 + 30, top + 40)


def flue():
    """The open chimney in the roof of the hall; steam that gets in is gone."""
    stage.scenery(1, box(1424, 120, 1484, 332), DARK, name="flue")
    stage.object(1454, 170, "img\\dangerGlow.png", layer=1, name="flue")
    stage.playing(1454, 150, "fan")
    stage.scenery(3, box(1424, 224, 1484, 236), GRATE, name="flue")
    stage.hazard(1410, 322, 1424, 334)
    stage.hazard(1484, 322, 1498, 336)
    stage.hazard(1414, 240, 1424, 322)
    stage.hazard(1484, 240, 1494, 322)
    stage.hum(1454, 200, 320, "fan")


def far_walls():
    """Layer 0: what is seen through the hollow."""
    stage.backdrop(BRICKWALL, 50, 40, 2050, 1406)
    for x, y in ((130, 310), (690, 440), (1240, 330), (1870, 110), (740, 1140), (1220, 1110)):
        stage.arch(x, y, 110, 150)
    for x, y in ((185, 390), (1925, 190), (795, 1220)):
        stage.thing(x, y, "window", layer=0)
    for x, y, depth in ((330, 570, 290), (560, 540, 270), (1120, 430, 200), (1640, 130, 140)):
        stage.scenery(0, box(x, y, x + 70, y + depth), DARK, name="shaft")


def pipes():
    stage.pipe([(112, 300), (112, 470)])
    stage.pipe([(1872, 240), (1872, 1060)])
    stage.pipe([(1260, 330), (1260, 440)])
    stage.pipe([(590, 1130), (590, 1200), (840, 1200), (840, 1100)])
    stage.pipe([(112, 656), (272, 656)])
    stage.pipe([(1392, 848), (1392, 1104)], layer=3)
    stage.pipe([(1392, 1110), (1392, 1200)])
    stage.pipe([(1392, 848), (1456, 848)])
    stage.pipe([(700, 720), (700, 900), (912, 900), (912, 976)], layer=3)
    stage.pipe([(1330, 600), (1330, 752), (1648, 752), (1648, 680)], layer=3)
    coil(656, 848, 470, 2)
    coil(1800, 1960, 112, 2)
    stage.pipe([(1328, 336), (1392, 336)])
    stage.object(1360, 340, "img\\coldGlow.png", layer=1, name="cold")
    stage.drip(1366, 320)
    stage.pipe([(880, 1080), (944, 1080)])


def machines():
    for x, y in ((700, 720), (912, 976), (1330, 600), (1648, 680)):
        stage.playing(x, y, "gauge", layer=3)
    for x, y in ((700, 860), (1490, 752)):
        stage.playing(x, y, "valve", layer=3)
    stage.gauge(1260, 372)
    stage.gauge(590, 1150)
    stage.wheel(1872, 640)
    stage.gear(1140, 1176)
    stage.playing(1872, 340, "valve")


def lights():
    for x, y in ((230, 360), (1690, 150), (1960, 800), (1850, 1110)):
        stage.lamp(x, y)


def life():
    stage.steam_leak(640, 700, (1, -0.4))
    stage.sparks(700, 1370, (520, 1240, 360, 140))
    stage.sparks(540, 990, (420, 900, 220, 104))
    stage.sparks(1140, 826, (1020, 740, 220, 104))
    stage.sparks(1610, 540, (1530, 470, 160, 88))
    stage.sparks(1084, 1320, (984, 1200, 200, 136))
    stage.thing(1950, 1196, "crate")
    stage.thing(1270, 1226, "barrel")
    stage.thing(120, 452, "crate")
    stage.thing(1780, 190, "chain", layer=0)
    stage.thing(1380, 1140, "chain")
    stage.thing(370, 700, "ladder")
    stage.thing(370, 820, "ladder")


def signs():
    """Arrows where the way turns; up means as steam."""
    stage.arrow(250, 440, "right")
    stage.arrow(520, 880, "up")
    stage.arrow(860, 560, "right")
    stage.arrow(1100, 720, "up")
    stage.arrow(1376, 420, "right")
    stage.arrow(1600, 400, "up")
    stage.arrow(1940, 1140, "left")
    stage.arrow(1720, 1130, "up")
    stage.arrow(1640, 850, "left")
    stage.arrow(1465, 1060, "down")
    stage.arrow(1084, 1180, "up")
    stage.arrow(930, 1130, "left")
    stage.arrow(600, 1240, "left")
    stage.arrow(110, 1060, "up")
    stage.arrow(256, 910, "up")
    stage.arrow(110, 810, "up")


def foreground():
    """Dark rock before the mountain, some way from the hollow."""
    stage.foreground([(-900, -900), (2900, -900), (2900, 20), (2040, 10), (1900, -14), (1700, 6),
                      (1600, 44), (1500, 60), (1400, 62), (1350, 190), (1240, 254), (1100, 258),
                      (970, 330), (860, 376), (760, 372), (640, 400), (520, 366), (430, 290),
                      (330, 240), (200, 226), (60, 250), (-900, 260)])
    stage.foreground([(-900, 260), (60, 250), (36, 380), (30, 640), (22, 900), (34, 1100),
                      (20, 1240), (80, 1300), (300, 1330), (440, 1360), (480, 1400), (560, 1446),
                      (700, 1456), (-900, 1456)])
    stage.foreground([(-900, 1456), (700, 1456), (900, 1396), (960, 1404), (1200, 1392),
                      (1480, 1400), (1620, 1380), (1700, 1314), (1950, 1300), (2060, 1264),
                      (2900, 1264), (2900, 2200), (-900, 2200)])
    stage.foreground([(2900, 20), (2040, 10), (2084, 100), (2072, 400), (2090, 700), (2074, 1000),
                      (2088, 1180), (2060, 1264), (2900, 1264)])
    stage.surround(-880, -880, 2880, 2180)


far_walls()
pipes()
casings()
boilers()
hollow()
damper(1132, 560, 46)
hall()
flue()
tower()
leak()
cold_room()
cellar()
ladder()
ways()
machines()
lights()
life()
signs()
foreground()
stage.start(170, 380, camera=(1500, 1000))
stage.save("04_boilers.tmj")
