"""What lies round the last level: the evening over the sea, the shore with its lighthouse, and the
mountain's dark rock in front."""

from kit import *

HORIZON = 512  # where the picture of the sky has its last light
EAST = 5800  # farther than a wide view sees from the lighthouse


def evening(stage):
    """Sun, its way over the water, islands, far waves."""
    stage.object(2240, HORIZON - 80, "img\\sun.png", layer=0, name="sun")
    stage.object(2240, HORIZON + 192, "img\\glitter.png", layer=0, name="glitter")
    for hills in ([(1900, 512), (1950, 492), (1990, 496), (2040, 478), (2100, 504), (2130, 512)],
                  [(2380, 512), (2440, 500), (2500, 506), (2540, 512)],
                  [(2720, 512), (2800, 470), (2850, 482), (2960, 440), (3100, 490), (3200, 512)]):
        stage.scenery(0, hills, SHADE, name="island")
    for left, right, y in ((2070, 2330, 1216), (2700, 3300, 1312)):
        stage.scenery(0, [(left, y + 30), (left + 60, y), (right - 90, y), (right, y + 30)],
                      "img\\foam.png", name="wave")


def shore(stage):
    """The bay: surf, the sign on its mast, and what drifted in."""
    stage.scenery(3, [(2078, 1440), (2440, 1440), (2432, 1472), (2085, 1472)], "img\\foam.png",
                  name="surf")
    stage.object(2260, 1500, "img\\goalGlow.png", layer=0, name="finish")
    stage.post(2254, 1340, 1552, 12)
    stage.playing(2260, 1310, "finishSign")
    for x, y in ((2160, 1516), (2380, 1516), (2330, 1530)):
        stage.thing(x, y, "weeds")
    stage.thing(2220, 1528, "barrel")
    stage.mist(2110, 1420)
    stage.mist(1990, 1070)
    stage.effect(2100, 1440, "splash", (0, -1))
    stage.hum(2280, 1440, 800, "surf")
    stage.hum(1920, 780, 420, "rumble")


def lighthouse_dress(stage):
    stage.object(2620, 440, "img\\glow.png", layer=0, name="lighthouse")
    stage.object(2620, 438, "img\\lanternRoom.png", layer=3, name="lighthouse")
    for top, bottom in ((620, 740), (900, 1020)):
        edge = [2580 - round(24 * (y - 520) / 742) for y in (top, bottom)]
        stage.scenery(3, [(edge[0], top), (5240 - edge[0], top), (5240 - edge[1], bottom),
                      (edge[1], bottom)], RUST, name="band")
    for y in (570, 820, 1100):
        stage.scenery(3, box(2612, y, 2628, y + 44), DARK, name="slit")


def foreground(stage):
    """Dark rock before the mountain, some way from the hollow."""
    stage.foreground([(-1200, -1300), (1106, -1300), (1104, -150), (1118, 40), (1114, 180),
                       (1090, 206), (1000, 184), (900, 200), (852, 206), (826, 180), (806, 136),
                       (750, 104), (610, 102), (510, 132), (430, 170), (404, 250), (386, 380),
                       (388, 600), (356, 676), (358, 764), (384, 836), (370, 890), (376, 1178),
                       (330, 1166), (190, 1172), (70, 1204), (14, 1290), (2, 1380), (16, 1440),
                       (20, 1580), (300, 1572), (560, 1590), (900, 1574), (1300, 1590),
                       (1700, 1572), (1960, 1586), (2060, 1604), (2220, 1636), (2360, 1630),
                       (2480, 1590), (2560, 1500), (2620, 1420), (2690, 1400), (2760, 1470),
                       (2800, 1540), (2900, 1570), (4600, 1600), (4600, 3300), (-1200, 3300)])
    for area in (box(-3000, -3000, 1106, -1280), box(-3000, -1300, -1180, 4500),
                 box(-1200, 3280, EAST, 4500), box(4580, 1600, EAST, 3300)):
        stage.foreground(area)
    stage.scenery(2, box(1060, -3000, 1136, -1290), ROCK, name="mountain")
