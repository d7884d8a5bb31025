#!/usr/bin/env python3
"""Draws the pictures that the super-resolution network learns from: nothing in them was photographed or downloaded.

    pictures.py FOLDER COUNT [--first N] [--processes N]

Writes N.png for the COUNT numbers from --first on. The number is the seed, so everybody gets the same pictures; those
that are there already are kept. Most are dead leaves: shapes of every size that cover each other, small ones far more
often than large ones (a power law), which gives edges, corners and textures at every scale as photographs have them.
The rest are what our pictures are made of beside: terrain, gradients, line work and text.
"""

import argparse
import math
import multiprocessing
import os
from pathlib import Path

import numpy
from PIL import Image, ImageDraw, ImageFilter, ImageFont

EDGE = 512  # pixels of a finished picture
FINE = 2  # drawn so many times larger, then reduced, so that no edge has stairs
SIDE = EDGE * FINE


def noise(random, power, side=SIDE, stretch=1.0):
    """A field with mean 0 and deviation 1 whose amplitude falls with frequency to the power; stretched is grain."""
    y = numpy.fft.fftfreq(side)[:, None] * stretch
    x = numpy.fft.rfftfreq(side)[None, :]
    frequency = numpy.sqrt(x * x + y * y)
    frequency[0, 0] = 1
    field = numpy.fft.irfft2(numpy.fft.rfft2(random.standard_normal((side, side))) * frequency**-power, (side, side))
    field -= field.mean()
    return (field / field.std()).astype(numpy.float32)


def stripes(random, side=SIDE):
    """Parallel waves, hard or soft, bent a little by noise."""
    angle, period = random.uniform(0, math.pi), numpy.exp(random.uniform(math.log(5), math.log(60)))
    y, x = numpy.mgrid[0:side, 0:side].astype(numpy.float32)
    along = x * math.cos(angle) + y * math.sin(angle) + noise(random, 2.5) * random.uniform(0, 20)
    wave = numpy.sin(along * (2 * math.pi / period))
    return numpy.clip(wave * random.uniform(1, 6), -1, 1)


def palette(random, count):
    """Colours that go together: around a few hues, mostly dull, over the whole range from dark to light."""
    anchors = random.uniform(0, 1, (random.integers(2, 6), 3)) ** random.uniform(0.6, 2.0)
    grey = anchors.mean(axis=1, keepdims=True)
    anchors = grey + (anchors - grey) * random.uniform(0.1, 1.2)
    chosen = anchors[random.integers(0, len(anchors), count)]
    light = random.normal(0, random.uniform(0.05, 0.3), (count, 1))
    return numpy.clip(chosen + light + random.normal(0, 0.03, (count, 3)), 0, 1).astype(numpy.float32)


def outline(random, kind, x, y, radius):
    """The corners of one shape around a point."""
    turn = random.uniform(0, 2 * math.pi)
    if kind == "box":
        corners = numpy.array([[-1, -1], [1, -1], [1, 1], [-1, 1]]) * [1, random.uniform(0.05, 1)]
    elif kind == "triangle":
        angles = numpy.sort(random.uniform(0, 2 * math.pi, 3))
        corners = numpy.stack([numpy.cos(angles), numpy.sin(angles)], axis=1)
    else:
        count = int(min(48, max(12, radius)))
        angles = numpy.arange(count) * (2 * math.pi / count)
        reach = numpy.ones(count)
        if kind == "blob":
            for wave in range(2, 6):
                reach += random.uniform(0, 0.5 / wave) * numpy.cos(wave * angles + random.uniform(0, 6.3))
        corners = numpy.stack([numpy.cos(angles), numpy.sin(angles)], axis=1) * reach[:, None]
        corners *= [1, random.uniform(0.25, 1)]
    spin = numpy.array([[math.cos(turn), -math.sin(turn)], [math.sin(turn), math.cos(turn)]])
    return [tuple(p) for p in corners @ spin * radius + (x, y)]


def leaves(random):
    """Which leaf is seen where, and where each one's middle is."""
    smallest, largest = random.uniform(3, 14), random.uniform(150, 600)
    power = random.uniform(1.4, 2.2)
    count = int(random.uniform(400, 3500))
    share = random.uniform(0, 1, count)
    # Radii with density r^-(power + 1) between the two.
    radii = (smallest**-power - share * (smallest**-power - largest**-power)) ** (-1 / power)
    radii[: count // 40] = random.uniform(largest / 3, largest, count // 40)
    centres = random.uniform(-50, SIDE + 50, (count, 2))
    kinds = random.choice(["blob", "circle", "box", "triangle"], count, p=random.dirichlet([1.5, 1, 1, 0.7]))
    labels = Image.new("I", (SIDE, SIDE), 0)
    draw = ImageDraw.Draw(labels)
    for index in range(1, count):
        draw.polygon(outline(random, kinds[index], *centres[index], radii[index]), fill=index)
    return numpy.asarray(labels), centres, radii


def dead_leaves(random):
    labels, centres, radii = leaves(random)
    count = len(radii)
    result = palette(random, count)[labels]
    # Shading across each leaf, as light falls on things that are not flat.
    y, x = numpy.mgrid[0:SIDE, 0:SIDE].astype(numpy.float32)
    slope = random.normal(0, random.uniform(0.02, 0.2), (count, 2)) / numpy.maximum(radii, 20)[:, None]
    slope = slope.astype(numpy.float32)
    middle = centres.astype(numpy.float32)
    shade = (x - middle[labels, 0]) * slope[labels, 0] + (y - middle[labels, 1]) * slope[labels, 1]
    # A few textures that leaves share, each leaf with its own strength.
    textures = [noise(random, random.uniform(0.4, 2.0), stretch=random.choice([1, 1, 0.2, 5])) for _ in range(3)]
    textures.append(stripes(random))
    kind = random.integers(0, len(textures), count)
    strength = (numpy.abs(random.normal(0, random.uniform(0.01, 0.12), count)) * (random.random(count) < 0.7))
    for index, texture in enumerate(textures):
        shade += texture * numpy.where(kind == index, strength, 0).astype(numpy.float32)[labels]
    return result + shade[:, :, None]


def terrain(random):
    """Rough ground under a low light, coloured by height, with fog or without."""
    height = noise(random, random.uniform(1.6, 2.6))
    down, across = numpy.gradient(height)
    light = across * random.uniform(-1, 1) + down * random.uniform(-1, 1)
    light /= light.std() + 1e-6
    steps = palette(random, 5)
    level = numpy.clip((height + 2) / 4, 0, 0.999) * (len(steps) - 1)
    whole = level.astype(int)
    part = (level - whole)[:, :, None]
    colour = steps[whole] * (1 - part) + steps[whole + 1] * part
    return colour * (1 + light[:, :, None] * random.uniform(0.05, 0.35))


def gradients(random):
    """A soft ground that other things stand on."""
    corners = (palette(random, 9).reshape(3, 3, 3) * 255).astype(numpy.uint8)
    return numpy.asarray(Image.fromarray(corners).resize((SIDE, SIDE), Image.BICUBIC), numpy.float32) / 255


def fonts():
    places = ["/usr/share/fonts", "/usr/local/share/fonts"]
    return sorted(str(f) for place in places for f in Path(place).rglob("*.[to]tf"))


def letters(random):
    return "".join(chr(c) for c in random.choice(range(33, 127), random.integers(2, 14)))


def drawing(random, ground):
    """Lines, curves and text over a ground."""
    picture = Image.fromarray((numpy.clip(ground, 0, 1) * 255).astype(numpy.uint8))
    draw = ImageDraw.Draw(picture)
    colours = [tuple(int(v * 255) for v in c) for c in palette(random, 8)]
    faces = fonts()
    for _ in range(random.integers(10, 120)):
        colour = colours[random.integers(0, len(colours))]
        x, y = random.uniform(0, SIDE, 2)
        width = int(1 + random.exponential(6))
        what = random.random()
        if what < 0.45:
            angle, length = random.uniform(0, 6.3), random.exponential(250)
            draw.line([x, y, x + length * math.cos(angle), y + length * math.sin(angle)], colour, width)
        elif what < 0.65:
            draw.arc([x, y, x + random.uniform(20, 500), y + random.uniform(20, 500)], 0, 360, colour, width)
        elif what < 0.75:
            steps = random.normal(0, 25, (40, 2)).cumsum(axis=0) + (x, y)
            draw.line([tuple(p) for p in steps], colour, width, joint="curve")
        elif faces:
            size = int(14 + random.exponential(50))
            face = ImageFont.truetype(faces[random.integers(0, len(faces))], size)
            draw.text((x, y), letters(random), colour, face)
    return numpy.asarray(picture, numpy.float32) / 255


def picture(seed):
    """The picture of that number, EDGE pixels wide and high."""
    random = numpy.random.default_rng(seed)
    kind = random.random()
    if kind < 0.72:
        fine = dead_leaves(random)
        if kind < 0.1:
            fine = drawing(random, fine)
    elif kind < 0.82:
        fine = terrain(random)
    elif kind < 0.95:
        fine = drawing(random, gradients(random))
    else:
        fine = drawing(random, terrain(random))
    image = Image.fromarray((numpy.clip(fine, 0, 1) * 255 + 0.5).astype(numpy.uint8))
    # Optics: lenses and sensors never give an edge within one pixel, and parts of a picture are out of focus.
    image = image.filter(ImageFilter.GaussianBlur(FINE * random.choice([0.3, 0.5, 0.8, 1.2])))
    if random.random() < 0.35:
        focus = Image.fromarray((numpy.clip(noise(random, 2.5) * 80 + 128, 0, 255)).astype(numpy.uint8))
        image = Image.composite(image.filter(ImageFilter.GaussianBlur(FINE * random.uniform(1, 5))), image, focus)
    return image.resize((EDGE, EDGE), Image.BOX)


def write(job):
    file, seed = job
    if not file.exists():
        unfinished = file.with_suffix(".part")
        picture(seed).save(unfinished, "png", compress_level=1)
        unfinished.rename(file)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", type=Path)
    parser.add_argument("count", type=int)
    parser.add_argument("--first", type=int, default=1)
    parser.add_argument("--processes", type=int, default=len(os.sched_getaffinity(0)))
    options = parser.parse_args()
    options.folder.mkdir(parents=True, exist_ok=True)
    jobs = [(options.folder / f"{seed}.png", seed) for seed in range(options.first, options.first + options.count)]
    with multiprocessing.Pool(options.processes) as pool:
        for _ in pool.imap_unordered(write, jobs):
            pass


if __name__ == "__main__":
    main()
