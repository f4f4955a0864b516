"""Functions from identifiers, texts and fields."""

import pickle

import numpy as np
import pytest

import kelfunzioni as kel


def test_the_same_function_by_every_way():
    speed = kel.Function(0x05070010)
    ways = [
        kel.Function("0x05070010"), kel.Function("84344848"), kel.Function("REF_SPEED_FL"),
        kel.Function("ref_speed_fl"), kel.Function(speed), kel.Function(np.uint32(0x05070010)),
        kel.Function(quantity="speed", position="wheel", sides="front left"),
        kel.Function(quantity="FID_PHI_SPEED", position="Wheel", sides="Left Front"),
    ]  # fmt: skip
    assert set(ways) == {speed}
    assert speed != 0x05070010
    assert hash(speed) == hash(ways[0])
    assert pickle.loads(pickle.dumps(speed)) == speed


@pytest.mark.parametrize(
    ("arguments", "says"),
    [
        ({"what": "watter temp"}, "did you mean 'WATER_TEMP'"),
        ({"quantity": "sped"}, "did you mean 'speed'"),
        ({"quantity": "speed", "sides": "frnt"}, "did you mean 'front'"),
        ({"what": 1, "quantity": "speed"}, "one of the two"),
        ({}, "there is no function"),
        ({"what": -1}, "accepted: 0 to 0xffffffff"),
        ({"what": 1 << 32}, "accepted: 0 to 0xffffffff"),
        ({"what": True}, "is no identifier"),
        ({"what": "0x100000000"}, "accepted"),
        ({"what": "a\0b"}, "NUL"),
        ({"what": ""}, "accepted"),
        ({"what": "\udcff"}, "accepted"),
        ({"quantity": "speed", "number": 64}, "accepted: 0 to 63"),
        ({"quantity": "speed", "number": 1, "sides": "left"}, "one of the two"),
        ({"quantity": "speed", "details": "gps"}, "packet"),
    ],
)
def test_wrong_functions_say_what_is_accepted(arguments, says):
    with pytest.raises(kel.KelError, match=says) as caught:
        kel.Function(**arguments)
    assert "--" not in str(caught.value)


@pytest.mark.parametrize("what", [1.5, [], object(), b"x"])
def test_other_types_are_no_functions(what):
    with pytest.raises(TypeError, match="accepted"):
        kel.Function(what)
    with pytest.raises(TypeError, match="accepted"):
        kel.Function(quantity=what)


def test_every_identifier_has_names_and_no_error():
    random = np.random.default_rng(1)
    for identifier in [0, 0xFFFFFFFF, *random.integers(0, 1 << 32, 500).tolist()]:
        function = kel.Function(identifier)
        assert isinstance(function.name, str) and isinstance(function.full_name, str)
        assert function.units == () or function.base_unit == function.units[0]
        assert function.fields and function.choices and isinstance(function.subfields, tuple)


def test_units_that_are_none_name_the_nearest():
    with pytest.raises(kel.KelError, match="did you mean 'km/h'"):
        kel.Function("REF_SPEED").unit("kph")
    with pytest.raises(kel.KelError, match="no units"):
        kel.Function(0).unit("km/h")
    with pytest.raises(TypeError):
        kel.Function("REF_SPEED").unit(1)
