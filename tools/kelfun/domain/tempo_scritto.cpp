#include "domain/tempo_scritto.h"

#include <algorithm>
#include <vector>

#include "CLaptimeAndStrings.h"
#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

constexpr std::int64_t MILLE = 1000;
constexpr std::int64_t SESSANTA = 60;
constexpr int ORA = 3600000;
constexpr std::size_t CIFRE_MILLESIMI = 3;
constexpr std::size_t CIFRE_MASSIME = 9;

// A number of a time, and the separators between it and the next.
struct Numero {
    std::string cifre;
    std::string dopo;
};

bool cifra(char c) {
    return c >= '0' && c <= '9';
}

// Nothing if there is any character but digits and separators.
std::vector<Numero> numeri(std::string_view testo) {
    std::vector<Numero> tutti;
    while (!testo.empty()) {
        const std::size_t cifre = static_cast<std::size_t>(std::ranges::find_if_not(testo, cifra) - testo.begin());
        Numero uno{std::string(testo.substr(0, cifre)), ""};
        testo.remove_prefix(cifre);
        const std::size_t altri = static_cast<std::size_t>(std::ranges::find_if(testo, cifra) - testo.begin());
        uno.dopo = testo.substr(0, altri);
        testo.remove_prefix(altri);
        const bool buono = uno.dopo.find_first_not_of(":.,'\"") == std::string::npos && uno.dopo.size() <= 2;
        if (uno.cifre.empty() || uno.cifre.size() > CIFRE_MASSIME || !buono || (uno.dopo.empty() && !testo.empty()))
            return {};
        tutti.push_back(std::move(uno));
    }
    return tutti;
}

std::int64_t valore(const std::string& cifre) {
    return leggi_intero(cifre, 0, std::int64_t{1} << 32).value_or(0);
}

// Digits after the point as thousandths, to the nearest.
std::int64_t millesimi(std::string cifre) {
    const bool in_su = cifre.size() > CIFRE_MILLESIMI && cifre[CIFRE_MILLESIMI] >= '5';
    cifre.resize(CIFRE_MILLESIMI, '0');
    return valore(cifre) + (in_su ? 1 : 0);
}

// Whether the last number is a fraction of a second: after a point or a comma, after seconds that end with a mark, or
// three digits where seconds have two.
bool frazione(const std::vector<Numero>& tutti) {
    if (tutti.size() < 2)
        return false;
    const std::string& prima = tutti[tutti.size() - 2].dopo;
    return prima.find_first_of(".,\"") != std::string::npos || prima == "''" ||
           (tutti.size() > 2 && tutti.back().cifre.size() == CIFRE_MILLESIMI);
}

// What would be written for it.
std::string scrittura(std::int64_t millisecondi) {
    const auto ms = static_cast<int>(millisecondi);
    if (millisecondi >= 0 && (millisecondi < ORA || millisecondi % MILLE == 0))
        return "write '" + CLaptimeAndStrings::LapTimeToStringa(ms) + "'";
    return "no text can say it, give the milliseconds";
}

bool di_giro(std::int64_t millisecondi) {
    return millisecondi >= INT32_MIN && millisecondi <= INT32_MAX;
}

std::string dal_lettore(const std::string& testo, int letto) {
    return "'" + testo + "' is read as " + std::to_string(letto) + " ms";
}

}  // namespace

std::optional<std::int64_t> tempo_inteso(std::string_view testo) {
    const std::string senza = senza_bordi(testo);
    const bool negativo = senza.starts_with('-');
    std::vector<Numero> tutti = numeri(std::string_view(senza).substr(negativo ? 1 : 0));
    if (tutti.empty())
        return std::nullopt;
    std::int64_t resto = 0;
    if (frazione(tutti)) {
        resto = millesimi(tutti.back().cifre);
        tutti.pop_back();
    }
    if (tutti.size() > 3)
        return std::nullopt;
    std::int64_t secondi = 0;
    for (const Numero& uno : tutti)
        secondi = secondi * SESSANTA + valore(uno.cifre);
    const std::int64_t inteso = secondi * MILLE + resto;
    return negativo ? -inteso : inteso;
}

std::string proposta_tempo(const std::string& testo) {
    const auto inteso = tempo_inteso(testo);
    const bool parti = testo.find_first_of("'\",") != std::string::npos;
    if (!inteso || !parti || *inteso < 0 || *inteso >= ORA)
        return "";
    return "did you mean '" + CLaptimeAndStrings::LapTimeToStringa(static_cast<int>(*inteso)) + "'? ";
}

std::optional<std::string> avviso_lettura(const std::string& testo, int letto) {
    const auto inteso = tempo_inteso(testo);
    if (!inteso)
        return dal_lettore(testo, letto) + ", but is no time as people write it, such as '1:23.456'";
    if (*inteso == letto)
        return std::nullopt;
    if (!di_giro(*inteso))
        return dal_lettore(testo, letto) + ", which it is not: it is longer than a lap time can be";
    return dal_lettore(testo, letto) + "; if " + std::to_string(*inteso) + " ms are meant, " + scrittura(*inteso);
}

std::optional<std::string> avviso_riga(const std::string& riga, int numero, int letto) {
    const std::size_t tratto = riga.find(" - ");
    const std::string prima = senza_bordi(riga.substr(0, tratto));
    if (tratto == std::string::npos || leggi_intero(prima, INT32_MIN, INT32_MAX) != numero)
        return "'" + riga + "' is read as lap " + std::to_string(numero) + " and " + std::to_string(letto) +
               " ms, but is no line of a lap list, such as '  7 - 1:23.456'";
    const std::string tempo = riga.substr(tratto + 3);
    if (tempo_inteso(tempo) == letto)
        return std::nullopt;
    const auto avviso = avviso_lettura(tempo, letto);
    if (CLaptimeAndStrings::StringaToLapTime(tempo) != letto)
        return "the time of '" + riga + "' is read as " + std::to_string(letto) +
               " ms: it is looked for from the seventh character on";
    return "of '" + riga + "' " + avviso.value_or("");
}

std::optional<std::string> avviso_scrittura(int millisecondi) {
    const std::string testo = CLaptimeAndStrings::LapTimeToStringa(millisecondi);
    if (millisecondi < 0)
        return std::to_string(millisecondi) + " ms is written as '" + testo +
               "': the text of a negative time goes through unsigned numbers";
    if (millisecondi >= ORA && millisecondi % MILLE != 0)
        return std::to_string(millisecondi) + " ms is written as '" + testo +
               "': from one hour on the text leaves the thousandths out";
    return std::nullopt;
}

}  // namespace kel::strumento
