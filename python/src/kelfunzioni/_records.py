"""The records of the flat face, as ctypes sees them. Members have the library's names."""

from __future__ import annotations

import ctypes as c


class ConverterData(c.Structure):
    """`s_converter_data`."""

    _fields_ = [
        ("udm", c.c_char_p),
        ("offset", c.c_float),
        ("gain", c.c_float),
        ("reciproco", c.c_int32),
    ]


class UnitRow(c.Structure):
    """`s_udm_associata`."""

    _fields_ = [
        ("dati", ConverterData),
        ("decimali_default", c.c_int32),
        ("decimali_max", c.c_int32),
        ("decimali_min", c.c_int32),
    ]


class QuantityRow(c.Structure):
    """`s_grandezza_fisica_uiv`."""

    _fields_ = [
        ("chiave", c.c_uint32),
        ("breve", c.c_char_p),
        ("testo", c.c_char_p),
        ("num_udm", c.c_int32),
        ("udm", c.POINTER(UnitRow)),
        ("num_varianti", c.c_int32),
        ("varianti", c.c_void_p),
    ]


class Channel(c.Structure):
    """`s_kel_canale`, 112 bytes."""

    _pack_ = 1
    _layout_ = "ms"
    _fields_ = [
        ("indice", c.c_uint16),
        ("riservato1", c.c_uint8 * 10),
        ("fid", c.c_uint32),
        ("riservato2", c.c_uint8 * 4),
        ("tipo_campione", c.c_uint32),
        ("breve", c.c_char * 8),
        ("nome", c.c_char * 36),
        ("offset_campione", c.c_uint32),
        ("dim_buffer", c.c_uint32),
        ("riservato3", c.c_uint8 * 36),
    ]


class ConverterRecord(c.Structure):
    """`s_kel_converter`."""

    _fields_ = [
        ("offset_campione", c.c_uint32),
        ("pos_bit", c.c_uint16),
        ("num_bit", c.c_uint16),
        ("maschera", c.c_uint32),
        ("dati", c.POINTER(ConverterData)),
        ("larghezza", c.c_uint32),
        ("decimali", c.c_uint32),
        ("auto_decimali", c.c_uint32),
        ("formato", c.c_uint32),
        ("valore", c.c_void_p),
        ("testo", c.c_void_p),
        ("testo_stato", c.c_void_p),
    ]


class Subfield(c.Structure):
    """`s_sottocampo`."""

    _fields_ = [
        ("fid", c.c_uint32),
        ("offset", c.c_uint32),
        ("pos_bit", c.c_uint16),
        ("num_bit", c.c_uint16),
        ("maschera", c.c_uint32),
        ("tipo_campione", c.c_uint32),
        ("valore", c.c_void_p),
        ("valore_reciproco", c.c_void_p),
        ("conv_testo", c.c_void_p),
        ("breve", c.c_char_p),
        ("testo", c.c_char_p),
    ]


class ShortName(c.Structure):
    """`s_nome_breve`."""

    _fields_ = [("testo", c.c_char * 32)]


class ColumnRecord(c.Structure):
    """`s_kel_colonna`."""

    _fields_ = [
        ("conv", c.POINTER(ConverterRecord)),
        ("valori", c.c_void_p),
        ("stati", c.c_void_p),
        ("validi", c.c_void_p),
        ("testi", c.c_void_p),
    ]


class ErrorText(c.Structure):
    """`s_kel_errore`."""

    _fields_ = [("testo", c.c_char * 512)]


class Words(c.Structure):
    """`s_kel_parole`: what messages call the choices of whoever reads."""

    _fields_ = [
        ("orario", c.c_char_p),
        ("compatta", c.c_char_p),
        ("linea", c.c_char_p),
        ("minimo", c.c_char_p),
        ("intermedio", c.c_char_p),
    ]


#: The parameters of this package.
WORDS = Words(b"stamps", b"compact", b"line", b"minimum", b"sectors")
WORDS_AT = c.pointer(WORDS)


class OpenChoices(c.Structure):
    """`s_kel_apertura`."""

    _fields_ = [
        ("orario", c.c_uint32),
        ("compatta", c.c_int),
        ("dispositivo", c.c_int),
        ("pacchetti", c.c_int),
        ("frequenza", c.c_double),
        ("lunghezza", c.c_uint64),
        ("parole", c.POINTER(Words)),
    ]


class Description(c.Structure):
    """`s_kel_descrizione`."""

    _fields_ = [
        ("nome", c.c_char_p),
        ("lungo", c.c_char_p),
        ("udm", c.c_char_p),
        ("fid", c.c_uint32),
        ("canale", c.c_uint32),
        ("valori", c.c_uint32),
        ("decimali", c.c_int32),
        ("proprio", c.c_char_p),
        ("campo", c.c_uint32),
        ("con_unita", c.c_int32),
        ("interna", c.c_int32),
        ("pacchetto", c.c_int32),
    ]


class Reading(c.Structure):
    """`s_kel_lettura`."""

    _fields_ = [
        ("colonna", c.c_uint),
        ("valori", c.c_void_p),
        ("validi", c.c_void_p),
        ("testi", c.c_void_p),
    ]


class Line(c.Structure):
    """`s_kel_linea`."""

    _fields_ = [
        ("latitudine", c.c_double),
        ("longitudine", c.c_double),
        ("rotta", c.c_double),
        ("larghezza", c.c_double),
    ]


class Sector(c.Structure):
    """`s_kel_intermedio`."""

    _fields_ = [("metri", c.c_double), ("linea", Line), ("detto", c.c_char_p)]


class LapChoices(c.Structure):
    """`s_kel_scelte_giri`."""

    _fields_ = [
        ("fonte", c.c_uint32),
        ("num_intermedi", c.c_uint),
        ("linea", c.POINTER(Line)),
        ("intermedi", c.POINTER(Sector)),
        ("minimo", c.c_double),
        ("udm", c.c_char_p),
        ("parole", c.POINTER(Words)),
    ]


class LapRecord(c.Structure):
    """`s_kel_giro`."""

    _fields_ = [
        ("numero", c.c_int32),
        ("sessione", c.c_uint32),
        ("stato", c.c_uint32),
        ("migliore", c.c_int32),
        ("ms", c.c_int32),
        ("num_settori", c.c_uint32),
        ("settori", c.POINTER(c.c_int32)),
        ("inizio", c.c_double),
        ("distacco", c.c_double),
        ("massima", c.c_double),
        ("minima", c.c_double),
        ("metri", c.c_double),
        ("campioni", c.c_uint64),
    ]
