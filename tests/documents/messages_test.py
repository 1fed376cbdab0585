#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""docs/messages.md shows what the command answers, and has every phrase and every kind of finding that the layer's
sources can answer with."""
import json
import pathlib
import re
import subprocess
import sys

source, command = pathlib.Path(sys.argv[1]), sys.argv[2]
page = (source / "docs" / "messages.md").read_text()
faults = []

def run(text, *arguments):
    return subprocess.run([command, "admit", "--registry", *arguments], input=text, capture_output=True, text=True)


rows = re.findall(r"```json\n(.*)\n```\n\n> (.*)\n", page)
for request, expected in rows:
    answer = json.loads(run(request + "\n", source / "examples" / "repo_daemon.registry.json").stdout)
    said = answer.get("message") or "; ".join(answer["notes"])
    if said != expected:
        faults.append(f"{request}\n  is shown with {expected}\n  and answered with {said}")

# A section names its kinds, and its requests show each of them.
kinds = set(re.findall(r'Found::\w+,\s+"(\w+)"', (source / "src" / "admission" / "words.cpp").read_text()))
for section in re.split(r"^### ", page, flags=re.M)[1:]:
    named = set(re.findall(r"`(\w+)`", "".join(re.findall(r"^Kind: .*", section, re.M))))
    requests = "".join(request + "\n" for request, _ in re.findall(r"```json\n(.*)\n```\n\n> (.*)\n", section))
    answers = run(requests, source / "examples" / "repo_daemon.registry.json", "--findings").stdout.splitlines()
    shown = {finding["kind"] for answer in answers for finding in json.loads(answer).get("findings", [])}
    if named and not named <= shown or not named <= kinds:
        faults.append(f"the kinds {sorted(named)} are named, and {sorted(shown)} shown, in: {section.splitlines()[0]}")
    kinds -= named
if kinds:
    faults.append(f"no section is about the kinds {sorted(kinds)}")

for registry, expected in re.findall(r"```json\n([^`]*)```\n\nhas these:\n\n```text\n(.*?)```", page, re.S):
    said = run(registry, "-", "/dev/null").stderr.replace("tool-binding: standard input: ", "")
    if said != expected:
        faults.append(f"the registry is shown with\n{expected}and refused with\n{said}")

spoken = [path for room in ("admission", "binding", "registry", "check")
          for path in (source / "src" / room).glob("*.cpp")]
spoken += [source / "json" / "src" / name for name in ("registry_shape.cpp", "field_readers.hpp")]
for file in spoken:
    code = re.sub(r"//.*|#include.*|static_assert.*|throw \".*", "", file.read_text())
    for phrase in re.findall(r'"((?:[^"\\\n]|\\.)*)"', code):
        for words in re.split(r"\{\w*\}", phrase):
            if re.search(r"[a-z] [a-z]", words) and words not in page:
                faults.append(f"no example of '{words}', which {file.name} can say")

if not rows:
    faults.append("no request was found in the page")
sys.exit("\n".join(faults) or 0)
