# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""The effect of every filter on a picture."""

import math
import random

from .media import SANS_BOLD, SANS, SERIF_ITALIC, magick

WORK_WIDTH, WORK_HEIGHT = 480, 270
WORK_SIZE = "%dx%d" % (WORK_WIDTH, WORK_HEIGHT)


def _tint(colour, method):
    return ["(", "+clone", "-fill", colour, "-colorize", "100", ")", "-compose", method, "-composite"]


def _shade(edge, curve="0%,70%"):
    """A vignette: a radial gradient multiplied onto the picture."""
    return ["(", "-size", "%dx%d" % (WORK_WIDTH * 1.3, WORK_HEIGHT * 1.3), "radial-gradient:white-%s" % edge, "-level", curve,
            "-gravity", "center", "-extent", WORK_SIZE, "+gravity", ")", "-compose", "Multiply", "-composite"]


def _glow(radius, amount):
    return ["(", "+clone", "-blur", "0x%s" % radius, "-evaluate", "multiply", amount, ")", "-compose", "Screen", "-composite"]


LOOKS = {
    "sepia": ["-sepia-tone", "80%", "-modulate", "104,75", *_shade("#6a4a2a")],
    "noir": ["-colorspace", "Gray", "-sigmoidal-contrast", "6x52%", "-colorspace", "sRGB", *_shade("#303030")],
    "soft-glow": [*_glow(9, 0.5), "-modulate", "100,108"],
    "vignette": _shade("#101010", "0%,80%"),
    "vivid": ["-sigmoidal-contrast", "3.5x50%", "-modulate", "102,150"],
    "faded": ["-modulate", "100,62", "+level", "18%,94%", *_tint("#d8a878", "SoftLight")],
    "golden-hour": [*_tint("#ff8a1e", "SoftLight"), *_glow(10, 0.28), "-modulate", "100,118"],
    "cool-mist": [*_tint("#3a8ad8", "SoftLight"), "+level", "10%,100%", *_glow(8, 0.18)],
    "cross-process": ["-channel", "R", "-sigmoidal-contrast", "7x48%", "-channel", "G", "-sigmoidal-contrast", "4x46%",
                      "-channel", "B", "+level", "20%,82%", "+channel"],
    "duotone": ["-colorspace", "Gray", "-colorspace", "sRGB", "-normalize", "+level-colors", "#2b0b5a,#ffc27a"],
    "night-blue": ["-modulate", "62,70", *_tint("#1c3c9a", "SoftLight"), "-fill", "#0c2060", "-colorize", "22"],
    "miniature": ["-modulate", "102,140", "(", "+clone", "-blur", "0x4", ")",
                  "(", "-size", "1x1", "xc:white", "xc:gray70", "xc:black", "xc:black", "xc:gray70", "xc:white", "-append",
                  "-filter", "Triangle", "-resize", WORK_SIZE + "!", "+filter", "-alpha", "off", ")",
                  "-compose", "Over", "-composite"],
    "pencil-sketch": ["-colorspace", "Gray", "(", "+clone", "-negate", "-blur", "0x3", ")",
                      "-compose", "ColorDodge", "-composite",
                      "-level", "35%,99%", "-colorspace", "sRGB", "+level-colors", "#2a2622,#fbf8f0"],
    "oil-paint": ["-paint", "4", "-modulate", "102,122", "(", "+clone", "-colorspace", "Gray", "-shade", "120x45",
                  "-auto-level", "+level", "30%,70%", ")", "-compose", "SoftLight", "-composite"],
    "comic": ["-modulate", "104,145", "(", "+clone", "-dither", "None", "-posterize", "5", "-median", "2", ")",
              "(", "-clone", "0", "-colorspace", "Gray", "-edge", "1.4", "-negate", "-level", "30%,75%", "-blur", "0x0.4", ")",
              "-delete", "0", "-compose", "Multiply", "-composite"],
    "mosaic": ["-scale", "48x27!", "-scale", WORK_SIZE + "!"],
}


def _discs(rng, count, small, large, bottom=WORK_HEIGHT):
    for _ in range(count):
        x, y, radius = rng.uniform(0, WORK_WIDTH), rng.uniform(0, bottom), rng.uniform(small, large)
        yield "circle %.1f,%.1f %.1f,%.1f" % (x, y, x + radius, y)


def _layer(drawing, colour, blur=0):
    layer = ["(", "-size", WORK_SIZE, "xc:none", "-stroke", "none", "-fill", colour, "-draw", drawing]
    return layer + (["-blur", "0x%s" % blur] if blur else []) + [")", "-compose", "Over", "-composite"]


def _blank():
    return ["-size", WORK_SIZE, "xc:none"]


def _bokeh(step):
    arguments = _blank()
    for index, colour in enumerate(("rgba(255,190,90,0.50)", "rgba(255,120,110,0.38)", "rgba(255,235,170,0.42)")):
        rng = random.Random(200 + index)
        drawing = "translate %d,%d " % (step * 2 - 10, -step * (index + 1)) + " ".join(_discs(rng, 11, 8, 30))
        arguments += _layer(drawing, colour, 1.5)
    return arguments


def _falling(seed, count, step, speed):
    """Yields positions that fall and reappear at the top."""
    rng = random.Random(seed)
    for _ in range(count):
        x, y, pace = rng.uniform(0, WORK_WIDTH), rng.uniform(0, WORK_HEIGHT), rng.uniform(0.6, 1.3)
        yield rng, x + math.sin(step * 0.5 + y) * 4, (y + step * speed * pace) % (WORK_HEIGHT + 20) - 10


def _snowfall(step):
    near = ["circle %.1f,%.1f %.1f,%.1f" % (x, y, x + rng.uniform(3, 5), y) for rng, x, y in _falling(5, 44, step, 14)]
    far = ["circle %.1f,%.1f %.1f,%.1f" % (x, y, x + rng.uniform(1, 2.2), y) for rng, x, y in _falling(6, 110, step, 8)]
    return _blank() + _layer(" ".join(far), "rgba(255,255,255,0.85)", 0.5) + _layer(" ".join(near), "rgba(255,255,255,0.9)", 1.2)


def _confetti(step):
    arguments = _blank()
    for index, colour in enumerate(("#ff4a5e", "#ffd23c", "#36b4f4", "#62d26e", "#b46af0")):
        pieces = ["push graphic-context translate %.1f,%.1f rotate %d rectangle -5,-3 5,3 pop graphic-context" %
                  (x, y, rng.uniform(0, 180) + step * 25) for rng, x, y in _falling(30 + index, 17, step, 16)]
        arguments += _layer(" ".join(pieces), colour)
    return arguments


def _light_leak(step):
    left, right = -40 + step * 9, 470 - step * 6
    return (_blank() + _layer("ellipse %d,60 150,190 0,360" % left, "rgba(255,120,40,0.75)", 34)
            + _layer("ellipse %d,230 110,120 0,360" % right, "rgba(255,60,110,0.55)", 34)
            + _layer("ellipse %d,20 60,110 0,360" % (left + 20), "rgba(255,225,140,0.7)", 22))


def _old_film(step):
    rng = random.Random(400 + step)
    lines = ["line %.1f,0 %.1f,%d" % (x, x + 1, WORK_HEIGHT) for x in (rng.uniform(20, 460) for _ in range(4))]
    dust = list(_discs(rng, 30, 0.6, 2.2))
    fibre = "path 'M %.1f,%.1f q 12,-10 20,4'" % (rng.uniform(60, 400), rng.uniform(40, 220))
    scratches = ["(", "-size", WORK_SIZE, "xc:none", "-fill", "none", "-stroke", "rgba(255,250,230,0.55)", "-draw",
                 " ".join(lines) + " " + fibre, ")", "-compose", "Over", "-composite"]
    return _blank() + scratches + _layer(" ".join(dust), "rgba(20,14,8,0.75)") + _layer(
        "rectangle 0,0 480,270", "rgba(90,60,20,0.14)")


def _soft_oval(_):
    return ["-size", WORK_SIZE, "xc:#fffaf0", "(", "-size", WORK_SIZE, "xc:white", "-fill", "black", "-draw",
            "ellipse 240,135 200,108 0,360", "-blur", "0x20", "-alpha", "off", ")",
            "-alpha", "off", "-compose", "CopyOpacity", "-composite"]


def _film_frame(_):
    holes = ["roundrectangle %d,%d %d,%d 3,3" % (x, y, x + 17, y + 12) for x in range(8, WORK_WIDTH, 34) for y in (8, 250)]
    return _blank() + _layer("rectangle 0,0 480,27 rectangle 0,243 480,270", "#15110e") + _layer(" ".join(holes), "#f4ead6")


OVERLAYS = {"bokeh": _bokeh, "snowfall": _snowfall, "confetti": _confetti, "light-leak": _light_leak, "old-film": _old_film,
            "soft-oval": _soft_oval, "film-frame": _film_frame}
SCREENED = {"bokeh", "light-leak"}


def _words(text, font, size, colour, shadow, blur, weight, position, width=440):
    """Draws centred words over their blurred shadow or glow, fitted to the width."""
    size = min(size, int(width / (max(len(text), 6) * 0.66)))
    gravity, offset = ("south", 36) if position == "Bottom" else ("center", 0)
    place = ["-gravity", gravity, "-font", font, "-pointsize", size, "-stroke", "none"]
    return ["(", *_blank(), *place, "-fill", shadow, "-annotate", "+0%+d" % offset, text, "-blur", "0x%s" % blur,
            "-channel", "A", "-evaluate", "multiply", weight, "+channel", ")", "-compose", "Over", "-composite",
            *place, "-fill", colour, "-annotate", "+0%+d" % offset, text, "+gravity"]


def _banner(text, position):
    top = 194 if position == "Bottom" else 164
    strip = _layer("rectangle 0,%d 480,%d" % (top, top + 66), "rgba(214,60,84,0.88)")
    rim = _layer("rectangle 0,%d 480,%d rectangle 0,%d 480,%d" % (top, top + 3, top + 63, top + 66), "#fff2dc")
    size = min(34, int(420 / (max(len(text), 6) * 0.7)))
    return _blank() + strip + rim + ["-gravity", "center", "-font", SANS_BOLD, "-pointsize", size, "-fill", "white", "-stroke",
                                     "none", "-annotate", "+0%+d" % (top + 33 - WORK_HEIGHT // 2), text, "+gravity"]


def title(slug, text, position="Center"):
    """Returns the arguments that draw a text filter's words on a transparent layer."""
    if slug == "title-banner":
        return _banner(text, position)
    style = {"title-classic": (SERIF_ITALIC, 50, "#fff6df", "rgba(40,16,0,1)", 5, 1.8),
             "title-light": (SANS, 50, "#ffffff", "rgba(8,28,60,1)", 6, 2.6),
             "title-neon": (SANS_BOLD, 48, "#ffe8fb", "#ff2ac0", 6, 1.6)}[slug]
    return _blank() + _words(text, *style, position)


def overlay(item, step, attributes):
    """Returns the arguments that draw a filter's own layer, or an empty list for a look."""
    if item.is_text:
        return title(item.slug, attributes["Content"], attributes["Position"])
    return OVERLAYS[item.slug](step) if item.slug in OVERLAYS else []


def write_overlay(item, target):
    """Writes the layer of an overlay, mask or title as a transparent picture; returns False for a look."""
    layer = overlay(item, 3, {"Content": item.name, "Position": "Center"})
    if layer:
        magick(*layer, "-strip", "-depth", "8", "-define", "png:exclude-chunks=date,time", target)
    return bool(layer)


def write_grade(item, target):
    """Writes a colour table with the look applied; returns False if the filter changes more than colours."""
    colour_only = item.slug in {"vivid", "cross-process"}
    if colour_only:
        magick("hald:5", *LOOKS[item.slug], "-strip", "-depth", "8", "-define", "png:exclude-chunks=date,time", target)
    return colour_only


def apply(uses, source, target, step=3):
    """Lays filters, in order, over a picture; uses are (item, attributes)."""
    arguments = [source, "-resize", WORK_SIZE + "!", "-alpha", "off"]
    for item, attributes in uses:
        layer = overlay(item, step, attributes)
        if layer:
            method = "Screen" if item.slug in SCREENED else "Over"
            arguments += ["(", *layer, ")", "-gravity", "northwest", "-geometry", "+0+0",
                          "-compose", method, "-composite", "+gravity"]
        else:
            arguments += LOOKS[item.slug]
    magick(*arguments, "-alpha", "off", "-depth", "8", target)
