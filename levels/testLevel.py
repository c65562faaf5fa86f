"""Draws levels/testLevel.tmj: the cistern, the first level. Run it in this folder.

The water starts high on the left and goes down in three storeys: a metal bowl and a plank
ramp to the right, an awning and sand to the left, a slide and a long basin to the right again,
into the finish at the lower right.
"""

from tiled import Map

STONE, ROCK, WOOD, METAL = "img\\masonry.png", "img\\rock.png", "img\\wood.png", "img\\metal.png"
CLOTH, SAND, PIPE, WALL = "img\\cloth.png", "img\\sand.png", "img\\pipe.png", "img\\wall.png"
PLASTER, IRON, MOSS, DARK = "img\\plaster.png", "img\\iron.png", "img\\moss.png", "img\\dark.png"

level = Map()


def solid(points, surface, texture, name="", **options):
    level.polygon(points, surface, texture, layer=1, name=name, **options)


def scenery(layer, points, texture, name=""):
    level.polygon(points, "stone", texture, layer=layer, flags="scenery", name=name)


def box(left, top, right, bottom):
    return [(left, top), (right, top), (right, bottom), (left, bottom)]


def tiles(left, top, width, heights, thickness, surface, texture, name):
    """Tiles side by side that share edges; `heights` are the tops at each joint."""
    for i in range(len(heights) - 1):
        x = left + i * width
        a, b = top + heights[i], top + heights[i + 1]
        solid([(x, a), (x + width, b), (x + width, b + thickness), (x, a + thickness)], surface,
              texture, f"{name} {i + 1}")


def shell():
    """The mountain: four rough sides that nothing gets through."""
    solid([(-400, -400), (2200, -400), (2200, 40), (1960, 60), (1730, 44), (1560, 86),
           (1380, 96), (1200, 60), (1010, 48), (820, 84), (640, 70), (470, 40), (300, 56),
           (120, 44), (40, 60), (-400, 60)], "stone", ROCK, "roof")
    solid([(-400, 60), (40, 60), (56, 150), (44, 240), (60, 250), (60, 276), (66, 480), (84, 560),
           (62, 660), (40, 760), (66, 860), (92, 960), (60, 1040), (60, 1080), (70, 1400), (-400, 1400)], "stone", ROCK, "left side")
    solid([(1730, 44), (1960, 60), (2200, 40), (2200, 1400), (1752, 1400), (1760, 1300), (1756, 1270),
           (1744, 1180),
           (1770, 1080), (1748, 960), (1760, 900), (1762, 860), (1736, 740), (1756, 640), (1700, 540),
           (1740, 420), (1716, 300), (1756, 180)], "stone", ROCK, "right side")
    solid([(-400, 1400), (70, 1400), (420, 1352), (760, 1380), (1076, 1348), (1400, 1366),
           (1752, 1400), (2200, 1400), (2200, 1800), (-400, 1800)], "stone", ROCK, "ground")


def first_storey():
    solid([(60, 250), (96, 250), (150, 322), (204, 352), (306, 352), (366, 326), (426, 292),
           (452, 290), (452, 312), (432, 314), (372, 348), (310, 374), (200, 374), (136, 342),
           (84, 276), (60, 276)], "metal", METAL, "start bowl")
    solid([(60, 276), (84, 276), (136, 342), (200, 374), (310, 374), (372, 348), (432, 314),
           (452, 312), (564, 341), (676, 370), (788, 399), (900, 426), (896, 500), (760, 512),
           (600, 470), (452, 420), (340, 470), (180, 452), (66, 480)], "stone", ROCK,
          "under bowl and planks")
    tiles(452, 290, 112, [0, 29, 58, 87, 114], 22, "wood", WOOD, "plank")
    tiles(900, 404, 60, [0, 26, 52, 78, 104, 130], 22, "stone", STONE, "stair")
    solid([(900, 426), (960, 452), (1020, 478), (1080, 504), (1140, 530), (1200, 556),
           (1196, 640), (1120, 650), (1000, 580), (896, 500)], "stone", ROCK, "under the stair")
    solid([(820, 84), (1010, 48), (960, 170), (930, 236), (900, 246), (880, 180)], "stone", ROCK,
          "hanging tooth")
    solid([(1200, 534), (1216, 534), (1300, 630), (1300, 712), (1284, 712), (1284, 640),
           (1200, 556)], "metal", METAL, "funnel, left")
    solid([(1700, 540), (1718, 486), (1560, 540), (1412, 630), (1412, 712), (1428, 712),
           (1428, 642), (1566, 560)], "metal", METAL, "funnel, right")


def second_storey():
    solid([(1148, 742), (1172, 742), (1250, 786), (1340, 804), (1430, 794), (1520, 752),
           (1546, 752), (1546, 766), (1526, 768), (1436, 808), (1340, 818), (1246, 800),
           (1166, 758), (1148, 758)], "cloth", CLOTH, "awning")
    solid([(760, 860), (830, 826), (900, 812), (900, 900), (760, 900)], "sand", SAND, "dune 1")
    solid([(900, 812), (970, 820), (1040, 850), (1040, 900), (900, 900)], "sand", SAND, "dune 2")
    solid([(1040, 850), (1100, 860), (1148, 858), (1148, 900), (1040, 900)], "sand", SAND,
          "dune 3")
    tiles(460, 880, 60, [0, -14, -8, -24, -20, -20], 40, "stone", STONE, "paving")
    solid([(460, 920), (520, 906), (580, 912), (640, 896), (700, 900), (1760, 900), (1748, 960),
           (1560, 992), (1300, 968), (1100, 1004), (880, 974), (640, 1010), (470, 980)],
          "stone", ROCK, "middle floor")
    solid([(560, 640), (800, 664), (980, 640), (1120, 690), (1080, 720), (900, 724), (700, 730),
           (580, 700)], "stone", ROCK, "floating rock")
    solid([(300, 640), (420, 672), (424, 690), (304, 658)], "wood", WOOD, "plank over the shaft")


def third_storey():
    solid([(60, 1060), (84, 1060), (250, 1132), (400, 1176), (440, 1180), (440, 1198),
           (396, 1196), (244, 1152), (60, 1080)], "metal", METAL, "slide")
    solid([(60, 1080), (244, 1152), (396, 1196), (440, 1198), (470, 1240), (520, 1292),
           (600, 1320), (700, 1324), (790, 1290), (850, 1226), (880, 1200), (940, 1200),
           (940, 1362), (760, 1380), (420, 1352), (70, 1400)], "stone", STONE, "long basin")
    solid([(940, 1200), (1010, 1196), (1080, 1204), (1080, 1230), (1076, 1348), (940, 1362)], "stone", STONE,
          "basin wall")
    tiles(1080, 1204, 80, [0, 6, 12, 8, 16], 26, "wood", WOOD, "deck")
    solid([(1080, 1230), (1160, 1236), (1240, 1242), (1320, 1238), (1400, 1246), (1400, 1366),
           (1076, 1348)], "stone", ROCK, "under the deck")
    solid([(1150, 1084), (1380, 1096), (1380, 1116), (1150, 1104)], "metal", PIPE, "duct roof")
    solid([(1400, 1220), (1418, 1220), (1450, 1290), (1500, 1330), (1600, 1342), (1690, 1326),
           (1756, 1270), (1760, 1300), (1752, 1400), (1400, 1366)], "metal", METAL,
          "finish basin")


def walls():
    """Layer 0: the masonry behind everything, with arches let into it."""
    for x in range(-200, 2000, 440):
        for y in range(-100, 1600, 425):
            scenery(0, box(x, y, x + 440, y + 425), WALL, "wall")
    for x in (180, 620, 1060, 1500):
        for y in (150, 590, 1030):
            arch = [(x, y + 260), (x, y + 90), (x + 14, y + 48), (x + 44, y + 16), (x + 90, y),
                    (x + 136, y + 16), (x + 166, y + 48), (x + 180, y + 90), (x + 180, y + 260)]
            scenery(0, arch, PLASTER, "arch")


def behind():
    """Layer 1: pipes, beams and posts behind the water."""
    scenery(1, box(486, 40, 510, 330), PIPE, "down pipe")
    scenery(1, box(1080, 40, 1104, 520), PIPE, "down pipe")
    scenery(1, box(1104, 236, 1720, 258), PIPE, "cross pipe")
    scenery(1, box(250, 470, 274, 1120), PIPE, "shaft pipe")
    scenery(1, box(274, 772, 620, 792), PIPE, "shaft branch")
    scenery(1, box(596, 792, 620, 900), PIPE, "branch down")
    scenery(1, box(1620, 560, 1648, 900), PIPE, "right pipe")
    scenery(1, box(1148, 758, 1160, 900), WOOD, "awning post, left")
    scenery(1, box(1534, 766, 1546, 900), WOOD, "awning post, right")
    for x in (690, 1010, 1330):
        scenery(1, box(x, 980, x + 30, 1360), WOOD, "post")
    scenery(1, box(640, 1040, 1420, 1062), WOOD, "beam")
    scenery(1, [(690, 1110), (640, 1062), (668, 1062), (720, 1110)], WOOD, "brace")
    scenery(1, [(1010, 1110), (960, 1062), (988, 1062), (1040, 1110)], WOOD, "brace")


def before():
    """Layers 3 and 4: ironwork and growth before the water, where it hides nothing."""
    for x in (100, 172, 244, 316):
        scenery(3, box(x, 372, x + 8, 470), IRON, "grate bar")
    scenery(3, box(84, 400, 352, 410), IRON, "grate rail")
    for x in (1460, 1530, 1600, 1670):
        scenery(3, box(x, 1340, x + 8, 1400), IRON, "basin bar")
    scenery(3, [(900, 500), (1000, 580), (1120, 650), (1080, 668), (980, 620), (890, 540)], MOSS,
            "moss under the stair")
    scenery(3, [(700, 730), (900, 724), (1060, 722), (960, 744), (820, 758), (740, 748)], MOSS,
            "moss under the floating rock")
    scenery(4, [(-400, 1330), (-60, 1372), (160, 1430), (420, 1420), (760, 1452), (1080, 1420),
                (1400, 1440), (1700, 1410), (2200, 1340), (2200, 1800), (-400, 1800)], DARK,
            "foreground rocks")
    scenery(4, [(-400, -400), (2200, -400), (2200, -40), (1700, -8), (1300, 24), (900, -12),
                (500, 10), (100, -14), (-400, -30)], DARK, "foreground roof")
    scenery(4, [(-400, -400), (-10, -400), (-30, 300), (4, 700), (-24, 1100), (-6, 1500),
                (-400, 1800)], DARK, "foreground left")
    scenery(4, [(1812, -400), (2200, -400), (2200, 1800), (1820, 1500), (1840, 1000),
                (1806, 600), (1830, 200)], DARK, "foreground right")


walls()
behind()
shell()
first_storey()
second_storey()
third_storey()
before()
level.trigger("Level_end_a", (1450, 1230, 280, 110), name="finish")
level.water_start(240, 180)
level.camera_start(1560, 1240)
level.save("testLevel.tmj")
