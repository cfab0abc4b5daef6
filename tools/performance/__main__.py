"""Measures the library beside its peers and writes the report. ./bench builds the programs and calls this."""

import argparse
import pathlib
import re
import sys

import cases
import measure
import report
import results

ROOT = pathlib.Path(__file__).resolve().parents[2]
HERE = pathlib.Path(__file__).resolve().parent


def parse_arguments():
    parser = argparse.ArgumentParser(prog="./bench", description="Runs all benchmarks beside their peers and writes "
                                     "docs/performance.md with a plot for each family.")
    parser.add_argument("--quick", action="store_true", help="a first look: few and short rounds, the report in "
                        "build/bench-results")
    parser.add_argument("--family", metavar="NAME", help="only one family, the report in build/bench-results: "
                        + ", ".join(family.key for family in cases.load_families(HERE / "families")))
    parser.add_argument("--render", action="store_true", help="write the report from the results of the last run of "
                        "that kind, without measuring; that of all families goes to docs")
    parser.add_argument("--results", type=pathlib.Path, help=argparse.SUPPRESS)
    parser.add_argument("--tables", type=pathlib.Path, default=HERE, help=argparse.SUPPRESS)
    parser.add_argument("--output", type=pathlib.Path, help=argparse.SUPPRESS)
    arguments = parser.parse_args()
    if arguments.results is None:
        # Runs of different kinds do not mix.
        kind = (["quick"] if arguments.quick else []) + ([arguments.family] if arguments.family else [])
        arguments.results = pathlib.Path(ROOT, "build", "bench-results", "-".join(kind) or "whole")
    return arguments


def choose(families, name):
    chosen = [family for family in families if name in (None, family.key)]
    if not chosen:
        sys.exit(f"./bench: no family is called {name}; there are {', '.join(family.key for family in families)}")
    return chosen


def check_proofs(families):
    """The tests that prove a demand exist."""
    sources = "\n".join(path.read_text(encoding="utf-8") for path in ROOT.glob("tests/**/*_test.cpp"))
    for family in families:
        for proof in family.proved:
            suite, name = proof["test"].split(".")
            if not re.search(rf"TEST(_F)?\({suite}, {name}\)", sources):
                raise cases.BadTable(f"{family.key}: no test is called {proof['test']}")


def render(families, arguments, directory):
    """Writes the report and returns what is wrong with the tables."""
    found = results.load(arguments.results)
    faults = []
    rendered = []
    for family in families:
        rows, unclaimed = cases.expand(family, found)
        rendered.append((family, rows))
        faults += [f"{family.key}: no case names the benchmark {name}" for name in unclaimed]
    reasons = report.Reasons(arguments.tables / "reasons.toml")
    report.write(found.machine, rendered, reasons, directory)
    print(report.summary(rendered))
    print(f"written: {directory / 'performance.md'}")
    faults += [f"no reason is given for {key}" for key in reasons.missing]
    if not arguments.family:
        for pattern in reasons.unused():
            print(f"note: the reason for {pattern} was not needed")
    return faults


def main():
    arguments = parse_arguments()
    families = cases.load_families(arguments.tables / "families")
    chosen = choose(families, arguments.family)
    check_proofs(chosen)
    if not arguments.render:
        plan = measure.QUICK if arguments.quick else measure.FULL
        measure.run(chosen, ROOT / "build/bench/bin", arguments.results, plan)
    is_whole = not arguments.family and (arguments.render or not arguments.quick)
    directory = arguments.output or (ROOT / "docs" if is_whole else arguments.results)
    faults = render(chosen, arguments, directory)
    for fault in faults:
        print(f"FAULT: {fault}", file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (cases.BadTable, results.BadResults) as fault:
        sys.exit(f"./bench: {fault}")
