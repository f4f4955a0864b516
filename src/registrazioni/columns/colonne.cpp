#include "columns/colonne.h"

#include <cmath>
#include <cstdint>
#include <cstring>

#include "columns/riconoscimento.h"
#include "columns/testi.h"
#include "columns/una_alla_volta.h"

namespace kel_colonne {
namespace {

// Columns whose plans fit the stack; more are read in groups.
constexpr unsigned COLONNE_PER_GRUPPO = 64;

// What is written is brought into the caches before it is overwritten, unless it is more than they can hold.
constexpr std::size_t BYTE_OLTRE_CACHE = 16 << 20;

// How one column is read.
struct Piano {
    const s_kel_colonna* colonna;
    Lettura lettura;
    Scrittura scrittura;
    Conversione conversione;
};

// What a block of samples is read into on its way.
struct Banco {
    alignas(64) unsigned char densi[CAMPIONI_PER_BLOCCO * 4];
    alignas(64) float valori[CAMPIONI_PER_BLOCCO];
    alignas(64) unsigned char stati[CAMPIONI_PER_BLOCCO];
};

Piano prepara(const s_kel_colonna& colonna, std::size_t numero, Riconoscitore& riconoscitore) noexcept {
    Piano piano = {&colonna, Lettura::sconosciuta, Scrittura::sconosciuta, {}};
    const s_kel_converter& conv = *colonna.conv;
    if (colonna.testi != nullptr && conv.testo != nullptr)
        piano.scrittura = riconoscitore.scrittura(conv.testo);
    if (conv.valore == nullptr)
        return piano;
    piano.lettura = riconoscitore.lettura(conv.valore, numero / 16);
    if (piano.lettura == Lettura::sconosciuta)
        return piano;
    piano.conversione = {&conv, 1.0f, 0.0f, conv.maschera, conv.pos_bit, conv.num_bit};
    Conversione& conversione = piano.conversione;
    if (conversione.num_bit > 8)
        conversione.num_bit = 8;
    if (conversione.pos_bit >= 32)
        conversione.maschera = conversione.pos_bit = 0;
    if (usa_dati(piano.lettura)) {
        conversione.gain = conv.dati->gain;
        conversione.offset = conv.dati->offset;
        // Of two NaNs an addition keeps either, as the compiler has ordered them: such units are left to the converter.
        if (std::isnan(conversione.gain) || std::isnan(conversione.offset))
            piano.lettura = Lettura::sconosciuta;
    }
    return piano;
}

void segna_tutti_validi(unsigned char* validi, std::size_t numero) noexcept {
    std::memset(validi, 0xFF, numero / 8);
    if (numero % 8 != 0)
        validi[numero / 8] = static_cast<unsigned char>((1u << numero % 8) - 1u);
}

// One block of one column: at most `CAMPIONI_PER_BLOCCO` samples, the first of which is sample `primo` of the column.
void leggi_blocco(const Nuclei& nuclei, const Piano& piano, const unsigned char* campioni, std::size_t passo,
                  std::size_t numero, std::size_t primo, bool oltre_cache, Banco& banco) noexcept {
    const s_kel_colonna& colonna = *piano.colonna;
    const BloccoTesti testi = {campioni, passo, numero,
                               colonna.testi != nullptr ? colonna.testi + primo * BYTE_TESTO : nullptr};
    if (piano.lettura == Lettura::sconosciuta) {
        if (colonna.valori != nullptr || colonna.stati != nullptr || colonna.validi != nullptr)
            leggi_uno_a_uno(campioni, passo, numero, colonna, primo);
        if (colonna.testi != nullptr)
            scrivi_testi(nuclei, piano.scrittura, *colonna.conv, testi);
        return;
    }
    const bool in_numeri = piano.scrittura == Scrittura::numero;
    const Nucleo& nucleo = nuclei.letture[static_cast<std::size_t>(piano.lettura)];
    const unsigned char* densi = campioni;
    if (nucleo.byte != 0 && passo != nucleo.byte) {
        nuclei.raccogli(campioni, passo, numero, nucleo.byte, banco.densi);
        densi = banco.densi;
    }

    float* const valori = colonna.valori != nullptr && !oltre_cache ? colonna.valori + primo : banco.valori;
    bool buoni = nucleo.stati == nullptr;
    bool controllati = buoni;
    if (colonna.valori != nullptr || in_numeri) {
        buoni = nucleo.valori(densi, passo, numero, piano.conversione, valori);
        controllati = true;
    }
    if (colonna.valori != nullptr && oltre_cache)
        nuclei.copia_oltre(valori, numero, colonna.valori + primo);

    unsigned char* const stati = colonna.stati != nullptr ? colonna.stati + primo : banco.stati;
    const bool stati_chiesti = colonna.stati != nullptr || in_numeri;
    if (stati_chiesti || colonna.validi != nullptr) {
        // Where the values have told already that all are good, the statuses are not looked at again.
        if (!controllati || !buoni)
            buoni = nucleo.stati(densi, numero, stati);
        if (buoni) {
            if (stati_chiesti)
                std::memset(stati, 0, numero);
            if (colonna.validi != nullptr)
                segna_tutti_validi(colonna.validi + primo / 8, numero);
        } else if (colonna.validi != nullptr) {
            nuclei.bit_validi(stati, numero, colonna.validi + primo / 8);
        }
    }

    if (in_numeri)
        scrivi_numeri(nuclei, *colonna.conv, testi, valori, stati);
    else if (colonna.testi != nullptr)
        scrivi_testi(nuclei, piano.scrittura, *colonna.conv, testi);
}

// Records of one block: as many as stay in the nearest cache while every column is read from them.
std::size_t record_per_blocco(std::size_t passo, unsigned num_colonne) noexcept {
    constexpr std::size_t byte_vicini = 32 << 10;
    constexpr std::size_t minimo = 64;
    if (num_colonne == 1 || passo <= byte_vicini / CAMPIONI_PER_BLOCCO)
        return CAMPIONI_PER_BLOCCO;
    const std::size_t record = byte_vicini / passo / minimo * minimo;
    return record < minimo ? minimo : record;
}

// Asks for a part of the next block's records, so that they are at hand when their turn comes: part `quale` of `parti`.
void chiama_parte(const unsigned char* record, std::size_t byte, unsigned quale, unsigned parti) noexcept {
    constexpr std::size_t riga_di_cache = 64;
    const std::size_t fine = byte * (quale + 1) / parti;
    for (std::size_t da = byte * quale / parti; da < fine; da += riga_di_cache)
        __builtin_prefetch(record + da, 0, 2);
}

void leggi_gruppo(const Nuclei& nuclei, const unsigned char* record, std::size_t passo, std::size_t numero,
                  const s_kel_colonna* colonne, unsigned num_colonne) noexcept {
    Piano piani[COLONNE_PER_GRUPPO];
    Riconoscitore riconoscitore;
    std::size_t colonne_di_valori = 0;
    for (unsigned i = 0; i < num_colonne; ++i) {
        piani[i] = prepara(colonne[i], numero, riconoscitore);
        colonne_di_valori += colonne[i].valori != nullptr ? 1 : 0;
    }
    const bool oltre_cache = nuclei.copia_oltre != nullptr && colonne_di_valori != 0 &&
                             numero > BYTE_OLTRE_CACHE / sizeof(float) / colonne_di_valori;
    Banco banco;  // NOLINT(cppcoreguidelines-pro-type-member-init): each block writes what it reads
    const std::size_t blocco = record_per_blocco(passo, num_colonne);
    for (std::size_t primo = 0; primo < numero; primo += blocco) {
        const std::size_t quanti = numero - primo < blocco ? numero - primo : blocco;
        const std::size_t restano = numero - primo - quanti;
        // A single column is read from end to end, which the processor sees for itself.
        const std::size_t prossimi = num_colonne == 1 ? 0 : (restano < blocco ? restano : blocco) * passo;
        for (unsigned i = 0; i < num_colonne; ++i) {
            leggi_blocco(nuclei, piani[i], record + primo * passo + colonne[i].conv->offset_campione, passo, quanti,
                         primo, oltre_cache, banco);
            chiama_parte(record + (primo + quanti) * passo, prossimi, i, num_colonne);
        }
    }
    if (oltre_cache)
        nuclei.fine_oltre();
}

}  // namespace

void leggi_poche(const void* record, std::size_t passo, std::size_t numero, const s_kel_colonna* colonne,
                 unsigned num_colonne) noexcept {
    const auto* primo = static_cast<const unsigned char*>(record);
    if (numero == 0)
        return;
    for (const s_kel_colonna* colonna = colonne; colonna != colonne + num_colonne; ++colonna) {
        const s_kel_converter* conv = colonna->conv;
        const unsigned char* campioni = primo + conv->offset_campione;
        const bool soli_valori = colonna->stati == nullptr && colonna->validi == nullptr && colonna->testi == nullptr;
        if (soli_valori && colonna->valori != nullptr && conv->valore != nullptr) {
            // As short as can be: so few that the way here counts.
            std::uint32_t stato = 0;
            for (std::size_t i = 0; i < numero; ++i, campioni += passo)
                colonna->valori[i] = conv->valore(conv, campioni, &stato);
            continue;
        }
        leggi_uno_a_uno(campioni, passo, numero, *colonna, 0);
        if (colonna->testi != nullptr)
            scrivi_uno_a_uno(*colonna->conv, {campioni, passo, numero, colonna->testi});
    }
}

void leggi_colonne(const Nuclei& nuclei, const void* record, std::size_t passo, std::size_t numero,
                   const s_kel_colonna* colonne, unsigned num_colonne) noexcept {
    const auto* primo = static_cast<const unsigned char*>(record);
    if (numero < POCHI) {
        leggi_poche(record, passo, numero, colonne, num_colonne);
        return;
    }
    for (unsigned i = 0; i < num_colonne; i += COLONNE_PER_GRUPPO) {
        const unsigned gruppo = num_colonne - i < COLONNE_PER_GRUPPO ? num_colonne - i : COLONNE_PER_GRUPPO;
        leggi_gruppo(nuclei, primo, passo, numero, colonne + i, gruppo);
    }
}

}  // namespace kel_colonne
