"""Draws levels/07_filters.tmj: the sand filters. Run it in this folder.

Pumps suck the water up two shafts, jets throw it over a wall, a fan blows against it over beds of
sand and sacks, and the drain of the back-wash pulls at whatever passes.
"""

from kit import *

stage = Stage()


def house():
    stage.backdrop(SANDWALL, -100, -100, 1960, 1300)
    stage.shell([(40, 60), (500, 40), (1100, 66), (1500, 48), (1860, 60), (1840, 300), (1840, 640),
                 (1644, 640), (1644, 1140), (1540, 1140), (1180, 1146), (1060, 1140), (980, 1146),
                 (860, 1140), (564, 1146), (540, 1140), (40, 1140), (40, 980), (60, 600), (40, 300)])
    stage.frame(-20, -10, 1900, 1200)
    for x in (100, 1180, 1360):
        stage.arch(x, 130, 160, 250)
    for x in (800, 1240):
        stage.arch(x, 760, 160, 240)


def pump(left, right, top, bottom, to, strength):
    """Sucks water up the shaft between left and right, towards `to` beyond its upper end."""
    stage.suction(*to, (left, top, right - left, bottom - top), strength)
    stage.scenery(1, box(left, top + 60, right, bottom), GRATE, name="shaft")
    for y in range(top + 120, bottom - 40, 140):
        stage.effect((left + right) // 2, y, "jet", (0, -1))


def first_shaft():
    stage.solid([(40, 980), (140, 1030), (540, 1030), (540, 1140), (40, 1140)], "stone", TILE,
                name="clear well")
    stage.solid([(436, 96), (700, 96), (700, 120), (684, 120), (460, 120), (460, 930), (436, 930)], "metal",
                name="first shaft, left and hood")
    stage.solid(box(684, 120, 700, 232), "cloth", name="curtain")
    stage.solid([(540, 262), (564, 262), (564, 1146), (540, 1140)], "metal",
                name="first shaft, right")
    pump(460, 540, 130, 1030, (660, 110), 13500)
    stage.arrow(330, 950, "right")
    stage.arrow(500, 760, "up")
    stage.lamp(220, 820)
    stage.gauge(350, 640)
    stage.pipe([(80, 700), (400, 700), (400, 200)])
    stage.thing(90, 930, "barrel")


def upper_bed():
    """Sand and sacks, with the fan in the face."""
    stage.solid([(564, 262), (620, 300), (720, 300), (720, 352), (564, 346)], "sand",
                name="upper bed")
    stage.solid([(720, 300), (760, 274), (800, 300), (800, 346), (720, 352)], "cloth", SACK,
                name="sacks")
    stage.solid([(800, 300), (900, 300), (900, 352), (800, 346)], "sand", name="upper bed")
    stage.solid([(900, 300), (940, 274), (980, 300), (980, 346), (900, 352)], "cloth", SACK,
                name="sacks")
    stage.solid([(980, 300), (1040, 288), (1040, 352), (980, 346)], "stone", name="bed's end")
    stage.playing(1090, 250, "fan")
    stage.effect(1090, 250, "wind", (-1, 0))
    stage.blower(1090, 250, (700, 170, 340, 128), 1700)
    stage.check_point(590, 160, 90, 130)
    stage.arrow(700, 200, "right")
    stage.lamp(860, 160)


def jets():
    """The jets throw the water over the wall; it steers while it flies."""
    stage.solid(box(1130, 200, 1154, 620), "stone", BRICK, name="fan wall")
    stage.solid([(1050, 650), (1130, 620), (1154, 620), (1154, 692), (1050, 698)], "stone",
                name="lower bed's end")
    stage.solid([(880, 664), (1050, 650), (1050, 698), (880, 704)], "sand", name="lower bed")
    stage.solid([(764, 664), (880, 664), (880, 704), (764, 698)], "metal", name="nozzles")
    stage.solid([(740, 510), (764, 510), (764, 698), (740, 704)], "wood", name="wall")
    stage.solid([(630, 684), (740, 664), (740, 704), (630, 704)], "stone", name="ledge")
    stage.jet((770, 560, 100, 100), (-0.3, -1), 430)
    for x in (790, 820, 850):
        stage.effect(x, 660, "jet", (-0.3, -1))
    stage.check_point(1056, 500, 70, 120)
    stage.check_point(646, 540, 80, 126)
    stage.arrow(960, 560, "left")
    stage.arrow(600, 640, "down")
    stage.lamp(940, 470)
    stage.wheel(680, 450)


def back_wash():
    """The drain pulls; run up and leap."""
    stage.solid([(564, 1040), (860, 1040), (860, 1140), (564, 1146)], "stone", name="channel")
    stage.solid([(860, 1040), (980, 1004), (980, 1146), (860, 1140)], "wood", name="ramp")
    stage.solid([(1060, 1040), (1180, 1040), (1180, 1146), (1060, 1140)], "cloth", SACK,
                name="landing")
    stage.solid([(1180, 1040), (1540, 1040), (1540, 1140), (1180, 1146)], "metal",
                name="channel to the second shaft")
    stage.kill((982, 1070, 76, 66))
    stage.scenery(1, box(980, 1060, 1060, 1146), SHADE, name="drain")
    stage.scenery(3, box(980, 1062, 1060, 1076), GRATE, name="drain")
    stage.hazard(950, 1014, 980, 1026)
    stage.hazard(1060, 1040, 1090, 1050)
    stage.object(1020, 1070, "img\\dangerGlow.png", layer=1)
    stage.playing(1020, 1086, "drain")
    stage.suction(1020, 1090, (920, 900, 200, 150), 1500)
    stage.check_point(640, 910, 110, 130)
    stage.zoom((640, 920, 110, 120))
    stage.arrow(800, 950, "right")
    stage.lamp(1180, 880)


def second_shaft():
    stage.solid([(1516, 396), (1760, 396), (1760, 420), (1540, 420), (1540, 940), (1516, 940)],
                "metal", name="second shaft, left and hood")
    stage.solid(box(1620, 540, 1644, 1140), "metal", name="second shaft, right")
    stage.solid([(1540, 1040), (1620, 1040), (1620, 1140), (1540, 1140)], "stone", TILE,
                name="second shaft, ground")
    pump(1540, 1620, 430, 1040, (1760, 380), 13500)
    stage.finish(1662, 560, 160, 60)
    stage.arrow(1420, 950, "right")
    stage.check_point(1300, 910, 110, 130)
    stage.gauge(1460, 700)
    stage.lantern(1800, 460)


for part in (house, first_shaft, upper_bed, jets, back_wash, second_shaft):
    part()
stage.start(240, 900, camera=(1740, 500))
stage.save("07_filters.tmj")
