// kelsim: writes the capture of a GPS receiver on a kart that drives laps of a small circuit.
#include <CLI/CLI.hpp>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

#include "messaggi.h"

namespace {

// A whole number within bounds, or the reason why the argument is none.
CLI::Validator traNumeri(unsigned long long minimo, unsigned long long massimo) {
    return CLI::Validator(
        [minimo, massimo](std::string& testo) -> std::string {
            unsigned long long valore = 0;
            const char* fine = testo.data() + testo.size();
            const auto letto = std::from_chars(testo.data(), fine, valore);
            if (!testo.empty() && letto.ec == std::errc() && letto.ptr == fine && valore >= minimo && valore <= massimo)
                return {};
            return "'" + testo + "' is no such number; accepted: " + std::to_string(minimo) + " to " +
                   std::to_string(massimo);
        },
        "N");
}

int errore(const std::string& nome) {
    std::fprintf(stderr, "kelsim: cannot write '%s': %s\n", nome.c_str(), std::strerror(errno));
    return 1;
}

int esegui(int argc, char** argv) {
    CLI::App programma{"Writes the u-blox capture of a kart that drives laps of a circuit of 1 km.", "kelsim"};
    std::string file;
    unsigned giri = 3;
    unsigned frequenza = 10;
    unsigned long long seme = 1;
    programma.add_option("FILE", file, "File to write, or - for standard output")->required();
    programma.add_option("--laps", giri, "Laps (default 3)")->check(traNumeri(1, 1000));
    programma.add_option("--rate", frequenza, "Solutions a second (default 10)")->check(traNumeri(1, 25));
    programma.add_option("--seed", seme, "Seed of the receiver's noise (default 1)")->check(traNumeri(0, ~0ull));
    programma.footer(
        "Half-way through the middle lap the fix is lost for some seconds. The same arguments write the same bytes.\n\n"
        "Examples:\n  kelsim capture.ubx\n  kelsim --laps 10 --rate 5 --seed 7 capture.ubx\n"
        "  kelsim --laps 1 - | kelfun ubx -");
    try {
        programma.parse(argc, argv);
    } catch (const CLI::Success& richiesta) {
        return programma.exit(richiesta);
    } catch (const CLI::ParseError& e) {
        std::fprintf(stderr, "kelsim: %s; see kelsim --help\n", e.what());
        return 2;
    }
    std::FILE* uscita = file == "-" ? stdout : std::fopen(file.c_str(), "wb");
    if (uscita == nullptr)
        return errore(file);
    kel::simulatore::registrazione(
        giri, frequenza, seme, [uscita](const std::string& byte) { std::fwrite(byte.data(), 1, byte.size(), uscita); });
    const bool scritto = std::ferror(uscita) == 0 && std::fflush(uscita) == 0;
    const bool chiuso = uscita == stdout || std::fclose(uscita) == 0;
    return scritto && chiuso ? 0 : errore(file);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return esegui(argc, argv);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "kelsim: %s\n", e.what());
        return 1;
    }
}
