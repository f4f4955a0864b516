"""Completion of kelfun: what the tool offers, and what bash, zsh and fish make of it when a user presses TAB."""
import argparse
import json
import os
import pty
import re
import select
import shutil
import subprocess
import sys
import tempfile
import time

# What is typed (the TAB comes at its end), and the arguments that kelfun is then run with. The candidate is the only
# one, so that the shell completes it without asking.
BATTUTE = [
    ("conv", ["convert"], "a command"),
    ("fid --js", ["fid", "--json"], "an option"),
    ("fid FG_GEAR_B", ["fid", "FG_GEAR_BOX_TEMP"], "a legacy identifier"),
    ("fid 0x0507", ["fid", "0x05070010"], "a hexadecimal identifier"),
    ("fid 0xA80", ["fid", "0xA8010"], "the same without its zeros"),
    ("fid --quantity temp", ["fid", "--quantity", "temperature"], "a quantity"),
    ("fid --quantity 'temp", ["fid", "--quantity", "temperature"], "a word whose quote the shell closes"),
    ("fid --object wat", ["fid", "--object", "water"], "an object"),
    ("fid --position whe", ["fid", "--position", "wheel"], "a position"),
    ("fid --quantity speed --position wheel --side front-l",
     ["fid", "--quantity", "speed", "--position", "wheel", "--side", "front-left"], "a side of this position"),
    ("convert 0x10 1 --to m", ["convert", "0x10", "1", "--to", "mph"], "a unit of this identifier"),
    ("convert 0x10 1 --to=m", ["convert", "0x10", "1", "--to=mph"], "a value that is joined to its option"),
    ("convert OIL_PRESS 1 --to p", ["convert", "OIL_PRESS", "1", "--to", "psi"], "a unit of a legacy identifier"),
    ("decode --quantity code --unit ", ["decode", "--quantity", "code", "--unit", "#"], "a unit that needs a quote"),
    ("decode 0x10 --format le", ["decode", "0x10", "--format", "left"], "a choice of words"),
    ("ubx la", ["ubx", "lap one.ubx"], "a file whose name needs a quote"),
    ("record c la", ["record", "c", "lap one.ubx"], "the second file of a recording"),
    ("record c s --time u3", ["record", "c", "s", "--time", "u32ms"], "a kind of time stamp"),
    ("ubx f --plot la", ["ubx", "f", "--plot", "lap one.ubx"], "the file of a plot"),
    ("fid 0x10 --color nev", ["fid", "0x10", "--color", "never"], "a time for colours"),
    ("find oil temper", ["find", "oil", "temperature"], "one of several words to find"),
    ("catal", ["catalogue"], "a command among others that begin alike"),
    ("catalogue --sch", ["catalogue", "--schema"], "an option of a command without arguments"),
    ("fid 0x10 --code py", ["fid", "0x10", "--code", "python"], "a language"),
    ("lap 83456 --code=cp", ["lap", "83456", "--code=cpp"], "a language that is joined to its option"),
    ("record la", ["record", "lap one.ubx"], "a recording"),
    ("record a b --time u3", ["record", "a", "b", "--time", "u32ms"], "a kind of time stamp"),
    ("record a b --unit mp", ["record", "a", "b", "--unit", "mph"], "a unit for all channels"),
    ("record kart sam --only Late", ["record", "kart", "sam", "--only", "Lateral Accel"], "a channel of this recording"),
    ("record kart sam --only 'Split T", ["record", "kart", "sam", "--only", "Split Time"], "a subfield, in quotes"),
    ("record kart sam --only=Late", ["record", "kart", "sam", "--only=Lateral Accel"], "one that is joined to its option"),
    ("record kart sam --unit ps", ["record", "kart", "sam", "--unit", "psi"], "a unit of this recording"),
    ("record kart sam --unit Wheel\\ Speed=m", ["record", "kart", "sam", "--unit", "Wheel Speed=mph"],
     "a unit of one channel"),
    ("record kart sam --unit 'Oil Pressure=p", ["record", "kart", "sam", "--unit", "Oil Pressure=psi"],
     "a unit of one channel, in quotes"),
    ("record kart sam --unit=OilP=p", ["record", "kart", "sam", "--unit=OilP=psi"], "the same after a sign of equality"),
    ("laps la", ["laps", "lap one.ubx"], "a capture"),
    ("laps c la", ["laps", "c", "lap one.ubx"], "the second file of a recording"),
    ("laps f --source pa", ["laps", "f", "--source", "packets"], "where laps come from"),
    ("laps f --unit mp", ["laps", "f", "--unit", "mph"], "a unit of the speed"),
    ("laps f --time u6", ["laps", "f", "--time", "u64us"], "a kind of time stamp"),
    ("find 'Oil Pr", ["find", "Oil Pressure"], "the name of a function"),
    ("ubx x --plot la", ["ubx", "x", "--plot", "lap one.ubx"], "a picture"),
    ("ubx x --nd", ["ubx", "x", "--ndjson"], "a form of the output"),
    ("match 0x10 --channels la", ["match", "0x10", "--channels", "lap one.ubx"], "a file after an option"),
]

# The same for lists, which the bash function is asked for as bash asks it.
ELENCHI = [
    (["kelfun", "c"], ["convert", "camera", "catalogue"]),
    (["kelfun", "fi"], ["find", "fid"]),
    (["kelfun", "units", "--code", ""], ["c", "cpp", "python"]),
    (["kelfun", "units", "--color", ""], ["auto", "always", "never"]),
    (["kelfun", "find", "oil", "FID_OBJ_WA"], ["FID_OBJ_WATER"]),
    (["kelfun", "catalogue", "--schema", "--"], ["--help"]),
    (["kelfun", "convert", "0x11", "20", "--to", ""], ["C", "F"]),
    (["kelfun", "convert", "0x11", "20", "--to", "="], ["C", "F"]),
    (["kelfun", "fid", "--details", ""], ["laptime", "datetime", "gps"]),
    (["kelfun", "fid", "--details", "gps", "--specialisation", ""], ["kelnavsol", "ubxnavsol"]),
    (["kelfun", "fid", "REF_SPEED_F"], ["REF_SPEED_FL", "REF_SPEED_FR"]),
    (["kelfun", "decode", "0x10", "--type", "int"], ["int32", "int16"]),
    (["kelfun", "decode", "0x10", "--format", ""], ["right", "left", "compact"]),
    (["kelfun", "decode", "0x10", "--decimals", ""], ["0", "1", "2", "3"]),
    (["kelfun", "ubx", "f", "--decimals", ""], ["0", "1", "2", "3"]),
    (["kelfun", "match", "--variant", ""], ["match", "full", "list"]),
    (["kelfun", "camera", "--table", ""], ["camera", "legacy"]),
    (["kelfun", "fid", "OIL_P"], ["OIL_PRESS"]),
    (["kelfun", "nonsense", ""], []),
    (["kelfun", "fid", "--quantity", "nonsense"], []),
]

errori = []


def pretendi(vero, testo):
    if not vero:
        errori.append(testo)


class Banco:
    """A scratch folder with a file to complete and, first on PATH, a kelfun that notes how it is run."""

    def __init__(self, kelfun, kelsim):
        self.cartella = tempfile.TemporaryDirectory(prefix="kelfun-")
        self.dove = self.cartella.name
        self.nota = os.path.join(self.dove, "run.log")
        self.kelfun = kelfun
        os.mkdir(os.path.join(self.dove, "bin"))
        with open(os.path.join(self.dove, "bin", "kelfun"), "w", encoding="ascii") as f:
            f.write(f'#!/bin/sh\nif [ "$1" = __complete ]; then exec "{kelfun}" "$@"; fi\n'
                    f'{{ printf "%s\\n" "$@"; echo .; }} >>"{self.nota}"\n')
        os.chmod(f.name, 0o755)
        os.mkdir(os.path.join(self.dove, "dir"))
        with open(os.path.join(self.dove, "dir", "lap one.ubx"), "wb"):
            pass
        # A recording whose channels and subfields are completed.
        subprocess.run([kelsim, "--laps", "1", "--rate", "1", "--channels", os.path.join(self.dove, "dir", "kart"),
                        "--samples", os.path.join(self.dove, "dir", "sam")], check=True)
        self.ambiente = {"PATH": os.path.join(self.dove, "bin") + os.pathsep + os.environ["PATH"], "LC_ALL": "C.UTF-8",
                         "HOME": self.dove, "TERM": "xterm", "PS1": "$ "}

    def offre(self, *parole):
        """Candidates of the tool itself, with what it says of each."""
        fatto = subprocess.run([self.kelfun, "__complete", *parole], capture_output=True, text=True, check=False)
        pretendi(fatto.returncode == 0 and not fatto.stderr, f"__complete {parole}: {fatto.returncode} {fatto.stderr}")
        return dict((riga + "\t").split("\t")[:2] for riga in fatto.stdout.splitlines())


def lo_strumento(banco):
    def aiuto(*comando):
        return subprocess.run([banco.kelfun, *comando, "--help"], capture_output=True, text=True, check=True).stdout

    comandi = re.findall(r"^  ([a-z]+)  ", aiuto().split("Subcommands:")[1], re.M)
    pretendi(list(banco.offre("")) == comandi, f"commands: {banco.offre('')} instead of {comandi}")
    for comando in comandi:
        offerte = banco.offre(comando, "-")
        scritte = set(re.findall(r"^  (?:-\w,)?(--[a-z0-9-]+)", aiuto(comando), re.M))
        pretendi(set(offerte) == scritte, f"options of {comando}: {set(offerte) ^ scritte} are not in both")
        pretendi(all(offerte.values()), f"options of {comando}: not all are explained")
    pretendi("--csv" not in banco.offre("fid", "--json", "-"), "--csv is offered beside --json")
    pretendi("--code" not in banco.offre("fid", "--json", "-"), "--code is offered beside --json")
    pretendi("--code" in banco.offre("fid", "-"), "--code is not offered")
    pretendi("--code" not in banco.offre("find", "-"), "--code is offered where it is refused")
    pretendi("--side" in banco.offre("fid", "--side", "left", "-"), "--side is not offered a second time")
    pretendi(not banco.offre("fid", "0x10", "--side", "x y"), "a side that does not exist is completed")

    identificatori = banco.offre("fid", "")
    pretendi(len(identificatori) > 100, f"only {len(identificatori)} identifiers")
    for testo in list(identificatori)[::7]:
        fatto = subprocess.run([banco.kelfun, "fid", testo], capture_output=True, check=False)
        pretendi(fatto.returncode == 0, f"fid {testo} is offered, but is no identifier")
    unita = json.loads(subprocess.run([banco.kelfun, "units", "--json"], capture_output=True, check=True).stdout)
    for riga in unita["functions"][::3]:
        offerte = list(banco.offre("decode", riga["identifier"], "--unit", ""))
        pretendi(offerte == riga["units"], f"units of {riga['identifier']}: {offerte}, not {riga['units']}")
    registrazione(banco)
    pretendi(banco.offre("ubx", "") == {":files": ""}, "ubx does not ask for files")


def registrazione(banco):
    """The names and units of a recording are those that its command takes, and nothing else is read."""
    canali, campioni = (os.path.join(banco.dove, "dir", nome) for nome in ("kart", "sam"))

    def vale(*opzioni):
        return subprocess.run([banco.kelfun, "record", canali, campioni, "--time", "u32ms", *opzioni],
                              capture_output=True, check=False).returncode == 0

    nomi = banco.offre("record", canali, campioni, "--only", "")
    unita = banco.offre("record", canali, campioni, "--unit", "")
    pretendi({"Engine RPM", "RPM", "GPS packet", "GPS Speed"} <= set(nomi), f"names of channels: {list(nomi)}")
    pretendi({"psi", "Oil Pressure=psi", "OilP=psi", "GPS Speed=mph"} <= set(unita), f"units of channels: {list(unita)}")
    pretendi("inHg" not in unita and "Engine RPM=psi" not in unita, "units are offered that no channel has")
    for nome in nomi:
        pretendi(vale("--only", nome), f"record --only {nome!r} is offered, but refused")
    for una in unita:
        pretendi(vale("--unit", una), f"record --unit {una!r} is offered, but refused")
    for altro in ("-", "/nowhere", campioni, "/dev/zero", banco.dove):
        pretendi(not banco.offre("record", altro, campioni, "--only", ""), f"names of channels from {altro}")
    pretendi("inHg" in banco.offre("record", "-", campioni, "--unit", ""), "without a recording not every unit is offered")
    ostile = os.path.join(banco.dove, "hostile")
    with open(canali, "rb") as letti, open(ostile, "wb") as f:
        f.write(letti.read(32) + b"a\nb\x1b[31m\0".ljust(36, b"\0") + letti.read()[36:])
    pretendi(banco.offre("record", ostile, campioni, "--only", "").get("Speed") == "a\\x0Ab\\x1B[31m",
             "a channel's name with control characters reaches a terminal")
    casa = subprocess.run([banco.kelfun, "__complete", "record", "~/dir/kart", "s", "--only", "RP"], capture_output=True,
                          text=True, env=banco.ambiente, check=False)
    pretendi(casa.stdout.startswith("RPM\t"), f"a recording below the home folder: {casa.stdout!r}")


def elenchi_di_bash(banco, completamenti):
    for parole, attesi in ELENCHI:
        riga = " ".join(parole).replace(" =", "=")
        comando = (f'. "{completamenti}/kelfun.bash"; COMP_LINE=$1; COMP_POINT=${{#1}}; shift; COMP_WORDS=("$@"); '
                   'COMP_CWORD=$(($# - 1)); _kelfun; printf "%s\\n" "${COMPREPLY[@]}"')
        fatto = subprocess.run(["bash", "--norc", "-c", comando, "bash", riga, *parole], capture_output=True, text=True,
                               env=banco.ambiente, cwd=banco.dove, check=False)
        pretendi(fatto.stdout.split() == attesi and not fatto.stderr,
                 f"bash: {riga!r}: got {fatto.stdout.split()} {fatto.stderr}, expected {attesi}")


class Terminale:
    """A shell on a terminal of its own."""

    def __init__(self, comando, banco):
        self.pid, self.fd = pty.fork()
        if self.pid == 0:
            os.chdir(os.path.join(banco.dove, "dir"))
            os.execvpe(comando[0], comando, banco.ambiente)
        self.visto = b""

    def batti(self, testo):
        os.write(self.fd, testo.encode())

    def leggi(self, secondi):
        if select.select([self.fd], [], [], secondi)[0]:
            try:
                self.visto += os.read(self.fd, 65536)
            except OSError:
                pass

    def fino_a(self, condizione, secondi):
        fine = time.monotonic() + secondi
        while not condizione() and time.monotonic() < fine:
            self.leggi(0.02)
        return condizione()

    def chiudi(self):
        os.close(self.fd)
        try:
            os.kill(self.pid, 9)
        except ProcessLookupError:
            pass
        os.waitpid(self.pid, 0)


def battute(banco, shell, comando, prologo):
    """Types every line into one shell on a terminal, as a user does."""
    terminale = Terminale(comando, banco)
    try:
        def registrate():
            try:
                with open(banco.nota, encoding="utf-8") as f:
                    return f.read().split("\n.\n")[:-1]
            except FileNotFoundError:
                return []

        if os.path.exists(banco.nota):
            os.unlink(banco.nota)
        # The shell is ready when it runs a command after the prologue.
        terminale.batti(f"{prologo}\nkelfun ready\n")
        if not terminale.fino_a(lambda: len(registrate()) == 1, 30):
            errori.append(f"{shell}: does not start: {terminale.visto[-2000:]!r}")
            return
        for numero, (battuta, attesi, che_cosa) in enumerate(BATTUTE, 2):
            terminale.visto = b""
            terminale.batti(f"kelfun {battuta}\t")
            # The line grows on the terminal; when it stands still the shell waits for the next key.
            fermo = time.monotonic()
            prima = b""
            inizio = fermo
            while time.monotonic() - fermo < 0.15 and time.monotonic() - inizio < 5:
                terminale.leggi(0.05)
                if terminale.visto != prima:
                    prima, fermo = terminale.visto, time.monotonic()
            terminale.batti("\n")
            if not terminale.fino_a(lambda n=numero: len(registrate()) >= n, 10):
                errori.append(f"{shell}: {che_cosa}: {battuta!r} is not run: {terminale.visto[-500:]!r}")
                return
            avuti = registrate()[-1].split("\n")
            pretendi(avuti == attesi, f"{shell}: {che_cosa}: {battuta!r} became {avuti} instead of {attesi}")
    finally:
        terminale.chiudi()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--kelfun", required=True)
    parser.add_argument("--kelsim", required=True)
    parser.add_argument("--completions", required=True)
    parser.add_argument("shell", choices=["tool", "bash", "zsh", "fish"])
    argomenti = parser.parse_args()
    banco = Banco(os.path.abspath(argomenti.kelfun), os.path.abspath(argomenti.kelsim))
    completamenti = os.path.abspath(argomenti.completions)
    if argomenti.shell == "tool":
        lo_strumento(banco)
    elif shutil.which(argomenti.shell) is None:
        print(f"SKIPPED: {argomenti.shell} is not installed, so its completion is not tried")
        return 77
    elif argomenti.shell == "bash":
        elenchi_di_bash(banco, completamenti)
        battute(banco, "bash", ["bash", "--norc", "--noprofile", "-i"],
                f"bind 'set enable-bracketed-paste off'; . '{completamenti}/kelfun.bash'")
    elif argomenti.shell == "zsh":
        battute(banco, "zsh", ["zsh", "-f", "-i"],
                f"unsetopt zle_bracketed_paste; fpath=('{completamenti}' $fpath); autoload -U compinit; compinit -D -u")
    else:
        battute(banco, "fish", ["fish", "--no-config", "-i"], f"source '{completamenti}/kelfun.fish'")
    for errore in errori:
        print(errore, file=sys.stderr)
    print(f"{argomenti.shell}: {len(errori)} failures")
    return 1 if errori else 0


if __name__ == "__main__":
    sys.exit(main())
