#include "recordings/tabella_record.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "common/errore.h"
#include "common/interi.h"
#include "common/nomi.h"
#include "recordings/canali.h"
#include "recordings/inquadratura.h"
#include "recordings/righe_gps.h"

namespace kel_registrazioni {

namespace {

constexpr std::size_t RECORD_DI_FLUSSO = 32;  // one second or two of a logger
constexpr std::size_t RECORD_DI_FILE = 1024;
constexpr std::size_t TESTA_MASSIMA = std::size_t{1} << 22;
constexpr std::uint32_t ORA_MS = 3600000;
constexpr double FREQUENZA_MINIMA = 0.001;
constexpr double FREQUENZA_MASSIMA = 1e6;
constexpr std::int64_t MILLE = 1000;
constexpr double MILIONE = 1e6;

// As many bytes as decide a framing: four records even of those that are a megabyte long.
std::size_t dimensione_testa(bool lunghezza_nota, std::size_t dimensione) {
    const std::size_t record = lunghezza_nota ? RECORD_DI_FILE : RECORD_DI_FLUSSO;
    const std::size_t passo = dimensione + byte_orario(Orario::u64us);
    return std::max(std::min(record * passo, TESTA_MASSIMA), 4 * passo);
}

std::optional<Orario> orario_chiesto(const s_kel_apertura& apertura) {
    if (apertura.frequenza != 0 && !(apertura.frequenza >= FREQUENZA_MINIMA && apertura.frequenza <= FREQUENZA_MASSIMA))
        throw Errore("frequenza is no rate; accepted: records a second, 0.001 to 1000000, or 0");
    if (apertura.frequenza > 0 && apertura.orario != KEL_ORARIO_TROVATO && apertura.orario != KEL_ORARIO_NESSUNO)
        throw Errore("orario and frequenza exclude each other; accepted: one of them");
    switch (apertura.orario) {
        case KEL_ORARIO_TROVATO:
            return apertura.frequenza > 0 ? std::optional(Orario::nessuno) : std::nullopt;
        case KEL_ORARIO_NESSUNO:
            return Orario::nessuno;
        case KEL_ORARIO_U32MS:
            return Orario::u32ms;
        case KEL_ORARIO_U64US:
            return Orario::u64us;
    }
    throw Errore("orario is no framing; accepted: 0 to 3");
}

}  // namespace

TabellaRecord::TabellaRecord(Byte canali, std::optional<Byte> campioni, const s_kel_apertura& apertura)
    : catalogo_(IFunzioni::CreateMe()),
      parole_(parole_di(apertura.parole)),
      chiesto_(orario_chiesto(apertura)),
      spinta_(!campioni),
      frequenza_(apertura.frequenza),
      lunghezza_(apertura.lunghezza) {
    if (canali.size() > CANALI_MASSIMI * CANALE_BYTE)
        throw Errore("it is longer than " + std::to_string(CANALI_MASSIMI) + " channel records");
    canali_ = leggi_canali(canali, apertura.compatta != 0 ? Disposizione::compatta : Disposizione::dichiarata, parole_);
    for (const s_kel_canale& canale : canali_)
        nomi_.push_back(nome_canale(canale));
    dimensione_ = dimensione_record(canali_);
    colonne_ = colonne(*catalogo_, canali_, {apertura.pacchetti != 0, apertura.dispositivo != 0});
    for (const ColonnaDati& colonna : colonne_)
        voci_.push_back(voce(colonna));
    if (!campioni)
        return;
    byte_ = *campioni;
    inquadra(byte_.size());
    finita_ = true;
}

VoceColonna TabellaRecord::voce(const ColonnaDati& colonna) const {
    VoceColonna voce;
    voce.nome = colonna.nome_misurato();
    voce.lungo = nome_lungo(*catalogo_, colonna.fid);
    voce.udm = misura(colonna.udm.c_str());
    voce.fid = colonna.fid;
    voce.canale = static_cast<std::uint32_t>(colonna.indice);
    voce.valori = colonna.campo()       ? valori_di(*colonna.campo())
                  : colonna.ha_valore() ? KEL_VALORI_FLOAT
                                        : KEL_VALORI_NESSUNO;
    voce.decimali = colonna.decimali();
    voce.proprio = colonna.nome;
    voce.campo = colonna.campo() ? campo_di_faccia(*colonna.campo()) : KEL_CAMPO_NESSUNO;
    voce.con_unita = colonna.con_unita();
    voce.interna = colonna.campo() || colonna.fid != canali_[colonna.indice].fid;
    voce.pacchetto = colonna.pacchetto_intero();
    return voce;
}

// A date and time packet holds no numbers: nobody is to look for its column in vain.
void TabellaRecord::di_senza_colonna() {
    const char* parole = detto_.empty() ? "no column for '" : "; no column for '";
    for (std::size_t i = 0; i < nomi_.size(); ++i) {
        bool ne_ha = false;
        for (const ColonnaDati& una : colonne_)
            ne_ha |= una.indice == i;
        if (ne_ha)
            continue;
        detto_ += parole;
        detto_ += nomi_[i];
        detto_ += '\'';
        parole = ", '";
    }
}

void TabellaRecord::inquadra(std::optional<std::uint64_t> lunghezza) {
    const Byte testa = byte_.first(std::min(byte_.size(), dimensione_testa(lunghezza.has_value(), dimensione_)));
    const Inquadratura inquadratura = chiesto_
                                          ? verifica_inquadratura(testa, dimensione_, lunghezza, *chiesto_, parole_)
                                          : scegli_inquadratura(testa, dimensione_, lunghezza, parole_);
    if (!testa.empty()) {
        detto_ = inquadratura.detto;
        di_senza_colonna();
    }
    orario_ = inquadratura.orario;
    passo_ = dimensione_ + byte_orario(orario_);
    inquadrata_ = true;
    mostra();
}

void TabellaRecord::mostra() {
    righe_ = byte_.size() / passo_;
}

void TabellaRecord::spingi(Byte pezzo) {
    if (!spinta_)
        throw Errore("the samples were given when the recording was opened");
    if (finita_)
        throw Errore("the stream has ended");
    // Rows that were at hand go; what is left of the last record stays.
    if (inquadrata_) {
        if (righe_ > 0)
            marca(prima_ + righe_ - 1);  // stamps that are not looked at now are lost
        giri_ += svolte_.size();
        svolte_.clear();
        raccolti_.erase(raccolti_.begin(), raccolti_.begin() + static_cast<std::ptrdiff_t>(righe_ * passo_));
        prima_ += righe_;
        righe_ = 0;
        byte_ = raccolti_;
    }
    raccolti_.insert(raccolti_.end(), pezzo.begin(), pezzo.end());
    byte_ = raccolti_;
    if (inquadrata_) {
        mostra();
    } else if (byte_.size() >= dimensione_testa(lunghezza_ != 0, dimensione_)) {
        finita_ = true;  // unless a framing is found
        inquadra(lunghezza_ != 0 ? std::optional(lunghezza_) : std::nullopt);
        finita_ = false;
    }
}

void TabellaRecord::fine() {
    if (!spinta_ || finita_)
        throw Errore("the stream has ended");
    if (inquadrata_)
        spingi({});
    finita_ = true;
    if (!inquadrata_)
        inquadra(byte_.size());
}

const char* TabellaRecord::avanzo_detto() {
    if (!inquadrata_ || avanzo() == 0)
        return "";
    avanzo_detto_ = lunghezza_errata(prima_ * passo_ + byte_.size(), passo_);
    return avanzo_detto_.c_str();
}

eKelOrario TabellaRecord::orario() const {
    if (!inquadrata_)
        return KEL_ORARIO_TROVATO;
    return orario_ == Orario::u32ms   ? KEL_ORARIO_U32MS
           : orario_ == Orario::u64us ? KEL_ORARIO_U64US
                                      : KEL_ORARIO_NESSUNO;
}

// The time stamp of a row, in its own unit.
std::uint64_t TabellaRecord::marca(std::uint64_t riga) {
    const auto letta = [this](std::uint64_t quale) {
        return byte_.subspan(static_cast<std::size_t>(quale - prima_) * passo_);
    };
    if (orario_ == Orario::u64us)
        return intero<std::uint64_t>(letta(riga), 0);
    if (orario_ != Orario::u32ms)
        return 0;
    for (; guardate_ <= riga; ++guardate_) {
        const auto nuova = intero<std::uint32_t>(letta(guardate_), 0);
        // Within an hour over the end: the counter began anew, no other session.
        if (guardate_ > 0 && nuova < ultima_ && nuova - ultima_ <= ORA_MS)
            svolte_.push_back(guardate_);
        ultima_ = nuova;
    }
    const auto oltre = std::ranges::upper_bound(svolte_, riga) - svolte_.begin();
    return (giri_ + static_cast<std::uint64_t>(oltre)) << 32 | intero<std::uint32_t>(letta(riga), 0);
}

double TabellaRecord::secondi(std::uint64_t riga) {
    if (orario_ == Orario::nessuno)
        return static_cast<double>(riga) / frequenza_;
    return static_cast<double>(marca(riga)) / (orario_ == Orario::u32ms ? 1e3 : MILIONE);
}

std::optional<std::int64_t> TabellaRecord::microsecondi(std::uint64_t riga) {
    constexpr auto MASSIMO = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (orario_ == Orario::nessuno) {
        const double tempo = static_cast<double>(riga) * MILIONE / frequenza_;
        constexpr double LIMITE = 9.2e18;
        return tempo < LIMITE ? std::optional<std::int64_t>(std::llround(tempo)) : std::nullopt;
    }
    const std::uint64_t tempo = marca(riga);
    const std::uint64_t quanti = orario_ == Orario::u32ms ? MILLE : 1;
    return tempo <= MASSIMO / quanti ? std::optional(static_cast<std::int64_t>(tempo * quanti)) : std::nullopt;
}

bool TabellaRecord::mostra_in(std::size_t colonna, const std::string& udm) {
    ColonnaDati nuova = colonne_[colonna];  // the old one stays where there is no memory for the new one
    if (!nuova.mostra_in(*catalogo_, canali_[nuova.indice], udm))
        return false;
    voci_[colonna] = voce(nuova);
    colonne_[colonna] = std::move(nuova);
    return true;
}

void TabellaRecord::leggi(std::uint64_t da, std::size_t quante, std::span<const s_kel_lettura> letture) {
    if (quante == 0)
        return;
    // A converter is a state of its reading: each reading has its own.
    std::vector<s_kel_converter> convertitori;
    std::vector<s_kel_colonna> lette;
    convertitori.reserve(letture.size());
    bool soluzioni = false;
    for (const s_kel_lettura& una : letture) {
        const ColonnaDati& colonna = colonne_[una.colonna];
        if (colonna.campo()) {
            azzera(una, voci_[una.colonna].valori, quante);
            soluzioni = true;
            continue;
        }
        const bool valori = colonna.ha_valore();
        if (!valori)
            azzera(una, KEL_VALORI_NESSUNO, quante);
        convertitori.push_back(colonna.convertitore());
        lette.push_back({&convertitori.back(), valori ? static_cast<float*>(una.valori) : nullptr, nullptr,
                         valori ? una.validi : nullptr, una.testi});
    }
    if (!lette.empty())
        kelColLeggi(campioni(da), passo_, quante, lette.data(), static_cast<unsigned>(lette.size()));
    if (soluzioni)
        leggi_soluzioni(da, quante, letture);
}

// Each packet is taken apart once for all columns of its channel.
void TabellaRecord::leggi_soluzioni(std::uint64_t da, std::size_t quante, std::span<const s_kel_lettura> letture) {
    std::vector<s_kel_lettura> sue;
    for (const s_kel_lettura& una : letture)
        if (colonne_[una.colonna].campo())
            sue.push_back(una);
    std::ranges::sort(sue, {}, [this](const s_kel_lettura& una) { return colonne_[una.colonna].indice; });
    for (std::size_t i = 0; i < sue.size();) {
        const ColonnaDati& prima = colonne_[sue[i].colonna];
        std::size_t oltre = i;
        while (oltre < sue.size() && colonne_[sue[oltre].colonna].indice == prima.indice)
            ++oltre;
        for (std::size_t riga = 0; riga < quante; ++riga) {
            const Soluzione& soluzione = prima.soluzione(campioni(da + riga));
            for (std::size_t k = i; k < oltre; ++k) {
                const ColonnaDati& colonna = colonne_[sue[k].colonna];
                scrivi_campo(sue[k], riga, soluzione, *colonna.campo(), colonna.fattore(), colonna.decimali());
            }
        }
        i = oltre;
    }
}

}  // namespace kel_registrazioni
