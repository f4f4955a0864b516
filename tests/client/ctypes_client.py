#!/usr/bin/env python3
"""The flat face from Python, with the standard library alone: ctypes_client.py LIBRARY"""

import ctypes as c
import struct
import sys


class ConverterData(c.Structure):
    _fields_ = [("udm", c.c_char_p), ("offset", c.c_float), ("gain", c.c_float), ("reciproco", c.c_int32)]


class UdmAssociata(c.Structure):
    _fields_ = [("dati", ConverterData), ("default", c.c_int32), ("max", c.c_int32), ("min", c.c_int32)]


class NomeBreve(c.Structure):
    _fields_ = [("testo", c.c_char * 32)]


class Canale(c.Structure):
    _pack_ = 1
    _fields_ = [("indice", c.c_uint16), ("riservato1", c.c_uint8 * 10), ("fid", c.c_uint32),
                ("riservato2", c.c_uint8 * 4), ("tipo_campione", c.c_uint32), ("breve", c.c_char * 8),
                ("nome", c.c_char * 36), ("offset_campione", c.c_uint32), ("dim_buffer", c.c_uint32),
                ("riservato3", c.c_uint8 * 36)]


class SetCanali(c.Structure):
    _fields_ = [("canali", c.POINTER(Canale)), ("totale", c.c_uint32), ("usati", c.c_uint32)]


class Converter(c.Structure):
    _fields_ = [("offset_campione", c.c_uint32), ("pos_bit", c.c_uint16), ("num_bit", c.c_uint16),
                ("maschera", c.c_uint32), ("dati", c.POINTER(ConverterData)), ("larghezza", c.c_uint32),
                ("decimali", c.c_uint32), ("auto_decimali", c.c_uint32), ("formato", c.c_uint32),
                ("valore", c.c_void_p), ("testo", c.c_void_p), ("testo_stato", c.c_void_p)]


failed = 0


def same(what, found, expected):
    global failed
    if found != expected:
        print(f"{what}: {found!r} instead of {expected!r}")
        failed += 1


lib = c.CDLL(sys.argv[1])
lib.kelFunGetUnitaBase.restype = c.c_char_p
lib.kelFunGetUdmTxt.restype = c.c_char_p
lib.kelFunGetFidDaID.restype = c.c_uint32
lib.kelFunGetConvData.restype = c.POINTER(ConverterData)
lib.kelFunGetConvDatas.restype = ConverterData
lib.kelFunGetNomeFunzioneShort.restype = NomeBreve
lib.kelFunGetFreeCh.restype = c.POINTER(Canale)
lib.kelF16compress.restype = c.c_uint32

same("size of a channel record", c.sizeof(Canale), 112)
same("base unit", lib.kelFunGetUnitaBase(0x00048611), b"C")
same("unit text", lib.kelFunGetUdmTxt(1), b"km/h")
same("unit text past the end", lib.kelFunGetUdmTxt(33), None)
same("unit code", lib.kelFunGetUdmCode(b"km/h"), 1)
same("unknown unit code", lib.kelFunGetUdmCode(b"AFR"), -1)
same("legacy identifier", lib.kelFunGetFidDaID(b"FG_GEAR_BOX_TEMP"), 0x00048611)
fahrenheit = lib.kelFunGetConvDatas(0x11, b"C", b"F")
same("record by value", (fahrenheit.udm, fahrenheit.offset, round(fahrenheit.gain, 6)), (b"", 32.0, 1.8))
same("name by value", lib.kelFunGetNomeFunzioneShort(None, 0x00048611).testo, b"TemperatureGear")
same("half float", lib.kelF16compress(0x3F800000), 0x3C00)

tabella = (UdmAssociata * 2).in_dll(lib, "C_udm_associate")
same("table", [row.dati.udm for row in tabella], [b"C", b"F"])
same("address of a row", c.addressof(lib.kelFunGetConvData(0x11, b"F").contents), c.addressof(tabella[1]))

registro = (Canale * 2)()
insieme = SetCanali()
lib.kelFunInit(c.byref(insieme), registro, 2, 0)
canale = lib.kelFunGetFreeCh(c.byref(insieme)).contents
canale.fid = 0x11
canale.tipo_campione = 6
conv = Converter()
lib.kelConvInit(c.byref(conv), c.byref(canale), 0x11, lib.kelFunGetConvData(0x11, b"C"), 0, 0, 1)
conv.larghezza, conv.decimali = 4, 1
campione = struct.pack("<f", 12.34)
valore = c.c_float()
same("value read", lib.kelConvGetValFloat(c.byref(conv), campione, c.byref(valore)), 1)
same("value", struct.pack("<f", valore.value), campione)
testo = c.create_string_buffer(32)
same("text read", lib.kelConvGetString(c.byref(conv), campione, testo), 1)
same("text", testo.value, b" 12.3")

print(f"{failed} checks failed")
sys.exit(failed != 0)
