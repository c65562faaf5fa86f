"""Draws levels/03_cellar.tmj: a cellar round an open shaft. Run it in this folder.

A careful hand: leaps over the shaft, that want speed; slits; awnings, that want none; ways whose
exit is a hole before a drain; sacks that leak, to be crossed at a run; a lift of barrels back up;
and a stair of short ledges, left and right in turn, down to the basin.
"""

from kit import *

stage = Stage()


def mountain():
    stage.backdrop(WALL, -100, -100, 2400, 1900)
    stage.shell([(40, 60), (500, 40), (1000, 66), (1560, 50), (1540, 250), (1560, 405), (1560, 510),
                 (1560, 590), (1966, 602), (1978, 602), (2240, 610), (2240, 996), (2240, 1010), (2240, 1470), (2240, 1560), (2150, 1560), (1560, 1560),
                 (1560, 1630), (1120, 1630), (1120, 1560), (1040, 1640), (920, 1640),
                 (800, 1545), (480, 1585), (338, 1590), (338, 1670), (122, 1670), (122, 1590),
                 (60, 1590), (60, 1470), (240, 1420), (436, 1436), (436, 900), (480, 900), (480, 870),
                 (480, 672), (250, 660), (40, 660), (40, 560), (40, 420), (40, 240)])
    stage.frame(-20, -10, 2300, 1730)
    stage.solid([(480, 870), (790, 870), (790, 800), (1228, 800), (1600, 800), (1600, 1146), (1600, 1160), (1600, 1340),
                 (1600, 1420), (1560, 1370), (1300, 1340), (1040, 1350), (1040, 900), (480, 900)], "stone", ROCK,
                name="rock under the shaft")
    stage.lost(480, 790, 790, 80)
    for x in (480, 780):
        stage.hazard(x, 760, x + 10, 830)
    stage.thing(660, 480, "chain")
    stage.hum(640, 800, 420, "rumble")
    stage.drip(680, 60)
    stage.drip(1180, 60)


def board(x, top, bottom):
    """Hangs below the end of a shelf, so that nothing slips under it and skips a leap."""
    stage.solid(box(x, top, x + 8, bottom), "wood", name="board")


def awning(points):
    """A cloth between posts; `points` are its two ends."""
    (ax, ay), (bx, by) = points
    stage.solid([(ax, ay), (bx, by), (bx, by + 10), (ax, ay + 10)], "cloth", CLOTH, name="awning")
    hem = [(ax + (bx - ax) * k // 12, ay + (by - ay) * k // 12 + (26 if k % 2 else 14)) for k in range(13)]
    stage.scenery(1, [(ax, ay + 6)] + hem + [(bx, by + 6)], CLOTH, name="awning's hem")
    for x, y in points:
        stage.scenery(1, box(x - 5, y - 24, x + 5, y + 70), BEAM, name="awning post")


def leap():
    """The first leap: a clean run from the left, and a drain behind the landing."""
    stage.solid([(40, 240), (160, 260), (560, 275), (560, 315), (552, 315), (300, 350), (40, 420)],
                "stone", PAVING, name="first shelf")
    board(552, 315, 470)
    stage.arrow(420, 200, "right")
    stage.lamp(240, 120)
    stage.thing(90, 214, "barrel")

    stage.solid([(760, 405), (1320, 405), (1320, 480), (768, 445), (760, 445)], "wood",
                name="second shelf")
    board(760, 445, 640)
    stage.solid([(1320, 405), (1430, 405), (1430, 506), (1320, 480)], "cloth", SACK,
                name="sacks before the drain")
    stage.solid([(1510, 405), (1560, 405), (1560, 510), (1430, 506), (1430, 465), (1510, 465)],
                "stone", name="drain's frame")
    stage.drain(1430, 405, 80)
    stage.check_point(1060, 270, 130, 134)
    stage.arrow(940, 330, "left")
    stage.lamp(1240, 130)
    stage.arch(960, 120, 160, 240)
    stage.arch(1300, 130, 160, 240)
    stage.thing(1290, 370, "crate")


def sand_floor():
    """Sand takes the run out of the water; a plank gives it back, and its plate opens the gate of
    the slit floor on the other side."""
    stage.solid([(40, 560), (160, 586), (250, 592), (250, 660), (40, 660)], "sand",
                name="sand floor")
    stage.solid([(250, 592), (370, 612), (430, 612), (504, 622), (504, 634), (480, 672), (250, 660)], "wood",
                name="plank")
    opener = stage.plate(374, 612, 52)
    gate = stage.gate((772, 620, 14, 140), (0, -124), opener, speed=50)
    stage.hazard(772, 740, 786, 760, id=gate)
    stage.check_point(180, 470, 100, 118)
    stage.arrow(330, 530, "right")
    stage.lamp(120, 480)
    stage.post(330, 350, 600)
    stage.thing(90, 540, "barrel")


def slit_floor():
    """Planks with slits between them: whoever stands still trickles away."""
    stage.solid([(790, 776), (1224, 776), (1228, 800), (790, 800)], "stone", BRICK, name="sill")
    # Each plank lies lower than the one before, or fast water would catch at its edge.
    for left, right, top in ((790, 1070, 740), (1086, 1180, 745), (1196, 1224, 750)):
        stage.solid([(left, top), (right, top + 1), (right, 776), (left, 776)], "wood", name="plank")
    for slit in (1070, 1180):
        stage.drain(slit, 740, 16, depth=36)
    stage.solid([(1224, 751), (1460, 740), (1600, 716), (1600, 728), (1600, 800), (1228, 800), (1224, 776)],
                "stone", name="third shelf")
    stage.check_point(1300, 610, 130, 128)
    stage.arrow(1120, 660, "right")
    stage.arch(1230, 520, 170, 220)
    stage.lamp(980, 560)
    stage.lamp(1480, 590)
    stage.thing(1500, 640, "ladder")


def awnings():
    """Three cloths to slide down: too much tilt flies over the next one."""
    awning([(1600, 716), (1960, 796)])
    awning([(2150, 890), (1780, 975)])
    awning([(1640, 1060), (2010, 1140)])
    stage.solid([(1966, 602), (1978, 602), (1978, 764), (1966, 764)], "wood", name="sign board")
    for left, right, lip, wall, y in ((2160, 2240, 2152, 2240, 940), (1600, 1634, 1642, 1600, 1090)):
        stage.solid([(lip, y), (lip, y + 70), (wall, y + 70), (wall, y + 56), (min(max(lip, left), right), y + 56),
                     (min(max(lip, left), right), y)], "stone", BRICK, name="drain's frame")
        stage.lost(left, right, y + 12, 44)
    for x in (1700, 1960):
        stage.arch(x, 660, 150, 240)
    stage.arrow(2030, 780, "down")
    stage.arrow(1690, 980, "down")
    stage.arrow(2080, 1130, "down")
    stage.lamp(1860, 660)
    stage.lamp(2040, 1010)
    stage.thing(1690, 1190, "chain")
    stage.thing(2150, 1229, "crate")
    stage.drip(1800, 606)


def slow_ways():
    """Each way ends in a hole, and behind the hole in a drain for whoever comes too fast."""
    stage.solid([(1720, 1260), (2180, 1260), (2180, 1290), (1720, 1290)], "stone", PAVING, name="upper way")
    stage.solid([(1652, 1252), (1660, 1252), (1660, 1390), (1660, 1420), (1600, 1420), (1600, 1340),
                 (1652, 1340)], "stone", BRICK, name="upper drain's frame")
    stage.solid(box(1660, 1390, 2090, 1420), "stone", PAVING, name="lower way")
    stage.solid([(2150, 1382), (2158, 1382), (2158, 1470), (2240, 1470), (2240, 1560), (2150, 1560),
                 (2150, 1520)], "stone", BRICK, name="lower drain's frame")
    stage.lost(1600, 1652, 1272, 68)
    stage.lost(2158, 2240, 1398, 72)
    stage.hazard(1652, 1252, 1660, 1290)
    stage.hazard(2150, 1382, 2158, 1420)
    stage.check_point(1900, 1150, 110, 110)
    stage.arrow(1800, 1200, "left")
    stage.arrow(1690, 1330, "down")
    stage.arrow(1940, 1345, "right")
    stage.lamp(2050, 1190)


def leaking_sacks():
    """Sacks in the holes of the floor: they leak, and brake. A run carries over them."""
    stage.solid([(2150, 1520), (2150, 1560), (1560, 1560), (1560, 1521), (1580, 1520)], "stone", name="run-up")
    left = 1560
    for sack in (1490, 1360, 1230):
        stage.solid(box(sack + 50, 1521, left, 1560), "wood", name="plank")
        stage.solid([(sack, 1521), (sack + 25, 1524), (sack + 50, 1521), (sack + 50, 1560), (sack, 1560)], "cloth", SACK, name="leaking sack")
        stage.trigger("Particle_kill_random_a", (sack, 1500, 50, 22), name="leak")
        stage.hazard(sack, 1548, sack + 50, 1560)
        stage.object(sack + 25, 1566, "img\\dangerGlow.png", layer=1, name="leak")
        stage.effect(sack + 25, 1562, "drip", (0, 1))
        left = sack
    stage.solid(box(1120, 1521, left, 1560), "wood", name="plank")
    stage.solid([(1040, 1520), (1100, 1520), (1120, 1521), (1120, 1560), (1040, 1640)], "stone", name="landing of the lift")
    stage.scenery(1, box(1120, 1560, 1560, 1630), SHADE, name="trough")
    stage.kill((1122, 1566, 436, 60))
    stage.hum(1340, 1560, 400, "drip")
    stage.check_point(1960, 1425, 110, 94)
    stage.arrow(1640, 1470, "left")
    stage.lamp(1460, 1400)
    stage.lamp(1240, 1380)
    stage.arch(1330, 1380, 120, 140)
    stage.thing(1590, 1489, "barrel")


def barrel_lift():
    """Rises with what is on it; the plate before it calls it back."""
    id = stage.new_id()
    stage.solid([(918, 1530), (980, 1544), (1042, 1530), (1042, 1544), (1030, 1556), (918, 1556)], "metal", COPPER,
                id=id, name="lift")
    for x in (950, 1010):
        stage.object(x, 1580, "img\\barrel.png", layer=1, id=id, name="barrel of the lift")
    stage.mover(id, (920, 1530), (920, 990), 65, name="lift")
    stage.trigger("Mover_goto_end_a", (920, 1510, 60, 40), target=id, delay=1.6, name="lift rises")
    stage.trigger("Mover_goto_start_a", stage.plate(1052, 1520, 50), target=id, name="lift is called")
    stage.rail((980, 1544), (980, 1004), 120)
    stage.kill((919, 1600, 122, 41))
    stage.scenery(3, box(920, 1596, 1040, 1606), GRATE, name="grille")
    stage.hum(980, 1300, 420, "gears")
    stage.solid([(800, 989), (826, 990), (856, 997), (890, 997), (920, 990), (920, 1640), (800, 1545),
                 (800, 1010)], "stone", ROCK, name="rock between the shafts")
    stage.check_point(740, 904, 110, 85)


def stair():
    """Short ledges, left and right in turn, with a rim before the drains at both sides."""
    stage.solid([(700, 989), (800, 989), (800, 1010), (700, 1002)], "wood", name="nose")
    for i, y in enumerate((1085, 1185, 1285, 1385)):
        left, right = ((490, 665), (600, 764))[i % 2]
        ledge = [(left, y - 28), (left + 10, y), (right, y + 8), (right, y + 24), (left, y + 16)]
        if i % 2:
            ledge = [(left + right - x, y) for x, y in ledge]
        stage.solid(ledge, "wood", name="ledge")
        stage.scenery(1, box((left + right) // 2 - 8, y - 60, (left + right) // 2 + 8, y + 20), BEAM,
                      name="hanger")
    for x, face in ((436, 436), (776, 790)):
        width = 44 if x == 436 else 24
        stage.kill((x, 1020, width, 440))
        stage.scenery(1, box(x, 1020, x + width, 1460), SHADE, name="drain")
        stage.hazard(face, 1020, face + 10, 1460)
        for y in (1100, 1240, 1380):
            stage.object(x + width // 2, y, "img\\dangerGlow.png", layer=1, name="drain")
    stage.arrow(640, 960, "left")
    stage.lamp(660, 1200)
    stage.arrow(700, 1500, "left")
    stage.finish(140, 1590, 180, 60)
    stage.lantern(400, 1500)
    stage.mist(230, 1560)


for part in (mountain, leap, sand_floor, slit_floor, awnings, slow_ways, leaking_sacks, barrel_lift, stair):
    part()
stage.start(150, 160, camera=(230, 1520))
stage.save("03_cellar.tmj")
