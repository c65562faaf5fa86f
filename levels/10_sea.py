"""Draws levels/10_sea.tmj: the weir and the sea at evening. Run it in this folder.

Everything once more, on the way up through the last house of the waterworks: the lift, the
hammers, the pump, and steam up the chimney. Then out of the cliff into the storm, as ice over the
sieve; a leap over the drain, and down the weir, as high as the house, into the sea.
"""

from kit import *

HORIZON = 512  # where the picture of the sky has its last light
CLIFF = 1150  # left of it the mountain, right of it the open air

stage = Stage()

# Chains that masonry, rock and linings share.
BROW = [(1136, -1300), (1146, -140), (1150, -100), (1162, 60), (1158, 200), (1152, 268),
        (1140, 288), (1100, 270), (1000, 232), (900, 250), (844, 256), (784, 240), (774, 182), (734, 150), (614, 150),
        (534, 180), (474, 214), (454, 260)]
BOILER = [(420, 750), (440, 790), (470, 804), (590, 804), (620, 790), (650, 750)]
BOILER_BACK = [(400, 750), (428, 806), (464, 824), (596, 824), (630, 808), (664, 764)]
LIFT_SHAFT = [(420, 876), (420, 1240)]
START_ROOF = [(330, 1216), (200, 1222), (100, 1246), (60, 1300)]
CONDENSER_FLOOR = [(510, 304), (518, 294), (532, 300), (544, 316), (794, 356), (850, 370)]
COLD = [(850, 370), (872, 398), (920, 420), (1020, 422), (1086, 406), (1116, 380), (1132, 380)]
COLD_BACK = [(842, 386), (860, 414), (914, 440), (1024, 444), (1092, 426), (1122, 402),
             (1132, 402)]
SIEVE_PIT = [(1140, 490), (1404, 490), (1412, 380)]
TERRACE = [(1412, 380), (1440, 392), (1484, 392), (1580, 384), (1588, 460), (1632, 460),
           (1640, 402), (1660, 412), (1740, 412),
           (1764, 404), (1790, 424)]
WEIR = [(1790, 424), (1820, 450), (1838, 490), (1850, 550), (1856, 700), (1872, 750), (1904, 772),
        (1950, 786), (1962, 800), (1966, 1040), (1980, 1084), (2010, 1104), (2056, 1118),
        (2066, 1132), (2070, 1400)]
SEA_BED = [(2070, 1400), (2084, 1470), (2130, 1530), (2230, 1556), (2330, 1552), (2400, 1524),
           (2436, 1460), (2452, 1376)]
SEA_BACK = [(2040, 1530), (2066, 1552), (2120, 1570), (2226, 1592), (2338, 1588), (2416, 1558),
            (2454, 1470), (2468, 1392)]
PUMP_TOP = [(1072, 560), (1060, 526), (1030, 506), (960, 498), (706, 510), (670, 546)]
LIP = [(670, 670), (656, 690), (624, 688), (510, 624)]


def rock():
    """The mountain on the left and the ground; the open air ends at walls that nobody sees."""
    stage.solid([(-900, -1300)] + BROW + [(454, 620), (420, 680)] + BOILER[:1] + BOILER_BACK[:3] +
                LIFT_SHAFT + START_ROOF + [(52, 1380), (60, 1430), (60, 1530), (-900, 1530)],
                "stone", ROCK, name="mountain")
    stage.solid([(-900, 1530), (60, 1530), (420, 1530), (560, 1530)] + SEA_BACK +
                [SEA_BED[-1], (2474, 1360), (2488, 1470), (2550, 1476), (2556, 1262), (2684, 1262), (2730, 1274), (2780, 1330),
                 (2810, 1420), (2860, 1460), (2870, 2300), (-900, 2300)], "stone", ROCK,
                name="ground")
    stage.solid([(1146, -140), (2660, -140), (2580, -100), (1150, -100)], flags="invisible",
                edge=False, name="as high as it goes")
    stage.solid([(2580, -100), (2660, -140), (2660, 520), (2580, 520)], flags="invisible",
                edge=False, name="as far as it goes")


def masonry():
    """The house, of two blocks: between hammers and boiler, and all the rest."""
    stage.solid(BOILER_BACK[2:] + BOILER[-1:] +
                [(718, 712), (740, 660), (740, 620), (760, 604), (900, 580), (1000, 566),
                 (1000, 970), (960, 960), (880, 876)] + LIFT_SHAFT[:1], "stone", STONE,
                name="below the boiler")
    stage.solid([(560, 1530), (560, 1080), (940, 1080), (990, 1104), (1040, 1112), (1072, 1104)] +
                PUMP_TOP + LIP + CONDENSER_FLOOR[:-1] + [COLD[0]] + COLD_BACK + SIEVE_PIT[:2] +
                TERRACE + WEIR[1:] + SEA_BACK[:1], "stone", STONE, name="the weir")
    stage.solid(BOILER + BOILER_BACK[::-1], "metal", COPPER, name="boiler")
    stage.solid(COLD + COLD_BACK[::-1], "cloth", SACK, name="cold bowl")
    stage.solid(SEA_BED + SEA_BACK[::-1], "sand", name="sea bed")
    stage.solid([(60, 1430), (140, 1458), (320, 1478), (350, 1478), (420, 1470), (420, 1530),
                 (60, 1530)], "stone", PAVING, name="start")


def lighthouse():
    """On the other side of the bay; who leaves the weir at a full tilt lands on it."""
    stage.solid([(2580, 520), (2660, 520), (2684, 1262), (2556, 1262)], "stone", PAVING,
                name="lighthouse")


def lift():
    stage.lift(420, 1480, 140, (420, 1036), speed=90, area=(516, 1430, 44, 49), rim=6)
    stage.kill((420, 1506, 140, 24))
    stage.scenery(3, box(420, 1500, 560, 1512), GRATE, name="grille under the lift")
    stage.object(490, 1514, "img\\dangerGlow.png", layer=1)
    stage.hazard(408, 1470, 420, 1530)


def hammers():
    for x, speed in ((650, 75), (800, 100)):
        stage.piston(x, 876, 64, 90, (0, 112), speed=speed)
        stage.hazard(x - 8, 1080, x + 72, 1090)
    stage.check_point(570, 960, 66, 119)


def pump():
    stage.jet((1000, 546, 72, 564), (0, -1), 360)
    stage.hum(1036, 900, 420, "pump")
    stage.check_point(880, 508, 66, 72)


def chimney():
    stage.furnace(535, 760, (420, 680, 240, 124))
    stage.trigger("To_steam_a", (454, 380, 56, 240), name="hot chimney")
    stage.warmer((584, 150, 190, 190), lamp=False)
    stage.check_point(790, 244, 56, 112)


def storm():
    """Over the sieve against the wind, before the ice thaws."""
    stage.freezer((850, 240, 286, 184))
    stage.solid([(1152, 268), (1424, 284), (1420, 300), (1140, 288)], "wood", name="awning")
    stage.sieve(1132, 1412, 380)
    stage.lost(1140, 1404, 432, 58, ((1100, 380, 1132, 390), (1412, 380, 1440, 392)))
    stage.zoom((1060, 240, 70, 150))
    stage.wind((1160, 270, 252, 106), (-1, 0), 220)
    stage.hum(1300, 300, 520, "wind")
    stage.warmer((1414, 280, 130, 112), lamp=False)
    stage.check_point(1430, 272, 60, 118)


def weir():
    """The leap, and the long way down: into the bay, not into the rocks below the lighthouse."""
    stage.drain(1580, 384, 60, 76)
    stage.lost(2474, 2556, 1400, 74, ((2452, 1366, 2480, 1378),))
    stage.scenery(3, box(2474, 1410, 2556, 1422), GRATE, name="rocks")
    stage.hazard(2545, 1262, 2559, 1400)
    stage.gate((1712, 300, 16, 112), (0, -100), stage.plate(1662, 412, 46), speed=60,
               delay=1.0)
    stage.zoom((1650, 280, 60, 140))
    stage.shake((1850, 1000, 700, 100))
    stage.trigger("Level_end_a", (2080, 1440, 370, 116), name="finish")


def shade_of_house():
    """What stands in the rooms, from the bottom up."""
    for x, y in ((110, 1290), (260, 1290), (600, 930), (900, 960), (800, 520), (600, 220)):
        stage.arch(x, y, 100, 160)
    for x, top, bottom in ((425, 900, 1500), (1001, 560, 1104), (455, 250, 640)):
        stage.scenery(0, box(x, top, x + (134 if x == 425 else 70 if x == 1001 else 54), bottom),
                      SHADE, name="shaft")
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
    stage.thing(100, 1408, "barrel")
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
    """The great block of masonry from inside: blind arches, pipes, growth."""
    for i in range(4):
        x = 1150 + 172 * i
        stage.arch(x, 620, 120, 430 - 40 * i, BRICK, layer=3)
        stage.thing(x + 60, 700, "window", layer=3)
    for x in (1180, 1420, 1660):
        stage.arch(x, 1220, 170, 310, BRICK, layer=3)
        stage.thing(x + 85, 1330, "window", layer=3)
    stage.pipe([(1120, 560), (1120, 1120), (1744, 1120)], layer=3)
    stage.pipe([(640, 1200), (640, 1330), (1100, 1330), (1100, 1456)], layer=3)
    for x, y in ((1120, 850), (640, 1290)):
        stage.playing(x, y, "gauge", layer=3)
    for x, y in ((1400, 1120), (880, 1330)):
        stage.playing(x, y, "valve", layer=3)
    for points in ([(1790, 424), (1820, 450), (1838, 490)], [(1872, 750), (1904, 772), (1950, 786)],
                   [(1980, 1084), (2010, 1104), (2056, 1118)], [(1412, 380), (1440, 392)]):
        stage.moss([(x, y + 2) for x, y in points], drop=34)
    for x, y in ((1868, 620), (1982, 920), (2084, 1250), (2088, 1350)):
        stage.playing(x, y, "weirFall")


def gantry():
    """Over the crest: what the board of the weir is drawn up into."""
    for x in (1686, 1738):
        stage.post(x, 170, 412, 16)
    stage.beam(1630, 1770, 160, 18)
    stage.gear(1720, 150)
    stage.lantern(1650, 204)
    stage.thing(1720, 200, "chain")


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
    for x, y in ((1420, 290), (1420, 350), (1310, 320)):
        stage.effect(x, y, "wind", (-1, 0))
    stage.lantern(1500, 320)
    stage.post(1494, 338, 390, 12)


def shore():
    """The bay: surf, the sign on its mast, and what drifted in."""
    stage.scenery(3, [(2078, 1440), (2440, 1440), (2432, 1472), (2085, 1472)], "img\\foam.png",
                  name="surf")
    stage.object(2260, 1500, "img\\goalGlow.png", layer=0, name="finish")
    stage.post(2254, 1340, 1552, 12)
    stage.playing(2260, 1310, "finishSign")
    for x, y in ((2160, 1516), (2380, 1516), (2330, 1530)):
        stage.thing(x, y, "weeds")
    stage.thing(2220, 1528, "barrel")
    stage.mist(2110, 1420)
    stage.mist(1990, 1070)
    stage.effect(2100, 1440, "splash", (0, -1))
    stage.hum(2280, 1440, 800, "surf")
    stage.hum(1920, 780, 420, "rumble")


def lighthouse_dress():
    stage.object(2620, 440, "img\\glow.png", layer=0, name="lighthouse")
    stage.object(2620, 438, "img\\lanternRoom.png", layer=3, name="lighthouse")
    for top, bottom in ((620, 740), (900, 1020)):
        edge = [2580 - round(24 * (y - 520) / 742) for y in (top, bottom)]
        stage.scenery(3, [(edge[0], top), (5240 - edge[0], top), (5240 - edge[1], bottom),
                          (edge[1], bottom)], RUST, name="band")
    for y in (570, 820, 1100):
        stage.scenery(3, box(2612, y, 2628, y + 44), DARK, name="slit")


def evening():
    """Sun, its way over the water, islands, far waves."""
    stage.object(2240, HORIZON - 80, "img\\sun.png", layer=0, name="sun")
    stage.object(2240, HORIZON + 192, "img\\glitter.png", layer=0, name="glitter")
    for hills in ([(1900, 512), (1950, 492), (1990, 496), (2040, 478), (2100, 504), (2130, 512)],
                  [(2380, 512), (2440, 500), (2500, 506), (2540, 512)],
                  [(2720, 512), (2800, 470), (2850, 482), (2960, 440), (3100, 490), (3200, 512)]):
        stage.scenery(0, hills, SHADE, name="island")
    for left, right, y in ((2070, 2330, 1216), (2700, 3300, 1312)):
        stage.scenery(0, [(left, y + 30), (left + 60, y), (right - 90, y), (right, y + 30)],
                      "img\\foam.png", name="wave")


def signs():
    for x, y, way in ((300, 1400, "right"), (490, 1300, "up"), (600, 1020, "right"),
                      (1036, 1060, "up"), (850, 540, "left"), (535, 700, "up"),
                      (700, 310, "right"), (1060, 320, "right"), (1546, 340, "right"),
                      (1790, 380, "right"), (2180, 1240, "down"), (1930, 600, "down")):
        stage.arrow(x, y, way)


def foreground():
    """Dark rock before the mountain, some way from the hollow."""
    stage.foreground([(-1200, -1300), (1106, -1300), (1104, -150), (1118, 40), (1114, 180),
                      (1090, 206), (1000, 184), (900, 200), (852, 206), (826, 180), (806, 136), (750, 104),
                      (610, 102), (510, 132), (430, 170), (404, 250), (386, 380), (388, 600),
                      (356, 676), (358, 764), (384, 836), (370, 890), (376, 1178), (330, 1166),
                      (190, 1172), (70, 1204), (14, 1290), (2, 1380), (16, 1440), (20, 1580),
                      (300, 1572), (560, 1590), (900, 1574), (1300, 1590), (1700, 1572),
                      (1960, 1586), (2060, 1604), (2220, 1636), (2360, 1630), (2480, 1590),
                      (2560, 1500), (2620, 1420), (2690, 1400), (2760, 1470), (2800, 1540),
                      (2900, 1570), (4600, 1600), (4600, 3300), (-1200, 3300)])


def far_walls():
    """Only where something of them is seen: what lies behind rock costs time as well."""
    stage.backdrop(WALL, 40, 1130, 570, 1540)
    stage.backdrop(WALL, 400, 140, CLIFF, 1130)
    stage.scenery(0, box(CLIFF - 14, -1200, 4400, 0), "img\\nightSky.png", name="night")
    stage.scenery(0, [(CLIFF - 14, 0), (4400, 0), (4400, HORIZON), (CLIFF, HORIZON), (CLIFF, 140),
                      (CLIFF - 14, 140)], SKY, name="evening sky")
    for pit in (box(1132, 384, 1412, 492), box(1578, 394, 1642, 462)):
        stage.scenery(0, pit, BRICKWALL, name="pit")
    stage.scenery(0, box(1836, HORIZON, 4400, 1660), SEA, name="open sea")


far_walls()
evening()
shade_of_house()
rock()
masonry()
lighthouse()
hot_copper()
dam()
lift()
hammers()
pump()
chimney()
storm()
weir()
gantry()
cold_and_storm()
shore()
lighthouse_dress()
signs()
foreground()
stage.start(150, 1360, camera=(2280, 1300))
stage.save("10_sea.tmj")
