#!/usr/bin/env python3
"""Manual pages of kelfun, of each of its commands and of kelsim, from what they print with --help."""
import argparse
import os
import re
import subprocess

import roff


class Aiuto:
    """The parts of a help text."""

    def __init__(self, testo):
        righe = testo.splitlines()
        uso = next(i for i, riga in enumerate(righe) if riga.startswith("Usage:"))
        self.descrizione = " ".join(righe[:uso]).strip()
        self.uso = righe[uso].removeprefix("Usage:").strip()
        self.gruppi = []  # (title, [(name, text)])
        self.note = []
        self.esempi = []
        self.uscita = ""
        resto = righe[uso + 1:]
        while resto:
            riga = resto.pop(0)
            if riga == "Examples:":
                self.esempi = [esempio.strip() for esempio in resto if esempio.strip()]
                break
            if riga.startswith("Exit status:"):
                self.uscita = riga.removeprefix("Exit status:").strip()
            # A title follows an empty line; its entries are indented below it.
            elif riga.endswith(":") and not riga.startswith("-") and resto and re.match(r"  \S", resto[0]):
                self.gruppi.append((riga.rstrip(":"), self.voci(resto)))
            else:
                self.note.append(riga)

    @staticmethod
    def voci(resto):
        """Entries of a group: a name, and a text in the second column or on the lines below."""
        voci = []
        while resto and resto[0].startswith("  "):
            riga = resto.pop(0)
            if re.match(r"  \S", riga):
                nome, _, testo = riga.strip().partition("  ")
                # A long name reaches into the second column. Then one blank separates it from its text.
                if not testo and len(riga) > 30 and riga[29] == " ":
                    nome, testo = riga[:29].strip(), riga[30:]
                voci.append([nome, testo.strip()])
            else:
                voci[-1][1] = (voci[-1][1] + " " + riga.strip()).strip()
        return voci


def sintassi(parole):
    """Arguments of a usage line as macros: [OPTIONS] and [ID] are optional, dots repeat."""
    uscita = []
    for parola in re.findall(r"\[\[[^\]]*\][^\]]*\]|\[[^\]]*\]\S*|\S+", parole):
        punti = " ..." if "..." in parola else ""
        nome = parola.replace("...", "").replace("[", "").replace("]", "")
        if nome == "OPTIONS":
            uscita.append(".Op Ar options")
        elif nome == "SUBCOMMAND":
            uscita.append(".Ar command Op Ar arguments")
        elif parola.startswith("["):
            # "[[ID] HEX...]": each of them may be left out.
            pezzi = nome.split()
            uscita += [f".Op Ar {roff.argomento(pezzo)}{punti if i + 1 == len(pezzi) else ''}"
                       for i, pezzo in enumerate(pezzi)]
        else:
            uscita.append(f".Ar {roff.argomento(nome)}{punti}")
    return uscita


def voce(nome, testo):
    """An option or argument as an item of a list."""
    frasi = []
    for parola, frase in (("Excludes", "Not together with"), ("Needs", "Only together with")):
        trovate = re.search(rf" {parola}:((?: --?[\w-]+,?)+)", nome)
        if trovate:
            frasi.append(f"{frase} {', '.join(re.findall(r'--?[a-z-]+', trovate[1]))}.")
            nome = nome.replace(trovate[0], "")
    nome = nome.replace(" REQUIRED", "")
    # Defaults and limits beside a name are part of its text.
    nome = nome.replace("[", "").replace("]", "") if not nome.startswith("-") else nome
    pezzi = nome.split()
    if pezzi[0].startswith("-"):
        bandiere = " , ".join("Fl " + roff.argomento(b[1:]) for b in pezzi[0].split(","))
        valori = " ".join(roff.argomento(p) for p in pezzi[1:])
        riga = f".It {bandiere}" + (f" Ar {valori}" if valori else "")
    else:
        riga = ".It Ar " + " ".join(roff.argomento(p) for p in pezzi)
    punto = "" if not testo or testo[-1] in ".!?" else "."
    righe = [riga, *roff.paragrafi([testo + punto])] if testo else [riga]
    return righe + roff.paragrafi(frasi)


def lista(voci):
    uscita = [".Bl -tag -width Ds"]
    for nome, testo in voci:
        uscita += voce(nome, testo)
    return uscita + [".El"]


def stati(testo):
    """EXIT STATUS from a line "0 success; 1 no such thing, bad data; 2 wrong usage.\""""
    uscita = [".Sh EXIT STATUS", ".Bl -tag -width Ds"]
    for numero, significato in re.findall(r"(\d) ([^;.]+)", testo):
        uscita += [f".It {numero}", *roff.paragrafi([significato[0].upper() + significato[1:] + "."])]
    return uscita + [".El"]


def corpo(aiuto, uscita_comune, comando, comandi):
    parole = aiuto.uso.split()
    nome = parole.pop(0)
    righe = [".Sh SYNOPSIS", f".Nm {nome}"]
    if comando:
        righe.append(f".Cm {roff.argomento(parole.pop(0))}")
    righe += sintassi(" ".join(parole))
    righe += [".Sh DESCRIPTION"]
    descrizione = aiuto.descrizione
    righe += roff.paragrafi([descrizione + ("" if descrizione.endswith(".") else ".")])
    note = [riga for riga in aiuto.note if not riga.startswith("kelfun COMMAND --help")]
    if any(note):
        righe += [".Pp", *roff.paragrafi(note)]
    for titolo, voci in aiuto.gruppi:
        if titolo == "Subcommands":
            righe += [".Sh COMMANDS", ".Bl -tag -width Ds"]
            for sotto, testo in voci:
                righe += [f".It Cm {roff.argomento(sotto)}", *roff.paragrafi([testo + "."]), "See", f".Xr kelfun-{sotto} 1 ."]
            righe.append(".El")
        elif titolo == "Positionals":
            righe += [".Sh ARGUMENTS", *lista(voci)]
        elif titolo == "Options":
            righe += [".Sh OPTIONS", *lista(voci)]
        else:
            righe += [f".Ss {roff.prosa(titolo)}", *lista(voci)]
    righe += stati(uscita_comune)
    if aiuto.esempi:
        righe += [".Sh EXAMPLES", ".Bd -literal -offset indent", *(roff.letterale(e) for e in aiuto.esempi), ".Ed"]
    altre = [("kelfun-" + altro, 1) for altro in comandi if altro != comando]
    programmi = [(altro, 1) for altro in ("kelfun", "kelsim") if comando or altro != nome]
    righe += roff.vedi([*altre, *programmi, ("libkelfunzioni", 3)])
    return righe


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--kelfun", required=True)
    parser.add_argument("--kelsim", required=True)
    parser.add_argument("--emulator", action="append", default=[],
                        help="a word of the command that runs them, where they are of another machine; may be repeated")
    parser.add_argument("--version", required=True)
    parser.add_argument("--date-of", required=True, help="file whose date the pages bear, unless SOURCE_DATE_EPOCH is set")
    parser.add_argument("cartella")
    argomenti = parser.parse_args()

    def aiuto(*comando, programma=argomenti.kelfun):
        # The C locale, so that the page is the same wherever it is built.
        fatto = subprocess.run([*argomenti.emulator, programma, *comando, "--help"], capture_output=True, text=True, check=True,
                               env={**os.environ, "LC_ALL": "C", "NO_COLOR": "1"})
        return Aiuto(fatto.stdout)

    principale = aiuto()
    comandi = [nome for titolo, voci in principale.gruppi if titolo == "Subcommands" for nome, _ in voci]
    quando = roff.data(argomenti.date_of)
    for comando in [None, *comandi]:
        suo = aiuto(comando) if comando else principale
        nome = f"kelfun-{comando}" if comando else "kelfun"
        testo = roff.pagina(nome, 1, argomenti.version, quando, roff.riassunto(suo.descrizione),
                            corpo(suo, principale.uscita, comando, comandi))
        roff.scrivi(argomenti.cartella, nome, 1, testo)
    simulatore = aiuto(programma=argomenti.kelsim)
    roff.scrivi(argomenti.cartella, "kelsim", 1,
                roff.pagina("kelsim", 1, argomenti.version, quando, roff.riassunto(simulatore.descrizione),
                            corpo(simulatore, simulatore.uscita, None, [])))


if __name__ == "__main__":
    main()
