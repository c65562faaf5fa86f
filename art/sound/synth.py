"""What all the sounds are made of: time, noise, filters, decaying partials, bubbles, reverb,
loudness and WAV files.

Sounds that loop are worked on as rings: noise and filters go through the Fourier transform of
the whole length, and events that pass the end go on at the start. So the end meets the start
without a seam and nothing has to be faded over."""
import pathlib
import wave
import zlib

import numpy as np

RATE = 44100
TARGET = pathlib.Path(__file__).parent.parent.parent / "data" / "snd"


def seeded(name):
    """A source of random numbers that is the same in every run."""
    return np.random.default_rng(zlib.crc32(name.encode()))


def clock(length):
    """The times of the samples of `length` seconds."""
    return np.arange(int(round(length * RATE))) / RATE


def silence(length, channels=1):
    count = len(clock(length))
    return np.zeros(count) if channels == 1 else np.zeros((count, channels))


def decibels(value):
    return 10.0 ** (value / 20.0)


def filtered(sound, gain):
    """The sound as a ring, with the gain at each frequency (hertz) that `gain` tells."""
    spectrum = np.fft.rfft(sound, axis=0)
    curve = gain(np.fft.rfftfreq(len(sound), 1.0 / RATE))
    return np.fft.irfft(spectrum * (curve if sound.ndim == 1 else curve[:, None]), len(sound),
                        axis=0)


def band(low, high, order=2):
    """A gain curve that passes low..high hertz; each order falls 6 dB an octave outside."""
    def gain(f):
        f = np.maximum(f, 1e-3)
        return 1.0 / np.sqrt((1 + (f / high) ** (2 * order)) * (1 + (low / f) ** (2 * order)))
    return gain


def peak_at(frequency, width):
    """A gain curve with one bell, `width` octaves wide."""
    return lambda f: np.exp(-(np.log2(np.maximum(f, 1.0) / frequency) / width) ** 2)


def noise(length, gain, random):
    """A ring of noise of that colour; its root mean square is 1."""
    sound = filtered(random.standard_normal(len(clock(length))), gain)
    return sound / np.sqrt(np.mean(sound ** 2))


def drift(length, random, slowest=1, fastest=5):
    """A slow wander within 0..1 that ends where it starts; in turns per length."""
    t = clock(length) / length
    sound = sum(np.sin(2 * np.pi * (k * t + random.random())) * random.uniform(0.5, 1) / np.sqrt(k)
                for k in range(slowest, fastest + 1))
    return (sound - sound.min()) / (sound.max() - sound.min())


def whole(frequency, length):
    """The nearest frequency that turns a whole number of times in the length."""
    return max(1, round(frequency * length)) / length


def rise(length, attack):
    """A soft start over `attack` seconds, 1 afterwards."""
    return np.sin(0.5 * np.pi * np.clip(clock(length) / attack, 0, 1)) ** 2


def fade_out(sound, length):
    """The last `length` seconds fall to nothing."""
    count = min(len(sound), len(clock(length)))
    curve = np.cos(0.5 * np.pi * np.arange(1, count + 1) / count) ** 2
    sound = sound.copy()
    sound[-count:] *= curve if sound.ndim == 1 else curve[:, None]
    return sound


def place(buffer, event, at, pan=None):
    """Adds the event at `at` seconds; what passes the end goes on at the start. For a stereo
    buffer a mono event lies at `pan`, -1 left to 1 right."""
    if buffer.ndim == 2 and event.ndim == 1:
        angle = ((pan or 0.0) + 1) * np.pi / 4
        event = event[:, None] * np.array([np.cos(angle), np.sin(angle)]) * np.sqrt(2)
    start = int(round(at * RATE)) % len(buffer)
    while len(event):
        count = min(len(buffer) - start, len(event))
        buffer[start:start + count] += event[:count]
        event, start = event[count:], 0


def partials(modes, length, random=None, attack=0.001):
    """Decaying sines; `modes` are (hertz, amplitude, seconds until 60 dB down)."""
    t = clock(length)
    sound = np.zeros(len(t))
    for frequency, amplitude, t60 in modes:
        if frequency < 0.45 * RATE:
            phase = random.random() * 2 * np.pi if random else 0.0
            sound += amplitude * np.exp(-6.91 * t / t60) * np.sin(2 * np.pi * frequency * t + phase)
    return fade_out(sound * rise(length, attack), min(0.02, length / 4))


def bubble(radius, rising=0.1, longest=0.5):
    """The ring of an air bubble of that radius (metres) under water. Its pitch is Minnaert's,
    3 / radius; its damping and the rise of pitch as it nears the surface follow van den Doel,
    "Physically based models for liquid sounds", 2005."""
    frequency = 3.0 / radius
    damping = 0.13 / radius + 0.0072 * radius ** -1.5
    length = min(longest, 7.0 / damping)
    t = clock(length)
    phase = frequency * (t + 0.5 * rising * damping * t * t)
    sound = np.sin(2 * np.pi * phase) * np.exp(-damping * t)
    return fade_out(sound * rise(length, min(0.002, 1.5 / frequency)), length / 4)


def room(length, t60_low, t60_high, random, delay=0.012, channels=1):
    """The answer of a room: noise that dies away, its high part sooner."""
    t = clock(length)
    answer = np.zeros((len(t), channels))
    for edge, top, share in ((60, 400, 0.0), (400, 2000, 0.35), (2000, 5000, 0.7),
                             (5000, 12000, 1.0)):
        t60 = t60_low + (t60_high - t60_low) * share
        for channel in range(channels):
            grain = noise(length, band(edge, top, 2), random) * (top - edge) ** 0.35
            answer[:, channel] += grain * np.exp(-6.91 * t / t60)
    answer *= rise(length, 0.008)[:, None]
    answer = np.concatenate([np.zeros((len(clock(delay)), channels)), answer])
    answer /= np.sqrt(np.sum(answer ** 2, axis=0))
    return fade_out(answer[:, 0] if channels == 1 else answer, length / 4)


def in_room(sound, answer, wet):
    """The ring `sound` with its echo from the room, `wet` its share of the dry level."""
    count = len(sound)
    folded = np.zeros((count,) + answer.shape[1:])
    place(folded, answer, 0.0)
    if sound.ndim == 1 and folded.ndim == 2:
        sound = np.repeat(sound[:, None], 2, 1)
    echo = np.fft.irfft(np.fft.rfft(sound, axis=0) * np.fft.rfft(folded, axis=0), count, axis=0)
    return sound + wet * echo


def loudness(sound):
    """Loudness in LUFS without gating; the weighting is that of ITU-R BS.1770."""
    z = np.exp(-2j * np.pi * np.fft.rfftfreq(len(sound), 1.0 / RATE) / 48000.0)
    shelf = (1.53512485958697 - 2.69169618940638 * z + 1.19839281085285 * z * z) / (
        1 - 1.69065929318241 * z + 0.73248077421585 * z * z)
    lows = (1 - 2 * z + z * z) / (1 - 1.99004745483398 * z + 0.99007225036621 * z * z)
    power = np.abs(shelf * lows) ** 2
    spectrum = np.abs(np.fft.rfft(sound.reshape(len(sound), -1), axis=0)) ** 2
    mean = 2.0 * np.sum(spectrum * power[:, None]) / len(sound) ** 2
    return -0.691 + 10 * np.log10(mean)


def at_loudness(sound, target, ceiling=-1.5):
    """The sound at `target` LUFS, its highest peaks bent under `ceiling` dBFS."""
    sound = sound - sound.mean(axis=0)
    sound = sound * decibels(target - loudness(sound))
    return bent(sound, ceiling)


def at_peak(sound, target):
    """The sound with its highest peak at `target` dBFS."""
    return sound * (decibels(target) / np.abs(sound).max())


def bent(sound, ceiling):
    """Peaks above 70% of the ceiling are bent so that none passes it."""
    top = decibels(ceiling)
    knee = 0.7 * top
    over = np.abs(sound) - knee
    return np.where(over <= 0, sound,
                    np.sign(sound) * (knee + (top - knee) * np.tanh(over / (top - knee))))


def trimmed(sound, floor=-66.0):
    """Cut where only what is `floor` dB under the peak would follow; ends in silence."""
    level = np.abs(sound) if sound.ndim == 1 else np.abs(sound).max(axis=1)
    last = np.nonzero(level > level.max() * decibels(floor))[0][-1]
    return fade_out(sound[:last + 1], min(0.03, 0.2 * last / RATE))


def one_shot(sound, low=30.0):
    """A sound that is played once: no offset, silent at both ends."""
    padded = np.concatenate([sound, np.zeros((len(clock(0.5)),) + sound.shape[1:])])
    sound = filtered(padded, band(low, 19000, 2))[:len(sound) + len(clock(0.2))]
    count = len(clock(0.0005))
    ramp = np.arange(count) / count
    sound[:count] *= ramp if sound.ndim == 1 else ramp[:, None]
    return trimmed(sound)


def save(name, sound, rate=RATE):
    """Writes data/snd/NAME.wav, 16 bit; other rates are made from the ring's spectrum."""
    if rate != RATE:
        count = len(sound) * rate // RATE
        spectrum = np.fft.rfft(sound, axis=0)[:count // 2 + 1]
        sound = np.fft.irfft(spectrum, count, axis=0) * (count / len(sound))
    TARGET.mkdir(exist_ok=True)
    data = np.round(np.clip(sound, -1, 1) * 32767).astype("<i2")
    with wave.open(str(TARGET / (name + ".wav")), "wb") as file:
        file.setnchannels(1 if data.ndim == 1 else data.shape[1])
        file.setsampwidth(2)
        file.setframerate(rate)
        file.writeframes(data.tobytes())
