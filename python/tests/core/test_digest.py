"""The digest of the catalogue and of columns from Python is that of the library in C.

``KEL_DIGEST_ROUNDS=20000`` or ``200000`` makes ten or a hundred times as many calls.
"""

import ctypes as c
import os
import struct
import sys
from pathlib import Path

import numpy as np
import pytest

import kelfunzioni as kel
from kelfunzioni import _library as lib
from kelfunzioni._records import Channel, ColumnRecord, ConverterData, ConverterRecord

sys.path.insert(0, str(Path(__file__).parent.parent))
from digest import TABLES, Case, Digest, of_words

ROUNDS = os.environ.get("KEL_DIGEST_ROUNDS", "2000")
VALUES = Path(__file__).parents[3] / "tests/digest/values.txt"


def _kept():
    rows = [row.split("\t") for row in VALUES.read_text().splitlines() if not row.startswith("#")]
    assert ROUNDS in rows[0], f"KEL_DIGEST_ROUNDS={ROUNDS}; accepted: {rows[0][1:-1]}"
    return {row[0]: row[rows[0].index(ROUNDS)] for row in rows[1:]}


KEPT = _kept()


def function(case):
    return kel.Function(case.fid())


def name(case, digest):
    which = function(case)
    digest.text(which.full_name if case.one_in(2) else which.name)


def decimals(call):
    def of(case, digest):
        fid = case.fid()
        digest.number(call(fid, case.unit(fid)))

    return of


def unit_data(case, digest):
    fid = case.fid()
    unit = case.unit(fid)
    found = lib.unit_data(fid, None if case.one_in(16) else unit)
    digest.unit_data(found[0]) if found else digest.number(0)


def unit_data_of_object(case, digest):
    fid = case.fid()
    found = lib.unit_data(fid, case.unit(fid))
    digest.unit_data(found[0]) if found else digest.number(0)


def units_data(case, digest):
    fid = case.fid()
    units = case.unit(fid), case.unit(fid)
    digest.unit_data(lib.units_data(fid, *units))


def subfields_table(case, digest):
    details = case.below(5)
    digest.subfields(lib.subfields(details, case.u32() if case.one_in(4) else case.below(4)))


def inner(case, digest):
    """Reserved fields too, which `Function.subfields` leaves out."""
    which = case.packet()
    rows = (each for each in kel.Catalogue()["packets"] if int(each["identifier"], 16) == which)
    found = [int(field["identifier"], 16) for each in rows for field in each["subfields"]]
    named = [each.identifier for each in kel.Function(which).subfields]
    assert named == [each for each in found if each]
    digest.numbers((len(found), *found))


def value_of(field, what):
    """The text of a field's value, as the catalogue has it."""

    def of(case, digest):
        value = case.u32() if case.one_in(4) else case.below(70)
        words = TABLES.words(field, what)
        digest.text(words[value] if value < len(words) else "")

    return of


def index_of(field):
    def of(case, digest):
        text = case.text(40).decode("utf-8", "surrogateescape")
        rows = kel.Catalogue()["fields"][field]
        digest.number(next((row["value"] for row in rows if row["xml"] == text), 0))

    return of


def unit_code(case, digest):
    text = case.text(24).decode("utf-8", "surrogateescape")
    digest.number(TABLES.codes.index(text) if text in TABLES.codes else -1)


def unit_of_code(case, digest):
    code = case.sizes()
    digest.pointer(TABLES.codes[code].encode() if code < len(TABLES.codes) else None)


def quantities(case, digest):
    rows = kel.Catalogue()["fields"]["quantity"]
    digest.number(len(rows))
    for row in rows:
        digest.number(row["value"])
        digest.text(row["text"] or "")


def values_of_fields(case, digest):
    fields = (
        "quantity", "object", "position", "details", "specialisation_gps",
        "specialisation_laptime", None, "inout", "leftright", "frontrear", "updown",
    )  # fmt: skip
    digest.number(len(fields) + 1)
    for field in fields:
        digest.texts(TABLES.words(field, "xml") if field else ["Position", "Number"])
    layout = {row["field"]: row["bits"] for row in kel.Catalogue()["identifier_layout"]}
    digest.texts([str(number) for number in range(2 ** layout["number"])])


def camera(table):
    def of(case, digest):
        rows = [row for row in kel.Catalogue()["camera"] if row["table"] == table]
        digest.number(len(rows))
        for row in rows:
            digest.numbers((1, int(row["identifier"], 16)))
            digest.pointer(row["unit"].encode())
            digest.real(row["scale"])
            digest.number(-1 if row["code"] is None else row["code"])
            digest.real(row["factor"])
            for key in ("short_name", "name", "legacy_id"):
                digest.pointer(row[key].encode())
            digest.number(row["sample_type"])

    return of


def lap_line(case, digest):
    number = struct.unpack("<i", struct.pack("<I", case.u32()))[0]
    digest.text(kel.format_lap_line(number, _signed(case.sizes()), strict=False))


def read_lap_line(case, digest):
    text = case.time().decode()
    found = kel.parse_lap_line(text + "      " if len(text) < 6 else text, strict=False)
    digest.numbers(found)


def _signed(number):
    return number - 2**32 if number >= 2**31 else number


# How many rounds a call is made in, and the call; what the package offers of the library.
OPERATIONS = {
    "kelFunGetUIVs": (1, lambda case, digest: digest.quantity(lib.get_units(case.fid()))),
    "kelFunGetUnitaBase": (1, lambda case, digest: digest.pointer(lib.base_unit(case.fid()))),
    "kelFunGetUdmTxt": (1, unit_of_code),
    "kelFunGetUdmCode": (1, unit_code),
    "kelFunGetNumDecimaliDefault": (1, decimals(lib.decimals)),
    "kelFunGetNumDecimaliMax": (1, decimals(lib.decimals_max)),
    "kelFunGetNumDecimaliMin": (1, decimals(lib.decimals_min)),
    "kelFunGetConvData": (1, unit_data),
    "kelFunGetConvDatas": (1, units_data),
    "kelFunGetNomeFunzioneShort": (
        1,
        lambda case, digest: digest.pointer(function(case).short_name.encode()),
    ),
    "kelFunGetSamplSize": (1, lambda case, digest: digest.number(lib.sample_size(case.sizes()))),
    "search_sottocampi_struct": (4, subfields_table),
    "LapTimeToStringa": (
        1,
        lambda case, digest: digest.text(kel.format_lap(_signed(case.sizes()), strict=False)),
    ),
    "LapNumAndTimeToStringa": (1, lap_line),
    "StringaToLapTime": (
        1,
        lambda case, digest: digest.number(kel.parse_lap(case.time().decode(), strict=False)),
    ),
    "StringaToLapNumAndTime": (1, read_lap_line),
    "getNomeFunzione": (2, name),
    "getNomeFunzioneShort": (4, lambda case, digest: digest.text(function(case).short_name + "\0")),
    "getUnitaBase": (4, lambda case, digest: digest.text(function(case).base_unit or "")),
    "getNumDecimaliDefault": (4, decimals(lib.decimals)),
    "getNumDecimaliMax": (4, decimals(lib.decimals_max)),
    "getNumDecimaliMin": (4, decimals(lib.decimals_min)),
    "getParamConv": (4, unit_data_of_object),
    "getParamConv of two": (4, units_data),
    "getFunzUIVs": (4, lambda case, digest: digest.texts(function(case).units)),
    "getAllInnerFunpos": (4, inner),
    "getStrPhi": (4, value_of("quantity", "text")),
    "getStrObj": (4, value_of("object", "text")),
    "getStrPos": (4, value_of("position", "text")),
    "getXmlStrPhi": (4, value_of("quantity", "xml")),
    "getXmlStrObj": (4, value_of("object", "xml")),
    "getIdxPhi": (4, index_of("quantity")),
    "getIdxObj": (4, index_of("object")),
    "getIdxPos": (4, index_of("position")),
    "getIdxFrontRear": (4, index_of("frontrear")),
    "GetValoriCampiFID": (2048, values_of_fields),
    "RiempiMapGrandezzaFisica": (512, quantities),
    "getAllFunzZumikoCamBasePerSw": (512, camera("basic")),
    "getAllFunzZumikoCamEstesePerSw": (512, camera("extended")),
}


@pytest.mark.parametrize("operation", OPERATIONS)
def test_the_catalogue_has_the_librarys_digest(operation):
    every, call = OPERATIONS[operation]
    total = Digest()
    for number in range(1, len(range(0, int(ROUNDS), every)) + 1):
        one = Digest()
        call(Case(operation, number), one)
        total.numbers((one.high, one.low))
    assert str(total) == KEPT[operation]


# What nobody asks of the package: sets of channels as a device holds them, single samples,
# converters as objects, rows of the camera and of choices by what they are looked up by.
# Recordings and laps are compared with kelfun in tests of their own.
NOT_OFFERED = {
    "kelFunInit", "kelFunGetFreeCh", "kelFunFreeLastCh", "kelFunGetCanale", "kelFunGetNumChUsed",
    "kelFunGetNumChTot", "kelFunGetSizeBufferValori", "kelFunGetNomeCanale",
    "kelFunGetNomeCanaleShort", "kelFunGetMatchCh", "kelFunGetMatchChFull", "kelFunGetMatchChList",
    "kelFunGetFidDaID", "kelFunGetFunVecchiaZumikoDaID", "kelFunGetFunVecchiaZumikoDaFID",
    "kelFunGetParamZumikoCam", "getFunzVisSize", "getFunzVisEstSize", "kelF16compress",
    "kelF16decompress", "kelConvInit", "kelConvGetValFloat", "kelConvGetValFloat again",
    "kelConvGetString", "kelConvGetString again", "kelConvGetConvData", "kelConvGetOffset",
    "kelConvGetSottoCampiLapTime", "kelConvGetSottoCampiDataOra", "kelConvGetSottoCampiGPS",
    "kelConvMatchSottocampo", "getDettagliSottocampo", "IConverter", "IFunzioni channels",
    "IFunzioni camera walks", "getFidEquivalente", "getFidDaID", "getFunVecchiaZumikoDaFID",
    "getFunVecchiaZumikoDaID", "getParamZumikoCam", "FunGetParamZumikoCam", "getFunzDettagli",
    "getFormati", "getFunzioni", "getCanaliGPS", "getCanaliLapTime", "getCanaliLapNum",
    "kelRegApri", "kelRegApriUbx", "kelGiriCalcola", "kelRegTipoPacchetto",
}  # fmt: skip


def test_every_operation_is_compared_or_named():
    assert sorted([*OPERATIONS, "kelColLeggi", *NOT_OFFERED]) == sorted(KEPT)


SAMPLES, COLUMNS, LARGEST_STEP = 300, 8, 80
STEPS = (0, 1, 2, 4, 8, 17, 56, LARGEST_STEP)


def _columns(case):
    """Records by chance, and converters of eight columns of them."""
    data = b"".join(case.sample(16) for _ in range((SAMPLES * LARGEST_STEP + 128) // 16))
    step = STEPS[case.below(len(STEPS))]
    count = case.below(64) if case.one_in(4) else case.below(SAMPLES + 1)
    converters = []
    for _ in range(COLUMNS):
        unit = ConverterData(b"", case.real(), case.real(), 1 if case.one_in(4) else 0)
        channel = Channel(
            tipo_campione=case.below(len(kel.SampleType) + 1), offset_campione=case.below(40)
        )
        channel.fid = case.packet() if case.one_in(3) else case.fid()
        fid = case.subfield() if case.one_in(2) else channel.fid
        bits = [case.below(34) if case.one_in(2) else 0 for _ in range(2)]
        record = ConverterRecord()
        lib.converter_init(record, channel, fid, unit, *bits, 0)
        record.larghezza, record.decimali = case.below(12), case.below(5)
        record.auto_decimali, record.formato = case.below(2), case.below(4)
        converters.append((record, unit))
    return data, step, count, converters


def _read(data, step, count, converters, at_once):
    """What every column was read into, as numbers of the digest."""
    columns = (ColumnRecord * COLUMNS)()
    kept, found = [], []
    for column, (record, _) in zip(columns, converters, strict=True):
        mine = ConverterRecord.from_buffer_copy(record)
        memory = (
            np.zeros(SAMPLES, np.float32), np.zeros(SAMPLES, np.uint8),
            np.zeros((SAMPLES + 7) // 8, np.uint8), np.zeros(SAMPLES * 32, np.uint8),
        )  # fmt: skip
        kept.append((mine, memory))
        places = [each.ctypes.data for each in memory]
        column.conv = c.pointer(mine)
        column.valori, column.stati, column.validi, column.testi = places
    if at_once:
        lib.read_columns(data, step, count, columns, COLUMNS)
    else:
        for column in columns:
            lib.read_columns(data, step, count, column, 1)
    for mine, (values, *others) in kept:
        bits = np.where(np.isnan(values), np.uint32(0x7FC00000), values.view(np.uint32))
        found.append(bits.astype(np.uint64))
        for each in others:
            padded = np.zeros((len(each) + 7) // 8 * 8, np.uint8)
            padded[: len(each)] = each
            found += [np.array([len(each)], np.uint64), padded.view("<u8")]
        found.append(np.array([mine.decimali], np.uint64))
    return np.concatenate(found)


def test_columns_have_the_librarys_digest():
    """By the loops of this processor; one column at a time gives what all at once give."""
    rows = []
    for number in range(1, len(range(0, int(ROUNDS), 16)) + 1):
        data, step, count, converters = _columns(Case("kelColLeggi", number, many=True))
        words = _read(data, step, count, converters, True)
        differ = not np.array_equal(words, _read(data, step, count, converters, False))
        rows.append(np.append(words, np.uint64(differ)))
    total = Digest()
    for lanes in of_words(np.stack(rows)):
        total.numbers(lanes)
    assert str(total) == KEPT["kelColLeggi"]
