// Matching: channels of every kind against requests in which every field is empty, the channel's own, or another.
#include <array>
#include <optional>

#include "exhaustive/libreria.h"
#include "exhaustive/spazi.h"
#include "model/campi.h"
#include "model/canali.h"

namespace esaustivo {

namespace {

using modello::Fid;

std::vector<Fid> canali_provati() {
    std::vector<Fid> canali = {0, 0x10, 0x05070010, 0x0040060B, 0x1F40060B, 0x07C0060B, 0x1C};
    for (const modello::RigaVecchia& riga : modello::tabelle().funz_kel)
        canali.push_back(riga.fid);
    for (unsigned dettagli = 0; dettagli <= 4; dettagli++)
        for (unsigned spec = 0; spec <= 3; spec++)
            canali.push_back(modello::componi(26, dettagli, spec));
    return canali;
}

// Nothing, the value itself, and two others, of a field of so many values.
std::array<unsigned, 4> scelte(unsigned valore, unsigned valori) {
    return {0, valore, (valore + 1) % valori, (valore + valori / 2 + 1) % valori};
}

template <typename Prova>
void per_ogni_richiesta(Fid c, Prova prova) {
    for (const unsigned q : scelte(modello::grandezza(c), 128))
        for (const unsigned o : scelte(modello::oggetto(c), 256))
            for (const unsigned p : scelte(modello::posizione(c), 32))
                for (unsigned alti = 0; alti < 1024; alti++)  // all of bits 20 to 28, and bit 31
                    prova(modello::componi(q, o, p) | (alti & 0x1FFU) << 20 | (alti & 0x200U) << 22);
    for (const auto& [nome, righe] : modello::tabelle().sottocampi)
        for (const modello::RigaSottocampo& riga : righe)
            for (const Fid fid : {riga.fid, riga.fid | 0x00100000U, riga.fid | 0x80000000U, riga.fid ^ 0x8000U})
                prova(fid);
}

// Alone in its set every channel is found or not; in a set of three its place is found.
void corrispondenze(unsigned parte, Conta& conta) {
    const std::vector<Fid> provati = canali_provati();
    const Fid c = provati.at(parte);
    std::vector<modello::Canale> canali(3);
    std::array<s_kel_canale, 3> record{};
    for (std::size_t i = 0; i < 3; i++)
        record.at(i).fid = canali.at(i).fid = i == 1 ? c : provati.at((parte + 3 * i + 1) % provati.size());
    s_set_canali set{};
    kelFunInit(&set, record.data(), 3, 3);
    const modello::SetCanali modello{&canali, 3, 3};
    const auto posto = [&](const s_kel_canale* trovato) { return trovato == nullptr ? -1 : trovato - record.data(); };
    const auto atteso = [](const std::optional<unsigned>& uno) { return uno ? static_cast<long long>(*uno) : -1; };
    per_ogni_richiesta(c, [&](Fid fid) {
        const auto dove = [&] { return "request " + esadecimale(fid) + " beside channel " + esadecimale(c); };
        conta.numeri(posto(kelFunGetMatchCh(&set, fid)), atteso(modello.corrispondente(fid)), dove);
        conta.numeri(posto(kelFunGetMatchChFull(&set, fid)), atteso(modello.corrispondente_pieno(fid)), dove);
        std::array<s_kel_canale*, 3> trovati{};
        unsigned numero = 3;
        const int esito = kelFunGetMatchChList(&set, fid, trovati.data(), &numero);
        std::array<s_kel_canale*, 3> attesi{};
        const auto lista = modello.corrispondenti(fid, 3);
        for (std::size_t i = 0; lista && i < lista->size(); i++)
            attesi.at(i) = &record.at(lista->at(i));
        conta.caso((esito == 1) == lista.has_value() && numero == (lista ? lista->size() : 3) && trovati == attesi,
                   numero, [&] { return dove() + ": another list"; });
    });
}

}  // namespace

std::vector<Spazio> spazi_canali() {
    return {{"matching", "requests with every field empty, equal or other, in sets of three channels",
             static_cast<unsigned>(canali_provati().size()), 1, corrispondenze}};
}

}  // namespace esaustivo
