#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compiles a file with each compiler: it warns of the lines that say "dangles", or of none if it knows no lifetimes.

usage: dangling_test.py SOURCE INCLUDE COMPILER...
"""

import re
import subprocess
import sys

source, include, *compilers = sys.argv[1:]
with open(source, encoding="utf-8") as lines:
    dangling = {number for number, line in enumerate(lines, 1) if line.rstrip().endswith("// dangles")}

failed = False
for compiler in compilers:
    command = [compiler, "-std=c++20", "-Wall", "-Wextra", "-O2", "-I" + include, "-x", "c++"]
    knows = "clang::lifetimebound" in subprocess.run(
        command + ["-E", "-dD", include + "/tool_binding/detail/lifetime.hpp"],
        check=True, capture_output=True, text=True).stdout
    # A compiler without lifetimes has to compile the file; what it sees by itself while it optimizes is its own affair.
    run = subprocess.run(command + ["-fsyntax-only", source], capture_output=True, text=True)
    warned = {int(line) for line in re.findall(r"dangling\.cpp:(\d+):\d+: warning", run.stderr)}
    expected = dangling if knows else set()
    if run.returncode != 0 or warned != expected:
        failed = True
        print(f"{compiler}: warned of {sorted(warned)} instead of {sorted(expected)}\n{run.stderr}")
sys.exit(failed)
