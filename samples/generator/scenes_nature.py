# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""Landscapes."""

import math
import random

from .canvas import Canvas, circle, ellipse, land, pine, points, polygon, rectangle, ridge, scattered
from .media import HEIGHT, WIDTH


def clouds(canvas, seed, count, top, bottom, colour="rgba(255,255,255,0.55)"):
    rng = random.Random(seed)
    for _ in range(count):
        x, y, size = rng.uniform(0, WIDTH), rng.uniform(top, bottom), rng.uniform(18, 42)
        puffs = [ellipse(x + rng.uniform(-2.4, 2.4) * size, y + rng.uniform(-0.35, 0.25) * size,
                         size * rng.uniform(0.9, 1.7), size * rng.uniform(0.35, 0.6)) for _ in range(8)]
        canvas.paint(" ".join(puffs), colour, blur=10)


def mountain(peaks, base):
    """A jagged range through the given peaks (x, height), with snow caps as second drawing."""
    outline, caps = [(0, base)], []
    for x, height, half in peaks:
        top = base - height
        outline += [(x - half, base - height * 0.12), (x - half * 0.55, base - height * 0.5),
                    (x - half * 0.38, base - height * 0.56), (x, top), (x + half * 0.3, base - height * 0.66),
                    (x + half * 0.5, base - height * 0.52), (x + half, base - height * 0.1)]
        caps.append(polygon([(x, top), (x - half * 0.25, base - height * 0.71), (x - half * 0.12, base - height * 0.74),
                             (x - half * 0.02, base - height * 0.64), (x + half * 0.09, base - height * 0.76),
                             (x + half * 0.21, base - height * 0.76)]))
    outline += [(WIDTH, base)]
    return polygon(outline), " ".join(caps)


def mountain_lake(path):
    canvas = Canvas("#3f8fd6", "#8cc4ee", "#d7ecf7", "#fbead0", "#fbead0")
    canvas.glow(700, 120, 260, "#ffe9b0")
    canvas.paint(circle(700, 120, 30), "#fffbe8", blur=2)
    clouds(canvas, 3, 5, 60, 170)
    far, snow = mountain([(180, 200, 190), (430, 250, 200), (700, 190, 170), (900, 230, 180)], 350)
    canvas.fill(far, "#6f8fb8", "#a9c2d8", band=(90, 350))
    canvas.paint(snow, "rgba(255,255,255,0.92)")
    near, caps = mountain([(60, 150, 150), (300, 140, 150), (590, 165, 170), (830, 130, 160)], 356)
    canvas.fill(near, "#3d5f80", "#64879b", band=(190, 356))
    canvas.paint(caps, "rgba(240,248,255,0.7)")
    canvas.fill(polygon(ridge(11, 352, 34) + [(WIDTH, 362), (0, 362)]), "#2f5d46", "#24503c", band=(318, 360))
    rng = random.Random(5)
    woods = [pine(x + rng.uniform(-6, 6), 360, rng.uniform(24, 56)) for x in range(0, WIDTH, 17)]
    canvas.paint(" ".join(woods), "#1d4636")
    canvas.reflect(360, blur=5, shade="#1c4a66", strength=26)
    canvas.paint(rectangle(0, 358, WIDTH, 3), "rgba(255,255,255,0.35)", blur=2)
    shore = [pine(x, 560, height) for x, height in [(30, 330), (105, 250), (-20, 270), (915, 360), (845, 240), (970, 300)]]
    canvas.paint(" ".join(shore), "#0f2d25")
    canvas.save(path)


def sunset_sea(path):
    canvas = Canvas("#2a1b52", "#6b2f78", "#d1566b", "#ff9a56", "#ffd27a")
    horizon = 330
    canvas.glow(480, 286, 330, "#ffb45e")
    canvas.paint(circle(480, 286, 62), "#fff0bd", blur=2)
    rng = random.Random(8)
    for _ in range(9):
        y = rng.uniform(70, 260)
        canvas.paint(ellipse(rng.uniform(0, WIDTH), y, rng.uniform(120, 260), rng.uniform(4, 10)),
                     "rgba(255,%d,150,0.45)" % rng.randint(120, 190), blur=7)
    for cape in ([(0, 330), (0, 290), (90, 268), (170, 286), (250, 312), (330, 330)],
                 [(960, 330), (960, 300), (880, 284), (800, 306), (720, 330)]):
        canvas.fill(polygon(cape), "#5a2a5c", "#3a1d4a", band=(268, 330))
    canvas.reflect(horizon, blur=8, shade="#3a1646", strength=38)
    glints = []
    for row in range(26):
        y = horizon + 5 + row * 8
        half = 26 + row * 4.2
        glints += [ellipse(480 + rng.uniform(-0.7, 0.7) * half, y, rng.uniform(0.25, 0.8) * half, 1.6) for _ in range(3)]
    canvas.paint(" ".join(glints), "rgba(255,226,150,0.75)")
    boat_x, boat_y = 690, 352
    canvas.paint(" ".join([
        polygon([(boat_x - 46, boat_y), (boat_x + 50, boat_y), (boat_x + 34, boat_y + 16), (boat_x - 34, boat_y + 16)]),
        polygon([(boat_x + 2, boat_y - 6), (boat_x + 2, boat_y - 118), (boat_x + 46, boat_y - 6)]),
        polygon([(boat_x - 4, boat_y - 8), (boat_x - 4, boat_y - 96), (boat_x - 38, boat_y - 8)]),
    ]), "#1d1030")
    canvas.stroke("line %d,%d %d,%d" % (boat_x, boat_y, boat_x, boat_y - 124), "#1d1030", 2)
    gulls = " ".join("path 'M %d,%d q 8,-8 14,0 q 6,-8 14,0'" % spot for spot in [(260, 150), (310, 178), (220, 196), (600, 120)])
    canvas.stroke(gulls, "#2a153c", 2.4)
    canvas.save(path)


def balloon(canvas, x, y, size, colours):
    """A striped hot-air balloon with its basket."""
    body = "path 'M %f,%f c %f,%f %f,%f %f,%f c %f,%f %f,%f %f,%f z'" % (
        x, y + size * 1.35, -size * 0.35, -size * 0.5, -size * 1.05, -size * 0.7, -size, -size * 1.4,
        size * 0.1, -size * 1.25, size * 1.9, -size * 1.25, size * 2, 0)
    ropes = (x - size * .3, y + size * .9, x - size * .16, y + size * 1.62,
             x + size * .3, y + size * .9, x + size * .16, y + size * 1.62)
    canvas.stroke("line %f,%f %f,%f line %f,%f %f,%f" % ropes, "#4b3a2a", 1.4)
    cone = polygon([(x, y + size * 1.35), (x + size, y - size * 0.05), (x - size, y - size * 0.05)])
    canvas.paint(body + " " + cone, colours[0])
    for index, share in enumerate((0.72, 0.42, 0.14)):
        stripe = "path 'M %f,%f C %f,%f %f,%f %f,%f C %f,%f %f,%f %f,%f z'" % (
            x, y + size * 1.35,
            x - size * share * 1.35, y + size * 0.2, x - size * share * 1.5, y - size * 0.85, x, y - size * 0.99,
            x + size * share * 1.5, y - size * 0.85, x + size * share * 1.35, y + size * 0.2, x, y + size * 1.35)
        canvas.paint(stripe, colours[(index + 1) % len(colours)])
    canvas.paint(ellipse(x - size * .42, y - size * .35, size * .2, size * .42), "rgba(255,255,255,0.28)", blur=6)
    canvas.fill(rectangle(x - size * .17, y + size * 1.58, size * .34, size * .26), "#8a5a33", "#5c3a1e")


def balloons(path):
    canvas = Canvas("#4aa3df", "#8fcdf0", "#cdeaf6", "#fff0d2", "#ffe0b0")
    canvas.glow(160, 330, 260, "#ffe2a0")
    clouds(canvas, 21, 7, 60, 300, "rgba(255,255,255,0.6)")
    tones = [("#9fc3b4", "#b7d3b7"), ("#79b087", "#94c489"), ("#4f9657", "#76b45c"), ("#2f7a3e", "#5aa044")]
    for index, pair in enumerate(tones):
        base = 400 + index * 40
        canvas.fill(land(ridge(40 + index, base, 70, smooth=True)), *pair, band=(base - 70, base + 60))
    rng = random.Random(2)
    canvas.paint(" ".join(pine(rng.uniform(0, WIDTH), rng.uniform(500, 540), rng.uniform(20, 40)) for _ in range(26)), "#1f5a33")
    balloon(canvas, 330, 165, 92, ["#e4483f", "#ffd65c", "#e4483f", "#ffd65c"])
    balloon(canvas, 640, 120, 60, ["#2d6fc4", "#f4f7fb", "#2d6fc4", "#f4f7fb"])
    balloon(canvas, 820, 235, 40, ["#7b4bb0", "#ffb347", "#7b4bb0", "#ffb347"])
    balloon(canvas, 520, 290, 24, ["#1f9e8a", "#f9e27d", "#1f9e8a", "#f9e27d"])
    balloon(canvas, 110, 250, 30, ["#f08a24", "#fff3d6", "#f08a24", "#fff3d6"])
    canvas.save(path)


def autumn_forest(path):
    canvas = Canvas("#ffe6b3", "#ffcf8a", "#f7a95a", "#d9772f")
    canvas.glow(500, 190, 380, "#fff2c0")
    rng = random.Random(12)
    for depth, (leaf, trunk) in enumerate([("#f2b366", "#d79a58"), ("#e58a35", "#a9683a"), ("#c75a20", "#6e3b20")]):
        ground = 400 + depth * 42
        trees, crowns = [], []
        for x in range(-20, WIDTH + 40, 105 - depth * 8):
            x += rng.uniform(-24, 24)
            if abs(x - 500) < 60 + depth * 70:
                continue
            width = 6 + depth * 7
            trees.append(polygon([(x - width / 2, ground), (x + width / 2, ground), (x + width / 4, 60), (x - width / 4, 60)]))
            crowns += [circle(x + rng.uniform(-1, 1) * (50 + depth * 14), rng.uniform(-10, 200 + depth * 16),
                              rng.uniform(16, 34 + depth * 8)) for _ in range(13)]
        canvas.fill(land(ridge(60 + depth, ground, 16, smooth=True)), leaf, trunk, band=(ground - 16, ground + 110))
        canvas.paint(" ".join(trees), trunk)
        canvas.paint(" ".join(crowns), leaf, blur=5 - depth)
    canvas.fill(polygon([(488, 405), (520, 405), (700, 540), (260, 540)]), "#f7d79a", "#c98f52", band=(405, 540), blur=3)
    for share in (0.25, 0.5, 0.75):
        foot = 200 + 600 * share
        canvas.paint(polygon([(500, 150), (foot - 40, 540), (foot + 40, 540)]), "rgba(255,244,200,0.22)", blur=14)
    leaves = [ellipse(rng.uniform(0, WIDTH), rng.uniform(430, HEIGHT), rng.uniform(3, 7), rng.uniform(2, 3.5))
              for _ in range(160)]
    canvas.paint(" ".join(leaves[:80]), "#f2a63a")
    canvas.paint(" ".join(leaves[80:]), "#a8431a")
    canvas.save(path)


def tulip(x, y, size, lean):
    """Stem and blossom drawings of one tulip."""
    stem = "path 'M %f,%f q %f,%f %f,%f l 5,0 q %f,%f %f,%f z'" % (
        x, y, lean * 0.5, size * 1.4, lean, size * 4, -lean * 0.5, -size * 2.4, -lean, -size * 4)
    leaf = "path 'M %f,%f q %f,%f %f,%f q %f,%f %f,%f z'" % (
        x + lean, y + size * 4,
        -size * 1.2, -size * 1.1, -size * 0.9, -size * 2.6, size * 0.6, size * 1.2, size * 0.9, size * 2.6)
    head = "path 'M %f,%f c %f,%f %f,%f %f,%f l %f,%f l %f,%f l %f,%f l %f,%f c %f,%f %f,%f %f,%f z'" % (
        x, y + size * 0.25, -size * 0.8, 0, -size * 0.95, -size * 0.8, -size * 0.62, -size * 1.65,
        size * 0.32, size * 0.45, size * 0.3, -size * 0.62, size * 0.3, size * 0.62, size * 0.32, -size * 0.45,
        size * 0.33, size * 0.85, size * 0.18, size * 1.65, -size * 0.62, size * 1.65)
    return stem + " " + leaf, head


def flower_meadow(path):
    canvas = Canvas("#8fd0ea", "#d5f0e4", "#bfe08a", "#6fb63f", "#3e8a2b")
    rng = random.Random(31)
    spots = scattered(rng, 46, (60, 300), (10, 34), ["#5a5f20", "#58601a", "#6a4a28", "#4e6a4a"])
    canvas.glow(800, 40, 420, "#fff2b8")
    canvas.lights(spots, blur=3)
    for row, (scale, blur) in enumerate([(13, 4), (24, 1.6), (42, 0)]):
        flowers = [tulip(x + rng.uniform(-14, 14), 300 + row * 50 + rng.uniform(-26, 30), scale * rng.uniform(0.85, 1.1),
                         rng.uniform(-14, 14)) for x in range(10, WIDTH, 44 + row * 34)]
        canvas.paint(" ".join(stem for stem, _ in flowers), ["#5fa63c", "#3f8f31", "#2a7a2a"][row], blur=blur)
        for index, colour in enumerate(["#e8364f", "#ffb52e", "#f46aa6"]):
            heads = [head for number, (_, head) in enumerate(flowers) if number % 3 == index]
            canvas.paint(" ".join(heads), colour, blur=blur)
    canvas.save(path)


def palm(canvas, x, base, height, lean):
    top_x, top_y = x + lean, base - height
    bends = [(step / 12, x + lean * (step / 12) ** 2, base - height * step / 12) for step in range(13)]
    left = [(bend_x - 9 + 4 * share, bend_y) for share, bend_x, bend_y in bends]
    right = [(bend_x + 9 - 4 * share, bend_y) for share, bend_x, bend_y in reversed(bends)]
    canvas.fill(polygon(left + right), "#8a6238", "#5a3c20", band=(top_y, base))
    for angle in range(-170, 30, 22):
        reach = height * 0.5
        tip_x = top_x + math.cos(math.radians(angle)) * reach
        tip_y = top_y + math.sin(math.radians(angle)) * reach * 0.5 + reach * 0.3
        middle_x, middle_y = (top_x + tip_x) / 2, min(top_y, tip_y) - reach * 0.16
        frond = "path 'M %f,%f Q %f,%f %f,%f Q %f,%f %f,%f z'" % (
            top_x, top_y, middle_x, middle_y - 12, tip_x, tip_y, middle_x, middle_y + 22, top_x, top_y)
        canvas.fill(frond, "#3fa657", "#17613a", band=(top_y - reach * 0.4, top_y + reach * 0.5))


def palm_beach(path):
    canvas = Canvas("#1f93dc", "#66c4ee", "#c9eef7", "#c9eef7")
    canvas.glow(180, 90, 300, "#fff4c4")
    clouds(canvas, 14, 5, 60, 210)
    canvas.fill(rectangle(0, 268, WIDTH, 200), "#1274b4", "#1fb3c8", "#7fe3d6", band=(268, 440))
    island = [(560, 268), (640, 236), (700, 248), (790, 222), (880, 250), (960, 240), (960, 270)]
    canvas.fill(polygon(island), "#3b7d73", "#4f9a78", band=(222, 270))
    shore = "path 'M 0,%d C 180,374 330,436 520,%d S 800,380 960,%d L 960,540 L 0,540 z'"
    canvas.paint(shore % (404, 412, 408), "rgba(255,255,255,0.85)", blur=3)
    canvas.fill(shore % (414, 424, 420), "#f3dfae", "#e2bf83", band=(400, 540), blur=1)
    palm(canvas, 150, 520, 330, 110)
    palm(canvas, 60, 530, 250, -30)
    canvas.stroke("line 690,492 706,352", "#f6f0e0", 5)
    canvas.paint(polygon([(700, 500), (860, 500), (840, 516), (680, 516)]), "rgba(90,60,30,0.3)", blur=6)
    for index, colour in enumerate(["#e94b4b", "#ffffff", "#e94b4b", "#ffffff", "#e94b4b"]):
        left = 600 + index * 42
        canvas.paint("path 'M 706,332 Q %d,%d %d,404 q 21,-10 42,0 Q %d,%d 706,332 z'" % (
            left + 20, 352, left, left + 40, 352), colour)
    canvas.fill(polygon([(740, 470), (850, 470), (880, 430), (890, 434), (858, 484), (740, 484)]), "#2f8fd0", "#1d6fb0")
    canvas.save(path)


def desert_dunes(path):
    canvas = Canvas("#20305f", "#6a4d86", "#d77a6a", "#ffc27a", "#ffc27a")
    canvas.glow(690, 250, 260, "#ffcf8a")
    canvas.paint(circle(690, 250, 40), "#fff3cf", blur=1.5)
    layers = [(300, 60, "#c98a6a", "#a86a58"), (350, 70, "#c07748", "#8a4a3a"),
              (410, 90, "#d88a48", "#7a3a2c"), (490, 90, "#b8642f", "#4f2220")]
    for index, (base, height, light, dark) in enumerate(layers):
        outline = ridge(70 + index * 3, base, height, smooth=True)
        canvas.fill(land(outline), light, dark, band=(base - height, base + 110))
        crest = [(x, y) for x, y in outline if index % 2 == 0 or x > WIDTH * 0.3]
        canvas.stroke("polyline " + points(crest), "rgba(255,225,170,0.5)", 2, blur=1)
    for step, x in enumerate(range(250, 470, 62)):
        camel(canvas, x, 300 + step * 7)
    canvas.save(path)


def camel(canvas, x, y):
    humps_and_head = "q 6,-14 12,-4 q 5,-16 13,-2 q 4,8 3,10 l 6,-14 l 7,0 l -2,6 q -6,12 -9,14"
    legs = "l -1,16 l -3,0 l -1,-13 l -14,0 l -2,13 l -3,0 l -1,-18 z"
    body = "path 'M %d,%d %s %s'" % (x, y, humps_and_head, legs)
    canvas.paint(body, "#3a1c22")


SCENES = {
    "mountain-lake": mountain_lake,
    "sunset-sea": sunset_sea,
    "balloons": balloons,
    "autumn-forest": autumn_forest,
    "flower-meadow": flower_meadow,
    "palm-beach": palm_beach,
    "desert-dunes": desert_dunes,
}
