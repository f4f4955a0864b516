// Columns, read with each set of loops that the machine can run and by the library's own choice: the digest is that of the
// loops for every processor, and tells of every other set whether it gives the same.
#include <array>
#include <cstring>
#include <vector>

#include "columns/colonne.h"
#include "columns/nuclei.h"
#include "comune/tipi_campione.h"
#include "famiglie.h"
#include "kelregistrazioni.h"

namespace digest {

namespace {

constexpr std::size_t CAMPIONI = 300;
constexpr std::size_t COLONNE = 8;
constexpr std::size_t PASSO = 80;

struct Dati {
    std::array<s_converter_data, COLONNE> unita;
    std::array<s_kel_converter, COLONNE> convertitori;
    std::vector<unsigned char> byte = std::vector<unsigned char>(CAMPIONI * PASSO + 128);
    std::size_t passo;
    std::size_t numero;
};

// What one column is read into.
struct Letta {
    std::array<float, CAMPIONI> valori;
    std::array<unsigned char, CAMPIONI> stati;
    std::array<unsigned char, (CAMPIONI + 7) / 8> validi;
    std::array<char, CAMPIONI * 32> testi;
    std::uint32_t decimali;
};

float reale(Caso& caso) {
    const std::uint32_t bit = caso.bit_reale();
    float numero;
    std::memcpy(&numero, &bit, sizeof numero);
    return numero;
}

void riempi(Caso& caso, Dati& dati) {
    for (std::size_t i = 0; i + 16 <= dati.byte.size(); i += 16)
        caso.campione({dati.byte.data() + i, 16});
    constexpr std::array<std::size_t, 8> passi = {0, 1, 2, 4, 8, 17, 56, PASSO};
    dati.passo = passi[caso.sotto(passi.size())];
    dati.numero = caso.uno_su(4) ? caso.sotto(64) : caso.sotto(CAMPIONI + 1);
    for (std::size_t i = 0; i < COLONNE; ++i) {
        s_converter_data& unita = dati.unita[i];
        unita.udm = "";
        unita.offset = reale(caso);
        unita.gain = reale(caso);
        unita.reciproco = caso.uno_su(4) ? 1 : 0;
        s_kel_canale canale = {};
        canale.tipo_campione = caso.sotto(kel_test::TIPI_CAMPIONE + 1);
        canale.offset_campione = caso.sotto(40);
        canale.fid = caso.uno_su(3) ? caso.pacchetto() : caso.fid();
        const kel_funpos fid = caso.uno_su(2) ? caso.sottocampo() : canale.fid;
        const auto pos_bit = static_cast<unsigned short>(caso.uno_su(2) ? caso.sotto(34) : 0);
        const auto num_bit = static_cast<unsigned short>(caso.uno_su(2) ? caso.sotto(34) : 0);
        s_kel_converter& conv = dati.convertitori[i];
        std::memset(&conv, 0, sizeof conv);
        kelConvInit(&conv, &canale, fid, &unita, pos_bit, num_bit, 0);
        conv.larghezza = caso.sotto(12);
        conv.decimali = caso.sotto(5);
        conv.auto_decimali = caso.sotto(2);
        conv.formato = static_cast<eFormatoConv>(caso.sotto(4));
    }
}

// Reads with a set of loops, or with the library's choice.
std::vector<Letta> leggi(const kel_colonne::Nuclei* nuclei, const Dati& dati) {
    std::vector<Letta> lette(COLONNE);
    std::array<s_kel_converter, COLONNE> convertitori = dati.convertitori;
    std::array<s_kel_colonna, COLONNE> colonne;
    for (std::size_t i = 0; i < COLONNE; ++i) {
        std::memset(static_cast<void*>(&lette[i]), 0, sizeof lette[i]);
        colonne[i] = {&convertitori[i], lette[i].valori.data(), lette[i].stati.data(), lette[i].validi.data(),
                      lette[i].testi.data()};
    }
    if (nuclei != nullptr)
        kel_colonne::leggi_colonne(*nuclei, dati.byte.data(), dati.passo, dati.numero, colonne.data(), COLONNE);
    else
        kelColLeggi(dati.byte.data(), dati.passo, dati.numero, colonne.data(), COLONNE);
    for (std::size_t i = 0; i < COLONNE; ++i)
        lette[i].decimali = convertitori[i].decimali;
    return lette;
}

void colonne(Caso& caso, Impronta& impronta) {
    Dati dati;
    riempi(caso, dati);
    const kel_colonne::InsiemiNuclei possibili = kel_colonne::nuclei_possibili();
    const std::vector<Letta> lette = leggi(possibili.insiemi[0], dati);
    for (const Letta& letta : lette) {
        for (const float valore : letta.valori)
            impronta.reale(valore);
        impronta.byte(letta.stati.data(), letta.stati.size());
        impronta.byte(letta.validi.data(), letta.validi.size());
        impronta.byte(letta.testi.data(), letta.testi.size());
        impronta.numero(letta.decimali);
    }
    unsigned diverse = 0;
    for (unsigned i = 1; i <= possibili.numero; ++i) {
        const std::vector<Letta> altre = leggi(i < possibili.numero ? possibili.insiemi[i] : nullptr, dati);
        for (std::size_t j = 0; j < COLONNE; ++j)
            diverse += std::memcmp(&altre[j], &lette[j], sizeof(Letta)) != 0 ? 1 : 0;
    }
    impronta.numero(diverse);
}

constexpr Famiglia FAMIGLIE[] = {{"kelColLeggi", 16, colonne}};

}  // namespace

std::span<const Famiglia> famiglie_colonne() {
    return FAMIGLIE;
}

}  // namespace digest
