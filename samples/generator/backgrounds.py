# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The background materials, and the still pictures of the user interface."""

import math
import random

from . import moves
from .canvas import SIZE, Canvas, circle, land, polygon, ridge, scattered
from .media import HEIGHT, THEME_GIF_SIZE, WIDTH, magick, save_gif


def blue_silk(path):
    canvas = Canvas("#183a7c", "#2a5fb0", "#3f86d4")
    for index in range(9):
        outline = ridge(300 + index, 90 + index * 60, 80, smooth=True)
        canvas.fill(land(outline), "#4f97e0", "#204c98", band=(20 + index * 60, 190 + index * 60), blur=6)
    canvas.save(path)


def cream_paper(path):
    magick("-size", SIZE, "xc:#f3e8d2", "(", "-size", SIZE, "xc:gray50", "-attenuate", "0.6", "+noise", "Gaussian",
           "-colorspace", "Gray", "-blur", "0x1.1", "-shade", "110x42", "-auto-level", "+level", "44%,56%", ")",
           "-compose", "SoftLight", "-composite", "(", "-size", SIZE, "radial-gradient:white-#d8c4a0", ")",
           "-compose", "Multiply", "-composite", "-strip", "-depth", "8", path)


def golden_bokeh(path):
    canvas = Canvas("#3a1d0a", "#7a4a14", "#b87a28")
    rng = random.Random(61)
    canvas.lights(scattered(rng, 90, (0, HEIGHT), (12, 62), ["#5a3a0c", "#7a5418", "#8a4a1a"]), blur=2)
    canvas.save(path)


def starry_night(path):
    canvas = Canvas("#050816", "#0d1538", "#1f2a66", "#3a3a7e")
    rng = random.Random(62)
    for size, count in ((0.8, 240), (1.4, 90), (2.4, 26)):
        spots = [circle(rng.uniform(0, WIDTH), rng.uniform(0, HEIGHT), size) for _ in range(count)]
        canvas.paint(" ".join(spots), "#ffffff")
        canvas.paint(" ".join(spots), "#9ab8ff", blur=4, method="Screen")
    canvas.paint(polygon([(-60, 470), (960, 40), (1010, 150), (40, 560)]), "rgba(150,150,230,0.30)", blur=44)
    canvas.save(path)


def mint_stripes(path):
    canvas = Canvas("#d9f3e6", "#bfe8d4")
    stripes = [polygon([(x, 0), (x + 40, 0), (x - 260, HEIGHT), (x - 300, HEIGHT)]) for x in range(0, WIDTH + 340, 80)]
    canvas.paint(" ".join(stripes), "rgba(255,255,255,0.62)")
    canvas.save(path)


def polka_dots(path):
    canvas = Canvas("#fbdde2", "#f3b6c2")
    spots = [circle(x + (row % 2) * 40, row * 60 + 30, 15) for row in range(9) for x in range(0, WIDTH + 80, 80)]
    canvas.paint(" ".join(spots), "rgba(120,30,60,0.18)", blur=5)
    canvas.paint(" ".join(spots), "#fffdfa")
    canvas.save(path)


def paper_hills(path):
    canvas = Canvas("#ffe9c4", "#ffd09a")
    canvas.paint(circle(700, 170, 74), "#fff6de")
    for index, colour in enumerate(["#f9bf7a", "#f2a65a", "#e2854a", "#c9653e", "#9c4636"]):
        outline = land(ridge(320 + index * 2, 260 + index * 66, 90, smooth=True))
        canvas.paint("translate 0,-7 " + outline, "rgba(80,30,10,0.38)", blur=10)
        canvas.paint(outline, colour)
    canvas.save(path)


def triangles(path):
    canvas = Canvas("#3a7ca5")
    rng = random.Random(64)
    side, tall = 96, 84
    for row in range(HEIGHT // tall + 1):
        for column in range(-1, WIDTH // side * 2 + 2):
            x, y = column * side / 2 - (row % 2) * side / 2, row * tall
            corners = [(x, y + tall), (x + side, y + tall), (x + side / 2, y)]
            if column % 2:
                corners = [(x, y), (x + side, y), (x + side / 2, y + tall)]
            shade = 0.35 + 0.5 * (x + y) / (WIDTH + HEIGHT) + rng.uniform(-0.12, 0.12)
            canvas.paint(polygon(corners), "rgb(%d,%d,%d)" % (20 + 50 * shade, 70 + 110 * shade, 120 + 110 * shade))
    canvas.save(path)


def rose_hearts(path):
    canvas = Canvas("#f7a8b4", "#e06a84", "#b83e60")
    rng = random.Random(65)
    for blur, alpha in ((7, 0.35), (2.5, 0.5), (0.8, 0.75)):
        hearts = []
        for _ in range(13):
            x, y, size = rng.uniform(0, WIDTH), rng.uniform(0, HEIGHT), rng.uniform(18, 44)
            hearts.append("path 'M %f,%f c %f,%f %f,%f 0,%f c %f,%f %f,%f 0,%f z'" % (
                x, y, -size * 1.3, -size * 0.9, -size * .5, -size * 1.5, -size * .6,
                size * .5, -size * 0.9, size * 1.3, 0, size * .6))
        canvas.paint(" ".join(hearts), "rgba(255,236,240,%s)" % alpha, blur=blur)
    canvas.save(path)


PICTURES = {
    "blue-silk": blue_silk, "cream-paper": cream_paper, "golden-bokeh": golden_bokeh, "starry-night": starry_night,
    "mint-stripes": mint_stripes, "polka-dots": polka_dots, "paper-hills": paper_hills, "triangles": triangles,
    "rose-hearts": rose_hearts,
}

# The colours of the "none" pictures: background from top to bottom, then the sign.
NONE_PICTURES = {
    "Classical": ("#f4f5f7", "#dfe3e9", "#8a94a3"),
    "Elegance": ("#3a3d46", "#25272e", "#9aa3b5"),
    "Calm": ("#dcebf2", "#bcd6e4", "#5a8ba6"),
    "None": ("#ececec", "#d4d4d4", "#8c8c8c"),
}


def none_picture(name, target):
    """A crossed circle, in the colours of the skins that show it."""
    top, bottom, sign = NONE_PICTURES[name]
    target.parent.mkdir(parents=True, exist_ok=True)
    reach = 38 / math.sqrt(2)
    magick("-size", "320x180", "gradient:%s-%s" % (top, bottom), "-fill", "none", "-stroke", sign, "-strokewidth", "7",
           "-draw", "circle 160,90 198,90 line %.1f,%.1f %.1f,%.1f" % (160 - reach, 90 + reach, 160 + reach, 90 - reach),
           "-strip", "-depth", "8", "-define", "png:exclude-chunks=date,time", target)


def placeholder(target, folder):
    """The animation shown in place of a missing preview: a picture sign and three moving dots."""
    frames = []
    for number in range(moves.FRAMES):
        canvas = Canvas("#4a4f5c", "#30343e")
        canvas.stroke("roundrectangle 360,120 600,300 18,18", "#9aa3b5", 10)
        hills = polygon([(375, 286), (455, 214), (500, 254), (545, 196), (586, 286)])
        canvas.paint(circle(425, 178, 20) + " " + hills, "#9aa3b5")
        for dot in range(3):
            wave = 0.5 + 0.5 * math.cos(2 * math.pi * (number / moves.FRAMES - dot / 6))
            canvas.paint(circle(420 + dot * 60, 390, 11 + 8 * wave), "rgba(255,255,255,%.2f)" % (0.35 + 0.6 * wave))
        full, small = folder / "dot.png", folder / ("dot-%02d.png" % number)
        canvas.save(full)
        moves.shrink(full, small, THEME_GIF_SIZE)
        frames.append(small)
    save_gif(frames, target, delay=10, colours=32)
