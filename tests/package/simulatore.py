"""The simulator as it is installed: program, manual page and completion, the options of its --help in each shell's file."""
import argparse
import os
import re
import subprocess
import sys
import tempfile

errori = []


def pretendi(vero, testo):
    if not vero:
        errori.append(testo)


def completamento(cartella, opzioni, messaggi):
    scritture = {"kelsim.bash": "--{}", "_kelsim": "--{}", "kelsim.fish": "--long-option {}"}
    for nome, scrittura in scritture.items():
        with open(os.path.join(cartella, nome), encoding="ascii") as f:
            testo = f.read()
        for opzione in opzioni:
            pretendi(re.search(re.escape(scrittura.format(opzione)) + r"\b", testo), f"{nome} does not know --{opzione}")
        pretendi(" ".join(messaggi) in testo, f"{nome} does not offer {messaggi}")
    chiede = (f'. "{cartella}/kelsim.bash"; COMP_WORDS=(kelsim --messages p); COMP_CWORD=2; _kelsim; '
              'echo "${COMPREPLY[*]}"; COMP_WORDS=(kelsim --me); COMP_CWORD=1; _kelsim; echo "${COMPREPLY[*]}"')
    offre = subprocess.run(["bash", "-c", chiede], capture_output=True, text=True, check=True).stdout.split()
    pretendi(offre == ["pvt", "--messages"], f"bash completes to {offre}")


def installato(cartella):
    """What cmake --install puts into a folder of its own; the program runs there with the library beside it."""
    with tempfile.TemporaryDirectory(prefix="kelsim-") as dove:
        subprocess.run(["cmake", "--install", cartella, "--prefix", dove], capture_output=True, check=True)
        programma = os.path.join(dove, "bin", "kelsim")
        pretendi(os.path.exists(programma), "kelsim is not installed")
        if os.path.exists(programma):
            ambiente = {nome: valore for nome, valore in os.environ.items() if nome != "LD_LIBRARY_PATH"}
            fatto = subprocess.run([programma, "--laps", "1", "--rate", "1", "-"], capture_output=True, env=ambiente, check=False)
            pretendi(fatto.returncode == 0 and fatto.stdout.count(b"\xb5\x62\x01\x06") > 50,
                     f"the installed kelsim does not run: {fatto.stderr.decode()}")
        for posto in ("share/bash-completion/completions/kelsim", "share/zsh/vendor-completions/_kelsim",
                      "share/fish/vendor_completions.d/kelsim.fish"):
            pretendi(os.path.exists(os.path.join(dove, posto)), f"{posto} is not installed")
        if os.path.exists(os.path.join(dove, "share/man/man1/kelfun.1")):
            pretendi(os.path.exists(os.path.join(dove, "share/man/man1/kelsim.1")), "kelsim(1) is not installed")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--kelsim", required=True)
    parser.add_argument("--build", required=True)
    parser.add_argument("--completions", required=True)
    argomenti = parser.parse_args()
    aiuto = subprocess.run([argomenti.kelsim, "--help"], capture_output=True, text=True, check=True).stdout
    opzioni = re.findall(r"^  (?:-\w,)?--([a-z0-9-]+)", aiuto, re.M)
    pretendi(len(opzioni) >= 8, f"--help has only the options {opzioni}")
    messaggi = re.search(r"--messages (\S+)", aiuto)[1].split("|")
    completamento(argomenti.completions, opzioni, messaggi)
    installato(argomenti.build)
    for errore in errori:
        print(errore, file=sys.stderr)
    return 1 if errori else 0


if __name__ == "__main__":
    sys.exit(main())
