#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
"""bench/report.py RESULTS MARKS DOCUMENT IMAGES: writes the report of a run and its plots.
bench/report.py --left-out SECONDS MARKS: names the runs that are expected to take longer.

DOCUMENT is the Markdown file, IMAGES the folder of the plots, which the document links relative to itself.
"""
import os
import pathlib
import subprocess
import sys

import goals
import plots
import results as res

# family: title, unit, what is measured
FAMILIES = {
    "polygons": ("Polygons", "ms",
                 "Two rings of n vertices each: what they have in common (int), and what the first has alone "
                 "(dif). In family A both are spiky and cross everywhere, in B they are circles with a "
                 "rough edge that cross along it, in C they have waves and cross in four places."),
    "rect-lines": ("Polylines against a rectangle", "ms",
                   "A million points: a walk (L1), points anywhere (L2), all inside (L3), all outside (L4)."),
    "polylines": ("Polylines against a polygon", "ms",
                  "n points against a ring of 1000 vertices, B or A: a walk, a hatch that crosses all of it with "
                  "every stroke, a spiral of 50 turns."),
    "inside": ("Inside tests", "ns per probe",
               "10,000 probes against a ring B of n vertices. The library has no call for one probe: it gets them "
               "as a polyline of single points with breaks between them. For GEOS the index is built anew each time."),
    "many": ("Many small subjects", "us per subject",
             "1000 polygons of 16 vertices, one call each, against one fence B of n vertices. GEOS gets its prepared "
             "polygon, and an overlay only where the borders meet."),
    "fences": ("Defining a fence", "us",
               "Defining and releasing a fence B of n vertices. GEOS builds and prepares a polygon, and is asked one "
               "question, because it puts the work off until then."),
    "growing": ("Growing", "us",
                "A ring of 10,000 vertices moved by 20 outward or inward, with sharp corners. The others also look "
                "for places where the result crosses itself, which these inputs do not have: compare with memcpy."),
    "matrices": ("Matrices and extents", "us",
                 "A million points times a matrix and their extents, and the product of two matrices, in two and "
                 "three dimensions (homogeneous: orders 3 and 4)."),
    "names": ("File specifications and patterns", "ns",
              "Taking a specification apart and putting it together, and names against wildcard patterns."),
    "search": ("Search", "us",
               "A file looked for in n directories: found in the last of them, or nowhere. The bare calls are the "
               "system calls for the same candidates, with names made beforehand."),
    "enumeration": ("Enumeration", "us", "The n files of a directory that match a pattern, half of all."),
    "lists": ("Object list", "us", "n items of 16 bytes: put in at the end, put in by order, found by a filter."),
}


def number(value):
    """Three significant digits, no powers of ten."""
    if value >= 1000:
        return f"{value:,.0f}"
    return f"{value:#.3g}".rstrip(".")


def columns_of(jobs):
    """Everybody in a family: ours, variants, floors, others measured, others estimated alone."""
    order = {"ours": 0, "variant": 1, "peer": 2, "bound": 4}
    ranks = {}
    for results in jobs:
        for result in results:
            rank = 3 if result.get("estimated") else order[result["kind"]]
            ranks[result["who"]] = min(rank, ranks.get(result["who"], 9))
    return sorted(ranks, key=lambda who: (ranks[who], who))


def cell(results, who, unit):
    result = next((r for r in results if r["who"] == who), None)
    if result is None:
        return ""
    text = number(result["ns"] / res.UNITS[unit])
    if result["kind"] == "ours":
        return f"**{text}**"
    return f"≈ {text}" if result.get("estimated") else text


def judgement(judged):
    texts = []
    for against, value, limit in judged:
        aim = {goals.BEST: f"≤ {limit:g}", "exponent": f"n^ ≤ {limit:g}"}.get(against)
        aim = aim or f"{number(value)} x {against}, ≤ {limit:g}"
        texts.append(f"{aim} {'met' if value <= limit else '**missed**'}")
    return "; ".join(texts)


def table(jobs, before_of):
    """The rows of a family."""
    unit = FAMILIES[jobs[0][0]["family"]][1].split()[0]
    columns = columns_of(jobs)
    yield "| job | n | " + " | ".join(columns) + " | best other | ratio | n^ | goals |"
    yield "|---|---:|" + "---:|" * len(columns) + "---|---:|---:|---|"
    for results in jobs:
        mine, best, before = res.ours(results), res.best_peer(results), before_of(results)
        growth, ratio = goals.exponent(results, before), goals.ratio(results, goals.BEST)
        cells = [mine["task"], f"{mine['size']:,}" if mine["size"] > 1 else ""] + [cell(results, who, unit) for who in columns]
        cells.append(("≈ " if best.get("estimated") else "") + best["who"] if best else "")
        cells.append(number(ratio) if best else "")
        cells += [f"{growth:.2f}" if growth is not None else "", judgement(goals.judge(results, before))]
        yield "| " + " | ".join(cells) + " |"


def smaller(jobs):
    """A function that finds the same task at the next smaller size."""
    def find(results):
        mine = res.ours(results)
        sizes = [other for other in jobs.values()
                 if (res.ours(other)["family"], res.ours(other)["task"]) == (mine["family"], mine["task"])
                 and res.ours(other)["size"] < mine["size"]]
        return max(sizes, key=lambda other: res.ours(other)["size"], default=None)
    return find


def machine():
    with open("/proc/cpuinfo", encoding="utf-8") as lines:
        models = [line.split(":", 1)[1].strip() for line in lines if line.startswith("model name")]
    return f"{len(models)} x {models[0]}" if models else "unknown processor"


def commit():
    where = pathlib.Path(__file__).parent
    command = ["git", "-C", str(where), "describe", "--always", "--dirty"]
    try:
        said = subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()
    except OSError:  # there is no git
        said = ""
    return said or "unknown commit"


def introduction(versions, jobs, before_of):
    judged = [goal for results in jobs.values() for goal in goals.judge(results, before_of(results))]
    met = sum(value <= limit for _, value, limit in judged)
    others = ", ".join(f"{who} {version}" for who, version in versions.items() if who != "g++")
    yield "# Performance"
    yield ""
    yield (f"Written by `tools/bench` at {commit()}. {machine()}, g++ {versions.get('g++')}, -O2, one thread; CPU time, "
           "medians. Compare within a row: absolute times do not carry to another machine.")
    yield ""
    yield (f"Beside the library: {others}. Times with ≈ are estimates: those libraries are not in Debian, or their run "
           "takes too long; on another machine they were measured beside one that is in the row, and the ratio is "
           "carried over (`bench/marks.txt`). Everybody gets the input in its own types and keeps the result in them, "
           "fences are defined beforehand, and nobody is timed before all agree on area, length or count. "
           "\"Ratio\" is our time over the best other's, \"n^\" the exponent with which ours grows from the size before.")
    yield ""
    yield (f"**{met} of {len(judged)} goals are met.** A goal is a limit for our time as a multiple of the best other's, "
           "estimates included, of a floor such as memcpy, or for the exponent.")


def write_report(results_file, marks_file, document, images):
    versions, jobs = res.load(results_file)
    res.add_estimates(jobs, res.load_marks(marks_file))
    before_of = smaller(jobs)
    lines = list(introduction(versions, jobs, before_of))
    for family, (title, unit, text) in FAMILIES.items():
        of_family = [results for results in jobs.values() if res.ours(results)["family"] == family]
        if not of_family:
            continue
        picture = pathlib.Path(images) / f"performance-{family}.svg"
        plots.draw(title, unit.split()[0], of_family, picture)
        link = os.path.relpath(picture, pathlib.Path(document).parent)
        lines += ["", f"## {title}", "", f"{text} Times in {unit}.", "", f"![{title}]({link})", ""]
        lines += table(of_family, before_of)
    pathlib.Path(document).write_text("\n".join(lines) + "\n", encoding="utf-8")


def main():
    if len(sys.argv) == 4 and sys.argv[1] == "--left-out":
        print("\n".join(res.left_out(res.load_marks(sys.argv[3]), float(sys.argv[2]))))
    elif len(sys.argv) == 5:
        write_report(*sys.argv[1:])
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()
