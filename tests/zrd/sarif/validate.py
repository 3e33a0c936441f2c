"""Holds the SARIF log of zrd check to the published schema: validate.py ZRD SCHEMA CASES."""

import json
import pathlib
import subprocess
import sys

import jsonschema

program, schema_file, folder = sys.argv[1:]
schema = json.loads(pathlib.Path(schema_file).read_text(encoding="utf-8"))
files = sorted(str(file) for file in pathlib.Path(folder).glob("*.zrd"))
for chosen in (files, files[:1], []):
    command = [program, "check", "--format", "sarif", *(chosen or ["-"])]
    run = subprocess.run(command, input=b"", stdout=subprocess.PIPE, check=False)
    log = json.loads(run.stdout)
    jsonschema.Draft4Validator(schema).validate(log)
    assert len(log["runs"][0]["results"]) > 0 or chosen == files[:1], command

# What could not be read, and what was left out.
missing = pathlib.Path(folder) / "none.zrd"
command = [program, "check", "--format", "sarif", "--max", "1", str(missing), *files]
run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
log = json.loads(run.stdout)
jsonschema.Draft4Validator(schema).validate(log)
invocation = log["runs"][0]["invocations"][0]
assert not invocation["executionSuccessful"]
levels = [about["level"] for about in invocation["toolExecutionNotifications"]]
assert levels[0] == "error" and levels.count("note") > 1, levels
