# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
"""What is aimed at: a row's time as a multiple of the best other's or of a floor."""
import math
import re

from results import best_peer, bound, ours

BEST = "best other"
# (job, against, limit); every pattern that fits a job holds, except that the first against the best other counts.
RATIOS = [
    (r"polygons/[BC]-\w+/1000+$", BEST, 0.5),
    (r"polylines/\w-(walk|spiral)/", BEST, 0.5),
    (r"many/", BEST, 0.5),
    (r"rect-lines/L[134]-", "memcpy", 2.0),
    (r"growing/", "memcpy", 15.0),
    (r"matrices/points-", "memcpy", 1.2),
    (r"search/", "bare calls", 1.2),
    (r"", BEST, 1.0),
]
# (job, limit) for the growth from the size before.
EXPONENTS = [(r"polygons/[BC]-\w+/100000$", 1.15)]


def ratio(results, against):
    """Our time in units of the other's; None when there is no other."""
    other = best_peer(results) if against == BEST else bound(results, against)
    return ours(results)["ns"] / other["ns"] if other else None


def exponent(results, before):
    """The power of the size with which our time grows; None without a smaller size."""
    if before is None:
        return None
    mine, smaller = ours(results), ours(before)
    return math.log(mine["ns"] / smaller["ns"]) / math.log(mine["size"] / smaller["size"])


def judge(results, before):
    """A list of (against, value, limit) for a job; met when value <= limit."""
    judged, seen = [], set()
    name = ours(results)["job"]
    for pattern, against, limit in RATIOS:
        if against in seen or not re.search(pattern, name):
            continue
        seen.add(against)
        value = ratio(results, against)
        if value is not None:
            judged.append((against, value, limit))
    for pattern, limit in EXPONENTS:
        value = exponent(results, before)
        if value is not None and re.search(pattern, name):
            judged.append(("exponent", value, limit))
    return judged
