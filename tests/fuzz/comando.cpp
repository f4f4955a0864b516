// kelfun itself: any arguments, any standard input, in the same process.
//
// Proves that every command line ends with one of the three exit statuses, and neither with a signal nor with an
// exception that nobody caught. Arguments name no file but what stands in an empty folder, and start no program.
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "bersaglio.h"
#include "ingredienti.h"
#include "programma.h"

namespace {

using fuzz::Ingredienti;
using fuzz::pretendi;

// The inputs kept tell words by their places: new ones come at the end, up to PAROLE_E_TESTI less one.
constexpr std::array<const char*, 84> PAROLE = {
    "find",       "fid",        "functions",  "units",     "convert",    "decode",    "match",     "camera",
    "lap",        "ubx",        "record",     "catalogue", "--json",     "--ndjson",  "--csv",     "--color=always",
    "--quantity", "--object",   "--position", "--inout",   "--side",     "--number",  "--details", "--specialisation",
    "--unit",     "--decimals", "--width",    "--type",    "--time",     "--rate",    "--only",    "--text",
    "--packed",   "--help",     "--version",  "--code",    "__complete", "-",         "--",        "0x10",
    "0x9A",       "speed",      "km/h",       "mph",       "bar",        "psi",       "100",       "-1",
    "1e38",       "nan",        "1:23.456",   "GPS",       "wheel",      "FL",        "u32ms",     "--from",
    "--to",       "--plot",     "gps",        "REF_SPEED", "--bits",     "--channel", "c",         "python",
    "--table",    "--strict",   "int16",      "laps",      "--source",   "--line",    "--split",   "--min-lap",
    "--lap",      "--size",     "--x",        "distance",  "--all",      "--device",  "auto",      "none",
    "45,10,90",   "40x20",      "0:10",       "350"};

constexpr std::size_t PAROLE_E_TESTI = 96;  // places behind the last word stand for any text
static_assert(PAROLE.size() < PAROLE_E_TESTI);

// An empty folder to be in, no programs to start, and nobody to read what is printed.
bool prepara() {
    std::string cartella = (std::filesystem::temp_directory_path() / "kelfun-fuzz-XXXXXX").string();
    if (mkdtemp(cartella.data()) == nullptr || chdir(cartella.c_str()) != 0)
        return false;
    std::filesystem::remove(cartella);  // nothing can be made in it any more
    setenv("PATH", "/nonexistent", 1);
    const int nulla = open("/dev/null", O_WRONLY | O_CLOEXEC);
    return nulla >= 0 && dup2(nulla, STDOUT_FILENO) == STDOUT_FILENO;
}

// The bytes become standard input.
void versa(std::span<const std::uint8_t> byte) {
    static const int memoria = memfd_create("standard input", MFD_CLOEXEC);
    pretendi(memoria >= 0 && ftruncate(memoria, 0) == 0, "there is memory for standard input");
    pretendi(pwrite(memoria, byte.data(), byte.size(), 0) == static_cast<ssize_t>(byte.size()), "it takes the bytes");
    pretendi(dup2(memoria, STDIN_FILENO) == STDIN_FILENO && lseek(STDIN_FILENO, 0, SEEK_SET) == 0, "it can be read");
}

std::vector<std::string> argomenti(Ingredienti& da) {
    std::vector<std::string> parole = {"kelfun"};
    for (std::size_t quanti = da.scelta(10); quanti > 0; quanti--) {
        const std::size_t quale = da.scelta(PAROLE_E_TESTI);
        std::string parola = quale < PAROLE.size() ? PAROLE.at(quale) : da.testo();
        parola = parola.c_str();  // no argument holds a NUL
        if (parola.empty() || parola.find('/') == std::string::npos || parola == "km/h")
            parole.push_back(parola);
    }
    return parole;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* byte, std::size_t quanti) {
    static const bool pronto = prepara();
    pretendi(pronto, "there is an empty folder to be in");
    Ingredienti da(byte, quanti);
    std::vector<std::string> parole = argomenti(da);
    versa(da.resto());
    std::vector<char*> argv;
    for (std::string& parola : parole)
        argv.push_back(parola.data());
    argv.push_back(nullptr);
    const int stato = kel::strumento::kelfun(static_cast<int>(parole.size()), argv.data());
    std::fflush(stdout);
    pretendi(stato >= 0 && stato <= 2, "the exit status is 0, 1 or 2", [&] { return std::to_string(stato); });
    return 0;
}
