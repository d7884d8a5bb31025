#!/usr/bin/env python3
"""Writes the network of a checkpoint as the ONNX file that the program runs: export.py CHECKPOINT FILE.onnx.

The program fills tiles up with black at the right and at the bottom. To any filter that is the edge of a black thing,
and the picture would end in a dark line with a light one beside it. So the file begins with steps of its own: rows at
the bottom and columns at the right that are black in full are replaced by the last one that is not, and made black
again at the end. For a picture that really ends in black the result is black there as well.
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
            tensor("zero", INT64, [], struct.pack("<q", 0)),
            tensor("one", INT64, [], struct.pack("<q", 1)),
            tensor("first", INT64, [1], struct.pack("<q", 0)),
            tensor("second", INT64, [1], struct.pack("<q", 1)),
        ]

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
        """As network.continued."""
        sides = self.whole_numbers(0, 0, border, border, 0, 0, border, border)
        twice = self.apply("Mul", self.apply("Pad", tile, sides, mode="edge"), "twice")
        beyond = self.apply("Sub", twice, self.apply("Pad", tile, sides, mode="reflect"))
        return self.apply("Clip", beyond, "black", "white")

    def without_border(self, wide, border):
        start, end, axes = self.whole_numbers(border, border), self.whole_numbers(-border, -border), self.whole_numbers(2, 3)
        return self.apply("Slice", wide, start, end, axes)

    def filled(self, tile, axis):
        """The tile with its black end along the axis replaced, and which places along it are not of that end."""
        brightest = self.apply("ReduceMax", tile, axes=[0, 1, 5 - axis], keepdims=0)
        count = self.apply("Squeeze", self.apply("Shape", brightest), "first")
        places = self.apply("Range", "zero", count, "one")
        lit = self.apply("Where", self.apply("Greater", brightest, "black"), places, "zero")
        last = self.apply("ReduceMax", lit, axes=[0], keepdims=1)
        inside = self.apply("Cast", self.apply("LessOrEqual", places, last), to=FLOAT)
        return self.apply("Gather", tile, self.apply("Min", places, last), axis=axis), inside


def export(network):
    graph = Graph()
    tile, rows = graph.filled("tile", 2)
    tile, columns = graph.filled(tile, 3)
    inside = graph.apply("Mul", graph.apply("Unsqueeze", rows, "second"), columns)
    wide = graph.continued(tile, network.border)
    last = wide
    for convolution, slope in zip(network.body[::2], network.body[1::2]):
        last = graph.convolution(last, convolution.weight, convolution.bias)
        last = graph.apply("PRelu", last, graph.constant(slope.weight, [len(slope.weight), 1, 1]))
    detail = graph.convolution(last, network.detail.weight, network.detail.bias)
    both = graph.apply("Add", detail, graph.convolution(graph.without_border(wide, network.border - 2), network.bicubic))
    shuffled = graph.apply("DepthToSpace", graph.apply("Mul", both, inside), blocksize=SCALE, mode="CRD")
    graph.apply("Clip", shuffled, "black", "white", result="result")
    small = value("tile", FLOAT, [1, 3, "height", "width"])
    large = value("result", FLOAT, [1, 3, "height4", "width4"])
    return model(graph.nodes, graph.constants, [small], [large])


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    Path(sys.argv[2]).write_bytes(export(load(sys.argv[1])))


if __name__ == "__main__":
    main()
