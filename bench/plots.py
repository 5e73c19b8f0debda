# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
"""Plots of a family by gnuplot: time over size where a task has several sizes, else bars. Ours is bold."""
import subprocess

from results import UNITS, ours

COLOURS = {"Corvane": "#c0392b", "Corvane, fence defined anew": "#e59866", "Corvane, narrow": "#e59866",
           "GEOS": "#1f618d", "Clipper1": "#117a65", "Boost": "#7d3c98", "CGAL": "#7e5109", "Eigen": "#1f618d",
           "memcpy": "#999999", "read": "#bbbbbb", "bare calls": "#999999"}
OTHER_COLOURS = ["#2e86c1", "#28b463", "#af7ac5", "#d4ac0d", "#5d6d7e", "#cb4335"]


def colour(who, everybody):
    rest = [other for other in everybody if other not in COLOURS]
    return COLOURS.get(who) or OTHER_COLOURS[rest.index(who) % len(OTHER_COLOURS)]


def by_task(jobs):
    tasks = {}
    for results in jobs:
        tasks.setdefault(ours(results)["task"], []).append(results)
    return tasks


def everybody(jobs):
    names = {}
    for results in jobs:
        for result in results:
            names.setdefault(result["who"], None)
    return list(names)


def quoted(text):
    return '"' + text.replace('"', '\\"') + '"'


def style(who, everyone, estimated):
    bold = who == "Corvane"
    width, mark, size = (3.5, 7, 0.7) if bold else (1.3, 6, 0.7) if estimated else (1.3, 5, 0.45)
    dash = 2 if estimated else 1
    return f"lc rgb {quoted(colour(who, everyone))} lw {width} dt {dash} pt {mark} ps {size}"


def curves(jobs, unit, everyone):
    """One panel: everybody's time over n. Returns gnuplot's data blocks and plot elements."""
    data, elements = [], []
    # Ours last, on top.
    for who in everyone[1:] + everyone[:1]:
        points = [(r["size"], r["ns"] / UNITS[unit], bool(r.get("estimated"))) for results in jobs
                  for r in results if r["who"] == who]
        if not points:
            continue
        block = f"$d{len(data)}"
        data.append(f"{block} << EOD\n" + "\n".join(f"{n} {t:.9g}" for n, t, _ in points) + "\nEOD")
        look = style(who, everyone, all(e for _, _, e in points))
        elements.append(f"{block} using 1:2 with linespoints {look} notitle")
    return data, elements


def key_panel(everyone, jobs):
    """A panel with nothing but the names."""
    measured = {r["who"] for results in jobs for r in results if not r.get("estimated")}
    entries = []
    for who in everyone:
        title = who if who in measured else who + " (estimate)"
        entries.append(f"NaN with linespoints {style(who, everyone, who not in measured)} title {quoted(title)}")
    return entries


def place(left, right, bottom, top):
    """The next plot between these fractions of the picture."""
    return [f"set lmargin at screen {left:.4f}", f"set rmargin at screen {right:.4f}",
            f"set bmargin at screen {bottom:.4f}", f"set tmargin at screen {top:.4f}"]


PANEL_WIDTH, PANEL_HEIGHT, TITLE_HEIGHT, KEY_HEIGHT = 360, 270, 45, 60


def panels(tasks, jobs, unit, title, columns):
    everyone = everybody(jobs)
    rows = -(-len(tasks) // columns)
    width, height = max(PANEL_WIDTH * columns, 560), PANEL_HEIGHT * rows + TITLE_HEIGHT + KEY_HEIGHT
    sizes = [ours(results)["size"] for results in jobs]
    out = [f"set multiplot title {quoted(title)} font ',14'", "set logscale xy",
           "set format xy '10^{%T}'", "set grid lc rgb '#dddddd'", "unset key",
           f"set xrange [{min(sizes) / 1.5}:{max(sizes) * 1.5}]"]
    for i, (task, of_task) in enumerate(tasks.items()):
        data, elements = curves(of_task, unit, everyone)
        left, top = i % columns / columns, 1 - (TITLE_HEIGHT + PANEL_HEIGHT * (i // columns)) / height
        out += place(left + 60 / width, left + 1 / columns - 15 / width, top - (PANEL_HEIGHT - 70) / height,
                     top - 20 / height)
        out += data + [f"set title {quoted(task)}", f"set ylabel '{unit}'", "set xlabel 'n' offset 0,0.5",
                       "plot " + ", \\\n  ".join(elements)]
    out += place(0.02, 0.98, 5 / height, KEY_HEIGHT / height)
    out += ["unset logscale", "unset title", "unset xlabel", "unset ylabel", "unset border", "unset tics",
            "unset grid", "set key center center horizontal samplen 3", "set xrange [0:1]", "set yrange [0:1]",
            "plot " + ", \\\n  ".join(key_panel(everyone, jobs)), "unset multiplot"]
    return out, width, height


def bars(tasks, jobs, unit, title):
    everyone = everybody(jobs)
    lines = []
    for task, of_task in tasks.items():
        times = {r["who"]: r["ns"] / UNITS[unit] for r in of_task[-1]}
        lines.append(quoted(task) + " " + " ".join(f"{times[who]:.6g}" if who in times else "NaN" for who in everyone))
    elements = []
    for i, who in enumerate(everyone):
        label = ":xtic(1)" if i == 0 else ""
        pattern = "fs solid 1.0" if who == "Corvane" else "fs solid 0.55"
        elements.append(f"$d using {i + 2}{label} {pattern} lc rgb {quoted(colour(who, everyone))} title {quoted(who)}")
    out = ["$d << EOD"] + lines + ["EOD", f"set title {quoted(title)} font ',14'", "set style data histogram",
           "set style histogram clustered gap 1", "set boxwidth 0.9", "set logscale y", "set format y '%g'",
           f"set ylabel '{unit}'", "set grid y lc rgb '#dddddd'", "set xtics nomirror",
           "set key outside right top", "plot " + ", \\\n  ".join(elements)]
    return out, max(700, 130 * len(tasks) + 250), 380


def draw(title, unit, jobs, picture):
    """Writes the plot of a family as SVG."""
    tasks = by_task(jobs)
    several_sizes = any(len(of_task) > 1 for of_task in tasks.values())
    if several_sizes:
        script, width, height = panels(tasks, jobs, unit, title, min(3, len(tasks)))
    else:
        script, width, height = bars(tasks, jobs, unit, title)
    terminal = [f"set terminal svg size {width},{height} font 'sans-serif,11' background rgb 'white'",
                f"set output {quoted(str(picture))}"]
    text = "\n".join(terminal + script) + "\n"
    subprocess.run(["gnuplot"], input=text, text=True, check=True)
