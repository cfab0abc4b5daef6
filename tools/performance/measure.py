"""Runs the benchmark programs in rounds, and notes on what machine."""

import dataclasses
import datetime
import json
import os
import pathlib
import platform
import shutil
import subprocess
import sys
import time

# Whose versions the report names: the peers' packages, as tools/setup installs them.
PEERS = ["libabsl-dev", "libbenchmark-dev", "libboost-dev", "libfast-float-dev", "libgdal-dev", "libgeos-dev",
         "libglib2.0-dev", "libc6", "libicu-dev", "libpolyclipping-dev", "libroaring-dev", "libsqlite3-dev"]
BUSY = 0.7  # a load from which on other work disturbs


@dataclasses.dataclass
class Plan:
    """How often, and for how long: a benchmark runs for `warm_up` seconds and then for at least `min_time` in a round.

    The warm-up keeps what a process does once, at its first call, out of figures that are not meant for it.
    """

    rounds: int
    min_time: float
    warm_up: float

    def settings(self, demanded):
        """The times for a program that demands its own, in the same share."""
        share = self.min_time / FULL.min_time
        return demanded.get("min_time", FULL.min_time) * share, demanded.get("warm_up", FULL.warm_up) * share


FULL = Plan(rounds=5, min_time=0.04, warm_up=0.01)
QUICK = Plan(rounds=2, min_time=0.004, warm_up=0.001)


def run(families, binaries, results, plan):
    """Writes results/round-N/PROGRAM.json for each program and round, and results/machine.json."""
    settings = {}
    for family in families:
        settings |= {program: plan.settings(family.run.get(program, {})) for program in family.programs}
    programs = list(settings)
    results = results.resolve()  # the programs run in its folders
    for program in programs:
        for old in results.glob(f"round-*/{program}.json"):
            old.unlink()
    results.mkdir(parents=True, exist_ok=True)
    machine = describe(binaries, plan)
    (results / "machine.json").write_text(json.dumps(machine, indent=2, ensure_ascii=False) + "\n", encoding="utf-8")
    for note in machine["notes"]:
        print(f"note: {note}")
    for number in range(1, plan.rounds + 1):
        folder = results / f"round-{number}"
        folder.mkdir(exist_ok=True)
        # Forwards and backwards by turns, so that no program always has the same neighbour or the later hour.
        for program in programs if number % 2 else reversed(programs):
            started = time.monotonic()
            run_program(binaries / program, folder / f"{program}.json", *settings[program])
            print(f"  round {number} of {plan.rounds}: {program}, {time.monotonic() - started:.0f} s", flush=True)


def run_program(binary, output, min_time, warm_up):
    part = output.with_suffix(".part")
    # With one repetition, random interleaving is a random order of the benchmarks.
    command = [binary, f"--benchmark_min_time={min_time}", f"--benchmark_min_warmup_time={warm_up}",
               "--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=1", f"--benchmark_out={part}",
               "--benchmark_out_format=json"]
    done = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=False,
                          cwd=output.parent)
    if done.returncode != 0:
        sys.exit(f"{binary.name} ended with {done.returncode}\n{done.stderr}")
    part.rename(output)


def describe(binaries, plan):
    cache = cmake_cache(binaries.parent)
    load = os.getloadavg()[0]
    notes = []
    if load > BUSY:
        notes.append(f"The machine was not idle: its load was {load:.1f} when the run began.")
    if cache.get("CMAKE_BUILD_TYPE") != "Release":
        notes.append(f"The build is {cache.get('CMAKE_BUILD_TYPE')}, not optimized as for release.")
    if plan is QUICK:
        notes.append("Made by `./bench --quick`, which shows what the report looks like: its figures are rough.")
    facts = {
        "date": datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%d %H:%M UTC"),
        "machine": processor(),
        "memory": f"{os.sysconf('SC_PAGE_SIZE') * os.sysconf('SC_PHYS_PAGES') / 2**30:.1f} GiB",
        "system": f"{system_name()}, Linux {platform.release()}",
        "compiler": f"{compiler(cache)}, `{cache.get('CMAKE_CXX_FLAGS_RELEASE', '')}`",
        "state": commit(),
        "peers": ", ".join(f"{name} {version}" for name, version in versions(PEERS)),
        "run": f"{plan.rounds} rounds over all programs, one at a time, each benchmark for at least "
               f"{plan.min_time * 1000:g} ms a round",
    }
    return {"facts": facts, "notes": notes}


def cmake_cache(build):
    entries = {}
    for line in (build / "CMakeCache.txt").read_text(encoding="utf-8").splitlines():
        if "=" in line and not line.startswith(("#", "//")):
            name, value = line.split("=", 1)
            entries[name.split(":")[0]] = value
    return entries


def processor():
    facts = dict(line.split(":", 1) for line in output("lscpu").splitlines() if ":" in line)
    facts = {name.strip(): value.strip() for name, value in facts.items()}
    caches = [f"{level} {facts[f'{level} cache']}" for level in ("L1d", "L2", "L3") if f"{level} cache" in facts]
    virtual = ", virtual" if "Hypervisor vendor" in facts else ""
    return f"{facts.get('Model name', platform.machine())}, {os.cpu_count()} processors{virtual}, {', '.join(caches)}"


def system_name():
    return platform.freedesktop_os_release().get("PRETTY_NAME", "unknown system")


def compiler(cache):
    return output(cache.get("CMAKE_CXX_COMPILER", "c++"), "--version").splitlines()[0]


def commit():
    name = output("git", "log", "-1", "--format=commit %h of %cs").strip()
    changed = " with changes" if output("git", "status", "--porcelain", "--untracked-files=no") else ""
    return f"{name or 'no checkout'}{changed}"


def versions(packages):
    for package in packages:
        version = output("dpkg-query", "-W", "-f", "${Version}", package)
        if version:
            yield package.removesuffix("-dev"), version


def output(*command):
    if shutil.which(command[0]) is None:
        return ""
    here = pathlib.Path(__file__).parent
    return subprocess.run(command, capture_output=True, text=True, check=False, cwd=here).stdout
