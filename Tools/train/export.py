#!/usr/bin/env python3
"""Writes the network of a checkpoint as the ONNX file that the program runs: export.py CHECKPOINT FILE.onnx.

An entry "reach" in the file says how many pixels beyond a tile the network looks. The program gives it every tile with
so many of its neighbours' pixels then, and never with padding, so that the tiles join without a seam; beyond the
picture's own edges the network continues it by itself, however small the picture is.
"""

import struct
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent))

from network import SCALE, load
from onnx_file import FLOAT, INT64, floats, model, node, tensor, value


class Graph:
    """Nodes one after another, each with the constants it needs."""

    def __init__(self):
        self.nodes = []
        self.constants = [
            floats("black", [], [0]),
            floats("white", [], [1]),
            floats("twice", [], [2]),
            self.whole_number("zero", 0),
            self.whole_number("one", 1),
        ]

    @staticmethod
    def whole_number(name, number):
        return tensor(name, INT64, [], struct.pack("<q", number))

    def apply(self, operation, *inputs, result=None, **attributes):
        result = result or f"step{len(self.nodes)}"
        self.nodes.append(node(operation, inputs, [result], **attributes))
        return result

    def whole_numbers(self, *numbers):
        name = f"numbers{len(self.constants)}"
        self.constants.append(tensor(name, INT64, [len(numbers)], struct.pack(f"<{len(numbers)}q", *numbers)))
        return name

    def constant(self, weights, dims=None):
        name = f"weights{len(self.constants)}"
        self.constants.append(floats(name, dims or list(weights.shape), weights.detach().flatten().tolist()))
        return name

    def convolution(self, source, weights, bias=None):
        constants = [self.constant(weights)] + ([self.constant(bias)] if bias is not None else [])
        return self.apply("Conv", source, *constants, kernel_shape=list(weights.shape[2:]))

    def continued(self, tile, border):
        """As network.continued, for a picture of any size: where it is smaller than the border, it is turned around at
        its other end no more."""
        repeated, mirrored = tile, tile
        for axis in (2, 3):
            last, places = self.places(tile, axis, border)
            repeated = self.apply("Gather", repeated, self.within(places, last), axis=axis)
            turned = self.apply("Sub", last, self.apply("Abs", self.apply("Sub", last, self.apply("Abs", places))))
            mirrored = self.apply("Gather", mirrored, self.within(turned, last), axis=axis)
        beyond = self.apply("Sub", self.apply("Mul", repeated, "twice"), mirrored)
        return self.apply("Clip", beyond, "black", "white")

    def places(self, tile, axis, border):
        """The last place along the axis, and all places with the border's: from -border on."""
        index, before, after = (f"{name}{axis}" for name in ("axis", "before", "after"))
        self.constants += [
            self.whole_number(index, axis),
            self.whole_number(before, -border),
            self.whole_number(after, border),
        ]
        count = self.apply("Gather", self.apply("Shape", tile), index, axis=0)
        places = self.apply("Range", before, self.apply("Add", count, after), "one")
        return self.apply("Sub", count, "one"), places

    def within(self, places, last):
        return self.apply("Min", self.apply("Max", places, "zero"), last)

    def without_border(self, wide, border):
        start, end, axes = self.whole_numbers(border, border), self.whole_numbers(-border, -border), self.whole_numbers(2, 3)
        return self.apply("Slice", wide, start, end, axes)


def export(network):
    graph = Graph()
    wide = graph.continued("tile", network.border)
    last = wide
    for convolution, slope in zip(network.body[::2], network.body[1::2]):
        last = graph.convolution(last, convolution.weight, convolution.bias)
        last = graph.apply("PRelu", last, graph.constant(slope.weight, [len(slope.weight), 1, 1]))
    detail = graph.convolution(last, network.detail.weight, network.detail.bias)
    both = graph.apply("Add", detail, graph.convolution(graph.without_border(wide, network.border - 2), network.bicubic))
    shuffled = graph.apply("DepthToSpace", both, blocksize=SCALE, mode="CRD")
    graph.apply("Clip", shuffled, "black", "white", result="result")
    small = value("tile", FLOAT, [1, 3, "height", "width"])
    large = value("result", FLOAT, [1, 3, "height4", "width4"])
    return model(graph.nodes, graph.constants, [small], [large], [("reach", str(network.border))])


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    Path(sys.argv[2]).write_bytes(export(load(sys.argv[1])))


if __name__ == "__main__":
    main()
