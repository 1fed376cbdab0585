#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes src/text/unicode_tables.hpp from the Unicode Character Database.

The database is read strictly: a line that is not understood, a property with the wrong number of code points or a
mapping that the tables cannot hold ends the script, so that nothing of a later version is passed over in silence.
"""

import argparse
import pathlib
import re
import sys

COMMAND = "tools/generate_unicode_tables.py --write src/text/unicode_tables.hpp"
OTHER_VERSION = 77
LAST_CODE_POINT = 0x10FFFF
LINE_WIDTH = 120

CATEGORIES = set("Lu Ll Lt Lm Lo Mn Mc Me Nd Nl No Pc Pd Ps Pe Pi Pf Po Sm Sc Sk So Zs Zl Zp Cc Cf Cs Co Cn".split())
NOT_PRINTABLE = set("Cc Cf Cs Co Cn Zl Zp Zs".split())
LANGUAGES = {"lt", "tr", "az"}
CAPITAL_SIGMA, FINAL_SMALL_SIGMA = 0x03A3, 0x03C2

CHARACTER_NAME = re.compile(r"<(?P<block>.+), (?P<edge>First|Last)>|<control>|[^<>]+")
PROPERTY_LINE = re.compile(r"([0-9A-F]{4,6})(?:\.\.([0-9A-F]{4,6}))? *; (\w+) # .*")
TOTAL_LINE = re.compile(r"# Total code points: (\d+)")
VERSION_LINE = re.compile(r"# (\w+)-(\d+\.\d+\.\d+)\.txt")


class Refused(Exception):
    """A database that is not understood."""


def require(holds, file, line):
    if not holds:
        raise Refused(f"{file}: not understood: {line}")


def code_point(text, file, line):
    require(re.fullmatch(r"[0-9A-F]{4,6}", text), file, line)
    require(int(text, 16) <= LAST_CODE_POINT, file, line)
    return int(text, 16)


def lines_and_version(data, name):
    lines = (data / f"{name}.txt").read_text(encoding="utf-8").splitlines()
    head = VERSION_LINE.fullmatch(lines[0])
    require(head and head[1] == name, name, lines[0])
    return lines, head[2]


def read_characters(data):
    """The category of every code point, the digit values and the simple lower-case mappings."""
    file = "UnicodeData"
    categories, digits, lower = ["Cn"] * (LAST_CODE_POINT + 1), {}, {}
    last, opened = -1, None
    for line in (data / f"{file}.txt").read_text(encoding="ascii").splitlines():
        fields = line.split(";")
        require(len(fields) == 15, file, line)
        code, category, decimal, mapped = code_point(fields[0], file, line), fields[2], fields[6], fields[13]
        name = CHARACTER_NAME.fullmatch(fields[1])
        require(name and category in CATEGORIES - {"Cn"} and code > last, file, line)
        if name["edge"] == "First":
            require(opened is None, file, line)
            opened = (name["block"], category)
        elif name["edge"] == "Last":
            require(opened == (name["block"], category), file, line)
            categories[last + 1 : code] = [category] * (code - last - 1)
            opened = None
        else:
            require(opened is None, file, line)
        categories[code] = category
        require((category == "Nd") == (decimal != ""), file, line)
        if decimal:
            require(re.fullmatch(r"[0-9]", decimal), file, line)
            digits[code] = int(decimal)
        if mapped:
            lower[code] = code_point(mapped, file, line)
        last = code
    require(opened is None, file, "a block without its last line")
    return categories, digits, lower


def read_property(lines, wanted):
    """The code points of one derived property, checked against the total that the file states."""
    file = "DerivedCoreProperties"
    held, current, totals = set(), None, []
    for line in lines:
        total = TOTAL_LINE.fullmatch(line)
        if total and current == wanted:
            totals.append(int(total[1]))
        if not line or line.startswith("#"):
            continue
        row = PROPERTY_LINE.fullmatch(line)
        require(row, file, line)
        current = row[3]
        if current == wanted:
            first = code_point(row[1], file, line)
            held.update(range(first, code_point(row[2] or row[1], file, line) + 1))
    require(totals == [len(held)], file, f"the total of {wanted}")
    return held


def read_special_lower(lines):
    """The unconditional lower-case mappings. Final_Sigma is the one condition that holds in every language."""
    file = "SpecialCasing"
    special, final_sigma_seen = {}, False
    for line in lines:
        content = line.split("#")[0].strip()
        if not content:
            continue
        fields = [field.strip() for field in content.split(";")]
        require(len(fields) in (5, 6) and fields[-1] == "", file, line)
        code = code_point(fields[0], file, line)
        mapped = [code_point(field, file, line) for field in fields[1].split()]
        conditions = fields[4].split() if len(fields) == 6 else []
        if not conditions:
            require(code not in special and mapped, file, line)
            special[code] = mapped
        elif conditions == ["Final_Sigma"]:
            require((code, mapped) == (CAPITAL_SIGMA, [FINAL_SMALL_SIGMA]), file, line)
            final_sigma_seen = True
        else:
            require(conditions[0] in LANGUAGES, file, line)
    require(final_sigma_seen, file, "no Final_Sigma")
    return special


def ranges_of(codes):
    ranges = []
    for code in sorted(codes):
        if ranges and code == ranges[-1][1] + 1:
            ranges[-1][1] = code
        else:
            ranges.append([code, code])
    return ranges


def zeros_of(digits):
    """The code points of the digits zero; the nine others of each script follow at once."""
    zeros = sorted(code for code, value in digits.items() if value == 0)
    expected = {zero + value: value for zero in zeros for value in range(10)}
    require(expected == digits, "UnicodeData", "decimal digits that do not stand in runs of ten")
    return zeros


def lower_ranges_of(lower):
    """Rows of first, last, stride and offset: neighbours with one offset, or every second one."""
    rows = []
    for code in sorted(lower):
        offset = lower[code] - code
        if rows:
            first, last, stride, row_offset = rows[-1]
            gap = code - last
            if offset == row_offset and gap <= 2 and (first == last or gap == stride):
                rows[-1] = (first, code, gap, offset)
                continue
        rows.append((code, code, 1, offset))
    return rows


def array(kind, name, rows):
    lines, current = [], " "
    for row in rows:
        if len(current) + len(row) + 2 > LINE_WIDTH:
            lines.append(current)
            current = " "
        current += f" {row},"
    body = "\n".join([*lines, current])
    return f"inline constexpr {kind} {name}[] = {{\n{body}\n}};\n"


def range_array(name, codes):
    return array("CodePointRange", name, [f"{{0x{first:X}, 0x{last:X}}}" for first, last in ranges_of(codes)])


def generated(version, tables):
    return f"""// SPDX-License-Identifier: MIT
// Generated from the Unicode Character Database {version}: do not edit.
// Written by: {COMMAND}
#pragma once

#include "text/unicode_rows.hpp"

// clang-format off
namespace tool_binding::text::tables {{

{chr(10).join(tables)}
}}  // namespace tool_binding::text::tables
"""


def tables_of(data):
    categories, digits, lower = read_characters(data)
    properties, version = lines_and_version(data, "DerivedCoreProperties")
    casing, casing_version = lines_and_version(data, "SpecialCasing")
    require(version == casing_version, "SpecialCasing", casing_version)

    special = read_special_lower(casing)
    longer = {code: mapped for code, mapped in special.items() if len(mapped) > 1}
    require(all(len(mapped) == 2 for mapped in longer.values()), "SpecialCasing", "a mapping to more than two")
    lower.update({code: mapped[0] for code, mapped in special.items() if len(mapped) == 1})
    single = {code: mapped for code, mapped in lower.items() if mapped != code and code not in longer}
    unprintable = [code for code, category in enumerate(categories) if category in NOT_PRINTABLE and code != 0x20]

    rows = [f"{{0x{a:X}, 0x{b:X}, {stride}, {offset}}}" for a, b, stride, offset in lower_ranges_of(single)]
    longer_rows = [f"{{0x{code:X}, {{0x{a:X}, 0x{b:X}}}}}" for code, (a, b) in sorted(longer.items())]
    return version, [
        range_array("not_printable", unprintable),
        range_array("cased", read_property(properties, "Cased")),
        range_array("case_ignorable", read_property(properties, "Case_Ignorable")),
        array("char32_t", "digit_zeros", [f"0x{zero:X}" for zero in zeros_of(digits)]),
        array("LowerRange", "lower_ranges", rows),
        array("LowerPair", "lower_pairs", longer_rows),
    ]


def check(path, version, text):
    written = path.read_text(encoding="utf-8")
    if f"Unicode Character Database {version}:" not in written:
        print(f"{path.name} is of another Unicode version than the data, which are of {version}")
        return OTHER_VERSION
    if written != text:
        print(f"{path.name} differs from what its command writes", file=sys.stderr)
        return 1
    return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--data", type=pathlib.Path, default="/usr/share/unicode", help="the database's directory")
    action = parser.add_mutually_exclusive_group(required=True)
    action.add_argument("--write", type=pathlib.Path, metavar="FILE", help="write the tables")
    action.add_argument(
        "--check",
        type=pathlib.Path,
        metavar="FILE",
        help=f"exit 1 where the tables differ, {OTHER_VERSION} where they are of another version than the data",
    )
    options = parser.parse_args()
    try:
        version, tables = tables_of(options.data)
    except (Refused, OSError, UnicodeDecodeError) as problem:
        print(problem, file=sys.stderr)
        return 2
    text = generated(version, tables)
    if options.check:
        return check(options.check, version, text)
    options.write.write_text(text, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
