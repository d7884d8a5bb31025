#!/usr/bin/env python3
"""Measures a network as the program runs it: reduces pictures four times, enlarges them again, compares.

    evaluate.py [--reduction area|bicubic|lanczos] [--largest WIDTHxHEIGHT] [--crops FOLDER] ENLARGE MODEL.onnx PICTURE...

ENLARGE is the program quorvane-enlarge from the build folder. Prints a table in Markdown: PSNR in dB and SSIM on luma
for nearest, bicubic, Lanczos and the network, how far the network moves the mean of any channel (of 255), and last how
much larger the steps across tile borders are than those one pixel beside, also for bicubic on the same tiles. Pictures
are cut to their middle. With --crops, the place of each picture where bicubic is furthest off is written beside the
same place by the network and in the original.
"""

import argparse
import os
import subprocess
import tempfile
from pathlib import Path

import numpy
import torch
from PIL import Image
from torch.nn import functional

from reduction import FILTERS, SCALE, reduce

TILE = 512 * SCALE
CROP = 320
FIXED = {"nearest": Image.NEAREST, "bicubic": Image.BICUBIC, "Lanczos": Image.LANCZOS}


def cut(image, largest):
    width, height = (min(side, most) // SCALE * SCALE for side, most in zip(image.size, largest))
    x, y = (image.width - width) // 2, (image.height - height) // 2
    return image.crop((x, y, x + width, y + height))


def luma(image):
    """BT.601, 0..255, as a tensor of [1, 1, height, width]."""
    pixels = torch.from_numpy(numpy.array(image)).float()
    return (pixels @ torch.tensor([0.299, 0.587, 0.114]))[None, None]


def psnr(one, other):
    return (10 * torch.log10(255**2 / ((one - other) ** 2).double().mean())).item()


def blurred(field):
    """Means under a Gaussian window of 11 pixels, deviation 1.5; of every fourth window each way, which is enough."""
    at = torch.arange(11.0) - 5
    window = torch.exp(-(at**2) / (2 * 1.5**2))
    window /= window.sum()
    across = functional.conv2d(field, window.view(1, 1, 1, 11), stride=(1, 4))
    return functional.conv2d(across, window.view(1, 1, 11, 1), stride=(4, 1))


def ssim(one, other):
    mean1, mean2 = blurred(one), blurred(other)
    variance1, variance2 = blurred(one * one) - mean1**2, blurred(other * other) - mean2**2
    shared = blurred(one * other) - mean1 * mean2
    c1, c2 = (0.01 * 255) ** 2, (0.03 * 255) ** 2
    like = (2 * mean1 * mean2 + c1) * (2 * shared + c2) / ((mean1**2 + mean2**2 + c1) * (variance1 + variance2 + c2))
    return like.mean().item()


class BorderSteps:
    """The mean difference of neighbours across tile borders, and of those one pixel to either side."""

    def __init__(self):
        self.across, self.beside, self.count = 0.0, 0.0, 0

    def add(self, y):
        for field in (y[0, 0], y[0, 0].T):
            for border in range(TILE, field.shape[1] - 2, TILE):
                steps = (field[:, border - 2 : border + 2].diff(dim=1)).abs().sum(dim=0)
                self.across += steps[1].item()
                self.beside += (steps[0] + steps[2]).item() / 2
                self.count += field.shape[0]

    def __str__(self):
        if not self.count:
            return "no tile borders"
        return f"{self.across / self.count:.3f} across, {self.beside / self.count:.3f} beside: {self.across / self.beside:.3f}"


def enlarge_tiles(small, how):
    """By a fixed filter, tile by tile as the network has to."""
    large = Image.new("RGB", (small.width * SCALE, small.height * SCALE))
    for y in range(0, small.height, TILE // SCALE):
        for x in range(0, small.width, TILE // SCALE):
            right, bottom = min(x + TILE // SCALE, small.width), min(y + TILE // SCALE, small.height)
            tile = small.crop((x, y, right, bottom))
            large.paste(tile.resize((tile.width * SCALE, tile.height * SCALE), how), (x * SCALE, y * SCALE))
    return large


def channel_shift(one, other):
    """The largest difference of channel means, with its sign."""
    means = [numpy.asarray(image).reshape(-1, 3).mean(axis=0) for image in (one, other)]
    shift = means[1] - means[0]
    return shift[numpy.abs(shift).argmax()]


def write_crops(file, original, results):
    """Side by side at 100 %: bicubic, network, original, where bicubic is furthest from the original."""
    off = (luma(original) - luma(results["bicubic"])) ** 2
    means = functional.avg_pool2d(off, CROP, CROP // 2)[0, 0]
    row, column = divmod(int(means.argmax()), means.shape[1])
    x, y = column * CROP // 2, row * CROP // 2
    sheet = Image.new("RGB", (3 * CROP + 8, CROP), "white")
    for index, image in enumerate((results["bicubic"], results["network"], original)):
        sheet.paste(image.crop((x, y, x + CROP, y + CROP)), (index * (CROP + 4), 0))
    sheet.save(file)


def enlarge(program, model, small, folder):
    """The network's result and the seconds that a tile took."""
    source, target = Path(folder, "small.png"), Path(folder, "large.png")
    small.save(source, compress_level=1)
    threads = str(len(os.sched_getaffinity(0)))
    seconds = subprocess.run([program, model, source, threads, target], check=True, stdout=subprocess.PIPE, text=True)
    return Image.open(target).convert("RGB"), float(seconds.stdout)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--reduction", choices=FILTERS, default="bicubic")
    parser.add_argument("--largest", default="4096x2160")
    parser.add_argument("--crops", type=Path)
    parser.add_argument("program")
    parser.add_argument("model")
    parser.add_argument("pictures", nargs="+", type=Path)
    options = parser.parse_args()

    largest = [int(side) for side in options.largest.split("x")]
    names = [*FIXED, "network"]
    print(f"| picture, reduced by {options.reduction} | " + " | ".join(names) + " | network − bicubic | channel means |")
    print("| --- |" + " --- |" * (len(names) + 2))
    rows, shifts, seconds, steps = [], [], [], {n: BorderSteps() for n in ("network", "bicubic", "original")}
    with tempfile.TemporaryDirectory() as folder, torch.inference_mode():
        for file in options.pictures:
            original = cut(Image.open(file).convert("RGB"), largest)
            small = reduce(original, options.reduction)
            results = {name: small.resize(original.size, how) for name, how in FIXED.items()}
            results["network"], took = enlarge(options.program, options.model, small, folder)
            y = luma(original)
            row = [(psnr(y, luma(results[n])), ssim(y, luma(results[n]))) for n in names]
            rows.append(row)
            shifts.append(channel_shift(small, results["network"]))
            seconds.append(took)
            steps["network"].add(luma(results["network"]))
            steps["bicubic"].add(luma(enlarge_tiles(small, Image.BICUBIC)))
            steps["original"].add(y)
            cells = [f"{p:.2f} / {s:.4f}" for p, s in row] + [f"{row[3][0] - row[1][0]:+.2f} dB", f"{shifts[-1]:+.2f}"]
            print(f"| {file.stem} | " + " | ".join(cells) + " |", flush=True)
            if options.crops:
                options.crops.mkdir(parents=True, exist_ok=True)
                write_crops(options.crops / f"{file.stem}.png", original, results)
    mean = numpy.mean(rows, axis=0)
    cells = [f"{p:.2f} / {s:.4f}" for p, s in mean] + [f"{mean[3][0] - mean[1][0]:+.2f} dB"]
    print("| **mean** | " + " | ".join(cells) + f" | {max(shifts, key=abs):+.2f} at most |")
    worst = min(row[3][0] - row[1][0] for row in rows)
    print(f"\nWorst against bicubic: {worst:+.2f} dB. Seconds a tile: {numpy.median(seconds):.2f} (median).")
    for name, of in steps.items():
        print(f"Steps at tile borders, {name}: {of}.")


if __name__ == "__main__":
    main()
