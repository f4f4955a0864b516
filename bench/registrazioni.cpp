// Recordings: their rows into columns, and what kelfun writes of them. Times are those of one value.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "comune/prova.h"
#include "kelregistrazioni.h"
#include "righe.h"

using namespace prova;

namespace {

constexpr unsigned CANALI = 12;
constexpr std::size_t PASSO = 4 + 2 * CANALI;  // a stamp, and samples of 16 bits
constexpr std::size_t IN_CACHE = 4096;         // records
constexpr std::size_t DI_FILE = 200000;

void scrivi(unsigned char* dove, std::uint32_t valore, std::size_t byte) {
    for (std::size_t i = 0; i < byte; ++i)
        dove[i] = static_cast<unsigned char>(valore >> 8 * i);
}

// A temperature, a pressure, a speed and an engine speed by turns.
std::vector<unsigned char> canali() {
    constexpr std::array<kel_funpos, 4> fid = {kelFidComponi(FID_PHI_TEMPERATURE, FID_OBJ_WATER, FID_POS_ENGINE),
                                               kelFidComponi(FID_PHI_PRESSURE, 0, FID_POS_ENGINE),
                                               kelFidComponi(FID_PHI_SPEED, 0, FID_POS_WHEEL),
                                               kelFidComponi(FID_PHI_RPM, 0, FID_POS_ENGINE)};
    std::vector<unsigned char> tutti(CANALI * 112);
    for (unsigned i = 0; i < CANALI; ++i) {
        unsigned char* uno = &tutti[i * 112];
        const std::string nome = "Channel " + std::to_string(i + 1);
        scrivi(uno + 12, fid[i % fid.size()], 4);
        scrivi(uno + 20, KEL_TIPO_INT16, 4);
        nome.copy(reinterpret_cast<char*>(uno) + 32, 35);
        scrivi(uno + 68, 2 * i, 4);
        scrivi(uno + 72, 2, 4);
    }
    return tutti;
}

std::vector<unsigned char> campioni(std::size_t record) {
    std::vector<unsigned char> tutti(record * PASSO);
    Casuale casuale(20011);
    for (std::size_t i = 0; i < record; ++i) {
        scrivi(&tutti[i * PASSO], static_cast<std::uint32_t>(i * 10), 4);
        for (unsigned k = 0; k < CANALI; ++k)
            scrivi(&tutti[i * PASSO + 4 + 2 * k], sotto(casuale, 20000), 2);
    }
    return tutti;
}

// What the caches hold, open for all repetitions.
struct Aperta {
    std::vector<unsigned char> byte = campioni(IN_CACHE);
    std::vector<unsigned char> record = canali();
    s_kel_registrazione* reg = kelRegApri(record.data(), record.size(), byte.data(), byte.size(), nullptr, nullptr);
    std::vector<float> valori = std::vector<float>(CANALI * IN_CACHE);
    std::vector<unsigned char> validi = std::vector<unsigned char>(CANALI * IN_CACHE / 8);
    std::array<s_kel_converter, CANALI> convertitori = {};

    Aperta() {
        for (unsigned i = 0; i < CANALI; ++i) {
            s_kel_canale canale = {};
            kelRegCanale(reg, i, &canale);
            kelConvInit(&convertitori[i], &canale, canale.fid,
                        kelFunGetConvData(canale.fid, kelFunGetUnitaBase(canale.fid)), 0, 0, 0);
        }
    }
    ~Aperta() { kelRegChiudi(reg); }
    Aperta(const Aperta&) = delete;
    Aperta& operator=(const Aperta&) = delete;
};

template <typename Opera>
void serie_di(const std::string& riga, Ruolo ruolo, const std::string& nome, std::size_t valori, Opera opera) {
    benchmark::RegisterBenchmark(nome_serie(riga, ruolo, nome).c_str(), [valori, opera](benchmark::State& stato) {
        while (stato.KeepRunningBatch(static_cast<benchmark::IterationCount>(valori))) {
            opera();
            benchmark::ClobberMemory();
        }
    });
}

void in_colonne() {
    const auto qui = std::make_shared<Aperta>();
    serie_di("recording into columns", Ruolo::nostro, "kelRegLeggi", CANALI * IN_CACHE, [qui] {
        std::array<s_kel_lettura, CANALI> letture;
        for (unsigned i = 0; i < CANALI; ++i)
            letture[i] = {i, &qui->valori[i * IN_CACHE], &qui->validi[i * IN_CACHE / 8], nullptr};
        kelRegLeggi(qui->reg, 0, IN_CACHE, letture.data(), CANALI);
    });
    serie_di("recording into columns", Ruolo::pari, "loop", CANALI * IN_CACHE, [qui] {
        for (std::size_t i = 0; i < IN_CACHE; ++i)
            for (unsigned k = 0; k < CANALI; ++k)
                kelConvGetValFloat(&qui->convertitori[k], &qui->byte[i * PASSO + 4], &qui->valori[k * IN_CACHE + i]);
    });
    serie_di("recording into columns", Ruolo::limite, "kelColLeggi", CANALI * IN_CACHE, [qui] {
        std::array<s_kel_colonna, CANALI> colonne;
        for (unsigned i = 0; i < CANALI; ++i)
            colonne[i] = {&qui->convertitori[i], &qui->valori[i * IN_CACHE], nullptr, &qui->validi[i * IN_CACHE / 8],
                          nullptr};
        kelColLeggi(&qui->byte[4], PASSO, IN_CACHE, colonne.data(), CANALI);
    });
}

#ifdef KEL_BENCH_KELFUN

// A recording in files, which are removed at the end.
struct File {
    std::string nomi = "/tmp/kel_bench_" + std::to_string(getpid());
    std::string canali = nomi + ".channels";
    std::string campioni = nomi + ".samples";

    File() {
        metti(canali, ::canali());
        metti(campioni, ::campioni(DI_FILE));
    }
    ~File() {
        unlink(canali.c_str());
        unlink(campioni.c_str());
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    static void metti(const std::string& nome, const std::vector<unsigned char>& byte) {
        const int file = open(nome.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        if (file < 0 || write(file, byte.data(), byte.size()) != static_cast<ssize_t>(byte.size()))
            std::perror(nome.c_str());
        close(file);
    }
};

// Processor seconds of a whole run of the tool, its start included; what it writes is thrown away.
double secondi(const File& file, const char* forma) {
    std::array<const char*, 6> argomenti = {"kelfun", "record", file.canali.c_str(), file.campioni.c_str(),
                                            forma,    nullptr};
    posix_spawn_file_actions_t azioni;
    posix_spawn_file_actions_init(&azioni);
    for (const int uscita : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&azioni, uscita, "/dev/null", O_WRONLY, 0);
    pid_t figlio = 0;
    rusage uso = {};
    int stato = -1;
    if (posix_spawn(&figlio, KEL_BENCH_KELFUN, &azioni, nullptr, const_cast<char**>(argomenti.data()), environ) == 0)
        wait4(figlio, &stato, 0, &uso);
    posix_spawn_file_actions_destroy(&azioni);
    if (stato != 0) {
        std::fprintf(stderr, "kelfun record %s fails\n", forma);
        std::exit(1);
    }
    const auto quanti = [](const timeval& tempo) {
        return static_cast<double>(tempo.tv_sec) + static_cast<double>(tempo.tv_usec) / 1e6;
    };
    return quanti(uso.ru_utime) + quanti(uso.ru_stime);
}

void scritte() {
    static std::unique_ptr<File> file;  // made when a row first runs
    for (const auto& [riga, forma] :
         {std::pair("recording as CSV", "--csv"), std::pair("recording as NDJSON", "--ndjson")}) {
        benchmark::RegisterBenchmark(nome_serie(riga, Ruolo::nostro, "kelfun record").c_str(),
                                     [forma = forma](benchmark::State& stato) {
                                         if (file == nullptr)
                                             file = std::make_unique<File>();
                                         for ([[maybe_unused]] auto giro : stato)
                                             stato.SetIterationTime(secondi(*file, forma) / (DI_FILE * CANALI));
                                     })
            ->UseManualTime()
            ->Iterations(1);
        // The shortest decimals alone, of the same numbers.
        serie_di(riga, Ruolo::pari, "std::to_chars", CANALI * IN_CACHE, [] {
            static const Aperta qui;
            static std::array<char, std::size_t{1} << 16> testo;
            char* dove = testo.data();
            for (std::size_t i = 0; i < CANALI * IN_CACHE; ++i) {
                float valore = 0;
                kelConvGetValFloat(&qui.convertitori[i % CANALI], &qui.byte[i / CANALI * PASSO + 4], &valore);
                dove = std::to_chars(dove, dove + 32, valore).ptr;
                *dove++ = ',';
                if (dove > testo.data() + testo.size() - 64)
                    dove = testo.data();
            }
        });
    }
}

#endif

}  // namespace

void righe_registrazioni() {
    in_colonne();
#ifdef KEL_BENCH_KELFUN
    scritte();
#endif
}
