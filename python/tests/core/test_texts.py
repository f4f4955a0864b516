"""Texts of fixed width become those that numpy's own decoding gives."""

import numpy as np
import pytest

from kelfunzioni._texts import decoded


@pytest.mark.parametrize(
    "texts",
    [
        [],
        [b"", b""],
        [b"12.5", b"-3", b"   ---"],
        [b"a" * 32, b"b"],
        ["°C".encode(), b"km/h"],
        [b"\xff\xfe", b"broken"],
        [b"in\0side", b""],
    ],
)
def test_texts_are_numpys(texts: list[bytes]) -> None:
    raw = np.array(texts, "S32")
    expected = np.char.decode(raw, "utf-8", "replace")
    assert decoded(raw).tolist() == expected.tolist()
    # Of no texts an older numpy makes an array of numbers.
    assert decoded(raw).dtype == (expected.dtype if texts else "<U1")


def test_texts_keep_their_shape() -> None:
    raw = np.array([[b"1", b"22"], [b"333", b""]], "S32")
    assert decoded(raw).tolist() == [["1", "22"], ["333", ""]]
