"""Draws levels/gallery.tmj: one bay for every trigger type, mover state, force and emitter key,
each with its name on a plate. Run it in this folder, then art/make_gallery_labels.py.

Look at a bay by pouring water into it from the console: "ParticleCreate x y 10 40", with x and y
of the plate plus 40 or so downwards. What a bay shows is in its line below and, in Tiled, in
the names of its objects. Everything in bay number n bears the id 100 + n.
"""

import pathlib

from tiled import Map

COLUMNS, INSIDE, WALL = 8, 260, 40
PITCH = INSIDE + WALL
BRICK, BACK, METAL, WOOD, RUST = ("img\\masonry.png", "img\\wall.png", "img\\metal.png",
                                  "img\\wood.png", "img\\rust.png")
WHEEL, GAUGE, LAMP = ("img\\wheel_FRAME01.png", "img\\gauge_FRAME01.png",
                      "img\\lamp_FRAME01.png")
SETTINGS = pathlib.Path(__file__).parent.parent / "data" / "fx" / "gallery"

level = Map()
bays = []


def bay(title):
    """The function fills a bay of that title; order of definition is order in the level."""
    def add(fill):
        bays.append((title, fill))
        return fill
    return add


class Bay:
    """One bay; coordinates count from the top left of its inside."""

    def __init__(self, title, number):
        self.title, self.id = title, 100 + number
        self.x, self.y = number % COLUMNS * PITCH, number // COLUMNS * PITCH

    def at(self, x, y):
        return self.x + x, self.y + y

    def plate(self):
        name = "".join(c if c.isalnum() or c == "_" else "_" for c in self.title.lower())
        level.object(*self.at(INSIDE // 2, 16), f"img\\gallery\\{name}.png", layer=4,
                     name=self.title)
        level.rectangle(*self.at(0, 0), INSIDE, INSIDE, "stone", BACK, layer=0, flags="scenery",
                        name=f"{self.title}: back wall")

    def trigger(self, type, area=(0, 40, INSIDE, INSIDE - 40), delay=0.0, target=True):
        x, y, width, height = area
        level.trigger(type, (*self.at(x, y), width, height), self.id if target else 0, delay,
                      name=self.title)

    def solid(self, x, y, width, height, texture=METAL, surface="metal", id=None):
        level.rectangle(*self.at(x, y), width, height, surface, texture, layer=2,
                        id=self.id if id is None else id, name=self.title)

    def object(self, x, y, texture):
        level.object(*self.at(x, y), texture, layer=1, id=self.id, name=self.title)

    def force(self, x, y, direction, strength):
        level.force(self.id, self.at(x, y), direction, strength, name=self.title)

    def mover(self, start, end, speed):
        level.mover(self.id, self.at(*start), self.at(*end), speed, name=self.title)

    def emitter(self, x, y, settings, direction=(0, 0)):
        level.emitter(self.id, self.at(x, y), f"fx\\{settings}.cfg", direction, name=self.title)


# -- the water ----------------------------------------------------------------------------------

@bay("Start")
def start(b):
    level.water_start(*b.at(130, 80))
    level.camera_start(*b.at(130, 130))


def on_water(type):
    """A trigger that needs no target: what it does is done to the water."""
    bay(type)(lambda b: b.trigger(type, target=False))


for kind in ("Null_a", "To_ice_a", "To_water_a", "To_steam_a"):
    on_water(kind)


# -- animations ---------------------------------------------------------------------------------

@bay("Anim_play_loop_1")
def play_loop(b):
    """The wheel turns and turns."""
    b.trigger("Anim_play_loop_1")
    b.object(130, 130, WHEEL)


@bay("Anim_play_once_1")
def play_once(b):
    """The gauge goes up and stays there."""
    b.trigger("Anim_play_once_1")
    b.object(130, 130, GAUGE)


@bay("Anim_stop_1")
def stop(b):
    """The lamp flickers for a second."""
    b.trigger("Anim_play_loop_1")
    b.trigger("Anim_stop_1", delay=1.0)
    b.object(130, 130, LAMP)


# -- sounds -------------------------------------------------------------------------------------

@bay("Sound_play_1")
def play_sound(b):
    b.trigger("Sound_play_1")
    level.sound(b.id, *b.at(130, 130), 400, "snd\\default.wav", name=b.title)


@bay("Sound_stop_1")
def stop_sound(b):
    b.trigger("Sound_stop_1")
    level.sound(b.id, *b.at(130, 130), 400, "snd\\default.wav", looping=True, name=b.title)


# -- forces -------------------------------------------------------------------------------------

@bay("Force_directional_a")
def directional(b):
    """A wind to the right that gravity doesn't match: the water lies on the right wall."""
    b.trigger("Force_directional_a")
    b.force(130, 150, (1, 0), 120)


@bay("Force_instantenous_a")
def instantaneous(b):
    """A fountain: inside of the trigger all water rises, above it falls."""
    b.trigger("Force_instantenous_a", (0, 150, INSIDE, 110))
    b.force(130, 240, (0, -1), 12)


@bay("Force_multi_dir_pull_a")
def pull(b):
    """A ball of water in the middle."""
    b.trigger("Force_multi_dir_pull_a")
    b.force(130, 140, (0, -1), 1000)


@bay("Force_multi_dir_push_a")
def push(b):
    """A dry floor round the force; the water lies in the corners."""
    b.trigger("Force_multi_dir_push_a")
    b.force(130, 260, (0, -1), 700)


# -- things that come and go ----------------------------------------------------------------------

@bay("Entity_remove_1")
def remove(b):
    """The shelf with its lamp goes half a second after the water has come."""
    b.solid(0, 120, INSIDE, 14, WOOD, "wood")
    b.object(130, 190, LAMP)
    b.force(130, 130, (0, 1), 10)
    b.trigger("Entity_remove_1", (0, 40, INSIDE, 80), delay=0.5)


@bay("Entity_add_1")
def add(b):
    """The shelf goes at once and is back after two seconds."""
    b.solid(0, 120, INSIDE, 14, WOOD, "wood")
    b.object(130, 190, LAMP)
    b.trigger("Entity_remove_1", (0, 40, INSIDE, 80))
    b.trigger("Entity_add_1", (0, 40, INSIDE, 80), delay=2.0)


# -- movers ---------------------------------------------------------------------------------------

def lift(b):
    """A platform with a wheel, on the left of the bay; one second from bottom to top."""
    b.solid(20, 200, 60, 14)
    b.object(50, 150, WHEEL)
    b.mover((50, 200), (50, 80), 120)


def lift_bay(type, *before, area=(0, 40, INSIDE, INSIDE - 40), delay=0.0):
    """`type` acts on the lift, after the types of `before` have acted at once."""
    def fill(b):
        lift(b)
        for first in before:
            b.trigger(first, area)
        b.trigger(type, area, delay)
    bay(type)(fill)


# Those that act again and again while water is inside have their area high in the bay: the
# water falls through it, and then the mover is on its own.
PASSAGE = (0, 40, INSIDE, 70)
lift_bay("Mover_goto_start_1", "Mover_goto_end_1", delay=2.0)
lift_bay("Mover_goto_end_1")
lift_bay("Mover_stop_1", "Mover_goto_end_1", delay=0.5)
lift_bay("Mover_goto_start_a", "Mover_goto_end_1", delay=2.0)
lift_bay("Mover_goto_end_a")
lift_bay("Mover_stop_a", "Mover_goto_end_loop_1", area=PASSAGE, delay=0.5)
lift_bay("Mover_goto_start_loop_1", "Mover_goto_end_1", delay=2.0)
lift_bay("Mover_goto_end_loop_1")
lift_bay("Mover_goto_start_loop_a", "Mover_goto_end_1", area=PASSAGE, delay=2.0)
lift_bay("Mover_goto_end_loop_a", area=PASSAGE)


@bay("Water rides")
def water_rides(b):
    """A tray takes the water up and down."""
    for part in ((20, 200, 12, 24), (32, 212, 196, 12), (228, 200, 12, 24)):
        b.solid(*part)
    b.trigger("Mover_goto_end_loop_1", (0, 190, INSIDE, 70), delay=1.0)
    b.mover((130, 212), (130, 112), 60)


@bay("Water is pushed")
def water_pushed(b):
    """A blade sweeps the floor to the right, and back."""
    b.solid(0, 180, 16, 80)
    b.trigger("Mover_goto_end_loop_1", (0, 200, INSIDE, 60), delay=1.0)
    b.mover((8, 220), (148, 220), 70)


@bay("Water is crushed")
def water_crushed(b):
    """A piston goes to the right until it meets the wall."""
    b.solid(0, 130, 40, 130, RUST)
    b.trigger("Mover_goto_end_1", (0, 200, INSIDE, 60), delay=1.0)
    b.mover((20, 195), (240, 195), 80)


@bay("Ice rides")
def ice_rides(b):
    """The water freezes on its way and rides on the platform as a lump."""
    b.trigger("To_ice_a", target=False)
    b.solid(20, 220, 220, 14)
    b.trigger("Mover_goto_end_1", (0, 180, INSIDE, 80), delay=2.0)
    b.mover((130, 220), (130, 120), 50)


@bay("600 units a second")
def fast(b):
    """A slab that goes further in a step than it can push water: what is in its way dies."""
    b.solid(20, 236, 220, 14)
    b.trigger("Mover_goto_end_loop_1", (0, 180, INSIDE, 80), delay=1.0)
    b.mover((130, 236), (130, 76), 600)


@bay("Two movers, one load")
def two_movers(b):
    """One goes up and one to the right, so the platform goes both ways."""
    b.solid(20, 200, 60, 14)
    b.object(50, 170, LAMP)
    b.trigger("Mover_goto_end_1")
    b.mover((50, 200), (50, 120), 80)
    b.mover((50, 200), (190, 200), 140)


# -- emitters -------------------------------------------------------------------------------------

@bay("Emitter_create_burst_1")
def burst(b):
    b.trigger("Emitter_create_burst_1")
    b.emitter(130, 150, "splash", (0, -1))


@bay("Emitter_start_1")
def start_emitter(b):
    b.trigger("Emitter_start_1")
    b.emitter(130, 150, "sparks", (0, -1))


@bay("Emitter_stop_1")
def stop_emitter(b):
    b.trigger("Emitter_stop_1", delay=1.0)
    b.emitter(130, 60, "drip", (0, 1))


# -- camera, loss and the course of the level ---------------------------------------------------

for kind in ("Camera_zoom_1", "Camera_zoom_a", "Camera_shake_1", "Camera_shake_a",
             "Particle_kill_a", "Particle_kill_random_a", "Level_end_a", "Checkpoint_1"):
    on_water(kind)


# -- what the settings of an emitter do, one key or pair at a time ------------------------------

COLOURS = {f"color_{i}_{c}": 1 for i in (1, 2) for c in "rgba"}
PLAIN = {"active": "true", "frequency": 0.1, "spread": 0, "gravity_1": 0, "gravity_2": 0,
         "size_1": 12, "size_2": 12, "liveTime_1": 1, "liveTime_2": 1, "velocity_1": 60,
         "velocity_2": 60, "useAlphaBlending": "true", **COLOURS, "texture1": "img\\splash.png"}


def emitter_bay(title, changes, trigger=None):
    name = title.split(" ")[-1]

    def fill(b):
        settings = {**PLAIN, **changes}
        lines = [f"{key} {value}\n" for key, value in settings.items() if value is not None]
        SETTINGS.mkdir(parents=True, exist_ok=True)
        (SETTINGS / f"{name}.cfg").write_text("".join(lines), encoding="utf-8", newline="\n")
        b.emitter(130, 150, f"gallery\\{name}", (0, -1))
        if trigger:
            b.trigger(trigger)
    bay(title)(fill)


emitter_bay("emitter plain", {})
emitter_bay("emitter active", {"active": "false"})
emitter_bay("emitter frequency", {"frequency": 0.02})
emitter_bay("emitter burstSize", {"active": "false", "burstSize": 50, "spread": 360},
            "Emitter_create_burst_1")
emitter_bay("emitter spread", {"spread": 90})
emitter_bay("emitter gravity", {"gravity_1": 20, "gravity_2": 40})
emitter_bay("emitter size", {"size_1": 6, "size_2": 40})
emitter_bay("emitter liveTime", {"liveTime_1": 0.2, "liveTime_2": 2})
emitter_bay("emitter velocity", {"velocity_1": 10, "velocity_2": 100})
emitter_bay("emitter useAlphaBlending", {"useAlphaBlending": "false",
                                         "texture1": "img\\spark.png", "size_1": 30,
                                         "size_2": 30})
emitter_bay("emitter color", {"color_1_r": 1, "color_1_g": 0.4, "color_1_b": 0.1, "color_1_a": 1,
                              "color_2_r": 0.1, "color_2_g": 0.7, "color_2_b": 1,
                              "color_2_a": 0.6})
emitter_bay("emitter texture", {"texture1": None, "texture2": "img\\drop.png",
                                "texture5": "img\\spark.png", "texture8": "img\\splash.png"})


# -- walls ----------------------------------------------------------------------------------------

def walls(rows):
    """Floors and walls of cells that share whole sides, so that no edge is there twice."""
    def block(x, y, width, height):
        level.rectangle(x, y, width, height, "stone", BRICK, layer=2, name="wall")

    for row in range(rows + 1):
        y = row * PITCH - WALL
        for column in range(COLUMNS + 1):
            x = column * PITCH - WALL
            block(x, y, WALL, WALL)
            if column < COLUMNS:
                block(x + WALL, y, INSIDE, WALL)
            if row < rows:
                block(x, y + WALL, WALL, INSIDE)


def main():
    rows = -(-len(bays) // COLUMNS)
    walls(rows)
    for number, (title, fill) in enumerate(bays):
        b = Bay(title, number)
        b.plate()
        fill(b)
    level.save(pathlib.Path(__file__).parent / "gallery.tmj")


if __name__ == "__main__":
    main()
