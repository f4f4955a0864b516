// The library of recordings: channels, samples and u-blox streams of any bytes, whole or in pieces.
//
// Proves that any bytes give an error or a table whose every row can be read, that a stream in pieces has the rows that it
// has as a whole, and that what is handed out to Arrow holds together and is released.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bersaglio.h"
#include "file_canali.h"
#include "ingredienti.h"
#include "kelregistrazioni.h"

namespace {

using fuzz::Ingredienti;
using fuzz::pretendi;
using Byte = std::span<const std::uint8_t>;

constexpr std::size_t RIGHE = 64;  // read of each table

struct Chiudi {
    void operator()(s_kel_registrazione* reg) const { kelRegChiudi(reg); }
};
using Registrazione = std::unique_ptr<s_kel_registrazione, Chiudi>;

// The rows at hand, each column in memory of exactly its size.
void leggi(s_kel_registrazione* reg) {
    const std::uint64_t da = kelRegPrima(reg);
    const auto quante = static_cast<std::size_t>(std::min<std::uint64_t>(kelRegRighe(reg), RIGHE));
    const auto tempi = std::make_unique<double[]>(quante);
    kelRegTempi(reg, da, quante, tempi.get());
    for (unsigned i = 0; i < kelRegNumColonne(reg); i++) {
        s_kel_descrizione descrizione{};
        pretendi(kelRegDescrivi(reg, i, &descrizione) == 1, "every column is described");
        const bool larga = descrizione.valori == KEL_VALORI_DOUBLE || descrizione.valori == KEL_VALORI_ISTANTE;
        const auto valori = std::make_unique<std::uint8_t[]>(quante * (larga ? 8 : 4));
        const auto validi = std::make_unique<std::uint8_t[]>((quante + 7) / 8);
        const auto testi = std::make_unique<char[]>(quante * 32);
        const s_kel_lettura lettura{i, valori.get(), validi.get(), testi.get()};
        pretendi(kelRegLeggi(reg, da, quante, &lettura, 1) == 1, "rows at hand can be read");
    }
    for (unsigned i = 0; i < kelRegNumCanali(reg); i++) {
        s_kel_canale canale{};
        pretendi(kelRegCanale(reg, i, &canale) != nullptr, "every channel has a name");
    }
    s_kel_conteggi conteggi{};
    if (kelRegConteggi(reg, &conteggi) == 1) {
        std::vector<s_kel_messaggi> tipi(kelRegMessaggi(reg, nullptr, 0));
        kelRegMessaggi(reg, tipi.data(), static_cast<unsigned>(tipi.size()));
        pretendi(conteggi.soluzioni == da + kelRegRighe(reg), "solutions are rows");
        for (std::size_t i = 0; i < quante; i++) {
            unsigned char payload[KEL_NAV_SOL_BYTE];
            pretendi(kelRegNavSol(reg, da + i, payload) == 1, "every solution has a payload");
        }
    }
    pretendi(kelRegAvanzoDetto(reg) != nullptr, "what is over is told");
    s_kel_lettura oltre{0, nullptr, nullptr, nullptr};
    pretendi(kelRegLeggi(reg, da + kelRegRighe(reg), 1, &oltre, 1) == 0, "there is no row behind the last");
}

void consuma(s_kel_registrazione* reg, bool testi, bool tutto) {
    ArrowArrayStream flusso{};
    pretendi(kelRegArrow(reg, kelRegPrima(reg), std::min<std::uint64_t>(kelRegRighe(reg), RIGHE), testi ? 1 : 0,
                         &flusso, nullptr) == 1,
             "every table is a stream");
    ArrowSchema schema{};
    pretendi(flusso.get_schema(&flusso, &schema) == 0, "a stream has a schema");
    for (ArrowArray array{}; tutto;) {
        pretendi(flusso.get_next(&flusso, &array) == 0, "a stream goes on to its end");
        if (array.release == nullptr)
            break;
        pretendi(array.n_children == schema.n_children, "arrays are as their schema");
        for (std::int64_t i = 0; i < array.n_children; i++) {
            const ArrowArray& figlio = *array.children[i];
            pretendi(figlio.length == array.length && figlio.null_count >= 0 && figlio.null_count <= figlio.length,
                     "columns are as long as the batch");
            if (std::strcmp(schema.children[i]->format, "u") == 0) {
                const auto* inizi = static_cast<const std::int32_t*>(figlio.buffers[1]);
                pretendi(inizi[0] == 0 && std::is_sorted(inizi, inizi + figlio.length + 1), "texts lie in their order");
            }
        }
        array.release(&array);
    }
    schema.release(&schema);
    flusso.release(&flusso);
}

// Laps of any rows are found, or it is said why not.
void giri(const s_kel_registrazione* reg, std::size_t fonte) {
    s_kel_errore errore{};
    s_kel_giri* tutti = kelGiriApri(reg, &errore);
    pretendi(tutti != nullptr && kelGiriAggiungi(tutti, &errore) == 1, "rows at hand can be taken");
    s_kel_scelte_giri scelte{};
    const s_kel_linea linea{45, 10, 90, 0};
    const s_kel_intermedio intermedi[] = {{350, {}, nullptr}, {0, linea, nullptr}};
    scelte.fonte = static_cast<eKelFonteGiri>(fonte % 3);
    scelte.linea = fonte >= 3 ? &linea : nullptr;
    scelte.intermedi = intermedi;
    scelte.num_intermedi = static_cast<unsigned>(fonte % 3);
    const bool trovati = kelGiriCalcola(tutti, &scelte, &errore) == 1;
    pretendi(trovati || errore.testo[0] != '\0', "why there is no lap is said");
    pretendi(trovati == (kelGiriNumero(tutti) != 0), "laps are there where they were found");
    for (unsigned i = 0; i < kelGiriNumero(tutti); i++) {
        s_kel_giro giro{};
        pretendi(kelGiriGiro(tutti, i, &giro) == 1 && giro.stato <= KEL_GIRO_FERMO, "every lap can be read");
        pretendi(kelGiriNomeStato(giro.stato) != nullptr, "every state has a name");
        std::vector<s_kel_punto_giro> punti(kelGiriAndamento(tutti, i, giro.metri, nullptr, 0));
        kelGiriAndamento(tutti, i, giro.metri, punti.data(), punti.size());
        pretendi(punti.empty() || giro.ms >= 0, "a closed lap alone is drawn");
        std::vector<s_kel_fix> fix(kelGiriFix(tutti, i, nullptr, 0));
        kelGiriFix(tutti, i, fix.data(), fix.size());
    }
    kelGiriChiudi(tutti);
}

// The rows of a stream that comes in pieces; nothing where it was refused.
std::uint64_t a_pezzi(s_kel_registrazione* reg, Byte byte, std::size_t pezzo, bool& rifiutata) {
    std::uint64_t righe = 0;
    s_kel_errore errore{};
    for (bool fine = false; !fine; byte = byte.subspan(std::min(pezzo, byte.size()))) {
        fine = byte.empty();
        if (kelRegSpingi(reg, byte.data(), std::min(pezzo, byte.size()), &errore) == 0) {
            pretendi(errore.testo[0] != '\0', "what is refused is said");
            rifiutata = true;
            return 0;
        }
        pretendi(kelRegPrima(reg) == righe, "rows are counted through");
        leggi(reg);
        righe += kelRegRighe(reg);
    }
    return righe;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* byte, std::size_t quanti) {
    Ingredienti da(byte, quanti);
    const std::size_t modo = da.scelta(8);
    const std::size_t pezzo = 1 + da.u8();
    if (modo < 3) {
        const Byte resto = da.resto();
        const std::vector<std::uint8_t> flusso(resto.begin(), resto.end());
        const Registrazione intero(
            kelRegApriUbx(flusso.empty() ? "" : static_cast<const void*>(flusso.data()), flusso.size(), nullptr));
        pretendi(intero != nullptr, "any stream is a table");
        leggi(intero.get());
        consuma(intero.get(), modo == 1, modo != 2);
        giri(intero.get(), pezzo % 6);
        bool rifiutata = false;
        const Registrazione pezzi(kelRegApriUbx(nullptr, 0, nullptr));
        pretendi(a_pezzi(pezzi.get(), flusso, pezzo, rifiutata) == kelRegRighe(intero.get()) && !rifiutata,
                 "pieces have the rows of the whole");
        pretendi(kelRegAvanzo(pezzi.get()) == kelRegAvanzo(intero.get()), "and the same rest");
        return 0;
    }
    const std::vector<std::uint8_t> canali = fuzz::file_canali(da);
    s_kel_apertura apertura{};
    apertura.orario = static_cast<eKelOrario>(da.scelta(4));
    apertura.compatta = da.scelta(2) == 1;
    apertura.dispositivo = da.scelta(2) == 1;
    apertura.pacchetti = da.scelta(2) == 1;
    apertura.frequenza = da.scelta(4) == 3 ? 25 : 0;
    const std::string udm = da.scelta(4) == 3 ? da.testo() : "";
    const Byte resto = da.resto();
    const std::vector<std::uint8_t> campioni(resto.begin(), resto.end());
    const void* dati = campioni.empty() ? "" : static_cast<const void*>(campioni.data());
    s_kel_errore errore{};
    const Registrazione intera(kelRegApri(canali.data(), canali.size(), dati, campioni.size(), &apertura, &errore));
    pretendi(intera != nullptr || errore.testo[0] != '\0', "what is refused is said");
    apertura.lunghezza = campioni.size();
    const Registrazione pezzi(kelRegApri(canali.data(), canali.size(), nullptr, 0, &apertura, nullptr));
    if (intera) {
        kelRegUnita(intera.get(), 0, udm.c_str());
        leggi(intera.get());
        consuma(intera.get(), modo == 3, modo != 4);
        giri(intera.get(), pezzo % 6);
    }
    if (!pezzi)
        return 0;
    bool rifiutata = false;
    const std::uint64_t righe = a_pezzi(pezzi.get(), campioni, pezzo, rifiutata);
    // The head of a stream may decide a framing that its length, known at its end, speaks against.
    pretendi(!intera || rifiutata || kelRegOrario(pezzi.get()) != kelRegOrario(intera.get()) ||
                 righe == kelRegRighe(intera.get()),
             "pieces have the rows of the whole");
    return 0;
}
