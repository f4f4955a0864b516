"""What a user's program looks like to a type checker: checked, not run."""

from __future__ import annotations

import numpy as np
import numpy.typing as npt
from typing_extensions import assert_type

import kelfunzioni as kel

speed = kel.Function("REF_SPEED_FL")
assert_type(speed.name, str)
assert_type(speed.units, tuple[str, ...])
assert_type(speed.base_unit, str | None)
assert_type(kel.find("oil"), list[kel.Function])
assert_type(kel.convert(1.0, speed, "km/h", "mph"), float)
assert_type(kel.parse_lap("1:23.456"), int)

samples = np.array([1, 2], np.int16)
column = kel.Converter(speed, "int16", "mph")(samples)
assert_type(column, kel.Column)
valid: npt.NDArray[np.bool_] = column.valid

with kel.Recording("kart.channels", b"") as recording:
    assert_type(recording, kel.Recording)
    assert_type(recording["Wheel Speed"], kel.Column)
    assert_type(recording[10:20], kel.Table)
    for lap in kel.laps(recording):
        assert_type(lap, kel.Lap)
