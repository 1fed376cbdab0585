#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""docs/messages.md shows what the command answers, and has every phrase that the layer's sources can answer with."""
import json
import pathlib
import re
import subprocess
import sys

source, command = pathlib.Path(sys.argv[1]), sys.argv[2]
page = (source / "docs" / "messages.md").read_text()
faults = []

rows = re.findall(r"```json\n(\{.*\})\n```\n\n> (.*)\n", page)
run = subprocess.run([command, "admit", "--registry", source / "examples" / "repo_daemon.registry.json"],
                     input="".join(request + "\n" for request, _ in rows), capture_output=True, text=True)
for (request, expected), line in zip(rows, run.stdout.splitlines(), strict=True):
    answer = json.loads(line)
    said = answer.get("message") or "; ".join(answer["notes"])
    if said != expected:
        faults.append(f"{request}\n  is shown with {expected}\n  and answered with {said}")

for file in [path for room in ("admission", "binding", "registry") for path in (source / "src" / room).glob("*.cpp")]:
    code = re.sub(r"//.*|#include.*|static_assert.*", "", file.read_text())
    for phrase in re.findall(r'"((?:[^"\\\n]|\\.)*)"', code):
        if re.search(r"[a-z] [a-z]", phrase) and phrase not in page:
            faults.append(f"no example of '{phrase}', which {file.name} can say")

if not rows:
    faults.append("no request was found in the page")
sys.exit("\n".join(faults) or 0)
