# SPDX-License-Identifier: MIT
"""The tool and the requests of the benchmarks, as files for the command."""
import json
import pathlib
import re

REGISTRY = {"tools": [{
    "name": "search", "actions": [{"name": name} for name in ("find", "list", "outline", "stats")],
    "default_action": "find", "params": [
        {"name": "query", "type": "string", "required_for": ["find"]},
        {"name": "path", "type": "string"},
        {"name": "limit", "type": "integer", "minimum": 1, "maximum": 100, "default": 20},
        {"name": "offset", "type": "integer", "minimum": 0, "default": 0},
        {"name": "threshold", "type": "number", "minimum": 0, "maximum": 1, "default": 0.5},
        {"name": "regex", "type": "boolean", "default": False},
        {"name": "kinds", "type": "array", "items_type": "string",
         "enum": ["function", "class", "module", "variable"]},
        {"name": "mode", "type": "string", "enum": ["exact", "fuzzy", "semantic"], "default": "exact"},
        {"name": "include_private", "type": "boolean", "default": False},
        {"name": "languages", "type": "array", "items_type": "string"},
        {"name": "context_lines", "type": "integer", "minimum": 0, "maximum": 50, "default": 2},
        {"name": "sort", "type": "string", "enum": ["relevance", "path", "recent"], "default": "relevance"}]}]}
REGISTRY["tools"][0]["handler"] = {"parameters": [
    {"name": name} for name in ["action", *(param["name"] for param in REGISTRY["tools"][0]["params"]), "root"]]}
CONTEXT = {"repository": "a repository", "root": "its root", "engines": "its engines"}


def requests():
    """The texts of A, B and C."""
    source = pathlib.Path(__file__).with_name("search_tool.hpp").read_text(encoding="utf-8")
    return dict(re.findall(r'\{"([ABC])",\s*R"\((.*?)\)"\}', source))


def admit_command(program, folder, mixed, count):
    """The command that admits `count` lines of the requests in `mixed`, in turns; its files are written to `folder`."""
    texts = requests()
    lines = [f'{{"tool":"search","arguments":{texts[each]}}}\n' for each in mixed]
    (folder / "registry").write_text(json.dumps(REGISTRY), encoding="utf-8")
    (folder / "context").write_text(json.dumps(CONTEXT), encoding="utf-8")
    with open(folder / "lines", "w", encoding="utf-8") as file:
        file.writelines(lines[number % len(lines)] for number in range(count))
    return [program, "admit", "--registry", folder / "registry", "--context", folder / "context", folder / "lines"]
