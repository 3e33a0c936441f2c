"""Holds the SARIF log of zrd check to the published schema: validate.py ZRD SCHEMA CASES."""

import json
import os
import pathlib
import re
import subprocess
import sys

import jsonschema

program, schema_file, folder = sys.argv[1:]
schema = json.loads(pathlib.Path(schema_file).read_text(encoding="utf-8"))
files = sorted(str(file) for file in pathlib.Path(folder).glob("*.zrd"))


def codes_beside(file):
    """The codes of what is found in a document, from the text that is written beside it."""
    path = pathlib.Path(file)
    text = path.with_suffix(".txt").read_text(encoding="utf-8", errors="replace")
    return re.findall(rf"^{re.escape(path.name)}:.* \[([a-z-]+)\]$", text, re.MULTILINE)


# What the locale cannot hold is found in one of ASCII.
of_ascii = [file for file in files if pathlib.Path(file).name.startswith("text-not-")]
of_unicode = [file for file in files if file not in of_ascii]
runs = [
    ("C", of_ascii, [code for file in of_ascii for code in codes_beside(file)]),
    ("C.UTF-8", of_unicode, [code for file in of_unicode for code in codes_beside(file)]),
    ("C.UTF-8", [folder + "/bad-color.near.zrd"], []),
    ("C.UTF-8", ["-"], ["not-well-formed"]),  # an empty document
]
for locale, chosen, codes in runs:
    command = [program, "check", "--format", "sarif", *chosen]
    environment = {**os.environ, "LC_ALL": locale}
    run = subprocess.run(
        command, input=b"", stdout=subprocess.PIPE, env=environment, check=False
    )
    log = json.loads(run.stdout)
    jsonschema.Draft4Validator(schema).validate(log)
    found = [result["ruleId"] for result in log["runs"][0]["results"]]
    assert found == codes, (command, found, codes)

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
