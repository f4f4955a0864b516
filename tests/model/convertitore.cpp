#include "model/convertitore.h"

#include "model/campi.h"
#include "model/sottocampi.h"

namespace modello {

std::uint32_t maschera_bit(unsigned pos_bit, unsigned num_bit) {
    if (num_bit == 0 || num_bit + pos_bit >= 32)
        return 0;
    std::uint32_t maschera = 1;
    for (unsigned i = 0; i < num_bit + pos_bit; i++)
        maschera *= 2;
    return maschera;
}

Convertitore::Convertitore(const Prima& prima, const Canale& canale, Fid fid, const RigaUdm* unita, Campo bit,
                           bool campione_in_testa)
    : offset_(campione_in_testa ? 0 : canale.offset), campo_{bit.pos_bit, bit.num_bit, prima.maschera} {
    const RigaUdm* vale = unita != nullptr ? unita : prima.unita;
    if (vale != nullptr)
        unita_ = *vale;
    unsigned tipo = canale.tipo;
    if (grandezza(canale.fid) == 26 && canale.fid != fid) {
        const auto tabella = tabella_pacchetto(oggetto(canale.fid), posizione(canale.fid));
        const auto indice = riga_sottocampo(tabella, fid);
        if (!indice)
            return;  // the mask stays what it was
        const RigaSottocampo& riga = tabelle().sottocampi.at(*tabella).at(*indice);
        tipo = riga.tipo;
        offset_ += riga.offset;
        campo_ = {riga.pos_bit, riga.num_bit, 0};
        if (tipo == 25) {
            scegli_calcolato(riga);
            return;
        }
    }
    campo_.maschera = maschera_bit(campo_.pos_bit, campo_.num_bit);
    scegli_formato(tipo, canale.fid);
}

const RigaUdm& Convertitore::unita() const {
    if (!unita_)
        throw SenzaUnita();
    return *unita_;
}

void Convertitore::scegli_calcolato(const RigaSottocampo& riga) {
    reciproco_ = reciproco();
    const std::string& nome = reciproco_ ? riga.valore_reciproco : riga.valore;
    if (nome == "velocita" || nome == "velocita_reciproca")
        modo_ = Valore::velocita;
    else if (nome == "velocita_semplice" || nome == "velocita_semplice_reciproca")
        modo_ = Valore::velocita_semplice;
    else if (nome == "latitudine")
        modo_ = Valore::latitudine;
    else if (nome == "longitudine")
        modo_ = Valore::longitudine;
    testo_ = Testo::numerico;
}

// Types that are shown as numbers. All have a reciprocal form but the bit list.
void Convertitore::scegli_numero(unsigned tipo) {
    reciproco_ = tipo != 13 && reciproco();
    const bool bit = campo_.maschera != 0 && !reciproco_;
    testo_ = Testo::numerico;
    stato_in_testo_ = tipo != 13;
    switch (tipo) {
        case 0:
            modo_ = Valore::int32;
            break;
        case 1:
            modo_ = Valore::int16;
            break;
        case 2:
            modo_ = Valore::uint8;
            break;
        case 3:
            modo_ = bit ? Valore::uint32_bit : Valore::uint32;
            break;
        case 4:
            modo_ = bit ? Valore::uint16_bit : Valore::uint16;
            break;
        case 5:
            modo_ = bit ? Valore::uint8_bit : Valore::uint8;
            break;
        case 6:
            modo_ = Valore::virgola_mobile;
            break;
        case 20:
            modo_ = Valore::mezzo;
            break;
        default:
            modo_ = campo_.maschera != 0 ? Valore::lista_bit_mascherata : Valore::lista_bit;
            break;
    }
}

void Convertitore::scegli_formato(unsigned tipo, Fid canale) {
    const bool marcia = grandezza(canale) == 31 || (grandezza(canale) == 6 && oggetto(canale) == 12);
    dimensione_ = dimensione_campione(tipo);
    const auto scegli = [this](Valore modo, Testo testo) {
        modo_ = modo;
        testo_ = testo;
    };
    switch (tipo) {
        case 7:
        case 22:
            scegli(Valore::zero, Testo::tempo_pacchetto);
            break;
        case 8:
            scegli(Valore::zero, Testo::gps_kel);
            break;
        case 9:
            scegli(Valore::zero, Testo::gps_navsol);
            break;
        case 10:
            scegli(Valore::zero, Testo::data_ora);
            break;
        case 11:
            scegli(Valore::marcia, Testo::marcia);
            break;
        case 12:
            scegli(Valore::int32, Testo::tempo_giro);
            break;
        case 15:
            scegli(marcia ? Valore::numero_o_cifra : Valore::numero, Testo::copia);
            break;
        case 16:
            scegli(Valore::numero, Testo::copia);
            break;
        case 17:
            scegli(Valore::zero, Testo::lap_1g);
            break;
        case 18:
            scegli(Valore::zero, Testo::satelliti);
            break;
        case 21:
            scegli(Valore::int32, Testo::coordinata);
            reciproco_ = reciproco();
            stato_in_testo_ = true;
            break;
        case 24:
            scegli(Valore::int32, Testo::differenza);
            break;
        case 0:
        case 1:
        case 2:
        case 3:
        case 4:
        case 5:
        case 6:
        case 13:
        case 20:
            scegli_numero(tipo);
            break;
        default:
            break;
    }
}

namespace {

// Packets, gears, plain numbers and places are read without a unit.
bool vuole_unita(Valore modo) {
    switch (modo) {
        case Valore::nessuno:
        case Valore::zero:
        case Valore::marcia:
        case Valore::numero:
        case Valore::numero_o_cifra:
        case Valore::latitudine:
        case Valore::longitudine:
            return false;
        default:
            return true;
    }
}

}  // namespace

Letto Convertitore::valore(const Byte* buffer) const {
    static const RigaUdm nessuna{};
    return leggi_valore(modo_, reciproco_, vuole_unita(modo_) ? unita() : nessuna, campo_, buffer + offset_);
}

std::string Convertitore::testo(const Byte* buffer) {
    const Byte* campione = buffer + offset_;
    const bool compatto = aspetto.larghezza == 5;
    switch (testo_) {
        case Testo::nessuno:
            return "- -";
        case Testo::numerico: {
            const Letto letto = modo_ == Valore::nessuno ? Letto{0.0F, 1} : valore(buffer);
            if (letto.stato != 0)
                return stato_in_testo_ ? testo_stato(letto.stato) : "?";
            return testo_numerico(aspetto, letto.valore);
        }
        case Testo::marcia:
            return testo_marcia(campione);
        case Testo::tempo_giro:
            return testo_tempo_giro(i32(campione), aspetto.decimali, compatto);
        case Testo::differenza:
            return testo_differenza(i32(campione), compatto);
        case Testo::tempo_pacchetto:
            return testo_tempo_pacchetto(i32(campione + 4));
        case Testo::coordinata:
            return testo_coordinata(campione);
        case Testo::gps_kel:
            return testo_gps(campione[14], campione[51]);
        case Testo::gps_navsol:
            return testo_gps(campione[10], campione[47]);
        case Testo::copia:
            return testo_copiato(campione, dimensione_);
        case Testo::data_ora:
            return "Date and Time Packet";
        case Testo::lap_1g:
            return "LAP Packet 1G";
        case Testo::satelliti:
            return "GPS SV Info Packet";
    }
    return "";
}

}  // namespace modello
