// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tool_binding::report {

/// How the page looks: light or dark as its reader has it, a table's rows below each other where the page is narrow.
inline constexpr std::string_view html_style = R"(:root {
  color-scheme: light dark;
  --paper: #ffffff; --ink: #1b1f24; --faint: #57606a; --line: #d0d7de; --shade: #f3f5f8;
  --whole: #e4e8ed; --clean: #2f9e5b; --repaired: #d49a10; --refused: #d1453b; --count: #3d74c9;
}
@media (prefers-color-scheme: dark) {
  :root {
    --paper: #14171c; --ink: #e6e9ee; --faint: #a0a9b5; --line: #353c46; --shade: #1e232a;
    --whole: #2c333c; --clean: #46b877; --repaired: #e0b040; --refused: #ee6a5f; --count: #6c9eec;
  }
}
* { box-sizing: border-box; }
body { margin: 0; background: var(--paper); color: var(--ink); font: 16px/1.5 system-ui, sans-serif; }
main { max-width: 68rem; margin: 0 auto; padding: 1.5rem 1.25rem 4rem; }
h1 { font-size: 1.75rem; line-height: 1.2; margin: 0 0 .5rem; }
h2 { font-size: 1.25rem; margin: 2.5rem 0 .5rem; }
p { margin: .25rem 0; }
.summary { font-size: 1.1rem; margin-bottom: 1rem; }
.aside, .example, .note, caption, small { color: var(--faint); }
.aside, .example, caption { font-size: .875rem; }
code, pre { font-family: ui-monospace, "DejaVu Sans Mono", monospace; font-size: .875em; }
code, th, td.what b { overflow-wrap: anywhere; }
pre { background: var(--shade); border: 1px solid var(--line); border-radius: .375rem; padding: .5rem .75rem;
  margin: .5rem 0; overflow-x: auto; white-space: pre-wrap; overflow-wrap: anywhere; }
.bar { display: block; width: 100%; height: .75rem; border-radius: .2rem; }
main > .bar { height: 1.25rem; }
.bar .whole { fill: var(--whole); }
.bar .clean { fill: var(--clean); }
.bar .repaired { fill: var(--repaired); }
.bar .refused { fill: var(--refused); }
.bar .count { fill: var(--count); }
.outcomes { display: flex; flex-wrap: wrap; gap: .5rem 2rem; margin: .75rem 0 0; }
.outcomes dt { color: var(--faint); }
.outcomes dd { margin: 0; font-size: 1.25rem; font-variant-numeric: tabular-nums; }
.key { display: inline-block; width: .75em; height: .75em; border-radius: .2em; margin-right: .4em; }
.key.clean { background: var(--clean); }
.key.repaired { background: var(--repaired); }
.key.refused { background: var(--refused); }
.advice { padding-left: 1.5rem; margin: 0; }
.advice li { margin: 0 0 1.25rem; padding-left: .25rem; }
table { width: 100%; border-collapse: collapse; }
caption { text-align: left; padding-bottom: .5rem; }
th, td { text-align: left; vertical-align: top; padding: .4rem .75rem .4rem 0; border-top: 1px solid var(--line); }
thead th { border-top: 0; white-space: nowrap; overflow-wrap: normal; font-weight: 600; color: var(--faint); font-size: .875rem; }
tbody th { font-weight: 600; }
th.action { font-weight: 400; padding-left: 1.25rem; }
.number { text-align: right; white-space: nowrap; font-variant-numeric: tabular-nums; }
.drawn { width: 9rem; padding-right: 0; }
.drawn .bar { margin-top: .4rem; }
td.what { width: 55%; }
.note::before { content: "\2014  "; }
@media (max-width: 40rem) {
  thead { position: absolute; width: 1px; height: 1px; overflow: hidden; clip-path: inset(50%); }
  table, tbody, caption { display: block; }
  tr { display: flex; flex-wrap: wrap; gap: 0 1rem; border-top: 1px solid var(--line); padding: .5rem 0; }
  th, td, td.what { border: 0; padding: 0; width: auto; }
  tbody th, td.what, .drawn { flex: 1 0 100%; }
  .number { text-align: left; }
  .number::after { content: " " attr(data-column); color: var(--faint); font-size: .875rem; }
}
)";

}  // namespace tool_binding::report
