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
from kelfunzioni.fleet._decode import _line_in
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
    assert "of more than 10 rows was not followed" in decoded.rows()["recording"]["lap_note"]


@pytest.mark.parametrize("kind", ["logger", "gps", "capture"])
def test_a_session_that_is_too_long_for_laps_in_one_go(tmp_path, monkeypatch, kind):
    """Its laps are found in windows: the same, wherever these end."""
    folder = tmp_path / "kart"
    folder.mkdir()
    names = ["--channels", "x.channels", "--samples", "x.samples", "x.ubx"]
    command = [os.environ["KELSIM"], "--laps", "16", "--rate", "5", *names]
    subprocess.run(command, cwd=folder, check=True, capture_output=True)
    left = [".ubx"] if kind == "capture" else [".samples", ".channels"]
    for each in folder.iterdir():
        if each.suffix not in left:
            each.unlink()
    if kind == "gps":  # without the logger's laps
        monkeypatch.setattr(
            "kelfunzioni.fleet._decode.laps",
            lambda table, line: kel.laps(table, source="gps", line=line),
        )
    decoded = fleet.decode(fleet.find([str(folder)]).sources[0])
    for _ in decoded.batches():
        pass
    assert len(decoded.rows()["laps"]) > 14
    for most in (1501, 1900, 2503, len(decoded) - 1):
        monkeypatch.setattr("kelfunzioni.fleet._decode._LAP_ROWS", most)
        rows = decoded.rows()
        # By GPS the line is the one that the first window had: here it is given.
        line = _line_in([rows["recording"]["lap_note"]])
        assert (line is None) == (kind == "logger")
        at_once = kel.laps(decoded.table, source="any" if line is None else "gps", line=line)
        assert [(lap["lap"], lap["state"], lap["ms"]) for lap in rows["laps"]] == [
            (lap.number, lap.state, lap.milliseconds) for lap in at_once
        ]
        starts = [lap["start"] for lap in rows["laps"]]
        assert np.allclose(starts, [lap.start for lap in at_once], atol=1e-3)
        best = [lap["lap"] for lap in rows["laps"] if lap["best"]]
        assert best == [lap.number for lap in at_once if lap.best]


def test_laps_start_on_the_clock_of_the_samples(season, tmp_path):
    """Whatever the stamps begin with, and in a second session too."""
    source, folder = _samples(season)[0], tmp_path / "kart"
    folder.mkdir()
    opened = _opened(source)
    shutil.copy(source.with_suffix(".channels"), folder / "x.channels")
    records = np.fromfile(source, np.uint8).reshape(len(opened), -1)
    stamps = records[:, :4].copy().view("<u4").ravel()
    assert opened.stamps == "u32ms"
    pieces = []
    for later in (123_000, 5_000_000):
        piece = records.copy()
        piece[:, :4] = (stamps + np.uint32(later)).view(np.uint8).reshape(-1, 4)
        pieces.append(piece)
    np.concatenate(pieces).tofile(folder / "x.samples")
    decoded = fleet.decode(fleet.find([str(folder)]).sources[0])
    assert sum(batch.num_rows for batch in decoded.batches()) == 2 * len(opened)
    expected = [lap.start - opened.time[0] for lap in kel.laps(opened)]
    for session in (0, 1):
        found = [lap["start"] for lap in decoded.rows()["laps"] if lap["session"] == session]
        assert np.allclose(found, expected, atol=1e-6)


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


@pytest.mark.long
def test_mdf_goes_through_little_memory(kart, tmp_path):
    """Pieces are appended to a temporary file: five times the rows take hardly more memory."""
    program = """if True:
        import sys, warnings

        warnings.simplefilter("ignore")
        import kelfunzioni as kel
        from kelfunzioni import _export

        _export._ROWS = 1 << 13
        peaks = []
        for times in (20, 100):
            with open("long", "wb") as file:
                for _ in range(times):
                    file.write(open(sys.argv[2], "rb").read())
            kel.Recording(sys.argv[1], "long").write("long.mf4")
            with open("/proc/self/status") as file:
                peaks += [int(line.split()[1]) for line in file if line.startswith("VmHWM:")]
        print((peaks[1] - peaks[0]) // 1024)
    """
    files = [kart / "kart.channels", kart / "kart.samples"]
    command = [sys.executable, "-c", program, *files]
    done = subprocess.run(command, capture_output=True, text=True, check=True, cwd=tmp_path)
    assert int(done.stdout) < 40


def test_inputs_as_patterns_and_as_a_list(season, tmp_path, flotta):
    out = tmp_path / "out"
    status, _, _ = flotta("export", f"{season}/kart-001/**/*.samples", "-O", out, "--jobs", "0")
    assert status == 0
    names = "\n".join(map(str, _samples(season / "kart-002")))
    status, _, said = flotta("export", "-", "-O", out, "--jobs", "0", stdin=names)
    assert "exported" in said
    vehicles = {row["vehicle"] for row in _tables(out)["recordings"]}
    assert vehicles == {"kart-001", "kart-002"}


LOGGER = """Time [s],RPM [1/min],Speed [km/h],Lap,Lat,Lon,Mood,Gear
"""


def _logger(path, laps=3, begin=0.0):
    """A CSV of another logger: 10 rows a second, the gear in every fifth of them, laps of 30 s."""
    lines = []
    for i in range(300 * laps):
        turn = 2 * np.pi * (i % 300) / 300
        lat, lon = 44.8 + 0.002 * np.sin(turn), 10.3 + 0.003 * np.cos(turn)
        gear = 1 + i // 100 % 5 if i % 5 == 0 else ""
        lines.append(
            f"{begin + i / 10:.1f},{3000 + i},{60 + i % 50},{i // 300 + 1},{lat:.7f},{lon:.7f},"
            f"{'good' if i % 2 else ''},{gear}\n"
        )
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(LOGGER + "".join(lines))


@pytest.fixture
def logger(tmp_path):
    """Two recordings of another logger, and their mapping."""
    from kelfunzioni import mapping

    for number in (1, 2):
        _logger(tmp_path / f"car/2025-04-0{number}/{number}.csv", 2 + number, 5.0 * number)
    mapped = mapping.suggest(mapping.read(tmp_path / "car/2025-04-01/1.csv"))
    mapped.save(tmp_path / "logger.toml")
    return tmp_path


def test_files_with_a_mapping_go_the_same_way(logger, season, flotta):
    from kelfunzioni import mapping

    out = logger / "out"
    shutil.copytree(season / "kart-001", logger / "car" / "kart-001")
    given = [
        "export",
        logger / "car",
        "-O",
        out,
        "--jobs",
        "0",
        "--mapping",
        logger / "logger.toml",
    ]
    status, _, said = flotta(*given)
    assert status == 0 and "0 failed" not in said, said
    values, tables = whole(out), _tables(out)
    for file in sorted((logger / "car").rglob("*.csv")):
        opened = mapping.Mapping.load(logger / "logger.toml").open(file)
        rows = [row for row in tables["recordings"] if row["file"] == str(file)]
        assert len(rows) == len(opened.tables) == 2
        assert {(row["rate"], row["rows"]) for row in rows} == {
            (10.0, len(opened.tables[0])),
            (2.0, len(opened.tables[1])),
        }
        rows.sort(key=lambda row: -row["rows"])
        for row, table in zip(rows, opened.tables, strict=True):
            assert (row["kind"], row["vehicle"]) == ("mapped", "car")
            assert row["date"].isoformat() == file.parent.name
            data = parquet.ParquetFile(out / row["data"]).read()
            data = data.filter(pyarrow.compute.equal(data["recording"], row["recording"]))
            assert np.allclose(data["time"], table.time, atol=1e-9)
            for info in table.columns:
                if info.kind == "text":
                    found = [each or "" for each in data[info.name].to_pylist()]
                    assert found == table.texts(info.name).tolist()
                    continue
                expected = pyarrow.chunked_array([pyarrow.array(table[info.name])])
                assert data[info.name].equals(expected.cast(data[info.name].type)), info.name
            channels = [c for c in tables["channels"] if c["recording"] == row["recording"]]
            assert [each["name"] for each in channels] == list(table.names)
        found = [lap for lap in tables["laps"] if lap["recording"] == rows[0]["recording"][:16]]
        expected = [(lap.number, lap.state, lap.milliseconds) for lap in kel.laps(opened)]
        assert [(lap["lap"], lap["state"], lap["ms"]) for lap in found] == expected != []
        assert sum(row["laps"] for row in rows) == sum(lap["state"] == "good" for lap in found)
    # A second run leaves all as it is; a lost data file takes all tables of its file with it.
    before = data_files(out)
    assert flotta(*given)[0] == 0 and data_files(out) == before and whole(out) == values
    [gear] = {
        row["data"] for row in tables["recordings"] if row["rate"] == 2.0 and "04-01" in row["data"]
    }
    (out / gear).unlink()
    status, _, said = flotta(*given)
    assert status == 0 and "1 exported" in said
    assert data_files(out) == before and whole(out) == values
    # Laps stand with the rows that they were found in, and are those of the others, too.
    [fid] = {
        c["identifier"] for c in tables["channels"] if c["name"] == "Gear" and c["rate"] == 2.0
    }
    was = Fleet(str(out)).sql(
        f"SELECT lap FROM where_was('{fid}', 'value = 3') WHERE vehicle = 'car'"
    )
    found = {lap for (lap,) in was.fetchall()}
    assert found and found <= {lap["lap"] for lap in tables["laps"]}


@pytest.mark.parametrize("format", ["csv", "mdf", "mat"])
def test_files_with_a_mapping_in_other_formats(logger, tmp_path, format):
    out = tmp_path / "out"
    mappings = [("*.csv", str(logger / "logger.toml"))]
    done = fleet.export([str(logger / "car")], str(out), jobs=0, format=format, mappings=mappings)
    assert (done.exported, done.failures) == (2, [])
    assert sorted(row["data"] for row in _tables(out)["recordings"]) == data_files(out)
    assert len(data_files(out)) == 4


def test_a_changed_mapping_is_done_again(logger):
    out, toml = logger / "out", logger / "logger.toml"
    mappings = [("*.csv", str(toml))]
    fleet.export([str(logger / "car")], str(out), jobs=0, mappings=mappings)
    toml.write_text(toml.read_text().replace('[columns."Speed"]', '[columns."Speed"]\ngain = 2.0'))
    done = fleet.export([str(logger / "car")], str(out), jobs=0, mappings=mappings)
    assert (done.exported, done.unchanged) == (2, 0)
    whole(out)
    most = [c["greatest"] for c in _tables(out)["channels"] if c["name"] == "Speed"]
    assert most == [218.0, 218.0]
    bad = logger / "car" / "bad.csv"
    bad.write_text("no numbers\n")
    done = fleet.export([str(logger / "car")], str(out), jobs=0, mappings=mappings)
    assert [file for file, _ in done.failures] == [str(bad)]


def test_what_must_be_in_memory_whole_is_refused_where_there_is_too_little(logger, small, flotta):
    mapped = ["export", logger / "car", "-O", logger / "out", "--jobs", "0"]
    given = ["--mapping", logger / "logger.toml"]
    status, _, said = flotta(*mapped, *given, "--memory", "200 MiB")
    assert status == 1 and "2 failed" in said and "in memory whole" in said
    [word] = {row["reason"].split("accepted: ")[1] for row in _tables(logger / "out")["failures"]}
    assert word.startswith("--memory '20")
    assert flotta(*mapped, *given)[0] == 0
    whole(logger / "out")
    mat = ["export", small, "-O", logger / "mat", "--format", "mat", "--jobs", "0"]
    status, _, said = flotta(*mat, "--memory", "200 MiB")
    assert status == 1 and "in memory whole" in said
    assert flotta(*mat)[0] == 0


def test_a_can_log_with_its_database(tmp_path):
    pytest.importorskip("can"), pytest.importorskip("cantools")
    from kelfunzioni import mapping

    database, log, toml = tmp_path / "car.dbc", tmp_path / "car" / "a.log", tmp_path / "car.toml"
    database.write_text(
        'VERSION ""\nBU_: ECU\n'
        'BO_ 256 Motor: 8 ECU\n SG_ RPM : 0|16@1+ (1,0) [0|0] "rpm" ECU\n'
        'BO_ 512 Wheels: 8 ECU\n SG_ Speed : 0|16@1+ (0.01,0) [0|0] "km/h" ECU\n'
    )
    log.parent.mkdir()
    begin = 1_740_909_600.0  # 2 March 2025, 10:00 UTC
    lines = []
    for i in range(400):
        jitter = (i * 7919 % 11 - 5) * 1e-5
        data = (3000 + i).to_bytes(8, "little").hex().upper()
        lines.append(f"({begin + i / 100 + jitter:.6f}) can0 100#{data}")
        if i % 5 == 0:
            data = (i * 10).to_bytes(8, "little").hex().upper()
            lines.append(f"({begin + i / 100 + 0.001:.6f}) can0 200#{data}")
    log.write_text("\n".join(lines) + "\n")
    found = mapping.suggest(mapping.read(log, database=database))
    found.save(toml)
    out = tmp_path / "out"
    done = fleet.export([str(log.parent)], str(out), jobs=0, mappings=[("*.log", str(toml))])
    assert (done.exported, done.failures) == (1, [])
    whole(out)
    rows = _tables(out)["recordings"]
    assert {(row["rate"], row["rows"]) for row in rows} == {(100.0, 400), (20.0, 80)}
    assert all(abs(row["start"].timestamp() - begin) < 1e-3 for row in rows)
    assert {row["date"].isoformat() for row in rows} == {"2025-03-02"}
    # The database is part of what tells whether a file has changed.
    database.write_text(database.read_text().replace("(0.01,0)", "(0.02,0)"))
    done = fleet.export([str(log.parent)], str(out), jobs=0, mappings=[("*.log", str(toml))])
    assert (done.exported, done.unchanged) == (1, 0)


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
