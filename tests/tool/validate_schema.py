"""The JSON Schema that optkw exports takes the example settings and refuses a
wrong type, a number out of range, an unknown enumerated value and an unknown
option. Usage: validate_schema.py OPTKW DEFINITION SETTINGS"""

import copy
import json
import subprocess
import sys

import jsonschema

tool, definition, settings_file = sys.argv[1:4]
schema = json.loads(subprocess.run([tool, "export", definition, "--format", "json-schema"],
                                   check=True, capture_output=True, text=True).stdout)
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)
with open(settings_file) as file:
    settings = json.load(file)
errors = list(validator.iter_errors(settings))
assert not errors, [e.message for e in errors]

for change, what in [({"iteration_limit": "many"}, "a wrong type"),
                     ({"markowitz_tol": 1.5}, "a number out of range"),
                     ({"method": "simplex"}, "an unknown enumerated value"),
                     ({"step_bounds": [0.1]}, "one value of two"),
                     ({"iteration_limt": 5}, "an unknown option")]:
    wrong = copy.deepcopy(settings)
    wrong.update(change)
    assert not validator.is_valid(wrong), f"the schema takes {what}: {change}"
print("schema ok")
