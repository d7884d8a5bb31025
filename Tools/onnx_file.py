"""Writes ONNX files without any package: such a file is a protobuf message, and the few messages needed are encoded here
by hand. The numbers are the field numbers of onnx.proto.
"""

import struct

FLOAT, UINT8, INT64, FLOAT16 = 1, 2, 7, 10

# Protobuf: every field is its number and wire type, then a varint or a length and bytes.


def varint(value):
    encoded = bytearray()
    value &= (1 << 64) - 1
    while value > 0x7F:
        encoded.append(value & 0x7F | 0x80)
        value >>= 7
    encoded.append(value)
    return bytes(encoded)


def number(field, value):
    return varint(field << 3) + varint(value)


def block(field, content):
    content = content.encode() if isinstance(content, str) else content
    return varint(field << 3 | 2) + varint(len(content)) + content


# ONNX messages.


def tensor(name, kind, dims, raw):
    return b"".join(number(1, d) for d in dims) + number(2, kind) + block(8, name) + block(9, raw)


def floats(name, dims, values):
    return tensor(name, FLOAT, dims, struct.pack(f"<{len(values)}f", *values))


def external(name, dims, location):
    size = 4
    for d in dims:
        size *= d
    entries = [block(1, "location") + block(2, location), block(1, "length") + block(2, str(size))]
    places = b"".join(block(13, e) for e in entries)
    return b"".join(number(1, d) for d in dims) + number(2, FLOAT) + block(8, name) + places + number(14, 1)


def attribute(name, value):
    if isinstance(value, int):
        return block(1, name) + number(3, value) + number(20, 2)
    if isinstance(value, str):
        return block(1, name) + block(4, value) + number(20, 3)
    if isinstance(value, bytes):
        return block(1, name) + block(5, value) + number(20, 4)
    return block(1, name) + b"".join(number(8, v) for v in value) + number(20, 7)


def node(operation, inputs, outputs, **attributes):
    return (
        b"".join(block(1, i) for i in inputs)
        + b"".join(block(2, o) for o in outputs)
        + block(4, operation)
        + b"".join(block(5, attribute(k, v)) for k, v in attributes.items())
    )


def value(name, kind, dims):
    kind_and_shape = number(1, kind)
    if dims is not None:
        shape = b"".join(block(1, block(2, d) if isinstance(d, str) else number(1, d)) for d in dims)
        kind_and_shape += block(2, shape)
    return block(1, name) + block(2, block(1, kind_and_shape))


def model(nodes, initializers, inputs, outputs, metadata=()):
    graph = (
        b"".join(block(1, n) for n in nodes)
        + block(2, "graph")
        + b"".join(block(5, i) for i in initializers)
        + b"".join(block(11, i) for i in inputs)
        + b"".join(block(12, o) for o in outputs)
    )
    entries = b"".join(block(14, block(1, key) + block(2, text)) for key, text in metadata)
    return number(1, 7) + block(2, "quorvane") + block(7, graph) + block(8, number(2, 13)) + entries
