"""The network: plain 3x3 convolutions on the small picture, whose result is added to a bicubic enlargement of it.

Everything happens at the small size, so a tile costs little; a pixel shuffle at the end turns 48 numbers a pixel into
4 x 4 pixels. The bicubic enlargement is one fixed convolution before the same shuffle. What is learned starts at zero:
an untrained network is exactly bicubic.

Tiles are enlarged without sight of each other, so the network must guess what lies beyond a border. The tile is continued
there once, by turning it around its last pixel: brightness keeps rising where it rose. Repeating the last pixel instead
would make every tile flat at its border, and a flat strip beside a flat strip is a line that is seen.
"""

import torch
from torch import nn
from torch.nn import functional

SCALE = 4


def cubic(distance):
    """Keys' kernel with a = -1/2, the one that Pillow and most others call bicubic."""
    d = abs(distance)
    if d < 1:
        return 1.5 * d**3 - 2.5 * d**2 + 1
    return -0.5 * d**3 + 2.5 * d**2 - 4 * d + 2 if d < 2 else 0.0


def bicubic_weights():
    """[48, 3, 5, 5]: the enlargement's 16 pixels of each of the three colours, from the 5x5 pixels around one."""
    weights = torch.zeros(3, SCALE, SCALE, 3, 5, 5)
    along = torch.tensor([[cubic((p + 0.5) / SCALE - 0.5 - (t - 2)) for t in range(5)] for p in range(SCALE)])
    for colour in range(3):
        weights[colour, :, :, colour] = torch.einsum("ax,by->abxy", along, along)
    return weights.reshape(3 * SCALE * SCALE, 3, 5, 5)


def continued(tile, border):
    """The tile with so many more pixels on each side: what its last pixel and the mirrored one foretell."""
    sides = (border, border, border, border)
    return (2 * functional.pad(tile, sides, "replicate") - functional.pad(tile, sides, "reflect")).clamp(0, 1)


class Network(nn.Module):
    """[N, 3, H, W] RGB in 0..1 to [N, 3, 4H, 4W]. Not clipped, so that training sees how far off it is.

    Between the first convolution and the last are so many layers, all with so many channels.
    """

    def __init__(self, channels, layers):
        super().__init__()
        body = []
        for before in [3] + [channels] * layers:
            body += [nn.Conv2d(before, channels, 3), nn.PReLU(channels, 0.2)]
        self.body = nn.Sequential(*body)
        self.detail = nn.Conv2d(channels, 3 * SCALE * SCALE, 3)
        self.border = layers + 2  # One pixel for each convolution.
        nn.init.zeros_(self.detail.weight)
        nn.init.zeros_(self.detail.bias)
        self.register_buffer("bicubic", bicubic_weights(), persistent=False)

    def forward(self, tile):
        wide = continued(tile, self.border)
        spare = self.border - 2  # The bicubic convolution reaches two pixels far.
        enlarged = functional.conv2d(wide[..., spare:-spare, spare:-spare], self.bicubic)
        return functional.pixel_shuffle(enlarged + self.detail(self.body(wide)), SCALE)


def load(checkpoint):
    """The trained network of a checkpoint: the running mean of its weights."""
    stored = torch.load(checkpoint, map_location="cpu")
    network = Network(stored["channels"], stored["layers"])
    network.load_state_dict(stored["mean"])
    return network.eval()
