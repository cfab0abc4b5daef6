"""What the benchmark programs have written: one JSON file a program and round."""

import json
import re
import statistics

from units import SECONDS

# What Google Benchmark adds to a name to say how it ran.
HOW_IT_RAN = re.compile(r"/((iterations|repeats|min_time|min_warmup_time|threads):[^/]*|(real|process|manual)_time)")


class BadResults(Exception):
    pass


class Results:
    """`machine` tells where and how the figures were made; a round is {program: {benchmark: {metric: value}}}.

    The metrics of a benchmark are `time`, its time in seconds; `items` and `bytes`, the time of one of them; and its
    counters under their own names.
    """

    def __init__(self, machine, rounds):
        self.machine = machine
        self.rounds = rounds

    def programs(self):
        return {program for each in self.rounds for program in each}


def load(directory):
    rounds = []
    for folder in sorted(directory.glob("round-*"), key=lambda path: int(path.name.split("-")[1])):
        if files := sorted(folder.glob("*.json")):
            rounds.append({path.stem: read_program(path) for path in files})
    if not rounds:
        raise BadResults(f"{directory} holds no results; ./bench makes them")
    return Results(json.loads((directory / "machine.json").read_text(encoding="utf-8")), rounds)


def read_program(path):
    entries = json.loads(path.read_text(encoding="utf-8"))["benchmarks"]
    repetitions = {}
    for entry in entries:
        if entry["run_type"] == "aggregate":
            continue
        if entry.get("error_occurred"):
            raise BadResults(f"{path.stem}: {entry['run_name']}: {entry['error_message']}")
        repetitions.setdefault(HOW_IT_RAN.sub("", entry["run_name"]), []).append(metrics_of(entry))
    return {name: medians(runs) for name, runs in repetitions.items()}


def metrics_of(entry):
    # The processor's time, which a busy machine disturbs less, but where a benchmark asks for the clock's.
    which = "real_time" if "/real_time" in entry["run_name"] else "cpu_time"
    metrics = {"time": entry[which] * SECONDS[entry["time_unit"]]}
    for metric in ("items", "bytes"):
        if rate := entry.get(f"{metric}_per_second"):
            metrics[metric] = 1 / rate
    for name, value in entry.items():
        if isinstance(value, (int, float)) and name not in metrics:
            metrics[name] = value
    return metrics


def medians(runs):
    return {name: statistics.median(run[name] for run in runs) for name in runs[0]}
