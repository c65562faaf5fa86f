"""Draws levels/05_icestore.tmj: the ice store. Run it in this folder.

What water can't cross, ice can: a lump as wide as 45 units slides over sieves and through
wind, but thaws within five seconds of leaving the cold, and doesn't fit through a pipe. The way
goes right over the first sieve, through a pipe, down the ice run and over a chasm, back left
through the windy gallery, up a shaft of air, and as water again over sawdust to the pond.
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
POND = [(488, 1404), (458, 1486), (390, 1526), (300, 1540), (200, 1530), (140, 1494), (116, 1416)]
POND_BACK = [(506, 1404), (476, 1500), (398, 1546), (300, 1560), (192, 1550), (124, 1506),
             (96, 1416)]
HALL_LEFT = [(92, 1212), (96, 1096), (90, 760)]
HALL_ROOF = [(180, 680), (380, 640), (640, 630), (900, 660), (1020, 730), (1040, 842), (1128, 836)]
MIDDLE = (1128, 770)  # where the two inner walls meet, on the roof of the thawing room
THAW_ROOF = [(1200, 756), (1330, 778), (1450, 822), (1500, 862)]
GALLERY_ROOF = [(1500, 1080), (1560, 1098), (1740, 1092), (1900, 1104), (2060, 1096),
                (2110, 1060), (2114, 960)]
CHASM = [(2080, 930), (1976, 900), (1984, 1036), (1760, 1036)]
RUN = [(1770, 880), (1728, 894), (1688, 890), (1640, 868), (1490, 772), (1340, 672)]
RUN_BACK = [(1770, 902), (1726, 916), (1682, 910), (1630, 888), (1480, 792), (1340, 700)]
COLD_2 = [(1340, 672), (1318, 676), (1276, 702), (1210, 708), (1160, 698), (1140, 664), (1060, 648)]
COLD_2_BACK = [(1340, 700), (1322, 700), (1282, 722), (1206, 730), (1148, 714), (1128, 680),
               (1046, 660)]
STOVE_FLOOR = [(1060, 648), (1060, 632), (1060, 404), (1010, 388), (940, 376)]
DRAIN = [(892, 360), (884, 470), (620, 470)]
COLD_1 = [(612, 360), (596, 360), (566, 386), (500, 402), (400, 400), (352, 378), (330, 350)]
COLD_1_BACK = [(612, 382), (602, 382), (572, 406), (504, 424), (394, 420), (340, 394), (322, 366)]
START_FLOOR = [(330, 350), (200, 318), (60, 300)]


def hollow():
    stage.shell(ROOF + COLD_3_BACK + GALLERY_FLOOR + THAW_FLOOR + HALL_RIGHT +
                COLD_5_BACK[:-1] + LAST_FLOOR + POND_BACK + HALL_LEFT + [START_FLOOR[-1]], margin=800)
    stage.solid(STOVE_FLOOR + DRAIN + COLD_1_BACK + START_FLOOR + HALL_LEFT[-1:] +
                HALL_ROOF + [MIDDLE, COLD_2_BACK[-1]], "stone", STONE, name="below the first storey")
    stage.solid(THAW_ROOF + GALLERY_ROOF + CHASM + RUN_BACK + COLD_2_BACK[1:] + [MIDDLE], "stone",
                STONE, name="below the second storey")


def linings():
    for inner, back, surface, texture, name in (
            (COLD_1, COLD_1_BACK, "cloth", SACK, "first cold bowl"),
            (COLD_2, COLD_2_BACK, "cloth", SACK, "second cold bowl"),
            (COLD_3, COLD_3_BACK, "cloth", SACK, "third cold bowl"),
            (COLD_4, COLD_4_BACK, "cloth", SACK, "fourth cold bowl"),
            (COLD_5, COLD_5_BACK, "cloth", SACK, "fifth cold bowl"),
            (RUN, RUN_BACK, "wood", WOOD, "ice run"),
            (POND, POND_BACK, "metal", BRASS, "pond")):
        stage.solid(inner + back[::-1], surface, texture, name=name)


def sieve(left, right, y, gap=16, bar=10):
    """Bars that carry a lump; water falls between them and is drawn down."""
    count = round((right - left - gap) / (gap + bar))
    step = (right - left - gap) / count
    for i in range(count):
        x = round(left + gap + i * step)
        stage.solid(box(x, y, x + bar, y + 10), "metal", IRON, name="sieve")
    stage.wind((left + 4, y - 12, right - left - 8, 80), (0, 1), 600)


def first_storey():
    stage.freezer((330, 220, 290, 184))
    sieve(612, 892, 360)
    stage.kill((612, 410, 280, 54))
    stage.warmer((900, 240, 196, 170))


def second_storey():
    stage.solid([(1060, 632), (1120, 642), (1140, 664), (1060, 648)], "cloth", SACK, name="sack")
    stage.check_point(1160, 610, 70, 90)
    stage.freezer((1150, 560, 186, 148))
    stage.kill((1770, 976, 206, 60))


def third_storey():
    stage.check_point(2160, 1080, 70, 90)
    stage.freezer((2064, 1060, 200, 180))
    sieve(1840, 2060, 1200)
    stage.solid(box(1780, 1200, 1840, 1216), "wood", name="island")
    sieve(1500, 1780, 1200)
    sieve(1420, 1500, 1200)
    stage.kill((1420, 1250, 640, 46))
    stage.fan(1400, 1150, (1560, 1106, 440, 86), (1, 0), 110)
    stage.fan(1460, 1260, (1424, 880, 72, 318), (0, -1), 560)


def thawing_room():
    stage.warmer((1130, 770, 270, 140))
    stage.check_point(1160, 810, 60, 80)


def cradle(x, y, travel):
    """A ferry of bars: it carries a lump, and its low rims let it off under a steep tilt."""
    id = stage.new_id()
    for at in (0, 102):
        stage.solid(box(x + at, y - 7, x + at + 8, y + 10), "metal", COPPER, id=id, name="rim")
    for at in (21, 42, 63, 84):
        stage.solid(box(x + at, y, x + at + 6, y + 10), "metal", COPPER, id=id, name="bar")
    stage.mover(id, (x, y), (x + travel, y), 100, name="cradle")
    stage.trigger("Mover_goto_start_a", (880, 790, 158, 116), target=id, name="cradle comes")
    stage.trigger("Mover_goto_end_a", (x + 20, y - 40, 70, 36), target=id, name="cradle goes")


def hall():
    """Left with the cradle, right over sawdust, left again with a jump into the pond."""
    stage.solid(COLD_4_BACK + [(880, 884), (866, 888), (872, 990), (478, 990), (484, 902), (330, 898), (190, 906), (176, 930),
                 (190, 1012), (1044, 1016)], "stone", STONE, name="upper floor")
    stage.freezer((750, 790, 288, 116))
    cradle(752, 896, -264)
    stage.kill((476, 950, 398, 38))
    stage.solid([(96, 1096), (200, 1112), (426, 1120), (430, 1184), (480, 1184), (484, 1126),
                 (700, 1136), (850, 1150), (866, 1166), (850, 1196), (700, 1206), (92, 1212)],
                "stone", STONE, name="middle floor")
    stage.warmer((100, 1020, 180, 90))
    stage.check_point(150, 1040, 60, 66)
    stage.drain(426, 1122, 58, 58)
    stage.freezer((850, 1240, 180, 116))
    stage.kill((524, 1440, 46, 44))
    stage.trigger("Level_end_a", (130, 1420, 340, 120), name="finish")


linings()
hollow()
first_storey()
second_storey()
third_storey()
thawing_room()
hall()
stage.start(140, 220, camera=(300, 1460))
stage.backdrop(ICEWALL, -800, -800, 3100, 2200)
stage.save("05_icestore.tmj")
