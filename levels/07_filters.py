"""Draws levels/07_filters.tmj: the sand filters. Run it in this folder.

Pumps suck the water up shafts, once it has started them; jets throw it over a wall, fans blow
against it over sand and sacks, a drain pulls at whatever passes, suction holds it to a ceiling,
and a cloth sling catches it. A plate behind the dunes stops the fan before the basin.
"""

from kit import *

stage = Stage()


def house():
    stage.backdrop(SANDWALL, -100, -100, 2960, 1300)
    stage.shell([(40, 60), (500, 40), (1100, 66), (1130, 66), (1154, 66), (1154, 620), (1154, 692),
                 (1300, 740), (1516, 720), (1516, 396), (2126, 396), (2260, 410), (2260, 840),
                 (2324, 830), (2334, 829), (2400, 820), (2586, 845), (2596, 847), (2820, 840),
                 (2820, 1116), (2260, 1124), (2150, 1130), (2108, 1120), (1962, 1120), (1800, 1132),
                 (1620, 1152), (1540, 1140), (1180, 1146),
                 (1060, 1140), (980, 1146), (860, 1140), (564, 1146), (540, 1140), (40, 1140),
                 (40, 980), (60, 600), (40, 300)])
    stage.frame(-20, -10, 2880, 1200)
    for x, y in ((100, 130), (800, 760), (1240, 790), (1970, 880)):
        stage.arch(x, y, 160, 240)


def starts(plate, id, dial):
    """Water on the plate adds what waits under the id: its force, its lamp, spray and noise."""
    for kind in ("Entity_remove_1", "Emitter_stop_1"):
        stage.at_start(kind, id)
    for kind in ("Entity_add_1", "Emitter_start_1", "Sound_play_1"):
        stage.trigger(kind, plate, target=id, delay=1.2, name="pump starts")
    stage.trigger("Anim_play_loop_1", plate, target=dial, name="pump starts")


def stops(plate, id, dial):
    """Water on the plate ends what runs under the id."""
    for kind in ("Entity_remove_1", "Emitter_stop_1", "Sound_stop_1"):
        stage.trigger(kind, plate, target=id, delay=1.4, name="stops")
    stage.trigger("Anim_stop_1", plate, target=dial, delay=1.4, name="stops")
    stage.at_start("Emitter_start_1", id)
    stage.at_start("Anim_play_loop_1", dial)


def noise(id, x, y, sound, radius=420):
    stage.sound(id, x, y, radius, f"snd\\place_{sound}.wav", looping=True, name=sound)


def dial(x, y, name):
    """An animated thing that a plate starts or stops; returns its id."""
    id = stage.new_id()
    stage.object(x, y, animation(name), layer=1, id=id, name=name)
    return id


def pump(shaft, to, strength, plate, wheel):
    """Sucks water up the shaft, towards `to` beyond its upper end, once the plate was trodden."""
    left, top, right, bottom = shaft
    id = stage.new_id()
    stage.force(id, to, (0, 0), strength / 10, name="suction")
    stage.trigger("Force_multi_dir_pull_a", (left, top, right - left, bottom - top), target=id,
                  name="suction")
    stage.scenery(1, box(left, top + 60, right, bottom), GRATE, name="shaft")
    for y in range(top + 120, bottom - 40, 140):
        stage.emitter(id, ((left + right) // 2, y), "fx\\jet.cfg", (0, -1), name="pump")
    stage.object((left + right) // 2, bottom - 60, "img\\goalGlow.png", layer=0, id=id, name="pump runs")
    noise(id, (left + right) // 2, bottom - 200, "pump")
    starts(plate, id, dial(*wheel, "wheel"))


def first_shaft():
    """The pump stands; its plate lies at the other end of the well."""
    stage.solid([(40, 980), (120, 1030), (540, 1030), (540, 1140), (40, 1140)], "stone", TILE,
                name="clear well")
    stage.solid([(436, 96), (700, 96), (700, 120), (684, 120), (460, 120), (460, 930), (436, 930)], "metal",
                name="first shaft, left and hood")
    stage.solid(box(684, 120, 700, 232), "cloth", name="curtain")
    stage.solid([(540, 262), (564, 262), (564, 1146), (540, 1140)], "metal",
                name="first shaft, right")
    pump((460, 130, 540, 1030), (660, 110), 13500, stage.plate(124, 1030, 56), (400, 860))
    stage.arrow(230, 940, "left")
    stage.arrow(500, 900, "up")
    stage.lamp(152, 900)
    stage.gauge(300, 640)
    stage.pipe([(80, 860), (80, 700), (400, 700), (400, 800)])
    stage.thing(72, 942, "barrel")


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
    stage.blower(1090, 250, (700, 170, 340, 128), 2200)
    stage.check_point(590, 160, 90, 130)
    stage.arrow(700, 200, "right")
    stage.lamp(860, 160)


def jets():
    """The jets throw the water over the wall; it steers while it flies."""
    stage.solid([(1130, 66), (1154, 66), (1154, 620), (1130, 620)], "stone", BRICK, name="fan wall")
    stage.solid([(1050, 650), (1130, 620), (1154, 620), (1154, 692), (1050, 698)], "stone",
                name="lower bed's end")
    stage.solid([(880, 664), (955, 612), (1050, 650), (1050, 698), (880, 704)], "sand", name="lower bed")
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
    stage.suction(1020, 1090, (920, 900, 200, 150), 2000)
    stage.check_point(640, 910, 110, 130)
    stage.arrow(800, 950, "right")
    stage.lamp(1180, 880)


def second_shaft():
    """Its plate lies in the fan room behind it: keep low, in the lee, or be blown out."""
    stage.solid([(1516, 396), (2126, 396), (2126, 520), (2110, 520), (2110, 420), (1540, 420), (1540, 940),
                 (1516, 940), (1516, 720)], "metal", name="second shaft, left, and ceiling")
    stage.solid([(1620, 540), (1644, 540), (1644, 700), (1644, 900), (1644, 998), (1620, 998)], "metal",
                name="second shaft, right")
    stage.solid([(1540, 1040), (1620, 1040), (1620, 1152), (1540, 1140)], "cloth", SACK,
                name="second shaft, ground")
    stage.solid([(1620, 1040), (1644, 1036), (1676, 1012), (1712, 1040), (1800, 1040), (1800, 1132), (1620, 1152)], "sand",
                name="fan room's bed")
    stage.playing(1776, 950, "fan")
    stage.effect(1776, 950, "wind", (-1, 0))
    stage.blower(1790, 950, (1626, 902, 174, 126), 4500)
    pump((1540, 430, 1620, 1040), (1640, 200), 13800, stage.plate(1724, 1040, 60), (1440, 860))
    stage.arrow(1420, 950, "right")
    stage.arrow(1580, 900, "up")
    stage.check_point(1300, 910, 110, 130)
    stage.gauge(1370, 840)


def ceiling_walk():
    """Suction holds the water to the ceiling, but for one gap, until the last plate ends it."""
    stage.solid([(1644, 700), (1980, 700), (1980, 484), (1996, 484), (1996, 560), (1996, 572), (1996, 650),
                 (2150, 650), (2150, 860), (1860, 860), (1860, 1040), (1962, 1040), (1962, 1120),
                 (1800, 1132), (1800, 1040), (1800, 900), (1644, 900)], "stone", ROCK,
                name="rock under the ceiling walk")
    stage.lost(1644, 1980, 620, 80)
    stage.hazard(1980, 484, 1996, 500)
    for left, right in ((1622, 1785), (1845, 1996)):
        stage.wind((left, 420, right - left, 110), (0, -1), 800)
        stage.scenery(3, box(left, 420, right, 428), GRATE, name="suction")
        for x in range(left + 30, right, 60):
            stage.effect(x, 470, "jet", (0, -1))
    stage.hazard(1785, 420, 1845, 430)
    last = stage.wind((1996, 420, 114, 64), (0, -1), 800)
    stage.emitter(last, (2050, 470), "fx\\jet.cfg", (0, -1), name="suction")
    noise(last, 2050, 440, "pump")
    stage.scenery(3, box(1996, 420, 2110, 428), GRATE, name="suction")
    stage.scenery(3, box(2104, 424, 2112, 470), BRASS, name="plate")
    stops((2084, 420, 26, 60), last, dial(2160, 470, "valve"))
    stage.solid([(1996, 560), (2060, 610), (2150, 560), (2150, 572), (2060, 622), (1996, 572)], "cloth", CLOTH,
                name="sling")
    stage.arrow(1740, 500, "right")
    stage.lamp(1900, 540)
    stage.check_point(2010, 500, 90, 90)
    stage.arrow(2200, 620, "down")
    stage.pipe([(2224, 440), (2224, 824)])
    stage.arrow(1660, 480, "up")
    stage.thing(2206, 700, "chain")


def dunes():
    """Sand, steep on one side and gentle on the other; the plate behind it stops the fan."""
    stage.solid([(2108, 1040), (2150, 1043), (2150, 1130), (2108, 1120)], "stone", TILE, name="forecourt")
    stage.solid([(2150, 1043), (2205, 1045), (2260, 1043), (2260, 1124), (2150, 1130)], "cloth", SACK, name="cushion")
    stage.solid([(2260, 1043), (2290, 1040), (2370, 972), (2520, 1036), (2545, 1036), (2628, 964), (2766, 1034),
                 (2820, 1034), (2820, 1116), (2260, 1124)], "sand", name="dunes")
    stage.solid([(2324, 830), (2334, 829), (2334, 958), (2324, 958)], "wood", name="board")
    stage.solid([(2586, 845), (2596, 847), (2596, 948), (2586, 948)], "wood", name="board")
    gust = stage.wind((1864, 866, 276, 172), (1, 0), 2600)
    stage.emitter(gust, (1930, 950), "fx\\wind.cfg", (1, 0), name="gust")
    noise(gust, 1900, 950, "fan")
    stops(stage.plate(2766, 1034, 50), gust, dial(1918, 945, "fan"))
    stage.check_point(2160, 900, 80, 140)
    stage.arrow(2284, 890, "right")
    stage.arrow(2126, 990, "left")
    stage.lamp(2500, 880)
    stage.lamp(2740, 900)
    stage.thing(2792, 997, "barrel")
    stage.pipe([(2400, 860), (2528, 860)])
    stage.gauge(2424, 905)
    stage.finish(1980, 1040, 110, 60)
    stage.lantern(2130, 900)


for part in (house, first_shaft, upper_bed, jets, back_wash, second_shaft, ceiling_walk, dunes):
    part()
stage.start(340, 900, camera=(2045, 960))
stage.save("07_filters.tmj")
