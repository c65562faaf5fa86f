"""Draws levels/10_sea.tmj: the weir and the sea at evening. Run it in this folder.

Everything once more, on the way through the last house of the waterworks. Down through the rooms
in the weir: a leap to the plate that opens the trough, two drains, the pump, a cradle over a pit, a
shot through a pipe. Up through the house: the lift, the hammers, the jets, and steam up the
chimney. Then out of the cliff as ice over the sieve, into the storm, up the turret against it; and
down, higher than the house, into the sea.
"""

from kit import *
from seaside import EAST, HORIZON, evening, foreground, lighthouse_dress, shore

CLIFF = 1150  # left of it the mountain, right of it the open air
START = 1630, 650
STARTING = (1590, 610, 80, 80)  # where the water is as the level starts
STORM = 190  # units per second squared

stage = Stage()

# Chains that masonry, rock and linings share.
BROW = [(1136, -1300), (1146, -140), (1150, -100), (1162, 60), (1158, 200), (1152, 268),
         (1140, 288), (1100, 270), (1000, 232), (900, 250), (844, 256), (784, 240), (774, 182),
         (734, 150), (614, 150), (534, 180), (474, 214), (454, 260)]
BOILER = [(420, 750), (440, 790), (470, 804), (590, 804), (620, 790), (650, 750)]
BOILER_BACK = [(400, 750), (428, 806), (464, 824), (596, 824), (630, 808), (664, 764)]
LIFT_SHAFT = [(420, 876), (420, 1240)]
CAVE_ROOF = [(330, 1216), (200, 1222), (100, 1246), (60, 1300)]
CAVE_FLOOR = [(60, 1440), (140, 1440), (190, 1462), (320, 1478), (350, 1478), (420, 1470)]
CONDENSER_FLOOR = [(510, 304), (518, 294), (532, 300), (544, 316), (794, 356), (850, 370)]
COLD = [(850, 370), (872, 398), (920, 420), (1020, 422), (1086, 406), (1116, 380), (1132, 380)]
COLD_BACK = [(842, 386), (860, 414), (914, 440), (1024, 444), (1092, 426), (1122, 402),
              (1132, 402)]
SIEVE_PIT = [(1140, 490), (1404, 490), (1412, 380)]
TERRACE = [(1412, 380), (1440, 390), (1470, 390), (1500, 386), (1504, 462), (1532, 462),
            (1534, 440), (1618, 440), (1620, 480), (1752, 480), (1752, 270), (1712, 238),
            (1712, 230), (1766, 226), (1790, 234)]
WEIR = [(1790, 234), (1790, 424), (1820, 450), (1838, 490), (1850, 550), (1856, 700), (1872, 750),
         (1904, 772), (1950, 786), (1962, 800), (1966, 1040), (1980, 1084), (2010, 1104),
         (2056, 1118), (2066, 1132), (2070, 1400)]
SEA_BED = [(2070, 1400), (2084, 1470), (2130, 1530), (2230, 1556), (2330, 1552), (2400, 1524),
            (2436, 1460), (2452, 1376)]
SEA_BACK = [(2040, 1530), (2066, 1552), (2120, 1570), (2226, 1592), (2338, 1588), (2416, 1558),
             (2454, 1470), (2468, 1392)]
PUMP_TOP = [(1072, 830), (1122, 850), (1122, 770), (1072, 770), (1072, 560), (1060, 526),
             (1030, 506), (960, 498), (706, 510), (670, 546)]
LIP = [(670, 670), (656, 690), (624, 688), (510, 624)]

# The rooms in the weir, from the lift's foot round and back: the gallery's floor to the right,
# its end and up; the gully's roof to the left; the trough to the right; the cistern to the left;
# the gully to the right; the gallery's roof to the left.
ROOMS = [(560, 1480), (930, 1480), (980, 1450), (1100, 1316), (1130, 1300), (1240, 1300),
          (1244, 1430), (1536, 1430), (1540, 1292), (1562, 1304), (1636, 1304), (1656, 1294),
          (1656, 1450), (1760, 1456), (1900, 1440), (1960, 1400), (1990, 1330), (1980, 1200),
          (1900, 1120), (1900, 950), (1210, 950), (1210, 850), (1776, 850), (1776, 610),
          (1750, 578), (1600, 566), (1400, 582), (1180, 568), (1150, 590), (1150, 700),
          (1150, 750), (1150, 1060), (1330, 1060), (1334, 1120), (1386, 1124), (1388, 1100),
          (1532, 1100), (1540, 1130), (1586, 1136), (1590, 1098), (1840, 1098), (1846, 1180),
          (1736, 1184), (1720, 1186), (1600, 1170), (1564, 1180), (1546, 1240), (1496, 1244),
          (1470, 1196), (1400, 1190), (1240, 1184), (1110, 1200), (1020, 1290), (960, 1396),
          (920, 1420), (600, 1420), (560, 1396)]


def rock():
    """The mountain on the left and the ground, no thicker than is seen; the open air ends at
    walls that nobody sees."""
    stage.solid([(1060, -1300)] + BROW + [(454, 620), (420, 680)] + BOILER[:1] + BOILER_BACK[:3] +
                  LIFT_SHAFT + CAVE_ROOF + CAVE_FLOOR[:1] + [(60, 1530), (-70, 1530), (-60, 1280),
                  (30, 1160), (190, 1124), (326, 1110), (310, 890), (320, 800), (300, 680),
                  (330, 600), (330, 360), (350, 220), (400, 130), (500, 70), (620, 50), (760, 50),
                  (850, 130), (1000, 130), (1060, 160)], "stone", ROCK, name="mountain")
    stage.solid([(-70, 1530), (60, 1530), (420, 1530), (560, 1530)] + SEA_BACK + [SEA_BED[-1],
                  (2474, 1360), (2488, 1470), (2550, 1476), (2556, 1262), (2684, 1262),
                  (2730, 1274), (2780, 1330), (2810, 1420), (2860, 1460), (2900, 1640),
                  (2520, 1660), (2330, 1690), (2200, 1690), (2060, 1660), (1900, 1640),
                  (-70, 1640)], "stone", ROCK, name="ground")
    stage.solid([(1146, -140), (2660, -140), (2580, -100), (1150, -100)], flags="invisible",
                  edge=False, name="as high as it goes")
    stage.solid([(2580, -100), (2660, -140), (2660, 520), (2580, 520)], flags="invisible",
                  edge=False, name="as far as it goes")


def masonry():
    """The house, of two blocks: between hammers and boiler, and all the rest."""
    stage.solid(BOILER_BACK[2:] + BOILER[-1:] + [(718, 712), (740, 660), (740, 620), (760, 604),
                (900, 580), (1000, 566), (1000, 970), (960, 960), (880, 876)] + LIFT_SHAFT[:1],
                "stone", STONE, name="below the boiler")
    stage.solid([(560, 1530)] + ROOMS + [(560, 1080), (940, 1080), (990, 1104), (1040, 1112),
                  (1072, 1104)] + PUMP_TOP + LIP + CONDENSER_FLOOR[:-1] + [COLD[0]] + COLD_BACK +
                  SIEVE_PIT[:2] + TERRACE + WEIR[1:] + SEA_BACK[:1], "stone", STONE,
                  name="the weir")
    stage.solid(BOILER + BOILER_BACK[::-1], "metal", COPPER, name="boiler")
    stage.solid(COLD + COLD_BACK[::-1], "cloth", SACK, name="cold bowl")
    stage.solid(SEA_BED + SEA_BACK[::-1], "sand", name="sea bed")
    stage.solid(CAVE_FLOOR + [(420, 1530), (60, 1530)], "stone", PAVING, name="cave")


def lighthouse():
    """On the other side of the bay; who leaves the weir at a full tilt lands on it."""
    stage.solid([(2580, 520), (2660, 520), (2684, 1262), (2556, 1262)], "stone", PAVING,
                  name="lighthouse")


def cistern():
    """A leap to the plate; it lowers the board in the trough below. Who falls short is shot up
    again at the trough's other end."""
    stage.solid([(1540, 672), (1556, 672), (1590, 700), (1670, 700), (1700, 640), (1716, 640),
                  (1716, 750), (1540, 750)], "metal", name="cistern bowl")
    stage.solid([(1150, 700), (1400, 708), (1400, 750), (1150, 750)], "wood", name="ledge")
    stage.gate((1226, 748, 18, 104), (0, 100), stage.plate(1154, 700, 60), speed=40)
    stage.jet((1716, 640, 60, 208), (0, -1), 330)
    stage.check_point(1300, 756, 60, 93)


def gully():
    """Two drains; the landing between them is of sacks, that brake."""
    stage.drain(1330, 1060, 60)
    stage.solid([(1390, 1072), (1530, 1072), (1532, 1100), (1388, 1100)], "cloth", SACK,
                  name="sacks")
    stage.drain(1530, 1072, 60, 64)
    stage.check_point(1214, 956, 70, 103)


def gallery():
    """The pump sucks over the wall; a cradle over the pit; a pipe with a jet."""
    stage.solid([(1720, 1186), (1736, 1184), (1736, 1370), (1720, 1370)], "metal",
                  name="pump's apron")
    stage.suction(1560, 1220, (1656, 1190, 64, 262), 9000)
    stage.lost(1242, 1538, 1370, 60, ((1208, 1300, 1240, 1310), (1540, 1296, 1566, 1306)))
    stage.cradle(1428, 1296, 114, (1238, 1300), speed=60)
    stage.jet((680, 1423, 180, 56), (-1, 0), 380)
    stage.check_point(1800, 1340, 70, 108)
    stage.check_point(1568, 1200, 66, 103)
    stage.check_point(1134, 1210, 66, 89)


def hoist(points, travel, speed, area, delay):
    """A lift that begins to run to and fro a while after water has come into the area."""
    id = stage.new_id()
    stage.solid(points, "metal", COPPER, id=id, name="lift")
    x, y = points[0]
    stage.mover(id, (x, y), (x + travel[0], y + travel[1]), speed, name="lift")
    stage.trigger("Mover_goto_end_loop_1", area, target=id, delay=delay, name="lift starts")
    return id


def lift():
    """The plate in the cave sets it going; who is quick gets back in time."""
    hoist([(418, 1474), (428, 1474), (428, 1480), (552, 1480), (552, 1474), (562, 1474),
            (562, 1482), (550, 1494), (430, 1494), (418, 1482)], (0, -444), 90,
          stage.plate(66, 1440, 70), 2.5)
    stage.rail((490, 1487), (490, 1043), 140)
    stage.check_point(200, 1360, 60, 102)
    stage.kill((420, 1506, 140, 24))
    stage.scenery(3, box(420, 1500, 560, 1512), GRATE, name="grille under the lift")
    stage.object(490, 1514, "img\\dangerGlow.png", layer=1)
    stage.hazard(408, 1470, 420, 1530)


def hammers():
    for x, speed in ((650, 75), (800, 100)):
        stage.piston(x, 874, 64, 92, (0, 112), speed=speed)
        stage.hazard(x - 8, 1080, x + 72, 1090)
    stage.check_point(570, 960, 66, 119)


def pump():
    """Two jets, one above the other; between them a drain in the wall."""
    stage.jet((1000, 880, 72, 230), (0, -1), 360)
    stage.jet((1000, 546, 72, 200), (0, -1), 360)
    stage.kill((1082, 770, 40, 80))
    stage.scenery(3, box(1074, 772, 1084, 832), GRATE, name="drain in the wall")
    stage.object(1100, 806, "img\\dangerGlow.png", layer=1)
    stage.hazard(1072, 830, 1082, 862)
    stage.hazard(1072, 738, 1082, 770)
    stage.hum(1036, 900, 420, "pump")
    stage.check_point(880, 508, 66, 72)


def chimney():
    stage.furnace(535, 760, (420, 680, 240, 124))
    stage.trigger("To_steam_a", (454, 380, 56, 240), name="hot chimney")
    stage.warmer((584, 150, 190, 190), lamp=False)
    stage.check_point(790, 244, 56, 112)


def sieve():
    """Over the sieve against the wind, before the ice thaws."""
    stage.freezer((850, 240, 286, 184))
    stage.solid([(1152, 268), (1424, 284), (1492, 288), (1492, 302), (1480, 302), (1420, 300),
                  (1140, 288)], "wood", name="awning")
    stage.solid([(1480, 302), (1492, 302), (1492, 356), (1480, 356)], "cloth",
                  name="curtain: water passes, ice doesn't")
    stage.sieve(1132, 1412, 380)
    stage.lost(1140, 1404, 432, 58, ((1100, 380, 1132, 390), (1412, 380, 1440, 392)))
    stage.wind((1160, 270, 252, 106), (-1, 0), 220)
    stage.hum(1300, 300, 520, "wind")
    stage.warmer((1414, 300, 66, 92), lamp=False)


def storm():
    """It breaks as the water comes out, and lies down as it reaches the turret's top: a leap
    over the drain, and the hoist, on which the water stays only if it leans into the wind."""
    out, top = (1424, 304, 52, 84), (1748, 110, 42, 118)
    stage.check_point(*out)
    stage.drain(1500, 386, 36, 76)
    stage.solid([(1536, 398), (1560, 420), (1594, 420), (1622, 404), (1618, 440), (1534, 440)],
                  "cloth", SACK, name="sacks")
    stage.lost(1621, 1751, 448, 31, ((1742, 400, 1752, 480),))
    wind = stage.wind((1530, 20, 182, 424), (-1, 0), STORM)
    stage.trigger("Entity_remove_1", STARTING, target=wind, name="calm at first")
    stage.trigger("Entity_add_1", out, target=wind, name="the storm breaks")
    stage.trigger("Entity_remove_1", top, target=wind, name="the storm lies down")
    howl, gusts = stage.new_id(), stage.new_id()
    stage.sound(howl, 1600, 260, 700, "snd\\place_wind.wav", looping=True, name="storm")
    stage.trigger("Sound_play_1", out, target=howl, name="storm")
    stage.trigger("Sound_stop_1", top, target=howl, name="storm")
    for x, y, settings in ((1720, 150, "wind"), (1720, 300, "wind"), (1560, 340, "wind"),
                           (1614, 406, "splash"), (1740, 400, "splash")):
        stage.emitter(gusts, (x, y), f"fx\\{settings}.cfg", (-1, -0.2), name="gusts")
    stage.trigger("Emitter_stop_1", STARTING, target=gusts, name="calm at first")
    stage.trigger("Emitter_start_1", out, target=gusts, name="storm")
    stage.trigger("Emitter_stop_1", top, target=gusts, name="storm")
    stage.shake(out)
    hoist([(1619, 406), (1667, 427), (1714, 406), (1714, 440), (1630, 440), (1618, 424)], (0, -206),
          60, (1642, 380, 50, 46), 0.5)
    stage.rail((1667, 430), (1667, 214), 90)


def weir():
    """The long way down: into the bay, not into the rocks below the lighthouse."""
    stage.lost(2474, 2556, 1400, 74, ((2452, 1366, 2480, 1378),))
    stage.scenery(3, box(2474, 1410, 2556, 1422), GRATE, name="rocks")
    stage.hazard(2545, 1262, 2559, 1400)
    stage.zoom((1748, 110, 42, 118))
    stage.shake((1850, 1000, 700, 100))
    stage.trigger("Level_end_a", (2080, 1440, 370, 116), name="finish")


def shade_of_house():
    """What stands in the rooms, from the bottom up."""
    for x, y in ((110, 1290), (260, 1290), (600, 930)):
        stage.arch(x, y, 100, 160)
    stage.scenery(0, box(455, 250, 509, 640), SHADE, name="shaft")
    stage.pipe([(80, 1330), (240, 1330), (240, 1460)])
    stage.gauge(240, 1360)
    stage.wheel(365, 1370)
    stage.pipe([(912, 1060), (912, 980), (1040, 980), (1040, 600)])
    stage.playing(912, 1010, "valve")
    stage.gauge(976, 980)
    stage.pipe([(592, 200), (752, 200), (752, 264), (592, 264)])
    stage.object(672, 230, "img\\coldGlow.png", layer=1, name="cold")
    stage.drip(690, 170)
    stage.pipe([(944, 230), (944, 380)])
    stage.valve(944, 340)
    stage.gear(746, 1010)
    stage.thing(330, 1445, "crate")
    for x, y in ((180, 1330), (490, 1010), (560, 960), (880, 1000), (950, 540), (820, 300)):
        stage.lamp(x, y)


def hot_copper():
    """The funnel over the fire and the pipe above it, that keep the steam hot."""
    for jacket in ([(510, 624), (624, 688), (656, 690), (670, 670), (670, 646), (654, 668),
                    (630, 666), (534, 612), (534, 380), (510, 380)],
                   [(454, 620), (420, 680), (420, 750), (400, 750), (398, 676), (430, 612),
                     (430, 380), (454, 380)]):
        stage.scenery(3, jacket, COPPER, name="jacket")
    for y in (400, 500, 596):
        stage.scenery(3, box(424, y, 456, y + 14), BRASS, name="band")
        stage.scenery(3, box(508, y, 540, y + 14), BRASS, name="band")
    stage.steam_leak(536, 470, (1, -0.5))
    stage.sparks(535, 790, (430, 700, 220, 100))


def dam():
    """What stands in the rooms of the weir, and what grows on its face."""
    for x, y, width, height in ((1190, 600, 120, 100), (1660, 970, 90, 120),
                                (1760, 1220, 130, 190)):
        stage.arch(x, y, width, height)
    for x, y in ((1460, 650), (1870, 1020)):
        stage.thing(x, y, "window", layer=0)
    stage.pipe([(1744, 860), (1744, 608)])
    stage.pipe([(1264, 600), (1264, 660), (1456, 660), (1456, 600)])
    stage.pipe([(1688, 1470), (1688, 1200)])
    stage.pipe([(912, 1450), (624, 1450)])
    stage.gauge(1360, 656)
    stage.valve(1744, 800)
    stage.wheel(1500, 1010)
    stage.gauge(1688, 1330)
    stage.gear(1930, 1290)
    stage.valve(880, 1450)
    for x in (1548, 1694):
        stage.post(x, 750, 850, 14)
    for x in (1170, 1384):
        stage.thing(x, 640, "chain")
    for x, y in ((1640, 620), (1240, 640), (1480, 800), (1840, 1290), (1060, 1300)):
        stage.lamp(x, y)
    stage.drip(1400, 584)
    stage.drip(1950, 1166)
    for points in ([(1790, 424), (1820, 450), (1838, 490)], [(1872, 750), (1904, 772), (1950, 786)],
                   [(1980, 1084), (2010, 1104), (2056, 1118)], [(1412, 380), (1440, 392)],
                   [(1210, 950), (1300, 950), (1400, 950)], [(1240, 1184), (1400, 1190), (1470, 1196)]):
        stage.moss([(x, y + 2) for x, y in points], drop=30)
    for x, y in ((1868, 620), (1982, 920), (2084, 1250), (2088, 1350)):
        stage.playing(x, y, "weirFall")


def gantry():
    """Over the hoist: the crane that draws it up."""
    stage.post(1608, 110, 412, 12)
    stage.post(1770, 110, 200, 12)
    stage.beam(1590, 1790, 100, 18)
    stage.brace(1620, 118, 40, 12)
    stage.thing(1667, 180, "chain")
    stage.lantern(1740, 150)


def cold_and_storm():
    frost = [(844, 256), (900, 250), (1000, 232), (1100, 270), (1140, 288)]
    stage.scenery(3, frost + [(x, y + 14 + (i * 5) % 9) for i, (x, y) in enumerate(frost)][::-1],
                  FROST, name="rime")
    for x, y in ((880, 274), (960, 262), (1060, 282)):
        stage.thing(x, y, "icicles")
    for x, top, bottom in ((1126, 280, 380), (1142, 286, 380), (1404, 296, 390)):
        stage.post(x, top, bottom, 12)
    for x, reach in ((1154, 44), (1404, -44)):
        stage.brace(x, 294, reach, 10)
    for x, y in ((1400, 330), (1310, 320)):
        stage.effect(x, y, "wind", (-1, 0))
    stage.lantern(1450, 330)
    stage.post(1494, 302, 387, 10)


def signs():
    for x, y, way in ((1600, 640, "left"), (1180, 660, "left"), (1480, 700, "down"),
                      (1320, 810, "left"), (1744, 740, "up"), (1180, 980, "down"),
                      (1290, 1000, "right"), (1620, 1010, "right"), (1870, 1080, "down"),
                      (1688, 1250, "up"), (1500, 1290, "left"), (1010, 1350, "left"),
                      (760, 1450, "left"), (130, 1400, "left"), (490, 1300, "up"),
                      (600, 1020, "right"),
                      (1036, 1060, "up"), (850, 540, "left"), (535, 700, "up"),
                      (700, 310, "right"), (1060, 320, "right"), (1510, 330, "right"),
                      (1667, 300, "up"), (2180, 1240, "down"), (1930, 600, "down")):
        stage.arrow(x, y, way)


def far_walls():
    for left, top, right, bottom in ((20, 1190, 570, 1540), (380, 140, CLIFF, 1540),
                                     (1130, 540, 1800, 870), (1130, 850, 1930, 1200),
                                     (920, 1110, 2000, 1490)):
        stage.backdrop(WALL, left, top, right, bottom)
    stage.scenery(0, box(CLIFF - 14, -3000, EAST, 0), "img\\nightSky.png", name="night")
    stage.scenery(0, [(CLIFF - 14, 0), (EAST, 0), (EAST, HORIZON), (1780, HORIZON), (1780, 400),
                  (CLIFF, 400), (CLIFF, 140), (CLIFF - 14, 140)], SKY, name="evening sky")
    for pit in (box(1132, 384, 1412, 492), box(1496, 386, 1752, 484)):
        stage.scenery(0, pit, BRICKWALL, name="pit")
    stage.scenery(0, [(1832, HORIZON), (EAST, HORIZON), (EAST, 1660), (2030, 1660), (2030, 1120),
                  (1940, 1060), (1940, 790), (1832, 760)], SEA, name="open sea")


far_walls()
evening(stage)
shade_of_house()
rock()
masonry()
lighthouse()
hot_copper()
dam()
cistern()
gully()
gallery()
lift()
hammers()
pump()
chimney()
sieve()
storm()
weir()
gantry()
cold_and_storm()
shore(stage)
lighthouse_dress(stage)
signs()
foreground(stage)
stage.start(*START, camera=(2280, 1300))
stage.save("10_sea.tmj")
