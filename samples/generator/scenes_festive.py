# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""Towns, feasts and nights full of light."""

import math
import random

from .canvas import Canvas, circle, ellipse, land, pine, polygon, rectangle, ridge, scattered
from .media import HEIGHT, WIDTH


def stars(canvas, seed, count, bottom):
    rng = random.Random(seed)
    spots = [circle(rng.uniform(0, WIDTH), rng.uniform(0, bottom), rng.uniform(0.5, 1.7)) for _ in range(count)]
    canvas.paint(" ".join(spots), "rgba(255,255,255,0.85)")


def skyline(canvas, seed, base, tallest, colour, window, density):
    """A row of towers with lit windows."""
    rng = random.Random(seed)
    towers, windows = [], []
    x = -10
    while x < WIDTH:
        width, height = rng.uniform(38, 82), rng.uniform(0.35, 1) * tallest
        towers.append(rectangle(x, base - height, width, height))
        if rng.random() < 0.35:
            left, right = (x + width * .42, base - height), (x + width * .58, base - height)
            towers.append(polygon([left, (x + width * .5, base - height - 38), right]))
        for column in range(int(width / 11)):
            for row in range(int(height / 14)):
                if rng.random() < density:
                    windows.append(rectangle(x + 4 + column * 11, base - height + 6 + row * 14, 5, 7))
        x += width + rng.uniform(-2, 8)
    canvas.paint(" ".join(towers), colour)
    if windows:
        canvas.paint(" ".join(windows), window)


def city_night(path):
    canvas = Canvas("#0a1030", "#1b2460", "#4a3a86", "#a4588c", "#f09a70")
    stars(canvas, 4, 150, 220)
    canvas.glow(760, 110, 150, "#8d94c8")
    canvas.paint(circle(760, 110, 38), "#f4f0dc", blur=1.4)
    skyline(canvas, 1, 372, 190, "#3a3474", "rgba(255,214,140,0.30)", 0.3)
    skyline(canvas, 2, 372, 230, "#231f54", "rgba(255,205,120,0.65)", 0.35)
    skyline(canvas, 9, 372, 130, "#14122f", "#ffd98a", 0.45)
    canvas.reflect(372, blur=10, shade="#0b0f30", strength=30)
    rng = random.Random(6)
    lamps = [(x, 372 + rng.uniform(-3, 3), rng.uniform(3, 5), "#ffcf80") for x in range(20, WIDTH, 46)]
    canvas.lights(lamps, blur=3)
    canvas.stroke("line 0,374 %d,374" % WIDTH, "rgba(10,10,30,0.9)", 4)
    canvas.save(path)


def burst(canvas, x, y, radius, colour, seed):
    """One firework: rays of sparks around a bright heart."""
    rng = random.Random(seed)
    rays, sparks = [], []
    for index in range(34):
        angle = index / 34 * 2 * math.pi + rng.uniform(-0.06, 0.06)
        reach = radius * rng.uniform(0.78, 1.05)
        start = radius * 0.18
        tip_x, tip_y = x + math.cos(angle) * reach, y + math.sin(angle) * reach + radius * 0.06
        rays.append("line %.1f,%.1f %.1f,%.1f" % (x + math.cos(angle) * start, y + math.sin(angle) * start, tip_x, tip_y))
        sparks.append(circle(tip_x, tip_y, rng.uniform(1.8, 3.4)))
        middle = rng.uniform(0.4, 0.7)
        sparks.append(circle(x + (tip_x - x) * middle, y + (tip_y - y) * middle, 1.5))
    canvas.glow(x, y, radius * 1.25, colour)
    canvas.stroke(" ".join(rays), colour, 1.6, method="Screen")
    canvas.paint(" ".join(sparks), "#fff8e0", method="Screen")
    canvas.paint(" ".join(sparks), colour, blur=6, method="Screen")


def fireworks(path):
    canvas = Canvas("#050816", "#0d1538", "#1d2557", "#38316e")
    stars(canvas, 17, 110, 300)
    bursts = [(270, 150, 130, "#c8402e"), (560, 110, 100, "#2f7fc8"), (760, 190, 120, "#c8902a"),
              (430, 245, 76, "#8a3fc0"), (110, 260, 64, "#2fa87a")]
    for index, (x, y, radius, colour) in enumerate(bursts):
        burst(canvas, x, y, radius, colour, 50 + index)
    skyline(canvas, 23, 396, 74, "#0b0c22", "#ffc873", 0.4)
    canvas.reflect(396, blur=12, shade="#060a1e", strength=25)
    canvas.save(path)


def lantern(canvas, x, y, size):
    canvas.glow(x, y, size * 3, "#a8541c")
    canvas.fill("path 'M %f,%f C %f,%f %f,%f %f,%f L %f,%f C %f,%f %f,%f %f,%f z'" % (
        x - size * .5, y + size * .8, x - size * 1.1, y - size * .3, x - size * .7, y - size, x, y - size,
        x, y - size, x + size * .7, y - size, x + size * 1.1, y - size * .3, x + size * .5, y + size * .8),
        "#f2892e", "#ffc861", "#fff0b0", band=(y - size, y + size * .8))


def lanterns(path):
    canvas = Canvas("#0a0e2c", "#1a1c4e", "#43286a", "#8a3f6c")
    stars(canvas, 33, 130, 300)
    canvas.fill(land(ridge(81, 410, 110)), "#241c4a", "#1a1438", band=(300, 420))
    canvas.fill(land(ridge(84, 420, 50)), "#120f2c", "#0c0a22", band=(370, 430))
    rng = random.Random(3)
    spots = sorted((rng.uniform(5, 13), rng.uniform(20, WIDTH - 20), rng.uniform(30, 330)) for _ in range(24))
    for size, x, y in spots:
        lantern(canvas, x, y, size)
    for x, y, size in [(210, 190, 32), (470, 110, 24), (700, 220, 42), (860, 110, 22)]:
        lantern(canvas, x, y, size)
    canvas.reflect(420, blur=9, shade="#0a0a26", strength=25)
    canvas.save(path)


def house(canvas, x, base, width, height, wall):
    roof = height * 0.7
    canvas.fill(rectangle(x, base - height, width, height), wall, "#2c2030", band=(base - height, base + 20))
    canvas.paint(rectangle(x + width * .68, base - height - roof * .9, width * .12, roof * .7), "#4a2f38")
    eaves = [(x - width * .1, base - height), (x + width / 2, base - height - roof), (x + width * 1.1, base - height)]
    canvas.fill(polygon(eaves), "#ffffff", "#c4d4ec", band=(base - height - roof, base - height))
    for column in (0.14, 0.6):
        left, top = x + width * column, base - height * .74
        canvas.glow(left + width * .13, top + height * .18, width * .4, "#a86820")
        canvas.paint(rectangle(left, top, width * .26, height * .36), "#ffd97a")
        bars = (left + width * .13, top, left + width * .13, top + height * .36,
                left, top + height * .18, left + width * .26, top + height * .18)
        canvas.stroke("line %f,%f %f,%f line %f,%f %f,%f" % bars, "#6a4028", 2)


def winter_village(path):
    canvas = Canvas("#0c1a40", "#24407a", "#5a7cb0", "#c8b8cc")
    stars(canvas, 90, 120, 240)
    canvas.glow(190, 100, 160, "#7f90b8")
    canvas.paint(circle(190, 100, 34), "#fdf8e4", blur=1.2)
    canvas.fill(land(ridge(101, 330, 150)), "#7690bd", "#b8c8e4", band=(180, 340))
    woods = [pine(x, 372 + (x * 7) % 13, 50 + (x * 13) % 46) for x in range(0, WIDTH, 26)]
    canvas.paint(" ".join(woods), "#24406a")
    canvas.fill(land(ridge(105, 400, 46, smooth=True)), "#dbe6f7", "#a9bee0", band=(360, 480))
    houses = [(110, 120, 74, "#8a4a44"), (300, 96, 64, "#6f5a50"), (760, 130, 80, "#7a4650"), (640, 84, 58, "#5c5268")]
    for x, width, height, wall in houses:
        house(canvas, x, 428, width, height, wall)
    canvas.fill(land(ridge(109, 460, 34, smooth=True)), "#f7faff", "#c4d4ee", band=(430, 540))
    christmas_tree(canvas, 510, 500, 290)
    rng = random.Random(19)
    flakes = [circle(rng.uniform(0, WIDTH), rng.uniform(0, HEIGHT), rng.uniform(1, 3.2)) for _ in range(240)]
    canvas.paint(" ".join(flakes), "rgba(255,255,255,0.85)", blur=0)
    canvas.save(path)


def christmas_tree(canvas, x, base, height):
    canvas.glow(x, base - height * .5, height * .75, "#4a4a20")
    canvas.fill(pine(x, base, height), "#2f7a4c", "#11402a", band=(base - height, base))
    rng = random.Random(44)
    baubles = {"#ff5a4a": [], "#ffd65a": [], "#6ac8ff": []}
    for row in range(9):
        share = 0.14 + row * 0.085
        half = height * 0.42 * 0.46 * (share * 0.9)
        for _ in range(2 + row // 2):
            spot = (x + rng.uniform(-half, half), base - height * (1 - share), rng.uniform(3, 5.4))
            baubles[rng.choice(sorted(baubles))].append(spot)
    for colour, spots in baubles.items():
        canvas.paint(" ".join(circle(*spot) for spot in spots), colour)
        canvas.lights([(*spot[:2], 6, colour) for spot in spots], blur=6)
    canvas.glow(x, base - height, 60, "#e8c060")
    star = [(x + math.sin(step * math.pi / 5) * (18 if step % 2 == 0 else 7.5),
             base - height - math.cos(step * math.pi / 5) * (18 if step % 2 == 0 else 7.5)) for step in range(10)]
    canvas.paint(polygon(star), "#fff0a8")


def wine_glass(canvas, x, base, size, wine):
    bowl = "path 'M %f,%f C %f,%f %f,%f %f,%f C %f,%f %f,%f %f,%f z'" % (
        x - size * .34, base - size * 1.9, x - size * .5, base - size, x - size * .1, base - size * .82, x, base - size * .82,
        x + size * .1, base - size * .82, x + size * .5, base - size, x + size * .34, base - size * 1.9)
    canvas.paint(bowl, "rgba(255,245,230,0.30)")
    canvas.fill("path 'M %f,%f C %f,%f %f,%f %f,%f C %f,%f %f,%f %f,%f z'" % (
        x - size * .395, base - size * 1.42, x - size * .4, base - size, x - size * .1, base - size * .86, x, base - size * .86,
        x + size * .1, base - size * .86, x + size * .4, base - size, x + size * .395, base - size * 1.42), *wine,
        band=(base - size * 1.42, base - size * .8))
    stem, foot = rectangle(x - 2, base - size * .84, 4, size * .84), ellipse(x, base, size * .32, size * .06)
    canvas.paint(stem + " " + foot, "rgba(255,245,230,0.6)")
    canvas.paint(ellipse(x - size * .2, base - size * 1.45, size * .05, size * .3), "rgba(255,255,255,0.6)", blur=3)


def candle(canvas, x, base, height, width):
    canvas.glow(x, base - height - 20, 30 + width * 3.5, "#b8742a")
    canvas.fill(rectangle(x - width / 2, base - height, width, height), "#fff3d8", "#d9b88a", band=(base - height, base))
    flame_y = base - height - 4
    canvas.paint("path 'M %f,%f q %f,%f 0,%f q %f,%f 0,%f z'" % (x, flame_y, -14, -12, -34, 14, 22, 34), "#ffb03a", blur=2)
    canvas.paint("path 'M %f,%f q %f,%f 0,%f q %f,%f 0,%f z'" % (x, flame_y, -7, -8, -22, 7, 14, 22), "#fffbe0")


def banquet_table(path):
    canvas = Canvas("#2a0f12", "#5a2418", "#8a4420", "#5a2a14")
    rng = random.Random(71)
    canvas.lights(scattered(rng, 70, (0, 290), (9, 36), ["#7a4a14", "#8a5a1e", "#6a3412", "#8a6a34"]), blur=2)
    canvas.fill(polygon([(0, 372), (WIDTH, 372), (WIDTH, HEIGHT), (0, HEIGHT)]), "#f3e4cf", "#cfae8c", band=(372, HEIGHT))
    canvas.paint(rectangle(0, 366, WIDTH, 10), "rgba(60,20,10,0.35)", blur=8)
    for x, height in [(440, 150), (490, 195), (545, 125)]:
        canvas.paint(ellipse(x, 424, 40, 8), "rgba(80,40,20,0.35)", blur=6)
        candle(canvas, x, 424, height, 26)
    bouquet(canvas, 490, 418)
    for x in (215, 765):
        canvas.paint(ellipse(x, 482, 158, 28), "rgba(90,50,30,0.4)", blur=8)
        canvas.fill(ellipse(x, 470, 150, 32), "#ffffff", "#dccbb8", band=(438, 502))
        canvas.fill(ellipse(x, 468, 104, 20), "#e9dccb", "#ffffff", band=(448, 488))
        canvas.fill(polygon([(x - 46, 470), (x, 404), (x + 46, 470), (x, 482)]), "#b83a44", "#7a1f2c", band=(404, 482))
    red, white = ("#8a1230", "#5a0a1e"), ("#f2cf6a", "#d9a838")
    for x, wine in [(80, red), (350, white), (620, white), (900, red)]:
        wine_glass(canvas, x, 470, 104, wine)
    canvas.save(path)


def bouquet(canvas, x, y):
    rng = random.Random(15)
    leaves = [ellipse(x + rng.uniform(-95, 95), y + rng.uniform(-12, 12), 16, 7) for _ in range(22)]
    canvas.paint(" ".join(leaves), "#3a6a3c")
    for colour, count in (("#e8e0d4", 10), ("#d8606c", 9), ("#f2b8a8", 9)):
        spots = [circle(x + rng.uniform(-84, 84), y + rng.uniform(-16, 10), rng.uniform(8, 13)) for _ in range(count)]
        canvas.paint(" ".join(spots), colour)
        canvas.paint(" ".join(spots), "rgba(120,30,40,0.25)", blur=6)


def birthday_cake(path):
    canvas = Canvas("#ffd9c8", "#ffc2c8", "#f79fb8", "#d9789e")
    rng = random.Random(27)
    canvas.lights(scattered(rng, 44, (0, 400), (10, 40), ["#4a3a30", "#54404a", "#3c3450"]), blur=3)
    bunting(canvas)
    party = [(110, 190, ("#ff8a8a", "#d83a4a")), (190, 130, ("#8ad0ff", "#2a7ac8")), (60, 290, ("#ffe08a", "#e0a020")),
             (850, 160, ("#c8a0ff", "#7a3ac0")), (780, 240, ("#9ff0c8", "#2aa070")), (905, 280, ("#ffb08a", "#e0602a"))]
    for x, y, colours in party:
        party_balloon(canvas, x, y, colours)
    canvas.fill(rectangle(0, 468, WIDTH, 80), "#fff6ee", "#f0d0c8", band=(468, 540))
    canvas.paint(ellipse(480, 486, 230, 16), "rgba(120,40,60,0.35)", blur=8)
    cake(canvas, 480, 482)
    dots = [(ellipse(rng.uniform(0, WIDTH), rng.uniform(0, HEIGHT), 4, 2.4), index % 4) for index in range(150)]
    for index, colour in enumerate(["#ff5a6a", "#ffd24a", "#4ab8f0", "#7ad07a"]):
        canvas.paint(" ".join(drawing for drawing, group in dots if group == index), colour)
    canvas.save(path)


def bunting(canvas):
    flags = {colour: [] for colour in ("#e8505a", "#f7c84a", "#4aa8d8", "#6ac08a")}
    for index in range(16):
        x = index * 62
        top = 20 + 44 * math.sin(math.pi * ((index * 62 + 26) % 480) / 480)
        flags[sorted(flags)[index % 4]].append(polygon([(x, top), (x + 50, top), (x + 25, top + 52)]))
    for colour, drawings in flags.items():
        canvas.paint(" ".join(drawings), colour)


def party_balloon(canvas, x, y, colours):
    canvas.stroke("line %d,%d %d,%d" % (x, y + 62, x + 8, y + 250), "rgba(255,255,255,0.8)", 1.5)
    knot = polygon([(x, y + 54), (x - 7, y + 68), (x + 7, y + 68)])
    canvas.fill(ellipse(x, y, 46, 58) + " " + knot, *colours, band=(y - 58, y + 66))
    canvas.paint(ellipse(x - 17, y - 22, 8, 15), "rgba(255,255,255,0.7)", blur=4)


def cake(canvas, x, base):
    cream, rose = ("#fff7ee", "#f0cfc0"), ("#ffd0dc", "#e890a8")
    for half, top, height, colours in [(180, base - 96, 96, cream), (128, base - 176, 84, rose), (80, base - 242, 70, cream)]:
        canvas.fill(rectangle(x - half, top, half * 2, height), *colours, band=(top, top + height))
        drips = [ellipse(x - half + 14 + step * 25, top + 4, 15, 15 + (step * 7) % 16) for step in range(int(half * 2 / 25))]
        canvas.paint(rectangle(x - half, top - 6, half * 2, 12) + " " + " ".join(drips), "#c0506e" if half != 128 else "#fffaf2")
    for offset in (-48, -16, 16, 48):
        candle(canvas, x + offset, base - 246, 50, 9)


SCENES = {
    "city-night": city_night,
    "fireworks": fireworks,
    "lanterns": lanterns,
    "winter-village": winter_village,
    "banquet-table": banquet_table,
    "birthday-cake": birthday_cake,
}
