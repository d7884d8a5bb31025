#!/usr/bin/env python3
"""Trains the network on the pictures of a folder.

    train.py PICTURES CHECKPOINT --iterations N [--resume OTHER] [--minutes M]

CHECKPOINT is written every few minutes and holds everything that continuing needs: --resume takes one, which may be
the same file. The step size falls along a cosine over --iterations, counted over all runs, so a run that is cut by
--minutes is continued with the same command. One that has come to its end is continued by naming more iterations.
"""

import argparse
import math
import multiprocessing
import signal
import sys
import time
from pathlib import Path

import numpy
import torch
from PIL import Image

from network import SCALE, Network
from reduction import reduce_somehow

BATCH = 8
CROP = 32  # pixels of the small picture
KEEP = 0.999  # of the running mean of the weights, which is what gets exported


def samples(folder, seed, queue):
    """Fills the queue with batches for ever. Pictures that appear in the folder later are used as well."""
    random = numpy.random.default_rng(seed)
    whole = CROP * SCALE
    while True:
        files = sorted(Path(folder).glob("*.png"))
        pool = []
        for index in random.integers(0, len(files), 24):
            image = Image.open(files[index]).convert("RGB")
            pool.append((image, reduce_somehow(image, random)))
        for _ in range(24):
            large, small = [], []
            for index in random.integers(0, len(pool), BATCH):
                image, reduced = pool[index]
                x = random.integers(0, reduced.width - CROP + 1)
                y = random.integers(0, reduced.height - CROP + 1)
                # Turned and mirrored in the same way, which makes eight pictures of one.
                turns, mirror = random.integers(0, 4), random.random() < 0.5
                for target, picture, scale, side in ((small, reduced, 1, CROP), (large, image, SCALE, whole)):
                    box = (x * scale, y * scale, x * scale + side, y * scale + side)
                    pixels = numpy.rot90(numpy.asarray(picture.crop(box)), turns)
                    target.append(pixels[:, ::-1] if mirror else pixels)
            queue.put((numpy.stack(small), numpy.stack(large)))


def tensor(pixels):
    return torch.from_numpy(pixels).permute(0, 3, 1, 2).float().div_(255)


def step_size(done, whole, largest):
    warm = min(1, (done + 1) / 100)
    return largest * warm * (0.01 + 0.99 * 0.5 * (1 + math.cos(math.pi * min(1, done / whole))))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("pictures")
    parser.add_argument("checkpoint", type=Path)
    parser.add_argument("--iterations", type=int, required=True)
    parser.add_argument("--resume", type=Path)
    parser.add_argument("--minutes", type=float, default=math.inf)
    parser.add_argument("--channels", type=int, default=24, help="of a new network (default 24)")
    parser.add_argument("--layers", type=int, default=7, help="of a new network (default 7)")
    parser.add_argument("--step", type=float, default=1e-3, help="the largest (default 0.001)")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--threads", type=int, default=1)
    options = parser.parse_args()

    torch.manual_seed(options.seed)
    torch.set_num_threads(options.threads)
    device = "cuda" if torch.cuda.is_available() else "cpu"
    stored = torch.load(options.resume, map_location=device) if options.resume else None
    shape = {name: (stored or vars(options))[name] for name in ("channels", "layers")}
    network, mean = Network(**shape).to(device), Network(**shape).to(device)
    mean.load_state_dict(network.state_dict())
    optimizer = torch.optim.Adam(network.parameters(), betas=(0.9, 0.99))
    done = 0
    if stored:
        network.load_state_dict(stored["network"])
        mean.load_state_dict(stored["mean"])
        optimizer.load_state_dict(stored["optimizer"])
        done = stored["iterations"]

    def save():
        unfinished = options.checkpoint.with_suffix(".part")
        states = {"network": network.state_dict(), "mean": mean.state_dict(), "optimizer": optimizer.state_dict()}
        torch.save({**shape, **states, "iterations": done}, unfinished)
        unfinished.replace(options.checkpoint)

    queue = multiprocessing.Queue(16)
    multiprocessing.Process(target=samples, args=(options.pictures, options.seed + done, queue), daemon=True).start()
    # After the start, so that it is ours alone: an ordinary exit ends the process that reads pictures as well.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    began = saved = told = time.monotonic()
    lost = 0.0
    counted = 0
    while done < options.iterations and time.monotonic() - began < options.minutes * 60:
        small, large = (tensor(pixels).to(device) for pixels in queue.get())
        for group in optimizer.param_groups:
            group["lr"] = step_size(done, options.iterations, options.step)
        loss = (network(small) - large).abs().mean()
        optimizer.zero_grad()
        loss.backward()
        torch.nn.utils.clip_grad_norm_(network.parameters(), 1.0)
        optimizer.step()
        done += 1
        with torch.no_grad():
            keep = min(KEEP, done / (done + 10))
            for target, source in zip(mean.parameters(), network.parameters()):
                target.lerp_(source, 1 - keep)
        lost += loss.item()
        counted += 1
        now = time.monotonic()
        if now - told > 30:
            print(f"{done} iterations, loss {lost / counted * 255:.3f} of 255, {counted / (now - told):.1f} a second", flush=True)
            lost, counted, told = 0.0, 0, now
        if now - saved > 120:
            save()
            saved = now
    save()


if __name__ == "__main__":
    main()
