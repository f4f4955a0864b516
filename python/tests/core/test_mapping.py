"""Tables of other loggers become recordings by a mapping; nothing is dropped on the way."""

import numpy as np
import pytest

import kelfunzioni as kel
from kelfunzioni import mapping
from kelfunzioni.mapping import Mapping


@pytest.fixture(scope="module")
def folder(kart, tmp_path_factory):
    """A recording and a capture as the CSV files of some logger."""
    made = tmp_path_factory.mktemp("logger")
    kel.Recording(kart / "kart.channels", kart / "kart.samples").write(made / "logger.csv")
    kel.Capture(kart / "kart.ubx").write(made / "gps.csv")
    return made


def _csv(folder, text, name="table.csv", **choices):
    (folder / name).write_text(text, encoding="utf-8")
    return mapping.read(folder / name, **choices)


@pytest.mark.parametrize(
    ("column", "unit", "name", "shown", "gain"),
    [
        ("WS_FL", "m/s", "Speed Wheel FL", "km/h", 3.6),
        ("WheelSpeedRR", "kph", "Speed Wheel RR", "km/h", 1.0),
        ("ACCEL_LAT", "m/s^2", "Lateral Accel", "g", 1 / 9.80665),
        ("GYRO_YAW", "rad/s", "Yaw Rate", "deg/s", 180 / np.pi),
        ("Engine Speed", "1/min", "Engine RPM", "rpm", 1.0),
        ("throttle_pos", "%", "Throttle Pos", "%", 1.0),
        ("TPS", "%", "Throttle Pos", "%", 1.0),
        ("Coolant Temp", "degC", "Water Temp", "C", 1.0),
        ("OilPress", "mbar", "Oil Pres", "bar", 0.001),
        ("Lap Time", "s", "Lap Time", "time", 1000.0),
        ("Longitude", "deg", "Longitude", "deg", 1.0),
    ],
)
def test_columns_are_recognised_by_the_catalogues_words(column, unit, name, shown, gain):
    found = mapping.suggest({column: unit}).entries[column]
    assert (found.function.name, found.unit) == (name, shown)
    assert found.gain == pytest.approx(gain, rel=1e-14)


def test_a_temperature_has_an_offset():
    entry = mapping.suggest({"Water Temp": "K"}).entries["Water Temp"]
    assert (entry.unit, entry.gain, entry.offset) == ("C", 1.0, -273.15)


@pytest.mark.parametrize("column", ["Foo", "x12", "", "Oil Press"])
def test_what_nothing_speaks_for_is_no_function(column):
    assert mapping.suggest({column: "Nm"}).unrecognised == [column]


def test_what_is_assumed_is_said():
    entry = mapping.suggest(["Oil Press"]).entries["Oil Press"]
    assert entry.unit == "bar" and "bar is assumed" in entry.note
    assert "fit as well" in mapping.suggest({"Latitude": "deg"}).entries["Latitude"].note


def test_a_recording_comes_back_as_it_was(folder, kart):
    own = kel.Recording(kart / "kart.channels", kart / "kart.samples")
    found = mapping.suggest(mapping.read(folder / "logger.csv"))
    other = found.open(folder / "logger.csv")
    assert other.names == own.names and len(other) == len(own)
    assert np.array_equal(other.time, own.time)
    for info in own.columns:
        if info.kind.startswith("float"):
            one, two = own[info.name], other[info.name]
            assert np.array_equal(one.valid, two.valid), info.name
            entry = found.entries.get(info.name)
            if entry is None or entry.gain == 1:
                same = two.values.astype(one.values.dtype)
                assert np.array_equal(one.values, same, equal_nan=True), info.name
    other.set_unit("Wheel Speed", "mph")
    own.set_unit("Wheel Speed", "mph")
    assert other.units["Wheel Speed"] == "mph"
    assert np.allclose(
        other["Wheel Speed"].values, own["Wheel Speed"].values, rtol=1e-6, equal_nan=True
    )
    assert len(other.between(10, 20)) == len(own.between(10, 20)) == 100
    assert other[5:9]["Engine RPM"].values.shape == (4,)
    assert sum(len(piece) for piece in other.batches(100)) == len(own)


def test_its_laps_are_found(folder, kart):
    found = mapping.suggest(mapping.read(folder / "logger.csv"))
    own = kel.laps(kel.Recording(kart / "kart.channels", kart / "kart.samples"))
    other = kel.laps(found.open(folder / "logger.csv"))
    assert [lap.milliseconds for lap in other] == [lap.milliseconds for lap in own]
    assert other.best.number == own.best.number
    starts = [lap.start for lap in own]
    assert [lap.start for lap in other] == pytest.approx(starts, abs=0.11)


def test_laps_by_position_are_those_of_the_receiver(folder, kart):
    recording = mapping.suggest(mapping.read(folder / "gps.csv")).open(folder / "gps.csv")
    own = kel.laps(kel.Capture(kart / "kart.ubx"))
    other = kel.laps(recording)
    closed = [lap.milliseconds for lap in own if lap.milliseconds]
    assert len(closed) == 3
    assert [lap.milliseconds for lap in other if lap.milliseconds] == pytest.approx(closed, abs=2)
    line = kel.FinishLine(44.8231, 10.4114231, 90.0)
    split = kel.laps(recording, line=line, sectors=[300, 600])
    assert sum(split.best.sectors) == split.best.milliseconds
    with pytest.raises(kel.RecordingError, match="lap numbers"):
        kel.laps(recording, source="logger")
    with pytest.raises(kel.RecordingError, match="latitude"):
        kel.laps(mapping.read(folder / "gps.csv"))


def test_positions_that_a_logger_repeats_are_one(folder, kart):
    """Ten rows for each solution of the receiver; and standing is no gap."""
    capture = kel.Capture(kart / "kart.ubx")
    place = capture.read(["Latitude", "Longitude"])
    rows = ["time,Latitude [deg],Longitude [deg]"]
    for time, *where in zip(capture.time, *(c.values for c in place.values()), strict=True):
        if not np.isnan(where[0]):
            rows += [f"{time + i / 100:.3f},{where[0]!r},{where[1]!r}" for i in range(10)]
    text = "\n".join(rows).replace("np.float64(", "").replace(")", "")
    found = mapping.suggest(_csv(folder, text, "repeated.csv"))
    laps = kel.laps(found.open(folder / "repeated.csv"))
    closed = [lap.milliseconds for lap in kel.laps(capture) if lap.milliseconds]
    assert [lap.milliseconds for lap in laps if lap.milliseconds] == pytest.approx(closed, abs=3)


def test_a_mapping_is_kept_as_toml(tmp_path):
    kept = Mapping(unrecognised=["plain", 'quo"te', "new\nline", "del\x7f", "ü"])
    kept.set('a "b" \\ c.d', "OIL_PRESS", "psi", gain=0.1, offset=-2.5e-7, name="Öl\x7f")
    kept.set("RPM", 0x0F)
    kept.save(tmp_path / "kept.toml")
    again = Mapping.load(tmp_path / "kept.toml")
    assert again == kept
    entry = again.entries['a "b" \\ c.d']
    assert (entry.function.legacy_id, entry.unit, entry.offset) == ("OIL_PRESS", "psi", -2.5e-7)


@pytest.mark.parametrize(
    ("text", "says"),
    [
        ("columns = 3", "toml"),
        ("[columns.a]\nfunction = 'REF_SPED'", "REF_SPED"),
        ("[columns.a]\nunit = 'km/h'", "no function"),
        ("[columns.a]\nfunction = 'REF_SPEED'\nunit = 'mhp'", "did you mean 'mph'"),
        ("[columns.a]\nfunction = 'REF_SPEED'\ngian = 2", "did you mean 'gain'"),
        ("[columns.a]\nfunction = 'REF_SPEED'\ngain = 0", "no gain of 0"),
        ("[columns.a]\nfunction = 'REF_SPEED'\ngain = 'x'", "wrong.toml"),
        ("[columns.a]\nfunction = 'REF_SPEED'\ngain = nan", "accepted: numbers"),
        ("[columns.a]\nfunction = 'REF_SPEED'\nname = 'time'", "not 'time'"),
        ("[column.a]\n", "did you mean 'columns'"),
        ("[[", "no TOML"),
    ],
)
def test_wrong_mappings_say_what_is_wrong(tmp_path, text, says):
    (tmp_path / "wrong.toml").write_text(text)
    with pytest.raises(kel.KelError, match=says):
        Mapping.load(tmp_path / "wrong.toml")


def test_bytes_that_are_no_toml(tmp_path):
    (tmp_path / "wrong.toml").write_bytes(b"\xff\xfe")
    with pytest.raises(kel.KelError, match="no TOML"):
        Mapping.load(tmp_path / "wrong.toml")
    with pytest.raises(FileNotFoundError):
        Mapping.load(tmp_path / "none.toml")


def test_separators_and_decimal_commas(tmp_path):
    found = _csv(
        tmp_path, "Logger;X\n;;\ntime;Engine RPM [rpm];Note\n0,0;1000,5;go\n0,1;;\n0,2;999;stop\n"
    )
    assert found.time.tolist() == [0.0, 0.1, 0.2]
    column = found["Engine RPM"]
    assert column.unit == "rpm" and column.valid.tolist() == [True, False, True]
    assert column.values[[0, 2]].tolist() == [1000.5, 999.0]
    assert found.texts("Note").tolist() == ["go", "", "stop"]
    with pytest.raises(kel.KelError, match="texts alone"):
        found["Note"]
    tabs = _csv(tmp_path, "Time (ms)\tA\n0\t1\n500\t2\n")
    assert tabs.time.tolist() == [0.0, 0.5] and tabs.names == ("A",)


def test_a_row_of_units_and_clock_times(tmp_path):
    found = _csv(tmp_path, '"time","Lap","V"\n"s","","V"\n1:00.5,0:59.25,12\n1:01.0,,13\n')
    assert found.start == 60.5 and found.time.tolist() == [0.0, 0.5]
    assert found["Lap"].values[0] == 59.25 and found["Lap"].unit == "s"
    assert found["V"].unit == "V"


def test_each_rate_has_a_time_base(tmp_path):
    rows = ["time,fast,slow,also slow,gaps"]
    for i in range(20):
        slow = f"{i},{i * 2}" if i % 5 == 0 else ","
        rows.append(f"{i / 100},{i},{slow},{i if i != 7 else ''}")
    found = _csv(tmp_path, "\n".join(rows))
    assert [table.names for table in found.tables] == [("fast", "gaps"), ("slow", "also slow")]
    assert found.table_of("slow").time.tolist() == [0.0, 0.05, 0.1, 0.15]
    assert found["slow"].values.tolist() == [0, 5, 10, 15] and found["slow"].valid.all()
    assert len(found["fast"].values) == 20 and not found["gaps"].valid[7]
    for call in (
        lambda: len(found), lambda: found.time, lambda: found[:3], lambda: found.between(0, 1),
        found.to_numpy, lambda: found.write(tmp_path / "out.csv"), found.as_texts,
        lambda: found.__arrow_c_stream__(), lambda: next(found.batches()),
    ):  # fmt: skip
        with pytest.raises(kel.RecordingError, match=r"2 time bases .*accepted: one of its tables"):
            call()
    joined = found.on("fast")
    assert joined["slow"].values.tolist() == [i // 5 * 5 for i in range(20)]
    assert found.on("slow", ["fast"])["fast"].values.tolist() == [0, 5, 10, 15]
    joined.write(tmp_path / "out.csv")
    assert (tmp_path / "out.csv").read_text().startswith("time,fast,gaps,slow,also slow\n")


def test_before_the_first_sample_it_is_missing(tmp_path):
    late = "".join(f"{i},{i},{i if i in (5, 15) else ''}\n" for i in range(20))
    joined = _csv(tmp_path, f"time,a,late\n{late}").on("a")
    assert joined["late"].valid.tolist() == [False] * 5 + [True] * 15
    assert joined["late"].values[14] == 5


def test_rows_without_times(tmp_path):
    text = "a,b\n1,2\n3,4\n"
    plain = _csv(tmp_path, text)
    assert not plain.has_time and len(plain) == 2
    with pytest.raises(kel.RecordingError, match="no time"):
        plain.time  # noqa: B018
    assert _csv(tmp_path, text, rate=10).time.tolist() == [0.0, 0.1]
    for wrong in (0, -1, float("nan")):
        with pytest.raises(kel.KelError, match=r"accepted: 0\.001"):
            _csv(tmp_path, text, rate=wrong)


def test_no_column_is_dropped_and_no_two_have_one_name(tmp_path):
    found = _csv(tmp_path, "time,A,A,B,,X\n0,1,2,3,4,x\n1,1,2,3,4,y\n")
    assert len(set(found.names)) == len(found.names) == 5
    assert set(found.unrecognised) == set(found.names)


@pytest.mark.parametrize("text", ["", "a,b\n", "1,2\n3,4\n", "only words\nand more\n"])
def test_what_is_no_table(tmp_path, text):
    with pytest.raises(kel.RecordingError, match="row"):
        _csv(tmp_path, text)


def test_columns_of_a_recording_do_not_change(tmp_path):
    column = _csv(tmp_path, "time,a\n0,1\n1,2\n")["a"]
    with pytest.raises(ValueError, match="read-only"):
        column.values[0] = 9


def test_names_are_given_once(tmp_path):
    _csv(tmp_path, "time,a,b\n0,1,2\n1,2,3\n")
    found = Mapping()
    found.set("a", "REF_SPEED", "mph", gain=2, name="b")
    with pytest.raises(kel.KelError, match="'a' and 'b' would both be called 'b'"):
        found.open(tmp_path / "table.csv")
    found.set("b", "REF_SPEED", name="c")
    opened = found.open(tmp_path / "table.csv")
    assert opened["b"].values.tolist() == [2, 4] and opened.units == {"b": "mph", "c": "km/h"}


def test_wrong_arguments(tmp_path):
    (tmp_path / "a.csv").write_text("time,a\n0,1\n1,2\n")
    found = mapping.read(tmp_path / "a.csv")
    with pytest.raises(kel.KelError, match="did you mean 'csv'"):
        mapping.read(tmp_path / "a.csv", "cvs")
    with pytest.raises(kel.KelError, match="no format 'xyz'; accepted: csv"):
        mapping.read(tmp_path / "a.xyz")
    with pytest.raises(FileNotFoundError):
        mapping.read(tmp_path / "b.csv")
    for wrong in (None, 3, b"a.csv"):
        with pytest.raises(TypeError, match="accepted"):
            mapping.read(wrong)
    for call in (lambda: mapping.suggest("a"), lambda: mapping.suggest([1]), lambda: found[1]):
        with pytest.raises(TypeError, match="accepted"):
            call()
    for call in (lambda: found["b"], lambda: found.on("b"), lambda: found.texts("b")):
        with pytest.raises(kel.NotFoundError, match="no column 'b'"):
            call()
    with pytest.raises(kel.KelError, match="it has no unit"):
        found.set_unit("a", "mph")
    with pytest.raises(TypeError, match="accepted"):
        found.set_unit("a", None)
    with pytest.raises(TypeError, match="its name"):
        Mapping().set(3, "REF_SPEED")


def test_names_that_are_no_utf8(tmp_path):
    (tmp_path / "a.csv").write_bytes(b"time,\xfc,a\0b\n0,1,2\n1,2,3\n")
    assert len(mapping.read(tmp_path / "a.csv").names) == 2


def test_a_cell_may_hold_lines_and_no_cell_is_endless(tmp_path):
    found = _csv(tmp_path, 'time,note\n0,"one\ntwo"\n1,three\n')
    assert found.texts("note").tolist() == ["one\ntwo", "three"]
    with pytest.raises(kel.RecordingError, match="no table"):
        _csv(tmp_path, f"time,a\n0,{'1' * 200_000}\n")
