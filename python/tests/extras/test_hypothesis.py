"""Random converters and samples, beside the flat face called one sample at a time."""

import sys
import warnings
from pathlib import Path

import numpy as np
from hypothesis import given, settings
from hypothesis import strategies as st

import kelfunzioni as kel
from kelfunzioni import SampleType

sys.path.insert(0, str(Path(__file__).parent.parent))
from one_at_a_time import agree

KINDS = [kind for kind in SampleType if kind.size]
KNOWN = [each.identifier for each in kel.Catalogue().functions]


@st.composite
def converters(draw):
    identifier = draw(st.sampled_from(KNOWN) | st.integers(0, 0xFFFFFFFF))
    function = kel.Function(identifier)
    kind = draw(st.sampled_from(KINDS))
    bit = draw(st.integers(0, kind.size * 8 - 1))
    with warnings.catch_warnings():
        warnings.simplefilter("ignore", kel.KelWarning)
        return kel.Converter(
            function,
            kind,
            draw(st.sampled_from(function.units)) if function.units else None,
            offset=draw(st.none() | st.integers(0, 9)),
            bit=bit,
            bits=draw(st.integers(0, kind.size * 8 - bit)),
            width=draw(st.integers(0, 31)),
            decimals=draw(st.sampled_from([None, 0, 1, 2, 3, "auto"])),
            align=draw(st.sampled_from(["right", "left", "compact"])),
        )


@settings(max_examples=300, deadline=None)
@given(converters(), st.integers(0, 200), st.integers(0, 5), st.integers(0, 2**32 - 1))
def test_columns_are_single_calls(converter, count, gap, seed):
    kind = converter.sample_type
    length = kind.size + (converter._offset or 0)
    memory = np.random.default_rng(seed).integers(0, 256, (count, length + gap), np.uint8)
    few = memory[:, :length] if converter._offset is None else memory
    agree(converter, [row.tobytes() for row in few], few)


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
