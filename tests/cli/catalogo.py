#!/usr/bin/env python3
"""The whole catalogue: its document follows its schema, is the same bytes in every locale, and says what the other
commands say. Without the jsonschema module the schema is not tried (exit 77)."""
import copy
import json
import os
import sys

from programmi import Programmi, lettore

try:
    import jsonschema
except ImportError:
    # The distribution's own interpreter has the module where its package is installed.
    if os.path.realpath(sys.executable) != os.path.realpath("/usr/bin/python3") and os.path.exists("/usr/bin/python3"):
        os.execv("/usr/bin/python3", ["/usr/bin/python3", *sys.argv])
    jsonschema = None

errori = []


def pretendi(vero, testo):
    if not vero:
        errori.append(testo)


def uguali(chi, avuto, atteso):
    pretendi(avuto == atteso, f"{chi}: {json.dumps(avuto)}, expected {json.dumps(atteso)}")


def altrove(programmi, *argomenti):
    stato, uscita, errore = programmi.esegui("kelfun", [*argomenti, "--json"])
    pretendi(stato == 0, f"kelfun {' '.join(argomenti)}: exit {stato}, {errore.decode()}")
    return json.loads(uscita) if stato == 0 else {}


def per_schema(documento, schema):
    """The document follows its schema, and documents that lack something or say something else do not."""
    classe = jsonschema.Draft202012Validator
    classe.check_schema(schema)
    guardiano = classe(schema)
    for errore in list(guardiano.iter_errors(documento))[:10]:
        errori.append(f"schema: {list(errore.absolute_path)}: {errore.message[:200]}")

    def guasto(che_cosa, guasta):
        altro = copy.deepcopy(documento)
        guasta(altro)
        pretendi(not guardiano.is_valid(altro), f"the schema lets a document through {che_cosa}")

    for membro in documento:
        guasto(f"without {membro}", lambda d, m=membro: d.pop(m))
    guasto("with a member that it does not know", lambda d: d.update(altro=1))
    guasto("of another format", lambda d: d.update(format=documento["format"] + 1))
    guasto("with an identifier in small letters", lambda d: d["functions"][0].update(identifier="0x0000000f"))
    guasto("with a gain as a text", lambda d: d["quantities"][16]["objects"][0]["units"][0].update(gain="1"))
    guasto("with a unit without decimals", lambda d: d["quantities"][16]["objects"][0]["units"][0].pop("decimals"))
    guasto("with a camera table that there is not", lambda d: d["camera"][0].update(table="third"))


def valori_noti(d):
    righe = {r["identifier"]: r for q in d["quantities"] for r in q["objects"]}
    funzioni = {f["identifier"]: f for f in d["functions"]}
    ruota = next((lato for lato in funzioni["0x00070010"]["sides"] if lato["identifier"] == "0x05070010"), {})
    uguali("front-left wheel speed", ruota, {"text": "Front Left", "identifier": "0x05070010", "name": "Speed Wheel FL",
                                             "short_name": "SpeedLeftFront", "legacy_id": "REF_SPEED_FL"})
    uguali("its units", funzioni["0x00070010"]["units"], ["km/h", "mph"])
    uguali("speed in mph", righe["0x00000010"]["units"][1],
           {"unit": "mph", "code": 2, "gain": 0.621371, "offset": 0.0, "reciprocal": False, "decimals": 1,
            "max_decimals": 1, "min_decimals": 0})
    uguali("pace", [u["unit"] for r in righe.values() for u in r["units"] if u["reciprocal"]], ["min/km"])
    uguali("temperature from F to C", righe["0x00000011"]["conversions"][1],
           {"from": "F", "to": "C", "gain": 0.5555556, "offset": -17.777779})
    uguali("numbers of the lambda probes", funzioni["0x00040C9E"]["numbers"], {"first": 1, "last": 12})
    uguali("rows of the quantity table", len(righe), 65)
    sizes = {"quantities": 32, "functions": 67, "unit_codes": 33, "sample_types": 25, "camera": 41, "legacy_identifiers": 60}
    uguali("sizes", {k: len(d[k]) for k in sizes}, sizes)
    uguali("packets", [(p["identifier"], p["bytes"]) for p in d["packets"]],
           [("0x0000009A", 28), ("0x0000809A", 8), ("0x0001009A", 28), ("0x0000011A", 44), ("0x0000019A", 56),
            ("0x0000819A", 52)])
    uguali("the bits of an identifier, each once for numbered ones",
           sorted(b for c in d["identifier_layout"] if c["when"] in (None, "quantity is a packet", "numbered is 1")
                  for b in range(c["bit"], c["bit"] + c["bits"])), list(range(29)))
    for campo, righe_campo in d["fields"].items():
        uguali(f"values of {campo}", [r["value"] for r in righe_campo], list(range(len(righe_campo))))


def altri_comandi(programmi, d):
    offerte = altrove(programmi, "functions")["functions"]
    uguali("functions", [(f["quantity"], f["identifier"], f["name"], f["short_name"], f["units"])
                         for f in d["functions"]],
           [(f["quantity"], f["identifier"], f["name"], f["short_name"], f["units"]) for f in offerte])
    uguali("sides", [[lato["text"] for lato in f["sides"]] for f in d["functions"]],
           [f["sides"] for f in offerte])
    for quantita in d["quantities"]:
        for riga in quantita["objects"]:
            suo = altrove(programmi, "units", riga["identifier"])
            uguali(f"units of {riga['identifier']}", riga["units"], suo["units"])
            uguali(f"base unit of {riga['identifier']}", riga["base_unit"], suo["base_unit"])
            for conversione in riga["conversions"][:3]:
                fatta = altrove(programmi, "convert", riga["identifier"], "1", "--from", conversione["from"], "--to",
                                conversione["to"]) if not senza_ritorno(riga, conversione) else None
                if fatta:
                    uguali(f"conversion of {riga['identifier']}", (conversione["gain"], conversione["offset"]),
                           (fatta["gain"], fatta["offset"]))
    uguali("codes", d["unit_codes"], altrove(programmi, "units", "--codes")["codes"])
    uguali("sample types", d["sample_types"], altrove(programmi, "decode", "--types")["sample_types"])
    uguali("camera", d["camera"], altrove(programmi, "camera", "--all")["camera"])
    uguali("legacy table", [{k: r[k] for k in ("legacy_id", "identifier", "short_name", "name")}
                            for r in d["legacy_identifiers"] if r["table"] == "legacy"],
           altrove(programmi, "camera", "--legacy")["legacy"])
    for vecchio in d["legacy_identifiers"]:
        uguali(f"fid {vecchio['legacy_id']}", altrove(programmi, "fid", vecchio["legacy_id"])["identifier"],
               vecchio["identifier"])


def senza_ritorno(riga, conversione):
    """A conversion that kelfun convert comments on."""
    return any(u["reciprocal"] and u["unit"] in (conversione["from"], conversione["to"]) for u in riga["units"])


def main():
    parser = lettore(__doc__.splitlines()[0])
    parser.add_argument("schema", help="the schema's source")
    argomenti = parser.parse_args()
    programmi = Programmi(argomenti)
    stato, uscita, errore = programmi.esegui("kelfun", ["catalogue"])
    pretendi(stato == 0 and not errore, f"exit {stato}: {errore.decode()}")
    pretendi(programmi.esegui("kelfun", ["catalogue"], ambiente={"LC_ALL": "it_IT.UTF-8"})[1] == uscita,
             "another locale, other bytes")
    documento = json.loads(uscita)
    uguali("on one line", json.loads(programmi.esegui("kelfun", ["catalogue", "--compact"])[1]), documento)
    schema = programmi.esegui("kelfun", ["catalogue", "--schema"])[1]
    with open(argomenti.schema, "rb") as f:
        pretendi(f.read() == schema, "the schema that kelfun prints is not that of the source")
    valori_noti(documento)
    altri_comandi(programmi, documento)
    if jsonschema:
        per_schema(documento, json.loads(schema))
    else:
        print("SKIPPED: the module jsonschema is not installed, so the schema is not tried")
    for uno in errori:
        print(uno)
    print(f"{len(uscita)} bytes of catalogue, {len(errori)} faults")
    return 1 if errori else 0 if jsonschema else 77


if __name__ == "__main__":
    sys.exit(main())
