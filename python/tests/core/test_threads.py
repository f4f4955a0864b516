"""What many threads may do at once; without the GIL they do it at the same time."""

import sys
import sysconfig
import threading
from concurrent.futures import ThreadPoolExecutor

import numpy as np
import pytest

import kelfunzioni as kel

THREADS = 8
RANDOM = np.random.default_rng(11)


def _at_once(work):
    """Run it in some threads that start together; what each of them gave."""
    start = threading.Barrier(THREADS)

    def run(number):
        start.wait()
        return work(number)

    with ThreadPoolExecutor(THREADS) as pool:
        return list(pool.map(run, range(THREADS)))


def test_the_package_leaves_an_interpreter_without_gil_as_it_is():
    if not sysconfig.get_config_var("Py_GIL_DISABLED"):
        pytest.skip("an interpreter with a GIL")
    assert not sys._is_gil_enabled()


def test_functions_and_their_caches():
    fids = [each.identifier for each in kel.Catalogue().functions]
    expected = [(kel.Function(f).name, kel.Function(f).units) for f in fids]

    def look(number):
        # Others than in the caches, too.
        for i in range(200):
            kel.Function((number * 7919 + i) << 15 | 0x10).name  # noqa: B018
        return [(kel.Function(f).name, kel.Function(f).units) for f in fids]

    assert _at_once(look) == [expected] * THREADS


def test_one_function_whose_parts_are_looked_up_by_all():
    for _ in range(20):
        speed = kel.Function("REF_SPEED_FL")
        found = _at_once(lambda n, f=speed: (f.fields, f.choices, f.legacy_id, f.subfields))
        assert all(each == found[0] for each in found)


def test_one_converter_and_columns_of_many():
    samples = RANDOM.integers(-32768, 32767, 1 << 16).astype(np.int16)
    shared = kel.Converter("REF_SPEED", "int16", "mph")
    expected, texts = shared(samples).values, shared.texts(samples[:500]).tolist()

    def read(number):
        mine = shared if number % 2 else kel.Converter("REF_SPEED", "int16", "mph")
        column = mine(samples)
        return column.values, column.valid, mine.texts(samples[:500]).tolist()

    for values, valid, found in _at_once(read):
        assert np.array_equal(values, expected, equal_nan=True) and found == texts
        assert np.array_equal(valid, ~np.isnan(expected))
    # A column is made by all who ask it: of what is missing, of what it says.
    column = shared(samples)
    for values, valid in _at_once(lambda n: (column.values, column.valid)):
        assert np.array_equal(values, expected, equal_nan=True) and len(valid) == len(samples)


def test_one_recording_is_read_by_one_thread_after_the_other(kart):
    recording = kel.Recording(kart / "kart.channels", kart / "kart.samples")
    expected = {name: column.values for name, column in recording.read().items()}
    laps = [lap.milliseconds for lap in kel.laps(recording)]

    def read(number):
        found = {}
        for piece in recording.batches(100 + number):
            for name, column in piece.read().items():
                found.setdefault(name, []).append(column.values)
        assert [lap.milliseconds for lap in kel.laps(recording)] == laps
        return {name: np.concatenate(each) for name, each in found.items()}

    for found in _at_once(read):
        for name, values in expected.items():
            assert np.array_equal(found[name], values, equal_nan=values.dtype.kind == "f"), name


def test_a_recording_that_is_closed_while_others_read_it(kart):
    expected = kel.Recording(kart / "kart.channels", kart / "kart.samples")["Wheel Speed"].values
    for _ in range(10):
        recording = kel.Recording(kart / "kart.channels", kart / "kart.samples")

        def read(number, recording=recording):
            if number == 3:
                recording.close()
                return None
            try:
                return recording["Wheel Speed"].values
            except kel.RecordingError as error:
                assert "closed" in str(error)
                return None

        for values in _at_once(read):
            assert values is None or np.array_equal(values, expected, equal_nan=True)
