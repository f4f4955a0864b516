"""Searches give what the tool gives, in its order."""

import pytest

import kelfunzioni as kel

WORDS = [
    "wheel front left", "oil", "OIL pressure", "tyre", "mph", "gps speed", "0x10", "FID_OBJ_WATER",
    "lambda", "brake", "g", "celsius", "damper", "lap", "REF_SPEED", "engine rpm", "km/h", "temp",
    "acceleration y", "a",
]  # fmt: skip


@pytest.mark.parametrize("words", WORDS)
def test_same_functions_in_the_same_order(words, kelfun):
    told = kelfun("find", words, "--json")["found"]
    found = kel.search(words)
    assert [f"0x{each.function.identifier:08X}" for each in found] == [
        row["identifier"] for row in told
    ]
    assert [each.grade for each in found] == [row["match"] for row in told]
    assert [list(each.matched) for each in found] == [row["matched"] for row in told]
    assert [list(each.matched.values()) for each in found] == [row["key"] for row in told]
    assert [each.function.name for each in found] == [row["name"] for row in told]
    assert [list(each.function.units) for each in found] == [row["units"] for row in told]


def test_nothing_found_says_what_is_near():
    with pytest.raises(kel.NotFoundError, match="close to it: pressure"):
        kel.find("oil preassure")
    with pytest.raises(kel.NotFoundError, match="each of the words alone is"):
        kel.find("oil psi mph")
    assert kel.search("oil psi mph") == []
