"""The flat face of the library, one sample a call: what columns are compared with."""

from __future__ import annotations

import ctypes as c

import numpy as np

from kelfunzioni import Converter
from kelfunzioni import _library as lib
from kelfunzioni._records import ConverterRecord

_VALUE = c.CFUNCTYPE(c.c_float, c.POINTER(ConverterRecord), c.c_void_p, c.POINTER(c.c_uint32))
_flat = lib._functions
_flat.kelConvGetValFloat.argtypes = [
    c.POINTER(ConverterRecord), c.c_void_p, c.POINTER(c.c_float)
]  # fmt: skip
_flat.kelConvGetString.argtypes = [c.POINTER(ConverterRecord), c.c_void_p, c.c_char_p]


def read(converter: Converter, samples: list[bytes]) -> tuple[list[int], list[int], list[bytes]]:
    """Bits of the values, status words and texts of samples."""
    record = ConverterRecord.from_buffer_copy(converter._record)
    bits, states, texts = [], [], []
    for sample in samples:
        memory = c.create_string_buffer(sample, len(sample))
        value, state = c.c_float(), c.c_uint32()
        _flat.kelConvGetValFloat(record, memory, value)
        bits.append(int(np.float32(value.value).view(np.uint32)))
        place = c.addressof(memory) + record.offset_campione
        if record.valore:
            _VALUE(record.valore)(record, place, state)
        states.append(state.value if record.valore else 1)
        text = c.create_string_buffer(32)
        _flat.kelConvGetString(record, memory, text)
        texts.append(text.value)
    return bits, states, texts


def agree(converter: Converter, samples: list[bytes], data: object) -> None:
    """Check that a column of `data` is what `samples` are one at a time."""
    bits, states, texts = read(converter, samples)
    column = converter(data)
    assert column.valid.ravel().tolist() == [state == 0 for state in states]
    found = column.values.ravel().view(np.uint32)
    for i, state in enumerate(states):
        if state == 0:
            assert found[i] == bits[i] or np.isnan(column.values.ravel()[i])
        else:
            assert np.isnan(column.values.ravel()[i])
    assert converter.status(data).ravel().tolist() == states
    assert converter.texts(data).ravel().tolist() == [t.decode("utf-8", "replace") for t in texts]
