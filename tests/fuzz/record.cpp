// kelfun's recordings: a file of channel records of any bytes, and records of samples of any bytes.
//
// Proves that channels are refused or can be shown: no column reads outside its record, whatever the channels claim, and
// the records of a stream do not depend on how it arrives.
#include <algorithm>
#include <memory>
#include <vector>

#include "bersaglio.h"
#include "captures/canali_record.h"
#include "comune/tipi_campione.h"
#include "ingredienti.h"
#include "registrazioni/common/errore.h"
#include "registrazioni/recordings/canali.h"
#include "registrazioni/recordings/lettore_record.h"
#include "text/errori.h"

namespace {

using namespace kel::strumento;
using fuzz::Ingredienti;
using fuzz::pretendi;

constexpr std::size_t MASSIMO = 1U << 14;  // bytes of a record that are tried; larger ones only cost time

// Channel records: any bytes, but some fields more likely to be accepted.
std::vector<std::uint8_t> channels(Ingredienti& da) {
    std::vector<std::uint8_t> byte;
    for (std::size_t quanti = da.scelta(5); quanti > 0; quanti--) {
        s_kel_canale canale{};
        canale.fid = da.u32();
        canale.tipo_campione = da.u8() % (kel_test::TIPI_CAMPIONE + 1);
        canale.offset_campione = da.u8();
        canale.dim_buffer = da.u8() < 192 ? kelFunGetSamplSize(canale.tipo_campione) : da.u16();
        const auto nome = da.byte(da.u8() % (sizeof canale.nome + 1));
        std::ranges::copy(nome, canale.nome);
        const auto* primo = reinterpret_cast<const std::uint8_t*>(&canale);
        byte.insert(byte.end(), primo, primo + sizeof canale);
    }
    const auto altri = da.byte(da.u8() < 250 ? 0 : da.u16());
    byte.insert(byte.end(), altri.begin(), altri.end());
    return byte;
}

void mostra(IFunzioni& catalogo, const std::vector<s_kel_canale>& canali, Ingredienti& da) {
    SceltaColonne scelta;
    scelta.testi = da.scelta(2) == 1;
    if (da.scelta(4) == 3)
        scelta.unita.push_back(da.testo());
    if (da.scelta(4) == 3)
        scelta.solo.push_back(da.testo());
    std::vector<ColonnaRecord> colonne = colonne_record(catalogo, canali, scelta);
    const std::size_t dimensione = dimensione_record(canali);
    const auto orario = static_cast<Orario>(da.scelta(3));
    const std::size_t pezzo = 1 + da.u8();
    auto resto = da.resto();
    const std::size_t attesi = resto.size() / (dimensione + byte_orario(orario));
    LettoreRecord lettore(
        [&resto, pezzo](std::uint8_t* dove, std::size_t spazio) {
            const auto arrivati = resto.first(std::min({spazio, pezzo, resto.size()}));
            std::ranges::copy(arrivati, dove);
            resto = resto.subspan(arrivati.size());
            return arrivati.size();
        },
        dimensione, orario);
    // In a block of exactly its size.
    const auto campioni = std::make_unique<std::uint8_t[]>(dimensione);
    while (lettore.prossimo()) {
        std::copy_n(lettore.campioni(), dimensione, campioni.get());
        for (ColonnaRecord& colonna : colonne) {
            colonna.cella(campioni.get(), scelta.testi);
            colonna.valore(campioni.get());
            colonna.testo(campioni.get());
            colonna.titolo();
            colonna.chiave();
        }
    }
    pretendi(lettore.record() == attesi, "every whole record is read");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* byte, std::size_t quanti) {
    static const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    Ingredienti da(byte, quanti);
    const auto disposizione = da.scelta(2) == 0 ? Disposizione::dichiarata : Disposizione::compatta;
    const std::vector<std::uint8_t> file = channels(da);
    try {
        const std::vector<s_kel_canale> canali = leggi_canali(file, disposizione);
        if (dimensione_record(canali) <= MASSIMO)
            mostra(*catalogo, canali, da);
    } catch (const Errore&) {
        return 0;  // refused, and said why
    } catch (const ErroreUso&) {
        return 0;
    }
    return 0;
}
