"""Ways of building the library other than a preset's: on a machine that has little, as a static library, within a tree.

  configurazioni.py bare|static|tree --source DIR --folder DIR --cc CC --cxx CXX --pkg-config PROGRAM
"""
import argparse
import ctypes
import os
import pathlib
import shutil
import subprocess
import sys

QUI = pathlib.Path(__file__).resolve().parent

# The needs of each part, and the package that each line must name. Headers are hidden by hiding their folder.
SENZA_INTESTAZIONI = ["-DCMAKE_IGNORE_PATH=/usr/include;/usr/local/include"]
SENZA_GTEST = ["-DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON"]
SENZA_PYTHON = ["-DCMAKE_DISABLE_FIND_PACKAGE_Python3=ON"]
PARTI = [
    ("KEL_BUILD_TOOLS", "the command-line tools", SENZA_INTESTAZIONI,
     ["libcli11-dev", "nlohmann-json3-dev", "libflatbuffers-dev"]),
    ("KEL_BUILD_REGISTRAZIONI", "the library of recordings", SENZA_INTESTAZIONI, ["libgeographiclib-dev"]),
    ("KEL_BUILD_TESTS", "the tests", SENZA_GTEST + SENZA_PYTHON, ["libgtest-dev", "python3"]),
    ("KEL_INSTALL_MAN", "the manual pages", SENZA_PYTHON, ["python3"]),
]


class Prova:
    def __init__(self, argomenti):
        self.sorgente = argomenti.source
        self.cartella = pathlib.Path(argomenti.folder)
        self.argomenti = argomenti
        shutil.rmtree(self.cartella, ignore_errors=True)
        self.cartella.mkdir(parents=True)

    def esegui(self, *comando, riesce=True, **opzioni):
        """Runs a command; its output. It must succeed, or must not."""
        fatto = subprocess.run([str(parola) for parola in comando], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                               text=True, check=False, **opzioni)
        if (fatto.returncode == 0) != riesce:
            sys.exit(f"{' '.join(map(str, comando))}: ended with {fatto.returncode}\n{fatto.stdout}")
        return fatto.stdout

    def configura(self, nome, *opzioni, sorgente=None, riesce=True):
        """The folder of a build, and what was said when it was configured, each message on one line."""
        dove = self.cartella / nome
        detto = self.esegui("cmake", "-S", sorgente or self.sorgente, "-B", dove, "-G", "Ninja",
                            f"-DCMAKE_C_COMPILER={self.argomenti.cc}", f"-DCMAKE_CXX_COMPILER={self.argomenti.cxx}",
                            "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0", *opzioni, riesce=riesce)
        return dove, " ".join(detto.split()) if not riesce else detto

    def costruisci(self, dove, *bersagli):
        self.esegui("cmake", "--build", dove, *(["--target", *bersagli] if bersagli else []))


def pretendi(vero, testo):
    if not vero:
        sys.exit(testo)


def nuda(prova):
    """Every part is left out in a line that names the packages; asked for, it stops."""
    _, detto = prova.configura("all")
    pretendi("Left out" not in detto, f"something is left out although all is here:\n{detto}")
    for opzione, parte, nascosto, pacchetti in PARTI:
        _, detto = prova.configura(opzione, *nascosto)
        righe = [riga for riga in detto.splitlines() if riga.startswith(f"-- Left out: {parte},")]
        pretendi(len(righe) == 1, f"not one line tells of {parte}:\n{detto}")
        for pacchetto in pacchetti:
            pretendi(f"({pacchetto})" in righe[0], f"{pacchetto} is not named: {righe[0]}")
        _, detto = prova.configura(f"{opzione}-on", f"-D{opzione}=ON", *nascosto, riesce=False)
        for pacchetto in pacchetti:
            pretendi(f"({pacchetto})" in detto, f"{opzione}=ON does not name {pacchetto}: {detto}")
    dove, _ = prova.configura("bare", *SENZA_INTESTAZIONI, *SENZA_GTEST, *SENZA_PYTHON)
    prova.costruisci(dove)
    pretendi((dove / "src/funzioni/libkelfunzioni.so").exists(), "no library was built")
    print(prova.esegui(dove / "examples/cruscotto").splitlines()[0])


def statica(prova):
    """The static library as it is installed: programs in C and C++, by pkg-config and by CMake, and a loadable module."""
    costruita, _ = prova.configura("library", "-DBUILD_SHARED_LIBS=OFF", "-DKEL_BUILD_TOOLS=OFF", "-DCMAKE_CXX_FLAGS_DEBUG=-O1")
    prova.costruisci(costruita)
    prefisso = prova.cartella / "prefix"
    prova.esegui("cmake", "--install", costruita, "--prefix", prefisso)
    archivi = [file.name for file in prefisso.rglob("libkelfunzioni*") if file.is_file()]
    pretendi(archivi == ["libkelfunzioni.a"], f"installed: {archivi}")

    # A C compiler and what pkg-config says: no C++ compiler is asked.
    pc = next(prefisso.rglob("kelfunzioni.pc")).parent
    ambiente = {**os.environ, "PKG_CONFIG_LIBDIR": str(pc)}
    opzioni = prova.esegui(prova.argomenti.pkg_config, "--static", "--cflags", "--libs", "kelfunzioni", env=ambiente).split()
    programma = prova.cartella / "c99"
    prova.esegui(prova.argomenti.cc, "-std=c99", "-pedantic-errors", QUI / "c99.c", *opzioni, "-o", programma)
    print("c99:", prova.esegui(programma).strip())

    # The flat face alone, as firmware has it: no C++ library.
    programma = prova.cartella / "c99-alone"
    prova.esegui(prova.argomenti.cc, "-std=c99", "-pedantic-errors", QUI / "c99.c",
                 *[opzione for opzione in opzioni if opzione != "-lstdc++"], "-o", programma)
    print("c99, no C++ library:", prova.esegui(programma).strip())

    # The second library, which brings the first.
    colonne = prova.esegui(prova.argomenti.pkg_config, "--static", "--cflags", "--libs", "kelregistrazioni", env=ambiente).split()
    programma = prova.cartella / "colonne"
    prova.esegui(prova.argomenti.cc, "-std=c99", "-pedantic-errors", QUI / "colonne.c", *colonne, "-o", programma)
    print("columns:", prova.esegui(programma).strip())

    # What a binding is: a module with the library in it.
    modulo = prova.cartella / "modulo.so"
    prova.esegui(prova.argomenti.cc, "-std=c99", "-shared", "-fPIC", QUI / "modulo.c", *opzioni, "-Wl,--exclude-libs,ALL",
                 "-o", modulo)
    binding = ctypes.CDLL(str(modulo))
    binding.nome_unita.restype = ctypes.c_char_p
    pretendi(binding.nome_unita(0x10) == b"km/h", "the module's answer is another")
    pretendi(not hasattr(binding, "kelFunGetUIVs"), "the module shows the library's own names")

    for linguaggi in ("C", "C;CXX"):
        dove, _ = prova.configura(f"client-{len(linguaggi)}", f"-Dkelfunzioni_ROOT={prefisso}", f"-DLINGUAGGI={linguaggi}",
                                  sorgente=QUI / "statica")
        prova.costruisci(dove)
        for programma in ["c99"] + (["cxx"] if "CXX" in linguaggi else []):
            print(f"{programma}, project in {linguaggi}:", prova.esegui(dove / programma).strip().splitlines()[-1])


def albero(prova):
    """The library as a part of another project's tree: nothing but the library is built, and nothing of the parent's changes."""
    for modo in ("add_subdirectory", "FetchContent"):
        for condivisa in ("", "OFF"):
            opzioni = [f"-DBUILD_SHARED_LIBS={condivisa}"] if condivisa else []
            dove, detto = prova.configura(f"{modo}{condivisa}", f"-DMODO={modo}", f"-DKELFUNZIONI={prova.sorgente}", *opzioni,
                                          sorgente=QUI / "albero")
            pretendi("Left out" not in detto, f"parts of the library are looked for:\n{detto}")
            # How the library comes into the tree has nothing to do with its kind: two of the four show both.
            if (modo == "FetchContent") == (condivisa == "OFF"):
                continue
            # All that the parent's build has, once; for the other what the client needs.
            prova.costruisci(dove, *(["c99"] if condivisa else []))
            print(f"{modo} {condivisa}:", prova.esegui(dove / "c99").strip())
            archivi = sorted({file.suffix for file in dove.rglob("libkelfunzioni.*") if not file.is_dir()} & {".a", ".so"})
            pretendi(archivi == [".a" if condivisa else ".so"], f"{modo} {condivisa}: built {archivi}")
            pretendi(not list(dove.rglob("kel_test_*")) and not list(dove.rglob("kelfun")), "more than the library is built")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("prova", choices=["bare", "static", "tree"])
    for nome in ("source", "folder", "cc", "cxx", "pkg-config"):
        parser.add_argument(f"--{nome}", required=True)
    argomenti = parser.parse_args()
    {"bare": nuda, "static": statica, "tree": albero}[argomenti.prova](Prova(argomenti))
    return 0


if __name__ == "__main__":
    sys.exit(main())
