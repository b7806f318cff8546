#!/usr/bin/env python3
"""Plots ns per statement against the number of options, one line per lookup method.

    plot.py RESULTS.json OUT.svg [--statements N]

RESULTS.json is what `optkw_bench --benchmark_out=RESULTS.json --benchmark_out_format=json`
wrote. The runs parameters/normal, parameters/path and parameters/minos with N statements
give the points (N defaults to the largest in the file; of repeated runs the fastest counts).
The SVG is written here by hand, so that no plotting library is needed.
"""
import argparse
import json
import math
import sys

METHODS = [("normal", "Normal", "#1b6ca8"), ("path", "Path", "#d1495b"),
           ("minos", "Minos", "#3a9d5d")]
WIDTH, HEIGHT = 640, 400
LEFT, RIGHT, TOP, BOTTOM = 70, 140, 40, 60


def lookup_runs(results):
    """(method, options, statements, ns per statement) of each clean parameter run."""
    known = {key for key, _, _ in METHODS}
    for run in results.get("benchmarks", []):
        parts = run.get("run_name", run["name"]).split("/")
        if (parts[0] != "parameters" or len(parts) < 2 or parts[1] not in known
                or run.get("run_type") == "aggregate" or run.get("error_occurred")
                or "ns_per_statement" not in run):
            continue
        yield parts[1], int(run["options"]), int(run["statements"]), run["ns_per_statement"]


def series(results, statements):
    """{method: [(options, ns per statement)]}, sorted by options, at `statements`."""
    best = {}
    for method, options, n, ns in lookup_runs(results):
        if n == statements:
            key = (method, options)
            best[key] = min(ns, best.get(key, ns))
    found = {}
    for (method, options), ns in sorted(best.items()):
        found.setdefault(method, []).append((options, ns))
    return found


def largest_statements(results):
    return max((n for _, _, n, _ in lookup_runs(results)), default=None)


def tick_step(top):
    """A step of 1, 2 or 5 times a power of ten that cuts 0..top into at most 8 parts."""
    power = 10 ** math.floor(math.log10(top / 8)) if top > 0 else 1
    for factor in (1, 2, 5, 10):
        if top / (factor * power) <= 8:
            return factor * power
    return 10 * power


class Frame:
    """The plot area: log scale across for the options, linear up for the time."""

    def __init__(self, xs, top):
        self.lo, self.hi = math.log10(min(xs)), math.log10(max(xs))
        self.top = top

    def x(self, options):
        span = self.hi - self.lo or 1.0
        return LEFT + (math.log10(options) - self.lo) / span * (WIDTH - LEFT - RIGHT)

    def y(self, ns):
        return HEIGHT - BOTTOM - ns / self.top * (HEIGHT - TOP - BOTTOM)


def text(x, y, content, anchor="middle", extra=""):
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}"{extra}>{content}</text>'


def line(x1, y1, x2, y2, colour, width=1):
    return (f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" '
            f'stroke="{colour}" stroke-width="{width}"/>')


def axes(frame, xs):
    out = []
    step = tick_step(frame.top)
    for k in range(int(frame.top / step) + 1):
        y = frame.y(k * step)
        out.append(line(LEFT, y, WIDTH - RIGHT, y, "#ddd"))
        out.append(text(LEFT - 8, y + 4, f"{k * step:g}", "end"))
    for options in xs:
        x = frame.x(options)
        out.append(line(x, TOP, x, HEIGHT - BOTTOM, "#eee"))
        out.append(text(x, HEIGHT - BOTTOM + 18, f"{options:,}"))
    out.append(line(LEFT, HEIGHT - BOTTOM, WIDTH - RIGHT, HEIGHT - BOTTOM, "black"))
    out.append(line(LEFT, TOP, LEFT, HEIGHT - BOTTOM, "black"))
    out.append(text((LEFT + WIDTH - RIGHT) / 2, HEIGHT - 18, "options defined (log scale)"))
    out.append(text(0, 0, "ns per statement",
                    extra=f' transform="translate(20 {(TOP + HEIGHT - BOTTOM) / 2}) rotate(-90)"'))
    return out


def lines(frame, found):
    out = []
    for row, (method, label, colour) in enumerate(METHODS):
        points = found.get(method)
        if not points:
            continue
        path = " ".join(f"{frame.x(x):.1f},{frame.y(y):.1f}" for x, y in points)
        out.append(f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="2"/>')
        for x, y in points:
            out.append(f'<circle cx="{frame.x(x):.1f}" cy="{frame.y(y):.1f}" r="4" '
                       f'fill="{colour}"><title>{label}, {x:,} options: {y:.0f} ns</title></circle>')
        legend_y = TOP + 20 + 22 * row
        out.append(line(WIDTH - RIGHT + 20, legend_y, WIDTH - RIGHT + 45, legend_y, colour, 2))
        out.append(text(WIDTH - RIGHT + 52, legend_y + 4, f"{label} lookup", "start"))
    return out


def svg(found, statements):
    xs = sorted({x for points in found.values() for x, _ in points})
    top = max(y for points in found.values() for _, y in points) * 1.15
    frame = Frame(xs, top)
    out = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}" '
           f'font-family="sans-serif" font-size="12">',
           f'<rect width="{WIDTH}" height="{HEIGHT}" fill="white"/>',
           text(WIDTH / 2, 22, f"Parameter text: ns per statement ({statements:,} statements)",
                extra=' font-size="14"')]
    out += axes(frame, xs) + lines(frame, found)
    out.append("</svg>")
    return "\n".join(out) + "\n"


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("results")
    parser.add_argument("out")
    parser.add_argument("--statements", type=int)
    args = parser.parse_args(argv)
    with open(args.results, encoding="utf-8") as f:
        results = json.load(f)
    statements = args.statements or largest_statements(results)
    found = series(results, statements) if statements else {}
    if not found:
        sys.exit(f"plot.py: {args.results} has no clean parameters/<method> runs"
                 + (f" of {statements} statements" if statements else ""))
    with open(args.out, "w", encoding="utf-8") as f:
        f.write(svg(found, statements))


if __name__ == "__main__":
    main(sys.argv[1:])
