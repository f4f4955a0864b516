"""Recordings by the thousand: exported on many machines, and asked in SQL (extra ``fleet``).

The command is ``kelflotta``. `decode` is its heart, and knows no engine: a recording in, Arrow
batches out. `export` hands recordings to workers of Dask; `connect` gives a connection of DuckDB
to what they wrote.

>>> from kelfunzioni import fleet
>>> decoded = fleet.decode(fleet.Source("recording", ("kart.channels", "kart.samples"), "kart"))
>>> decoded.rate, sum(batch.num_rows for batch in decoded.batches())
(10.0, 1553)
"""

from ._decode import Decoded, decode, decode_tables
from ._digest import digest
from ._export import Summary, export
from ._inputs import Source, find
from ._query import connect

__all__ = [
    "Decoded",
    "Source",
    "Summary",
    "connect",
    "decode",
    "decode_tables",
    "digest",
    "export",
    "find",
]
