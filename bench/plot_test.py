"""Tests of plot.py: which runs become points, the ticks, and where the points land."""
import io
import json
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from contextlib import redirect_stderr
from pathlib import Path

import plot

SVG = "{http://www.w3.org/2000/svg}"


def run(method, options, statements, ns, **extra):
    name = f"parameters/{method}/options:{options}/statements:{statements}"
    return {"name": name, "run_name": name, "run_type": "iteration", "options": options,
            "statements": statements, "ns_per_statement": ns, **extra}


RESULTS = {"benchmarks": [
    run("normal", 100, 1000, 250.0), run("normal", 100, 1000, 200.0),  # repeated: fastest counts
    run("normal", 10000, 1000, 300.0),
    run("path", 100, 1000, 180.0), run("path", 10000, 1000, 90.0, error_occurred=True),
    run("minos", 1000, 1000, 400.0, run_type="aggregate"),
    run("mixed_types", 100, 1000, 1.0),
    run("normal", 100, 100000, 210.0),
    {"name": "definition/normal/options:100/manual_time", "run_type": "iteration",
     "options": 100, "ns_per_byte": 9.0},
]}


class SeriesTest(unittest.TestCase):
    def test_clean_runs_of_the_lookup_methods_at_one_size(self):
        self.assertEqual(plot.series(RESULTS, 1000),
                         {"normal": [(100, 200.0), (10000, 300.0)], "path": [(100, 180.0)]})
        self.assertEqual(plot.series(RESULTS, 100000), {"normal": [(100, 210.0)]})

    def test_default_size_is_the_largest(self):
        self.assertEqual(plot.largest_statements(RESULTS), 100000)
        self.assertIsNone(plot.largest_statements({"benchmarks": []}))


class TickStepTest(unittest.TestCase):
    def test_steps_of_one_two_five_and_at_most_eight_parts(self):
        for top in (0.37, 8, 9, 41.5, 99, 100, 415, 1234, 8e5):
            step = plot.tick_step(top)
            self.assertLessEqual(top / step, 8, top)
            self.assertGreater(top / step, 1.5, top)
            mantissa = step / 10 ** int(f"{step:e}".split("e")[1])
            self.assertIn(round(mantissa, 9), (1, 2, 5), top)


class SvgTest(unittest.TestCase):
    def test_points_on_a_log_scale_and_one_legend_entry_per_method(self):
        found = {"normal": [(100, 200.0), (1000, 250.0), (10000, 300.0)], "minos": [(100, 90.0)]}
        root = ElementTree.fromstring(plot.svg(found, 1000))
        lines = root.findall(f"{SVG}polyline")
        self.assertEqual(len(lines), 2)
        xs = [float(p.split(",")[0]) for p in lines[0].get("points").split()]
        self.assertAlmostEqual(xs[0], plot.LEFT)
        self.assertAlmostEqual(xs[2], plot.WIDTH - plot.RIGHT)
        self.assertAlmostEqual(xs[1], (xs[0] + xs[2]) / 2, delta=0.1)
        labels = [t.text for t in root.findall(f"{SVG}text")]
        self.assertIn("Normal lookup", labels)
        self.assertIn("Minos lookup", labels)
        self.assertNotIn("Path lookup", labels)

    def test_file_without_lookup_runs_is_refused(self):
        with tempfile.TemporaryDirectory() as folder:
            results = Path(folder) / "r.json"
            results.write_text(json.dumps({"benchmarks": RESULTS["benchmarks"][-1:]}))
            with redirect_stderr(io.StringIO()), self.assertRaises(SystemExit) as stop:
                plot.main([str(results), str(Path(folder) / "out.svg")])
            self.assertIn("no clean parameters/<method> runs", str(stop.exception.code))
            self.assertFalse((Path(folder) / "out.svg").exists())


if __name__ == "__main__":
    unittest.main()
