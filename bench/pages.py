# SPDX-License-Identifier: MIT
"""The pages of docs/ hold figures between marks, which the programs that measure them write."""
import pathlib

DOCS = pathlib.Path(__file__).resolve().parent.parent / "docs"


def write(page, mark, lines):
    """Writes the lines between the marks of that name, in place of what was there."""
    path = DOCS / page
    before, begin, rest = path.read_text(encoding="utf-8").partition(f"<!-- begin: {mark} -->\n")
    _, end, after = rest.partition(f"<!-- end: {mark} -->")
    if not end:
        raise SystemExit(f"{page} lacks the marks of {mark}")
    path.write_text(before + begin + "\n".join(lines) + "\n" + end + after, encoding="utf-8")
