"""The records lie in memory as the C faces have them."""

import ctypes
import re

import pytest

from kelfunzioni import _library as lib
from kelfunzioni import _records
from kelfunzioni._answer import answer

LIES = answer(lib.py_records)
RECORDS = {
    re.match(r"`(\w+)`", record.__doc__)[1]: record
    for record in vars(_records).values()
    if isinstance(record, type) and issubclass(record, ctypes.Structure)
}


def test_no_record_is_left_out():
    assert sorted(RECORDS) == sorted(LIES)


@pytest.mark.parametrize("name", sorted(LIES))
def test_size_and_last_member(name):
    record = RECORDS[name]
    size, last = LIES[name]
    assert ctypes.sizeof(record) == size
    assert last in [getattr(record, member[0]).offset for member in record._fields_[-2:]]
