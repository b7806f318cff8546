#!/usr/bin/env python3
"""Runs optkw_bench at its tiny size and checks its JSON, then draws the plot from it.

    smoke_test.py PATH/TO/optkw_bench PATH/TO/plot.py

Every benchmark must be there without an error and with its figure: a workload that
leaves messages or misses its option shows as an error in the JSON.
"""
import json
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

METHODS = ("normal", "path", "minos")
FIGURES = {f"parameters/{kind}": "ns_per_statement" for kind in METHODS + ("mixed_types",)}
FIGURES.update({f"definition/{kind}": "ns_per_byte" for kind in METHODS})
SETTERS = ("setter/int_by_number", "setter/double_by_number", "setter/text_by_number")
FULL_QUEUE = 5001  # 5000 messages and the one that says the limit was reached


def fail(message):
    sys.exit(f"bench_smoke: {message}")


def run(bench, out):
    command = [bench, "--smoke", "--benchmark_min_time=0.01", f"--benchmark_out={out}",
               "--benchmark_out_format=json"]
    done = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True,
                          timeout=100)
    if done.returncode != 0:
        fail(f"exit status {done.returncode}\n{done.stderr}")
    with open(out, encoding="utf-8") as f:
        return json.load(f)["benchmarks"]


def check_runs(runs):
    seen = {}
    for run in runs:
        if run.get("error_occurred"):
            fail(f"{run['name']}: {run.get('error_message')}")
        family = "/".join(run["name"].split("/")[:2])
        seen.setdefault(family, []).append(run)
    for family, counter in FIGURES.items():
        if not any(run.get(counter, 0) > 0 for run in seen.get(family, [])):
            fail(f"no {family} run with a positive {counter}")
    for family in SETTERS:
        queues = sorted(int(run["queued"]) for run in seen.get(family, []))
        if queues != [0, FULL_QUEUE]:
            fail(f"{family} ran with queues {queues}, not empty and full")


def check_plot(plot, results, svg):
    done = subprocess.run([sys.executable, plot, results, svg], capture_output=True, text=True)
    if done.returncode != 0:
        fail(f"plot.py: {done.stderr}")
    root = ElementTree.parse(svg).getroot()
    polylines = root.findall("{http://www.w3.org/2000/svg}polyline")
    if len(polylines) != len(METHODS):
        fail(f"the plot has {len(polylines)} lines, not one per lookup method")


def main(bench, plot):
    with tempfile.TemporaryDirectory() as folder:
        results = str(Path(folder) / "results.json")
        check_runs(run(bench, results))
        check_plot(plot, results, str(Path(folder) / "plot.svg"))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
