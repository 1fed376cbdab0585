#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The measuring half of tools/peers: BUILD is the folder that the peers are installed and built in; --renew writes the
tables in docs/peers.md."""
import argparse
import json
import os
import pathlib
import re
import statistics
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "bench"))
import pages  # noqa: E402
from search_tool import requests  # noqa: E402

SCHEMA = ROOT / "bench" / "peers" / "search.schema.json"
WARM_UP, TURN = 500, 20  # milliseconds of processor time
# The program that has it, its name there, its name on the page. The first is what the others are compared with.
PEERS = [("cpp", "layer", "this layer"),
         ("cpp", "rapidjson", "RapidJSON, its own validator"),
         ("cpp", "rapidjson_without_rule", "the same, not asked what an action requires"),
         ("cpp", "valijson", "nlohmann::json and valijson"),
         ("node", "ajv", "JSON.parse and ajv"),
         ("node", "zod", "JSON.parse and zod, its coercions"),
         ("node", "zod_by_hand", "JSON.parse and zod, B's repairs by hand")]
READERS = [("cpp", "layer_reader", "this layer's `Reader`"), ("cpp", "rapidjson_reader", "RapidJSON"),
           ("cpp", "nlohmann_reader", "nlohmann::json"), ("node", "json_parse", "JSON.parse")]


class Programs:
    """Both programs, alive for the whole run: one works while the other waits for its next line."""

    def __init__(self, build):
        commands = {"cpp": [build.resolve() / "built" / "peers", SCHEMA],
                    "node": ["node", ROOT / "bench" / "peers" / "peers.mjs", SCHEMA]}
        self.running = {name: subprocess.Popen(command, cwd=build, text=True, stdin=subprocess.PIPE,
                                               stdout=subprocess.PIPE) for name, command in commands.items()}

    def ask(self, peer, milliseconds, text):
        program, name, _ = peer
        process = self.running[program]
        process.stdin.write(f"{name}\t{milliseconds}\t{text}\n")
        process.stdin.flush()
        return json.loads(process.stdout.readline() or sys.exit(f"the program of {name} ended"))

    def end(self):
        for process in self.running.values():
            process.stdin.close()
            process.wait()


def measured(programs, peers, texts, rounds):
    """Of each peer and request the nanoseconds of every round; all take turns within a round."""
    asked = [(peer, request) for request in texts for peer in peers]
    for peer, request in asked:
        programs.ask(peer, WARM_UP, texts[request])
    times = {key: [] for key in asked}
    for number in range(rounds):
        for peer, request in asked if number % 2 else reversed(asked):
            times[peer, request].append(programs.ask(peer, TURN, texts[request]))
    return times


def table_of_times(heading, peers, texts, times):
    """The ratios are medians of each round's own: a slow moment of the machine strikes both sides."""
    lines = [f"| {heading} | " + " | ".join(texts) + " |", "|---" * (len(texts) + 1) + "|"]
    for peer in peers:
        cells = []
        for request in texts:
            ratio = statistics.median(mine / first for mine, first in
                                      zip(times[peer, request], times[peers[0], request]))
            cells.append(f"{ratio:.2f} ({statistics.median(times[peer, request]):,.0f} ns)")
        lines.append(f"| {peer[2]} | " + " | ".join(cells) + " |")
    return lines


def table_of_answers(programs, texts):
    lines = ["| what is made of it | A | B | C |", "|---|---|---|---|"]
    for peer in PEERS:
        cells = []
        for text in texts.values():
            answer = programs.ask(peer, 0, text)
            names = len(answer.get("value", {}))
            cells.append(f"admitted, {names} arguments" if "value" in answer else "refused")
        lines.append(f"| {peer[2]} | " + " | ".join(cells) + " |")
    for request in "BC":
        lines += ["", f"Of {request}, word for word:", "", "```"]
        for peer in PEERS:
            answer = programs.ask(peer, 0, texts[request])
            told = answer.get("refusal", "").strip() or "\n".join([json.dumps(answer["value"]), *answer.get("notes", [])])
            lines.append(f"{peer[2]}:\n  " + told.replace("\n", "\n  "))
        lines.append("```")
    return lines


def version(command, pattern):
    told = subprocess.run(command, capture_output=True, text=True, check=True).stdout
    return re.search(pattern, told).group(1)


def conditions(build, rounds):
    """What was compared, in which versions, and how."""
    def npm(name):
        return json.loads((build / "node_modules" / name / "package.json").read_text(encoding="utf-8"))["version"]

    def debian(name):
        (package,) = (build / "debian").glob(f"{name}_*.deb")
        return package.name.split("_")[1].replace("%2b", "+")

    installed = version(["dpkg-query", "-W", "-f=${Version}", "nlohmann-json3-dev"], r"(.+)")
    return (f"Medians of {rounds} rounds, after a warm-up, in one run on a machine of {os.cpu_count()} cores. "
            f"GCC {version(['c++', '-dumpfullversion'], r'(.+)')} in a release build, RapidJSON {debian('rapidjson-dev')}, "
            f"valijson {debian('libvalijson-dev')}, nlohmann::json {installed}; "
            f"Node.js {version(['node', '--version'], r'v(.+)')}, ajv {npm('ajv')}, zod {npm('zod')}.")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--rounds", type=int, default=21)
    parser.add_argument("--renew", action="store_true")
    options = parser.parse_args()
    texts = requests()
    programs = Programs(options.build)
    times = measured(programs, PEERS + READERS, texts, options.rounds)
    parts = {"times": [conditions(options.build, options.rounds), "",
                       *table_of_times("from the text to the handler", PEERS, texts, times), "",
                       *table_of_times("of it, reading the text", READERS, texts, times)],
             "answers": table_of_answers(programs, texts)}
    programs.end()
    if options.renew:
        for mark, lines in parts.items():
            pages.write("peers.md", mark, lines)
    else:
        print("\n\n".join("\n".join(lines) for lines in parts.values()))


if __name__ == "__main__":
    main()
