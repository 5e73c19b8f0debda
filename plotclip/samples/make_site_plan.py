#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
"""Draws the sample site plan: writes site-plan.plt and fence.txt into the folder given (default: this one).

The sheet is 16000 by 11000 plotter units of 0.025 mm (400 by 275 mm). Everything is computed from fixed numbers
and a small generator of pseudo-random numbers of its own, and rounded to whole units, so every run on every
machine writes the same bytes.
"""
import math
import os
import sys

WIDTH, HEIGHT = 16000, 11000
BLACK, GREY, GREEN, BROWN, BLUE, PLUM, ASPHALT, BRICK, GRASS = range(1, 10)
COLOURS = {
    BLACK: (30, 32, 38), GREY: (120, 124, 130), GREEN: (52, 120, 62), BROWN: (178, 132, 84), BLUE: (44, 112, 176),
    PLUM: (150, 92, 140), ASPHALT: (226, 226, 230), BRICK: (186, 96, 62), GRASS: (130, 182, 110),
}
WIDTHS = {BLACK: 0.5, GREY: 0.3, GREEN: 0.25, BROWN: 0.18, BLUE: 0.35, PLUM: 0.2, ASPHALT: 0.25, BRICK: 0.25,
          GRASS: 0.2}


class Noise:
    """A linear congruential generator: the same numbers in every version of the interpreter."""

    def __init__(self, seed):
        self.state = seed

    def number(self, low, high):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % 2**64
        return low + (high - low) * (self.state >> 11) / 2**53

    def whole(self, low, high):
        return int(self.number(low, high + 1))


class Plot:
    """Collects instructions; coordinates are rounded to whole units here and nowhere else."""

    def __init__(self):
        self.lines = []

    def put(self, code, *numbers):
        self.lines.append(code + ",".join(self.text(n) for n in numbers) + ";")

    @staticmethod
    def text(n):
        return str(n) if isinstance(n, int) else str(int(math.floor(n + 0.5)))

    def raw(self, line):
        self.lines.append(line)

    def pen(self, pen):
        self.put("SP", pen)

    def up(self, x, y):
        self.put("PU", x, y)

    def line(self, points):
        self.up(*points[0])
        for start in range(1, len(points), 6):
            self.put("PD", *[v for p in points[start:start + 6] for v in p])
        self.put("PU")

    def polygon(self, rings, fill=None, edge=False):
        """Fills and edges an area; `fill` is the parameters of FT."""
        self.up(*rings[0][0])
        self.put("PM", 0)
        for k, ring in enumerate(rings):
            if k > 0:
                self.put("PM", 1)
            points = ring[1:] if k == 0 else ring
            for start in range(0, len(points), 6):
                self.put("PD", *[v for p in points[start:start + 6] for v in p])
        self.put("PM", 2)
        if fill:
            self.put("FT", *fill)
            self.put("FP")
        if edge:
            self.put("EP")

    def label(self, x, y, text):
        self.up(x, y)
        self.raw("LB" + text + "\x03")

    def bytes(self):
        return ("\n".join(self.lines) + "\n").encode("ascii")


def around(cx, cy, radius, sides, start=0.0, wave=lambda a: 1.0):
    """A closed ring of points around a centre, its radius waved by the angle."""
    ring = []
    for i in range(sides):
        a = start + 2 * math.pi * i / sides
        ring.append((cx + radius * wave(a) * math.cos(a), cy + radius * wave(a) * math.sin(a)))
    return ring


def box(x, y, w, h):
    return [(x, y), (x + w, y), (x + w, y + h), (x, y + h)]


def arc_points(cx, cy, r, a0, a1, steps):
    return [(cx + r * math.cos(math.radians(a0 + (a1 - a0) * i / steps)),
             cy + r * math.sin(math.radians(a0 + (a1 - a0) * i / steps))) for i in range(steps + 1)]


# The main road bends left by 30 degrees and back again; both bends have this radius.
BEND = 3000.0
BEND1 = (4000.0, 5200.0 + BEND)
BEND1_END = (4000.0 + BEND * 0.5, 5200.0 + BEND * (1 - math.cos(math.pi / 6)))
BEND2_START = (BEND1_END[0] + 2000 * math.cos(math.pi / 6), BEND1_END[1] + 1000)
BEND2 = (BEND2_START[0] + BEND * 0.5, BEND2_START[1] - BEND * math.cos(math.pi / 6))
ROAD_Y = BEND2[1] + BEND  # of the eastern half
HALF = 300.0
STREET_X, STREET_HALF = 11500.0, 220.0
CLOSE_X, CLOSE_END, CLOSE_R = 13500.0, 9300.0, 620.0
CORNER = 420.0


def road_centre(offset):
    """The main road's course moved left by an offset."""
    points = [(0.0, 5200 + offset)]
    points += arc_points(*BEND1, BEND - offset, -90, -60, 12)
    points += arc_points(*BEND2, BEND + offset, 120, 90, 12)
    return points + [(float(WIDTH), ROAD_Y + offset)]


def draw_roads(plot):
    plot.pen(ASPHALT)
    south, north = ROAD_Y - HALF, ROAD_Y + HALF
    plot.polygon([road_centre(HALF) + road_centre(-HALF)[::-1]], fill=(1,))
    plot.polygon([[(STREET_X - STREET_HALF - CORNER, south)] +
                  arc_points(STREET_X - STREET_HALF - CORNER, south - CORNER, CORNER, 90, 0, 8) +
                  [(STREET_X - STREET_HALF, 0), (STREET_X + STREET_HALF, 0)] +
                  arc_points(STREET_X + STREET_HALF + CORNER, south - CORNER, CORNER, 180, 90, 8)], fill=(1,))
    plot.polygon([arc_points(CLOSE_X - STREET_HALF - CORNER, north + CORNER, CORNER, -90, 0, 8) +
                  [(CLOSE_X - STREET_HALF, CLOSE_END), (CLOSE_X + STREET_HALF, CLOSE_END)] +
                  arc_points(CLOSE_X + STREET_HALF + CORNER, north + CORNER, CORNER, 180, 270, 8)], fill=(1,))
    plot.up(CLOSE_X, CLOSE_END)
    plot.put("WG", CLOSE_R, 0, 360, 10)
    draw_kerbs(plot, south, north)
    draw_road_marks(plot)


def draw_kerbs(plot, south, north):
    plot.pen(GREY)
    # The northern kerb up to the close, then the southern one, with true arcs in the bends.
    plot.up(0, 5200 + HALF)
    plot.put("PD", 4000, 5200 + HALF)
    plot.put("AA", *BEND1, 30, 3)
    plot.put("PD", *arc_points(*BEND2, BEND + HALF, 120, 90, 1)[0])
    plot.put("AA", *BEND2, -30, 3)
    plot.put("PD", CLOSE_X - STREET_HALF - CORNER, north)
    plot.put("AA", CLOSE_X - STREET_HALF - CORNER, north + CORNER, 90, 6)
    gap = math.degrees(math.asin(STREET_HALF / CLOSE_R))
    plot.put("PD", CLOSE_X - STREET_HALF, CLOSE_END - CLOSE_R * math.cos(math.radians(gap)))
    plot.put("AA", CLOSE_X, CLOSE_END, -(360 - 2 * gap), 5)
    plot.put("PD", CLOSE_X + STREET_HALF, north + CORNER)
    plot.put("AA", CLOSE_X + STREET_HALF + CORNER, north + CORNER, 90, 6)
    plot.put("PD", WIDTH, north)
    plot.up(0, 5200 - HALF)
    plot.put("PD", 4000, 5200 - HALF)
    plot.put("AA", *BEND1, 30, 3)
    plot.put("PD", *arc_points(*BEND2, BEND - HALF, 120, 90, 1)[0])
    plot.put("AA", *BEND2, -30, 3)
    plot.put("PD", STREET_X - STREET_HALF - CORNER, south)
    plot.put("AA", STREET_X - STREET_HALF - CORNER, south - CORNER, -90, 6)
    plot.put("PD", STREET_X - STREET_HALF, 0)
    plot.up(STREET_X + STREET_HALF, 0)
    plot.put("PD", STREET_X + STREET_HALF, south - CORNER)
    plot.put("AA", STREET_X + STREET_HALF + CORNER, south - CORNER, -90, 6)
    plot.put("PD", WIDTH, south)
    plot.put("PU")


def draw_road_marks(plot):
    """The dashed middle line, walked along the course at equal steps."""
    plot.pen(GREY)
    course = road_centre(0.0)
    ends = [0.0]
    for (x0, y0), (x1, y1) in zip(course, course[1:]):
        ends.append(ends[-1] + math.hypot(x1 - x0, y1 - y0))

    def at(along):
        k = max(i for i in range(len(course) - 1) if ends[i] <= along)
        t = (along - ends[k]) / (ends[k + 1] - ends[k])
        return tuple(p + (q - p) * t for p, q in zip(course[k], course[k + 1]))

    for k in range(int(ends[-1] / 290)):
        dash = (290.0 * k + 60, 290.0 * k + 220)
        bends = [p for p, end in zip(course, ends) if dash[0] < end < dash[1]]
        plot.line([at(dash[0])] + bends + [at(dash[1])])
    for k in range(21):
        plot.line([(STREET_X, 250 + 290 * k), (STREET_X, 250 + 290 * k + 160)])


def draw_ground(plot):
    """Lawns, the pond, the stream and the contour lines of the hill."""
    plot.pen(GRASS)
    plot.polygon([around(3100, 8450, 2150, 48, 0.2, lambda a: 1 + 0.1 * math.sin(3 * a) + 0.05 * math.cos(5 * a))],
                 fill=(3, 90, 45))
    plot.polygon([around(8900, 9300, 1150, 40, 0.0, lambda a: 1 + 0.12 * math.cos(2 * a) + 0.08 * math.sin(3 * a))],
                 fill=(3, 110, 135))
    for inset in (0.0, 24.0):
        plot.line(closed(around(3100, 8450, 2150 + inset, 48, 0.2,
                                lambda a: 1 + 0.1 * math.sin(3 * a) + 0.05 * math.cos(5 * a))))
    plot.line(closed(around(8900, 9300, 1150, 40, 0.0,
                            lambda a: 1 + 0.12 * math.cos(2 * a) + 0.08 * math.sin(3 * a))))
    plot.pen(BLUE)
    shore = lambda a: 1 + 0.18 * math.sin(2 * a + 0.6) + 0.07 * math.sin(5 * a)
    plot.polygon([around(6450, 8750, 900, 56, 0.0, shore)], fill=(10, 28), edge=True)
    for k in (0.82, 0.64):
        plot.line(closed(around(6450, 8750, 900 * k, 40, 0.0, shore)))
    bank = [(6450 + 90 * math.sin(t / 3.1) - 34.0 * t, 7900 - 76.0 * t) for t in range(27)]
    plot.line(bank)
    plot.line([(x + 110, y + 30) for x, y in bank])
    draw_contours(plot)


def closed(ring):
    return ring + ring[:1]


def draw_contours(plot):
    plot.pen(BROWN)
    slope = lambda a: 1 + 0.16 * math.sin(2 * a + 0.9) + 0.07 * math.sin(3 * a) + 0.03 * math.cos(7 * a)
    for k in range(1, 11):
        drift = 30.0 * (10 - k)
        plot.line(closed(around(2900 + drift, 8500 - 0.6 * drift, 190.0 * k, 30 + 5 * k, 0.0, slope)))
    for k in range(9):
        plot.line([(400 + 120 * i, 4000 - 70 * k + 120 * math.sin(i / 7.0 + k / 9.0) - 2.1 * (i - 20) ** 2 / 4)
                   for i in range(34) if 4000 - 70 * k - 2.1 * (i - 20) ** 2 / 4 > 3700 - 80 * k])


def draw_track(plot):
    """The sports ground: a running track of six lanes around a lawn."""
    cx, cy, half, r0, lane = 2900, 2100, 1000, 620, 75
    field = arc_points(cx + half, cy, r0 - 40, -90, 90, 18) + arc_points(cx - half, cy, r0 - 40, 90, 270, 18)
    plot.pen(GRASS)
    plot.polygon([field], fill=(4, 130, 0))
    plot.pen(BRICK)
    for k in range(7):
        r = r0 + lane * k
        plot.up(cx - half, cy - r)
        plot.put("PD", cx + half, cy - r)
        plot.put("AA", cx + half, cy, 180, 4)
        plot.put("PD", cx - half, cy + r)
        plot.put("AA", cx - half, cy, 180, 4)
        plot.put("PU")
    plot.pen(BLACK)
    plot.line([(cx + half - 300, cy - r0), (cx + half - 300, cy - r0 - 6 * lane)])
    plot.up(cx - 700, cy - 380)
    plot.put("EA", cx + 700, cy + 380)
    plot.line([(cx, cy - 380), (cx, cy + 380)])
    plot.up(cx, cy)
    plot.put("CI", 130, 10)


def draw_hall(plot):
    """The large building with its courtyard and round tower, and the car park beside it."""
    outer = [(5300, 1300), (7700, 1300), (7700, 2300), (8100, 2300), (8100, 3300), (7300, 3300), (7300, 3900),
             (5900, 3900), (5900, 3500), (5300, 3500)]
    court = [(6050, 1900), (6050, 2900), (7050, 2900), (7050, 1900)]
    plot.pen(BRICK)
    plot.polygon([outer, court], fill=(4, 85, 45))
    plot.pen(BLACK)
    plot.polygon([outer, court], edge=True)
    plot.pen(GRASS)
    plot.polygon([around(6550, 2400, 330, 8, math.pi / 8)], fill=(1,))
    plot.pen(ASPHALT)
    plot.up(5300, 3500)
    plot.put("WG", 360, 0, 360, 10)
    plot.pen(BRICK)
    plot.put("FT", 1)
    for k in range(4):
        plot.up(5300, 3500)
        plot.put("WG", 360, 90 * k, 45, 9)
    plot.pen(BLACK)
    plot.up(5300, 3500)
    plot.put("CI", 360, 10)
    plot.pen(ASPHALT)
    plot.up(8350, 1250)
    plot.put("RA", 9550, 3950)
    plot.pen(GREY)
    plot.put("EA", 9550, 3950)
    for k in range(15):
        y = 1300 + 180 * k
        plot.line([(8350, y), (8730, y)])
        plot.line([(9170, y), (9550, y)])


def draw_house(plot, noise, x, y, w, h):
    """One parcel with a house of one of three shapes on it, and its garden."""
    plot.pen(PLUM)
    plot.up(x, y)
    plot.put("ER", w, h)
    hw, hh = noise.number(0.42, 0.56) * w, noise.number(0.42, 0.55) * h
    hx, hy = x + noise.number(0.14, 0.3) * w, y + noise.number(0.16, 0.3) * h
    shape = noise.whole(0, 2)
    if shape == 0:
        house = box(hx, hy, hw, hh)
    elif shape == 1:
        house = [(hx, hy), (hx + hw, hy), (hx + hw, hy + hh * 0.55), (hx + hw * 0.6, hy + hh * 0.55),
                 (hx + hw * 0.6, hy + hh), (hx, hy + hh)]
    else:
        house = [(hx, hy), (hx + hw, hy), (hx + hw, hy + hh), (hx + hw * 0.7, hy + hh), (hx + hw * 0.5, hy + hh * 1.18),
                 (hx + hw * 0.3, hy + hh), (hx, hy + hh)]
    plot.pen(BRICK)
    plot.polygon([house], fill=(3, 48, 45 if shape != 1 else 135))
    plot.pen(BLACK)
    plot.polygon([house], edge=True)
    if shape == 0:  # the ridge of the roof
        plot.pen(BRICK)
        plot.line([(hx, hy + hh / 2), (hx + hw, hy + hh / 2)])
    draw_tree(plot, x + w * noise.number(0.8, 0.9), y + h * noise.number(0.12, 0.85), noise.number(70, 110))


def draw_parcels(plot, noise):
    number = 1
    plot.put("FT", 3, 48, 45)
    rows = [(9750, 500, 1480, 1020, 1, 5), (11790, 500, 1600, 1020, 1, 5), (13390, 500, 2100, 1020, 1, 5),
            (10180, 7650, 1290, 1150, 2, 2), (14220, 7650, 1380, 1150, 1, 2)]
    for x0, y0, w, h, columns, count in rows:
        for column in range(columns):
            for row in range(count):
                x, y = x0 + column * w, y0 + row * h
                draw_house(plot, noise, x, y, w, h)
                plot.pen(BLACK)
                plot.label(x + 60, y + 60, str(number))
                number += 1


def draw_tree(plot, x, y, r):
    plot.pen(GREEN)
    plot.up(x, y)
    plot.put("CI", r, 24)
    plot.put("CI", max(r * 0.18, 12.0), 60)


def draw_trees(plot, noise):
    for k in range(15):  # the avenue
        draw_tree(plot, 350 + 250 * k, 5200 + HALF + 190, 95)
        draw_tree(plot, 350 + 250 * k, 5200 - HALF - 190, 95)
    for k in range(12):
        draw_tree(plot, 8800 + 185 * k, ROAD_Y - HALF - 190, 80)
    planted = []
    while len(planted) < 95:  # the park, no two trees touching
        x, y, r = noise.number(500, 9900), noise.number(6300, 10500), noise.number(70, 135)
        if y < ROAD_Y + 600 and x > 3600:
            continue
        if math.hypot((x - 6450) / 1.15, y - 8750) < 1250 or abs(x - 6050) < 750 and y < 8200:
            continue
        if all(math.hypot(x - px, y - py) > r + pr + 30 for px, py, pr in planted):
            planted.append((x, y, r))
    for x, y, r in planted:
        draw_tree(plot, x, y, r)


def draw_sheet(plot):
    """Frame, north arrow, scale bar and texts."""
    plot.pen(BLACK)
    plot.line(closed(box(0, 0, WIDTH, HEIGHT)))
    plot.up(15100, 10250)
    plot.put("CI", 330, 6)
    plot.polygon([[(15100, 10620), (15220, 9980), (15100, 10090)]], fill=(1,))
    plot.polygon([[(15100, 10620), (15100, 10090), (14980, 9980)]], edge=True)
    for k in range(5):
        plot.up(400 + 400 * k, 260)
        plot.put("RR" if k % 2 == 0 else "ER", 400, 90)
    plot.put("SI0.2,0.3")
    plot.label(15040, 10700, "N")
    plot.label(400, 420, "0        20 m      40 m      60 m      80 m     100 m")
    plot.label(1200, 5160, "Plane Tree Avenue")
    plot.put("DI0,1")
    plot.label(11540, 2200, "Mill Street")
    plot.put("DI")
    for x, y, text in ((2600, 2060, "Sports ground"), (6200, 3600, "Hall"), (6150, 8700, "Pond"),
                       (2700, 8450, "Beacon Hill"), (8450, 4020, "Car park")):
        plot.label(x, y, text)


def site_plan():
    plot, noise = Plot(), Noise(2026)
    plot.raw("\x1b%-1B" + "BP1,\"Site plan\";")
    plot.put("IN")
    for pen, colour in COLOURS.items():
        plot.put("PC", pen, *colour)
        plot.raw("PW%g,%d;" % (WIDTHS[pen], pen))
    draw_roads(plot)
    draw_ground(plot)
    draw_track(plot)
    draw_hall(plot)
    draw_parcels(plot, noise)
    draw_trees(plot, noise)
    draw_sheet(plot)
    plot.put("PU")
    plot.put("SP", 0)
    plot.raw("\x1b%0A")
    return plot.bytes()


def fence():
    """A wavy ring of 64 sides around the middle, and an octagon around the end of the close."""
    lines = ["# The sample fence: plotter units of the site plan.", "polygon"]
    for x, y in around(7300, 5500, 4000, 64, 0.1, lambda a: 1 + 0.13 * math.sin(5 * a) + 0.08 * math.cos(2 * a)):
        lines.append("%s %s" % (Plot.text(x), Plot.text(y)))
    lines.append("")
    lines.append("polygon")
    for x, y in around(13700, 8900, 1700, 8, math.pi / 8):
        lines.append("%s %s" % (Plot.text(x), Plot.text(y)))
    return ("\n".join(lines) + "\n").encode("ascii")


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.abspath(__file__))
    for name, content in (("site-plan.plt", site_plan()), ("fence.txt", fence())):
        with open(os.path.join(folder, name), "wb") as file:
            file.write(content)


if __name__ == "__main__":
    main()
