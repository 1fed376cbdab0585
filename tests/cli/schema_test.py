#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The schemas of the example tools, judged by a validator that is not this project's."""
import json
import pathlib
import subprocess
import sys

try:
    from jsonschema import Draft202012Validator
except ImportError:
    sys.exit(77)

examples, command = pathlib.Path(sys.argv[1]), sys.argv[2]
registry = examples / "repo_daemon.registry.json"


def output_of(*arguments):
    return subprocess.run([command, *arguments], check=False, capture_output=True, text=True).stdout


schemas = {tool["name"]: tool["inputSchema"] for tool in json.loads(output_of("schema", "--registry", registry))["tools"]}
validators = {name: Draft202012Validator(schema) for name, schema in schemas.items()}
for schema in schemas.values():
    Draft202012Validator.check_schema(schema)

answers = output_of("admit", "--registry", registry, examples / "repo_daemon.requests.jsonl").splitlines()
results = [answer.get("result", answer) for answer in map(json.loads, answers)]
admitted = [result for result in results if "arguments" in result]
assert len(admitted) > 10, "the example requests were not admitted"
for result in admitted:
    validators[result["tool"]].validate(result["arguments"])

refused = [
    ("search", {}),  # the default action needs a query
    ("search", {"action": "outline"}),
    ("search", {"query": "a", "colour": "red"}),
    ("search", {"query": "a", "limit": 101}),
    ("search", {"query": "a", "kinds": ["struct"]}),
    ("search", {"query": "a", "action": "grep"}),  # a synonym
    ("references", {"symbol": "a", "detail": "3"}),
    ("references", {}),
    ("history", {"path": "a"}),  # no action, and no default one
    ("history", {"action": "compare", "path": "a"}),
    ("ping", {"repo": "a"}),
]
accepted = [("search", {"action": "stats"}), ("references", {"symbol": "a", "detail": "1"}), ("history", {"action": "log"})]
for name, arguments in refused:
    assert not validators[name].is_valid(arguments), (name, arguments)
for name, arguments in accepted:
    validators[name].validate(arguments)
