#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
"""What the report of the benchmarks makes of results and marks."""
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "bench"))
import goals
import report
import results as res


def result(job, who, kind, ns):
    family, task, size = job.split("/")
    return {"job": job, "family": family, "task": task, "size": int(size), "who": who, "kind": kind, "ns": ns}


def marks(text):
    with tempfile.NamedTemporaryFile("w", suffix=".txt") as file:
        file.write(text)
        file.flush()
        return res.load_marks(file.name)


class Marks(unittest.TestCase):
    def test_a_mark_has_a_unit(self):
        self.assertEqual(marks("# comment\n\na/b/1 X 2.5us\na/b/1 Y 3ns\n"), {"a/b/1": {"X": 2500.0, "Y": 3.0}})

    def test_a_run_that_was_given_up_has_no_time(self):
        self.assertEqual(marks("a/b/1 X -\n"), {"a/b/1": {"X": None}})

    def test_long_runs_and_those_given_up_are_left_out(self):
        known = marks("a/b/1 X 19999ms\na/b/1 Y 20001ms\na/b/1 Z -\n")
        self.assertEqual(list(res.left_out(known, 20)), ["a/b/1 Y", "a/b/1 Z"])

    def test_a_time_per_item_is_multiplied_by_the_items_of_a_run(self):
        self.assertEqual(list(res.left_out(marks("many/b/1 X 21ms\n"), 20)), ["many/b/1 X"])


class Estimates(unittest.TestCase):
    def estimates_of(self, *measured, known):
        jobs = {"a/b/1": list(measured)}
        res.add_estimates(jobs, marks(known))
        return {r["who"]: r["ns"] for r in jobs["a/b/1"] if r.get("estimated")}

    def test_a_mark_is_carried_over_by_the_ratio_to_one_who_was_measured(self):
        found = self.estimates_of(result("a/b/1", "Corvane", "ours", 7.0), result("a/b/1", "GEOS", "peer", 30.0),
                                  known="a/b/1 GEOS 10ns\na/b/1 X 5ns\n")
        self.assertEqual(found, {"X": 15.0})

    def test_without_anybody_in_common_there_is_no_estimate(self):
        found = self.estimates_of(result("a/b/1", "Corvane", "ours", 7.0), known="a/b/1 GEOS 10ns\na/b/1 X 5ns\n")
        self.assertEqual(found, {})


class Goals(unittest.TestCase):
    def judged(self, job, *others, before=None):
        mine = [result(job, "Corvane", "ours", 10.0)]
        return goals.judge(mine + [result(job, *other) for other in others], before)

    def test_the_best_other_counts(self):
        self.assertEqual(self.judged("polygons/A-int/1000", ("X", "peer", 8.0), ("Y", "peer", 40.0)),
                         [(goals.BEST, 1.25, 1.0)])

    def test_rough_and_wavy_rings_have_half_the_time_from_1000_vertices_on(self):
        self.assertEqual(self.judged("polygons/B-dif/1000", ("X", "peer", 10.0)), [(goals.BEST, 1.0, 0.5)])
        self.assertEqual(self.judged("polygons/B-dif/100", ("X", "peer", 10.0)), [(goals.BEST, 1.0, 1.0)])

    def test_a_floor_is_no_other_library(self):
        self.assertEqual(self.judged("rect-lines/L1-walk/1000", ("memcpy", "bound", 4.0)), [("memcpy", 2.5, 2.0)])

    def test_growth_is_judged_from_10000_to_100000(self):
        before = [result("polygons/C-int/10000", "Corvane", "ours", 1.0)]
        self.assertEqual(self.judged("polygons/C-int/100000", before=before), [("exponent", 1.0, 1.15)])

    def test_missed_goals_stand_out(self):
        self.assertEqual(report.judgement([(goals.BEST, 0.5, 0.5)]), "≤ 0.5 met")
        self.assertEqual(report.judgement([("memcpy", 2.5, 2.0)]), "2.50 x memcpy, ≤ 2 **missed**")


if __name__ == "__main__":
    unittest.main()
