#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What `report` counts, advises and refuses, and that neither threads nor merging change a byte of it."""
import html.parser
import json
import pathlib
import subprocess
import sys
import tempfile

command = str(pathlib.Path(sys.argv[1]).resolve())
scratch = tempfile.TemporaryDirectory()
here = pathlib.Path(scratch.name)
faults = []
REGISTRY = {"tools": [
    {"name": "search", "actions": [{"name": "find", "synonyms": ["lookup"]}, {"name": "list"}],
     "default_action": "find",
     "params": [{"name": "query", "type": "string", "synonyms": ["q"], "required_for": ["find"]},
                {"name": "limit", "type": "integer", "synonyms": ["top"], "maximum": 100},
                {"name": "kind", "type": "string", "enum": ["file", "symbol"]},
                {"name": "next", "type": "integer"}]},
    {"name": "ping"},
    {"name": "scale", "params": [{"name": "by", "type": "number", "required": True}]}]}


def expect(shows, given, expected):
    if given != expected:
        faults.append(f"{shows}:\n  {given}\n  instead of\n  {expected}")


def run(*arguments, text=""):
    return subprocess.run([command, "report", *arguments], input=text, capture_output=True, text=True, cwd=here)


def file(name, content):
    (here / name).write_text(content)
    return name


def lines(*arguments_of_calls):
    return "".join(json.dumps({"tool": "search", "arguments": one}) + "\n" for one in arguments_of_calls)


def report(text, *options):
    done = run("--registry", registry, "--json", *options, text=text)
    expect("status and errors", (done.returncode, done.stderr), (0, ""))
    return json.loads(done.stdout)


registry = file("registry.json", json.dumps(REGISTRY))

# What each request counts as, and the rows that it gives: kind, parameter and value.
for arguments, outcome, rows in (
        ({"query": "a"}, "clean", []),
        ({"query": "a", "limit": None}, "clean", []),
        ({"q": "a"}, "repaired", [("synonym_read", "query", "q")]),
        ({"query": "b", "q": "a"}, "repaired", [("synonym_left_out", "query", "q")]),
        ({"query": "a", "action": "lookup"}, "repaired", [("action_synonym_read", None, "lookup")]),
        ({"query": "a", "limit": "5"}, "repaired", [("coerced", "limit", "text as integer")]),
        ({"query": "a", "limit": 500}, "repaired", [("above_maximum", "limit", "500")]),
        ({"query": "a", "kind": "FILE"}, "repaired", [("coerced", "kind", "spelled otherwise")]),
        ({"query": "a", "limit": " "}, "repaired", [("blank_left_out", "limit", " ")]),
        ({}, "refused", [("missing_parameter", "query", "find")]),
        ({"query": "a", "limit": "many"}, "refused", [("wrong_type", "limit", '"many"')]),
        ({"query": "a", "kind": "dir"}, "refused", [("unlisted_value", "kind", "dir")]),
        ({"action": "lst"}, "refused", [("unknown_action", None, "lst")]),
        ({"query": "a", "limt": 5}, "refused", [("unknown_parameter", None, "limt")])):
    said = report(lines(arguments))
    tool = said["tools"][0]
    seen = [(row["kind"], row.get("parameter"), value["value"]) for row in tool["rows"] for value in row["values"]]
    expect(arguments, (seen, [name for name in ("clean", "repaired", "refused") if said[name]]), (rows, [outcome]))
    for row in tool["rows"]:
        expect("an example", row["values"][0]["example"],
               {"file": "-", "line": 1, "request": lines(arguments).rstrip()})

expect("a number without a fraction", report('{"tool": "scale", "arguments": {"by": 5}}\n')["clean"], 1)
expect("a value that is wrong, and not missing",
       [row["kind"] for row in report('{"tool": "scale", "arguments": {"by": []}}\n')["tools"][2]["rows"]], ["wrong_type"])

wrong = report('{"tool": "serch"}\n\n{"tool"\n[]\n{"jsonrpc": "2.0", "id": 1, "method": "tools/call", '
               '"params": {"name": "ping"}}\n')
expect("other lines", [wrong["requests"], wrong["clean"], wrong["refused"], wrong["no_requests"]["times"],
                       wrong["unknown_tools"]["values"][0]["value"]], [2, 1, 1, 3, "serch"])

# A rule speaks from its least count on, and its lines mend the requests that it is about.
clean = {"query": "a"}
for rule, least, call, subject, advised in (
        ("add_synonym", 10, {"text": "a"}, "query", '"synonyms": ["q", "text"]'),
        ("add_synonym", 10, {"query": "a", "limt": 5}, "limit", '"synonyms": ["top", "limt"]'),
        ("add_action_synonym", 10, {"action": "lst"}, "list", '"synonyms": ["lst"]'),
        ("add_value", 10, {"query": "a", "kind": "dir"}, "kind", '"enum": ["file", "symbol", "dir"]'),
        ("widen_bound", 10, {"query": "a", "limit": 500}, "limit", '"maximum": 500'),
        ("add_default", 10, {}, "query", '"default": ""'),
        ("drop_unused", 300, clean, None, None)):
    for times in (least - 1, least):
        found = [(one.get("subject"), one.get("lines")) for one in report(lines(*[call] * times))["advice"]
                 if one["rule"] == rule]
        expect(f"{rule} on {times} of {call}", found, [(subject, advised)] if times == least else [])
    thin = report(lines(*[call] * least, *[clean] * 25 * least, *[{"query": "a", "limit": 5, "kind": "file"}] * 250))
    if rule not in ("add_synonym", "drop_unused"):
        expect(f"{rule} on a small share", [one for one in thin["advice"] if one["rule"] == rule], [])

# More names than are counted exactly: still the same bytes from any number of threads, and said to be inexact.
many = "".join(lines({"query": "a", f"name {n * n % 4001}": 1}, {"text": "x" * (n % 50)}) for n in range(12000))
log = file("log", many)
one = run("--registry", registry, "--json", log).stdout
for jobs in ("2", "5", "0"):
    expect(f"{jobs} jobs", run("--registry", registry, "--json", "--jobs", jobs, log).stdout == one, True)
rows = {row["kind"]: row for row in json.loads(one)["tools"][0]["rows"]}
expect("an exact row", "shortfall" in rows["missing_parameter"], False)
expect("a bounded row", 0 < rows["unknown_parameter"]["shortfall"] <= 2 * 24000 // 1024, True)
page = run("--registry", registry, log).stdout
expect("the page says so", "too many different ones to count each" in page, True)

# Parts make the whole.
parts = [file(f"part{n}", lines({"query": "a", "limit": 400 + n}, {"text": "x"}, {"q": "\x1b[31m"}) + "no\n")
         for n in range(3)]
whole = run("--registry", registry, "--json", *parts).stdout
reports = [file(part + ".json", run("--registry", registry, "--json", part).stdout) for part in parts]
expect("merged", run("--merge", *reports, "--json").stdout, whole)
expect("a page of the merged", run("--merge", *reports).stdout, run("--registry", registry, *parts).stdout)

# No text of a request reaches a terminal as a command to it, and no page is without words.
expect("an escape", "\x1b" in run("--registry", registry, *parts).stdout, False)
expect("an empty log", run("--registry", registry, text="").stdout.splitlines()[0],
       "The log is empty: there was no line to read.")
expect("no request", run("--registry", registry, text="x\n").stdout.splitlines()[0], "None of 1 line is a request.")



class Page(html.parser.HTMLParser):
    """What a browser makes of a page: elements properly closed, their attributes, and the text of the body."""

    def __init__(self, source):
        super().__init__()
        self.open, self.elements, self.words = [], [], ""
        self.feed(source)

    def handle_starttag(self, tag, attributes):
        self.elements.append((tag, dict(attributes)))
        if tag != "meta":
            self.open.append(tag)

    def handle_startendtag(self, tag, attributes):
        self.elements.append((tag, dict(attributes)))

    def handle_endtag(self, tag):
        expect("a closed element", self.open and self.open.pop(), tag)

    def handle_data(self, data):
        self.words += "" if "style" in self.open else data


# The page holds every text of a request as text, takes nothing from elsewhere and can be read without seeing it.
hostile = "</code><script>alert('x')</script>&amp;\""
source = run("--registry", registry, "--html", "-", text=lines({hostile: 1}, {"query": "a", "kind": hostile}, {"q": "b"})
             + json.dumps({"tool": hostile}) + f"\n{hostile}\n").stdout
page = Page(source)
expect("open elements", page.open, [])
expect("texts of requests", page.words.count("</code><script>") >= 5, True)
expect("elements", {tag for tag, _ in page.elements} & {"script", "link", "img", "iframe", "object", "form"}, set())
expect("addresses", [name for _, attributes in page.elements for name in attributes
                     if name in ("href", "src", "style") or name.startswith("on")], [])
expect("urls", "url(" in source or "http" in source or "@import" in source, False)
expect("language", page.elements[0], ("html", {"lang": "en"}))
expect("headings", [tag for tag, _ in page.elements].count("h1"), 1)
expect("drawings are said in text beside them",
       {attributes.get("aria-hidden") for tag, attributes in page.elements if tag == "svg"}, {"true"})
expect("header cells have a scope", {attributes.get("scope") for tag, attributes in page.elements if tag == "th"},
       {"col", "row"})
expect("roles", {tag: attributes.get("role") for tag, attributes in page.elements if tag in ("table", "tr", "td")},
       {"table": "table", "tr": "row", "td": "cell"})
for column in ("tool, action", "requests", "refused", "times", "share"):
    expect("a column", column in page.words, True)
expect("an empty page", "The log is empty" in run("--registry", registry, "--html", "-").stdout, True)
expect("a page in a file", (run("--registry", registry, "--html", "page.html", "--json", parts[0]).stdout[:1],
                            (here / "page.html").read_text()[:15]), ("{", "<!DOCTYPE html>"))

# What cannot be used is refused with what to do.
other = file("other.json", json.dumps({"tools": [{**REGISTRY["tools"][0], "default_action": "list"}, *REGISTRY["tools"][1:]]}))
file("other_report.json", run("--registry", other, "--json", parts[0]).stdout)
for arguments, status, words in (
        (("--merge", reports[0], "other_report.json"), 2, "other_report.json: 'search' is declared otherwise"),
        (("--merge", registry), 2, "registry.json: not a report of this version"),
        (("--merge", reports[0], "--registry", registry), 2, "either --registry, and requests, or --merge"),
        ((), 2, "either --registry, and requests, or --merge"),
        (("--registry", registry, "-", "-"), 2, "standard input is one file only"),
        (("--registry", registry, "--html", "no/where", parts[0]), 3, "cannot write no/where"),
        (("--registry", registry, "nowhere"), 3, "cannot read nowhere")):
    done = run(*arguments)
    expect(arguments, (done.returncode, words in done.stderr, done.stdout), (status, True, ""))

sys.exit("\n".join(faults) or 0)
