"""The whole catalogue as data."""

from __future__ import annotations

from collections.abc import Iterator, Mapping
from functools import cache, cached_property
from typing import Any

from . import _library as lib
from ._answer import answer
from ._function import Function

__all__ = ["Catalogue"]


class Catalogue(Mapping[str, Any]):
    """All that the library knows, as ``kelfun catalogue`` writes it.

    A mapping from the parts of the catalogue to lists and dicts: ``"fields"``, ``"quantities"``,
    ``"functions"``, ``"unit_codes"``, ``"sample_types"``, ``"packets"``, ``"camera"``,
    ``"legacy_identifiers"``, ``"identifier_layout"``. Its JSON schema is installed with kelfun.

    Examples
    --------
    >>> catalogue = Catalogue()
    >>> catalogue["unit_codes"][1]
    {'code': 1, 'unit': 'km/h'}
    >>> catalogue.functions[0]
    Function(0x00000281, 'Brake Pos')
    """

    def __getitem__(self, part: str) -> Any:
        return _data()[part]

    def __iter__(self) -> Iterator[str]:
        return iter(_data())

    def __len__(self) -> int:
        return len(_data())

    @property
    def version(self) -> str:
        """The version of the library."""
        return str(_data()["version"])

    @cached_property
    def functions(self) -> tuple[Function, ...]:
        """The functions that a configuration program would offer (``getFunzioni``)."""
        return tuple(Function(int(row["identifier"], 16)) for row in _data()["functions"])

    def __repr__(self) -> str:
        return f"Catalogue(version={self.version!r}, {len(self.functions)} functions)"


@cache
def _data() -> dict[str, Any]:
    found: dict[str, Any] = answer(lib.py_catalogue)
    return found
