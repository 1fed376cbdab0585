#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What `compare` calls each change of a registry, its exit status, and that threads change no byte of it."""
import json
import pathlib
import subprocess
import sys
import tempfile

command = str(pathlib.Path(sys.argv[1]).resolve())
scratch = tempfile.TemporaryDirectory()
here = pathlib.Path(scratch.name)
faults = []
SEARCH = {"name": "search", "params": [{"name": "query", "type": "string", "synonyms": ["q"]},
                                       {"name": "limit", "type": "integer", "maximum": 100, "default": 20},
                                       {"name": "kind", "type": "string", "enum": ["file", "symbol"]}]}


def expect(shows, given, expected):
    if given != expected:
        faults.append(f"{shows}:\n  {given}\n  instead of\n  {expected}")


def registry(name, *tools):
    (here / name).write_text(json.dumps({"tools": tools}))
    return name


def changed(place, **members):
    """The tool with other members of one parameter."""
    params = [dict(param) for param in SEARCH["params"]]
    params[place].update(members)
    return {**SEARCH, "params": params}


def run(*arguments, text=""):
    return subprocess.run([command, "compare", *arguments], input=text, capture_output=True, text=True, cwd=here)


old = registry("old.json", SEARCH, {"name": "ping"})
for shows, tools, arguments, change, cause, fails in (
        ("nothing", [SEARCH], {"q": "a", "limit": 5}, None, None, {}),
        ("a synonym taken away", [changed(0, synonyms=[])], {"q": "a"}, "now_refused", "unknown_parameter q", {"refused", "changed"}),
        ("a bound tightened", [changed(1, maximum=50)], {"limit": 70}, "other_arguments", "limit", {"changed"}),
        ("another default", [changed(1, default=10)], {"query": "a"}, "other_keywords", "limit", {"changed"}),
        ("a value renamed", [changed(2, enum=["file", "name"])], {"kind": "symbol"}, "now_refused",
         "unlisted_value kind", {"refused", "changed"}),
        ("a value added", [changed(2, enum=["file", "symbol", "name"])], {"kind": "name"}, "now_admitted", "unlisted_value kind", {}),
        ("a value in another list", [changed(2, enum=["symbol", "file"])], {"kind": "name"}, "other_words", "", {}),
        ("a parameter required", [changed(0, required=True)], {"limit": 5}, "now_refused", "missing_parameter query", {"refused", "changed"}),
        ("a tool renamed", [{**SEARCH, "name": "find"}], {"query": "a"}, "now_refused", "KeyError", {"refused", "changed"})):
    new = registry("new.json", *tools, {"name": "ping"})
    line = json.dumps({"tool": "search", "arguments": arguments}) + "\n"
    for fail_on in ("refused", "changed"):
        done = run("--registry", old, "--with", new, "--json", "--fail-on", fail_on, "-", text=line * 3 + "no\n")
        said = json.loads(done.stdout)
        expect(shows, ([(one["change"], one["cause"], one["times"], one["example"]["line"]) for one in said["changes"]],
                       said["no_requests"], done.returncode),
               ([(change, cause, 3, 1)] if change else [], 1, 1 if fail_on in fails else 0))
    expect("renamed", said["gone_tools"],
           [{"tool": "search", "renamed_to": "find"}] if shows == "a tool renamed" else [])
    page = run("--registry", old, "--with", new, text=line)
    expect(f"the page on {shows}", (change or "1 of 1 request is answered as before").replace("_", " ") in page.stdout,
           True)

# Both answers of every changed line, in order, from any number of threads.
new = registry("new.json", changed(1, maximum=50), {"name": "pong"})
lines = [{"tool": "search", "arguments": {"limit": n % 90}} if n % 5 else {"tool": "ping"} for n in range(30000)]
(here / "log").write_text("".join(json.dumps(line) + "\n" for line in lines))
listed = run("--registry", old, "--with", new, "--list", "log").stdout
expect("the changed lines", [json.loads(line)["line"] for line in listed.splitlines()],
       [n for n, line in enumerate(lines, 1) if line["tool"] == "ping" or line["arguments"]["limit"] > 50])
first = json.loads(listed.splitlines()[0])
expect("both answers", (first["before"], first["after"]),
       ({"arguments": {}, "notes": [], "keywords": {}}, {"error": "KeyError", "message": "no tool is named 'ping'"}))
for options in (["--list"], ["--json"], []):
    expect("3 jobs", run("--registry", old, "--with", new, *options, "--jobs", "3", "log").stdout ==
           run("--registry", old, "--with", new, *options, "log").stdout, True)

bad = registry("bad.json", {"name": "a", "params": [{"name": "x", "type": "text"}]}, {"name": "a"})
worse = registry("worse.json", {"name": ""})
for arguments, status, words in (
        (("--registry", bad, "--with", worse), 2, ("bad.json: line 1: tools[0]", "tools[1].name", "worse.json: line 1")),
        (("--registry", old), 2, ("--with is required",)),
        (("--registry", old, "--with", "-", "-"), 2, ("standard input is one file only",)),
        (("--registry", old, "--with", new, "--json", "--list"), 2, ("--list",)),
        (("--registry", old, "--with", new, "--fail-on", "words"), 2, ("--fail-on",))):
    done = run(*arguments)
    expect(arguments, (done.returncode, [word for word in words if word not in done.stderr], done.stdout),
           (status, [], ""))
empty = run("--registry", old, "--with", new)
expect("an empty log", (empty.returncode, "The log is empty" in empty.stdout), (0, True))

sys.exit("\n".join(faults) or 0)
