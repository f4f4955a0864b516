"""What the identifiers and samples of racing data loggers mean; recordings in data frames.

>>> import kelfunzioni as kel
>>> kel.find("wheel front left")
[Function(0x05070010, 'Speed Wheel FL')]
>>> kel.parse_lap("1:23.456")
83456
"""

from ._catalogue import Catalogue
from ._column import Column
from ._converter import Converter
from ._errors import KelError, KelWarning, NotFoundError, RecordingError
from ._find import Match, find, search
from ._function import Choices, Field, Function
from ._laps import FinishLine, Lap, Laps, laps
from ._laptime import format_lap, format_lap_line, parse_lap, parse_lap_line
from ._mapped import MappedRecording
from ._recording import Capture, Recording
from ._sampletype import SampleType
from ._table import ColumnInfo, Table
from ._units import convert

__version__ = "0.1.0"

__all__ = [
    "Capture",
    "Catalogue",
    "Choices",
    "Column",
    "ColumnInfo",
    "Converter",
    "Field",
    "FinishLine",
    "Function",
    "KelError",
    "KelWarning",
    "Lap",
    "Laps",
    "MappedRecording",
    "Match",
    "NotFoundError",
    "Recording",
    "RecordingError",
    "SampleType",
    "Table",
    "convert",
    "find",
    "format_lap",
    "format_lap_line",
    "laps",
    "parse_lap",
    "parse_lap_line",
    "search",
]
