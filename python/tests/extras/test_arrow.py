"""Columns and recordings in everything that reads Arrow: the same bits, nulls and units."""

import gc
import subprocess
import sys

import duckdb
import numpy as np
import pandas
import polars
import pyarrow as pa
import pytest

import kelfunzioni as kel
from kelfunzioni import _arrow

SAMPLES = np.random.default_rng(3).integers(-32768, 32767, 100_003).astype(np.int16)


@pytest.fixture
def recording(kart):
    return kel.Recording(kart / "kart.channels", kart / "kart.samples")


def _bits(values):
    return np.ascontiguousarray(values).view(np.uint32 if values.dtype.itemsize == 4 else np.uint64)


def _same(valid, values, column):
    """Validity, and the bits of the values that are there."""
    assert np.array_equal(valid, column.valid)
    assert np.array_equal(_bits(values[valid]), _bits(column.values[valid]))


def test_a_column_shares_its_memory():
    column = kel.Converter("REF_SPEED", "int16", "mph")(SAMPLES)
    array = pa.array(column)
    series = polars.Series(column)
    address = column._raw.__array_interface__["data"][0]
    assert array.buffers()[1].address == address
    assert series.to_arrow().buffers()[1].address == address
    assert array.null_count == (~column.valid).sum() == series.null_count()
    _same(column.valid, array.to_numpy(zero_copy_only=False), column)
    assert np.isnan(column.values[~column.valid]).all()


def test_a_columns_memory_lives_as_long_as_arrow_needs_it():
    gc.collect()
    before = len(_arrow._kept)
    array = pa.array(kel.Converter("REF_SPEED", "int16")(SAMPLES))
    expected = kel.Converter("REF_SPEED", "int16")(SAMPLES)
    gc.collect()
    assert len(_arrow._kept) == before + 1
    _same(expected.valid, array.to_numpy(zero_copy_only=False), expected)
    del array
    gc.collect()
    assert len(_arrow._kept) == before


def test_values_that_arrow_has_got_do_not_change():
    column = kel.Converter("REF_SPEED", "int16")(np.array([5, -12290], np.int16))
    array = pa.array(column)
    memory = np.frombuffer(array.buffers()[1], np.float32).copy()
    assert np.isnan(column.values[1])
    assert np.array_equal(np.frombuffer(array.buffers()[1], np.float32), memory)


def test_capsules_that_nobody_takes_are_released(recording):
    gc.collect()
    before = len(_arrow._kept)
    recording.__arrow_c_stream__()
    kel.Converter("REF_SPEED", "int16")(SAMPLES).__arrow_c_array__()
    gc.collect()
    assert len(_arrow._kept) == before


def test_pyarrow_polars_and_pandas_have_the_same_bits(recording):
    table, frame, pandas_frame = (
        pa.table(recording),
        polars.DataFrame(recording),
        recording.to_pandas(),
    )
    for name, column in recording.read().items():
        if column.values.dtype.kind != "f":
            assert table[name].is_valid().to_pylist() == column.valid.tolist()
            continue
        valid = column.valid
        for values in (
            table[name].to_numpy(), frame[name].to_numpy(), pandas_frame[name].to_numpy(),
        ):  # fmt: skip
            _same(valid, values, column)
        assert table[name].is_valid().to_pylist() == valid.tolist()
        assert frame[name].is_not_null().to_list() == valid.tolist()
    assert np.array_equal(pandas_frame.index.to_numpy(), recording.time)


def test_units_are_metadata(recording):
    recording.set_unit("Wheel Speed", "mph")
    field = pa.table(recording).schema.field("Wheel Speed")
    assert field.metadata == {
        b"unit": b"mph", b"identifier": b"0x00070010", b"long_name": b"Wheel Spd"
    }  # fmt: skip
    frame = recording.to_pandas()
    assert frame.attrs["units"]["Wheel Speed"] == "mph"
    assert frame.attrs["identifiers"]["Wheel Speed"] == "0x00070010"
    column = recording["Wheel Speed"]
    assert pa.field(column).metadata[b"unit"] == b"mph"


def test_duckdb_asks_a_recording(recording):
    [(count, fastest)] = duckdb.sql('select count(*), max("Wheel Speed") from recording').fetchall()
    assert count == len(recording)
    assert np.float32(fastest) == np.nanmax(recording["Wheel Speed"].values)


def test_rows_and_texts(recording):
    some = recording.between(10, 20)
    assert pa.table(some).num_rows == len(some)
    texts = pa.table(some.as_texts())["Wheel Speed"]
    valid = some["Wheel Speed"].valid
    assert [each for each, there in zip(texts.to_pylist(), valid, strict=True) if there] == [
        each for each, there in zip(some.texts("Wheel Speed"), valid, strict=True) if there
    ]
    assert [piece.num_rows for piece in map(pa.table, recording.batches(1000))] == [1000, 553]


def test_a_stream_outlives_the_recording(kart):
    recording = kel.Recording(
        (kart / "kart.channels").read_bytes(), (kart / "kart.samples").read_bytes()
    )
    expected = pa.table(recording)
    reader = pa.RecordBatchReader.from_stream(recording)
    recording.close()
    del recording
    gc.collect()
    assert reader.read_all().equals(expected)


def test_a_capture(kart):
    capture = kel.Capture(kart / "kart.ubx")
    table = pa.table(capture)
    assert table.schema.field("UTC").type == pa.timestamp("us", "UTC")
    assert table.schema.field("Latitude").type == pa.float64()
    utc = capture["UTC"]
    assert pa.array(utc).type == pa.timestamp("us", "UTC")
    assert pandas.DataFrame(capture.to_numpy()).shape == (len(capture), 1 + len(capture.columns))


def test_python_may_end_while_arrow_has_memory(kart):
    program = """
import sys, kelfunzioni as kel, numpy as np, pyarrow as pa
recording = kel.Recording("kart.channels", "kart.samples")
sys.kept = [pa.RecordBatchReader.from_stream(recording), recording.__arrow_c_stream__(),
            pa.array(kel.Converter("REF_SPEED", "int16")(np.zeros(9, np.int16)))]
"""
    done = subprocess.run(
        [sys.executable, "-c", program], cwd=kart, capture_output=True, timeout=60
    )
    assert (done.returncode, done.stderr) == (0, b"")
