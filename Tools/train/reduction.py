"""Makes the small picture that the network has to enlarge again, in the ways in which small pictures come about."""

import io

import numpy
from PIL import Image, ImageFilter

SCALE = 4
FILTERS = {"area": Image.BOX, "bicubic": Image.BICUBIC, "lanczos": Image.LANCZOS}


def reduce(image, how):
    """A quarter as wide and high, without anything else; the sides must divide by 4."""
    return image.resize((image.width // SCALE, image.height // SCALE), FILTERS[how])


def reduce_somehow(image, random):
    """Reduced as real pictures are. Half come clean, since generated pictures nearly are."""
    how = random.choice(list(FILTERS))
    blur = random.uniform(0.3, 1.2) if random.random() < 0.15 else 0
    if blur:
        image = image.filter(ImageFilter.GaussianBlur(blur))
    small = reduce(image, how)
    if random.random() < 0.15:
        noise = random.normal(0, random.uniform(0.3, 2.5), (small.height, small.width, 3))
        small = Image.fromarray(numpy.clip(numpy.asarray(small) + noise + 0.5, 0, 255).astype(numpy.uint8))
    if random.random() < 0.15:
        encoded = io.BytesIO()
        small.save(encoded, "jpeg", quality=int(random.uniform(75, 98)), subsampling=0)
        small = Image.open(encoded).convert("RGB")
    return small
