// How a series is measured: one operation on pre-generated inputs, in an order that branch prediction cannot learn.
#ifndef KEL_BENCH_PROVA_H
#define KEL_BENCH_PROVA_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace prova {

/// What a series is in its row of the table: this library, a peer (what a program would otherwise use), or the limit
/// (code written by hand for this row alone).
enum class Ruolo { nostro, pari, limite };

inline constexpr std::size_t QUANTI_INGRESSI = 4096;

/// Indexes of the inputs in random order. The order is longer than what a branch predictor remembers.
const std::vector<std::uint16_t>& ordine();

/// The same numbers on every machine and in every run.
using Casuale = std::mt19937;

/// A number from 0 up to, not including, `limite`.
inline std::uint32_t sotto(Casuale& casuale, std::uint32_t limite) {
    return static_cast<std::uint32_t>((std::uint64_t{casuale()} * limite) >> 32);
}

/// A number from `basso` up to `alto`.
inline double fra(Casuale& casuale, double basso, double alto) {
    return basso + (alto - basso) * (static_cast<double>(casuale()) / 4294967296.0);
}

template <typename Ingresso>
using Ingressi = std::shared_ptr<const std::vector<Ingresso>>;

/// Inputs made by a function of a random generator.
template <typename Genera>
auto genera(Genera uno) {
    using Ingresso = std::decay_t<std::invoke_result_t<Genera, Casuale&>>;
    auto ingressi = std::make_shared<std::vector<Ingresso>>();
    Casuale casuale(20011);
    for (std::size_t i = 0; i < QUANTI_INGRESSI; ++i)
        ingressi->push_back(uno(casuale));
    return Ingressi<Ingresso>(ingressi);
}

/// Name of a series: scripts/bench takes it apart again.
std::string nome_serie(const std::string& riga, Ruolo ruolo, const std::string& nome);

/// Registers a series of a row. `opera` takes an input and gives a result, which counts as used.
template <typename Ingresso, typename Opera>
void serie(const std::string& riga, Ruolo ruolo, const std::string& nome, const Ingressi<Ingresso>& ingressi,
           Opera opera) {
    benchmark::RegisterBenchmark(nome_serie(riga, ruolo, nome).c_str(),
                                 [ingressi, opera](benchmark::State& stato) mutable {
                                     const Ingresso* const ingresso = ingressi->data();
                                     const std::uint16_t* const posti = ordine().data();
                                     const std::size_t fine = ordine().size() - 1;
                                     std::size_t i = 0;
                                     for ([[maybe_unused]] auto giro : stato) {
                                         auto risultato = opera(ingresso[posti[i]]);
                                         benchmark::DoNotOptimize(risultato);
                                         i = (i + 1) & fine;
                                     }
                                 });
}

/// Stops the program when two series of a row give different answers: their times could not be compared.
template <typename Ingresso, typename Una, typename Altra>
void concordi(const std::string& riga, const Ingressi<Ingresso>& ingressi, Una una, Altra altra) {
    for (std::size_t i = 0; i < ingressi->size(); ++i)
        if (!(una((*ingressi)[i]) == altra((*ingressi)[i]))) {
            std::fprintf(stderr, "%s: the two series give different answers for input %zu\n", riga.c_str(), i);
            std::exit(1);
        }
}

}  // namespace prova

#endif
