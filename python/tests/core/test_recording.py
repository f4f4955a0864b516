"""Recordings, captures and laps."""

import os
import subprocess
import sys

import numpy as np
import pytest

import kelfunzioni as kel


@pytest.fixture
def recording(kart):
    with kel.Recording(kart / "kart.channels", kart / "kart.samples") as opened:
        yield opened


def test_every_value_is_what_the_tool_shows(recording, kart, kelfun):
    told = kelfun("record", str(kart / "kart.channels"), str(kart / "kart.samples"), "--json")
    rows = told["records"]
    assert len(rows) == len(recording)
    assert [row["time_s"] for row in rows] == pytest.approx(recording.time.tolist())
    columns = list(recording.read().values())
    keys = [key for key in rows[0] if key not in ("record", "time_s")]
    assert len(keys) == len(columns)
    for key, column in zip(keys, columns, strict=True):
        shown = [row[key] for row in rows]
        assert [each is not None for each in shown] == column.valid.tolist(), key
        if column.values.dtype == np.float32:
            numbers = np.array([np.nan if each is None else each for each in shown], np.float32)
            assert np.array_equal(numbers, column.values, equal_nan=True), key


def test_columns_are_what_converters_read(recording, kart):
    """The same bits by the channel's own converter over the records."""
    from kelfunzioni._records import Channel

    raw = (kart / "kart.channels").read_bytes()
    channels = [Channel.from_buffer_copy(raw, i) for i in range(0, len(raw), 112)]
    samples = (kart / "kart.samples").read_bytes()
    size = sum(each.dim_buffer for each in channels) + 4
    records = np.frombuffer(samples, np.uint8)[: len(recording) * size].reshape(-1, size)
    seen = 0
    for channel in channels:
        if kel.Function(channel.fid).is_packet:
            continue
        alone = kel.Converter(
            channel.fid, channel.tipo_campione, offset=channel.offset_campione + 4
        )
        column, same = recording[channel.nome.decode()], alone(records)
        assert np.array_equal(column.valid, same.valid)
        assert np.array_equal(column.values, same.values, equal_nan=True)
        assert np.array_equal(column._bitmap, same._bitmap)
        seen += 1
    assert seen > 4


def test_rows_of_it(recording):
    speed = recording["Wheel Speed"].values
    some = recording[100:200]
    assert (len(some), some.first_row) == (100, 100)
    assert np.array_equal(some["Wheel Speed"].values, speed[100:200], equal_nan=True)
    assert np.array_equal(some[10:20].time, recording.time[110:120])
    assert len(recording[5:2]) == 0 and len(recording[-3:]) == 3 and len(recording[9999:]) == 0
    assert recording[5:2]["Wheel Speed"].values.shape == (0,)
    pieces = [piece["Wheel Speed"].values for piece in recording.batches(100)]
    assert np.array_equal(np.concatenate(pieces), speed, equal_nan=True)


def test_rows_between_times(recording):
    some = recording.between(10, 12.5)
    assert some.time[0] >= 10 and some.time[-1] < 12.5 and len(some) == 25
    assert len(recording[:50].between(0, 100)) == 50
    with pytest.raises(kel.RecordingError, match="no rows from"):
        recording.between(1e6, 2e6)
    with pytest.raises(kel.RecordingError, match="no rows from"):
        recording[:10].between(100, 101)


def test_units(recording):
    before = recording["Wheel Speed"]
    recording.set_unit("Wheel Speed", "mph")
    after = recording["Wheel Speed"]
    assert (before.unit, after.unit) == ("km/h", "mph") and recording.units["Wheel Speed"] == "mph"
    assert np.nanmax(after.values) < np.nanmax(before.values)
    with pytest.raises(kel.KelError, match="did you mean 'mph'"):
        recording.set_unit("Wheel Speed", "mhp")
    with pytest.raises(kel.NotFoundError, match="did you mean 'Wheel Speed'"):
        recording.set_unit("wheel sped", "mph")
    for column in recording.columns:
        with pytest.raises(kel.KelError, match="accepted"):
            recording.set_unit(column.name, "furlongs")


def test_texts_and_packets(kart):
    both = kart / "kart.channels", kart / "kart.samples"
    with kel.Recording(*both, packets=True) as recording:
        texts = [each for each in recording.columns if each.kind == "text"]
        assert texts
        assert len(recording.texts(texts[0].name)) == len(recording)
        with pytest.raises(kel.KelError, match="texts alone"):
            recording[texts[0].name]
        assert recording.texts("Wheel Speed")[0].strip() == "0.0"


def test_buffers_in_place_of_files(kart, recording):
    channels, samples = ((kart / f"kart.{each}").read_bytes() for each in ("channels", "samples"))
    for wrap in (bytes, bytearray, memoryview, lambda raw: np.frombuffer(raw, np.uint8)):
        other = kel.Recording(wrap(channels), wrap(samples))
        assert np.array_equal(
            other["Wheel Speed"].values, recording["Wheel Speed"].values, equal_nan=True
        )
    assert kel.Recording(str(kart / "kart.channels"), kart / "kart.samples").stamps == "u32ms"


def test_names_that_are_no_text(kart, tmp_path):
    folder = os.fsencode(tmp_path) + b"/\xff\xfe"
    os.mkdir(folder)
    for name in ("kart.channels", "kart.samples"):
        with open(folder + b"/" + name.encode(), "wb") as copy:
            copy.write((kart / name).read_bytes())
    both = [os.fsdecode(folder + b"/kart." + each) for each in (b"channels", b"samples")]
    assert len(kel.Recording(*both)) > 0
    with open(both[1], "wb"):
        pass
    assert len(kel.Recording(*both, stamps="none")) == 0


def test_bytes_that_are_no_recording(kart, tmp_path):
    good = (kart / "kart.channels").read_bytes()
    samples = (kart / "kart.samples").read_bytes()
    for channels, records in [
        (good[:111], samples), (b"", samples), (os.urandom(112), b""), (good, samples[:3]),
    ]:  # fmt: skip
        try:
            assert len(kel.Recording(channels, records)) >= 0
        except kel.RecordingError as error:
            assert str(error)
    with pytest.raises(kel.RecordingError):
        kel.Recording(good[:111], samples)
    cut = kel.Recording(good, samples[:-5])
    assert cut.leftover > 0 and len(cut) == len(kel.Recording(good, samples)) - 1
    with pytest.raises(FileNotFoundError):
        kel.Recording(tmp_path / "none", samples)
    with pytest.raises(IsADirectoryError):
        kel.Recording(tmp_path, samples)
    for wrong in (None, 3, object()):
        with pytest.raises(TypeError, match="accepted"):
            kel.Recording(wrong, samples)
        with pytest.raises(TypeError, match="accepted"):
            kel.Capture(wrong)
    with pytest.raises(kel.KelError, match="gaps"):
        kel.Recording(good, np.frombuffer(samples, np.uint8)[::2])


@pytest.mark.parametrize("count", range(0, 2000, 97))
def test_truncated_captures(kart, count):
    try:
        found = len(kel.Capture((kart / "kart.ubx").read_bytes()[:count]))
        assert found >= 0
    except kel.RecordingError as error:
        assert str(error)


@pytest.mark.parametrize(
    ("arguments", "says"),
    [
        ({"stamps": "u32s"}, "did you mean 'u32ms'"),
        ({"rate": 0}, "accepted: 0.001"),
        ({"rate": float("nan")}, "accepted: 0.001"),
        ({"rate": 1e9}, "accepted: 0.001"),
    ],
)
def test_wrong_choices(kart, arguments, says):
    with pytest.raises(kel.KelError, match=says):
        kel.Recording(kart / "kart.channels", kart / "kart.samples", **arguments)


def test_a_closed_recording_says_so(kart):
    recording = kel.Recording(kart / "kart.channels", kart / "kart.samples")
    speed, some = recording["Wheel Speed"], recording[:10]
    recording.close()
    recording.close()
    assert recording.closed and "closed" in repr(recording) and len(speed.values) > 0
    for call in (
        lambda: recording.columns, lambda: recording["Wheel Speed"], lambda: recording.time,
        lambda: some.time, lambda: recording.between(0, 1), recording.to_numpy,
        lambda: recording.__arrow_c_stream__(), lambda: recording.notes,
        lambda: recording.set_unit("Wheel Speed", "mph"), lambda: kel.laps(recording),
        lambda: recording.leftover, lambda: recording.stamps, lambda: some.texts("Wheel Speed"),
    ):  # fmt: skip
        with pytest.raises(kel.RecordingError, match="closed"):
            call()


@pytest.mark.parametrize("wrong", [0, 1.5, None, b"Wheel Speed", ("a", "b")])
def test_wrong_columns(recording, wrong):
    with pytest.raises(TypeError, match="accepted"):
        recording[wrong]
    with pytest.raises(TypeError, match="accepted"):
        recording.read([wrong])


def test_other_wrong_arguments(recording):
    with pytest.raises(kel.NotFoundError, match="did you mean 'Wheel Speed'"):
        recording["wheel speeed"]
    with pytest.raises(TypeError, match="a list"):
        recording.read("Wheel Speed")
    with pytest.raises(kel.KelError, match="step"):
        recording[::2]
    with pytest.raises(kel.KelError, match="1 at least"):
        next(recording.batches(0))
    with pytest.raises(TypeError):
        recording.between("a", "b")
    with pytest.raises(TypeError, match="accepted"):
        recording.set_unit("Wheel Speed", None)


def test_a_capture(kart):
    with kel.Capture(kart / "kart.ubx") as capture:
        assert capture.names[:2] == ("Time of Week", "UTC")
        columns = capture.read()
        assert columns["UTC"].values.dtype == "datetime64[us]"
        assert np.isnat(columns["UTC"].values).tolist() == (~columns["UTC"].valid).tolist()
        assert columns["Satellites"].values.dtype == np.uint32
        assert np.nanmean(columns["Latitude"].values) == pytest.approx(44.8, abs=0.1)
        assert len(capture.time) == len(capture)


def test_a_long_recording_goes_through_little_memory(tmp_path):
    """Files are mapped, and what was read of them is let go of: 400 MB in less than 64 MB more."""
    if not os.path.exists("/proc/self/status"):
        pytest.skip("the memory of a process is read from /proc")
    program = """if True:
        import sys

        import numpy as np

        import kelfunzioni as kel
        from kelfunzioni._records import Channel

        def peak():
            with open("/proc/self/status") as file:
                return next(int(line.split()[1]) for line in file if line.startswith("VmHWM:"))

        channels = b"".join(
            bytes(Channel(fid=0x0B8E, tipo_campione=1, nome=b"Pressure %d" % i,
                          offset_campione=2 * i, dim_buffer=2)) for i in range(48)
        )
        records = np.zeros(1000, [("time", "<u8"), ("samples", "<i2", 48)])
        records["time"] = np.arange(1000) * 1000
        size = 400_000_000 // 104 * 104
        with open(sys.argv[1], "wb") as file:
            file.write(records.tobytes())
            file.truncate(size)
        recording = kel.Recording(channels, sys.argv[1], stamps="u64us")
        next(recording.batches())["Pressure 0"]
        before = peak()
        rows = sum(len(piece.read(["Pressure 0", "Pressure 47"])["Pressure 47"].values)
                   for piece in recording.batches())
        assert rows == size // 104 == len(recording)
        print((peak() - before) // 1024)
    """
    done = subprocess.run(
        [sys.executable, "-c", program, tmp_path / "long.samples"],
        capture_output=True,
        text=True,
        check=True,
        timeout=120,
    )
    assert int(done.stdout) < 64


def test_laps_are_those_of_the_tool(recording, kart, kelfun):
    told = kelfun("laps", str(kart / "kart.channels"), str(kart / "kart.samples"), "--json")["laps"]
    found = kel.laps(recording)
    assert [lap.number for lap in found] == [row["lap"] for row in told]
    assert [lap.milliseconds for lap in found if lap.milliseconds] == [50083, 48782, 48844]
    assert found.best is found[2] and found.best.seconds == 48.782
    assert isinstance(found[1:3], kel.Laps) and found.notes


def test_laps_by_gps_with_sectors(kart):
    with kel.Capture(kart / "kart.ubx") as capture:
        line = kel.FinishLine(44.8231, 10.4114231, 90.0)
        found = kel.laps(capture, line=line, sectors=[300, 600])
        assert len(found.best.sectors) == 3
        assert sum(found.best.sectors) == found.best.milliseconds
        with pytest.raises(kel.RecordingError):
            kel.laps(capture, line=kel.FinishLine(0, 0, 0))
        for wrong, kind in [
            ({"source": "gsp"}, kel.KelError), ({"minimum": 0}, kel.KelError),
            ({"line": (1, 2, 3)}, TypeError), ({"sectors": [-1]}, kel.KelError),
            ({"sectors": [float("nan")]}, kel.KelError), ({"sectors": ["a"]}, TypeError),
        ]:  # fmt: skip
            with pytest.raises(kind, match=None if "sectors" in wrong else "accepted"):
                kel.laps(capture, **wrong)
    for wrong in (None, "kart.ubx", 3):
        with pytest.raises(TypeError, match="accepted"):
            kel.laps(wrong)
