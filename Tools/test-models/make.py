#!/usr/bin/env python3
"""Writes the small networks that the upscaler's tests run, and the large ones of its benchmark.

    make.py FOLDER              the test networks, about a kilobyte each (committed in Tests/Data/models)
    make.py --benchmark FOLDER  compact.onnx and full.onnx: the shapes of the two networks that people use, with
                                pseudo-random weights (5 MB and 67 MB, not committed)

Nothing beyond Python's standard library is needed.
"""

import random
import struct
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent))

from onnx_file import FLOAT, FLOAT16, INT64, UINT8, external, floats, model, node, tensor, value

TILE = (1, 3, 512, 512)
RESULT = (1, 3, 2048, 2048)
ANY_TILE = (1, 3, "height", "width")
ANY_RESULT = (1, 3, "height4", "width4")


# Networks.


def resize(source, target, scale=4, name="scales"):
    """Nearest neighbour, so that every result pixel is exactly one source pixel."""
    return node(
        "Resize", [source, "", name], [target],
        mode="nearest", coordinate_transformation_mode="asymmetric", nearest_mode="floor",
    ), floats(name, [4], [1, 1, scale, scale])  # fmt: skip


def nearest(tile=TILE, result=RESULT, scale=4, more=(), constants=(), kind=FLOAT, metadata=()):
    """The nearest-neighbour network, with more nodes turning "enlarged" into "result" if wanted."""
    enlarge, scales = resize("tile", "enlarged" if more else "result", scale)
    ends = [value("tile", kind, tile)], [value("result", kind, result)]
    return model([enlarge, *more], [scales, *constants], *ends, metadata)


def half():
    enlarge, scales = resize("wide", "enlarged")
    nodes = [node("Cast", ["tile"], ["wide"], to=FLOAT), enlarge, node("Cast", ["enlarged"], ["result"], to=FLOAT16)]
    return model(nodes, [scales], [value("tile", FLOAT16, TILE)], [value("result", FLOAT16, RESULT)])


def weights(generator, name, dims, size):
    count = 1
    for d in dims:
        count *= d
    # A block of numbers repeated: large files in a second instead of a minute.
    chunk = [generator.uniform(-size, size) for _ in range(min(count, 4099))]
    packed = struct.pack(f"<{len(chunk)}f", *chunk)
    return tensor(name, FLOAT, dims, (packed * (count // len(chunk) + 1))[: 4 * count])


class Layers:
    """A network under construction: convolutions one after another."""

    def __init__(self):
        self.random = random.Random(4)
        self.nodes = []
        self.constants = []

    def convolution(self, source, before, after, size=None):
        index = len(self.nodes)
        limit = size or (3 / (9 * before)) ** 0.5
        self.constants.append(weights(self.random, f"w{index}", [after, before, 3, 3], limit))
        self.nodes.append(node("Conv", [source, f"w{index}"], [f"y{index}"], pads=[1, 1, 1, 1], kernel_shape=[3, 3]))
        return f"y{index}"

    def apply(self, operation, *sources, **attributes):
        index = len(self.nodes)
        self.nodes.append(node(operation, sources, [f"y{index}"], **attributes))
        return f"y{index}"

    def slope(self, source, channels):
        index = len(self.nodes)
        self.constants.append(floats(f"s{index}", [channels, 1, 1], [0.2] * channels))
        return self.apply("PRelu", source, f"s{index}")

    def finish(self, detail, tile, result):
        """Adds the detail to the enlarged picture, as the compact network does, so that the result resembles it."""
        enlarge, scales = resize("tile", "base")
        self.nodes += [enlarge, node("Add", [detail, "base"], ["result"])]
        return model(self.nodes, [*self.constants, scales], [value("tile", FLOAT, tile)], [value("result", FLOAT, result)])


def compact(channels, depth, tile=TILE, result=RESULT):
    layers = Layers()
    last = layers.slope(layers.convolution("tile", 3, channels), channels)
    for _ in range(depth):
        last = layers.slope(layers.convolution(last, channels, channels), channels)
    detail = layers.convolution(last, channels, 48, size=0.002)
    return layers.finish(layers.apply("DepthToSpace", detail, blocksize=4, mode="CRD"), tile, result)


def full(blocks=23, channels=64, growth=32):
    """Residual blocks of densely connected convolutions, then two doublings."""
    layers = Layers()
    layers.constants.append(floats("fifth", [1], [0.2]))
    first = last = layers.convolution("tile", 3, channels)
    for _ in range(blocks):
        entry = last
        for _ in range(3):
            known = [last]
            for step in range(4):
                joined = layers.apply("Concat", *known, axis=1) if step else last
                grown = layers.convolution(joined, channels + step * growth, growth)
                known.append(layers.apply("LeakyRelu", grown))
            dense = layers.convolution(layers.apply("Concat", *known, axis=1), channels + 4 * growth, channels)
            last = layers.apply("Add", layers.apply("Mul", dense, "fifth"), last)
        last = layers.apply("Add", layers.apply("Mul", last, "fifth"), entry)
    last = layers.apply("Add", layers.convolution(last, channels, channels), first)
    for doubling in range(2):
        enlarge, scales = resize(last, f"doubled{doubling}", 2, f"scales{doubling}")
        layers.nodes.append(enlarge)
        layers.constants.append(scales)
        last = layers.apply("LeakyRelu", layers.convolution(f"doubled{doubling}", channels, channels))
    last = layers.apply("LeakyRelu", layers.convolution(last, channels, channels))
    return layers.finish(layers.convolution(last, channels, 3, size=0.002), TILE, RESULT)


def after(*operations):
    """Nodes from "enlarged" to "result": each operation is its name and its further inputs."""
    nodes = []
    for index, (operation, *others) in enumerate(operations):
        source = f"step{index}" if index else "enlarged"
        target = "result" if index + 1 == len(operations) else f"step{index + 1}"
        nodes.append(node(operation, [source, *others], [target]))
    return nodes


def constant(number_):
    return floats("constant", [1], [number_])


def two_inputs():
    enlarge, scales = resize("tile", "enlarged")
    inputs = [value("tile", FLOAT, TILE), value("strength", FLOAT, (1,))]
    return model([enlarge, *after(("Mul", "strength"))], [scales], inputs, [value("result", FLOAT, RESULT)])


def huge_constant():
    """Small on disk, 400 GB once its constant is filled."""
    fill = node("ConstantOfShape", ["size"], ["filled"])
    largest = node("ReduceMax", ["filled"], ["constant"], keepdims=1)
    size = tensor("size", INT64, [1], struct.pack("<q", 100_000_000_000))
    return nearest(more=[fill, largest, *after(("Add", "constant"))], constants=[size])


def external_weights(location):
    """A convolution whose weights would be read from another file."""
    mix = node("Conv", ["enlarged", "weights"], ["result"], kernel_shape=[1, 1])
    return nearest(more=[mix], constants=[external("weights", [3, 3, 1, 1], location)])


def blurred(metadata=()):
    """Each result pixel is the mean of the source pixel below it and the eight around that, so it looks one pixel far."""
    sides = tensor("sides", INT64, [8], struct.pack("<8q", 0, 0, 1, 1, 0, 0, 1, 1))
    middle = [1.0 if before == after else 0.0 for after in range(3) for before in range(3) for _ in range(9)]
    mean = floats("weights", [3, 3, 3, 3], [weight / 9 for weight in middle])
    enlarge, scales = resize("mean", "result")
    nodes = [
        node("Pad", ["tile", "sides"], ["wide"], mode="edge"),
        node("Conv", ["wide", "weights"], ["mean"], kernel_shape=[3, 3]),
        enlarge,
    ]
    ends = [value("tile", FLOAT, ANY_TILE)], [value("result", FLOAT, ANY_RESULT)]
    return model(nodes, [sides, mean, scales], *ends, metadata)


def no_picture():
    """All pixels in one row. Even the number of the result's sides is only known once the network has run."""
    nodes = [
        node("ReduceMax", ["tile"], ["brightest"], axes=[1, 2, 3], keepdims=0),
        node("Less", ["brightest", "constant"], ["always"]),
        node("Compress", ["all", "always"], ["shape"], axis=0),
        node("Reshape", ["enlarged", "shape"], ["result"]),
    ]
    return nearest(result=None, more=nodes, constants=[constant(2), tensor("all", INT64, [1], struct.pack("<q", -1))])


def test_models():
    good = nearest()
    return {
        "nearest": good,
        "dynamic": nearest(ANY_TILE, ANY_RESULT),
        "float16": half(),
        "convolutions": compact(8, 1, ANY_TILE, ANY_RESULT),
        "blurred": blurred(),
        "reach": blurred([("reach", "1")]),
        "reach-of-one-size": nearest(metadata=[("reach", "8")]),
        "reach-600": blurred([("reach", "600")]),
        "reach-abc": blurred([("reach", "abc")]),
        "wrong-size": nearest((1, 3, 256, 256), (1, 3, 1024, 1024)),
        "wrong-scale": nearest(result=(1, 3, 1024, 1024), scale=2),
        "undeclared-scale": nearest(ANY_TILE, ANY_RESULT, scale=2),
        "grey": nearest((1, 1, 512, 512), (1, 1, 2048, 2048)),
        "bytes": nearest(kind=UINT8),
        "two-inputs": two_inputs(),
        "huge-shape": nearest((1, 3, 1_000_000, 1_000_000), (1, 3, 4_000_000, 4_000_000)),
        "huge-constant": huge_constant(),
        "external-weights": external_weights("weights.bin"),
        "foreign-weights": external_weights("/etc/passwd"),
        "not-a-number": nearest(more=after(("Sub", "enlarged"), ("Div", "constant")), constants=[constant(0)]),
        "black": nearest(more=after(("Mul", "constant")), constants=[constant(0)]),
        "no-picture": no_picture(),
        "truncated": good[: len(good) // 2],
        "garbage": bytes(random.Random(1).randrange(256) for _ in range(1000)),
    }


def main(arguments):
    if len(arguments) == 2 and arguments[0] == "--benchmark":
        models = {"compact": compact(64, 32), "full": full()}
    elif len(arguments) == 1:
        models = test_models()
    else:
        sys.exit(__doc__)
    folder = Path(arguments[-1])
    folder.mkdir(parents=True, exist_ok=True)
    for name, content in models.items():
        (folder / f"{name}.onnx").write_bytes(content)


if __name__ == "__main__":
    main(sys.argv[1:])
