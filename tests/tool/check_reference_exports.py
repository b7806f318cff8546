"""The reference exports of each definition are well formed, with an entry for
every option that the help summary lists:
  man: put into a page as a program's own page takes it (.so), it renders
       without a warning from groff;
  rst: it parses with docutils without a warning.
Usage: check_reference_exports.py man|rst OPTKW WORK_DIR DEF..."""

import json
import os
import shutil
import subprocess
import sys


def export(tool, definition, format):
    return subprocess.run([tool, "export", definition, "--format", format],
                          capture_output=True, text=True).stdout


def listed_names(tool, definition):
    model = json.loads(export(tool, definition, "json"))
    return [option["name"] for option in model["options"] if option["listed"]]


def check_man(tool, work, definition):
    stem = os.path.splitext(os.path.basename(definition))[0]
    section = os.path.join(work, stem + ".options")
    page = os.path.join(work, stem + ".1")
    with open(section, "w") as file:
        file.write(export(tool, definition, "man"))
    with open(page, "w") as file:
        file.write(f".TH {stem.upper()} 1\n.SH NAME\n{stem} \\- a program\n.so {section}\n")
    run = subprocess.run(["groff", "-man", "-Tutf8", "-ww", "-P-cbou", page],
                         capture_output=True, text=True)
    assert not run.stderr, f"{definition}: {run.stderr}"
    lines = run.stdout.splitlines()
    assert "OPTIONS" in lines, f"{definition}: no OPTIONS section"
    # An entry's tag stands at the indent of the body text, alone or before it.
    tags = {line.split()[0] for line in lines if line.startswith(" " * 7) and line[7] != " "}
    return [name for name in listed_names(tool, definition) if name not in tags]


def check_rst(tool, definition):
    import docutils.core
    import docutils.utils
    try:
        tree = docutils.core.publish_doctree(
            export(tool, definition, "rst"),
            settings_overrides={"report_level": 2, "halt_level": 2, "warning_stream": False})
    except docutils.utils.SystemMessage as problem:
        sys.exit(f"{definition}: {problem}")
    titles = {node.astext() for node in tree.findall(lambda n: n.tagname == "title")}
    return [name for name in listed_names(tool, definition) if name not in titles]


def main():
    format, tool, work, definitions = sys.argv[1], sys.argv[2], sys.argv[3], sys.argv[4:]
    if format == "man" and not shutil.which("groff"):
        print("groff not installed")
        return
    if format == "rst":
        try:
            import docutils  # noqa: F401
        except ImportError:
            print("docutils not installed")
            return
    os.makedirs(work, exist_ok=True)
    for definition in definitions:
        missing = check_man(tool, work, definition) if format == "man" else check_rst(tool, definition)
        assert not missing, f"{definition}: no {format} entry for {missing}"
    print(format, "ok:", *definitions)


main()
