#!/usr/bin/env python3
"""The reading of a count, whose an instruction is, and the fit."""
import math
import tempfile
import unittest
from pathlib import Path

from instructions import HOST, NEUTRAL, SIMULATION, Reader, own_name, side_of
from measure import LIMIT, fit_exponent

SIZES = (1, 10, 100, 500, 1000, 2000)
PROGRAM = "/bin/orvane-sim"

# The host looks a window up: both it and the platform take memory, and the host's list is sorted.
COUNTED = """# callgrind format
part: 1
desc: Trigger: Program termination
positions: line
events: Ir
ob=(1) /bin/orvane-sim
fn=(1) orvane::(anonymous namespace)::inventoryWindow(HWND__*, orvane::DiscoveryPass&)
0 100
cob=(2) /lib/libc.so.6
cfn=(2) malloc
calls=3 0
0 30
cfn=(3) IsWindow
calls=1 0
0 80
cfn=(4) void std::sort<orvane::TabCandidate*>(orvane::TabCandidate*, orvane::TabCandidate*)
calls=1 0
0 60

fn=(3)
0 20
cob=(2)
cfn=(2)
calls=6 0
0 60

fn=(4)
0 50
cfn=(5) orvane::TabCandidate::TabCandidate(orvane::TabCandidate&&)
calls=2 0
0 10

fn=(5)
0 10

ob=(2)
fn=(2)
0 90
totals: 270
"""


def counts(function):
    return {size: round(function(size)) for size in SIZES}


class Fit(unittest.TestCase):
    def test_fit_is_one_for_a_line_whatever_its_constant(self):
        for constant in (0, 500, 10**7):
            self.assertAlmostEqual(fit_exponent(counts(lambda size: constant + 39000 * size)), 1.0, places=3)

    def test_fit_is_over_the_limit_where_work_grows_faster(self):
        self.assertGreater(fit_exponent(counts(lambda size: 10**6 + 3 * size**2)), 1.9)
        self.assertGreater(fit_exponent(counts(lambda size: 500 + 40 * size * math.log2(size + 1))), LIMIT)
        self.assertGreater(fit_exponent(counts(lambda size: 10**5 + 900 * size + 0.5 * size**2)), LIMIT)


class Sides(unittest.TestCase):
    def test_own_name_leaves_type_parameters_and_template_arguments_away(self):
        self.assertEqual(own_name("orvane::UniqueResource<orvane::BstrTraits>::reset(wchar_t*)"),
                         "orvane::UniqueResource::reset")
        self.assertEqual(own_name("orvane::ComReference<A> orvane::(anonymous namespace)::findPattern<A>(B*, int)'2"),
                         "orvane::{anonymous}::findPattern")

    def test_side_goes_by_the_name(self):
        for function, side in (("orvane::bringForward(HWND__*)", HOST),
                               ("orvane::simulation::Desktop::focused() const", SIMULATION),
                               ("SetFocus", SIMULATION),
                               ("std::vector<orvane::TabCandidate>::push_back(orvane::TabCandidate&&)", NEUTRAL),
                               ("std::vector<orvane::simulation::Element*>::push_back(orvane::simulation::Element*&&)",
                                NEUTRAL)):
            self.assertEqual(side_of(function, PROGRAM, PROGRAM), side, function)
        self.assertEqual(side_of("malloc", "/lib/libc.so.6", PROGRAM), NEUTRAL)


class Reading(unittest.TestCase):
    def read(self, text):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "counted"
            path.write_text(text, encoding="utf-8")
            return Reader().read(path)

    def test_memory_counts_for_the_side_that_takes_it(self):
        [profile] = self.read(COUNTED)
        # Its own, the sort with what it moves, and a third of what memory took.
        self.assertEqual(profile.host_instructions(PROGRAM), 100 + 50 + 10 + 30)

    def test_a_part_counts_what_lies_below_it_alone(self):
        [profile] = self.read(COUNTED)
        self.assertEqual(profile.host_instructions(PROGRAM, "orvane::TabCandidate::TabCandidate"), 10)

    def test_a_dump_that_does_not_add_up_is_refused(self):
        with self.assertRaises(ValueError):
            self.read(COUNTED.replace("totals: 270", "totals: 271"))


if __name__ == "__main__":
    unittest.main()
