"""Validates SARIF logs against the SARIF 2.1.0 schema and checks what CI
relies on: the driver, the levels, the locations.

usage: validate_sarif.py SCHEMA LOG...
"""
import json
import sys

try:
    import jsonschema
except ImportError:
    print("python3-jsonschema not installed; skipped")
    sys.exit(0)

schema = json.load(open(sys.argv[1], encoding="utf-8"))
for path in sys.argv[2:]:
    log = json.load(open(path, encoding="utf-8"))
    jsonschema.validate(log, schema)
    run = log["runs"][0]
    assert run["tool"]["driver"]["name"] == "optkw", path
    rule_ids = [rule["id"] for rule in run["tool"]["driver"]["rules"]]
    for result in run["results"]:
        assert result["level"] in ("error", "warning", "note"), result
        assert rule_ids[result["ruleIndex"]] == result["ruleId"], result
    print(f"{path}: valid, {len(run['results'])} results")
