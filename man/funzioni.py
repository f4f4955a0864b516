#!/usr/bin/env python3
"""Manual pages of the flat functions, made from the comments of their header. The reference site is made from them too."""
import argparse
import re

import roff

# Records that only one thread at a time may use, as the header says for all functions.
DI_UN_THREAD = {"s_set_canali": "channel set", "s_kel_converter": "converter record"}


class Funzione:
    def __init__(self, dichiarazione, commento, gruppo):
        trovata = re.fullmatch(r"KEL_API (.*?)(\w+)\((.*)\) KEL_NOEXCEPT;", " ".join(dichiarazione.split()))
        if not trovata:
            raise SystemExit(f"not a declaration: {dichiarazione}")
        self.tipo, self.nome, parametri = trovata[1].strip(), trovata[2], trovata[3]
        self.parametri = [] if parametri == "void" else [p.strip() for p in parametri.split(",")]
        self.gruppo = gruppo
        self.testo = []
        self.descritti = {}
        self.ritorno = []
        self.da_quando = ""
        dove = self.testo
        for riga in commento:
            spezzata = re.match(r"(.*?) ?@since (.*)", riga)
            if spezzata:
                riga, self.da_quando = spezzata[1], spezzata[2].rstrip(". ")
                if not riga.strip():
                    continue
            parametro = re.match(r"@param (\w+) +(.*)", riga)
            if parametro:
                dove = self.descritti.setdefault(parametro[1], [])
                riga = parametro[2]
            elif riga.startswith("@return "):
                dove = self.ritorno
                riga = riga.removeprefix("@return ")
            elif not riga.strip() and dove is not self.testo:
                dove = self.testo
            dove.append(riga if dove is self.testo else riga.strip())
        if not self.testo or not self.da_quando:
            raise SystemExit(f"{self.nome} has no description or no @since")
        # The first sentence, which may go on over several lines.
        primo = " ".join(riga.strip() for riga in self.testo[:self.testo.index("")] if riga) if "" in self.testo \
            else " ".join(riga.strip() for riga in self.testo)
        self.breve = re.split(r"(?<=[a-z0-9)`\"])[.:;](?: |$)", primo)[0]

    def nomi_parametri(self):
        return [re.search(r"(\w+)(\[\d*\])?$", p)[1] for p in self.parametri]

    def completa(self, tutte):
        """A comment that ends "else as `f`" leaves its parameters and its result to those of f."""
        altra = re.search(r"\bas `(\w+)`", " ".join(self.testo))
        if not altra or altra[1] not in tutte:
            return
        for nome in self.nomi_parametri():
            if nome in tutte[altra[1]].descritti:
                self.descritti.setdefault(nome, tutte[altra[1]].descritti[nome])
        if not self.ritorno and not self.descritti.keys() - tutte[altra[1]].descritti.keys():
            self.ritorno = tutte[altra[1]].ritorno

    def thread(self):
        record = next((r for tipo, r in DI_UN_THREAD.items() if any(tipo in p for p in self.parametri)), None)
        if record:
            return [f"The function uses only the memory of the {record} and what it points to.",
                    f"Use one {record} in one thread at a time. Functions on different ones may run at the same time."]
        return ["The function keeps no state: it may be called from any thread, at any time, without initialisation."]

    def pagina(self, versione, quando, tutte):
        righe = [".Sh LIBRARY", "libkelfunzioni (\\-lkelfunzioni)", ".Sh SYNOPSIS", ".In kelfunzioni.h",
                 f".Ft {roff.argomento(spazi(self.tipo))}"]
        argomenti = " ".join(roff.argomento(spazi(p)) for p in self.parametri) or "void"
        righe.append(f".Fn {self.nome} {argomenti}".replace('"void"', "void"))
        righe += [".Sh DESCRIPTION", *roff.paragrafi(self.testo)]
        if self.gruppo.note:
            righe += [".Pp", *roff.paragrafi(self.gruppo.note)]
        if self.parametri:
            righe += [".Sh PARAMETERS", ".Bl -tag -width Ds"]
            for nome in self.nomi_parametri():
                testo = roff.paragrafi(self.descritti.get(nome) or [COMUNI.get(nome) or non_descritto(self.nome, nome)])
                righe += [f".It Fa {roff.argomento(nome)}", *punto(testo)]
            righe.append(".El")
        righe += [".Sh RETURN VALUES"]
        if self.tipo == "void":
            righe.append("None.")
        else:
            righe += punto(roff.paragrafi([maiuscola(" ".join(self.ritorno))] if self.ritorno else self.testo[:1]))
        righe += [".Sh THREADS", *roff.paragrafi(self.thread())]
        citate = [nome for nome in re.findall(r"`(\w+)`", " ".join([*self.testo, *self.ritorno])) if nome in tutte]
        vicine = [f.nome for f in self.gruppo.funzioni]
        altre = {(nome, 3) for nome in [*citate, *vicine] if nome != self.nome} | {("libkelfunzioni", 3)}
        righe += [*roff.vedi(altre), ".Sh HISTORY", f"Since libkelfunzioni {self.da_quando}."]
        return roff.pagina(self.nome, 3, versione, quando, roff.riassunto(self.breve), righe)


# Descriptions of parameters that many functions have.
COMUNI = {
    "set": "a set that `kelFunInit` has set up; never null.",
    "fid": "function identifier.",
    "conv": "a record set up with `kelConvInit`; never null.",
    "indice": "index of a record, from 0.",
    "codice": "the code.",
}


def non_descritto(funzione, nome):
    raise SystemExit(f"parameter {nome} of {funzione} is described nowhere")


def spazi(tipo):
    """const char* testo -> const char *testo"""
    return re.sub(r"(\w)(\*+) ?", r"\1 \2", tipo)


def maiuscola(testo):
    return testo[0].upper() + testo[1:]


def punto(righe):
    if righe and not righe[-1].endswith((".", ".El")):
        righe[-1] += "."
    return righe


class Gruppo:
    def __init__(self, titolo, note):
        self.titolo = titolo
        self.note = note
        self.funzioni = []


def leggi(testo):
    """The comment of the file, and the groups with their functions."""
    righe = testo.splitlines()
    del_file = [riga.removeprefix("///").removeprefix(" ") for riga in righe[:righe.index("#ifndef KEL_FUNZIONI_H")]]
    del_file = [re.sub(r"^@file\b ?", "", riga) for riga in del_file]
    gruppi, commento, dichiarazione = [], [], ""
    for riga in righe:
        if riga.startswith("///"):
            commento.append(re.sub(r"@(brief|ref) ", "", riga.removeprefix("///").removeprefix(" ")))
        elif dichiarazione or riga.startswith("KEL_API"):
            dichiarazione += " " + riga
            if riga.endswith(";"):
                gruppi[-1].funzioni.append(Funzione(dichiarazione.strip(), commento, gruppi[-1]))
                commento, dichiarazione = [], ""
        else:
            comincia = next((i for i, r in enumerate(commento) if r.startswith("@name ")), None)
            if comincia is not None:
                note = [r for r in commento[comincia + 1:] if r != "@{"]
                gruppi.append(Gruppo(commento[comincia].removeprefix("@name "), note))
            commento = []
    return del_file, gruppi


def esempio_del(readme):
    """The first C program of the README, which the tests compile and run."""
    with open(readme, encoding="utf-8") as f:
        trovato = re.search(r"^```c\n(.*?)^```\n(?:\n*```text\n(.*?)^```)?", f.read(), re.M | re.S)
    return trovato[1].splitlines(), (trovato[2] or "").splitlines()


def principale(del_file, gruppi, versione, quando, readme):
    righe = [".Sh LIBRARY", "libkelfunzioni (\\-lkelfunzioni)", ".Sh SYNOPSIS", ".In kelfunzioni.h", ".Pp",
             ".Nm cc", ".Ar program.c", ".Li $(pkg\\-config \\-\\-cflags \\-\\-libs kelfunzioni )",
             ".Sh DESCRIPTION", *roff.paragrafi(del_file)]
    for gruppo in gruppi:
        righe += [f".Ss {roff.prosa(gruppo.titolo)}", *roff.paragrafi(gruppo.note), ".Bl -tag -width Ds"]
        for funzione in gruppo.funzioni:
            righe += [f".It Xr {funzione.nome} 3", *roff.paragrafi([funzione.breve.rstrip(".") + "."])]
        righe.append(".El")
    programma, uscita = esempio_del(readme)
    righe += [".Sh EXAMPLES", ".Bd -literal", *(roff.letterale(r) for r in programma), ".Ed"]
    if uscita:
        righe += [".Pp", "It prints", ".Bd -literal", *(roff.letterale(r) for r in uscita), ".Ed"]
    righe += roff.vedi([("kelfun", 1), *((f.nome, 3) for g in gruppi for f in g.funzioni)])
    return roff.pagina("libkelfunzioni", 3, versione, quando,
                       "function catalogue of a motorsport data\\-acquisition system", righe)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--version", required=True)
    parser.add_argument("--readme", required=True)
    parser.add_argument("--date-of", required=True, help="file whose date the pages bear, unless SOURCE_DATE_EPOCH is set")
    parser.add_argument("intestazione")
    parser.add_argument("cartella")
    argomenti = parser.parse_args()
    with open(argomenti.intestazione, encoding="ascii") as f:
        del_file, gruppi = leggi(f.read())
    tutte = {funzione.nome: funzione for gruppo in gruppi for funzione in gruppo.funzioni}
    for funzione in tutte.values():
        funzione.completa(tutte)
    quando = roff.data(argomenti.date_of)
    for funzione in tutte.values():
        roff.scrivi(argomenti.cartella, funzione.nome, 3, funzione.pagina(argomenti.version, quando, tutte))
    roff.scrivi(argomenti.cartella, "libkelfunzioni", 3,
                principale(del_file, gruppi, argomenti.version, quando, argomenti.readme))


if __name__ == "__main__":
    main()
