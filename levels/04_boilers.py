"""Draws levels/04_boilers.tmj: the boiler house. Run it in this folder.

Fire turns the water to steam, and steam falls upwards: ceilings are its floors, and it goes
against the tilt. Two boilers in the left half lift the water to a hall below the roof, where an
open flue must be passed as water; a third one lifts it over the wall of the cooling tower.
From there it drops to the ash cellar, goes over a trench of embers once more as steam, and
ends in the pond at the lower left.
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
POND = [(900, 1256), (866, 1330), (800, 1372), (720, 1386), (600, 1380), (530, 1350), (500, 1290)]
POND_BACK = [(918, 1262), (884, 1344), (808, 1392), (720, 1406), (594, 1400), (516, 1364),
             (480, 1290)]

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
          (900, 636), (960, 664), (990, 740), (1030, 800)]
WALL_2 = [(1244, 790), (1244, 720), (1180, 640), (1180, 425), (1200, 421), (1240, 446),
          (1320, 474), (1530, 520)]
WALL_3 = [(1690, 516), (1700, 470), (1700, 196), (1712, 186), (1730, 200), (1784, 214),
          (1800, 240), (1800, 1060)]
CELLAR_ROOF = [(1800, 1060), (1600, 1068), (1400, 1104), (1240, 1100), (1200, 1052),
               (1080, 1036), (980, 1048), (900, 1046), (870, 1100), (800, 1124), (560, 1130),
               (480, 1180)]
CELLAR_FLOOR = [(2030, 1180), (2000, 1226), (1900, 1246), (1700, 1252), (1604, 1246),
                (1580, 1240), (1574, 1336), (1522, 1336), (1516, 1258), (1440, 1264),
                (1230, 1258), (1204, 1262), (1184, 1336), (984, 1336), (960, 1244), (900, 1256)]


def hollow():
    """Rock all round, and the inner walls of masonry."""
    stage.shell(START_ROOM_ROOF[:-1] + [BLOCK_1[0], BLOCK_1[-1]] + CONDENSER_1_ROOF[1:-1] +
                [BLOCK_2[0], BLOCK_2[-1]] + HALL_ROOF[1:-1] + [BLOCK_3[0], BLOCK_3[-1]] +
                TOWER_ROOF[1:] + CELLAR_FLOOR + POND_BACK + [(480, 1180), BOILER_1_BACK[2]] +
                BOILER_1_BACK[1::-1] + SHAFT_LEFT[::-1], margin=800)
    stage.solid(BLOCK_1, "stone", BRICK, name="between shaft and first chimney")
    stage.solid(BLOCK_2, "stone", BRICK, name="before the second chimney")
    stage.solid(BLOCK_3, "stone", BRICK, name="before the third chimney")
    stage.solid(BOILER_1_BACK[2:] + WALL_1 + BOILER_2_BACK[:3] + CELLAR_ROOF[3:], "stone", STONE,
                name="below the condenser")
    stage.solid(BOILER_2_BACK[2:] + WALL_2 + BOILER_3_BACK + WALL_3 + CELLAR_ROOF[1:4], "stone",
                STONE, name="below the hall")


def boilers():
    for inner, back, name in ((BOILER_1, BOILER_1_BACK, "first boiler"),
                              (BOILER_2, BOILER_2_BACK, "second boiler"),
                              (BOILER_3, BOILER_3_BACK, "third boiler")):
        stage.solid(inner + back[::-1], "metal", COPPER, name=name)
    stage.solid(POND + POND_BACK[::-1], "metal", BRASS, name="pond")
    stage.furnace(540, 960, (410, 880, 240, 124))
    stage.furnace(1140, 800, (1010, 720, 240, 124))
    stage.furnace(1610, 512, (1520, 440, 180, 118))


def hall():
    """The bell at the top of the second chimney opens the hall when steam presses into it."""
    stage.gate((1183, 327, 12, 94), (0, -92), (1096, 330, 84, 50), speed=90)
    stage.shake((1096, 330, 84, 50), delay=1.0)
    stage.trigger("To_steam_a", (1094, 326, 86, 110), name="hot bell")
    stage.warmer((1290, 300, 120, 70), lamp=False)
    stage.kill((1424, 130, 60, 90))


def tower():
    """Slats to and fro; the first is a tray in which the water can gather."""
    stage.solid([(1802, 340), (1818, 340), (1936, 384), (1950, 366), (1962, 370), (1944, 404),
                 (1802, 358)], "wood", name="tray")
    for y in (660, 980):
        stage.solid([(1802, y), (1818, y), (1950, y + 56), (1950, y + 72), (1802, y + 18)],
                    "wood", name="slat")
        stage.solid([(2028, y - 160), (2028, y - 142), (1880, y - 88), (1880, y - 104),
                     (2012, y - 160)], "wood", name="slat")


def cellar():
    stage.drain(1516, 1258, 64, 72)
    stage.furnace(1084, 1300, (984, 1044, 200, 292))


boilers()
hollow()
hall()
tower()
cellar()
stage.warmer((690, 430, 190, 190), lamp=False)
stage.warmer((1790, 60, 200, 140), lamp=False)
stage.warmer((870, 1046, 90, 150), lamp=False)
stage.check_point(900, 560, 56, 80)
stage.check_point(1420, 400, 70, 90)
stage.check_point(1640, 1170, 60, 80)
stage.trigger("Level_end_a", (520, 1270, 370, 116), name="finish")
stage.start(170, 380, camera=(700, 1280))
stage.backdrop(BRICKWALL, -800, -800, 2900, 2300)
stage.save("04_boilers.tmj")
