"""Parts that the generators of the manual pages share: they turn plain text into mdoc, the format of manual pages."""
import datetime
import os
import re
import textwrap

SEGNI = {"\\": "\\e", "'": "\\(aq", "`": "\\(ga", "^": "\\(ha", "~": "\\(ti", "-": "\\-"}


def letterale(testo):
    """A text that is shown as it is: program lines, names of options."""
    riga = "".join(SEGNI.get(c, c) for c in testo)
    return "\\&" + riga if riga.startswith((".", "\\(aq")) else riga


def prosa(testo):
    """A line of running text. Text in backticks becomes bold."""
    pezzi = testo.replace("\\", "\\e").split("`")
    riga = "".join(f"\\fB{pezzo.replace('-', chr(92) + '-')}\\fP" if i % 2 else pezzo for i, pezzo in enumerate(pezzi))
    return "\\&" + riga if riga.startswith((".", "'")) else riga


def spezza(riga, larghezza=78):
    """A line of running text, split into lines that mandoc accepts. None may begin with a character that begins a macro."""
    return ["\\&" + r if r.startswith((".", "'")) and r != riga else r
            for r in textwrap.wrap(riga, larghezza, break_long_words=False, break_on_hyphens=False)]


def argomento(testo):
    """One argument of a macro."""
    testo = testo.replace("\\", "\\e").replace("-", "\\-").replace('"', '\\(dq')
    # Without \& a word that is the name of a macro would be read as that macro.
    if re.fullmatch(r"[A-Z][a-z]|[%][A-Z]", testo) or not testo:
        testo = "\\&" + testo
    return f'"{testo}"' if " " in testo else testo


def paragrafi(righe):
    """Lines of a comment or of a help text as mdoc. An empty line separates paragraphs; a hyphen begins a point of a list."""
    uscita = []
    in_punti = False

    def finisci():
        nonlocal in_punti
        if in_punti:
            uscita.append(".El")
        in_punti = False

    nuovo = False
    for riga in righe:
        testo = riga.strip()
        if not testo:
            nuovo = bool(uscita)
            continue
        if testo.startswith("- "):
            if not in_punti:
                uscita.append(".Bl -dash")
                in_punti = True
            uscita.append(".It")
            testo = testo[2:]
            nuovo = False
        elif in_punti and not riga.startswith("  "):
            finisci()
            nuovo = True
        elif nuovo:
            finisci()
        if nuovo and uscita:
            uscita.append(".Pp")
        nuovo = False
        # Every sentence begins on a new line, as mdoc wants it.
        for frase in re.split(r"(?<=[a-z0-9)`\"][.:?]) +(?=[A-Z])", testo):
            uscita += spezza(prosa(frase))
    finisci()
    return uscita


def data(file):
    """Date of a page: SOURCE_DATE_EPOCH if it is set, so that two builds give the same bytes, else the date of its source."""
    secondi = int(os.environ.get("SOURCE_DATE_EPOCH") or os.path.getmtime(file))
    giorno = datetime.datetime.fromtimestamp(secondi, datetime.timezone.utc)
    return f"{giorno:%B} {giorno.day}, {giorno.year}"


def riassunto(testo):
    """A sentence for the line below NAME: without its point, and with a small first letter unless it begins with a name."""
    testo = testo.rstrip(". ").replace("`", "")
    if re.match(r"[A-Z][a-z]* ?", testo) and not re.match(r"[A-Z][A-Z0-9]", testo):
        testo = testo[0].lower() + testo[1:]
    return testo


def pagina(nome, sezione, versione, quando, descrizione, corpo):
    """A whole page."""
    righe = [f".Dd {quando}", f".Dt {nome.upper()} {sezione}", f".Os libkelfunzioni {versione}", ".Sh NAME",
             f".Nm {nome}", f".Nd {descrizione}", *corpo]
    return "\n".join(righe) + "\n"


def scrivi(cartella, nome, sezione, testo):
    os.makedirs(os.path.join(cartella, f"man{sezione}"), exist_ok=True)
    with open(os.path.join(cartella, f"man{sezione}", f"{nome}.{sezione}"), "w", encoding="ascii") as f:
        f.write(testo)


def vedi(pagine):
    """SEE ALSO."""
    ordinate = sorted(pagine, key=lambda p: (p[1], p[0].lower()))
    return [".Sh SEE ALSO", *(f".Xr {nome} {sezione}" + (" ," if i + 1 < len(ordinate) else "")
                              for i, (nome, sezione) in enumerate(ordinate))]
