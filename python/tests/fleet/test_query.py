"""Queries, views, functions in SQL, and pictures, against what the package says by itself."""

import json
import struct
import subprocess

import numpy as np
import pytest
from pyarrow import parquet
from seasons import FLOTTA

import kelfunzioni as kel
from kelfunzioni import fleet
from kelfunzioni.fleet._query import Fleet


@pytest.fixture(scope="module")
def opened(out):
    return Fleet(str(out))


def test_the_command_is_installed(out):
    command = [*FLOTTA, "query", str(out), "SELECT 1 AS one", "--format", "csv"]
    done = subprocess.run(command, capture_output=True, text=True)
    assert (done.returncode, done.stdout, done.stderr) == (0, "one\n1\n", "")


def _each(opened):
    """Each recording with its row."""
    for name, file, kind in opened.sql("SELECT recording, file, kind FROM recordings").fetchall():
        paths = [file.replace(".samples", ".channels"), file]
        yield name, kel.Recording(*paths) if kind == "recording" else kel.Capture(file)


def test_best_laps(opened):
    best = {}
    vehicles = dict(opened.sql("SELECT recording, vehicle FROM recordings").fetchall())
    for name, recording in _each(opened):
        for lap in kel.laps(recording):
            if lap.state == "good":
                vehicle = vehicles[name]
                best[vehicle] = min(best.get(vehicle, lap.milliseconds), lap.milliseconds)
    found = opened.sql(
        "SELECT vehicle, min(ms), any_value(lap_time) FROM best_laps GROUP BY vehicle"
    )
    rows = found.fetchall()
    assert {vehicle: ms for vehicle, ms, _ in rows} == best and len(best) == 4
    one = opened.sql("SELECT ms, lap_time FROM best_laps LIMIT 1").fetchall()[0]
    assert one[1] == kel.format_lap(one[0])


def test_laps_of_different_tracks_are_not_compared(opened):
    tracks = opened.sql("SELECT count(DISTINCT track) FROM recordings").fetchall()
    days = opened.sql("SELECT count(DISTINCT date) FROM recordings").fetchall()
    assert tracks == days and tracks[0][0] > 1  # karts drive on another track each day


def test_where_was(opened):
    expected = []
    for name, recording in _each(opened):
        if "Wheel Speed" not in recording.names:
            continue
        column = recording["Wheel Speed"]
        hits = np.flatnonzero(column.valid & (column.values > 60))
        for run in np.split(hits, np.flatnonzero(np.diff(hits) > 1) + 1):
            if len(run):
                start = recording.time[run[0]] - recording.time[0]
                expected.append((name, round(start, 3), len(run)))
    found = opened.sql(
        "SELECT recording, round(start, 3), samples, latitude, lap "
        "FROM where_was('0x00070010', 'value > 60')"
    ).fetchall()
    assert sorted((name, start, samples) for name, start, samples, _, _ in found) == sorted(
        expected
    )
    assert len(expected) > 10
    assert all(latitude is not None and lap is not None for *_, latitude, lap in found)
    number = opened.sql(f"SELECT count(*) FROM where_was({0x00070010}, 'value > 60')").fetchall()
    assert number == [(len(expected),)]


def test_channel_statistics(opened):
    row = opened.sql(
        "SELECT least, greatest, mean, samples - nulls FROM channel_statistics "
        "WHERE name = 'Engine RPM'"
    ).fetchall()[0]
    parts = [
        column.values[column.valid]
        for _, recording in _each(opened)
        if "Engine RPM" in recording.names
        for column in [recording["Engine RPM"]]
    ]
    values = np.concatenate(parts).astype(float)
    assert row[:2] == (values.min(), values.max()) and row[3] == len(values)
    assert row[2] == pytest.approx(values.mean())


def test_functions(opened):
    ask = opened.sql
    assert ask("SELECT kel_name('0x05070010')").fetchall() == [("Speed Wheel FL",)]
    assert ask(
        "SELECT kel_name(84344848), kel_name('REF_SPEED_FL'), kel_name(NULL)"
    ).fetchall() == [("Speed Wheel FL", "Speed Wheel FL", None)]
    values = ask(
        "SELECT kel_convert(v, f, 'km/h', u) FROM (VALUES (100, '0x05070010', 'mph'), "
        "(NULL, '0x05070010', 'mph'), (50, '0x05070010', 'km/h')) AS t(v, f, u)"
    ).fetchall()
    speed = kel.Function(0x05070010)
    assert values == [(kel.convert(100.0, speed, "km/h", "mph"),), (None,), (50.0,)]
    assert ask("SELECT kel_lap(83456), kel_lap(NULL), kel_lap(-1)").fetchall() == [
        ("1:23.456", None, None)
    ]


def test_answers_in_every_format(out, flotta, tmp_path):
    query = "SELECT vehicle, ms FROM best_laps ORDER BY ALL"
    expected = Fleet(str(out)).sql(query).fetchall()
    status, text, _ = flotta("query", out, query)
    assert status == 0 and expected[0][0] in text and str(expected[0][1]) in text
    _, text, _ = flotta("query", out, query, "--format", "csv")
    assert text.splitlines() == ["vehicle,ms", *(f"{name},{ms}" for name, ms in expected)]
    _, text, _ = flotta("query", out, query, "--format", "json")
    assert [(row["vehicle"], row["ms"]) for row in json.loads(text)] == expected
    status, text, _ = flotta("query", out, query, "-o", tmp_path / "b.parquet")
    rows = parquet.read_table(tmp_path / "b.parquet").to_pylist()
    assert status == 0 and text == "" and [(row["vehicle"], row["ms"]) for row in rows] == expected


def test_the_shell_answers_each_statement(out, flotta):
    lines = (
        "SELECT 41 + 1 AS answer;\nSELECT count(*) AS n\nFROM laps;\n"
        "CREATE TABLE t AS SELECT 7 AS x;\nFROM t;\n"
    )
    status, text, said = flotta("query", out, "--format", "csv", stdin=lines)
    count = Fleet(str(out)).sql("SELECT count(*) FROM laps").fetchall()[0][0]
    assert (status, said) == (0, "")
    assert text.split() == ["answer", "42", "n", str(count), "x", "7"]


def test_wrong_questions(out, flotta, tmp_path):
    for query, word in (
        ("SELEC 1", "syntax error"),
        ("FROM lapps", "lapps"),
        ("FROM where_was('0x00000BAD', 'value > 1')", "0x00000BAD"),
        ("SELECT kel_name('no such')", "no such"),
    ):
        status, text, said = flotta("query", out, query)
        assert (status, text) == (1, "") and word in said and said.count("\n") == 1, said
    status, _, said = flotta("query", tmp_path, "FROM laps")
    assert status == 1 and "has no export" in said
    status, _, said = flotta("query", out, "FROM laps", "-o", tmp_path / "x.xls")
    assert status == 2 and "accepted: .csv, .json, .parquet" in said


def _size_of(png):
    return struct.unpack(">II", png.read_bytes()[16:24])


def test_plots(out, flotta, tmp_path):
    laps = "SELECT * FROM best_laps ORDER BY ms LIMIT 3"
    status, _, said = flotta("plot", out, laps, "-o", tmp_path / "laps.png")
    assert (status, said) == (0, "")
    width, height = _size_of(tmp_path / "laps.png")
    assert width > 600 and height > 300
    status, _, said = flotta("plot", out, laps, "-o", tmp_path / "x.png", "--channel", "Speeed")
    assert status == 1 and "accepted" in said
    assert flotta("plot", out, laps, "-o", tmp_path / "laps.txt")[0] == 2
    assert flotta("plot", out, "SELECT 'a' AS x", "-o", tmp_path / "x.png")[0] == 1


def test_what_plots_show(opened):
    from kelfunzioni.fleet._plot import plot

    rows = opened.sql("SELECT recording, lap, ms, vehicle FROM best_laps ORDER BY ms LIMIT 2")
    figure = plot(opened, "SELECT * FROM best_laps ORDER BY ms LIMIT 2")
    lines = figure.axes[0].get_lines()
    for line, (_, number, ms, vehicle) in zip(lines, rows.fetchall(), strict=True):
        assert vehicle in line.get_label() and kel.format_lap(ms) in line.get_label()
        assert f"lap {number} " in line.get_label()
        metres = line.get_xdata()[-1]
        assert 850 < metres < 1300  # the length of a circuit
    groups = plot(opened, "SELECT vehicle, ms FROM laps WHERE state = 'good'").axes[0]
    assert [each.get_text() for each in groups.get_yticklabels()] == [
        f"kart-00{i}" for i in (1, 2, 3, 4)
    ]
    bars = plot(opened, "SELECT ms FROM laps WHERE state = 'good'").axes[0]
    count = opened.sql("SELECT count(*) FROM laps WHERE state = 'good'").fetchall()[0][0]
    assert sum(bar.get_height() for bar in bars.patches) == count


def test_connect_gives_all_views(out):
    connection = fleet.connect(str(out))
    views = {name for (name,) in connection.sql("SHOW TABLES").fetchall()}
    assert {"recordings", "laps", "channels", "failures", "best_laps", "channel_statistics"} < views
    assert {"samples_4hz", "samples_2hz"} < views
