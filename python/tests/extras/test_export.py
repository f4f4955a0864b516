"""Each kind of file, read back by a program that is not ours: the same bits, units and nulls."""

import csv

import gpxpy
import h5py
import numpy as np
import pytest
from asammdf import MDF
from pyarrow import parquet
from scipy import io

import kelfunzioni as kel


@pytest.fixture(params=["recording", "capture"])
def table(request, kart):
    if request.param == "capture":
        return kel.Capture(kart / "kart.ubx")
    opened = kel.Recording(kart / "kart.channels", kart / "kart.samples")
    opened.set_unit("Wheel Speed", "mph")
    return opened


def _bits(values):
    return values.view(f"u{values.dtype.itemsize}")


def _numbers(column):
    values = column.values
    return values.astype(np.int64) if values.dtype.kind == "M" else values


def _same(column, values, valid, unit):
    valid = np.asarray(valid, bool).ravel()
    assert np.array_equal(valid, column.valid), column.name
    expected = _numbers(column)
    values = np.asarray(values).ravel()
    assert values.dtype == expected.dtype, column.name
    assert np.array_equal(_bits(values[valid]), _bits(expected[valid])), column.name
    assert unit == column.unit, column.name


@pytest.mark.parametrize("rows", [1 << 13, 100], ids=["whole", "in pieces"])
def test_csv(table, tmp_path, monkeypatch, rows):
    monkeypatch.setattr("kelfunzioni._export._TEXT_ROWS", rows)
    table.write(tmp_path / "out.csv")
    with open(tmp_path / "out.csv", newline="", encoding="utf-8") as file:
        names, units, *rows = csv.reader(file)
    assert names[0] == "time" and [float(row[0]) for row in rows] == table.time.tolist()
    for place, column in enumerate(table.read().values(), 1):
        cells = [row[place] for row in rows]
        valid = [cell != "" for cell in cells]
        kind = column.values.dtype
        values = np.array([cell or ("NaT" if kind.kind == "M" else "0") for cell in cells])
        values = values.astype(kind)
        _same(column, values.astype(np.int64) if kind.kind == "M" else values, valid, units[place])
        assert names[place] == column.name


def test_parquet(table, tmp_path):
    table.write(tmp_path / "out.parquet")
    found = parquet.read_table(tmp_path / "out.parquet")
    group = parquet.ParquetFile(tmp_path / "out.parquet").metadata.row_group(0)
    assert group.num_rows == len(table) and group.column(1).compression == "ZSTD"
    for name, column in table.read().items():
        values = found[name].combine_chunks()
        raw = np.frombuffer(values.buffers()[1], column.values.dtype)[: len(column)]
        raw = raw.astype(np.int64) if raw.dtype.kind == "M" else raw
        unit = found.schema.field(name).metadata[b"unit"].decode()
        _same(column, raw, values.is_valid().to_numpy(zero_copy_only=False), unit)


def test_hdf5(table, tmp_path):
    table.write(tmp_path / "out.h5")
    with h5py.File(tmp_path / "out.h5") as file:
        assert np.array_equal(file["time"][:], table.time)
        for name, column in table.read().items():
            group = file[name]
            _same(column, group["values"][:], group["valid"][:], group.attrs["unit"])


def test_mat(table, tmp_path):
    table.write(tmp_path / "out.mat")
    found = io.loadmat(tmp_path / "out.mat", squeeze_me=True)
    structs = {str(each["name"]): each for each in found.values() if _has_name(each)}
    for name, column in table.read().items():
        struct = structs[name]
        unit = struct["unit"].item()
        _same(column, struct["values"].item(), struct["valid"].item(), unit if len(unit) else "")


def _has_name(value):
    return isinstance(value, np.ndarray) and "name" in (value.dtype.names or ())


@pytest.mark.parametrize("rows", [1 << 17, 100], ids=["whole", "in pieces"])
def test_mdf(table, tmp_path, monkeypatch, rows):
    monkeypatch.setattr("kelfunzioni._export._ROWS", rows)
    table.write(tmp_path / "out.mf4")
    with MDF(tmp_path / "out.mf4") as file:
        assert len(file.groups) == 1 and file.version == "4.10"
        for name, column in table.read().items():
            signal = file.get(name, ignore_invalidation_bits=True)
            assert np.array_equal(signal.timestamps, table.time)
            gaps = signal.invalidation_bits
            valid = np.ones(len(table), bool) if gaps is None else ~np.asarray(gaps, bool)
            unit = "" if column.values.dtype.kind == "M" else signal.unit
            _same(column, signal.samples, valid, unit)


def test_gpx(table, tmp_path):
    table.write(tmp_path / "out.gpx")
    with open(tmp_path / "out.gpx", encoding="utf-8") as file:
        [track] = gpxpy.parse(file).tracks
    points = track.segments[0].points
    columns = table.read(["Latitude", "Longitude", "UTC"])
    there = columns["Latitude"].valid & columns["Longitude"].valid
    assert [each.latitude for each in points] == columns["Latitude"].values[there].tolist()
    assert [each.longitude for each in points] == columns["Longitude"].values[there].tolist()
    first = columns["UTC"].values[there][0].astype("datetime64[ms]").item()
    assert points[0].time.replace(tzinfo=None) == first


def test_wrong_files(table, tmp_path):
    with pytest.raises(kel.KelError, match="did you mean 'parquet'"):
        table.write(tmp_path / "out", "parqet")
    with pytest.raises(kel.KelError, match="accepted: csv"):
        table.write(tmp_path / "out")
    with pytest.raises(TypeError, match="accepted"):
        table.write(3)
    with pytest.raises(FileNotFoundError):
        table.write(tmp_path / "none" / "out.csv")
