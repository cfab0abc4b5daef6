"""The report: docs/performance.md, one plot a family beside it."""

import fnmatch
import re
import statistics
import tomllib

import plot
from cases import name_of
from units import show_bytes, show_figure, show_ratio, show_size

INTRODUCTION = """\
# Performance

What the library's calls cost beside what else does the same work. Every figure here was made by one command,

```sh
./bench
```

which builds the benchmarks, runs them beside their peers and writes this page; nothing is entered by hand but the names
of the cases and the reasons. `./bench --quick` takes a first look, which it writes to `build/bench-results`.
"""

HOW_TO_READ = """\
## How to read it

- A **peer** is what a program would call instead, at its best: in the same program as our call, on the same data, with
  its set-up outside of the measurement where its users keep it too. Our calls go through the shared library.
- The **ratio** is the best peer's time by ours: 2 means that ours takes half the time. The programs run in rounds, ours
  and the peers' benchmarks in a new random order each time, so that the machine's slow moments meet both. The ratio is
  taken within each round; shown are its median and, as the spread, its least and its greatest value. Times are medians.
- A **bar** is what was demanded of a case before it was built: a ratio to a certain peer, or a limit. It is met or
  missed by the median. A peer wins if its ratio is below 1; it is a draw if the ratio is 0.95 or more and 1 lies in the
  spread.
- **Warm** cases find all that they use in memory that was used before. **Cold** ones are the first of their kind: a new
  thread, an empty container, a cache that does not hold the file, an array beyond the caches.
- A time below 2 ns is that of a few instructions: what the compiler made of the loop around it counts as much.
- In the plots a dot is a ratio, the line through it its spread, the tick its bar. Right of 1 ours is faster.
"""

GROWTH = """\
Where the time is that of a byte, a point or another item, "× 1" means that an item costs the same at any size.
"""

MEMORY = """\
Each in a process of its own: what the heap has given out at the end, what is really there, and the most that was there.
"""

NO_REASON = "**no reason given**"


class Reasons:
    """Why a peer wins or a bar is missed, by the patterns that the rows' keys fit."""

    def __init__(self, path):
        entries = tomllib.loads(path.read_text(encoding="utf-8")).get("reason", [])
        self.entries = [(pattern, entry["why"]) for entry in entries for pattern in entry["rows"]]
        self.used = set()
        self.missing = []

    def why(self, row):
        for pattern, why in self.entries:
            if fnmatch.fnmatchcase(row.key(), pattern):
                self.used.add(pattern)
                return " ".join(why.split())
        self.missing.append(row.key())
        return NO_REASON

    def unused(self):
        return [pattern for pattern, _ in self.entries if pattern not in self.used]


def is_lost(row):
    return row.misses() or row.verdict() == "peer"


def lost_first(rows):
    return sorted(rows, key=lambda row: 0 if row.misses() else 1 if is_lost(row) else 2)


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return "\n".join(lines + ["| " + " | ".join(cells) + " |" for cells in rows]) + "\n"


def ours_cell(row):
    return memory_cell(row, "") if row.memory else show_figure(row.metric(), row.time())


def memory_cell(row, label):
    return " / ".join(map(show_bytes, row.memory[label])) if label in row.memory else ""


def peer_cell(row):
    peer = row.best_peer()
    return f"{show_figure(row.metric(), row.time(peer))} {peer}" if peer else ""


def ratio_cells(row):
    if not row.peers:
        return ["", ""]
    ratio = row.ratio(row.best_peer())
    shown = show_ratio(ratio.median)
    mark = {"ours": shown, "even": f"{shown}, a draw", "peer": f"**{shown}**"}[row.verdict()]
    return [mark, f"{show_ratio(ratio.low)} to {show_ratio(ratio.high)}"]


def bars_cell(row):
    return "; ".join(f"{bar.text}: {'met' if bar.is_met else '**missed**'}, {bar.figure}" for bar in row.bars)


def row_cells(row):
    return [row.name, ours_cell(row), peer_cell(row), *ratio_cells(row), bars_cell(row)]


HEAD = ["case", "ours", "best peer", "ratio", "spread", "bars"]


def lost_section(families, reasons):
    """The lost rows of each family, those with the same reason together."""
    parts = ["## Where a peer wins or a bar is missed\n"]
    for family, rows in families:
        by_reason = {}
        for row in lost_first(rows):
            if is_lost(row):
                by_reason.setdefault(reasons.why(row), []).append(row)
        if by_reason:
            parts.append(f"### {family.title}: lost\n")
        parts += [f"{why}\n\n{table(HEAD, map(row_cells, lost))}" for why, lost in by_reason.items()]
    return "\n".join(parts if len(parts) > 1 else [*parts, "Nowhere.\n"])


def count(rows, verdict):
    return sum(row.verdict() == verdict for row in rows)


def overview(families):
    head = ["family", "cases", "with a peer", "ours faster", "draw", "peer faster", "bars", "met", "missed"]
    cells = []
    for family, rows in families:
        bars = [bar for row in rows for bar in row.bars]
        met = sum(bar.is_met for bar in bars)
        wins = [count(rows, verdict) for verdict in ("ours", "even", "peer")]
        numbers = [len(rows), sum(bool(row.peers) for row in rows), *wins, len(bars), met, len(bars) - met]
        cells.append([f"[{family.title}](#{anchor(family.title)})", *map(str, numbers)])
    totals = [str(sum(int(row[column]) for row in cells)) for column in range(1, len(head))]
    return "## Overview\n\n" + table(head, cells + [["all", *totals]])


def anchor(title):
    """The anchor that a heading gets."""
    return re.sub(r"[^\w -]", "", title.lower()).replace(" ", "-")


def growth_groups(rows):
    """Rows that differ in their size alone."""
    groups = {}
    for row in rows:
        if size := row.case.get("grows"):
            rest = tuple((name, value) for name, value in row.values.items() if name != size)
            groups.setdefault((row.case["ours"], rest), []).append(row)
    return [group for group in groups.values() if len(group) > 1]


def growth_section(rows):
    groups = growth_groups(rows)
    if not groups:
        return ""
    cells = []
    for group in groups:
        size = group[0].case["grows"]
        label = name_of(group[0].case, group[0].values | {size: "N"})
        at_sizes = [f"{ours_cell(row)} ({peer_cell(row)})" if row.peers else ours_cell(row) for row in group]
        first, last = group[0], group[-1]
        common = [peer for peer in first.peers if peer in last.peers]
        best = min(common, key=last.time, default=None)
        cells.append([
            label,
            "; ".join(f"{show_size(row.values[size])}: {text}" for row, text in zip(group, at_sizes, strict=True)),
            f"× {show_ratio(int(last.values[size]) / int(first.values[size]))}",
            f"× {show_ratio(last.time() / first.time())}",
            f"× {show_ratio(last.time(best) / first.time(best))} {best}" if best else "",
        ])
    head = ["case", "N: ours (best peer)", "N grows", "ours grows", "peer grows"]
    return f"### How it grows\n\n{GROWTH}\n" + table(head, cells)


def memory_section(rows):
    measured = [row for row in rows if row.memory]
    if not measured:
        return ""
    peers = list(dict.fromkeys(label for row in measured for label in row.memory if label))
    counters = list(dict.fromkeys(" / ".join(row.case["memory"]) for row in measured))
    cells = [[row.name, *(memory_cell(row, label) for label in ["", *peers]), bars_cell(row)] for row in measured]
    head = ["case", f"ours: {'; '.join(counters)}", *peers, "bars"]
    return f"### Memory\n\n{MEMORY}\n" + table(head, cells)


def proved_section(family):
    if not family.proved:
        return ""
    lines = [f"- {each['bar']}: `{each['test']}`" for each in family.proved]
    return "### Proved by a test\n\n" + "\n".join(lines) + "\n"


def family_section(family, rows):
    parts = [f"## {family.title}\n\n{family.about}\n"]
    if any(row.peers for row in rows):
        parts.append(f"![Ratios of {family.title}](performance/{family.key}.svg)\n")
    for title, is_cold in (("Warm", False), ("Cold", True)):
        some = [row for row in rows if row.is_cold() == is_cold and not row.memory]
        if some:
            parts.append(f"### {title}\n\n" + table(HEAD, map(row_cells, lost_first(some))))
    parts += [growth_section(rows), memory_section(rows), proved_section(family)]
    return "\n".join(part for part in parts if part)


def machine_section(machine):
    lines = [f"- {name}: {value}" for name, value in machine["facts"].items()]
    notes = [f"\n**{note}**\n" for note in machine.get("notes", [])]
    return "## Where and how it was measured\n\n" + "\n".join(lines) + "\n" + "".join(notes)


def write(machine, families, reasons, directory):
    """Writes performance.md and the plots into a directory. `families` is a list of families with their rows."""
    plots = directory / "performance"
    plots.mkdir(parents=True, exist_ok=True)
    parts = [INTRODUCTION, machine_section(machine), HOW_TO_READ, overview(families), lost_section(families, reasons)]
    for family, rows in families:
        parts.append(family_section(family, rows))
        (plots / f"{family.key}.svg").write_text(plot.draw(family.title, rows), encoding="utf-8")
    (directory / "performance.md").write_text("\n".join(parts), encoding="utf-8")


def summary(families):
    """What the terminal shows at the end."""
    rows = [row for _, each in families for row in each]
    bars = [bar for row in rows for bar in row.bars]
    ratios = [row.ratio(row.best_peer()).median for row in rows if row.peers]
    lines = [f"  {row.key()}: {ours_cell(row)}, {peer_cell(row)}; {bars_cell(row)}" for row in rows if is_lost(row)]
    if lines:
        lines.insert(0, "a peer wins or a bar is missed:")
    faster = sum(ratio >= 1 for ratio in ratios)
    middle = show_ratio(statistics.median(ratios or [1]))
    met = sum(bar.is_met for bar in bars)
    lines.append(f"{len(rows)} cases, {len(ratios)} with a peer, of which {faster} are faster here (median ratio "
                 f"{middle}); {met} bars met, {len(bars) - met} missed")
    return "\n".join(lines)
