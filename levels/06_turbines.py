"""Draws levels/06_turbines.tmj: the turbine hall, where nothing stands still. Run it in this
folder.

A lift into the gallery of hammers, a shuttle over the turbine pit, three platforms that rise and
sink in turn, two hammers more, and the great press: its machine must be stopped to get through
below it, and started again for the paddles behind it. Everything is a matter of the right moment.
"""

from kit import *

stage = Stage()


def hollow(left, right, y, depth=10):
    """Points of a dip in which water waits while the tilt is small."""
    return [(left, y), ((left + right) // 2, y + depth), (right, y)]


def deck(x, y, width, travel, speed):
    """A platform that runs to and fro from the start; sackcloth on it brakes. Its lower corners
    push what lies on a ledge aside instead of into it."""
    stage.rail((x + width // 2, y + 14), (x + travel[0] + width // 2, y + travel[1] + 14), width)
    return stage.carry([(x, y), (x + width // 2, y + 12), (x + width, y), (x + width, y + 14),
                        (x + width - 12, y + 26), (x + 12, y + 26), (x, y + 14)], travel, speed, surface="cloth")


def hall():
    stage.backdrop(BRICKWALL, -100, -100, 1900, 1800)
    stage.shell([(40, 60), (600, 40), (1100, 70), (1760, 50), (1740, 200), (1760, 330),
                 (1760, 670), (1760, 730), (1738, 1000), (1738, 1720), (40, 1720),
                 (40, 850), (60, 500), (40, 300)])
    stage.frame(-20, -10, 1820, 1780)
    stage.solid([(40, 960), (440, 960), (440, 1040), (580, 1040), (620, 1040), (620, 1080),
                 (620, 1154), (300, 1170), (40, 1150)], "stone", ROCK, name="rock between")


def lift_shaft():
    """The lift waits below, rises when it has water, and comes back for who calls it."""
    stage.solid([(40, 850), (120, 885), (300, 898), (440, 900), (440, 960), (40, 960)],
                "stone", name="start shelf")
    stage.solid(box(580, 360, 620, 1040), "stone", BRICK, name="shaft wall")
    lift = stage.new_id()
    # It runs in a groove of the wall, as nothing must get in beside it.
    stage.solid([(438, 910), (510, 924), (588, 908), (588, 936), (450, 936), (438, 924)], "metal", COPPER,
                id=lift, name="lift")
    stage.mover(lift, (510, 924), (510, 332), 80, name="lift")
    stage.trigger("Mover_goto_end_a", (530, 884, 50, 44), target=lift, delay=2.4, name="lift rises")
    stage.trigger("Mover_goto_start_a", stage.plate(200, 895, 60), target=lift,
                  name="lift is called")
    stage.rail((510, 924), (510, 332), 140)
    stage.kill((442, 966, 136, 74))
    stage.scenery(3, box(440, 990, 580, 1002), GRATE, name="grille under the lift")
    stage.object(510, 1006, "img\\dangerGlow.png", layer=1)
    stage.hazard(428, 900, 440, 960)
    stage.arrow(330, 800, "right")
    stage.arrow(510, 560, "up")
    stage.lamp(240, 700)
    stage.thing(90, 818, "barrel")
    for y in (180, 480):
        stage.arch(110, y, 170, 250)
    stage.pipe([(360, 60), (360, 620), (60, 620)])
    stage.gauge(360, 420)


def hammer_gallery():
    """Three hammers, each with its own beat."""
    # It dips behind its edge: what stands beside a lift goes down with it.
    stage.solid([(580, 320), (606, 332), (640, 332), (672, 320)] + hollow(762, 842, 320, 12) +
                hollow(922, 1002, 320, 12) + hollow(1080, 1156, 320, 14) +
                [(1180, 320), (1180, 360), (620, 360), (580, 360)], "stone", TILE, name="gallery")
    stage.solid(box(620, 88, 1120, 116), "stone", BRICK, name="hammer beam")
    for x, speed in ((690, 55), (850, 70), (1010, 85)):
        stage.piston(x, 114, 64, 92, (0, 112), speed=speed)
        stage.hazard(x - 8, 320, x + 72, 330)
    stage.check_point(596, 190, 80, 128)
    stage.check_point(1096, 190, 80, 128)
    stage.arrow(640, 170, "right")
    for x in (790, 950):
        stage.lamp(x, 170)


def shuttle():
    """Over the pit; a full tilt spills everything."""
    deck(1178, 330, 154, (270, 0), 60)
    stage.solid([(1180, 360), (1204, 360), (1204, 566), (1600, 566), (1600, 340), (1690, 350),
                 (1690, 390), (1616, 384), (1616, 600), (1180, 600)], "stone", BRICK,
                name="turbine pit and far landing")
    stage.kill((1206, 470, 392, 92))
    for x, y, big in ((1300, 490, True), (1430, 520, False), (1530, 500, False)):
        stage.gear(x, y, big)
        stage.object(x, 520, "img\\dangerGlow.png", layer=1)
    stage.hazard(1148, 320, 1180, 330)
    stage.hazard(1600, 340, 1616, 350)
    stage.solid(box(1394, 100, 1410, 290), "metal", RUST, name="post over the pit")
    stage.hazard(1394, 276, 1410, 290)
    stage.arrow(1640, 250, "right")
    stage.wheel(1290, 190)
    stage.arch(1200, 100, 180, 200)
    stage.lamp(1660, 160)


def rising_steps():
    """Each platform is up when the next is down."""
    stage.solid([(1590, 700), (1760, 670), (1760, 730), (1620, 740), (1620, 950), (1590, 950)],
                "stone", name="catch shelf")
    for left, right, low, high in ((1464, 1592, 700, 790), (1338, 1464, 790, 700),
                                   (1210, 1338, 700, 790)):
        deck(left, low, right - left, (0, high - low), 36)
    stage.solid([(700, 775), (1212, 708), (1212, 920), (1590, 920), (1590, 950), (1180, 950),
                 (1180, 810), (700, 810)], "stone", BRICK, name="turbine tray")
    stage.kill((1212, 850, 378, 70))
    for x in (1270, 1400, 1530):
        stage.gear(x, 880)
        stage.object(x, 900, "img\\dangerGlow.png", layer=1)
    stage.hazard(1212, 850, 1224, 920)
    stage.hazard(1578, 850, 1590, 920)
    stage.check_point(1640, 570, 110, 108)
    stage.check_point(940, 600, 130, 130)
    stage.arrow(1680, 520, "left")
    stage.hum(1400, 860, 420, "gears")
    stage.lamp(1110, 600)
    for x in (760, 940):
        stage.arch(x, 430, 150, 240)


def double_hammer():
    """One way down, then two hammers side by side, one fast and one slow."""
    stage.solid([(620, 1080), (690, 1100), (860, 1100), (860, 1154), (620, 1154)], "wood",
                name="way, wood")
    stage.solid([(860, 1100), (1140, 1100), (1140, 1154), (1136, 1150),
                 (864, 1150), (860, 1154)], "stone", TILE,
                name="way, anvil")
    stage.solid([(1140, 1100), (1500, 1100), (1520, 1112), (1520, 1154), (1140, 1154)], "metal",
                name="way, metal")
    stage.solid(box(900, 810, 1090, 846), "stone", BRICK, name="hammer house")
    for x, speed in ((912, 110), (1012, 75)):
        stage.piston(x, 844, 64, 92, (0, 162), speed=speed)
    stage.hazard(900, 1100, 1090, 1110)
    stage.check_point(690, 970, 110, 128)
    stage.arrow(650, 860, "down")
    stage.arrow(840, 1010, "right")
    stage.arrow(1630, 1180, "down")
    stage.lamp(1260, 1010)


def press():
    """Too long and too fast to slip through. The plate before it stops the machine, and with it
    the paddles beyond; the plate where the water lands, and one behind the press, start it."""
    stage.solid([(1738, 1530), (1738, 1720), (300, 1720), (300, 1290), (350, 1232), (350, 1690),
                 (462, 1690), (462, 1398), (474, 1396), (474, 1690), (590, 1690), (590, 1560),
                 (614, 1572), (660, 1572), (690, 1560), (1290, 1560), (1345, 1572), (1400, 1560),
                 (1640, 1560)], "stone", PAVING, name="press floor")
    head = box(960, 1316, 1240, 1466)
    press = stage.carry(head, (0, 90), 150)
    stage.hazard(960, 1452, 1240, 1466, id=press)
    for x in (1010, 1170):
        stage.scenery(1, box(x, 1180, x + 20, 1320), METAL, id=press, name="press rod")
    stage.hazard(952, 1560, 1248, 1570)
    stage.scenery(1, box(930, 1154, 1270, 1190), BEAM, name="press beam")
    paddles = [deck(472, 1600, 120, (0, -234), 50), deck(342, 1192, 122, (0, 234), 50)]
    # The paddles pass each other behind it; over its sill water steps across.
    stage.solid([(462, 1196), (474, 1196), (474, 1336), (462, 1336)], "metal", name="screen")
    wheel, hum = stage.new_id(), stage.new_id()
    for x, y, big in ((1440, 1330, True), (1340, 1250, False), (800, 1330, True),
                      (700, 1410, False)):
        stage.object(x, y, animation("bigGear" if big else "gear"), layer=1, id=wheel,
                     name="wheel of the press")
    stage.sound(hum, 1100, 1400, 620, "snd\\place_machine.wav", looping=True, name="press")
    landing, brake, starter = (1640, 1500, 98, 60), stage.plate(1470, 1560, 80), \
        stage.plate(760, 1560, 60)
    stage.scenery(3, [(1660, 1554), (1720, 1536), (1720, 1544), (1660, 1562)], BRASS, name="plate")
    for id in [press] + paddles:
        stage.trigger("Mover_stop_a", brake, target=id, name="stops the machine")
        for plate in (landing, starter):
            stage.trigger("Mover_goto_start_loop_a", plate, target=id, name="starts the machine")
    stage.trigger("Anim_stop_1", brake, target=wheel, name="stops the wheels")
    stage.trigger("Sound_stop_1", brake, target=hum, name="stops the hum")
    for plate in (landing, starter):
        stage.trigger("Anim_play_loop_1", plate, target=wheel, name="starts the wheels")
        stage.trigger("Sound_play_1", plate, target=hum, name="starts the hum")
    stage.check_point(1570, 1430, 60, 128)
    stage.check_point(610, 1444, 80, 128)
    stage.lantern(1510, 1450)
    stage.lantern(850, 1450)
    stage.lamp(1100, 1260)
    stage.arrow(1420, 1460, "left")
    stage.arrow(690, 1380, "left")
    stage.arrow(410, 1330, "up")


def finish():
    stage.kill((352, 1620, 236, 60))
    for x in (400, 530):
        stage.gear(x, 1656)
        stage.object(x, 1650, "img\\dangerGlow.png", layer=1)
    stage.hazard(590, 1560, 622, 1570)
    stage.solid([(40, 1290), (84, 1290), (84, 1370), (40, 1370)], "metal", name="corbel")
    stage.finish(102, 1290, 180, 60)
    stage.mist(190, 1250)
    stage.scenery(2, box(40, 1370, 300, 1720), PAVING, name="below the basin")
    stage.lamp(150, 1240)


for part in (hall, lift_shaft, hammer_gallery, shuttle, rising_steps, double_hammer, press,
             finish):
    part()
stage.start(240, 760, camera=(190, 1250))
stage.save("06_turbines.tmj")
