#!/usr/bin/env python3
"""The table of a benchmark run: each row with its best peer, its limit and its target.

  tabella.py RESULTS.json [--targets FILE]

RESULTS.json is what kel_bench writes with --benchmark_format=json.
"""

import argparse
import fnmatch
import json
import pathlib
import sys


def leggi_serie(percorso):
    """Medians in ns: {row: {role: {name: time}}}, in the order of the run's table, and the peers that are missing."""
    dati = json.loads(pathlib.Path(percorso).read_text())
    righe = {}
    for serie in dati["benchmarks"]:
        if serie.get("aggregate_name", "median") != "median":
            continue
        riga, ruolo, nome = serie["run_name"].split("|")
        # A series that takes the time itself is that of another process.
        nome, _, a_mano = nome.partition("/iterations:")
        tempo = serie["real_time" if a_mano.endswith("manual_time") else "cpu_time"]
        righe.setdefault(riga, {}).setdefault(ruolo, {})[nome] = (serie["family_index"], tempo)
    ordinate = dict(sorted(righe.items(), key=lambda voce: min(
        indice for ruolo in voce[1].values() for indice, _ in ruolo.values())))
    senza_indici = {riga: {ruolo: {nome: tempo for nome, (_, tempo) in serie.items()} for ruolo, serie in ruoli.items()}
                    for riga, ruoli in ordinate.items()}
    return senza_indici, dati["context"].get("missing_peers", "")


def leggi_obiettivi(percorso):
    """[(row pattern, names compared with, "limit" or "ns", largest ratio or time, the bound that it stops at or "")]"""
    obiettivi = []
    for linea in pathlib.Path(percorso).read_text().splitlines():
        if linea.strip() and not linea.startswith("#"):
            riga, contro, massimo, *motivo = (parte.strip() for parte in linea.split("|"))
            obiettivi.append((riga, contro, float(massimo), "".join(motivo)))
    return obiettivi


def esito(ruoli, contro, massimo, motivo):
    """A target of a row: text, and whether it is held (None when there is nothing to compare with)."""
    nostro = next(iter(ruoli["ours"].values()))
    if contro == "ns":
        return f"{numero(nostro)} <= {massimo:g} ns", nostro <= massimo
    if contro == "limit":
        tempi = list(ruoli.get("limit", {}).values())
    else:
        tempi = [ruoli.get("peer", {}).get(nome.strip()) for nome in contro.split(",")]
        tempi = [tempo for tempo in tempi if tempo is not None]
    limite = f"{massimo:g} of {contro}" + (f" (bound: {motivo})" if motivo else "")
    if not tempi:
        return limite, None
    rapporto = nostro / min(tempi)
    return f"{rapporto:.2f} <= {limite}", rapporto <= massimo


def numero(valore):
    return f"{valore:.2f}" if valore < 1 else f"{valore:.1f}" if valore < 1000 else f"{valore:.0f}"


def righe_tabella(serie, obiettivi):
    """Cells of every row, and how many targets are held, not held and not comparable."""
    conti = {True: 0, False: 0, None: 0}
    for riga, ruoli in serie.items():
        nostro = next(iter(ruoli["ours"].values()))
        pari = min(ruoli.get("peer", {}).items(), key=lambda voce: voce[1], default=None)
        limite = next(iter(ruoli.get("limit", {}).values()), None)
        celle = [
            riga,
            numero(nostro),
            f"{numero(pari[1])} ({pari[0]})" if pari else "-",
            numero(limite) if limite else "-",
            f"{nostro / pari[1]:.2f}" if pari else "-",
            f"{nostro / limite:.2f}" if limite else "-",
        ]
        propri = [esito(ruoli, *obiettivo) for modello, *obiettivo in obiettivi
                  if fnmatch.fnmatchcase(riga, modello)]
        for _, tenuto in propri:
            conti[tenuto] += 1
        parole = {True: "held", False: "NOT HELD", None: "peer missing"}
        yield celle + ["; ".join(testo for testo, _ in propri), "; ".join(parole[tenuto] for _, tenuto in propri)], conti


INTESTAZIONE = ["operation", "ours ns", "best peer ns", "limit ns", "ours/peer", "ours/limit", "target", ""]


def scrivi(righe):
    """A Markdown table whose columns line up."""
    tutte = [INTESTAZIONE, *righe]
    larghezze = [max(len(riga[i]) for riga in tutte) for i in range(len(INTESTAZIONE))]

    def linea(celle):
        allineate = [cella.rjust(larghezza) if 0 < i < 6 else cella.ljust(larghezza)
                     for i, (cella, larghezza) in enumerate(zip(celle, larghezze))]
        return "| " + " | ".join(allineate) + " |"

    separatore = ["-" * (larghezza - 1) + ":" if 0 < i < 6 else "-" * larghezza for i, larghezza in enumerate(larghezze)]
    return "\n".join([linea(INTESTAZIONE), linea(separatore), *map(linea, righe)])


def main():
    argomenti = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argomenti.add_argument("risultati", metavar="RESULTS.json")
    argomenti.add_argument("--targets", metavar="FILE", default=pathlib.Path(__file__).with_name("obiettivi.txt"))
    scelti = argomenti.parse_args()
    serie, mancanti = leggi_serie(scelti.risultati)
    fatte = list(righe_tabella(serie, leggi_obiettivi(scelti.targets)))
    print(scrivi([celle for celle, _ in fatte]))
    conti = fatte[-1][1]
    print(f"\nTargets held: {conti[True]}; not held: {conti[False]}; without their peer: {conti[None]}. "
          f"Missing peers: {mancanti or 'none'}.")
    return 0 if conti[False] == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
