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


def validators(form):
    shown = json.loads(output_of("schema", *form, "--registry", registry))["tools"]
    for tool in shown:
        Draft202012Validator.check_schema(tool["inputSchema"])
        assert not {"allOf", "anyOf", "oneOf"} & set(tool["inputSchema"]) or "--conditions" in form
    return {tool["name"]: Draft202012Validator(tool["inputSchema"]) for tool in shown}


def call_of(request):
    call = request.get("params", request)
    return call.get("name", call.get("tool")), call.get("arguments") or {}


common, conditions, strict, lax = (validators(form) for form in ([], ["--conditions"], ["--strict"], ["--open"]))
requests = examples / "repo_daemon.requests.jsonl"
answers = [answer.get("result", answer)
           for answer in map(json.loads, output_of("admit", "--registry", registry, requests).splitlines())]
admitted = [(call_of(json.loads(line)), answer["arguments"])
            for line, answer in zip(requests.read_text().splitlines(), answers) if "arguments" in answer]
assert len(admitted) > 10, "the example requests were not admitted"
filled = []
for (name, arguments), became in admitted:
    common[name].validate(became)
    conditions[name].validate(became)
    lax[name].validate(became)
    lax[name].validate({key: value for key, value in arguments.items() if value is not None})
    properties = strict[name].schema["properties"]
    filled.append({key: became.get(key) for key in properties})
    strict[name].validate(filled[-1])

# What strict function calling sends is admitted as what it stands for.
lines = "".join(json.dumps({"tool": name, "arguments": nulls}) + "\n" for ((name, _), _), nulls in zip(admitted, filled))
again = subprocess.run([command, "admit", "--registry", registry], check=False, capture_output=True, text=True, input=lines)
for line, (_, became) in zip(again.stdout.splitlines(), admitted):
    assert json.loads(line)["arguments"] == became, line

words = {"type", "properties", "required", "additionalProperties", "description", "enum", "items", "anyOf"}


def check_strict(schema):
    assert set(schema) <= words, schema
    if "properties" in schema:
        assert schema["additionalProperties"] is False and schema["required"] == list(schema["properties"]), schema
    for inner in [*schema.get("properties", {}).values(), *schema.get("anyOf", []), *filter(None, [schema.get("items")])]:
        check_strict(inner)


for validator in strict.values():
    check_strict(validator.schema)

refused = [
    (conditions, "search", {}),  # the default action needs a query
    (conditions, "search", {"action": "outline"}),
    (common, "search", {"query": "a", "colour": "red"}),
    (common, "search", {"query": "a", "limit": 101}),
    (common, "search", {"query": "a", "kinds": ["struct"]}),
    (common, "search", {"query": "a", "action": "grep"}),  # a synonym
    (common, "references", {"symbol": "a", "detail": "3"}),
    (common, "references", {}),
    (common, "history", {"path": "a"}),  # no action, and no default one
    (conditions, "history", {"action": "compare", "path": "a"}),
    (common, "ping", {"repo": "a"}),
    (lax, "history", {"path": "a"}),
]
accepted = [
    (conditions, "search", {"action": "stats"}),
    (conditions, "references", {"symbol": "a", "detail": "1"}),
    (conditions, "history", {"action": "log"}),
    (lax, "search", {"query": "a", "limit": "500", "kinds": "class, module", "colour": "red"}),
]
for form, name, arguments in refused:
    assert not form[name].is_valid(arguments), (name, arguments)
for form, name, arguments in accepted:
    form[name].validate(arguments)
