"""Every public function and method with what it is not made for: an error that says so."""

import dataclasses
import inspect
import itertools
import os

import numpy as np
import pytest
from hostile import HOSTILE, tried

import kelfunzioni as kel
from kelfunzioni import mapping


@pytest.fixture(scope="module")
def things(kart, tmp_path_factory):
    """One object of each class that has methods."""
    folder = tmp_path_factory.mktemp("wrong")
    recording = kel.Recording(kart / "kart.channels", kart / "kart.samples")
    recording[:20].write(folder / "a.csv")
    mapped = mapping.suggest(mapping.read(folder / "a.csv")).open(folder / "a.csv")
    converter = kel.Converter("REF_SPEED", "int16")
    return [
        kel.Catalogue(), kel.Function("REF_SPEED"), converter, converter(np.zeros(3, np.int16)),
        recording, recording[:5], kel.Capture(kart / "kart.ubx"), kel.laps(recording), mapped,
        mapped.tables[0], mapping.suggest(["RPM"]),
    ]  # fmt: skip


def _functions():
    for module in (kel, mapping):
        for name in module.__all__:
            what = getattr(module, name)
            plain = inspect.isclass(what) and (
                issubclass(what, (BaseException, kel.SampleType)) or hasattr(what, "__match_args__")
            )
            inner = what in (kel.Column, kel.Table, kel.Laps, kel.MappedRecording, mapping.Mapping)
            if not plain and not inner:
                yield name, what


@pytest.mark.parametrize(("name", "call"), list(_functions()))
def test_functions(name, call, tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    refused = [tried(call, each) for each in HOSTILE]
    assert any(refused), name
    for pair in itertools.product(HOSTILE[:12], HOSTILE[::4]):
        tried(call, *pair)


def test_methods(things, tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    seen = 0
    for thing in things:
        for name in dir(type(thing)):
            method = getattr(type(thing), name)
            special = name in ("__getitem__", "__call__", "__array__")
            if (name.startswith("_") and not special) or not callable(method):
                continue
            if name in ("close", "to_pandas", "to_polars", "to_arrow", "count", "index"):
                continue
            for each in HOSTILE:
                tried(getattr(thing, name), each)
                seen += 1
    assert seen > 500
    for thing in things:  # they are as good as before
        assert repr(thing)


def _public():
    """Every public function, constructor and method with arguments, by the name people call it."""
    for module in (kel, mapping):
        for name in module.__all__:
            what = getattr(module, name)
            if not inspect.isclass(what):
                yield name
                continue
            if issubclass(what, (BaseException, kel.SampleType)) or name == "MappedRecording":
                continue  # MappedRecording is a table; what it has of its own is `on`
            if "__init__" in vars(what) and not dataclasses.is_dataclass(what) and name not in MADE:
                yield name
            for inner, method in vars(what).items():
                if isinstance(method, staticmethod):
                    continue  # for the package itself
                method = getattr(method, "__func__", method)
                special = inner in ("__call__", "__getitem__")
                if inspect.isfunction(method) and (special or not inner.startswith("_")):
                    if len(inspect.signature(method).parameters) > 1 or special:
                        yield f"{name}.{inner}"
    yield "MappedRecording.on"


# Made by the package alone, from what it has read.
MADE = {"Column", "Laps", "Table"}
# Whatever is given for a flag is taken as true or false.
FLAGS = {"strict", "compact", "device", "packets"}


@pytest.fixture(scope="module")
def calls(kart, tmp_path_factory):
    """A call of each with good arguments."""
    folder = tmp_path_factory.mktemp("calls")
    recording = kel.Recording(kart / "kart.channels", kart / "kart.samples")
    few, csv, toml = recording[:20], folder / "a.csv", folder / "a.toml"
    few.write(csv)
    found = mapping.suggest(mapping.read(csv))
    found.save(toml)
    speed, mapped = kel.Converter("REF_SPEED", "int16"), found.open(csv)
    samples = np.zeros(3, np.int16)
    bits = {"bit": 0, "bits": 3, "width": 5, "decimals": 1, "align": "left", "offset": 0}
    return {
        "convert": (kel.convert, ([1.0], "OIL_PRESS", "bar", "psi"), {}),
        "find": (kel.find, ("wheel",), {}),
        "search": (kel.search, ("wheel",), {}),
        "format_lap": (kel.format_lap, (83456,), {"strict": True}),
        "format_lap_line": (kel.format_lap_line, (7, 83456), {"strict": True}),
        "parse_lap": (kel.parse_lap, ("1:23.456",), {"strict": True}),
        "parse_lap_line": (kel.parse_lap_line, ("  7 - 1:23.456",), {"strict": True}),
        "laps": (
            kel.laps, (recording,),
            {"source": "gps", "line": None, "sectors": [100.0], "minimum": 20.0},
        ),
        "Capture": (kel.Capture, (kart / "kart.ubx",), {}),
        "Catalogue.__getitem__": (kel.Catalogue().__getitem__, ("fields",), {}),
        "Converter": (kel.Converter, ("REF_SPEED", "int16", "mph"), {"packet": None, **bits}),
        "Converter.__call__": (speed, (samples,), {}),
        "Converter.status": (speed.status, (samples,), {}),
        "Converter.texts": (speed.texts, (samples,), {}),
        "Function": (kel.Function, ("REF_SPEED",), {}),
        "Function.unit": (kel.Function("REF_SPEED").unit, ("mph",), {}),
        "Function.decimals": (kel.Function("REF_SPEED").decimals, ("mph",), {}),
        "Function.decimals_range": (kel.Function("REF_SPEED").decimals_range, ("mph",), {}),
        "Laps.__getitem__": (kel.laps(recording).__getitem__, (0,), {}),
        "Recording": (
            kel.Recording, (kart / "kart.channels", kart / "kart.samples"),
            {"stamps": "found", "rate": None, "compact": False},
        ),
        "Table.__getitem__": (few.__getitem__, ("Wheel Speed",), {}),
        "Table.table_of": (few.table_of, ("Wheel Speed",), {}),
        "Table.between": (recording.between, (1.0, 2.0), {}),
        "Table.batches": (few.batches, (10,), {}),
        "Table.read": (few.read, (["Wheel Speed"],), {}),
        "Table.texts": (few.texts, ("Wheel Speed",), {}),
        "Table.set_unit": (few.set_unit, ("Wheel Speed", "km/h"), {}),
        "Table.write": (few.write, (folder / "b.csv", "csv"), {"version": "4.10"}),
        "MappedRecording.on": (mapped.on, ("Wheel Speed", ["Engine RPM"]), {}),
        "Mapping.load": (mapping.Mapping.load, (toml,), {}),
        "Mapping.open": (found.open, (csv, "csv"), {"rate": 10.0}),
        "Mapping.save": (found.save, (folder / "c.toml",), {}),
        "Mapping.set": (
            found.set, ("Wheel Speed", "REF_SPEED", "km/h"),
            {"gain": 1.0, "offset": 0.0, "name": "Speed"},
        ),
        "read": (mapping.read, (csv, "csv"), {"database": None, "rate": 10.0}),
        "suggest": (mapping.suggest, (["RPM"],), {}),
    }  # fmt: skip


def test_every_argument_of_every_public_function(calls, tmp_path, monkeypatch):
    """Each argument in turn is wrong, and the others right. A new function needs a good call."""
    monkeypatch.chdir(tmp_path)
    assert sorted(calls) == sorted(_public())
    for name, (call, arguments, named) in calls.items():
        assert not tried(call, *arguments, **named), name
        missed = []
        for place in range(len(arguments)):
            refused = [
                tried(call, *arguments[:place], each, *arguments[place + 1 :], **named)
                for each in HOSTILE
            ]
            missed += [] if any(refused) else [place]
        for key in named:
            refused = [tried(call, *arguments, **{**named, key: each}) for each in HOSTILE]
            missed += [] if any(refused) or key in FLAGS else [key]
        assert not missed, (name, missed)
        assert not tried(call, *arguments, **named), name


def test_files_that_are_damaged_or_have_names_of_any_bytes(kart, tmp_path):
    """Truncated anywhere, empty, a folder, not there: a table or an error, whatever the name."""
    folder = os.fsencode(tmp_path)
    channels, samples, stream = (
        (kart / f"kart.{ending}").read_bytes() for ending in ("channels", "samples", "ubx")
    )
    readers = {
        "Recording": lambda path: kel.Recording(channels, path),
        "channels of a Recording": lambda path: kel.Recording(path, samples),
        "Capture": kel.Capture,
        "read": lambda path: mapping.read(path, "csv"),
        "load": mapping.Mapping.load,
    }
    for number, whole in enumerate((channels, samples, stream, b"")):
        for length in {0, 1, 111, 113, len(whole) // 2, len(whole) - 1, len(whole)}:
            path = os.path.join(folder, b"\xff\xfe%d" % number)
            with open(path, "wb") as file:
                file.write(whole[: max(length, 0)])
            for reader in readers.values():
                tried(reader, os.fsdecode(path))
    for path in (tmp_path, os.fsdecode(folder) + "/\udcff none"):
        for name, reader in readers.items():
            assert tried(reader, path), (name, path)
    good = os.fsdecode(os.path.join(folder, b"\xff\xfe.samples"))
    with open(good, "wb") as file:
        file.write(samples)
    with kel.Recording(channels, good) as recording:
        assert len(recording) == len(kel.Recording(channels, samples))
        recording[:5].write(f"{tmp_path}/\udcff.csv")


def test_what_was_closed_says_so(kart):
    """All that reads a recording, once it is closed; and pieces of it that were taken before."""
    recording = kel.Recording(kart / "kart.channels", kart / "kart.samples")
    piece = recording[:5]
    recording.close()
    good = {
        "__getitem__": ("Wheel Speed",), "table_of": ("Wheel Speed",), "between": (1.0, 2.0),
        "read": (["Wheel Speed"],), "texts": ("Wheel Speed",), "set_unit": ("Wheel Speed", "km/h"),
        "write": (kart / "none.csv",), "to_numpy": (), "__arrow_c_stream__": (),
    }  # fmt: skip
    without_reading = {"as_texts", "batches", "close", "to_arrow", "to_pandas", "to_polars"}
    methods = {
        name
        for name, each in vars(kel.Table).items()
        if inspect.isfunction(each) and (name[0] != "_" or name in good)
    }
    assert methods == set(good) | without_reading - {"close"}
    for name, arguments in good.items():
        for table in (recording, piece):
            with pytest.raises(kel.RecordingError, match="closed"):
                getattr(table, name)(*arguments)
    assert not (kart / "none.csv").exists()
    assert all(tried(lambda one: one.read(), each) for each in piece.batches(2))
    with pytest.raises(kel.RecordingError, match="closed"):
        kel.laps(recording)
