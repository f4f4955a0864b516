#include "captures/file_campioni.h"

#include <algorithm>
#include <cstdio>

#include "registrazioni/common/errore.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

constexpr std::size_t RECORD_DI_FLUSSO = 32;  // one second or two of a logger
constexpr std::size_t RECORD_DI_FILE = 1024;
constexpr std::size_t TESTA_MASSIMA = std::size_t{1} << 22;
constexpr float FREQUENZA_MINIMA = 0.001f;
constexpr float FREQUENZA_MASSIMA = 1e6f;

// As many bytes as decide a framing: four records even of those that are a megabyte long.
std::size_t dimensione_testa(const Ingresso& ingresso, std::size_t dimensione) {
    const std::size_t record = ingresso.lunghezza() ? RECORD_DI_FILE : RECORD_DI_FLUSSO;
    const std::size_t passo = dimensione + byte_orario(Orario::u64us);
    return std::max(std::min(record * passo, TESTA_MASSIMA), 4 * passo);
}

}  // namespace

void aggiungi_tempo(Comando& comando, SceltaTempo& scelta) {
    comando
        .opzione(
            "--time", scelta.orario,
            "Time stamp before every record: u32ms (32 bits, ms), u64us (64 bits, us), none, or auto (default): found "
            "from the samples")
        .scelta({"auto", "none", "u32ms", "u64us"});
    comando.opzione("--rate", scelta.frequenza, "Records a second, if they have no time stamps").valore("HZ");
}

TempoRecord::TempoRecord(const SceltaTempo& scelta) {
    for (const Orario orario : {Orario::nessuno, Orario::u32ms, Orario::u64us})
        if (scelta.orario == nome_orario(orario))
            chiesto_ = orario;
    if (scelta.frequenza.empty())
        return;
    if (chiesto_.value_or(Orario::nessuno) != Orario::nessuno)
        throw ErroreUso("--time and --rate exclude each other; accepted: one of them");
    const auto frequenza = leggi_float(scelta.frequenza);
    if (!frequenza || *frequenza < FREQUENZA_MINIMA || *frequenza > FREQUENZA_MASSIMA)
        throw ErroreUso("--rate '" + scelta.frequenza + "' is no rate; accepted: records a second, 0.001 to 1000000");
    frequenza_ = static_cast<double>(*frequenza);
    chiesto_ = Orario::nessuno;
}

int TempoRecord::decimali() const {
    constexpr double MILLE = 1000;
    return orario_ == Orario::u64us || frequenza_ > MILLE ? 6 : 3;
}

double TempoRecord::secondi(const LettoreRecord& lettore) const {
    if (orario_ == Orario::nessuno)
        return static_cast<double>(lettore.record() - 1) / frequenza_;
    return static_cast<double>(lettore.orario()) / (orario_ == Orario::u32ms ? 1e3 : 1e6);
}

FileCampioni::FileCampioni(const std::string& nome, std::size_t dimensione, TempoRecord& tempo)
    : ingresso_(nome), testa_(dimensione_testa(ingresso_, dimensione)) {
    const std::size_t letti = ingresso_.leggi_tutti(testa_.data(), testa_.size());
    std::optional<std::uint64_t> lunghezza = ingresso_.lunghezza();
    if (letti < testa_.size())
        lunghezza = letti;
    testa_.resize(letti);
    Inquadratura inquadratura;
    try {
        inquadratura = tempo.chiesto() ? verifica_inquadratura(testa_, dimensione, lunghezza, *tempo.chiesto(), PAROLE)
                                       : scegli_inquadratura(testa_, dimensione, lunghezza, PAROLE);
    } catch (const Errore& e) {
        throw NonTrovato("cannot use '" + ingresso_.nome() + "' as samples: " + e.what());
    }
    detto_ = testa_.empty() ? "" : inquadratura.detto;
    tempo.inquadra(inquadratura.orario);
    passo_ = dimensione + byte_orario(inquadratura.orario);
    lettore_.emplace([this](std::uint8_t* byte, std::size_t quanti) { return leggi(byte, quanti); }, dimensione,
                     inquadratura.orario);
}

void FileCampioni::annuncia(const char* comando) const {
    if (!detto_.empty())
        std::fprintf(stderr, "kelfun %s: %s\n", comando, detto_.c_str());
}

std::size_t FileCampioni::leggi(std::uint8_t* byte, std::size_t quanti) {
    if (riletti_ == testa_.size())
        return ingresso_.leggi(byte, quanti);
    quanti = std::min(quanti, testa_.size() - riletti_);
    std::copy_n(testa_.begin() + static_cast<std::ptrdiff_t>(riletti_), quanti, byte);
    riletti_ += quanti;
    return quanti;
}

void FileCampioni::verifica_fine() const {
    if (lettore_->record() == 0)
        throw NonTrovato("there is no whole record in it");
    if (lettore_->avanzo() != 0)
        throw NonTrovato(lunghezza_errata(lettore_->byte(), passo_));
}

}  // namespace kel::strumento
