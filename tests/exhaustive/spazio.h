// A space: all inputs of some operations, cut into parts by the top bits of the input. Every part can run on its own.
#ifndef KEL_ESAUSTIVO_SPAZIO_H
#define KEL_ESAUSTIVO_SPAZIO_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace esaustivo {

constexpr std::uint64_t mescola(std::uint64_t impronta, std::uint64_t valore) {
    const std::uint64_t prodotto = (impronta ^ valore) * 0x9E3779B97F4A7C15U;
    return prodotto ^ (prodotto >> 32);
}

constexpr std::uint64_t impronta(std::string_view testo) {
    std::uint64_t h = testo.size() + 1;
    for (const char c : testo)
        h = mescola(h, static_cast<unsigned char>(c));
    return h;
}

// What a part of a space found.
struct Esito {
    std::uint64_t casi = 0;
    std::uint64_t differenze = 0;
    std::uint64_t impronta = 1;  // of the library's outputs, in order
    double secondi = 0;
    std::vector<std::string> prime;  // the first differences, each as input, library's and model's output
};

// Takes the cases of one part.
class Conta {
public:
    explicit Conta(std::size_t da_mostrare) : da_mostrare_(da_mostrare) {}

    // One case. `valore` stands for the library's output; `racconta` makes the text of a difference.
    template <typename Racconto>
    void caso(bool uguale, std::uint64_t valore, Racconto racconta) {
        esito_.casi += 1;
        esito_.impronta = mescola(esito_.impronta, valore);
        if (!uguale) [[unlikely]] {
            esito_.differenze += 1;
            if (esito_.prime.size() < da_mostrare_)
                esito_.prime.push_back(racconta());
        }
    }

    // Compares two texts.
    template <typename Ingresso>
    void testi(std::string_view libreria, std::string_view modello, Ingresso ingresso) {
        caso(libreria == modello, esaustivo::impronta(libreria),
             [&] { return ingresso() + ": library " + citato(libreria) + ", model " + citato(modello); });
    }

    // Compares two whole numbers.
    template <typename Ingresso>
    void numeri(long long libreria, long long modello, Ingresso ingresso) {
        caso(libreria == modello, static_cast<std::uint64_t>(libreria), [&] {
            return ingresso() + ": library " + std::to_string(libreria) + ", model " + std::to_string(modello);
        });
    }

    // Compares two floats by their bits.
    template <typename Ingresso>
    void reali(float libreria, float modello, Ingresso ingresso) {
        const auto bit = std::bit_cast<std::uint32_t>(libreria);
        caso(bit == std::bit_cast<std::uint32_t>(modello), bit,
             [&] { return ingresso() + ": library " + esatto(libreria) + ", model " + esatto(modello); });
    }

    static std::string citato(std::string_view testo);
    static std::string esatto(float numero);

    const Esito& esito() const { return esito_; }

private:
    std::size_t da_mostrare_;
    Esito esito_;
};

struct Spazio {
    std::string nome;
    std::string descrizione;
    unsigned parti = 1;
    unsigned assaggio = 1;  // the run under ctest takes one part of so many
    std::function<void(unsigned parte, Conta& conta)> esegui;
    std::vector<unsigned> notevoli = {};  // and these parts, where rules change
    const void* codice = nullptr;         // a place in the file that holds its code, if that is not the program's
};

// All spaces, in the order in which they run.
std::vector<Spazio> tutti_gli_spazi();

// A number as it is written in differences: 0x and eight digits.
std::string esadecimale(std::uint32_t numero);

}  // namespace esaustivo

#endif
