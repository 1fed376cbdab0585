#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Every subcommand and option that the command's own help shows stands in its manual and in each completion.

The manual and the changelog are of the command's version.
"""
import pathlib
import re
import subprocess
import sys

source, command = pathlib.Path(sys.argv[1]), sys.argv[2]


def help_of(*subcommand):
    return subprocess.run([command, *subcommand, "--help"], check=True, capture_output=True, text=True).stdout


def subcommands():
    listed = help_of().split("Subcommands:\n", 1)[1]
    return re.findall(r"^  ([a-z][a-z-]*) ", listed, re.MULTILINE)


def options(text):
    """The long options that a help text lists, without their dashes."""
    return re.findall(r"^  (?:-\w,)?--([a-z-]+)", text, re.MULTILINE)


def words_of(file, text):
    """The words of a page as the command spells them: roff's \\- is a hyphen, fish's -l an option's dashes."""
    text = text.replace("\\-", "-")
    return re.sub(r" -l (?=[a-z])", " --", text) if file.suffix == ".fish" else text


pages = [source / "cli" / page for page in ("manual/tool-binding.1", "completions/tool-binding",
                                            "completions/_tool-binding", "completions/tool-binding.fish")]
names = subcommands()
expected = set(names) | {"--" + option for name in [None, *names] for option in options(help_of(*filter(None, [name])))}
if not names or "--registry" not in expected:
    sys.exit("the command's help shows neither subcommands nor options")
lacking = [f"{page.relative_to(source)}: no word of '{word}'" for page in pages for word in sorted(expected)
           if not re.search(rf"(?<![\w-]){re.escape(word)}(?![\w-])", words_of(page, page.read_text()))]


def completed(*words):
    """What the completion for bash offers in place of the last word."""
    script = 'source "$0"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tool_binding; echo "${COMPREPLY[*]}"'
    return subprocess.run(["bash", "-c", script, str(source / "cli/completions/tool-binding"), command, *words],
                          check=True, capture_output=True, text=True).stdout.split()


registry = str(source / "examples/repo_daemon.registry.json")
for words, offered in (
        (["adm"], ["admit"]),
        (["explain", "--registry", registry, "re"], ["references", "read_file"]),
        (["explain", "--registry", "=", registry, "references", "depth", "=", "3", "de"], ["depth=", "detail="]),
        (["explain", "--registry", registry, "references", "depth", "=", "3"], []),
        (["schema", "--strict", "--registry", registry, "ping", "an"], ["annotate"]),
        (["explain", "--color", "al"], ["always"])):
    if completed(*words) != offered:
        lacking.append(f"cli/completions/tool-binding: offers {completed(*words)} for {words}, not {offered}")
version = subprocess.run([command, "--version"], check=True, capture_output=True, text=True).stdout.split()[1]
for page, words in (("cli/manual/tool-binding.1", f'"tool_binding {version}"'), ("CHANGELOG.md", f"## {version}")):
    if words not in (source / page).read_text():
        lacking.append(f"{page}: is not of version {version}")
sys.exit("\n".join(lacking) or 0)
