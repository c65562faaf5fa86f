"""Draws levels/03_cellar.tmj: a cellar round an open shaft. Run it in this folder.

Shelf by shelf the water leaps across the shaft, each time the other way and lower down: too slow
and it drops into the shaft, too fast and it runs into the drain at the far wall.
"""

from kit import *

LEFT, RIGHT = 560, 760  # the sides of the shaft, where the first leap goes

stage = Stage()


def mountain():
    stage.backdrop(WALL, -100, -100, 1700, 1900)
    stage.shell([(40, 60), (500, 40), (1000, 66), (1560, 50), (1540, 250), (1560, 405),
                 (1560, 500), (1560, 860), (1300, 900), (1120, 980), (960, 980), (880, 900),
                 (786, 880), (786, 1276), (800, 1276), (830, 1200), (1016, 1230), (1016, 1410),
                 (800, 1410), (800, 1700), (560, 1700),
                 (560, 1300), (40, 1300), (40, 1160), (40, 600), (40, 500), (40, 420),
                 (40, 240)])
    stage.frame(-20, -10, 1620, 1780)
    stage.pit(560, 800, 1600)
    stage.thing(680, 500, "chain")
    stage.thing(680, 1050, "chain")
    stage.mist(680, 1540)
    stage.hum(680, 1560, 520, "rumble")
    stage.drip(680, 60)
    stage.drip(1180, 60)


def board(x, top, bottom):
    """Hangs below the end of a shelf, so that nothing slips under it and skips a leap."""
    stage.solid(box(x, top, x + 8, bottom), "wood", name="board")


def leap():
    """The first leap: a clean run from the left, and a drain behind the landing."""
    stage.solid([(40, 240), (160, 260), (LEFT, 275), (LEFT, 315), (LEFT - 8, 315), (300, 350), (40, 420)], "stone",
                PAVING, name="first shelf")
    stage.zoom((300, 160, 80, 120))
    board(LEFT - 8, 315, 470)
    stage.arrow(420, 200, "right")
    stage.lamp(240, 120)
    stage.thing(90, 214, "barrel")

    stage.solid([(RIGHT, 405), (1320, 405), (1320, 480), (RIGHT + 8, 445), (RIGHT, 445)], "wood",
                name="second shelf")
    board(RIGHT, 445, 640)
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
    """Sand takes the run out of the water; a plank gives it back."""
    stage.solid([(40, 500), (160, 526), (250, 532), (250, 600), (40, 600)], "sand",
                name="sand floor")
    stage.solid([(250, 532), (480, 572), (480, 617), (472, 616), (250, 600)], "wood",
                name="plank")
    board(472, 617, 800)
    stage.check_point(180, 410, 100, 118)
    stage.arrow(400, 480, "right")
    stage.lamp(120, 430)
    stage.post(330, 350, 540)
    stage.thing(90, 480, "barrel")


def slit_floor():
    """Planks with slits between them: whoever stands still trickles away."""
    stage.solid([(790, 776), (1224, 776), (1228, 800), (790, 800)], "stone", BRICK, name="sill")
    for left, right in ((790, 880), (904, 1040), (1064, 1224)):
        stage.solid(box(left, 740, right, 776), "wood", name="plank")
    for slit in (880, 1040):
        stage.drain(slit, 740, 24, depth=36)
    stage.solid([(1224, 740), (1440, 740), (1560, 690), (1560, 800), (1228, 800),
                 (1224, 776)], "stone",
                name="third shelf")
    stage.check_point(1270, 610, 130, 128)
    stage.kill((960, 950, 160, 30))
    for x in (1000, 1080):
        stage.object(x, 970, "img\\dangerGlow.png", layer=1)
        stage.playing(x, 964, "drain")
    stage.hazard(936, 956, 960, 966)
    stage.hazard(1120, 970, 1144, 980)
    stage.zoom((1280, 620, 100, 120))
    stage.arrow(1120, 660, "left")
    stage.arch(1230, 520, 170, 220)
    stage.lamp(980, 560)
    stage.thing(1500, 640, "ladder")


def stepping_stones():
    """Three stones over an open gully, and a chute behind the last one."""
    stage.solid([(385, 900), (464, 888), (464, 918), (385, 928)], "stone", name="stone 1")
    stage.solid([(270, 940), (335, 932), (335, 960), (270, 964)], "stone", name="stone 2")
    stage.solid([(165, 970), (220, 964), (220, 990), (165, 994)], "stone", name="stone 3")
    stage.solid([(100, 985), (112, 985), (112, 1100), (LEFT, 1100), (LEFT, 1140), (100, 1140)],
                "stone", BRICK, name="gully")
    stage.kill((112, 1050, 448, 50))
    stage.hazard(112, 1040, 124, 1100)
    stage.hazard(548, 1090, 560, 1100)
    for x in (200, 330, 460):
        stage.object(x, 1090, "img\\dangerGlow.png", layer=1)
        stage.playing(x, 1086, "drain")
    stage.arrow(330, 850, "left")
    stage.lamp(150, 820)
    stage.arch(220, 700, 170, 240)


def last_leap():
    stage.solid([(40, 1160), (130, 1200), (400, 1200), (540, 1226), (540, 1300), (40, 1300)],
                "metal", name="last shelf")
    stage.check_point(190, 1141, 90, 58)
    stage.finish(818, 1330, 180, 60)
    stage.hazard(510, 1226, 540, 1240)
    stage.lantern(900, 1250)


for part in (mountain, leap, sand_floor, slit_floor, stepping_stones, last_leap):
    part()
stage.start(150, 160, camera=(900, 1250))
stage.save("03_cellar.tmj")
