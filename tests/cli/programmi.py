"""The two programs under test, run as a shell would, on this machine or through an emulator."""
import argparse
import contextlib
import os
import shlex
import subprocess
import tempfile


class Programmi:
    """A scratch folder on whose PATH kelfun and kelsim stand."""

    def __init__(self, argomenti):
        self.cartella = tempfile.TemporaryDirectory(prefix="kelfun-")
        self.emulatore = shlex.split(argomenti.emulator)
        self.programmi = {"kelfun": os.path.abspath(argomenti.kelfun), "kelsim": os.path.abspath(argomenti.kelsim)}
        binari = os.path.join(self.cartella.name, "bin")
        os.mkdir(binari)
        for nome, file in self.programmi.items():
            comando = " ".join(f"'{parte}'" for parte in self.emulatore + [file])
            script = os.path.join(binari, nome)
            with open(script, "w", encoding="ascii") as f:
                f.write(f'#!/bin/sh\nexec {comando} "$@"\n')
            os.chmod(script, 0o755)
        self.ambiente = {**os.environ, "PATH": binari + os.pathsep + os.environ["PATH"], "LC_ALL": "C"}

    def esegui(self, nome, argomenti, stdin=b"", ambiente=None, tempo=300, stdout=None):
        """Exit status, standard output and standard error of one run. A signal is a negative exit status.
        With `stdout` standard output goes to that file, and b"" is given for it."""
        with contextlib.ExitStack() as aperti:
            uscita = aperti.enter_context(open(stdout, "wb")) if stdout else subprocess.PIPE
            fatto = subprocess.run(self.emulatore + [self.programmi[nome]] + list(argomenti), input=stdin, stdout=uscita,
                                   stderr=subprocess.PIPE, cwd=self.cartella.name,
                                   env={**self.ambiente, **(ambiente or {})}, timeout=tempo, check=False)
        return fatto.returncode, fatto.stdout or b"", fatto.stderr

    def shell(self, riga):
        """The same for a shell command line."""
        fatto = subprocess.run(["/bin/sh", "-c", riga], stdin=subprocess.DEVNULL, capture_output=True,
                               cwd=self.cartella.name, env=self.ambiente, timeout=300, check=False)
        return fatto.returncode, fatto.stdout, fatto.stderr


def lettore(descrizione):
    """Parser of the arguments that every script here takes."""
    parser = argparse.ArgumentParser(description=descrizione)
    parser.add_argument("--kelfun", required=True)
    parser.add_argument("--kelsim", required=True)
    parser.add_argument("--emulator", default="", help="command that runs programs of another machine")
    return parser
