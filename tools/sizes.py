#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The measuring half of tools/sizes: BUILD is a folder with the stripped libraries; --renew writes the table
in docs/costs.md."""
import argparse
import pathlib
import resource
import statistics
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "bench"))
import pages  # noqa: E402

RUNS = 9
COMPILE = ["c++", "-std=c++20", "-O2", "-Iinclude", "-fsyntax-only", "-x", "c++", "-"]
EMPTY = "int main() {}\n"
# Of the standard library what the interface shows in its signatures, and no more.
SHOWN = ("deque", "functional", "memory", "optional", "span", "string", "vector")
FAMILIAR = "".join(f"#include <{header}>\n" for header in SHOWN) + EMPTY
PUBLIC = '#include "tool_binding/tool_binding.hpp"\n' + EMPTY


def seconds(source):
    """The compiler's processor time: what other programs do meanwhile hardly shows in it."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run(COMPILE, input=source, text=True, check=True)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def medians(*sources):
    """The sources take turns, so that a slow moment of the machine strikes them alike."""
    rounds = [[seconds(source) for source in sources] for _ in range(RUNS + 1)][1:]
    return [statistics.median(times) for times in zip(*rounds)]


def simdjson_size():
    listed = subprocess.run(["/sbin/ldconfig", "-p"], capture_output=True, text=True, check=True).stdout
    path = next(line.split("=> ")[1] for line in listed.splitlines() if "libsimdjson.so" in line)
    return pathlib.Path(path).resolve().stat().st_size


parser = argparse.ArgumentParser(description=__doc__)
parser.add_argument("build", type=pathlib.Path)
parser.add_argument("--renew", action="store_true")
options = parser.parse_args()

layer, adapter = ((options.build / f"lib{name}.stripped.so").stat().st_size
                  for name in ("tool_binding", "tool_binding_json"))
familiar, public = medians(FAMILIAR, PUBLIC)
rows = [
    ("the layer, stripped shared library", f"{layer / 1024:.0f} KiB",
     f"{layer / simdjson_size():.2f} × Debian's libsimdjson"),
    ("the JSON adapter, stripped shared library", f"{adapter / 1024:.0f} KiB",
     f"{adapter / simdjson_size():.2f} × Debian's libsimdjson"),
    ("compiling an empty main with the public header", f"{public * 1000:.0f} ms",
     f"{public / familiar:.2f} × with " + ", ".join(f"`<{header}>`" for header in SHOWN)),
]
for row in rows:
    print("{:<48} {:>9}   {}".format(*row))
if options.renew:
    pages.write("costs.md", "sizes", ["| what | cost | beside |", "|---|---|---|",
                                      *("| " + " | ".join(row) + " |" for row in rows)])
