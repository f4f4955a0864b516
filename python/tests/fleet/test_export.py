"""What an export writes, and what a second one leaves as it is."""

import doctest
import errno
import os
import resource
import shutil
import subprocess
import sys
from pathlib import Path

import numpy as np
import pyarrow
import pytest
from pyarrow import parquet
from seasons import DAMAGED, FLOTTA, RECORDINGS, data_files, simulate, whole

import kelfunzioni as kel
from kelfunzioni import fleet
from kelfunzioni.fleet._query import Fleet


def _tables(folder):
    return {
        name: parquet.read_table(folder / "tables" / f"{name}.parquet").to_pylist()
        for name in ("recordings", "channels", "laps", "failures")
    }


def test_the_example_of_the_package(kart, monkeypatch):
    monkeypatch.chdir(kart)
    assert doctest.testmod(fleet).failed == 0


def test_samples_are_those_of_the_package(out):
    for row in _tables(out)["recordings"]:
        paths = [row["file"].replace(".samples", ".channels"), row["file"]]
        opened = kel.Recording(*paths) if row["kind"] == "recording" else kel.Capture(row["file"])
        table = parquet.ParquetFile(out / row["data"]).read()
        table = table.filter(pyarrow.compute.equal(table["recording"], row["recording"]))
        assert len(table) == len(opened) == row["rows"]
        assert np.allclose(table["time"], opened.time - opened.time[0], atol=1e-9)
        for name, column in opened.read().items():
            expected = pyarrow.chunked_array([pyarrow.array(column)])
            assert table[name].equals(expected.cast(table[name].type)), name
            assert table.schema.field(name).metadata[b"unit"].decode() == column.unit


def test_tables_are_those_of_the_package(out):
    tables = _tables(out)
    for row in tables["recordings"]:
        paths = [row["file"].replace(".samples", ".channels"), row["file"]]
        opened = kel.Recording(*paths) if row["kind"] == "recording" else kel.Capture(row["file"])
        channels = [each for each in tables["channels"] if each["recording"] == row["recording"]]
        for channel in channels:
            column = opened[channel["name"]]
            there = column.values[column.valid]
            assert channel["samples"] == len(column)
            assert channel["nulls"] == len(column) - len(there)
            if channel["least"] is not None:
                assert channel["least"] == there.min() and channel["greatest"] == there.max()
                assert channel["mean"] == pytest.approx(there.astype(float).mean())
        names = [info.name for info in opened.columns if info.kind != "text"]
        assert [each["name"] for each in channels] == names
        laps = [each for each in tables["laps"] if each["recording"] == row["recording"]]
        expected = [(lap.number, lap.state, lap.best, lap.milliseconds) for lap in kel.laps(opened)]
        assert [(each["lap"], each["state"], each["best"], each["ms"]) for each in laps] == expected
        assert row["vehicle"] == Path(row["file"]).parts[-3]
        assert row["date"].isoformat() == Path(row["file"]).parts[-2]
        assert row["rate"] == (2 if row["vehicle"] == "kart-004" else 4)
        assert row["software"] == kel.__version__


def test_damaged_files_are_listed_with_reasons(season, out, flotta, tmp_path):
    reasons = [row["reason"] for row in _tables(out)["failures"]]
    assert len(reasons) == DAMAGED
    for word in ("no samples", "112 bytes each", "sample type"):
        assert any(word in reason for reason in reasons), word
    status, _, said = flotta("export", season, "-O", tmp_path / "out", "--jobs", "0")
    assert status == 1 and f"{DAMAGED} failed" in said and "112 bytes" in said


def test_a_second_run_does_nothing(season, tmp_path, monkeypatch):
    out = tmp_path / "out"
    fleet.export([str(season)], str(out), jobs=0)
    before = {name: os.stat(out / name).st_mtime_ns for name in data_files(out)}
    values = whole(out)
    done = fleet.export([str(season)], str(out), jobs=0)
    assert (done.exported, done.unchanged) == (0, RECORDINGS - DAMAGED)
    assert before == {name: os.stat(out / name).st_mtime_ns for name in data_files(out)}
    monkeypatch.setattr("kelfunzioni.fleet._export.__version__", "9.9.9")
    monkeypatch.setattr("kelfunzioni.fleet._decode.__version__", "9.9.9")
    done = fleet.export([str(season)], str(out), jobs=0)
    assert done.exported == RECORDINGS - DAMAGED
    assert whole(out) != values  # the column of the version


@pytest.fixture
def small(season, tmp_path):
    """A season of one kart, which a test may change."""
    folder = tmp_path / "small"
    shutil.copytree(season / "kart-001", folder / "kart-001")
    return folder


def _samples(folder):
    return sorted(folder.rglob("*.samples"))


def test_a_changed_file_is_done_again(small, tmp_path):
    out = tmp_path / "out"
    first = fleet.export([str(small)], str(out), jobs=0)
    changed = _samples(small)[0]
    record = os.path.getsize(changed) // len(_opened(changed))
    changed.write_bytes(changed.read_bytes()[: -5 * record])
    done = fleet.export([str(small)], str(out), jobs=0)
    assert (done.exported, done.unchanged) == (1, first.exported - 1)
    values = whole(out)
    fleet.export([str(small)], str(tmp_path / "fresh"), jobs=0)
    assert values == whole(tmp_path / "fresh")
    [row] = [each for each in _tables(out)["recordings"] if each["file"] == str(changed)]
    assert row["rows"] == len(_opened(changed))


def _opened(samples):
    return kel.Recording(samples.with_suffix(".channels"), samples)


@pytest.mark.long
def test_a_file_changed_with_the_same_size_and_time_needs_checksum(small, tmp_path):
    out, changed = tmp_path / "out", _samples(small)[0]
    fleet.export([str(small)], str(out), jobs=0)
    times, data = os.stat(changed), bytearray(changed.read_bytes())
    data[-1] ^= 1
    changed.write_bytes(data)
    os.utime(changed, ns=(times.st_atime_ns, times.st_mtime_ns))
    assert fleet.export([str(small)], str(out), jobs=0).exported == 0
    assert fleet.export([str(small)], str(out), jobs=0, checksum=True).exported == 1
    whole(out)


def test_a_changed_file_that_is_no_recording_any_more_is_a_failure(small, tmp_path):
    out, changed = tmp_path / "out", _samples(small)[0]
    first = fleet.export([str(small)], str(out), jobs=0)
    changed.with_suffix(".channels").write_bytes(b"nothing")
    done = fleet.export([str(small)], str(out), jobs=0)
    assert [file for file, _ in done.failures] == [str(changed)]
    whole(out)
    assert len(_tables(out)["recordings"]) == first.exported - 1


@pytest.mark.long
def test_a_copy_is_not_exported_twice_and_a_moved_file_not_again(small, tmp_path):
    out = tmp_path / "out"
    first = fleet.export([str(small)], str(out), jobs=0)
    values = whole(out)
    shutil.copytree(small / "kart-001", small / "again" / "kart-001")
    done = fleet.export([str(small)], str(out), jobs=0)
    assert (done.exported, done.copies) == (0, first.exported)
    assert whole(out) == values
    shutil.rmtree(small / "kart-001")
    done = fleet.export([str(small)], str(out), jobs=0)
    assert (done.exported, done.unchanged) == (0, first.exported)
    assert whole(out) == values
    assert all("again" in row["file"] for row in _tables(out)["recordings"])


def test_exports_day_by_day_end_as_one(small, tmp_path):
    whole_run, daily = tmp_path / "whole", tmp_path / "daily"
    fleet.export([str(small)], str(whole_run), jobs=0)
    for samples in (*_samples(small), *sorted(small.rglob("*.ubx"))):
        fleet.export([str(samples)], str(daily), jobs=0)
    assert whole(daily) == whole(whole_run)
    assert data_files(daily) == data_files(whole_run)


def test_unreadable_files_among_good_ones(small, tmp_path):
    (small / "kart-001" / "gone.ubx").symlink_to("nowhere")
    (small / "kart-001" / "noise.ubx").write_bytes(os.urandom(3000))
    (small / "kart-001" / "empty.ubx").touch()
    (small / "kart-001" / "notes.txt").write_text("sunny")
    done = fleet.export([str(small)], str(tmp_path / "out"), jobs=0)
    reasons = {Path(file).name: reason for file, reason in done.failures}
    assert set(reasons) == {"gone.ubx", "noise.ubx", "empty.ubx"}
    assert reasons["gone.ubx"] == "No such file or directory"
    assert done.ignored == 1 and done.exported > 0
    whole(tmp_path / "out")


def test_a_disk_that_fails_to_read(small, tmp_path, monkeypatch):
    broken = _samples(small)[0]
    from kelfunzioni.fleet import _task

    real = _task.content_hash

    def reading(paths):
        if str(broken) in paths:
            raise OSError(errno.EIO, os.strerror(errno.EIO), str(broken))
        return real(paths)

    monkeypatch.setattr(_task, "content_hash", reading)
    done = fleet.export([str(small)], str(tmp_path / "out"), jobs=0)
    assert done.failures == [(str(broken), "Input/output error")]
    whole(tmp_path / "out")


def test_names_that_folders_and_sql_mind(season, tmp_path):
    strange = tmp_path / "it's 50% / a=b" / "Ça va?"
    strange.mkdir(parents=True)
    source = _samples(season)[0]
    for ending in (".channels", ".samples"):
        shutil.copy(source.with_suffix(ending), strange / f"x[1]{ending}")
    out = tmp_path / "o'ut"
    done = fleet.export([str(strange)], str(out), jobs=0)
    assert (done.exported, done.failures) == (1, [])
    whole(out)
    rows = Fleet(str(out)).sql("SELECT DISTINCT vehicle FROM samples_4hz").fetchall()
    assert rows == [("Ça va?",)]


def test_a_recording_without_rows_is_a_failure_and_one_without_a_date_has_none(season, tmp_path):
    folder = tmp_path / "kart"
    folder.mkdir()
    source = _samples(season)[0]
    channels = bytearray(source.with_suffix(".channels").read_bytes())
    (folder / "empty.channels").write_bytes(channels)
    (folder / "empty.samples").write_bytes(b"")
    # Without the packet of the receiver, the last channel, nothing tells the date.
    (folder / "short.channels").write_bytes(channels[:-112])
    rows = len(_opened(source))
    record = os.path.getsize(source) // rows
    raw = source.read_bytes()
    cut = record - 56
    pieces = (raw[i * record : i * record + cut] for i in range(rows))
    (folder / "short.samples").write_bytes(b"".join(pieces))
    assert len(_opened(folder / "short.samples")) == rows
    done = fleet.export([str(folder)], str(tmp_path / "out"), jobs=0)
    assert [(Path(file).name, reason) for file, reason in done.failures] == [
        ("empty.samples", "it has no rows")
    ]
    whole(tmp_path / "out")
    opened = Fleet(str(tmp_path / "out"))
    assert opened.sql("SELECT DISTINCT date, vehicle FROM samples_4hz").fetchall() == [
        (None, "kart")
    ]


@pytest.mark.long
def test_large_recordings_have_row_groups_of_128k_rows(tmp_path):
    folder = tmp_path / "large"
    folder.mkdir()
    names = ["--channels", folder / "x.channels", "--samples", folder / "x.samples"]
    command = [os.environ["KELSIM"], "--laps", "120", "--rate", "25", *names]
    subprocess.run(command, check=True)
    out = tmp_path / "out"
    assert fleet.export([str(folder)], str(out), jobs=0).exported == 1
    [name] = data_files(out)
    metadata = parquet.ParquetFile(out / name).metadata
    groups = [metadata.row_group(i).num_rows for i in range(metadata.num_row_groups)]
    assert groups == [131072, len(_opened(folder / "x.samples")) - 131072]
    whole(out)


def test_sessions_of_a_recording_that_is_too_long_for_laps_in_one_go(season, tmp_path, monkeypatch):
    source, folder = _samples(season)[0], tmp_path / "kart"
    folder.mkdir()
    shutil.copy(source.with_suffix(".channels"), folder / "x.channels")
    (folder / "x.samples").write_bytes(source.read_bytes() * 3)
    decoded = fleet.decode(fleet.find([str(folder)]).sources[0])
    assert sum(batch.num_rows for batch in decoded.batches()) == len(decoded)
    at_once = decoded.rows()["laps"]
    assert {lap["session"] for lap in at_once} == {0, 1, 2}
    for most in (len(decoded) // 3, 2 * len(decoded) // 3):
        monkeypatch.setattr("kelfunzioni.fleet._decode._LAP_ROWS", most)
        assert [(lap["session"], lap["ms"]) for lap in decoded.rows()["laps"]] == [
            (lap["session"], lap["ms"]) for lap in at_once
        ]
    monkeypatch.setattr("kelfunzioni.fleet._decode._LAP_ROWS", 10)
    rows = decoded.rows()
    assert rows["laps"] == [] and "no laps of a session" in rows["recording"]["lap_note"]


@pytest.mark.long
@pytest.mark.parametrize("format", ["csv", "mdf", "mat"])
def test_other_formats(small, tmp_path, format):
    out = tmp_path / "out"
    done = fleet.export([str(small)], str(out), jobs=0, format=format)
    rows = _tables(out)["recordings"]
    assert data_files(out) == sorted(row["data"] for row in rows) and len(rows) == done.exported
    if format == "csv":
        lines = (out / rows[0]["data"]).read_text().splitlines()
        assert len(lines) == rows[0]["rows"] + 2
    assert fleet.export([str(small)], str(out), jobs=0, format=format).exported == 0
    with pytest.raises(kel.KelError, match="accepted: an export in parquet"):
        fleet.connect(str(out))
    with pytest.raises(kel.KelError, match=f"is in {format}"):
        fleet.export([str(small)], str(out), jobs=0)


def test_inputs_as_patterns_and_as_a_list(season, tmp_path, flotta):
    out = tmp_path / "out"
    status, _, _ = flotta("export", f"{season}/kart-001/**/*.samples", "-O", out, "--jobs", "0")
    assert status == 0
    names = "\n".join(map(str, _samples(season / "kart-002")))
    status, _, said = flotta("export", "-", "-O", out, "--jobs", "0", stdin=names)
    assert "exported" in said
    vehicles = {row["vehicle"] for row in _tables(out)["recordings"]}
    assert vehicles == {"kart-001", "kart-002"}


def test_wrong_usage(season, tmp_path, flotta):
    for arguments in (
        ["export", season],
        ["export", season, "-O", tmp_path, "--jobs", "-1"],
        ["export", season, "-O", tmp_path, "--format", "xls"],
        ["export", season, "-O", tmp_path, "--mapping", "*.csv"],
        ["exprot"],
    ):
        status, _, said = flotta(*arguments)
        assert status == 2 and said.startswith("kelflotta") and said.count("\n") == 1, said
    for arguments, word in (
        (["--memory", "much"], "accepted: as 512 MiB"),
        (["--scheduler", "nowhere"], "the scheduler at nowhere is gone"),
    ):
        status, _, said = flotta("export", season, "-O", tmp_path / "out", *arguments)
        assert status == 1 and word in said and said.count("\n") == 1, said
    status, _, said = flotta("export", tmp_path / "none", "-O", tmp_path / "out", "--jobs", "0")
    assert status == 1 and "there is no such file" in said


def test_two_runs_at_once(season, tmp_path):
    from kelfunzioni.fleet._folder import Folder

    with (
        Folder(str(tmp_path)).locked("parquet"),
        pytest.raises(kel.KelError, match="another run"),
    ):
        fleet.export([str(season)], str(tmp_path), jobs=0)


def _limited():
    resource.setrlimit(resource.RLIMIT_FSIZE, (40_000, 40_000))


def test_a_disk_that_is_full(season, tmp_path):
    """Files may not grow beyond some bytes; what is not written whole is not there."""
    out = tmp_path / "out"
    command = [*FLOTTA, "export", str(season), "-O", str(out), "--jobs", "0", "--task-bytes", "1"]
    done = subprocess.run(command, preexec_fn=_limited, capture_output=True, text=True)
    assert done.returncode == 1 and "File too large" in done.stderr, done.stderr
    assert fleet.export([str(season)], str(out), jobs=0).files > 0
    fleet.export([str(season)], str(tmp_path / "fresh"), jobs=0)
    assert whole(out) == whole(tmp_path / "fresh")


@pytest.mark.long
@pytest.mark.skipif(os.geteuid() != 0, reason="a small disk is mounted by root alone")
def test_a_small_disk(season, tmp_path):
    disk = tmp_path / "disk"
    disk.mkdir()
    mounted = subprocess.run(
        ["mount", "-t", "tmpfs", "-o", "size=300k", "tmpfs", disk], capture_output=True
    )
    if mounted.returncode:
        pytest.skip(f"no disk can be mounted here: {mounted.stderr.decode().strip()}")
    try:
        command = [*FLOTTA, "export", str(season), "-O", str(disk / "out"), "--jobs", "0"]
        done = subprocess.run(command, capture_output=True, text=True)
        assert done.returncode == 1 and "No space left on device" in done.stderr, done.stderr
        subprocess.run(["mount", "-o", "remount,size=64m", disk], check=True)
        fleet.export([str(season)], str(disk / "out"), jobs=0)
        fleet.export([str(season)], str(tmp_path / "fresh"), jobs=0)
        assert whole(disk / "out") == whole(tmp_path / "fresh")
    finally:
        subprocess.run(["umount", disk], check=True)


def test_a_file_that_kills_its_worker_is_found_out(season, tmp_path, monkeypatch):
    """The engine says which task died; each of its files gets one of its own."""
    from kelfunzioni.fleet import _export

    victim = str(_samples(season)[0])

    class KilledWorker(Exception):  # noqa: N818  as the engine calls it
        pass

    class Deadly:
        def run(self, tasks):
            for task in tasks:
                sources = getattr(task, "sources", ())
                if sources and isinstance(sources[0], tuple):
                    if any(source.file == victim for source, *_ in sources):
                        yield task, KilledWorker()
                        continue
                yield task, task()

    import contextlib

    monkeypatch.setattr(_export, "engine", lambda *a: contextlib.nullcontext(Deadly()))
    done = fleet.export([str(season)], str(tmp_path / "out"))
    assert [file for file, reason in done.failures if "worker" in reason] == [victim]
    assert done.exported == RECORDINGS - DAMAGED - 1
    whole(tmp_path / "out")


@pytest.mark.long
def test_a_season_is_the_same_to_the_byte(tmp_path):
    simulate(tmp_path / "a", 8)
    simulate(tmp_path / "b", 8)
    for each in ("a", "b"):
        fleet.export([str(tmp_path / each)], str(tmp_path / f"out-{each}"), jobs=0)
    assert whole(tmp_path / "out-a") == whole(tmp_path / "out-b")


if __name__ == "__main__":
    sys.exit(pytest.main([__file__]))
