"""Every public function and method with what it is not made for: an error that says so."""

import inspect
import itertools
import warnings

import numpy as np
import pytest

import kelfunzioni as kel
from kelfunzioni import mapping

HOSTILE = [
    None, "", "\0", "\udcff", "x" * 5000, b"\xff\xfe", -1, 2**70, 1.5, float("nan"), float("inf"),
    True, [], [None], {}, object(), np.zeros(3), np.zeros((2, 3), np.int16)[:, ::-1],
    np.array(["a"]), np.zeros(3, object), np.zeros(3, ">i4"), slice(None, None, -1), print,
]  # fmt: skip
# What a wrong argument may be told by. KelError is a ValueError.
TOLD = (TypeError, ValueError, LookupError, OSError, OverflowError)


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


def _tried(call, *arguments):
    """Call it; whether it was refused."""
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        try:
            found = call(*arguments)
            if inspect.isgenerator(found):
                next(found, None)
        except TOLD as error:
            assert str(error), (call, arguments)
            return True
        return False


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
    refused = [_tried(call, each) for each in HOSTILE]
    assert any(refused), name
    for pair in itertools.product(HOSTILE[:12], HOSTILE[::4]):
        _tried(call, *pair)


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
                _tried(getattr(thing, name), each)
                seen += 1
    assert seen > 500
    for thing in things:  # they are as good as before
        assert repr(thing)
