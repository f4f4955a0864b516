"""What functions are not made for, and whether they say so."""

import inspect
import warnings

import numpy as np

HOSTILE = [
    None, "", "\0", "\udcff", "x" * 5000, b"\xff\xfe", -1, 2**70, 1.5, float("nan"), float("inf"),
    True, [], [None], {}, object(), np.zeros(3), np.zeros((2, 3), np.int16)[:, ::-1],
    np.array(["a"]), np.zeros(3, object), np.zeros(3, ">i4"), slice(None, None, -1), print,
]  # fmt: skip
# What a wrong argument may be told by. KelError is a ValueError.
TOLD = (TypeError, ValueError, LookupError, OSError, OverflowError)


def tried(call, *arguments, **named):
    """Call it; whether it was refused."""
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        try:
            found = call(*arguments, **named)
            if inspect.isgenerator(found):
                next(found, None)
        except TOLD as error:
            assert str(error), (call, arguments, named)
            return True
        return False
