#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""No file below src/ includes a header of a room that docs/walk.md does not say its own room knows."""
import pathlib
import re
import sys

source = pathlib.Path(sys.argv[1])
rows = re.findall(r"^\| src/(\w+) \|[^|]*\|([^|]*)\|$", (source / "docs" / "walk.md").read_text(), re.M)
knows = {room: {room, "tool_binding", *re.findall(r"\w+", known)} for room, known in rows}
rooms = {path.name for path in (source / "src").iterdir() if path.is_dir()}
faults = [f"the page has no row for src/{room}, or one too many" for room in sorted(rooms ^ set(knows))]
for file in sorted((source / "src").rglob("*.[ch]pp")):
    room = file.parent.name
    for included in re.findall(r'^#include "(\w+)/', file.read_text(), re.M):
        if included not in knows.get(room, {included}):
            faults.append(f"{file.relative_to(source)} includes a header of {included}, which {room} does not know")
sys.exit("\n".join(faults) or 0)
