#!/usr/bin/env python3
"""kelfun ubx on a recorded capture, against sums done here on the messages. Skipped (exit 77) without KEL_CAPTURES."""
import json
import math
import os
import struct
import sys

from programmi import Programmi, lettore


def navsol(byte):
    """Payloads of the NAV-SOL messages whose checksum holds."""
    da = byte.find(b"\xb5\x62\x01\x06\x34\x00")
    while da >= 0 and da + 60 <= len(byte):
        a = b = 0
        for valore in byte[da + 2:da + 58]:
            a = (a + valore) & 0xFF
            b = (b + a) & 0xFF
        if byte[da + 58:da + 60] == bytes([a, b]):
            yield byte[da + 6:da + 58]
        da = byte.find(b"\xb5\x62\x01\x06\x34\x00", da + 1)


def main():
    programmi = Programmi(lettore(__doc__).parse_args())
    cartella = os.environ.get("KEL_CAPTURES")
    if not cartella:
        print("KEL_CAPTURES does not name a folder of captures: skipped")
        return 77
    file = os.path.join(cartella, "navisys-gr701w.log")
    with open(file, "rb") as f:
        messaggi = list(navsol(f.read()))
    stato, uscita, errori = programmi.esegui("kelfun", ["ubx", file, "--json"])
    soluzioni = json.loads(uscita)["solutions"]
    difetti = []
    if stato != 0 or not errori.startswith(b"81 solutions in 33434 bytes"):
        difetti.append(f"exit {stato}: {errori!r}")
    if len(soluzioni) != 81 or len(messaggi) != 81:
        difetti.append(f"{len(soluzioni)} solutions, {len(messaggi)} messages, expected 81")
    fix = [s["fix"] for s in soluzioni]
    if (fix.count(3), fix.count(2), fix.count(0)) != (51, 4, 26):
        difetti.append(f"fixes of 3, 2 and 0: {fix.count(3)}, {fix.count(2)}, {fix.count(0)}, expected 51, 4, 26")
    for i, (s, m) in enumerate(zip(soluzioni, messaggi)):
        tow, _, _, fix, _, x, y, _, pacc, vx, vy, vz, sacc, _, _, sats, _ = struct.unpack("<IihBBiiiIiiiIHBBI", m)
        longitudine = math.degrees(math.atan2(y, x))
        velocita = math.sqrt(vx * vx + vy * vy + vz * vz) * 0.036 if fix >= 3 and sats >= 4 else 0.0
        if (s["time_of_week_ms"], s["fix"], s["satellites"]) != (tow, fix, sats):
            difetti.append(f"solution {i}: time, fix or satellites: {s}")
        if abs(s["longitude_deg"] - longitudine) > 4.5e-6:  # half a step of a float near 117, and six decimals
            difetti.append(f"solution {i}: longitude {s['longitude_deg']}, expected {longitudine:.9f}")
        if abs(s["speed_km_h"] - velocita) > 1e-5:
            difetti.append(f"solution {i}: speed {s['speed_km_h']}, expected {velocita:.6f}")
        if (s["position_accuracy_low_byte_cm"], s["speed_accuracy_low_byte_cm_s"]) != (pacc & 0xFF, sacc & 0xFF):
            difetti.append(f"solution {i}: accuracies: {s}")
    if abs(soluzioni[0]["longitude_deg"] + 117.020462) > 4.5e-6 or abs(soluzioni[0]["speed_km_h"] - 1.582) > 5e-4:
        difetti.append(f"the first solution is known: -117.020462 degrees, 1.582 km/h; got {soluzioni[0]}")
    for difetto in difetti:
        print(difetto)
    print(f"{len(soluzioni)} solutions, {len(difetti)} faults")
    return 1 if difetti else 0


if __name__ == "__main__":
    sys.exit(main())
