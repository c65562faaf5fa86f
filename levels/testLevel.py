"""Draws levels/testLevel.tmj: the cistern, the first level. Run it in this folder.

The water starts high on the left and goes down in four storeys, each with a lesson: a bowl and
planks to the right, into a funnel whose hatch wants patience; an awning, sand and flagstones to
the left, to a hole that speed leaps over; a basin to be left by a swing and a leap across a drain
to the right; a lift up in the tower, ramps down from it, and two hollows to the left, before the
finish. The pump hall on the far left is only to look at: hall and start stand behind the main
menu, left and right of its buttons.
"""

from kit import BRASS, BRICK, COPPER, ROCK, STONE, WALL, Stage, animation, box

stage = Stage()
solid = stage.solid


def mountain():
    """Four rough sides that nothing gets through; the left one ends above in a pillar, with the
    pump hall behind it."""
    solid([(-700, -90), (2620, -90), (2620, 60), (2200, 40), (1960, 60), (1730, 44),
           (1560, 86), (1380, 96), (1200, 60), (1010, 48), (820, 84), (640, 70), (470, 40),
           (300, 56), (120, 44), (40, 60), (-30, 60), (-180, 36), (-330, 58), (-480, 30),
           (-700, 60)], "stone", ROCK, name="roof")
    solid([(-30, 60), (40, 60), (56, 150), (44, 240), (60, 250), (60, 276), (66, 480), (-30, 480)],
          "stone", STONE, name="pillar")
    solid([(-700, 500), (-480, 470), (-240, 494), (-30, 480), (66, 480), (84, 560), (62, 660),
           (40, 760), (66, 846), (92, 950), (60, 1040), (60, 1060), (60, 1080), (70, 1400),
           (70, 1470), (100, 1550), (80, 1640), (84, 1780), (-80, 1790), (-110, 1500), (-130, 1100),
           (-110, 760), (-240, 640), (-480, 600)], "stone", ROCK, name="left side")
    solid([(1730, 44), (1960, 60), (2200, 40), (2620, 60), (2620, 1470), (2440, 1478),
           (2452, 1320), (2440, 1156), (2440, 1140), (2454, 960), (2440, 776), (2440, 760),
           (2450, 600), (2436, 480), (2380, 390), (2260, 350), (2120, 366), (1980, 340),
           (1900, 390), (1868, 480), (1876, 640), (1856, 800), (1870, 930), (1830, 985),
           (1748, 960), (1760, 900), (1762, 860), (1736, 740), (1756, 640), (1700, 540),
           (1740, 420), (1716, 300), (1756, 180)], "stone", ROCK, name="right side, with tower")
    solid([(-80, 1790), (84, 1780), (424, 1786), (644, 1778), (964, 1784), (1424, 1779),
           (2200, 1790), (2620, 1790), (2620, 1900), (-80, 1900)], "stone", ROCK, name="ground")


def first_storey():
    """To the right: over the bowl's rim, planks and stairs, into a funnel with a hatch."""
    solid([(60, 250), (96, 250), (150, 322), (204, 352), (306, 352), (366, 326), (426, 292),
           (452, 290), (452, 312), (432, 314), (372, 348), (310, 374), (200, 374), (136, 342),
           (84, 276), (60, 276)], "metal", name="start bowl")
    solid([(60, 276), (84, 276), (136, 342), (200, 374), (310, 374), (372, 348), (432, 314),
           (452, 312), (564, 341), (676, 370), (788, 399), (900, 426), (896, 500), (760, 512),
           (600, 470), (452, 420), (340, 470), (180, 452), (66, 480)], "stone", ROCK,
          name="under bowl and planks")
    stage.tiles(452, 290, 112, [0, 29, 58, 87, 114], 22, "wood", name="plank")
    stage.tiles(900, 404, 60, [0, 26, 52, 78, 104, 130], 22, "stone", STONE, "stair")
    solid([(900, 426), (960, 452), (1020, 478), (1080, 504), (1140, 530), (1200, 556),
           (1196, 640), (1120, 650), (1000, 580), (896, 500)], "stone", ROCK,
          name="under the stair")
    solid([(820, 84), (1010, 48), (960, 170), (930, 236), (900, 246), (880, 180)], "stone", ROCK,
          name="hanging tooth")
    solid([(1200, 534), (1216, 534), (1300, 630), (1300, 712), (1284, 712), (1284, 640),
           (1200, 556)], "metal", name="funnel, left")
    solid([(1700, 540), (1718, 486), (1560, 540), (1412, 630), (1412, 712), (1428, 712),
           (1428, 642), (1566, 560)], "metal", name="funnel, right")


def hatch():
    """Closes the funnel; draws aside once water lies on it, and the valve opens with it."""
    full = (1300, 600, 112, 110)
    id = stage.new_id()
    solid(box(1284, 710, 1428, 726), "metal", COPPER, id=id, name="hatch")
    stage.rail((1356, 719), (1500, 719), 144)
    stage.mover(id, (1356, 719), (1498, 719), 42, name="hatch")
    stage.trigger("Mover_goto_end_1", full, target=id, delay=0.6, name="hatch opens")
    stage.winch(1230, 690, full, 0.6, 4.0)
    stage.pipe([(1104, 40), (1104, 250), (1648, 250), (1648, 330)])
    stage.spout(1648, 346, full, delay=2.4, settings="splash")
    stage.dries(1104, 220, "steam", full, (-1, -0.5))


def second_storey():
    """To the left: an awning, sand that brakes, flagstones, and gently into a hole."""
    solid([(1148, 742), (1172, 742), (1250, 786), (1340, 804), (1430, 794), (1520, 752),
           (1546, 752), (1546, 766), (1526, 768), (1436, 808), (1340, 818), (1246, 800),
           (1166, 758), (1148, 758)], "cloth", name="awning")
    solid([(760, 860), (830, 826), (900, 812), (900, 900), (760, 900)], "sand",
          name="dune 1")
    solid([(900, 812), (970, 820), (1040, 850), (1040, 900), (900, 900)], "sand",
          name="dune 2")
    solid([(1040, 850), (1100, 860), (1148, 858), (1148, 900), (1040, 900)], "sand",
          name="dune 3")
    solid([(1148, 858), (1300, 903), (1148, 900)], "stone", name="way back on the dune")
    stage.tiles(340, 880, 60, [0, -10, -4, -14, -8, -24, -20, -20], 40, "stone", STONE, "paving")
    solid([(340, 920), (400, 910), (460, 916), (520, 906), (580, 912), (640, 896), (700, 900),
           (760, 900), (900, 900), (1040, 900), (1148, 900), (1300, 903), (1760, 900),
           (1748, 960), (1560, 992), (1300, 968), (1100, 1004), (880, 974), (640, 1010),
           (470, 980), (356, 960)], "stone", ROCK, name="middle floor")
    solid([(66, 846), (140, 872), (240, 904), (232, 930), (150, 934), (92, 950)], "stone", STONE,
          name="ledge behind the hole")
    solid([(560, 640), (800, 664), (980, 640), (1120, 690), (1080, 720), (900, 724), (700, 730),
           (580, 700)], "stone", ROCK, name="floating rock")
    solid([(300, 640), (420, 672), (424, 690), (304, 658)], "wood",
          name="plank over the shaft")


def third_storey():
    """To the right again: a pan that gathers the water, a basin to be left by a swing, a leap
    across a drain."""
    solid([(60, 1060), (84, 1060), (170, 1112), (230, 1132), (290, 1134), (350, 1098),
           (366, 1100), (440, 1180), (440, 1198),
           (396, 1196), (244, 1152), (60, 1080)], "metal", name="pan")
    solid([(60, 1080), (244, 1152), (396, 1196), (440, 1198), (470, 1240), (520, 1292),
           (600, 1320), (700, 1324), (790, 1290), (850, 1226), (880, 1200), (940, 1200),
           (940, 1362), (760, 1380), (420, 1352), (70, 1400)], "stone", STONE, name="long basin")
    solid([(940, 1200), (1010, 1196), (1080, 1204), (1080, 1230), (1076, 1348), (940, 1362)],
          "stone", STONE, name="basin wall")
    stage.tiles(1080, 1204, 80, [0, 6, 12, 8, 16], 26, "wood", name="deck")
    solid([(1080, 1230), (1160, 1236), (1240, 1242), (1320, 1238), (1400, 1246), (1400, 1366),
           (1076, 1348)], "stone", ROCK, name="under the deck")
    stage.drain(1400, 1246, 110, 120)
    solid([(1400, 1366), (1510, 1366), (1510, 1248), (1640, 1258), (1760, 1262), (1940, 1262),
           (1974, 1290), (2080, 1290), (2080, 1262), (2120, 1262), (2120, 1400), (2096, 1420),
           (2020, 1420), (1960, 1434),
           (1760, 1418), (1560, 1440), (1396, 1430)], "stone", STONE, name="landing")
    solid([(70, 1400), (420, 1352), (760, 1380), (940, 1362), (1076, 1348), (1400, 1366),
           (1396, 1430), (1200, 1452), (1000, 1430), (800, 1470), (600, 1446), (400, 1480),
           (230, 1450), (70, 1470)], "stone", ROCK, name="lower ceiling")


def tower():
    """A lift that goes up with the water on it, comes when it is called, and ramps down again."""
    id, (x, y) = stage.new_id(), (1940, 1262)
    # Its right end runs inside of the wall, so that no water is caught between the two.
    solid([(x - 3, y), (x + 8, y), (x + 18, y + 10), (x + 148, y + 10), (x + 148, y + 30),
           (x + 33, y + 30)], "metal", COPPER, id=id, name="lift")
    stage.hazard(x + 34, y + 20, x + 140, y + 28, id=id)
    stage.rail((x + 70, y + 14), (x + 70, 604), 140)
    stage.mover(id, (x, y), (x, 590), 80, name="lift")
    stage.trigger("Mover_goto_start_a", stage.plate(1720, 1262, 90), target=id, name="calls")
    stage.trigger("Mover_goto_end_a", (x + 20, y - 40, 100, 50), target=id, name="lifts")
    stage.hum(x + 70, 940, 420, "machine")
    # What it comes down on is crushed, and not pressed into the landing.
    stage.kill([(x + 1, y), (x + 35, y + 28), (x + 35, y + 38), (x + 1, y + 10)])
    stage.kill((x + 35, y + 27, 105, 10))
    solid([(2080, 600), (2120, 604), (2120, 622), (2127, 780), (2120, 950), (2120, 966),
           (2127, 1110), (2120, 1262), (2080, 1262)], "stone", BRICK, name="tower wall")
    solid([(2120, 604), (2250, 617), (2250, 633), (2120, 622)], "wood", name="gallery")
    solid([(2440, 760), (2440, 776), (2216, 866), (2210, 852)], "metal", name="upper ramp")
    solid([(2120, 950), (2340, 1040), (2336, 1054), (2120, 966)], "wood", name="middle ramp")
    solid([(2440, 1140), (2440, 1156), (2216, 1246), (2210, 1232)], "metal", name="lower ramp")


def fourth_storey():
    """Right to a plate, left through the gate it lifts: a chute, a hollow of stone, planks, a hollow of sand, the finish."""
    solid([(2440, 1478), (2350, 1478), (2210, 1496), (2100, 1516), (2020, 1516), (1756, 1560),
           (1756, 1580), (2020, 1536), (2100, 1536), (2210, 1516), (2350, 1498), (2440, 1498)],
          "wood", name="boards")
    plate = stage.plate(2360, 1478, 76)
    stage.gate((2050, 1418, 20, 100), (0, -92), plate, speed=40, edge=False)
    stage.winch(2176, 1330, plate, 0.0, 2.3)
    solid([(1756, 1560), (1640, 1590), (1500, 1628), (1420, 1640), (1420, 1656), (1496, 1646),
           (1640, 1608), (1756, 1580)], "metal", name="chute")
    solid([(1756, 1580), (1640, 1608), (1496, 1646), (1420, 1656), (1424, 1779), (2200, 1790),
           (2620, 1790), (2620, 1470), (2440, 1478), (2440, 1498), (2350, 1498), (2210, 1516), (2100, 1536),
           (2020, 1536)],
          "stone", ROCK, name="under the chute")
    solid([(1420, 1640), (1340, 1690), (1260, 1716), (1180, 1716), (1110, 1684), (1050, 1640),
           (1020, 1632), (960, 1632), (960, 1656), (964, 1784), (1424, 1779), (1420, 1656)],
          "stone", STONE, name="hollow of stone")
    stage.tiles(640, 1632, 80, [44, 33, 22, 11, 0], 24, "wood", name="walk")
    solid([(640, 1700), (720, 1689), (800, 1678), (880, 1667), (960, 1656), (964, 1784),
           (644, 1778)], "stone", ROCK, name="under the walk")
    solid([(640, 1676), (600, 1704), (540, 1716), (480, 1704), (440, 1672), (420, 1664),
           (424, 1786), (644, 1778), (640, 1700)], "sand", name="hollow of sand")
    solid([(420, 1664), (404, 1664), (376, 1716), (330, 1744), (230, 1750), (150, 1724),
           (80, 1640), (84, 1780), (424, 1786)], "metal", BRASS, name="finish basin")
    stage.finish(120, 1650, 280, 100, basin=False)


def check_points():
    stage.check_point(1240, 540, 240, 160)
    stage.check_point(150, 980, 230, 152)
    stage.check_point(930, 1090, 160, 106)
    stage.check_point(1590, 1140, 110, 118)
    stage.check_point(2130, 1370, 210, 130)


def far_walls():
    """Layer 0: masonry with arches and windows let into it."""
    for area in ((-620, 20, 40, 520), (40, 20, 1780, 1780), (1780, 320, 2460, 1590)):
        stage.backdrop(WALL, *area)
    for x, y in ((620, 150), (1060, 150), (1500, 150), (120, 580), (620, 740), (1500, 620),
                 (300, 1010), (1060, 1020), (-250, 150), (-480, 150), (1180, 1470), (480, 1490),
                 (1900, 470), (2200, 430), (2190, 1180)):
        stage.arch(x, y, 180, 260)
    for x, y in ((330, 170), (1350, 160), (880, 330), (850, 1150), (560, 1140), (1640, 1100),
                 (830, 1560), (2320, 520), (2320, 920), (1800, 1490)):
        stage.thing(x, y, "window", layer=0)


def pipes():
    stage.pipe([(-600, 112), (20, 112), (20, 40)])
    stage.pipe([(496, 40), (496, 210), (720, 210), (720, 40)])
    stage.pipe([(272, 470), (272, 780), (620, 780), (620, 890)])
    stage.pipe([(1648, 560), (1648, 900)])
    stage.pipe([(-130, 300), (-130, 490)])
    stage.pipe([(1168, 1100), (1392, 1100), (1392, 1000)])
    stage.pipe([(1904, 380), (1904, 1230)])
    stage.pipe([(2384, 400), (2384, 720)])
    stage.pipe([(1488, 1440), (1488, 1530), (1740, 1530), (1740, 1430)])
    stage.pipe([(1000, 1430), (1000, 1520), (680, 1520), (680, 1450)])


def timber():
    stage.post(1148, 758, 900, 12)
    stage.post(1534, 766, 900, 12)
    for x in (690, 1010, 1330):
        stage.post(x, 980, 1330, 26)
    stage.beam(620, 1440, 1030)
    for x, reach in ((716, 60), (690, -60), (1036, 60), (1010, -60), (1330, -60)):
        stage.brace(x, 1052, reach, 18)
    stage.post(600, 60, 340, 20)
    stage.beam(480, 760, 110, 18)


def machines():
    """What turns, glows and shows pressure; nothing of it touches the water."""
    stage.gear(-300, 300, big=True)
    stage.gear(-184, 388)
    stage.gear(-390, 196)
    stage.playing(-472, 330, "fan")
    stage.hum(-300, 300, 460, "gears")
    stage.wheel(-128, 316)
    stage.wheel(496, 216)
    stage.gauge(610, 186)
    stage.gauge(-400, 108)
    stage.valve(-130, 120)
    stage.valve(1450, 240)
    stage.gauge(1260, 226)
    stage.wheel(272, 730)
    stage.gauge(440, 760)
    stage.wheel(1392, 1096)
    stage.wheel(680, 1516)
    stage.gauge(860, 1500)
    stage.gear(1600, 380, big=True)
    stage.gear(2370, 1290, big=True)
    stage.gear(2180, 470, big=True)
    stage.gear(2290, 450)
    stage.wheel(1904, 620)
    stage.gauge(1904, 1000)
    stage.gauge(1620, 1524)
    stage.wheel(2384, 560)
    stage.hum(2260, 480, 420, "gears")
    stage.hum(1600, 380, 320, "gears")


def lights():
    for x, y in ((-60, 250), (200, 96), (560, 140), (1000, 260), (1340, 470),
                 (520, 560), (1000, 780), (180, 820), (690, 1120), (1470, 1090),
                 (1620, 1470), (340, 1540), (1760, 1080), (2040, 420),
                 (2200, 1130), (2010, 1450)):
        stage.lamp(x, y)
    for x, y in ((-330, 150), (880, 610), (200, 1000), (640, 1560)):
        stage.lantern(x, y)


def life():
    """Drips, mist, growth and what people left behind."""
    for x, y in ((300, 58), (896, 248), (1380, 98), (700, 732), (1100, 1004), (-180, 40)):
        stage.drip(x, y)
    stage.mist(640, 1270)
    stage.mist(1340, 880)
    stage.steam_leak(720, 196, (1, -0.4))
    stage.hum(260, 1700, 420, "surf")
    stage.mist(560, 1690)
    stage.drip(1200, 1452)
    stage.moss([(1000, 1430), (800, 1470), (600, 1446), (400, 1480), (230, 1450)])
    stage.moss([(66, 480), (180, 452), (340, 470), (452, 420)])
    stage.moss([(896, 500), (1000, 580), (1120, 650), (1196, 640)])
    stage.moss([(580, 700), (700, 730), (900, 724), (1080, 720)])
    stage.moss([(640, 1010), (880, 974), (1100, 1004), (1300, 968)])
    stage.moss([(470, 40), (640, 70), (820, 84)], 34)
    stage.moss([(-480, 30), (-330, 58), (-180, 36)], 34)
    for x, y in ((-420, 462), (-90, 470), (150, 628)):
        stage.thing(x, y, "weeds", layer=3)
    for x, y in ((620, 876), (830, 1186), (1050, 1180), (1600, 884)):
        stage.thing(x, y - 8, "weeds", layer=1)
    stage.thing(-260, 454, "crate")
    stage.thing(-196, 450, "barrel")
    stage.thing(1640, 870, "crate")
    stage.thing(1590, 864, "barrel")
    stage.thing(1190, 1180, "barrel")
    stage.thing(400, 88, "chain")
    stage.thing(1540, 130, "chain")
    stage.thing(140, 700, "ladder")
    stage.thing(140, 820, "ladder")


def signs():
    """Arrows on the wall, where the way turns."""
    for x, y, way in ((590, 276, "right"), (1140, 420, "right"), (1356, 520, "down"),
                      (1090, 780, "left"), (520, 830, "left"), (330, 1090, "right"),
                      (1000, 1130, "right"), (1320, 1110, "right"),
                      (1700, 1180, "right"), (2100, 1180, "up"), (2170, 540, "right"),
                      (2220, 1410, "right"), (1900, 1470, "left"), (1360, 1570, "left"),
                      (980, 1580, "left"), (460, 1620, "left")):
        stage.arrow(x, y, way)


def before():
    """Layer 4: dark rocks near the eye."""
    stage.foreground([(-1200, 1760), (-60, 1780), (160, 1830), (420, 1812), (760, 1846),
                      (1080, 1816), (1400, 1836), (1700, 1820), (2000, 1842), (2300, 1816),
                      (3600, 1760), (3600, 2900), (-1200, 2900)])
    stage.foreground([(-1200, -1200), (3600, -1200), (3600, -40), (2500, 0), (1700, -8),
                      (1300, 24), (900, -12), (500, 10), (100, -14), (-300, 6), (-1200, -30)])
    stage.foreground([(-2200, -400), (-540, -400), (-590, 100), (-560, 440), (-420, 540),
                      (-150, 560), (-20, 640), (4, 760), (-24, 1100), (-6, 1500), (20, 1900),
                      (-2200, 2300)])
    stage.foreground([(2512, -400), (3600, -400), (3600, 2300), (2530, 1900), (2520, 1500),
                      (2540, 1000), (2506, 600), (2530, 200)])
    stage.surround(-1180, -1180, 3580, 2880)


far_walls()
pipes()
timber()
machines()
lights()
signs()
mountain()
first_storey()
hatch()
second_storey()
third_storey()
tower()
fourth_storey()
check_points()
life()
before()
stage.start(240, 180, camera=(0, 270))
stage.save("testLevel.tmj")
