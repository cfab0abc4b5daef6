"""Which benchmark is compared with which: the tables in families/, and the rows that they make of results.

A case names a benchmark of ours and those of its peers. A name may hold placeholders: `{size}` stands for any part
between two slashes, `{list:long32|uint64}` for one of those words, and each benchmark of ours that fits makes a row of
its own, whose peers are found by the same parts. The first case that fits takes a benchmark.

    name     what the row is called, with the placeholders
    ours     the benchmark of ours
    peers    what others need for the same work; the quickest of them is the best peer
    against  further figures that a bar refers to, but that are no peers
    metric   what is compared: time (default), items or bytes (the time of one), or a counter in seconds
    cold     true, or the placeholders' values for which it holds: nothing is at hand yet
    grows    the placeholder that is a size
    memory   the counters that hold bytes; such a case has no time, and its peers are compared by their bytes
    words    for a placeholder, what its values are called in the name
    bar      what was demanded: at_least N times as fast as `peer`, at_most N times its time, or below a limit, of the
             time or of a `counter`; `only` says for which values of the placeholders

A table's [[proved]] entries are demands that a test proves. [run.PROGRAM] gives a program a `min_time` and a `warm_up`
of its own, in seconds: those whose iterations take long need no warm-up, and several iterations want more time.
"""

import dataclasses
import pathlib
import re
import statistics
import tomllib

from units import parse_limit, show_bytes, show_figure, show_ratio, show_size

KEYS = {"name", "ours", "peers", "against", "metric", "cold", "grows", "memory", "words", "bar"}
PLACEHOLDER = re.compile(r"\{(\w+)(?::([^}]*))?\}")


class BadTable(Exception):
    pass


@dataclasses.dataclass
class Family:
    key: str
    title: str
    about: str
    programs: list
    cases: list
    proved: list
    run: dict  # of a program: its own min_time and warm_up, in seconds


@dataclasses.dataclass
class Ratio:
    """How many times as fast as a peer: the median over the rounds, and the least and the most."""

    median: float
    low: float
    high: float


@dataclasses.dataclass
class Bar:
    text: str
    is_met: bool
    figure: str  # how the demand is met or missed


@dataclasses.dataclass
class Row:
    family: str
    name: str
    case: dict
    values: dict  # what the placeholders stand for
    ours: list  # a figure a round
    peers: dict  # label: a figure a round
    against: dict
    counters: dict  # of ours, medians
    memory: dict  # label: bytes by each counter, ours under ""; empty where times are compared
    bars: list = dataclasses.field(default_factory=list)

    def time(self, label=None):
        return statistics.median(self.ours if label is None else self.peers[label])

    def best_peer(self):
        return min(self.peers, key=self.time, default=None)

    def ratio(self, label):
        figures = self.peers.get(label) or self.against[label]
        ratios = [theirs / ours for ours, theirs in zip(self.ours, figures, strict=True)]
        return Ratio(statistics.median(ratios), min(ratios), max(ratios))

    def metric(self):
        return self.case.get("metric", "time")

    def is_cold(self):
        cold = self.case.get("cold", False)
        return cold if isinstance(cold, bool) else fits(self.values, cold)

    def misses(self):
        return any(not bar.is_met for bar in self.bars)

    def verdict(self):
        """Who wins: "ours", "peer", "even" if the difference is small and within the spread, "" without a peer."""
        if not self.peers:
            return ""
        ratio = self.ratio(self.best_peer())
        if ratio.median >= 1:
            return "ours"
        return "even" if ratio.high >= 1 and ratio.median >= 0.95 else "peer"

    def key(self):
        return f"{self.family}/{self.name}"


def load_families(directory):
    return [load_family(path) for path in sorted(pathlib.Path(directory).glob("*.toml"))]


def load_family(path):
    table = tomllib.loads(path.read_text(encoding="utf-8"))
    for case in table["case"]:
        if unknown := case.keys() - KEYS:
            raise BadTable(f"{path.name}: {case['name']}: what is {', '.join(sorted(unknown))}?")
    return Family(path.stem, table["title"], " ".join(table["about"].split()), table["programs"], table["case"],
                  table.get("proved", []), table.get("run", {}))


def pattern_of(template):
    """The expression that a name fits, and in which order the words of each placeholder were given."""
    order = {}
    parts = []
    end = 0
    for match in PLACEHOLDER.finditer(template):
        words = match[2].split("|") if match[2] else None
        order[match[1]] = words
        choice = "|".join(map(re.escape, words)) if words else "[^/]+"
        parts += [re.escape(template[end : match.start()]), f"(?P<{match[1]}>{choice})"]
        end = match.end()
    parts.append(re.escape(template[end:]))
    return re.compile("".join(parts)), order


def fill(template, values):
    return PLACEHOLDER.sub(lambda match: values[match[1]], template)


def fits(values, only):
    return all(values[name] in allowed for name, allowed in only.items())


def place_of(values, order):
    """A key that sorts rows: words as the table gives them, others by the numbers in them."""

    def place(name):
        words = order.get(name)
        if words:
            return (words.index(values[name]), "")
        digits = re.match(r"\d+", values[name])
        return (int(digits[0]) if digits else 1 << 62, values[name])

    return [place(name) for name in values]


def expand(family, results):
    """The rows of a family, and the benchmarks that no case names."""
    benchmarks = figures_by_round(family, results)
    names = list(benchmarks)
    used = set()
    rows = []
    for case in family.cases:
        found = match_case(case, [name for name in names if name not in used])
        if not found:
            raise BadTable(f"{family.key}: no benchmark is called {case['ours']}")
        for name, values in found:
            used.add(name)
            rows.append(make_row(family, case, name, values, benchmarks))
        check_references(family, case, found, benchmarks, used)
    for row in rows:
        judge(row)
    return rows, sorted(set(names) - used)


def match_case(case, names):
    # The words of a placeholder may stand in the row's name or in the benchmark's.
    choices = {match[1]: match[0] for match in PLACEHOLDER.finditer(case["name"] + case["ours"]) if match[2]}
    template = PLACEHOLDER.sub(lambda match: choices.get(match[1], match[0]), case["ours"])
    expression, order = pattern_of(template)
    found = [(name, match.groupdict()) for name in names if (match := expression.fullmatch(name))]
    return sorted(found, key=lambda each: place_of(each[1], order))


def figures_by_round(family, results):
    """{benchmark: a list of its metrics, one a round}. A program that was not run in a round is missing in all."""
    benchmarks = {}
    for program in family.programs:
        for measured in results.rounds:
            if program not in measured:
                raise BadTable(f"{family.key}: {program} has not been run in every round")
            for name, metrics in measured[program].items():
                benchmarks.setdefault((name, program), []).append(metrics)
    names = [name for name, _ in benchmarks]
    doubled = {name for name in names if names.count(name) > 1}
    if doubled:
        raise BadTable(f"{family.key}: two programs have a benchmark {', '.join(sorted(doubled))}")
    return {name: figures for (name, _), figures in benchmarks.items()}


def name_of(case, values):
    words = case.get("words", {})
    shown = {name: words[name][value] if name in words else show_size(value) for name, value in values.items()}
    return fill(case["name"], shown)


def make_row(family, case, name, values, benchmarks):
    metric = case.get("metric", "time")

    def figures_of(benchmark, which):
        if any(which not in each for each in benchmarks[benchmark]):
            raise BadTable(f"{family.key}: {benchmark} tells no {which}")
        return [each[which] for each in benchmarks[benchmark]]

    def measured(templates, which):
        filled = {label: fill(template, values) for label, template in templates.items()}
        return {label: figures_of(peer, which) for label, peer in filled.items() if peer in benchmarks}

    def bytes_of(benchmark):
        return [statistics.median(figures_of(benchmark, counter)) for counter in case["memory"]]

    memory = {}
    if "memory" in case:
        peers = {label: fill(template, values) for label, template in case.get("peers", {}).items()}
        memory = {"": bytes_of(name)} | {label: bytes_of(peer) for label, peer in peers.items() if peer in benchmarks}
    return Row(
        family=family.key,
        name=name_of(case, values),
        case=case,
        values=values,
        ours=figures_of(name, metric),
        peers={} if memory else measured(case.get("peers", {}), metric),
        against=measured(case.get("against", {}), metric),
        counters={each: statistics.median(figures_of(name, each)) for each in benchmarks[name][0]},
        memory=memory,
    )


def check_references(family, case, found, benchmarks, used):
    """Each peer that a case names exists for some row at least."""
    for label, template in (case.get("peers", {}) | case.get("against", {})).items():
        real = {fill(template, values) for _, values in found} & benchmarks.keys()
        if not real:
            raise BadTable(f"{family.key}: {case['name']}: no benchmark is called {template} ({label})")
        used |= real
    for bar in case.get("bar", []):
        if not any(fits(values, bar.get("only", {})) for _, values in found):
            raise BadTable(f"{family.key}: {case['name']}: a bar holds for no row")


def judge(row):
    for bar in row.case.get("bar", []):
        if fits(row.values, bar.get("only", {})):
            row.bars.append(judge_limit(row, bar) if "below" in bar else judge_ratio(row, bar))


def judge_limit(row, bar):
    text = f"below {bar['below'].replace('us', 'µs')}"
    if "counter" in bar:
        value = row.counters[bar["counter"]]
        return Bar(text, value < parse_limit(bar["below"]), show_bytes(value))
    return Bar(text, row.time() < parse_limit(bar["below"]), show_figure(row.metric(), row.time()))


def judge_ratio(row, bar):
    peer = bar["peer"]
    if peer not in row.peers and peer not in row.against:
        raise BadTable(f"{row.key()}: a bar refers to {peer}, which was not measured")
    ratio = row.ratio(peer).median
    if "at_least" in bar:
        times = "" if bar["at_least"] == 1 else f"{bar['at_least']:g} × "
        return Bar(f"at least {times}as fast as {peer}", ratio >= bar["at_least"], f"{show_ratio(ratio)} ×")
    slowness = 1 / ratio
    text = f"at most {bar['at_most']:g} × the time of {peer}"
    return Bar(text, slowness <= bar["at_most"], f"{show_ratio(slowness)} ×")
