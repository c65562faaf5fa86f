"""Draws levels/06_turbines.tmj: the turbine hall, where nothing stands still. Run it in this
folder.

A lift into the gallery of hammers, a shuttle over the turbine pit, three platforms that rise and
sink in turn, and two hammers more: everything is a matter of the right moment.
"""

from kit import *

stage = Stage()


def hall():
    stage.backdrop(BRICKWALL, -100, -100, 1900, 1400)
    stage.shell([(40, 60), (600, 40), (1100, 70), (1760, 50), (1740, 200), (1760, 330),
                 (1760, 670), (1760, 730), (1738, 1000), (1738, 1240), (1522, 1240), (1500, 1154),
                 (1140, 1154), (1136, 1150), (864, 1150), (860, 1154), (620, 1154), (620, 1040), (440, 1040), (440, 960), (40, 960),
                 (40, 850), (60, 500), (40, 300)])
    stage.frame(-20, -10, 1820, 1300)


def lift_shaft():
    """Wait until the lift is down: whoever is under it when it comes is crushed."""
    stage.solid([(40, 850), (120, 885), (300, 908), (370, 908), (440, 900), (440, 960), (40, 960)], "stone",
                name="start shelf")
    stage.solid(box(580, 360, 620, 1040), "stone", BRICK, name="shaft wall")
    stage.cradle(440, 970, 140, (440, 320), speed=110)
    stage.kill((440, 1004, 140, 36))
    stage.scenery(3, box(440, 998, 580, 1010), GRATE, name="grille under the lift")
    stage.object(510, 1012, "img\\dangerGlow.png", layer=1)
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
    stage.solid([(580, 320), (606, 332), (640, 332), (672, 320), (1180, 320), (1180, 360),
                 (580, 360)], "stone", TILE, name="gallery")
    stage.solid(box(620, 88, 1120, 116), "stone", BRICK, name="hammer beam")
    for x, speed in ((690, 70), (850, 95), (1010, 120)):
        stage.piston(x, 116, 64, 90, (0, 112), speed=speed)
        stage.hazard(x - 8, 320, x + 72, 330)
    stage.check_point(596, 190, 80, 128)
    stage.check_point(1096, 190, 80, 128)
    stage.arrow(640, 170, "right")
    for x in (790, 950):
        stage.lamp(x, 170)


def shuttle():
    """Over the pit; a full tilt spills everything."""
    stage.zoom((1100, 200, 70, 118))
    stage.cradle(1180, 320, 120, (1470, 320), speed=85)
    stage.solid([(1600, 320), (1690, 330), (1690, 370), (1600, 360)], "metal",
                name="far landing")
    stage.arrow(1640, 250, "right")
    stage.wheel(1400, 190)
    stage.arch(1300, 100, 190, 200)
    stage.lamp(1660, 160)


def rising_steps():
    """Each platform is up when the next is down."""
    stage.solid([(1590, 700), (1760, 670), (1760, 730), (1620, 740), (1620, 950), (1590, 950)],
                "stone", name="catch shelf")
    for x, low, high in ((1464, 700, 790), (1338, 790, 700), (1212, 700, 790)):
        stage.cradle(x, low, 126, (x, high), speed=55, dip=10)
    stage.solid([(700, 775), (1212, 745), (1212, 920), (1590, 920), (1590, 950), (1180, 950),
                 (1180, 810), (700, 810)], "stone", BRICK, name="turbine tray")
    stage.solid([(1180, 360), (1204, 360), (1204, 560), (1450, 604), (1450, 630), (1180, 596)],
                "stone", BRICK, name="roof over the third platform")
    stage.kill((1212, 850, 378, 70))
    for x in (1270, 1400, 1530):
        stage.gear(x, 880)
        stage.object(x, 900, "img\\dangerGlow.png", layer=1)
    stage.hazard(1212, 850, 1224, 920)
    stage.hazard(1578, 850, 1590, 920)
    stage.check_point(1640, 570, 110, 108)
    stage.check_point(940, 630, 130, 126)
    stage.arrow(1680, 520, "left")
    stage.gear(1320, 450, big=True)
    stage.gear(1450, 510)
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
    stage.solid([(1140, 1100), (1500, 1100), (1522, 1160), (1522, 1240), (1500, 1154),
                 (1140, 1154)], "metal", name="way, metal")
    stage.solid(box(900, 810, 1090, 846), "stone", BRICK, name="hammer house")
    for x, speed in ((912, 150), (1012, 85)):
        stage.piston(x, 846, 64, 90, (0, 162), speed=speed)
    stage.hazard(900, 1100, 1090, 1110)
    stage.check_point(690, 970, 110, 128)
    stage.arrow(650, 860, "down")
    stage.arrow(840, 1010, "right")
    stage.lamp(1260, 1010)
    stage.finish(1540, 1160, 180, 60)
    stage.mist(1630, 1120)


for part in (hall, lift_shaft, hammer_gallery, shuttle, rising_steps, double_hammer):
    part()
stage.start(240, 760, camera=(1630, 1100))
stage.save("06_turbines.tmj")
