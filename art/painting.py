"""Brushes for the pictures: everything wraps round at the picture's edges, so that what is
painted with them tiles. Heights and masks are arrays of floats; light falls from above left."""
import numpy as np
from PIL import Image


def grid(size):
    """Pixel centres as y and x."""
    return np.mgrid[0:size, 0:size] + 0.5


def noise(size, seed, rough=1.0, stretch=(1.0, 1.0), low=1.0):
    """Noise from 0 to 1 with a spectrum that falls by frequency to the power `rough`.
    `stretch` (x, y) above 1 draws it out; frequencies below `low` are left out."""
    rng = np.random.default_rng(seed)
    fy = np.fft.fftfreq(size)[:, None] * size * stretch[1]
    fx = np.fft.fftfreq(size)[None, :] * size * stretch[0]
    f = np.hypot(fx, fy)
    weight = np.where(f >= low, 1.0 / np.maximum(f, 1.0) ** rough, 0.0)
    field = np.fft.ifft2(np.fft.fft2(rng.standard_normal((size, size))) * weight).real
    field = (field - field.mean()) / field.std()
    return np.clip(0.5 + field / 5.0, 0.0, 1.0)


def blur(field, radius):
    """Gaussian blur, wrapping."""
    fy = np.fft.fftfreq(field.shape[0])[:, None]
    fx = np.fft.fftfreq(field.shape[1])[None, :]
    kernel = np.exp(-2.0 * (np.pi * radius) ** 2 * (fx * fx + fy * fy))
    return np.fft.ifft2(np.fft.fft2(field) * kernel).real


def smooth(low, high, value):
    t = np.clip((value - low) / (high - low), 0.0, 1.0)
    return t * t * (3.0 - 2.0 * t)


def mix(a, b, amount):
    """Between two colours or pictures, by a number or a mask."""
    amount = np.asarray(amount)
    if amount.ndim == 2:
        amount = amount[..., None]
    return np.asarray(a, float) * (1.0 - amount) + np.asarray(b, float) * amount


def colour(text):
    return np.array([int(text[i:i + 2], 16) for i in (0, 2, 4)]) / 255.0


def fill(size, text):
    return np.ones((size, size, 3)) * colour(text)


def wrapped(delta, period):
    """Shortest difference on a ring."""
    return (delta + period / 2.0) % period - period / 2.0


def cells(size, count, seed, stretch=(1.0, 1.0), jitter=None):
    """Wrapped Voronoi cells: distance to the nearest point, to the second nearest, and the
    nearest one's number."""
    rng = np.random.default_rng(seed)
    points = rng.random((count, 2)) * size if jitter is None else jitter
    y, x = grid(size)
    first = np.full((size, size), 1e9)
    second = np.full((size, size), 1e9)
    owner = np.zeros((size, size), int)
    for i, (px, py) in enumerate(points):
        d = np.hypot(wrapped(x - px, size) * stretch[0], wrapped(y - py, size) * stretch[1])
        nearer = d < first
        second = np.where(nearer, first, np.minimum(second, d))
        first = np.where(nearer, d, first)
        owner = np.where(nearer, i, owner)
    return first, second, owner


def light(height, strength):
    """Brightness around 1 of a surface lit from above left."""
    dx = (np.roll(height, -1, 1) - np.roll(height, 1, 1)) / 2.0
    dy = (np.roll(height, -1, 0) - np.roll(height, 1, 0)) / 2.0
    nx, ny, nz = -dx * strength, -dy * strength, np.ones_like(height)
    length = np.sqrt(nx * nx + ny * ny + nz * nz)
    lx, ly, lz = -0.5, -0.62, 0.6
    shade = (nx * lx + ny * ly + nz * lz) / length
    return 1.0 + (shade - lz) * 0.9


def hollows(height, radius, strength):
    """Darkening where the surface lies lower than what is around it."""
    return 1.0 - np.clip((blur(height, radius) - height) * strength, 0.0, 0.75)


def shaded(picture, *factors):
    for factor in factors:
        picture = picture * factor[..., None]
    return picture


def to_image(rgb, alpha=None):
    data = np.round(np.clip(rgb, 0.0, 1.0) * 255.0).astype(np.uint8)
    if alpha is None:
        return Image.fromarray(data, "RGB")
    mask = np.round(np.clip(alpha, 0.0, 1.0) * 255.0).astype(np.uint8)
    return Image.fromarray(np.dstack([data, mask]), "RGBA")
