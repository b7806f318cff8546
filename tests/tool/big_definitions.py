"""Runs optkw help and lint on definitions of thousands of options, made here.

The library renders a listing in one go and stops at 5,000 messages; the tool
must give the whole listing all the same. On smaller definitions, which the
library lists whole, the tool's piecewise listing must equal the library's.

usage: big_definitions.py TOOL WORKDIR
"""
import json
import os
import subprocess
import sys

GROUPS = 10


def listing_definition(count):
    """A Normal-lookup definition, and the number of lines each listing has."""
    lines = ["* generated: %d options" % count]
    for g in range(1, GROUPS + 1):
        lines.append("group%d group %d 1 Group number %d" % (g, g, g))
    summary = 2 + 2 * GROUPS  # blank, title, and a blank and a title per group
    alphabetical = 3  # blank, title, blank, and the entries
    last = None
    for k in range(count):
        name = "a_rather_long_option_name_%d" % k if k % 7 == 0 else "option_%d" % k
        group = k % GROUPS + 1
        kind = k % 5
        if kind == 0:
            lines += ["%s integer %d 5 0 maxint 1 %d Integer %d" % (name, k, group, k),
                      " counted per pass"]
            entry = 3
        elif kind == 1:
            lines.append("%s boolean %d 1 1 %d Boolean %d" % (name, k, group, k))
            entry = 2
        elif kind == 2:
            lines.append("%s double %d 0.5 0 maxdouble 1 %d Double %d" % (name, k, group, k))
            entry = 2
        elif kind == 3:
            lines += ["%s enumstr %d fast 1 %d Mode %d" % (name, k, group, k),
                      " fast 1 Quick", " full 1 Thorough", " none 1 Nothing"]
            entry = 5
        else:
            lines.append('%s string %d "" 1 %d String %d' % (name, k, group, k))
            entry = 2
        summary += 1 if len(name) <= 22 else 2
        alphabetical += entry
        if k % 50 == 0:
            lines.append("syn_%d synonym %s" % (k, name))
            summary += 2  # a synonym's label is long
        last = name
    return "\n".join(lines) + "\n", {"1": summary, "2": alphabetical, "3": summary + alphabetical}


def lint_definition(count):
    """A Path-lookup definition with names the lookup can't reach."""
    lines = ["all group 1 1 All options"]
    expected = {"lookup-duplicate": 0, "short-word": 0, "enum-case-duplicate": 0}
    for k in range(count):
        if k % 3 == 0:
            lines.append("solver/param%d integer %d 0 0 9 1 1 Param %d" % (k, k, k))
            expected["lookup-duplicate"] += k > 0
        elif k % 3 == 1:
            lines.append("lp_option%d integer %d 0 0 9 1 1 Option %d" % (k, k, k))
            expected["short-word"] += 1
        else:
            n = k // 3
            word = "".join(chr(ord("a") + (n // 26 ** i) % 26) for i in range(3))
            lines.append("%s_choice enumstr %d x 1 1 Choice %d" % (word, k, k))
            lines.append(" x 1 One")
            if n % 10 == 0:
                lines += [" C 1 Primal", " c 1 Dual"]
                expected["enum-case-duplicate"] += 1
    lines.append("Path lookup")
    return "\n".join(lines) + "\n", expected


def run(tool, *args, cwd):
    return subprocess.run([tool, *args], cwd=cwd, capture_output=True, text=True)


failures = []


def check(condition, what):
    if not condition:
        failures.append(what)


def main():
    tool, workdir = sys.argv[1], sys.argv[2]
    os.makedirs(workdir, exist_ok=True)

    text, counts = listing_definition(3000)
    with open(os.path.join(workdir, "big.def"), "w") as f:
        f.write(text)
    for mode in ("1", "2", "3"):
        result = run(tool, "help", "big.def", mode, cwd=workdir)
        out = result.stdout.split("\n")[:-1]
        check(result.returncode == 0, "help mode %s exits %d" % (mode, result.returncode))
        check(len(out) == counts[mode], "help mode %s gives %d lines, not %d"
              % (mode, len(out), counts[mode]))
        check(not any(line.startswith("Maximum of") for line in out), "help mode %s cut" % mode)
    last = run(tool, "help", "big.def", "2", cwd=workdir).stdout.split("\n")
    check(last[-3] == "option_2999: String 2999", "the last entry isn't the last: %r" % last[-3:])
    result = run(tool, "help", "big.def", "optoin_12", cwd=workdir)
    check(result.returncode == 1 and "hint:" in result.stderr, "help nosuch: %r" % result.stderr)

    # Small enough for the library: the tool's pieces must give its very text.
    text, _ = listing_definition(400)
    with open(os.path.join(workdir, "small.def"), "w") as f:
        f.write(text)
    for mode in ("1", "2", "3", "9"):
        library = run(tool, "help", "small.def", mode, cwd=workdir).stdout
        pieces = run(tool, "help", "small.def", mode, "--piecewise", cwd=workdir).stdout
        check(library == pieces, "piecewise mode %s differs from the library's" % mode)

    text, expected = lint_definition(3000)
    with open(os.path.join(workdir, "paths.def"), "w") as f:
        f.write(text)
    result = run(tool, "lint", "paths.def", "--format", "json", cwd=workdir)
    check(result.returncode == 1, "lint exits %d" % result.returncode)
    found = {}
    for record in json.loads(result.stdout):
        found[record["code"]] = found.get(record["code"], 0) + 1
    for code, count in expected.items():
        check(found.get(code, 0) == count, "lint: %d %s, not %d" % (found.get(code, 0), code, count))
    result = run(tool, "help", "paths.def", "2", cwd=workdir)
    entries = sum(1 for line in result.stdout.split("\n") if line.startswith("                        "))
    check(result.returncode == 0 and entries >= 3000,
          "help on paths.def: exit %d, %d type lines" % (result.returncode, entries))

    for failure in failures:
        print("FAILED:", failure)
    print("%d checks failed" % len(failures) if failures else "all checks passed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
