#include "commands/campioni_dati.h"

#include "domain/tipi_campione.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

std::string leggi_esadecimali(const std::string& testo) {
    const auto letti = leggi_byte(testo);
    if (!letti)
        throw ErroreUso(
            "'" + testo +
            "' are no bytes; accepted: pairs of hexadecimal digits in the order of the record, such as 3930");
    return *letti;
}

[[noreturn]] void non_interi(std::size_t byte, unsigned tipo) {
    throw ErroreUso(std::to_string(byte) + (byte == 1 ? " byte is" : " bytes are") + " no samples of type " +
                    nome_con_codice(tipo) + "; accepted: " + std::to_string(kelFunGetSamplSize(tipo)) +
                    " bytes a sample");
}

// Arguments beside each other are one text: a sample may be written as several words, each of whole bytes.
std::vector<std::string> uniti(const std::vector<std::string>& testi) {
    std::vector<std::string> pezzi;
    for (const std::string& testo : testi) {
        if (testo == "-" || pezzi.empty() || pezzi.back() == "-") {
            pezzi.push_back(testo);
            continue;
        }
        leggi_esadecimali(testo);
        pezzi.back() += " " + (testo.starts_with("0x") || testo.starts_with("0X") ? testo.substr(2) : testo);
    }
    return pezzi;
}

}  // namespace

CampioniDati::CampioniDati(unsigned tipo, const std::vector<std::string>& testi)
    : tipo_(tipo), elementi_("decode", uniti(testi)) {
    if (dimensione() == 0)
        throw ErroreUso("type " + nome_con_codice(tipo) + " has no sample; accepted: a --type with bytes, see --types");
}

std::size_t CampioniDati::dimensione() const {
    return kelFunGetSamplSize(tipo_);
}

void CampioniDati::leggi(const std::function<void()>& inizia, const std::function<void(const char*)>& mostra) {
    const bool risposto = elementi_.rispondi([&](const std::string& testo) { return leggi_pezzo(testo); }, inizia,
                                             [&](const std::string& byte) {
                                                 resto_ += byte;
                                                 std::size_t da = 0;
                                                 for (; resto_.size() - da >= dimensione(); da += dimensione())
                                                     mostra(resto_.data() + da);
                                                 resto_.erase(0, da);
                                             });
    if (!risposto)
        non_interi(0, tipo_);
}

void CampioniDati::fine() const {
    if (!resto_.empty())
        throw NonTrovato("the last " + std::to_string(resto_.size()) +
                         (resto_.size() == 1 ? " byte is" : " bytes are") + " no whole sample of type " +
                         nome_con_codice(tipo_) + ", which has " + std::to_string(dimensione()));
    elementi_.fine();
}

std::string CampioniDati::leggi_pezzo(const std::string& testo) {
    try {
        std::string byte = leggi_esadecimali(testo);
        if (!con_righe() && (byte.empty() || byte.size() % dimensione() != 0))
            non_interi(byte.size(), tipo_);
        return byte;
    } catch (const ErroreUso& e) {
        const bool comincia = !resto_.empty();
        resto_.clear();
        throw ErroreUso(e.what() +
                        std::string(comincia ? "; the sample that lines before it began is left out as well" : ""));
    }
}

}  // namespace kel::strumento
