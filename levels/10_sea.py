"""Draws levels/10_sea.tmj: the weir and the sea at evening. Run it in this folder.

Everything once more, on the way up through the last house of the waterworks: the lift, the
hammers, the pump, and steam up the chimney. Then out of the cliff into the storm, as ice over the
sieve; a leap over the drain, and down the weir, as high as the house, into the sea.
"""

from kit import *

HORIZON = 640  # where the picture of the sky has its last light
CLIFF = 1150  # left of it the mountain, right of it the open air

stage = Stage()

# Chains that masonry, rock and linings share.
BROW = [(1140, -900), (1146, -140), (1150, -100), (1162, 60), (1136, 170), (1100, 210),
        (1000, 220), (900, 250), (844, 256), (784, 240), (774, 182), (734, 150), (614, 150),
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
SEA_BED = [(2070, 1400), (2084, 1470), (2130, 1530), (2230, 1556), (2340, 1552), (2430, 1524),
           (2474, 1460), (2490, 1380)]
SEA_BACK = [(2040, 1530), (2066, 1552), (2120, 1570), (2226, 1592), (2348, 1588), (2450, 1556),
            (2500, 1470), (2516, 1384)]
PUMP_TOP = [(1072, 560), (1060, 526), (1030, 506), (960, 498), (706, 510), (670, 546)]
LIP = [(670, 670), (656, 690), (624, 688), (510, 624)]


def rock():
    """The mountain on the left and the ground; the open air ends at walls that nobody sees."""
    stage.solid([(-900, -900)] + BROW + [(454, 620), (420, 680)] + BOILER[:1] + BOILER_BACK[:3] +
                LIFT_SHAFT + START_ROOF + [(52, 1380), (60, 1430), (60, 1530), (-900, 1530)],
                "stone", ROCK, name="mountain")
    stage.solid([(-900, 1530), (60, 1530), (420, 1530), (560, 1530)] + SEA_BACK +
                [SEA_BED[-1], (2524, 1310), (2556, 1262), (2684, 1262), (2730, 1274), (2780, 1330),
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
    stage.solid([(2580, 520), (2660, 520), (2684, 1262), (2556, 1262)], "stone", PLASTER,
                name="lighthouse")


def lost(left, right, y, depth, edges=()):
    """A dark red pit below a sieve; `edges` are places of chevrons."""
    stage.scenery(1, box(left, y, right, y + depth), SHADE, name="pit")
    stage.kill((left, y, right - left, depth))
    count = max(1, round((right - left) / 130))
    for i in range(count):
        x = left + (right - left) * (2 * i + 1) // (2 * count)
        stage.object(x, y + depth // 2, "img\\dangerGlow.png", layer=1, name="pit")
        stage.playing(x, y + depth - 18, "drain")
    for area in edges:
        stage.hazard(*area)


def sieve(left, right, y, gap=16, bar=10):
    """Bars that carry a lump of ice; water falls between them and is drawn down."""
    count = round((right - left - gap) / (gap + bar))
    step = (right - left - gap) / count
    for i in range(count):
        x = round(left + gap + i * step)
        stage.solid(box(x, y, x + bar, y + 10), "metal", METAL, name="sieve")
    stage.scenery(1, box(left, y + 10, right, y + 18), IRON, name="sieve")
    stage.wind((left + 4, y - 12, right - left - 8, 80), (0, 1), 600)


def lift():
    stage.lift(420, 1480, 140, (420, 1090), speed=90)
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
    sieve(1132, 1412, 380)
    lost(1140, 1404, 432, 58, ((1100, 380, 1132, 390), (1412, 380, 1440, 392)))
    stage.wind((1160, 270, 252, 106), (-1, 0), 160)
    stage.hum(1300, 300, 520, "wind")
    stage.warmer((1414, 280, 130, 112), lamp=False)
    stage.check_point(1430, 272, 60, 118)


def weir():
    """The leap, and the long way down."""
    stage.drain(1580, 384, 60, 76)
    stage.gate((1712, 300, 16, 112), (0, -100), stage.plate(1662, 412, 46), speed=70)
    stage.zoom((1650, 280, 130, 140))
    stage.shake((1850, 1000, 700, 100))
    stage.trigger("Level_end_a", (2080, 1440, 400, 116), name="finish")


def far_walls():
    stage.backdrop(WALL, -900, -900, CLIFF, 1700)
    stage.scenery(0, box(CLIFF, -1000, 3800, HORIZON), SKY, name="evening sky")
    stage.scenery(0, box(CLIFF, HORIZON, 3800, 2300), SEA, name="open sea")


far_walls()
rock()
masonry()
lighthouse()
lift()
hammers()
pump()
chimney()
storm()
weir()
stage.start(150, 1360, camera=(2280, 1300))
stage.save("10_sea.tmj")
