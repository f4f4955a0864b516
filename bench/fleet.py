#!/usr/bin/env python3
"""Measures kelflotta on a simulated season, and prints the table of docs/fleet.md.

    fleet.py [--recordings N] [--folder DIR] [--keep]

kelsim must be on the PATH, and the package installed with its extra fleet. Times of processors do not depend on what else the
machine does; times of the clock do, and the load is printed with them.
"""
import argparse
import json
import os
import shutil
import subprocess
import sys
import tempfile
import time

import psutil

RUN = """
import json, sys, time
from kelfunzioni.fleet import export
if __name__ == "__main__":
    done = export([sys.argv[1]], sys.argv[2], jobs=int(sys.argv[3]))
    # The main thread plans, takes results and writes the tables, while or after the workers work.
    print(json.dumps({**vars(done), "failures": len(done.failures), "main": time.thread_time()}))
"""

QUERY = """
import sys, time
from kelfunzioni.fleet._query import Fleet
begun = time.perf_counter()
rows = Fleet(sys.argv[1]).sql("SELECT vehicle, min(ms) FROM laps WHERE state = 'good' GROUP BY vehicle").fetchall()
print(len(rows), time.perf_counter() - begun)
begun = time.perf_counter()
rows = Fleet(sys.argv[1]).sql("FROM best_laps").fetchall()
print(len(rows), time.perf_counter() - begun)
"""

EMPTY_TASKS = """
import time
from kelfunzioni.fleet._engine import engine
def nothing():
    pass
if __name__ == "__main__":
    with engine(2, None, "512 MiB") as workers:
        list(workers.run([nothing] * 100))
        begun = time.perf_counter()
        list(workers.run([nothing] * 5000))
        print(5000 / (time.perf_counter() - begun))
"""


def watch(process: psutil.Popen) -> tuple[float, int, float]:
    """Seconds of processors of a process and all below it, the largest memory of a worker, seconds of the clock."""
    seconds, memory, begun = {}, 0, time.monotonic()
    while process.poll() is None:
        for each in [process, *children(process)]:
            try:
                times = each.cpu_times()
                seconds[each.pid] = times.user + times.system
                if each.pid != process.pid:
                    memory = max(memory, each.memory_info().rss)
            except psutil.Error:
                pass
        time.sleep(0.1)
    return sum(seconds.values()), memory, time.monotonic() - begun


def children(process: psutil.Popen) -> list[psutil.Process]:
    try:
        return process.children(recursive=True)
    except psutil.Error:
        return []


def run(script: str, folder: str, *arguments: str) -> tuple[str, tuple[float, int, float]]:
    path = os.path.join(folder, "run.py")
    with open(path, "w", encoding="utf-8") as file:
        file.write(script)
    process = psutil.Popen([sys.executable, path, *arguments], stdout=subprocess.PIPE, text=True)
    seen = watch(process)
    answer = process.stdout.read()
    if process.returncode:
        sys.exit(f"{path} {' '.join(arguments)} ended with {process.returncode}")
    return answer, seen


def measure(season: str, folder: str, workers: int) -> dict[str, float]:
    out = os.path.join(folder, f"out-{workers}")
    shutil.rmtree(out, ignore_errors=True)
    answer, (cpu, memory, clock) = run(RUN, folder, season, out, str(workers))
    done = json.loads(answer.splitlines()[-1])
    tasks = done["work"]["cpu"]
    return {"main": done["main"], "workers": workers, "seconds": done["seconds"], "clock": clock, "cpu": cpu, "tasks": tasks,
            "writing": done["work"]["writing"], "busy": done["work"]["tasks"], "memory": memory,
            "files": done["exported"], "bytes": done["bytes"], "rows": done["rows"], "failures": done["failures"]}


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--recordings", type=int, default=10000)
    parser.add_argument("--folder", help="for season and exports (default: a temporary one)")
    parser.add_argument("--keep", action="store_true", help="leave them there")
    options = parser.parse_args()
    folder = os.path.abspath(options.folder or tempfile.mkdtemp(prefix="kelflotta-"))
    os.makedirs(folder, exist_ok=True)
    season = os.path.join(folder, "season")
    begun = time.monotonic()
    count = options.recordings
    subprocess.run(["kelsim", "--laps", "2", "--rate", "5", "--damaged", str(count // 1000), "--fleet", str(count), season],
                   check=True)
    print(f"simulated {count} recordings in {time.monotonic() - begun:.1f} s", flush=True)
    print("| workers | s | files/s | MB/s | processor s | of these decoding | Parquet | engine, plan, tables | waiting in tasks, s "
          "| MiB of a worker | load |")
    print("|---|---|---|---|---|---|---|---|---|---|---|")
    measured = []
    for workers in (1, 2):
        m = measure(season, folder, workers)
        measured.append(m)
        engine = m["cpu"] - m["tasks"]
        shares = [100 * each / m["cpu"] for each in (m["tasks"] - m["writing"], m["writing"], engine)]
        print(f"| {workers} | {m['seconds']:.1f} | {m['files'] / m['seconds']:.0f} | {m['bytes'] / 1e6 / m['seconds']:.2f} "
              f"| {m['cpu']:.1f} | {shares[0]:.0f} % | {shares[1]:.0f} % | {shares[2]:.0f} % | {m['busy'] - m['tasks']:.1f} "
              f"| {m['memory'] / 2**20:.0f} | {os.getloadavg()[0]:.1f} |", flush=True)
    one, two = measured
    print(f"{one['files']} exported, {one['failures']} failed, {one['rows']} rows, {one['bytes'] / 1e6:.0f} MB")
    print(f"two workers by the clock: {one['seconds'] / two['seconds']:.2f} times one")
    for m in measured:
        print(f"{m['workers']} workers: {m['tasks']:.1f} s of processors in tasks, {m['main']:.1f} s in the main thread")
    # What a worker does for itself alone against what nobody can do for it.
    quiet = [m["main"] + m["tasks"] / m["workers"] for m in measured]
    print(f"two workers by processor seconds, on two free processors: {quiet[0] / quiet[1]:.2f} times one")
    from kelfunzioni.fleet import digest

    hashes = {digest(os.path.join(folder, f"out-{workers}")) for workers in (1, 2)}
    print("values: " + (f"identical, {hashes.pop()}" if len(hashes) == 1 else f"DIFFERENT: {hashes}"))
    answer, _ = run(QUERY, folder, os.path.join(folder, "out-2"))
    for name, line in zip(("best lap of each vehicle", "best_laps"), answer.splitlines(), strict=True):
        rows, seconds = line.split()
        print(f"{name}: {rows} rows in {float(seconds):.2f} s")
    answer, _ = run(EMPTY_TASKS, folder)
    print(f"empty tasks: {float(answer):.0f} a second")
    if not options.keep:
        shutil.rmtree(folder)
    return 0


if __name__ == "__main__":
    sys.exit(main())
