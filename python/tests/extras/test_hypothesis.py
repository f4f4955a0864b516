"""Random converters and samples, beside the flat face called one sample at a time."""

import sys
import warnings
from pathlib import Path

import numpy as np
import pytest
from hypothesis import given, settings
from hypothesis import strategies as st

import kelfunzioni as kel
from kelfunzioni import SampleType

sys.path.insert(0, str(Path(__file__).parent.parent))
from one_at_a_time import agree

KINDS = [kind for kind in SampleType if kind.size]
KNOWN = [each.identifier for each in kel.Catalogue().functions]


# Of every unit that is shown as 1 divided by the value: its function.
RECIPROCAL = [
    (function, unit["unit"])
    for quantity in kel.Catalogue()["quantities"]
    for each in quantity["objects"]
    for function in [kel.Function(int(each["identifier"], 16))]
    for unit in each["units"]
    if unit["reciprocal"]
]
SUBFIELDS = [
    (packet, function)
    for row in kel.Catalogue()["packets"]
    for packet in [kel.Function(int(row["identifier"], 16))]
    for function in packet.subfields
]
LOOKS = {
    "width": st.integers(0, 31),
    "decimals": st.sampled_from([None, 0, 1, 2, 3, "auto"]),
    "align": st.sampled_from(["right", "left", "compact"]),
    "offset": st.none() | st.integers(0, 9),
}


@st.composite
def converters(draw, kind, bits):
    """Of samples of a kind: of any function, or of one with a reciprocal unit."""
    if draw(st.integers(0, 3)) == 0:
        function, unit = draw(st.sampled_from(RECIPROCAL))
    else:
        function = kel.Function(draw(st.sampled_from(KNOWN) | st.integers(0, 0xFFFFFFFF)))
        unit = draw(st.sampled_from(function.units)) if function.units else None
    first = draw(st.integers(0, kind.size * 8 - 1)) if bits else 0
    count = draw(st.integers(1, kind.size * 8 - first)) if bits else 0
    return _converter(draw, function, kind, unit, bit=first, bits=count)


@st.composite
def subfields(draw):
    packet, function = draw(st.sampled_from(SUBFIELDS))
    unit = draw(st.sampled_from(function.units)) if function.units else None
    return _converter(draw, function, None, unit, packet=packet)


def _converter(draw, *arguments, **named):
    looks = {name: draw(strategy) for name, strategy in LOOKS.items()}
    with warnings.catch_warnings():
        warnings.simplefilter("ignore", kel.KelWarning)
        return kel.Converter(*arguments, **named, **looks)


def _agrees(converter, count, gap, seed):
    """Rows of any bytes: for some numbers of them, which a text would show, small values."""
    length = converter.sample_type.size + (converter._offset or 0)
    random = np.random.default_rng(seed)
    memory = random.integers(0, 256, (count, length + gap), np.uint8)
    memory[:, 2:][random.random(count) < 0.3] = 0
    few = memory[:, :length] if converter._offset is None else memory
    agree(converter, [row.tobytes() for row in few], few)


SIZES = st.integers(0, 100), st.integers(0, 5), st.integers(0, 2**32 - 1)


@pytest.mark.parametrize("bits", [False, True], ids=["whole", "bits"])
@pytest.mark.parametrize("kind", KINDS, ids=lambda kind: kind.name)
def test_columns_are_single_calls(kind, bits):
    """Every sample type, read whole and as a bit field."""

    @settings(max_examples=10, deadline=None)
    @given(converters(kind, bits), *SIZES)
    def compare(converter, count, gap, seed):
        _agrees(converter, count, gap, seed)

    compare()


@settings(max_examples=100, deadline=None)
@given(subfields(), *SIZES)
def test_columns_of_subfields_are_single_calls(converter, count, gap, seed):
    _agrees(converter, count, gap, seed)


def test_nothing_is_left_out_of_the_comparison():
    """Types with samples, units that are reciprocal, and packets with subfields are there."""
    assert len(KINDS) == sum(row["bytes"] > 0 for row in kel.Catalogue()["sample_types"])
    assert {unit for _, unit in RECIPROCAL} and all(unit in f.units for f, unit in RECIPROCAL)
    assert {packet.identifier & 0x7FFF for packet, _ in SUBFIELDS} == {0x9A, 0x19A}


@settings(max_examples=200, deadline=None)
@given(st.binary(max_size=400), st.binary(max_size=400))
def test_any_bytes_are_a_table_or_an_error(channels, samples):
    try:
        with kel.Recording(channels, samples) as recording:
            for column in recording.read().values():
                assert len(column.values) == len(recording)
    except kel.RecordingError as error:
        assert str(error)


@settings(max_examples=100, deadline=None)
@given(st.text(max_size=40))
def test_any_text_is_found_or_an_error(text):
    for call in (kel.Function, kel.find, kel.search, kel.parse_lap, kel.parse_lap_line):
        try:
            call(text)
        except kel.KelError as error:
            assert str(error)
