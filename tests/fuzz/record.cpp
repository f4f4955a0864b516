// kelfun's recordings: a file of channel records of any bytes, and records of samples of any bytes.
//
// Proves that channels are refused or can be shown, whatever they claim and however their samples arrive.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "bersaglio.h"
#include "captures/blocco_record.h"
#include "captures/canali_record.h"
#include "captures/cella_record.h"
#include "captures/registrazione.h"
#include "file_canali.h"
#include "ingredienti.h"
#include "text/errori.h"

namespace {

using namespace kel::strumento;
using fuzz::Ingredienti;
using fuzz::pretendi;

constexpr std::size_t MASSIMO = 1U << 14;  // bytes of a record that are tried; larger ones only cost time

std::FILE* const NULLA = std::fopen("/dev/null", "w");

// All rows at hand, in every form that a table has.
void mostra(std::span<const ColonnaRecord> colonne, const Registrazione& reg, bool testi) {
    BloccoRecord blocco(reg, voci_di(colonne, testi, true));
    RigheDati::Aspetto aspetto;
    aspetto.davanti.assign(colonne.size() + 1, ",");
    RigheDati righe(NULLA, aspetto);
    a_blocchi(reg, blocco, [&] {
        for (std::size_t riga = 0; riga < blocco.righe(); ++riga) {
            righe.intero(static_cast<std::int64_t>(riga));
            for (std::size_t i = 0; i < colonne.size(); ++i) {
                pretendi(!cella_record(colonne[i], blocco, i, riga, testi).per_persone().empty(),
                         "a cell shows something");
                scrivi_record(righe, colonne[i], blocco, i, riga, testi);
            }
            righe.fine_riga();
        }
    });
}

void mostra(IFunzioni& catalogo, const std::vector<std::uint8_t>& file, s_kel_apertura apertura, Ingredienti& da) {
    SceltaColonne scelta;
    scelta.testi = da.scelta(2) == 1;
    apertura.pacchetti = scelta.testi ? 1 : 0;
    if (da.scelta(4) == 3)
        scelta.unita.push_back(da.testo());
    if (da.scelta(4) == 3)
        scelta.solo.push_back(da.testo());
    apertura.orario = static_cast<eKelOrario>(KEL_ORARIO_NESSUNO + da.scelta(3));
    const std::size_t pezzo = 1 + da.u8();
    auto resto = da.resto();
    const Registrazione reg(file, "bytes", apertura);
    const std::vector<ColonnaRecord> colonne = colonne_scelte(catalogo, reg, scelta);
    for (const ColonnaRecord& colonna : colonne)
        pretendi(!colonna.chiave().empty(), "every column has a name");
    for (bool ancora = true; ancora;) {
        ancora = !resto.empty();
        const auto arrivati = resto.first(std::min(pezzo, resto.size()));
        resto = resto.subspan(arrivati.size());
        s_kel_errore errore{};
        if (kelRegSpingi(reg.reg(), arrivati.data(), arrivati.size(), &errore) == 0) {
            pretendi(errore.testo[0] != '\0', "what is refused is said");
            return;
        }
        if (kelRegPasso(reg.reg()) <= MASSIMO)
            mostra(colonne, reg, scelta.testi);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* byte, std::size_t quanti) {
    static const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    Ingredienti da(byte, quanti);
    s_kel_apertura apertura{};
    apertura.compatta = static_cast<int>(da.scelta(2));
    const std::vector<std::uint8_t> file = fuzz::file_canali(da);
    try {
        mostra(*catalogo, file, apertura, da);
    } catch (const NonTrovato&) {
        return 0;  // refused, and said why
    } catch (const ErroreUso&) {
        return 0;
    }
    return 0;
}
