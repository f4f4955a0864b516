"""Columns of samples: bits, shapes, steps, and what is no sample."""

import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import numpy as np
import pytest

import kelfunzioni as kel
from kelfunzioni import SampleType

sys.path.insert(0, str(Path(__file__).parent.parent))
from one_at_a_time import agree

RANDOM = np.random.default_rng(7)
PLAIN = [kind for kind in SampleType if kind.size]


def _functions():
    return [each for each in kel.Catalogue().functions if not each.is_packet][::6]


@pytest.mark.parametrize("kind", PLAIN, ids=lambda kind: kind.name)
def test_every_type_reads_what_single_calls_read(kind):
    for function in _functions():
        for unit in function.units or (None,):
            converter = kel.Converter(function, kind, unit)
            data = RANDOM.integers(0, 256, (70, kind.size), np.uint8)
            agree(converter, [row.tobytes() for row in data], data)


@pytest.mark.parametrize("packet", ["gps", "laptime"])
def test_every_subfield_reads_what_single_calls_read(packet):
    channel = kel.Function(details=packet)
    for function in dict.fromkeys(channel.subfields):
        converter = kel.Converter(function, packet=channel)
        data = RANDOM.integers(0, 256, (70, converter.sample_type.size), np.uint8)
        agree(converter, [row.tobytes() for row in data], data)


@pytest.mark.parametrize("step", [1, 2, -1, -3])
def test_any_step_and_shape(step):
    converter = kel.Converter("REF_SPEED", "int16", "mph")
    samples = RANDOM.integers(-32768, 32767, 300).astype(np.int16)
    seen = samples[::step]
    agree(converter, [each.tobytes() for each in seen], seen)
    cube = samples.reshape(10, 5, 6)[:, ::step, ::step]
    assert converter(cube).values.shape == cube.shape
    agree(converter, [each.tobytes() for each in cube.ravel()], cube)


def test_records_of_many_channels():
    records = np.zeros(100, np.dtype([("a", "u1"), ("speed", "<i2"), ("rpm", "<u2")]))
    records["speed"] = RANDOM.integers(-100, 300, 100)
    alone = kel.Converter("REF_SPEED", "int16")
    within = kel.Converter("REF_SPEED", "int16", offset=1)
    expected = alone(np.ascontiguousarray(records["speed"])).values
    assert np.array_equal(alone(records["speed"]).values, expected, equal_nan=True)
    assert np.array_equal(within(records).values, expected, equal_nan=True)
    rows = records.view(np.uint8).reshape(100, 5)
    assert np.array_equal(within(rows).values, expected, equal_nan=True)
    assert np.array_equal(alone(rows[:, 1:3]).values, expected, equal_nan=True)


def test_nothing_is_copied():
    samples = np.zeros(1000, np.int16)
    read_only = samples[:]
    read_only.flags.writeable = False
    from kelfunzioni._samples import locate

    assert locate(read_only, SampleType.INT16, None).address == samples.ctypes.data
    assert locate(memoryview(samples), SampleType.INT16, None).address == samples.ctypes.data
    assert locate(samples[3::7], SampleType.INT16, None).address == samples.ctypes.data + 6


def test_buffers_of_bytes():
    speed = kel.Converter("REF_SPEED", "int16")
    for data in (b"\x7b\0\x7c\0", bytearray(b"\x7b\0\x7c\0"), memoryview(b"\x7b\0\x7c\0")):
        assert speed(data).values.tolist() == [123, 124]
    assert len(speed(b"")) == 0 and speed(np.empty(0, np.int16)).values.shape == (0,)


def test_missing_samples_are_nan_and_not_valid():
    column = kel.Converter("REF_SPEED", "int16")(np.array([1, -12290], np.int16))
    assert column.valid.tolist() == [True, False]
    assert np.isnan(column.values[1]) and np.asarray(column) is column.values
    assert np.array(column, np.float64).dtype == np.float64


def test_a_column_without_missing_samples_is_not_rewritten():
    column = kel.Converter("REF_SPEED", "int16")(np.arange(100, dtype=np.int16))
    assert np.shares_memory(column.values, column._raw)


def test_a_bit_field_is_what_the_device_shows_with_a_warning():
    number = kel.Function(quantity="number")
    with pytest.warns(kel.KelWarning, match="the single bit above the field, bit 5") as told:
        field = kel.Converter(number, "uint8", bit=2, bits=3)
    assert told[0].filename == __file__
    assert field(np.array([0b00010100, 0xFF], np.uint8)).values.tolist() == [0, 8]
    with pytest.raises(kel.KelError, match="not in a sample of 8 bits"):
        kel.Converter(number, "uint8", bit=6, bits=3)


@pytest.mark.parametrize(
    ("wrong", "kind"),
    [
        (np.zeros(4, np.int32), TypeError),
        (np.zeros(4, np.uint16), TypeError),
        (np.zeros(4, ">i2"), TypeError),
        (np.zeros(4, np.float16), TypeError),
        (np.zeros(4, object), TypeError),
        ([1, 2, 3], TypeError),
        ("text", TypeError),
        (None, TypeError),
        (3, TypeError),
        (b"\1\2\3", kel.KelError),
        (np.zeros((4, 3), np.uint8), kel.KelError),
        (np.zeros((4, 1), np.uint8), kel.KelError),
        (np.zeros((2, 2, 2), np.uint8), kel.KelError),
    ],
)
def test_what_is_no_sample(wrong, kind):
    speed = kel.Converter("REF_SPEED", "int16")
    for call in (speed, speed.status, speed.texts):
        with pytest.raises(kind, match="accepted"):
            call(wrong)


@pytest.mark.parametrize(
    ("arguments", "says"),
    [
        ({"sample_type": "int61"}, "did you mean 'int16'"),
        ({"sample_type": 25}, "accepted: 0 to 24"),
        ({"sample_type": "none"}, "has no samples"),
        ({}, "there is no sample type"),
        ({"sample_type": "int16", "unit": "mhp"}, "did you mean 'mph'"),
        ({"sample_type": "int16", "align": "rigth"}, "did you mean 'right'"),
        ({"sample_type": "int16", "decimals": 4}, "accepted: 0 to 3"),
        ({"sample_type": "int16", "width": 32}, "accepted: 0 to 31"),
        ({"sample_type": "int16", "offset": -1}, "accepted: 0 to"),
        ({"packet": kel.Function(details="gps"), "sample_type": "gps"}, "no subfield"),
    ],
)
def test_wrong_converters_say_what_is_accepted(arguments, says):
    with pytest.raises(kel.KelError, match=says):
        kel.Converter("REF_SPEED", **arguments)
    with pytest.raises(TypeError):
        kel.Converter("REF_SPEED", "int16", width="5")
    with pytest.raises(TypeError):
        kel.Converter("REF_SPEED", 1.5)


def test_records_that_are_too_short():
    within = kel.Converter("REF_SPEED", "int16", offset=4)
    with pytest.raises(kel.KelError, match="6 bytes at least"):
        within(np.zeros((3, 5), np.uint8))
    with pytest.raises(kel.KelError, match="a row for each record"):
        within(b"123456")


def test_automatic_decimals_go_on_in_the_order_of_samples():
    auto = kel.Converter("REF_SPEED", "int16", "mph", decimals="auto")
    samples = np.array([1, 30000, 1, 2], np.int16)
    backwards = auto.texts(samples[::-1]).tolist()
    other = kel.Converter("REF_SPEED", "int16", "mph", decimals="auto")
    assert backwards == other.texts(np.ascontiguousarray(samples[::-1])).tolist()


def test_many_threads_decode_at_once():
    speed = kel.Converter("REF_SPEED", "int16", "mph")
    samples = RANDOM.integers(-32768, 32767, 1 << 20).astype(np.int16)
    expected = speed(samples).values
    with ThreadPoolExecutor() as pool:
        for column in pool.map(speed, [samples] * 8):
            assert np.array_equal(column.values, expected, equal_nan=True)


def test_the_interpreter_runs_on_while_columns_are_read(monkeypatch):
    """Another thread sees a column half read: with the interpreter held it could not."""
    import ctypes
    import threading

    from kelfunzioni import _converter

    count = 1 << 24
    speed = kel.Converter("REF_SPEED", "int16")
    samples = np.ones(count, np.int16)
    outputs = []
    read = _converter.lib.read_columns

    def watched(address, step, number, column, columns):
        memory = (ctypes.c_float * number).from_address(column.valori)
        memory[0] = memory[number - 1] = -1.0
        outputs.append(memory)
        read(address, step, number, column, columns)

    monkeypatch.setattr(_converter.lib, "read_columns", watched)
    for _ in range(20):
        outputs.clear()
        half = False
        kept = []  # the column, whose memory is looked at
        reader = threading.Thread(target=lambda kept=kept: kept.append(speed(samples)))
        reader.start()
        while not outputs:
            pass
        memory = outputs[0]
        while reader.is_alive() and memory[count - 1] == -1.0:
            if memory[0] == 1.0 and memory[count - 1] == -1.0:
                half = True
                break
        reader.join()
        if half:
            return
    raise AssertionError("no column was seen half read")


def test_conversions(kelfun):
    told = kelfun("convert", "OIL_PRESS", "2.5", "100", "--to", "psi", "--json")["values"]
    found = kel.convert(np.array([2.5, 100], np.float32), "OIL_PRESS", "bar", "psi")
    assert [np.float32(row["result"]) for row in told] == found.tolist()
    assert found.dtype == np.float32
    assert isinstance(kel.convert(1, "OIL_PRESS", "bar", "psi"), float)
    assert kel.convert(np.zeros((2, 3)), "OIL_PRESS", None, "psi").shape == (2, 3)
    for wrong in ("text", None, [object()], np.zeros(3, complex)):
        with pytest.raises(TypeError):
            kel.convert(wrong, "OIL_PRESS", "bar", "psi")
    with pytest.raises(kel.KelError, match="did you mean"):
        kel.convert(1.0, "OIL_PRESS", "bar", "PSI")


def test_a_pace_is_the_librarys_with_a_warning():
    velocity = kel.Function(quantity="velocity")
    with pytest.warns(kel.KelWarning, match="what is meant is near 5 min/km"):
        pace = kel.convert(np.array([12.0], np.float32), velocity, "km/h", "min/km")
    assert pace[0] == np.float32(12) * np.float32(0.016667)
    with pytest.warns(kel.KelWarning, match="not 5 min/km"):
        kel.Converter(velocity, "float32", "min/km")


def test_horse_powers_are_the_librarys_with_a_warning():
    with pytest.warns(kel.KelWarning, match="swapped"):
        kel.convert(100.0, kel.Function(quantity="power"), "kW", "HP")
    assert kel.convert(0.0, kel.Function(quantity="power"), "kW", "HP") == 0
