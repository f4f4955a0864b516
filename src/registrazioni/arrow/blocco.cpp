#include "arrow/blocco.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <vector>

#include "arrow/schema.h"
#include "common/utf8.h"

namespace kel_registrazioni {

namespace {

constexpr std::size_t ALLINEAMENTO = 64;  // what Arrow recommends
constexpr std::size_t TESTO = 32;

struct Libera {
    void operator()(void* memoria) const { std::free(memoria); }
};
using Memoria = std::unique_ptr<void, Libera>;

// Whole lines of the cache, the last of them zeroed: what lies behind the last row is the same everywhere.
Memoria memoria(std::size_t byte) {
    const std::size_t tondi = std::max((byte + ALLINEAMENTO - 1) / ALLINEAMENTO * ALLINEAMENTO, ALLINEAMENTO);
    Memoria nuova(std::aligned_alloc(ALLINEAMENTO, tondi));
    if (!nuova)
        throw std::bad_alloc();
    std::memset(static_cast<char*>(nuova.get()) + tondi - ALLINEAMENTO, 0, ALLINEAMENTO);
    return nuova;
}

// What an array points to.
struct Sostegno {
    std::vector<Memoria> memorie;
    std::vector<const void*> buffer;
    std::vector<std::unique_ptr<ArrowArray>> figli;
    std::vector<ArrowArray*> puntatori;
};

void rilascia(ArrowArray* array) {
    const std::unique_ptr<Sostegno> suo(static_cast<Sostegno*>(array->private_data));
    for (const auto& figlio : suo->figli)
        if (figlio->release != nullptr)
            figlio->release(figlio.get());
    array->release = nullptr;
}

void riempi(ArrowArray& array, std::unique_ptr<Sostegno> suo, std::size_t righe, std::int64_t nulle) {
    array = {};
    array.length = static_cast<std::int64_t>(righe);
    array.null_count = nulle;
    array.n_buffers = static_cast<std::int64_t>(suo->buffer.size());
    array.buffers = suo->buffer.data();
    array.n_children = static_cast<std::int64_t>(suo->puntatori.size());
    array.children = suo->puntatori.empty() ? nullptr : suo->puntatori.data();
    array.release = rilascia;
    array.private_data = suo.release();
}

std::size_t larghezza(eKelValori valori) {
    return valori == KEL_VALORI_DOUBLE || valori == KEL_VALORI_ISTANTE ? 8 : 4;
}

// A column while it is filled: validity, and values or texts.
struct Colonna {
    Memoria validi;
    Memoria valori;  // or the offsets of texts
    Memoria testi;   // 32 bytes a row, then one behind the other
    bool testo = false;
    bool sempre = false;  // a packet has a text in each row

    std::unique_ptr<ArrowArray> chiudi(std::size_t righe);
};

// Texts of 32 bytes a row become one behind the other, in place: none of them moves up.
void accosta(char* testi, const unsigned char* validi, std::int32_t* inizi, std::size_t righe) {
    std::int32_t fine = 0;
    for (std::size_t i = 0; i < righe; ++i) {
        inizi[i] = fine;
        if ((validi[i / 8] >> i % 8 & 1) == 0)
            continue;
        const char* suo = testi + i * TESTO;
        const std::string_view testo(suo, static_cast<std::size_t>(std::find(suo, suo + TESTO, '\0') - suo));
        const bool ascii = std::ranges::all_of(testo, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
        if (ascii)
            std::memmove(testi + fine, testo.data(), testo.size());
        else
            std::ranges::copy(come_utf8(testo), testi + fine);
        fine += static_cast<std::int32_t>(testo.size());
    }
    inizi[righe] = fine;
}

std::unique_ptr<ArrowArray> Colonna::chiudi(std::size_t righe) {
    auto* bitmap = static_cast<unsigned char*>(validi.get());
    const std::size_t byte = (righe + 7) / 8;
    if (sempre)
        for (std::size_t i = 0; i < righe; ++i)
            bitmap[i / 8] = static_cast<unsigned char>(bitmap[i / 8] | 1u << i % 8);
    if (testo)
        accosta(static_cast<char*>(testi.get()), bitmap, static_cast<std::int32_t*>(valori.get()), righe);
    std::size_t valide = 0;
    for (std::size_t i = 0; i < byte; ++i)
        valide += static_cast<std::size_t>(std::popcount(bitmap[i]));
    auto suo = std::make_unique<Sostegno>();
    suo->memorie.reserve(3);
    suo->buffer.reserve(3);
    for (Memoria* una : {&validi, &valori, &testi})
        if (*una) {
            suo->buffer.push_back(una->get());
            suo->memorie.push_back(std::move(*una));
        }
    auto array = std::make_unique<ArrowArray>();
    riempi(*array, std::move(suo), righe, static_cast<std::int64_t>(righe - valide));
    return array;
}

Colonna colonna(std::size_t righe, std::size_t larga, bool testo) {
    Colonna nuova;
    nuova.testo = testo;
    nuova.validi = memoria((righe + 7) / 8);
    nuova.valori = memoria(testo ? (righe + 1) * sizeof(std::int32_t) : righe * larga);
    if (testo)
        nuova.testi = memoria(righe * TESTO);
    return nuova;
}

Colonna tempi(Tabella& tabella, std::uint64_t da, std::size_t righe) {
    Colonna nuova = colonna(righe, sizeof(std::int64_t), false);
    auto* bitmap = static_cast<unsigned char*>(nuova.validi.get());
    auto* valori = static_cast<std::int64_t*>(nuova.valori.get());
    std::memset(bitmap, 0, (righe + 7) / 8);
    for (std::size_t i = 0; i < righe; ++i) {
        valori[i] = 0;
        if (const auto tempo = tabella.microsecondi(da + i)) {
            valori[i] = *tempo;
            bitmap[i / 8] = static_cast<unsigned char>(bitmap[i / 8] | 1u << i % 8);
        }
    }
    return nuova;
}

// While it is put together nobody else releases the columns.
struct Tutti {
    std::vector<std::unique_ptr<ArrowArray>> figli;
    ~Tutti() {
        for (const auto& figlio : figli)
            figlio->release(figlio.get());
    }
};

}  // namespace

void blocco(Tabella& tabella, bool testi, std::uint64_t da, std::size_t quante, ArrowArray& uscita) {
    const std::vector<VoceColonna>& voci = tabella.voci();
    std::vector<Colonna> colonne;
    std::vector<s_kel_lettura> letture;
    colonne.reserve(voci.size() + 1);
    if (tabella.con_tempo())
        colonne.push_back(tempi(tabella, da, quante));
    for (std::size_t i = 0; i < voci.size(); ++i) {
        const bool testo = come_testo(voci[i], testi);
        Colonna& sua = colonne.emplace_back(colonna(quante, larghezza(voci[i].valori), testo));
        sua.sempre = voci[i].valori == KEL_VALORI_NESSUNO;
        letture.push_back({static_cast<unsigned>(i), testo ? nullptr : sua.valori.get(),
                           static_cast<unsigned char*>(sua.validi.get()), static_cast<char*>(sua.testi.get())});
    }
    tabella.leggi(da, quante, letture);
    Tutti array;
    array.figli.reserve(colonne.size());
    for (Colonna& una : colonne)
        array.figli.push_back(una.chiudi(quante));
    auto suo = std::make_unique<Sostegno>();
    suo->buffer.push_back(nullptr);  // a row itself is always there
    suo->puntatori.reserve(array.figli.size());
    suo->figli = std::move(array.figli);
    for (const auto& figlio : suo->figli)
        suo->puntatori.push_back(figlio.get());
    riempi(uscita, std::move(suo), quante, 0);
}

}  // namespace kel_registrazioni
