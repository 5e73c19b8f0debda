# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
"""Results of a run of corvane_bench, and the marks beside them.

A result is a dictionary: job, family, task, size, items, who, kind, ns (per item, the median), lowest, highest,
repetitions; estimated ones also have "estimated": True. A job is a list of its results, ours first.
"""
import collections
import json

UNITS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
# Whose measured time carries a mark over to this machine; the first that there is in the job.
ANCHORS = ["GEOS", "Boost", "Clipper1", "CGAL", "memcpy"]
# Marks are per item; a whole run has so many.
ITEMS = {"many": 1000, "inside": 10000}


def load(path):
    """(versions, jobs by name in the order of the run)."""
    versions, jobs = {}, collections.OrderedDict()
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            entry = json.loads(line)
            if "versions" in entry:
                versions = entry["versions"]
            else:
                jobs.setdefault(entry["job"], []).append(entry)
    return versions, jobs


def load_marks(path):
    """job -> who -> nanoseconds per item, None for a run that was given up."""
    marks = {}
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            if line.startswith("#") or not line.strip():
                continue
            job, who, text = line.split()
            unit = text.lstrip("0123456789.")
            value = None if text == "-" else float(text[:-len(unit)]) * UNITS[unit]
            marks.setdefault(job, {})[who] = value
    return marks


def left_out(marks, seconds):
    """Lines "job who" of the runs that are expected to take longer."""
    for job, others in marks.items():
        items = ITEMS.get(job.split("/")[0], 1)
        for who, value in others.items():
            if value is None or value * items > seconds * 1e9:
                yield f"{job} {who}"


def add_estimates(jobs, marks):
    """Adds to each job those who have a mark but were not measured, by their ratio to one who was."""
    for name, results in jobs.items():
        measured = {result["who"]: result for result in results}
        known = marks.get(name, {})
        anchor = next((a for a in ANCHORS if a in measured and known.get(a)), None)
        if anchor is None:
            continue
        for who, mark in known.items():
            if who not in measured and mark is not None:
                ns = measured[anchor]["ns"] * mark / known[anchor]
                results.append({**results[0], "who": who, "kind": "peer", "ns": ns, "estimated": True})


def ours(results):
    return results[0]


def best_peer(results):
    peers = [result for result in results if result["kind"] == "peer"]
    return min(peers, key=lambda result: result["ns"]) if peers else None


def bound(results, who):
    return next((result for result in results if result["kind"] == "bound" and result["who"] == who), None)
