#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The README quotes what is: its C++ is a file that the build compiles, its answers are what the command prints.

A block after `<!-- file: PATH -->` is that file, without its first line where that names the license.
A block after `<!-- output: NAME -->` is the answer to the block after `<!-- input: NAME -->`, spread over lines.
"""
import json
import pathlib
import re
import subprocess
import sys

source = pathlib.Path(sys.argv[1])
command = sys.argv[2] if len(sys.argv) > 2 else ""
blocks = re.findall(r"<!-- (file|input|output): (\S+) -->\n```\w*\n(.*?)```\n", (source / "README.md").read_text(), re.S)
faults = []

files = [(name, text) for kind, name, text in blocks if kind == "file"]
for name, text in files:
    if re.sub(r"\A// SPDX.*\n", "", (source / name).read_text()) != text:
        faults.append(f"README.md quotes {name} otherwise than it is")

inputs = {name: text for kind, name, text in blocks if kind == "input"}
outputs = {name: text for kind, name, text in blocks if kind == "output"}
for name, text in inputs.items() if command else ():
    run = subprocess.run([command, "admit", "--registry", source / "examples" / "repo_daemon.registry.json"],
                         input=json.dumps(json.loads(text)) + "\n", capture_output=True, text=True)
    if json.loads(run.stdout) != json.loads(outputs[name]):
        faults.append(f"README.md shows another answer than the command gives to {name}: {run.stdout}")

if not files or not inputs:
    faults.append("README.md has no quoted file, or no request")
sys.exit("\n".join(faults) or 0)
