// Packets: every fix type with every number of satellites, subfields of every kind of packet, packets without system.
#include <algorithm>
#include <array>
#include <list>
#include <map>

#include "CConverter.h"
#include "exhaustive/lettore.h"
#include "exhaustive/spazi.h"
#include "model/campi.h"
#include "model/sottocampi.h"

namespace esaustivo {

namespace {

using modello::Byte;
using modello::Canale;
using modello::Fid;
using Pacchetto = std::array<Byte, 64>;

// Channels of the packets: identifier and sample type.
std::vector<Canale> canali() {
    std::vector<Canale> tutti;
    const auto metti = [&](unsigned dettagli, unsigned spec, unsigned tipo) {
        Canale canale;
        canale.fid = modello::componi(26, dettagli, spec);
        canale.tipo = tipo;
        canale.offset = 3;
        tutti.push_back(canale);
    };
    metti(3, 0, 8);
    metti(3, 1, 9);
    metti(1, 0, 7);
    metti(1, 1, 17);
    metti(1, 2, 7);
    metti(2, 0, 10);
    metti(3, 2, 18);  // no subfield table
    return tutti;
}

void numero32(Pacchetto& pacchetto, std::size_t posto, std::uint32_t numero) {
    for (std::size_t i = 0; i < 4; i++)
        pacchetto[posto + i] = static_cast<Byte>(numero >> (8 * i));
}

class Caso {
public:
    explicit Caso(std::uint32_t seme) : stato_(seme * 2654435761U + 1) {}
    std::uint32_t operator()() {
        stato_ ^= stato_ << 13;
        stato_ ^= stato_ >> 17;
        stato_ ^= stato_ << 5;
        return stato_;
    }

private:
    std::uint32_t stato_;
};

// A packet of any bytes; one in four is a solution that the receivers could send: good fix, small speeds, a place on
// the Earth in centimetres or metres.
Pacchetto pacchetto(Caso& caso) {
    Pacchetto byte;
    for (Byte& uno : byte)
        uno = static_cast<Byte>(caso() >> 11);
    const std::uint32_t scelta = caso() % 8;
    if (scelta < 4) {
        byte[14] = static_cast<Byte>(scelta);
        byte[51] = static_cast<Byte>(caso() % 16);
        for (std::size_t i = 0; i < 3; i++) {
            numero32(byte, 32 + 4 * i, caso() % 20001 - 10000);
            numero32(byte, 16 + 4 * i,
                     caso() % (scelta == 0 ? 12800000U : 1280000000U) - (scelta == 0 ? 6400000U : 640000000U));
        }
    }
    if (scelta == 4)
        for (std::size_t i = 16; i < 48; i++)
            if (caso() % 2 == 0)
                byte[i] = 0;
    if (scelta == 5)
        std::fill(byte.begin() + 16, byte.begin() + 24, Byte{0});
    return byte;
}

std::string descrivi(const Canale& canale, Fid fid, const modello::RigaUdm& unita, const Pacchetto& byte) {
    std::string testo = "channel " + esadecimale(canale.fid) + " function " + esadecimale(fid) + " unit " +
                        unita.testo + (unita.reciproco != 0 ? " reciprocal" : "") + " packet";
    for (const Byte uno : byte) {
        char cifre[8];
        std::snprintf(cifre, sizeof cifre, " %02x", static_cast<unsigned>(uno));
        testo += cifre;
    }
    return testo;
}

void leggi(Conta& conta, Lettore& lettore, const Canale& canale, Fid fid, const modello::RigaUdm& unita,
           const Pacchetto& byte) {
    const auto dove = [&] { return descrivi(canale, fid, unita, byte); };
    float valore = -77;
    const int riuscito = kelConvGetValFloat(&lettore.libreria, byte.data(), &valore);
    conta.numeri(riuscito, lettore.modello.ha_valore() ? 1 : 0, dove);
    conta.reali(valore, lettore.modello.valore(byte.data()).valore, dove);
    conta.testi(lettore.testo_libreria(byte.data()), lettore.modello.testo(byte.data()), dove);
}

// Every subfield of every kind of packet, the packet itself, and functions that it does not have.
void sottocampi(unsigned parte, Conta& conta) {
    Caso caso(parte + 1);
    std::vector<Pacchetto> pacchetti;
    for (int i = 0; i < 20000; i++)
        pacchetti.push_back(pacchetto(caso));
    std::vector<modello::RigaUdm> unita = {unita_identita(), modello::tabelle().udm.at("C_udm_associate").at(1),
                                           modello::tabelle().udm.at("kmh_udm_associate").at(1)};
    for (std::size_t i = 0; i < 2; i++) {
        unita.push_back(unita[i]);
        unita.back().reciproco = 1;
    }
    const Canale canale = canali().at(parte);
    for (const bool in_testa : {true, false}) {
        std::list<Fid> funzioni = modello::funzioni_interne(canale.fid);
        funzioni.insert(funzioni.end(), {canale.fid, 0x10U, 0xB9D20U, 0U});
        for (const Fid fid : funzioni)
            for (const modello::RigaUdm& una : unita) {
                Lettore lettore(canale, fid, una, {}, in_testa);
                lettore.aspetto({in_testa ? 6U : 5U, in_testa ? 2U : 1U, 0, 0});
                conta.numeri(kelConvGetOffset(&lettore.libreria), lettore.modello.offset(),
                             [&] { return "offset of " + esadecimale(fid) + " in " + esadecimale(canale.fid); });
                const std::string diverso = differenza(lettore.libreria, lettore.modello);
                conta.caso(diverso.empty(), lettore.libreria.maschera, [&] {
                    return "set-up of " + esadecimale(fid) + " in " + esadecimale(canale.fid) + ": another " + diverso;
                });
                for (const Pacchetto& byte : pacchetti)
                    leggi(conta, lettore, canale, fid, una, byte);
            }
    }
}

// Every fix type with every number of satellites: texts of both packets, speed of the first.
void fix_e_satelliti(unsigned /*parte*/, Conta& conta) {
    Pacchetto byte{};
    numero32(byte, 32, 100);
    numero32(byte, 36, 0xFFFFFF00U);
    const Canale kel = canali()[0];
    const Canale navsol = canali()[1];
    Lettore testo_kel(kel, kel.fid, unita_identita());
    Lettore testo_navsol(navsol, navsol.fid, unita_identita());
    Lettore velocita(kel, 0xA8010, unita_identita());
    velocita.aspetto({5, 1, 0, 0});
    for (unsigned fix = 0; fix < 256; fix++)
        for (unsigned satelliti = 0; satelliti < 256; satelliti++) {
            byte[10] = byte[14] = static_cast<Byte>(fix);
            byte[47] = byte[51] = static_cast<Byte>(satelliti);
            leggi(conta, testo_kel, kel, kel.fid, unita_identita(), byte);
            leggi(conta, testo_navsol, navsol, navsol.fid, unita_identita(), byte);
            leggi(conta, velocita, kel, 0xA8010, unita_identita(), byte);
        }
}

// Positions without system and on the axes: latitude and longitude to the last bit.
void posizioni(unsigned parte, Conta& conta) {
    const Canale kel = canali()[0];
    Lettore latitudine(kel, 0xA8A07, unita_identita());
    Lettore longitudine(kel, 0xA8A87, unita_identita());
    Caso caso(1000 + parte);
    Pacchetto byte{};
    for (int i = 0; i < 100000; i++) {
        for (std::size_t asse = 0; asse < 3; asse++)
            numero32(
                byte, 16 + 4 * asse,
                static_cast<std::uint32_t>(static_cast<std::int32_t>(caso()) >> (caso() % 8 == 0 ? 31 : caso() % 28)));
        for (Lettore* lettore : {&latitudine, &longitudine}) {
            float valore = -77;
            kelConvGetValFloat(&lettore->libreria, byte.data(), &valore);
            conta.reali(valore, lettore->modello.valore(byte.data()).valore,
                        [&] { return descrivi(kel, 0xA8A07, unita_identita(), byte); });
        }
    }
}

std::list<Fid> funzioni_note() {
    std::list<Fid> note = {0, 1, 26, 0x7F, 0xB9D20, 0x1D20, 0xFFFFFFFF};
    for (const auto& [nome, righe] : modello::tabelle().sottocampi)
        for (const modello::RigaSottocampo& riga : righe)
            note.insert(note.end(), {riga.fid, riga.fid + 1, riga.fid | 0x80000000U});
    return note;
}

// Tables and look-ups: details 0 to 300 with specialisations 0 to 40, and all identifiers below bit 20.
void tabelle(unsigned /*parte*/, Conta& conta) {
    const auto indirizzo = [](const std::optional<std::string>& nome) { return nome ? sottocampi_di(*nome) : nullptr; };
    const std::list<Fid> note = funzioni_note();
    for (unsigned dettagli = 0; dettagli <= 300; dettagli++)
        for (unsigned spec = 0; spec <= 40; spec++) {
            const auto dove = [&] { return std::to_string(dettagli) + ", " + std::to_string(spec); };
            const auto tabella = modello::tabella_pacchetto(dettagli, spec);
            conta.numeri(search_sottocampi_struct(dettagli, spec) == indirizzo(tabella) ? 1 : 0, 1, dove);
            for (const Fid fid : note)
                conta.numeri(kelConvMatchSottocampo(dettagli, spec, fid),
                             modello::ha_sottocampo(dettagli, spec, fid) ? 1 : 0,
                             [&] { return dove() + " with " + esadecimale(fid); });
        }
    for (const auto& tabella : modello::tabelle().sottocampi)
        for (const Fid fid : note) {
            const std::string& nome = tabella.first;
            const auto riga = modello::riga_sottocampo(nome, fid);
            const s_sottocampo* attesa = riga ? sottocampi_di(nome) + *riga : nullptr;
            conta.numeri(getDettagliSottocampo(sottocampi_di(nome), fid) == attesa ? 1 : 0, 1,
                         [&] { return nome + " with " + esadecimale(fid); });
        }
    for (const Fid fid : note)
        conta.numeri(getDettagliSottocampo(nullptr, fid) == nullptr ? 1 : 0,
                     modello::riga_sottocampo(std::nullopt, fid) ? 0 : 1,
                     [&] { return "no table with " + esadecimale(fid); });
    for (Fid bassi = 0; bassi < 1U << 20; bassi++) {
        const Fid fid = bassi | (bassi * 2654435761U & 0xFFF00000U);
        conta.numeri(kelConvGetSottoCampiLapTime(fid) == indirizzo(modello::tabella_lap(fid)) ? 1 : 0, 1,
                     [&] { return "lap table of " + esadecimale(fid); });
        conta.numeri(kelConvGetSottoCampiGPS(fid) == indirizzo(modello::tabella_gps(fid)) ? 1 : 0, 1,
                     [&] { return "GPS table of " + esadecimale(fid); });
        conta.numeri(kelConvGetSottoCampiDataOra(fid) == indirizzo("data_ora") ? 1 : 0, 1,
                     [&] { return "date table of " + esadecimale(fid); });
        std::list<kel_funpos> interne = {7};
        CConverter::getAllInnerFunpos(fid, interne);
        conta.numeri(interne == modello::funzioni_interne(fid) ? 1 : 0, 1,
                     [&] { return "inner functions of " + esadecimale(fid); });
    }
}

}  // namespace

std::vector<Spazio> spazi_pacchetti() {
    return {{"fix-satellites", "every fix type with every number of satellites", 1, 1, fix_e_satelliti},
            {"subfield-tables", "look-ups in the subfield tables", 1, 1, tabelle},
            {"subfields", "every subfield in 20000 packets of every kind", 7, 1, sottocampi},
            {"positions", "latitude and longitude of 100000 places a part", 64, 16, posizioni}};
}

}  // namespace esaustivo
