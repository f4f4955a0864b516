"""pyarrow.compute, whose functions no checker knows: they are made when it is imported."""

from typing import Any

from pyarrow import compute

pc: Any = compute
