# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""A painter's canvas: collects layers and renders them with one ImageMagick command."""

import math
import random

from .media import HEIGHT, WIDTH, magick

SIZE = "%dx%d" % (WIDTH, HEIGHT)


def points(pairs):
    return " ".join("%.1f,%.1f" % pair for pair in pairs)


def polygon(pairs):
    return "polygon " + points(pairs)


def circle(x, y, radius):
    return "circle %.1f,%.1f %.1f,%.1f" % (x, y, x + radius, y)


def ellipse(x, y, radius_x, radius_y):
    return "ellipse %.1f,%.1f %.1f,%.1f 0,360" % (x, y, radius_x, radius_y)


def rectangle(x, y, width, height):
    return "rectangle %.1f,%.1f %.1f,%.1f" % (x, y, x + width, y + height)


def ridge(seed, base, height, roughness=0.55, steps=96, smooth=False):
    """Returns the outline of a range of hills, closed along the lower edge of the canvas."""
    rng = random.Random(seed)
    waves = [(rng.uniform(0.6, 1.4) * 2 ** octave, rng.uniform(0, 6.3), roughness ** octave)
             for octave in range(2 if smooth else 6)]
    total = sum(weight for _, _, weight in waves)
    outline = []
    for step in range(steps + 1):
        position = step / steps
        rise = sum(math.sin(frequency * position * 6.3 + phase) * weight for frequency, phase, weight in waves) / total
        outline.append((position * WIDTH, base - height * (0.5 + rise * 0.5)))
    return outline


def land(outline):
    return polygon(outline + [(WIDTH, HEIGHT), (0, HEIGHT)])


def scattered(rng, count, heights, radii, colours):
    """Returns discs (x, y, radius, colour) at random places between two heights."""
    return [(rng.uniform(0, WIDTH), rng.uniform(*heights), rng.uniform(*radii), rng.choice(colours)) for _ in range(count)]


def pine(x, base, height):
    """Returns a conifer of four tiers."""
    width = height * 0.42
    parts = [polygon([(x - width * 0.05, base), (x + width * 0.05, base), (x, base - height)])]
    for tier in range(4):
        bottom = base - height * (0.1 + 0.2 * tier)
        half = width * (0.5 - 0.1 * tier)
        parts.append(polygon([(x - half, bottom), (x + half, bottom), (x, bottom - height * 0.34)]))
    return " ".join(parts)


class Canvas:
    def __init__(self, *sky):
        self._arguments = self._gradient(sky)

    @staticmethod
    def _gradient(stops):
        if len(stops) == 1:
            return ["-size", SIZE, "xc:" + stops[0]]
        pixels = ["xc:" + stop for stop in stops]
        return ["(", "-size", "1x1", *pixels, "-append", "-filter", "Triangle", "-resize", SIZE + "!", "+filter", ")"]

    def _compose(self, layer, method="Over"):
        self._arguments += ["(", *layer, ")", "-geometry", "+0+0", "-compose", method, "-composite"]

    def fill(self, drawing, *stops, blur=0, band=None):
        """Draws a shape filled with a vertical gradient; band (top, bottom) stretches the gradient to these heights."""
        mask = ["(", "-size", SIZE, "xc:black", "-stroke", "none", "-fill", "white", "-draw", drawing]
        mask += ["-blur", "0x%s" % blur] if blur else []
        mask += ["-alpha", "off"]
        colour = self._banded(stops, band) if band else self._gradient(stops)
        self._compose([*colour, "-alpha", "off", *mask, ")", "-geometry", "+0+0", "-compose", "CopyOpacity", "-composite"])

    def _banded(self, stops, band):
        top, bottom = (int(edge) for edge in band)
        pixels = ["xc:" + stop for stop in stops]
        height = max(bottom - top, 1)
        ramp = ["-size", "1x1", *pixels, "-append", "-filter", "Triangle", "-resize", "%dx%d!" % (WIDTH, height)]
        return ["(", "-size", SIZE, "xc:" + stops[-1], "(", *ramp, "+filter", ")",
                "-geometry", "+0%+d" % top, "-compose", "Over", "-composite", ")"]

    def paint(self, drawing, colour, blur=0, method="Over"):
        """Draws a flat shape; a blurred one is drawn at a quarter of the size, which looks the same."""
        if not blur:
            self._compose(["-size", SIZE, "xc:none", "-stroke", "none", "-fill", colour, "-draw", drawing], method)
            return
        scaled = "scale 0.25,0.25 " + drawing
        self._compose(["-size", "%dx%d" % (WIDTH // 4, HEIGHT // 4), "xc:none", "-stroke", "none", "-fill", colour,
                       "-draw", scaled, "-blur", "0x%s" % (blur / 4), "-resize", SIZE + "!"], method)

    def stroke(self, drawing, colour, width, blur=0, method="Over"):
        layer = ["-size", SIZE, "xc:none", "-fill", "none", "-stroke", colour, "-strokewidth", width, "-draw", drawing]
        self._compose(layer + (["-blur", "0x%s" % blur] if blur else []), method)

    def glow(self, x, y, radius, colour):
        """Draws light that falls off around a point."""
        side = int(radius * 2)
        self._arguments += ["(", "-size", "%dx%d" % (side, side), "radial-gradient:%s-black" % colour, ")",
                            "-geometry", "%+d%+d" % (x - radius, y - radius), "-compose", "Screen", "-composite"]

    def lights(self, spots, blur=3):
        """Draws many soft discs of light (x, y, radius, colour), the bokeh of a lens."""
        for colour in sorted({spot[3] for spot in spots}):
            discs = " ".join(circle(*spot[:3]) for spot in spots if spot[3] == colour)
            self.paint(discs, colour, blur=blur, method="Screen")

    def reflect(self, horizon, blur=2, shade="#0a1530", strength=35):
        """Mirrors the picture above the horizon into water below it, slightly darker and rippled."""
        depth = HEIGHT - horizon
        source = "%dx%d+0+%d" % (WIDTH, depth + 8, horizon - depth - 8)
        self._arguments += ["(", "+clone", "-crop", source, "+repage", "-flip", "-wave", "1.6x23",
                            "-crop", "%dx%d+0+4" % (WIDTH, depth), "+repage", "-motion-blur", "0x%s+90" % blur,
                            "-fill", shade, "-colorize", "%d" % strength, ")",
                            "-geometry", "+0+%d" % horizon, "-compose", "Over", "-composite"]

    def text(self, words, font, size, colour, x, y, gravity="NorthWest"):
        self._arguments += ["-gravity", gravity, "-font", font, "-pointsize", size, "-fill", colour, "-stroke", "none",
                            "-annotate", "%+d%+d" % (x, y), words, "+gravity"]

    def save(self, path):
        magick(*self._arguments, "-alpha", "off", "-depth", "8", "-strip",
               "-define", "png:exclude-chunks=date,time", path)
