#!/usr/bin/env python3
"""kelfun ubx on recorded captures, against sums done here on the messages. Skipped (exit 77) without KEL_CAPTURES.

NAV-SOL comes from one receiver, NAV-PVT from another. Positions are held against the ellipsoid's own equations, which lead
from degrees to the message's metres.
"""
import datetime
import json
import math
import os
import struct
import sys

from programmi import Programmi, lettore

A = 6378137.0  # WGS 84
F = 1 / 298.257223563
E2 = F * (2 - F)


def payload(byte, testata):
    """Payloads of the messages of one kind whose checksum holds."""
    lungo = testata[4] + 256 * testata[5]
    da = byte.find(testata)
    while da >= 0 and da + lungo + 8 <= len(byte):
        a = b = 0
        for valore in byte[da + 2:da + lungo + 6]:
            a = (a + valore) & 0xFF
            b = (b + a) & 0xFF
        if byte[da + lungo + 6:da + lungo + 8] == bytes([a, b]):
            yield byte[da + 6:da + lungo + 6]
        da = byte.find(testata, da + 1)


def ecef(latitudine, longitudine, altezza):
    lat, lon = math.radians(latitudine), math.radians(longitudine)
    n = A / math.sqrt(1 - E2 * math.sin(lat) ** 2)
    return ((n + altezza) * math.cos(lat) * math.cos(lon), (n + altezza) * math.cos(lat) * math.sin(lon),
            (n * (1 - E2) + altezza) * math.sin(lat))


class Prova:
    def __init__(self, programmi, cartella, file, testata, quanti):
        self.programmi, self.file, self.difetti = programmi, os.path.join(cartella, file), []
        with open(self.file, "rb") as f:
            self.messaggi = list(payload(f.read(), testata))
        self.aspetta("messages", len(self.messaggi), quanti)

    def difetto(self, testo):
        self.difetti.append(f"{os.path.basename(self.file)}: {testo}")

    def aspetta(self, cosa, avuto, atteso, tolleranza=0):
        giusto = avuto == atteso if not tolleranza or None in (avuto, atteso) else abs(avuto - atteso) <= tolleranza
        if not giusto:
            self.difetto(f"{cosa}: {avuto}, expected {atteso}")

    def soluzioni(self, *opzioni):
        stato, uscita, errori = self.programmi.esegui("kelfun", ["ubx", self.file, "--json", *opzioni])
        righe = json.loads(uscita)["solutions"]
        if stato != 0 or not errori.startswith(b"%d solutions in " % len(self.messaggi)) or len(righe) != len(self.messaggi):
            self.difetto(f"exit {stato}, {len(righe)} rows: {errori!r}")
        return enumerate(zip(righe, self.messaggi))


def nulla(prova, i, s, *chiavi):
    for chiave in chiavi:
        prova.aspetta(f"solution {i}: {chiave} without a fix", s[chiave], None)


SENZA_FIX = ("latitude_deg", "longitude_deg", "altitude_m", "speed_km_h", "heading_deg", "climb_m_s", "position_accuracy_m",
             "speed_accuracy_m_s")


def wgs84(prova):
    fix_visti = []
    for i, (s, m) in prova.soluzioni():
        tow, _, settimana, fix, _, x, y, z, pacc, vx, vy, vz, sacc, _, _, sats, _ = struct.unpack("<IihBBiiiIiiiIHBBI", m)
        fix_visti.append(fix)
        prova.aspetta(f"solution {i}", (s["time_of_week_ms"], s["fix"], s["satellites"]), (tow, fix, sats))
        utc = datetime.datetime(1980, 1, 6) + datetime.timedelta(weeks=settimana, milliseconds=tow - 18000)
        prova.aspetta(f"solution {i}: UTC", s["utc"], utc.isoformat(timespec="milliseconds") + "Z")
        if fix < 2:
            nulla(prova, i, s, *SENZA_FIX)
            continue
        prova.aspetta(f"solution {i}: longitude", s["longitude_deg"], math.degrees(math.atan2(y, x)), 6e-9)
        prova.aspetta(f"solution {i}: speed", s["speed_km_h"], math.sqrt(vx * vx + vy * vy + vz * vz) * 0.036, 1e-6)
        prova.aspetta(f"solution {i}: position accuracy", s["position_accuracy_m"], pacc / 100, 1e-9)
        prova.aspetta(f"solution {i}: speed accuracy", s["speed_accuracy_m_s"], sacc / 100, 1e-9)
        if fix < 3:
            nulla(prova, i, s, "altitude_m", "climb_m_s")
            continue
        for avuto, atteso in zip(ecef(s["latitude_deg"], s["longitude_deg"], s["altitude_m"]), (x, y, z)):
            prova.aspetta(f"solution {i}: a coordinate of its place, m", avuto, atteso / 100, 0.002)
        su = (vx * x + vy * y + vz * z) / math.sqrt(x * x + y * y + z * z) / 100  # within 0.2 degrees of the vertical
        prova.aspetta(f"solution {i}: climb", s["climb_m_s"], su, 0.006)
    prova.aspetta("fixes of 3, 2 and 0", tuple(fix_visti.count(n) for n in (3, 2, 0)), (51, 4, 26))


def dispositivo(prova):
    for i, (s, m) in prova.soluzioni("--device"):
        tow, _, _, fix, _, x, y, _, pacc, vx, vy, vz, sacc, _, _, sats, _ = struct.unpack("<IihBBiiiIiiiIHBBI", m)
        velocita = math.sqrt(vx * vx + vy * vy + vz * vz) * 0.036 if fix >= 3 and sats >= 4 else 0.0
        prova.aspetta(f"device, solution {i}", (s["time_of_week_ms"], s["fix"], s["satellites"]), (tow, fix, sats))
        # half a step of a float near 117, and six decimals
        prova.aspetta(f"device, solution {i}: longitude", s["longitude_deg"], math.degrees(math.atan2(y, x)), 4.5e-6)
        prova.aspetta(f"device, solution {i}: speed", s["speed_km_h"], velocita, 1e-5)
        prova.aspetta(f"device, solution {i}: accuracies",
                      (s["position_accuracy_low_byte_cm"], s["speed_accuracy_low_byte_cm_s"]), (pacc & 0xFF, sacc & 0xFF))
        if i == 0:
            prova.aspetta("device, the first longitude is known", s["longitude_deg"], -117.020462, 4.5e-6)
            prova.aspetta("device, the first speed is known", s["speed_km_h"], 1.582, 5e-4)


def navpvt(prova):
    for i, (s, m) in prova.soluzioni():
        (tow, anno, mese, giorno, ora, minuto, secondo, _, _, nano, fix, _, _, sats, lon, lat, altezza, _, hacc, vacc, vn, ve,
         vd, al_suolo, _, sacc) = struct.unpack_from("<IHBBBBBBIiBBBBiiiiIIiiiiiI", m)
        prova.aspetta(f"solution {i}", (s["time_of_week_ms"], s["fix"], s["satellites"]), (tow, fix, sats))
        utc = datetime.datetime(anno, mese, giorno, ora, minuto, secondo) + datetime.timedelta(milliseconds=round(nano / 1e6))
        prova.aspetta(f"solution {i}: UTC", s["utc"], utc.isoformat(timespec="milliseconds") + "Z")
        if fix < 2:
            nulla(prova, i, s, *SENZA_FIX)
            continue
        prova.aspetta(f"solution {i}: latitude", s["latitude_deg"], lat / 1e7, 1e-10)
        prova.aspetta(f"solution {i}: longitude", s["longitude_deg"], lon / 1e7, 1e-10)
        prova.aspetta(f"solution {i}: speed", s["speed_km_h"], math.sqrt(vn * vn + ve * ve + vd * vd) * 0.0036, 1e-6)
        if al_suolo > 100:  # mm/s; the message has its speed over ground too, rounded down or up
            prova.aspetta(f"solution {i}: speed over ground", math.hypot(vn, ve), al_suolo, 2)
        prova.aspetta(f"solution {i}: position accuracy", s["position_accuracy_m"], math.hypot(hacc, vacc) / 1000, 6e-4)
        prova.aspetta(f"solution {i}: speed accuracy", s["speed_accuracy_m_s"], sacc / 1000, 1e-9)
        prova.aspetta(f"solution {i}: altitude", s["altitude_m"], altezza / 1000 if fix >= 3 else None, 1e-9)
        prova.aspetta(f"solution {i}: climb", s["climb_m_s"], -vd / 1000 if fix >= 3 else None, 1e-9)


def navpvt_dispositivo(prova):
    for i, (s, m) in prova.soluzioni("--device"):
        fix, sats, lon, vn, ve, vd = m[20], m[23], *struct.unpack_from("<i", m, 24), *struct.unpack_from("<iii", m, 48)
        velocita = math.sqrt(vn * vn + ve * ve + vd * vd) * 0.0036 if fix >= 3 and sats >= 4 else 0.0
        prova.aspetta(f"device, solution {i}: longitude", s["longitude_deg"], lon / 1e7, 3e-6)
        prova.aspetta(f"device, solution {i}: speed", s["speed_km_h"], velocita, 0.036)  # the packet has cm/s


def main():
    programmi = Programmi(lettore(__doc__).parse_args())
    cartella = os.environ.get("KEL_CAPTURES")
    if not cartella:
        print("KEL_CAPTURES does not name a folder of captures: skipped")
        return 77
    sol = Prova(programmi, cartella, "navisys-gr701w.log", b"\xb5\x62\x01\x06\x34\x00", 81)
    wgs84(sol)
    dispositivo(sol)
    pvt = Prova(programmi, cartella, "ublox-glo.log", b"\xb5\x62\x01\x07\x5c\x00", 299)
    navpvt(pvt)
    navpvt_dispositivo(pvt)
    difetti = sol.difetti + pvt.difetti
    print("\n".join(difetti[:40]))
    print(f"{len(sol.messaggi) + len(pvt.messaggi)} solutions, {len(difetti)} faults")
    return 1 if difetti else 0


if __name__ == "__main__":
    sys.exit(main())
