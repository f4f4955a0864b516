"""The shared libraries, found beside the package, and the prototypes of what is called.

The environment variable ``KELFUNZIONI_LIBRARIES`` names folders to look in first, as ``PATH`` does:
for tests of a library that was built and not installed.
"""

from __future__ import annotations

import ctypes as c
import os
from pathlib import Path
from typing import Any

from . import _records as r

# In a wheel the libraries are one, in a build they are three.
_ALL = "libkelpython.so"
_LIBRARIES = ("libkelfunzioni.so.0", "libkelregistrazioni.so.0")


def _folders() -> list[Path]:
    named = [
        Path(each) for each in os.environ.get("KELFUNZIONI_LIBRARIES", "").split(os.pathsep) if each
    ]
    return [*named, Path(__file__).parent / "lib"]


def _find(name: str) -> Path | None:
    return next((folder / name for folder in _folders() if (folder / name).exists()), None)


def _load() -> tuple[c.CDLL, c.CDLL, c.CDLL]:
    package = _find(_ALL)
    if package is None:
        looked = ", ".join(str(folder) for folder in _folders())
        raise ImportError(
            f"{_ALL} is not in {looked}; install the package with pip, or name the folder of a "
            f"built library in KELFUNZIONI_LIBRARIES"
        )
    functions, recordings = (c.CDLL(str(_find(name) or package)) for name in _LIBRARIES)
    return functions, recordings, c.CDLL(str(package))


_functions, _recordings, _python = _load()

_U32, _SIZE, _TEXT, _PTR = c.c_uint32, c.c_size_t, c.c_char_p, c.c_void_p
_ERROR = c.POINTER(r.ErrorText)


def _take(library: c.CDLL, name: str, result: Any, *arguments: Any) -> Any:
    function = getattr(library, name)
    function.restype, function.argtypes = result, arguments
    return function


# The first library.
get_units = _take(_functions, "kelFunGetUIVs", c.POINTER(r.QuantityRow), _U32)
base_unit = _take(_functions, "kelFunGetUnitaBase", _TEXT, _U32)
decimals = _take(_functions, "kelFunGetNumDecimaliDefault", c.c_int, _U32, _TEXT)
decimals_max = _take(_functions, "kelFunGetNumDecimaliMax", c.c_int, _U32, _TEXT)
decimals_min = _take(_functions, "kelFunGetNumDecimaliMin", c.c_int, _U32, _TEXT)
unit_data = _take(_functions, "kelFunGetConvData", c.POINTER(r.ConverterData), _U32, _TEXT)
units_data = _take(_functions, "kelFunGetConvDatas", r.ConverterData, _U32, _TEXT, _TEXT)
short_name = _take(_functions, "kelFunGetNomeFunzioneShort", r.ShortName, _PTR, _U32)
sample_size = _take(_functions, "kelFunGetSamplSize", c.c_uint, c.c_uint)
subfields = _take(_functions, "search_sottocampi_struct", c.POINTER(r.Subfield), c.c_uint, c.c_uint)
converter_init = _take(
    _functions, "kelConvInit", None, c.POINTER(r.ConverterRecord), c.POINTER(r.Channel), _U32,
    c.POINTER(r.ConverterData), c.c_ushort, c.c_ushort, c.c_int,
)  # fmt: skip

# The second library.
read_columns = _take(
    _recordings, "kelColLeggi", None, _PTR, _SIZE, _SIZE, c.POINTER(r.ColumnRecord), c.c_uint
)
rec_open = _take(
    _recordings, "kelRegApri", _PTR, _PTR, _SIZE, _PTR, _SIZE, c.POINTER(r.OpenChoices), _ERROR
)
rec_open_ubx = _take(_recordings, "kelRegApriUbx", _PTR, _PTR, _SIZE, _ERROR)
rec_close = _take(_recordings, "kelRegChiudi", None, _PTR)
rec_said = _take(_recordings, "kelRegDetto", _TEXT, _PTR)
rec_stamps = _take(_recordings, "kelRegOrario", c.c_uint32, _PTR)
rec_rows = _take(_recordings, "kelRegRighe", c.c_uint64, _PTR)
rec_rest = _take(_recordings, "kelRegAvanzo", c.c_uint64, _PTR)
rec_columns = _take(_recordings, "kelRegNumColonne", c.c_uint, _PTR)
rec_describe = _take(
    _recordings, "kelRegDescrivi", c.c_int, _PTR, c.c_uint, c.POINTER(r.Description)
)
rec_unit = _take(_recordings, "kelRegUnita", c.c_int, _PTR, c.c_uint, _TEXT)
rec_times = _take(_recordings, "kelRegTempi", c.c_int, _PTR, c.c_uint64, _SIZE, _PTR)
rec_span = _take(
    _recordings, "kelRegTratto", c.c_int, _PTR, c.c_double, c.c_double,
    c.POINTER(c.c_uint64), c.POINTER(c.c_uint64),
)  # fmt: skip
rec_read = _take(
    _recordings, "kelRegLeggi", c.c_int, _PTR, c.c_uint64, _SIZE, c.POINTER(r.Reading), c.c_uint
)
laps_open = _take(_recordings, "kelGiriApri", _PTR, _PTR, _ERROR)
laps_close = _take(_recordings, "kelGiriChiudi", None, _PTR)
laps_add = _take(_recordings, "kelGiriAggiungi", c.c_int, _PTR, _ERROR)
laps_find = _take(_recordings, "kelGiriCalcola", c.c_int, _PTR, c.POINTER(r.LapChoices), _ERROR)
laps_said = _take(_recordings, "kelGiriDetto", _TEXT, _PTR)
laps_number = _take(_recordings, "kelGiriNumero", c.c_uint, _PTR)
laps_lap = _take(_recordings, "kelGiriGiro", c.c_int, _PTR, c.c_uint, c.POINTER(r.LapRecord))

# The package's own: answers are JSON texts, to be freed.
_INT = c.c_int
free = _take(_python, "kelpy_libera", None, _PTR)
py_name = _take(_python, "kelpy_nome", _PTR, _U32, _INT)
py_records = _take(_python, "kelpy_record", _PTR)
py_legacy = _take(_python, "kelpy_vecchio", _PTR, _U32)
py_read_function = _take(_python, "kelpy_leggi_fid", _PTR, _TEXT)
py_compose = _take(
    _python, "kelpy_componi", _PTR, _TEXT, _TEXT, _TEXT, _TEXT, _INT, _TEXT, _TEXT, _TEXT
)
py_fields = _take(_python, "kelpy_campi", _PTR, _U32)
py_read_unit = _take(_python, "kelpy_leggi_udm", _PTR, _U32, _TEXT)
py_find = _take(_python, "kelpy_trova", _PTR, _TEXT)
py_choices = _take(_python, "kelpy_scelte", _PTR, _U32)
py_conversion_warning = _take(
    _python, "kelpy_avviso_conversione", _PTR, _U32, _TEXT, _TEXT, c.c_float
)
py_unit_warning = _take(_python, "kelpy_avviso_unita", _PTR, _U32, _TEXT)
py_packet_warning = _take(_python, "kelpy_avviso_pacchetto", _PTR, _U32, c.c_uint)
py_bits_warning = _take(_python, "kelpy_avviso_bit", _PTR, _TEXT, c.c_uint)
py_catalogue = _take(_python, "kelpy_catalogo", _PTR)
py_write_time = _take(_python, "kelpy_scrivi_tempo", _PTR, _INT)
py_write_line = _take(_python, "kelpy_scrivi_riga", _PTR, _INT, _INT)
py_read_time = _take(_python, "kelpy_leggi_tempo", _PTR, _TEXT)
py_read_line = _take(_python, "kelpy_leggi_riga", _PTR, _TEXT)
arrow_start = _take(_python, "kelpy_arrow_avvia", None, _PTR, _PTR)
arrow_schema = _take(_python, "kelpy_schema", _PTR, _TEXT, _TEXT, _TEXT, _SIZE)
arrow_array = _take(_python, "kelpy_array", _PTR, c.c_int64, c.c_int64, _PTR, _PTR, _PTR, _SIZE)
arrow_rows = _take(_python, "kelpy_righe", _PTR, c.c_int64, c.POINTER(_PTR), c.POINTER(_PTR), _SIZE)
arrow_stream = _take(
    _python, "kelpy_flusso", _PTR, _PTR, c.c_uint64, c.c_uint64, _INT, _PTR, _SIZE, _SIZE, _ERROR
)
destroy_schema, destroy_array, destroy_stream = (
    c.cast(getattr(_python, f"kelpy_distruggi_{what}"), _PTR)
    for what in ("schema", "array", "flusso")
)
