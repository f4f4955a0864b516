#include "output/righe_dati.h"

#include <algorithm>
#include <utility>

#include "output/cifre.h"
#include "output/scritture.h"

namespace kel::strumento {

namespace {

constexpr std::size_t CAPIENZA = std::size_t{1} << 16;

}  // namespace

RigheDati::RigheDati(std::FILE* file, Aspetto aspetto)
    : file_(file), aspetto_(std::move(aspetto)), niente_(aspetto_.csv ? "" : "null") {
    std::size_t davanti = 0;
    for (const std::string& uno : aspetto_.davanti)
        davanti = std::max(davanti, uno.size());
    buffer_.resize(CAPIENZA + aspetto_.tra.size() + aspetto_.inizio.size() + davanti + CIFRE_MASSIME +
                   aspetto_.dietro.size());
}

// Room for what stands before a cell, a number, and the end of a row; what stands before it is written.
char* RigheDati::cella() {
    if (pieni_ > CAPIENZA)
        svuota();
    char* dove = buffer_.data() + pieni_;
    if (colonna_ == 0) {
        const std::string& prima = righe_ == 0 ? aspetto_.inizio : aspetto_.tra;
        dove = std::copy(prima.begin(), prima.end(), dove);
    }
    const std::string& davanti = aspetto_.davanti[colonna_++];
    return std::copy(davanti.begin(), davanti.end(), dove);
}

void RigheDati::niente() {
    avanti(std::copy(niente_.begin(), niente_.end(), cella()));
}

void RigheDati::intero(std::int64_t valore) {
    avanti(scrivi_intero(cella(), valore));
}

void RigheDati::numero(float valore) {
    avanti(scrivi_float(cella(), valore));
}

void RigheDati::reale(double valore, int decimali) {
    avanti(scrivi_arrotondato(cella(), valore, decimali));
}

void RigheDati::testo(std::string_view testo) {
    // Most texts are a few plain characters, which stand as they are.
    const bool piano = testo.size() + 2 <= CIFRE_MASSIME && std::ranges::all_of(testo, [](char c) {
                           return c >= ' ' && c < 0x7F && c != '"' && c != ',' && c != '\\';
                       });
    char* dove = cella();
    if (piano) {
        if (!aspetto_.csv)
            *dove++ = '"';
        dove = std::copy(testo.begin(), testo.end(), dove);
        if (!aspetto_.csv)
            *dove++ = '"';
        return avanti(dove);
    }
    avanti(dove);
    const std::string scritto = aspetto_.csv ? campo_csv(testo) : testo_json(testo);
    svuota();
    std::fwrite(scritto.data(), 1, scritto.size(), file_);
}

void RigheDati::fine_riga() {
    avanti(std::copy(aspetto_.dietro.begin(), aspetto_.dietro.end(), buffer_.data() + pieni_));
    colonna_ = 0;
    ++righe_;
}

void RigheDati::svuota() {
    std::fwrite(buffer_.data(), 1, std::exchange(pieni_, 0), file_);
}

}  // namespace kel::strumento
