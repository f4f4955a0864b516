"""Other loggers' MDF files, CAN logs and NMEA become recordings on which everything works."""

import os
from pathlib import Path

import can
import cantools
import numpy as np
import polars
import pyarrow as pa
import pyarrow.compute
import pytest
from asammdf import MDF, Signal

import kelfunzioni as kel
from kelfunzioni import mapping, plot

DBC = """VERSION ""
BS_:
BU_: ECU
BO_ 256 Fast: 8 ECU
 SG_ EngineSpeed : 0|16@1+ (0.25,0) [0|16000] "rpm" ECU
 SG_ OilPress : 16|16@1- (0.01,-1) [0|0] "bar" ECU
BO_ 512 Mux: 8 ECU
 SG_ Which M : 0|8@1+ (1,0) [0|1] "" ECU
 SG_ WaterTemp m0 : 8|8@1+ (1,-40) [0|0] "degC" ECU
 SG_ Mystery m1 : 8|16@0+ (1,0) [0|0] "xyz" ECU
"""


@pytest.fixture
def log(tmp_path):
    """A CAN log of 2 s: a message at 100 Hz, one at 20 Hz with two kinds of rows, and strangers."""
    (tmp_path / "car.dbc").write_text(DBC)
    known = cantools.database.load_file(tmp_path / "car.dbc")
    with can.Logger(str(tmp_path / "car.log")) as out:
        for i in range(200):
            fast = {"EngineSpeed": 1000 + i, "OilPress": 2.5}
            frames = [(256, known.encode_message("Fast", fast))]
            if i % 5 == 0:
                one = {"Which": 0, "WaterTemp": 80} if i % 10 else {"Which": 1, "Mystery": i}
                frames.append((512, known.encode_message("Mux", one)))
            if i % 50 == 0:
                frames.append((0x7FF, b"\1\2"))
            for identifier, data in frames:
                frame = can.Message(1000 + i / 100, identifier, is_extended_id=False, data=data)
                out.on_message_received(frame)
    return tmp_path


def test_a_can_log(log):
    raw = mapping.read(log / "car.log", database=log / "car.dbc")
    found = mapping.suggest(raw)
    assert found.unrecognised == ["Which", "Mystery", "Mux Which", "CAN 0x7FF frames"]
    found.save(log / "car.toml")
    recording = mapping.Mapping.load(log / "car.toml").open(log / "car.log")
    assert recording.start == 1000
    assert [len(table) for table in recording.tables] == [200, 20, 20, 4]
    assert recording["EngineSpeed"].values.tolist() == list(range(1000, 1200))
    assert recording["WaterTemp"].values.tolist() == [80.0] * 20
    assert recording["EngineSpeed"].function == kel.Function("RPM")
    assert recording.table_of("Mystery").time == pytest.approx(np.arange(20) / 10, abs=1e-6)
    assert recording["CAN 0x7FF frames"].values.tolist() == [1, 2, 3, 4]
    with pytest.raises(kel.KelError, match="its database"):
        mapping.read(log / "car.log")


def test_frames_that_are_too_short_are_counted(log):
    with open(log / "car.log", "a", encoding="ascii") as file:
        file.write("(1003.000000) can0 100#01\n")
    raw = mapping.read(log / "car.log", database=log / "car.dbc")
    assert len(raw["EngineSpeed"].values) == 200
    assert raw["CAN 0x100 frames"].values.tolist() == [1]


def test_arrow_shares_its_memory_and_has_nulls_and_texts(tmp_path):
    (tmp_path / "a.csv").write_text("time,RPM,note\n0,1000,go\n0.1,,é\n0.2,1200,\n")
    found = mapping.suggest(mapping.read(tmp_path / "a.csv")).open(tmp_path / "a.csv")
    table = pa.table(found)
    assert table.column_names == ["time", "RPM", "note"]
    assert table["RPM"].to_pylist() == [1000, None, 1200]
    assert table["note"].to_pylist() == ["go", "é", None]
    assert table.schema.field("RPM").metadata[b"identifier"] == b"0x0000000F"
    assert table.schema.field("time").type == pa.duration("us")
    assert pa.compute.cast(table["time"], pa.int64()).to_pylist() == [0, 100_000, 200_000]
    held = found.tables[0]._held[0].values.__array_interface__["data"][0]
    assert table["RPM"].chunk(0).buffers()[1].address == held
    assert polars.DataFrame(found).equals(polars.from_arrow(table))
    assert polars.DataFrame(found.as_texts())["RPM"].to_list() == ["1000", None, "1200"]
    frame = found.to_pandas()
    assert frame.attrs["units"] == {"RPM": "rpm"} and frame.index.name == "time"
    part = pa.table(found[1:])
    assert len(part) == 2 and part["note"].to_pylist() == ["é", None]
    reader = pa.RecordBatchReader.from_stream(found)
    assert reader.schema == table.schema and len(list(reader)) == 1


@pytest.mark.parametrize("version", ["4.10", "4.11"])
def test_mdf_there_and_back(log, version):
    recording = mapping.read(log / "car.log", database=log / "car.dbc")
    recording.write(log / "car.mf4", version=version)
    with MDF(log / "car.mf4") as file:
        assert file.version == version
        assert [len(group.channels) - 1 for group in file.groups] == [2, 2, 2, 1]
        for group in file.groups:
            master = group.channels[0]
            assert (master.channel_type, master.sync_type, master.unit) == (2, 1, "s")
    again = mapping.read(log / "car.mf4")
    assert again.names == recording.names
    for name in recording.names:
        one, two = recording[name], again[name]
        assert np.array_equal(one.values, two.values), name
        assert np.array_equal(recording.table_of(name).time, again.table_of(name).time)
        assert one.unit == two.unit
    with pytest.raises(kel.KelError, match=r"accepted: 4.10, 4.11"):
        recording.write(log / "car.mf4", version="3.30")


def test_mdf_of_others(tmp_path):
    """Groups of two rates, invalidation bits, whole numbers, texts and records."""
    with MDF(version="4.10") as file:
        slow = np.arange(5) / 10
        gaps = np.array([0, 1, 0, 0, 1], bool)
        signals = [
            Signal(np.arange(5, dtype=np.uint8), slow, name="RPM", unit="rpm",
                   invalidation_bits=gaps),
            Signal(np.array([b"a", b"b", b"c", b"d", b"e"]), slow, name="Text", encoding="utf-8"),
            Signal(np.zeros(5, [("x", "f4"), ("y", "f8")]), slow, name="Pair"),
        ]  # fmt: skip
        file.append(signals)
        fast = np.arange(50) / 100
        file.append([Signal(np.arange(50, dtype=np.float32), fast, name="RPM", unit="rpm")])
        file.save(tmp_path / "other.mf4")
    found = mapping.read(tmp_path / "other.mf4")
    assert sorted(len(table) for table in found.tables) == [5, 50]
    assert found["RPM"].valid.tolist() == (~gaps).tolist()
    assert found.texts("Text").tolist() == ["a", "b", "c", "d", "e"]
    assert next(name for name in found.names if "RPM" in name) == "RPM"
    assert len([name for name in found.names if "RPM" in name]) == 2
    assert {"x", "y"} <= set(found.names) or {"Pair.x", "Pair.y"} <= set(found.names)
    second = next(name for name in found.names if "RPM" in name and name != "RPM")
    assert found[second].values.dtype == np.float32 and len(found[second].values) == 50


def _nmea(body):
    text = f"GP{body}"
    total = 0
    for letter in text.encode():
        total ^= letter
    return f"${text}*{total:02X}\r\n"


def _angle(degrees, width):
    whole = int(degrees)
    return f"{whole:0{width}d}{(degrees - whole) * 60:010.7f}"


def test_nmea_has_laps(kart, tmp_path):
    """The simulator's drive as sentences of another receiver, over midnight."""
    capture = kel.Capture(kart / "kart.ubx")
    place = capture.read(["Latitude", "Longitude", "Speed"])
    lines = ["$GPTXT,garbage\r\n"]
    for time, *row in zip(capture.time, *(column.values for column in place.values()), strict=True):
        if np.isnan(row).any():
            continue
        clock = (86400 - 60 + time) % 86400
        hhmmss = f"{int(clock // 3600):02d}{int(clock // 60 % 60):02d}{clock % 60:06.3f}"
        where = f"{_angle(row[0], 2)},N,{_angle(row[1], 3)},E"
        lines.append(_nmea(f"RMC,{hhmmss},A,{where},{row[2] / 1.852:.3f},90.0,010120,,,A"))
        lines.append(_nmea(f"GGA,{hhmmss},{where},1,08,1.0,100.0,M,40.0,M,,"))
    (tmp_path / "kart.nmea").write_text("".join(lines))
    raw = mapping.read(tmp_path / "kart.nmea")
    assert list(raw.bases) == ["RMC", "GGA"] and "GGA Latitude" in raw.names
    assert (np.diff(raw.table_of("Latitude").time) > 0).all()
    recording = mapping.suggest(raw).open(tmp_path / "kart.nmea")
    assert recording["GPS Speed"].unit == "km/h"
    assert np.nanmax(recording["GPS Speed"].values) == pytest.approx(
        np.nanmax(place["Speed"].values), abs=0.01
    )
    closed = [lap.milliseconds for lap in kel.laps(capture) if lap.milliseconds]
    laps = kel.laps(recording)
    assert [lap.milliseconds for lap in laps if lap.milliseconds] == pytest.approx(closed, abs=3)
    assert plot.track(recording, "Altitude").axes[1].get_ylabel() == "Altitude, m"
    figure = plot.laps(recording, "GPS Speed", laps)
    assert len(figure.axes[0].get_lines()) >= 2
    recording.write(tmp_path / "kart.gpx")
    assert (tmp_path / "kart.gpx").read_text().count("<trkpt") == len(recording.bases["RMC"])


def test_plots_of_several_time_bases(log):
    found = mapping.suggest(mapping.read(log / "car.log", database=log / "car.dbc"))
    recording = found.open(log / "car.log")
    figure = plot.channels(recording, ["EngineSpeed", "WaterTemp"])
    assert [len(axis.get_lines()[0].get_xdata()) for axis in figure.axes] == [200, 20]
    with pytest.raises(kel.RecordingError, match="no speed"):
        plot.channels(recording, ["EngineSpeed"], over="distance")


@pytest.fixture(scope="module")
def road_car():
    """The real log of a road car."""
    folder = os.environ.get("KEL_CAPTURES")
    log = Path(folder or "", "can", "road-car.candump.log")
    if not folder or not log.exists():
        pytest.skip("KEL_CAPTURES names no folder with can/road-car.candump.log")
    raw = mapping.read(log, database=log.with_name("road-car.dbc"))
    return mapping.suggest(raw).open(log)


def test_the_real_log_of_a_road_car(road_car):
    frames = sum(len(table) for table in road_car.tables)
    assert frames == 82558  # as many as lines
    named = {each.name: each.function.name for each in road_car.columns if each.function}
    expected = {
        "WS_FL": "Speed Wheel FL",
        "RPM": "Engine RPM",
        "ACCEL_LAT": "Lateral Accel",
        "GYRO_YAW": "Yaw Rate",
        "COOLANT_TEMP": "Water Temp",
    }
    assert expected.items() <= named.items()
    rows = road_car.on("SPEED", ["RPM", "WS_FL"])
    speed, wheel = rows["SPEED"].values, rows["WS_FL"].values
    driving = speed > 30
    assert speed.max() == pytest.approx(129.6, abs=0.1)
    assert np.nanmedian(np.abs(wheel - speed)[driving]) < 1
    assert len(plot.channels(road_car, ["RPM", "SPEED"], over="distance").axes) == 2


def test_the_real_log_goes_into_files_and_back(road_car, tmp_path):
    road_car.write(tmp_path / "car.mf4")
    again = mapping.read(tmp_path / "car.mf4")
    assert again.names == road_car.names and len(again.tables) == len(road_car.tables)
    rows = road_car.on("SPEED")
    for ending in ("csv", "parquet", "h5", "mat"):
        rows.write(tmp_path / f"car.{ending}")
    found = polars.read_parquet(tmp_path / "car.parquet")
    assert found["RPM"].to_numpy().tolist() == rows["RPM"].values.tolist()
