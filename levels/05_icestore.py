"""Draws levels/05_icestore.tmj: the ice store. Run it in this folder.

What water can't cross, ice can: a lump as wide as 45 units slides over sieves and through
wind, but thaws within five seconds of leaving the cold, and doesn't fit through a pipe. The way
goes right over the first sieve, through a pipe, down the ice run and over a chasm, back left
through the windy gallery, up a shaft of air, through the hall, where a cradle ferries the lump,
and through the tunnel, where air lifts it over two walls. Below, a slide must be braked, or the
lump leaps over the chute; thawed it gets through a grate to the plate that opens the gate, and
frozen again it calls and rides a lift of three bars, which rests once its load is at the pond.
"""

from kit import *

stage = Stage()

# The hollow, in chains that go round it clockwise from the upper left. Linings stand in it and
# take over some of its sides; each has an inner line and a back that the rock sees.
ROOF = [(60, 180), (160, 124), (330, 112), (430, 180), (600, 190), (760, 166), (900, 150),
        (1040, 172), (1096, 240), (1096, 560), (1200, 536), (1330, 540), (1420, 584), (1560, 680),
        (1680, 716), (1800, 690), (1960, 680), (2110, 716), (2240, 800), (2262, 900),
        (2250, 1010), (2262, 1150)]
COLD_3 = [(2262, 1150), (2240, 1214), (2190, 1238), (2130, 1234), (2080, 1206), (2060, 1196)]
COLD_3_BACK = [(2282, 1156), (2256, 1228), (2194, 1258), (2124, 1254), (2070, 1224),
               (2060, 1220)]
GALLERY_FLOOR = [(2052, 1300), (1420, 1300), (1420, 868)]
THAW_FLOOR = [(1400, 868), (1346, 894), (1250, 906), (1170, 896), (1128, 874), (1040, 880)]
COLD_4 = [(1040, 880), (1012, 897), (962, 906), (914, 898), (894, 885), (880, 884)]
COLD_4_BACK = [(1040, 894), (1012, 913), (960, 924), (908, 914), (888, 902), (880, 900)]
HALL_RIGHT = [(1040, 894), (1044, 1016), (1036, 1300)]
COLD_5 = [(1036, 1300), (1020, 1340), (960, 1358), (884, 1354), (842, 1332), (826, 1332)]
COLD_5_BACK = [(1052, 1306), (1032, 1354), (962, 1376), (878, 1372), (838, 1350), (826, 1348)]
LAST_FLOOR = [(826, 1348), (826, 1332), (810, 1334), (660, 1404),
              (600, 1414), (566, 1404), (572, 1490), (524, 1490)]
BOWL = [(506, 1404), (488, 1404), (460, 1458), (380, 1486), (260, 1502), (150, 1520), (150, 1600)]
TUNNEL_ROOF = [(186, 1586), (500, 1574), (800, 1590), (1000, 1580), (1200, 1560), (1330, 1520),
               (1500, 1490), (1720, 1480), (1900, 1470), (2080, 1480), (2200, 1540), (2236, 1640)]
COLD_7 = [(2250, 1850), (2236, 1900), (2190, 1926), (2110, 1936), (2040, 1930), (1990, 1908),
          (1960, 1890)]
COLD_7_BACK = [(2270, 1852), (2254, 1912), (2196, 1944), (2108, 1956), (2032, 1948), (1980, 1926),
               (1960, 1908)]
SLIDE = [(1960, 1890), (1580, 2030), (1500, 2034)]
SLIDE_BACK = [(1960, 1908), (1578, 2050), (1500, 2054)]
CHUTE_FLOOR = [(1504, 2108), (1720, 2104), (1726, 2176), (1504, 2198), (1300, 2212)]
COLD_8 = [(1250, 2214), (1230, 2216), (1200, 2240), (1150, 2246), (1110, 2230), (1096, 2214),
          (1090, 2214)]
COLD_8_BACK = [(1250, 2230), (1224, 2234), (1196, 2256), (1144, 2262), (1104, 2246), (1090, 2232)]
SHAFT = [(1084, 2330), (996, 2330), (990, 2214), (990, 1960), (940, 1964)]
POND = [(900, 1966), (876, 2030), (826, 2060), (740, 2060), (690, 2030), (668, 1964)]
POND_BACK = [(918, 1966), (892, 2042), (832, 2080), (734, 2080), (676, 2042), (650, 1964)]
POND_ROOF = [(646, 1900), (700, 1850), (850, 1836), (960, 1840), (1040, 1846), (1090, 1870)]
CHUTE_ROOF = [(1090, 2080), (1180, 2128), (1300, 2130), (1430, 2130), (1430, 2056), (1404, 2058),
              (1398, 2104), (1296, 2104), (1290, 1980)]
SLIDE_ROOF = [(1300, 1900), (1480, 1866), (1836, 1852), (1946, 1800)]
TUNNEL_FLOOR = [(1954, 1722), (1820, 1712), (1812, 1830), (1246, 1830)]
COLD_6 = [(1240, 1712), (1224, 1712), (1184, 1738), (1110, 1750), (1040, 1742), (1000, 1716)]
COLD_6_BACK = [(1240, 1734), (1228, 1736), (1188, 1756), (1108, 1770), (1032, 1758), (990, 1730)]
SAW_FLOOR = [(1000, 1716), (836, 1712), (830, 1770), (794, 1770), (788, 1706), (700, 1704),
             (576, 1700), (478, 1698), (472, 1758), (438, 1758), (432, 1694), (300, 1690),
             (160, 1678), (114, 1662), (112, 1420)]
HALL_LEFT = [(92, 1212), (96, 1096), (90, 760)]
HALL_ROOF = [(180, 680), (380, 640), (640, 630), (900, 660), (1020, 730), (1040, 826), (1128, 820)]
MIDDLE = (1128, 770)  # where the two inner walls meet, on the roof of the thawing room
THAW_ROOF = [(1200, 756), (1330, 778), (1450, 822), (1500, 862)]
GALLERY_ROOF = [(1500, 1080), (1560, 1098), (1740, 1092), (1900, 1104), (2060, 1096),
                (2110, 1060), (2114, 960)]
CHASM = [(2080, 930), (1976, 900), (1984, 1036), (1760, 1036)]
RUN = [(1770, 880), (1728, 894), (1688, 890), (1640, 868), (1490, 772), (1340, 672)]
RUN_BACK = [(1770, 902), (1726, 916), (1682, 910), (1630, 888), (1480, 792), (1340, 700)]
COLD_2 = [(1340, 672), (1318, 676), (1276, 702), (1210, 708), (1160, 698), (1140, 664),
          (1060, 648)]
COLD_2_BACK = [(1340, 700), (1322, 700), (1282, 722), (1206, 730), (1148, 714), (1128, 680),
               (1046, 660)]
STOVE_FLOOR = [(1060, 648), (1060, 632), (1060, 404), (1010, 388), (940, 376)]
DRAIN = [(892, 360), (884, 470), (620, 470)]
COLD_1 = [(612, 360), (596, 360), (566, 386), (500, 402), (400, 400), (352, 378), (330, 350)]
COLD_1_BACK = [(612, 382), (602, 382), (572, 406), (504, 424), (394, 420), (340, 394), (322, 366)]
START_FLOOR = [(330, 350), (200, 318), (60, 300)]


def hollow():
    stage.shell(ROOF + COLD_3_BACK + GALLERY_FLOOR + THAW_FLOOR + HALL_RIGHT + COLD_5_BACK[:-1] +
                LAST_FLOOR + BOWL + TUNNEL_ROOF + COLD_7[:1] + COLD_7_BACK[:-1] + SLIDE_BACK +
                CHUTE_FLOOR + COLD_8[:1] + COLD_8_BACK + SHAFT + POND[:1] + POND_BACK + POND_ROOF +
                CHUTE_ROOF + SLIDE_ROOF + TUNNEL_FLOOR + COLD_6_BACK + SAW_FLOOR + HALL_LEFT +
                START_FLOOR[-1:], margin=100)
    stage.solid(STOVE_FLOOR + DRAIN + COLD_1_BACK + START_FLOOR + HALL_LEFT[-1:] +
                HALL_ROOF + [MIDDLE, COLD_2_BACK[-1]], "stone", STONE,
                name="below the first storey")
    stage.solid(THAW_ROOF + GALLERY_ROOF + CHASM + RUN_BACK + COLD_2_BACK[1:] + [MIDDLE], "stone",
                STONE, name="below the second storey")


def linings():
    for inner, back in ((COLD_1, COLD_1_BACK), (COLD_2, COLD_2_BACK), (COLD_3, COLD_3_BACK),
                        (COLD_4, COLD_4_BACK), (COLD_5, COLD_5_BACK), (COLD_6, COLD_6_BACK),
                        (COLD_7, COLD_7_BACK), (COLD_8, COLD_8_BACK)):
        stage.solid(inner + back[::-1], "cloth", SACK, name="cold bowl")
    stage.solid(SLIDE + SLIDE_BACK[::-1], "wood", name="slide")
    stage.solid(RUN + RUN_BACK[::-1], "wood", name="ice run")
    stage.solid(POND + POND_BACK[::-1], "metal", BRASS, name="pond")


def stove(x, y, area, glow=True):
    """Thaws what comes near: a fire, 128 by 96, with its centre at (x, y)."""
    stage.warmer(area, lamp=False)
    if glow:
        stage.object(x, y - 20, "img\\fireGlow.png", layer=0, name="stove")
    stage.playing(x, y, "furnace")
    stage.hum(x, y, 300, "furnace")


def freezer(area):
    """Freezes what is in the area; one pale light and one cloud of frost mark it. It ends short
    of the bars of a sieve: crumbs of ice that lodge there must thaw and fall."""
    x, y, width, height = area
    stage.trigger("To_ice_a", area, name="freezer")
    stage.object(x + width // 2, y + height // 2, "img\\coldGlow.png", layer=1, name="freezer")
    stage.effect(x + width // 2, y + height // 2, "frost", (0, 1))
    stage.hum(x + width // 2, y + height // 2, 320, "wind")


def sieve(left, right, y):
    stage.sieve(left, right, y, bar=18)


def first_storey():
    freezer((330, 220, 276, 184))
    sieve(612, 892, 360)
    stage.lost(618, 886, 410, 60, ((580, 360, 612, 370), (892, 360, 924, 372)), opaque=True)
    stove(1000, 336, (900, 240, 196, 170))


def second_storey():
    stage.solid([(1060, 632), (1120, 642), (1140, 664), (1060, 648)], "cloth", SACK, name="sack")
    stage.check_point(1160, 606, 70, 100)
    freezer((1150, 560, 186, 148))
    stage.lost(1764, 1980, 976, 60, ((1738, 884, 1770, 896), (1976, 902, 2006, 914)),
               opaque=True)
    stage.shake((1990, 830, 110, 110))


def third_storey():
    """The gallery: a headwind over two sieves, and the shaft of air."""
    stage.check_point(2160, 1074, 70, 160)
    freezer((2072, 1060, 192, 180))
    sieve(1840, 2060, 1200)
    stage.solid(box(1780, 1200, 1840, 1216), "wood", name="island")
    freezer((1786, 1108, 48, 92))
    sieve(1500, 1780, 1200)
    sieve(1420, 1500, 1200)
    stage.lost(1420, 2056, 1250, 50, ((2062, 1198, 2090, 1210), (1780, 1200, 1840, 1208)),
               opaque=True)
    stage.fan(1566, 1150, (1560, 1106, 440, 86), (1, 0), 110)
    stage.fan(1460, 1262, (1424, 880, 72, 318), (0, -1), 560)


def thawing_room():
    stove(1250, 850, (1130, 770, 270, 140))
    stage.check_point(1160, 800, 60, 94)


def cradle(x, y, travel):
    """A ferry of bars for a lump: it waits, sets off when one sits in it, and comes back when
    water is in the cold bowl. Its low rims let a lump off under a steep tilt."""
    id = stage.new_id()
    for at, rise, width in ((0, 7, 8), (21, 0, 6), (42, 0, 6), (63, 0, 6), (84, 0, 6), (102, 7, 8)):
        stage.solid(box(x + at, y - rise, x + at + width, y + 10), "metal", COPPER, id=id,
                    name="bar")
    stage.scenery(1, box(x, y + 8, x + 110, y + 14), IRON, id=id, name="cradle")
    for at in (12, 92):
        stage.scenery(1, box(x + at, y - 226, x + at + 5, y + 10), IRON, id=id, name="rope")
    stage.scenery(1, box(x + 4, y - 232, x + 106, y - 222), METAL, id=id, name="trolley")
    stage.scenery(1, box(x + travel - 30, y - 242, x + 140, y - 232), IRON, name="rail")
    stage.mover(id, (x, y), (x + travel, y), 100, name="cradle")
    stage.trigger("Mover_goto_start_a", (880, 790, 158, 116), target=id, name="cradle comes")
    stage.trigger("Mover_goto_end_a", (x + 20, y - 40, 70, 36), target=id, name="cradle goes")
    stage.hum(x + travel // 2, y - 200, 340, "gears")


def hall():
    """Left with the cradle, right over sawdust, left again with a jump into the pond."""
    stage.solid(COLD_4_BACK + [(880, 884), (866, 888), (872, 990), (478, 990), (484, 902),
                               (330, 898), (190, 906), (176, 930), (190, 1012), (1044, 1016)],
                "stone", STONE, name="upper floor")
    freezer((750, 790, 288, 116))
    cradle(752, 896, -264)
    # What hangs over the edge when the cradle comes would be pressed into the rock.
    stage.kill((856, 898, 18, 48))
    stage.lost(478, 872, 946, 44, ((454, 901, 484, 912), (866, 888, 882, 898)), opaque=True)
    stage.solid([(96, 1096), (200, 1112), (426, 1120), (432, 1184), (468, 1184), (474, 1126),
                 (560, 1129), (600, 1132), (690, 1135), (700, 1136), (850, 1150), (866, 1166),
                 (850, 1196), (700, 1206), (92, 1212)], "stone", STONE, name="middle floor")
    stage.solid([(560, 1129), (574, 1120), (590, 1122), (600, 1132)], "sand", name="sawdust")
    stage.solid([(600, 1132), (620, 1116), (660, 1118), (690, 1135)], "sand", name="sawdust")
    stove(196, 1062, (100, 1020, 180, 90))
    stage.check_point(110, 1020, 60, 84)
    stage.shake((98, 960, 76, 60))
    stage.drain(428, 1123, 44, 58)
    freezer((850, 1240, 180, 116))
    stage.lost(518, 570, 1444, 46, ((568, 1404, 596, 1414), (488, 1404, 506, 1412)),
               opaque=True)
    stove(300, 1440, (120, 1404, 370, 110))


def tunnel():
    """Over drains and sawdust to the last cold bowl, and as ice over walls in the updraught."""
    stage.check_point(170, 1600, 60, 78)
    stage.drain(434, 1696, 42, 60)
    stage.drain(790, 1708, 44, 60)
    stage.solid([(576, 1700), (596, 1684), (640, 1680), (684, 1690), (700, 1704)], "sand",
                name="sawdust")
    stage.check_point(900, 1630, 60, 82)
    freezer((1000, 1620, 236, 130))
    for left, right in ((1240, 1400), (1420, 1640), (1660, 1820)):
        sieve(left, right, 1712)
    for x in (1400, 1640):
        stage.solid(box(x, 1640, x + 20, 1730), "stone", BRICK, name="wall")
        stage.post(x - 2, 1730, 1830, 24)
        stage.fan(x - 40, 1782, (x - 84, 1560, 84, 150), (0, -1), 680)
    stage.lost(1246, 1814, 1780, 50, ((1208, 1712, 1240, 1722), (1820, 1712, 1852, 1724)),
               opaque=True)
    stage.wind((1430, 1580, 110, 130), (-1, 0), 90)
    freezer((1450, 1590, 90, 92))


def lowest_storey():
    """The slide to the chute, the plate behind a grate that opens the gate, the lump's lift."""
    stage.check_point(2080, 1830, 60, 90)
    freezer((1966, 1760, 284, 176))
    stage.lost(1298, 1398, 2064, 40, ((1404, 2058, 1430, 2068), (1280, 2040, 1290, 2104)),
               opaque=True)
    # So long that the fastest and coldest lump thaws before it runs into the grate.
    stove(1420, 2160, (1330, 2130, 260, 84), glow=False)
    for y in (2128, 2158):
        stage.solid(box(1600, y, 1614, y + 13), "metal", METAL, name="grate")
    stage.gate((1268, 2127, 14, 89), (0, -82), stage.plate(1640, 2181, 60))
    stage.check_point(1150, 2140, 60, 100)
    # It ends in the bowl: what has only just frozen may thaw again before it is over the edge.
    freezer((1136, 2140, 108, 106))
    lift(992, 2214, 256)
    stage.lost(996, 1084, 2280, 50, ((1090, 2214, 1104, 2226), (978, 2150, 990, 2330)),
               opaque=True)
    stage.trigger("Level_end_a", (690, 1964, 190, 96), name="finish")
    stage.object(784, 2020, "img\\goalGlow.png", layer=0, name="finish")
    stage.playing(784, 1910, "finishSign")


def lift(x, y, height):
    """Three bars that carry a lump and no water, up and down. Water in the cold bowl calls them,
    what is on them below the ledge sends them up; at the pond they, gear and noise stop."""
    bars, gear, noise = (stage.new_id() for _ in range(3))
    for at in (16, 43, 70):
        stage.solid(box(x + at, y, x + at + 10, y + 10), "metal", COPPER, id=bars, name="bar")
    stage.scenery(1, box(x, y + 8, x + 96, y + 14), IRON, id=bars, name="lift")
    for at in (14, 76):
        stage.scenery(1, box(x + at, y - height - 100, x + at + 6, y), IRON, name="rail")
    stage.object(x + 48, y - height - 70, animation("gear"), layer=1, id=gear, name="gear")
    stage.mover(bars, (x, y), (x, y - height), 70, name="lift")
    stage.sound(noise, x + 48, y - height - 70, 420, "snd\\place_gears.wav", looping=True)
    for kind, target in (("Mover_goto_end_loop_1", bars), ("Anim_play_loop_1", gear)):
        stage.trigger(kind, (1960, 1722, 290, 210), target=target, name="lift starts")
    for kind, target in (("Mover_stop_1", bars), ("Anim_stop_1", gear), ("Sound_stop_1", noise),
                         ("Camera_shake_1", 0)):
        stage.trigger(kind, (880, 1890, 40, 90), target=target, name="brake")
    # These two also start the lift again for drops that the brake left behind.
    stage.trigger("Mover_goto_start_loop_a", (1094, 2140, 150, 106), target=bars, name="call")
    stage.trigger("Mover_goto_end_loop_a", (992, 1964, 98, 248), target=bars, name="lift goes")


def frost(points, depth=14):
    """White rime below a ceiling; `points` from left to right."""
    lower = [(x, y + depth + (i * 5) % 9) for i, (x, y) in enumerate(points)]
    stage.scenery(3, points + lower[::-1], FROST, name="rime")


def rime():
    for points in ([(160, 124), (330, 112), (430, 180), (600, 190), (760, 166)],
                   [(1200, 536), (1330, 540), (1420, 584), (1560, 680)],
                   [(1800, 690), (1960, 680), (2110, 716), (2240, 800)],
                   [(1560, 1098), (1740, 1092), (1900, 1104), (2060, 1096), (2110, 1060)],
                   [(640, 630), (900, 660), (1020, 730)], [(380, 640), (640, 630)],
                   [(700, 1206), (850, 1196), (866, 1166)],
                   [(1000, 1580), (1200, 1560), (1330, 1520), (1500, 1490), (1720, 1480),
                    (1900, 1470), (2080, 1480)], [(186, 1586), (500, 1574)], SLIDE_ROOF[:3],
                   POND_ROOF[1:4]):
        frost(points)
    for x, y in ((250, 140), (500, 210), (640, 212), (1240, 562), (1380, 590), (1880, 706),
                 (2060, 728), (1660, 1122), (1800, 1124), (1980, 1126), (560, 656), (760, 672),
                 (930, 700), (620, 1040), (800, 1042), (360, 1234), (340, 1602),
                 (700, 1604), (1140, 1590), (1600, 1506), (1800, 1500), (1380, 1912), (900, 1864)):
        stage.thing(x, y, "icicles", layer=1)


def far_walls():
    """Layer 0: what is seen through the hollow."""
    stage.backdrop(ICEWALL, 40, 92, 2284, 2350)
    for x, y in ((110, 160), (440, 210), (930, 190), (1760, 730), (1900, 730), (250, 720),
                 (590, 720), (230, 1240), (640, 1240), (600, 1596), (1250, 1600), (1460, 1560),
                 (1900, 1560), (2050, 1540), (1700, 1900)):
        stage.arch(x, y, 110, 150, DARK)
    for x, y in ((700, 270), (2050, 820), (800, 760)):
        stage.thing(x, y, "window", layer=0)
    stage.scenery(0, box(1060, 404, 1096, 640), DARK, name="pipe")
    stage.scenery(0, box(1420, 868, 1500, 1250), DARK, name="shaft of air")


def stores():
    """Blocks of ice, crates and sacks behind the water."""
    for x, y, width, height in ((196, 850, 64, 50), (264, 850, 64, 50),
                                (232, 800, 64, 50), (1990, 850, 56, 50),
                                (2046, 876, 48, 44), (700, 1090, 56, 46), (760, 1096, 52, 46),
                                (732, 1046, 56, 46)):
        stage.scenery(1, box(x, y, x + width, y + height), FROST, name="block of ice")
    for x, y, name in ((90, 276, "crate"), (240, 296, "barrel"), (400, 866, "crate"),
                       (1700, 856, "barrel"), (330, 1084, "crate"), (980, 1320, "barrel"),
                       (2210, 1880, "barrel")):
        stage.thing(x, y, name)
    for x, y in ((520, 240), (1280, 610), (930, 740)):
        stage.thing(x, y, "chain")


def pipes():
    stage.pipe([(336, 208), (592, 208), (592, 300)])
    stage.pipe([(432, 190), (432, 330)])
    stage.pipe([(1168, 560), (1168, 624), (1296, 624), (1296, 560)])
    stage.pipe([(2096, 1072), (2232, 1072), (2232, 1180)])
    stage.pipe([(880, 660), (880, 784), (1008, 784)])
    stage.pipe([(880, 1216), (880, 1264), (1000, 1264)])
    for x, y in ((592, 300), (1296, 592), (2232, 1150), (880, 752)):
        stage.gauge(x, y)
    stage.valve(432, 300)
    stage.valve(1008, 784)


def lights():
    for x, y in ((150, 190), (1450, 660), (2190, 860), (300, 770), (900, 1080), (700, 1290),
                 (520, 1640), (1880, 1600), (1620, 1930)):
        stage.lantern(x, y)
    for x, y in ((740, 230), (1660, 780), (1340, 820), (640, 760), (380, 1050), (170, 1470),
                 (1180, 1640), (2190, 1620), (860, 1910)):
        stage.thing(x, y, "lantern")


def life():
    for x, y in ((880, 160), (1046, 180), (1180, 772), (130, 1016), (784, 1850)):
        stage.drip(x, y)
    stage.hum(1870, 900, 400, "wind")


def signs():
    for way, places in (
            ("right", [(560, 270), (1310, 600), (320, 1060), (340, 1640), (1210, 1650),
                       (1920, 1650), (1550, 2140)]),
            ("down", [(1060, 290), (2140, 860), (136, 930), (950, 1180), (200, 1470),
                      (2020, 1800), (1464, 1960)]),
            ("left", [(2020, 1150), (1380, 830), (840, 800), (790, 1280), (1850, 1900),
                      (1230, 2170), (960, 1910)]),
            ("up", [(1460, 1000), (1360, 1600), (1600, 1600), (1040, 2060)])):
        for x, y in places:
            stage.arrow(x, y, way)


def foreground():
    """Dark rock before the mountain, some way from the hollow."""
    stage.foreground([(-900, -900), (3100, -900), (3100, 640), (2280, 740), (2120, 664),
                      (1960, 630), (1800, 642), (1690, 664), (1590, 630), (1450, 534),
                      (1340, 490), (1200, 486), (1146, 500), (1140, 240), (1070, 130), (900, 100),
                      (760, 116), (600, 140), (440, 130), (340, 66), (150, 76), (14, 150),
                      (-900, 150)])
    stage.foreground([(-900, 150), (14, 150), (6, 320), (30, 480), (40, 760), (48, 1090),
                      (44, 1240), (60, 1430), (56, 1700), (130, 1750), (380, 1800), (520, 1810),
                      (590, 1880), (600, 2000), (640, 2090), (730, 2130), (900, 2130), (940, 2290),
                      (980, 2380), (1110, 2384), (1170, 2310), (1330, 2270), (1560, 2250),
                      (1770, 2210), (1790, 2080), (1960, 1980), (2110, 2010), (2260, 1970),
                      (2310, 1700), (2290, 1620), (2236, 1510), (2090, 1430), (3100, 1430),
                      (3100, 2700), (-900, 2700)])
    stage.foreground([(620, 1530), (690, 1462), (850, 1412), (960, 1424), (1060, 1396),
                      (1096, 1340), (1092, 1160), (1108, 1010), (1180, 958), (1320, 950),
                      (1368, 1000), (1372, 1340), (1700, 1350), (2060, 1350), (2200, 1310),
                      (2300, 1250), (2322, 1150), (2304, 1010), (2316, 900), (2280, 740),
                      (3100, 640), (3100, 1430), (2090, 1430), (1900, 1420),
                      (1720, 1430), (1490, 1440), (1320, 1470), (1190, 1510), (1000, 1530),
                      (800, 1540)])
    stage.surround(-880, -880, 3080, 2680)


for draw in (far_walls, pipes, stores, linings, hollow, first_storey, second_storey, third_storey,
             thawing_room, hall, tunnel, lowest_storey, rime, lights, life, signs, foreground):
    draw()
stage.start(140, 220, camera=(784, 1980))
stage.save("05_icestore.tmj")
