"""Whatever is killed, and when: what the export ends as is what an undisturbed one ends as.

The test of killed workers runs everywhere. The others are for ``scripts/test-fleet``: they are
marked ``long``, and take a few minutes. KEL_FLEET_SEEDS says how many random moments each tries.
"""

import os
import random
import shutil
import signal
import socket
import subprocess
import sys
import time
from pathlib import Path

import psutil
import pyarrow
import pytest
from pyarrow import parquet
from seasons import DAMAGED, FLOTTA, RECORDINGS, undisturbed

from kelfunzioni import fleet

SEEDS = range(int(os.environ.get("KEL_FLEET_SEEDS", "2")))
# A task for each recording or two, so that many of them are under way at any moment.
SMALL_TASKS = ["--task-bytes", "20000"]
# Scheduler and workers of a cluster give up on each other within seconds, and not in minutes.
IMPATIENT = {
    "DASK_DISTRIBUTED__SCHEDULER__WORKER_TTL": "4s",
    "DASK_DISTRIBUTED__SCHEDULER__ALLOWED_FAILURES": "20",
    "DASK_DISTRIBUTED__COMM__TIMEOUTS__TCP": "15s",
    "DASK_DISTRIBUTED__COMM__TIMEOUTS__CONNECT": "6s",
}


def _start(*arguments, **more):
    environment = {**os.environ, **IMPATIENT, **more.pop("env", {})}
    return psutil.Popen(
        [*more.pop("before", []), *map(str, arguments)],
        stdout=subprocess.DEVNULL,
        stderr=more.pop("stderr", subprocess.DEVNULL),
        env=environment,
        start_new_session=True,
        **more,
    )


def _export(season, out, *arguments, **more):
    return _start(*FLOTTA, "export", season, "-O", out, *SMALL_TASKS, *arguments, **more)


def _markers(out):
    return len(list(Path(out).glob(".fleet/run-*/*.json")))


def _until(condition, seconds=90.0):
    end = time.monotonic() + seconds
    while not condition():
        assert time.monotonic() < end, "it takes too long"
        time.sleep(0.01)


def _workers(process):
    """Processes in which tasks run: the children of the nannies that the client has started."""
    found = []
    for each in _children(process):
        try:
            if "spawn_main" in " ".join(each.cmdline()):
                found.append(each)
        except psutil.Error:
            continue
    return found


def _children(process):
    try:
        return process.children(recursive=True)
    except psutil.Error:
        return []


def _stop(process):
    if process.poll() is None:
        for each in (*_children(process), process):
            _kill(each)
    process.wait()


def _kill(process):
    try:
        process.kill()
    except psutil.Error:
        pass


def _killed_workers(season, out, random_, kills):
    with open(f"{out}.said", "w") as said:
        run = _export(season, out, "--jobs", "2", stderr=said)
    try:
        for number in range(kills):
            _until(lambda n=number: run.poll() is not None or _markers(out) > 2 * n)
            time.sleep(random_.random() * 0.3)
            workers = _workers(run)
            if run.poll() is None and workers:
                _kill(random_.choice(workers))
        status, text = run.wait(240), Path(f"{out}.said").read_text()
        assert status == 1 and f"{DAMAGED} failed" in text, text
    finally:
        _stop(run)


def test_killed_workers(season, out, tmp_path):
    _killed_workers(season, tmp_path / "out", random.Random(1), 2)
    undisturbed(tmp_path / "out", season, out)


def test_a_gap_a_double_and_a_left_over_file_are_noticed(season, out, tmp_path):
    """What the other tests look for is there to be found."""
    target = tmp_path / "out"
    shutil.copytree(out, target, symlinks=True)
    undisturbed(target, season, out)
    tables = target / "tables" / "recordings.parquet"
    rows = parquet.ParquetFile(tables).read()
    for wrong in (rows[1:], pyarrow.concat_tables([rows, rows[:1]])):
        parquet.write_table(wrong, tables)
        with pytest.raises(AssertionError, match="each file of the input once"):
            undisturbed(target, season, out)
    parquet.write_table(rows, tables)
    for left in ("samples/x.parquet", "samples/.x.1.tmp", ".fleet/tables-7/x", "tables.new"):
        (target / left).parent.mkdir(exist_ok=True)
        (target / left).touch()
        with pytest.raises(AssertionError):
            undisturbed(target, season, out)
        (target / left).unlink()
    (target / ".fleet" / "tables-7").rmdir()
    undisturbed(target, season, out)


def test_one_worker_and_two_give_the_same_values(season, out, tmp_path):
    fleet.export([str(season)], str(tmp_path / "two"), jobs=2, task_bytes=50_000)
    undisturbed(tmp_path / "two", season, out)


@pytest.mark.long
@pytest.mark.parametrize("seed", SEEDS)
def test_many_killed_workers(season, out, tmp_path, seed):
    _killed_workers(season, tmp_path / "out", random.Random(seed), 5)
    undisturbed(tmp_path / "out", season, out)


@pytest.mark.long
@pytest.mark.parametrize("seed", SEEDS)
def test_a_killed_client_and_another_run(season, out, tmp_path, seed):
    """Client and workers die at once; what they have done is taken over."""
    random_, target = random.Random(seed), tmp_path / "out"
    for _ in range(3):
        run = _export(season, target, "--jobs", "2")
        try:
            wanted = _markers(target) + random_.randrange(0, 8)
            _until(lambda r=run, n=wanted: r.poll() is not None or _markers(target) >= n)
            time.sleep(random_.random() * 0.2)
        finally:
            os.killpg(run.pid, signal.SIGKILL)
            _stop(run)
    done = fleet.export([str(season)], str(target), jobs=0)
    assert done.exported < RECORDINGS - DAMAGED
    undisturbed(target, season, out)


@pytest.mark.long
def test_a_client_killed_at_the_tables(season, out, tmp_path):
    """At each step of the last moment: the old tables or the new ones, and never a mixture."""
    code = """
import os, sys
from kelfunzioni import fleet
from kelfunzioni.fleet import _folder, _tables
steps = 0
def step(function):
    def wrapped(*a, **k):
        global steps
        steps += 1
        if steps == int(sys.argv[3]):
            os._exit(9)
        return function(*a, **k)
    return wrapped
_tables.write = step(_tables.write)
_folder.sync_folder = step(_folder.sync_folder)
os.symlink, os.replace = step(os.symlink), step(os.replace)
_folder.shutil.rmtree = step(_folder.shutil.rmtree)
fleet.export([sys.argv[1]], sys.argv[2], jobs=0)
"""
    part, target, steps = season / "kart-001", tmp_path / "out", 0
    expected = tmp_path / "fresh"
    fleet.export([str(part)], str(expected), jobs=0)
    for step in range(1, 200, 5):
        shutil.rmtree(target, ignore_errors=True)
        command = [sys.executable, "-c", code, str(part), str(target), str(step)]
        status = subprocess.run(command, capture_output=True).returncode
        fleet.export([str(part)], str(target), jobs=0)
        undisturbed(target, part, expected)
        if status == 0:
            break
        steps += 1
    assert steps > 2


class _Cluster:
    """A scheduler and workers of Dask as processes of their own."""

    def __init__(self, folder, hosts=("", "")):
        self.hosts, self.folder = hosts, folder
        with socket.socket() as free:
            free.bind(("", 0))
            self.port = free.getsockname()[1]
        self.at = "127.0.0.1"
        self.scheduler, self.workers = None, []

    def start(self, at=None):
        self.at = at or self.at
        common = ["-m", "distributed.cli.dask_scheduler", "--no-dashboard", "--no-show"]
        place = ["--host", self.at, "--port", str(self.port)]
        self.scheduler = _start(sys.executable, *common, *place, cwd=self.folder)
        self.workers = [
            _start(
                sys.executable,
                *["-m", "distributed.cli.dask_worker", self.address, "--nthreads", "1"],
                *["--no-dashboard", "--memory-limit", "512MiB", "--local-directory", self.folder],
                *["--death-timeout", "20"],
                before=["ip", "netns", "exec", host] if host else [],
                cwd=self.folder,
            )
            for host in self.hosts
        ]
        return self

    @property
    def address(self):
        return f"tcp://{self.at}:{self.port}"

    def stop(self):
        for each in (*self.workers, self.scheduler):
            _stop(each)


@pytest.mark.long
@pytest.mark.parametrize("seed", SEEDS)
def test_a_killed_scheduler_and_another_run(season, out, tmp_path, seed):
    random_, target = random.Random(seed), tmp_path / "out"
    cluster = _Cluster(tmp_path).start()
    try:
        with open(tmp_path / "said", "w") as said:
            run = _export(season, target, "--scheduler", cluster.address, stderr=said)
        wanted = random_.randrange(1, 8)
        _until(lambda: run.poll() is not None or _markers(target) >= wanted)
        _stop(cluster.scheduler)
        assert run.wait(120) == 1
    finally:
        cluster.stop()
        _stop(run)
    text = (tmp_path / "said").read_text()
    assert "is gone" in text and "run the same command again" in text, text
    again = _Cluster(tmp_path).start()
    try:
        run = _export(season, target, "--scheduler", again.address)
        assert run.wait(120) == 1
    finally:
        again.stop()
        _stop(run)
    undisturbed(target, season, out)


def _ip(*words):
    subprocess.run(["ip", *words], check=True, capture_output=True)


@pytest.fixture
def hosts():
    """Two hosts on a bridge: network namespaces of this machine, which is a third one."""
    if os.geteuid() != 0 or shutil.which("ip") is None:
        pytest.skip("network namespaces need root and the program ip")
    # A name that was just given up may still be taken for a moment.
    bridge, names = f"kel{random.SystemRandom().randrange(10**5)}", []
    try:
        _ip("link", "add", bridge, "type", "bridge")
    except subprocess.CalledProcessError as error:
        pytest.skip(f"no bridge can be made here: {error.stderr.decode().strip()}")
    try:
        _ip("addr", "add", "10.213.7.1/24", "dev", bridge)
        _ip("link", "set", bridge, "up")
        for number in (2, 3):
            name = f"{bridge}-{number}"
            _ip("netns", "add", name)
            names.append(name)
            inner, outer = f"i{name[3:]}", f"o{name[3:]}"
            _ip("link", "add", outer, "type", "veth", "peer", "name", inner)
            _ip("link", "set", inner, "netns", name)
            _ip("link", "set", outer, "master", bridge, "up")
            _ip("-n", name, "addr", "add", f"10.213.7.{number}/24", "dev", inner)
            _ip("-n", name, "link", "set", inner, "up")
            _ip("-n", name, "link", "set", "lo", "up")
        yield names
    finally:
        for name in names:
            subprocess.run(["ip", "link", "del", f"o{name[3:]}"], check=False)
            subprocess.run(["ip", "netns", "del", name], check=False)
        subprocess.run(["ip", "link", "del", bridge], check=False)


@pytest.mark.long
@pytest.mark.parametrize("seed", SEEDS)
def test_a_host_that_is_cut_off(season, out, tmp_path, hosts, seed):
    """The cable of one of two hosts is pulled; the other one does its share, and once alone."""
    random_, target = random.Random(seed), tmp_path / "out"
    cluster = _Cluster(tmp_path, hosts).start(at="10.213.7.1")
    try:
        run = _export(season, target, "--scheduler", cluster.address)
        wanted = random_.randrange(1, 6)
        _until(lambda: run.poll() is not None or _markers(target) >= wanted)
        assert run.poll() is None, "it was too fast to be disturbed"
        _ip("link", "set", f"o{hosts[seed % 2][3:]}", "down")
        assert run.wait(180) == 1
    finally:
        cluster.stop()
        _stop(run)
    undisturbed(target, season, out)
