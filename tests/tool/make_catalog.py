"""Writes a catalog definition of many options and a parameter file whose
first line asks for the whole help listing, which fills the message queue;
and a long parameter file whose echo lines fill it.

usage: make_catalog.py DIR [COUNT]
"""
import pathlib
import sys

directory = pathlib.Path(sys.argv[1])
count = int(sys.argv[2]) if len(sys.argv) > 2 else 6000
directory.mkdir(parents=True, exist_ok=True)
lines = ["* A catalog of many options, made by make_catalog.py.", "all group 1 1 All options"]
for k in range(1, count + 1):
    lines += [f"option_{k:05d} integer {k} 0 0 100 1 1 Option number {k}", " More about it."]
(directory / "catalog.def").write_text("\n".join(lines) + "\n")
(directory / "catalog.opt").write_text(
    "help\noption_00001 5\noption_0002 7\noption_00003 500\noption_00004 50\n")
(directory / "catalog-next.opt").write_text("option_00005 1000\n")
(directory / "echoed.opt").write_text("option_00001 1\n" * 5100 + "option_0001 2\n")
