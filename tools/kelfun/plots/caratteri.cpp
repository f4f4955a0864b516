#include "plots/caratteri.h"

#include <algorithm>
#include <charconv>

#include "plots/programma_esterno.h"
#include "text/utf8.h"

namespace kel::strumento {

namespace {

constexpr std::uint32_t ASCII = 0x80;

// "20-7e" or "a0"; an empty range for anything else.
std::pair<std::uint32_t, std::uint32_t> intervallo(std::string_view testo) {
    const auto codice = [](std::string_view cifre, std::uint32_t& dove) {
        const auto [fine, errore] = std::from_chars(cifre.data(), cifre.data() + cifre.size(), dove, 16);
        return errore == std::errc() && fine == cifre.data() + cifre.size();
    };
    const std::size_t tratto = testo.find('-');
    std::uint32_t da = 0;
    std::uint32_t a = 0;
    if (!codice(testo.substr(0, tratto), da) ||
        !codice(tratto == std::string_view::npos ? testo : testo.substr(tratto + 1), a))
        return {1, 0};
    return {da, a};
}

// All texts that a picture shows.
std::vector<std::string*> testi(Grafico& grafico) {
    std::vector<std::string*> tutti = {&grafico.titolo, &grafico.udm_velocita};
    for (Pannello& pannello : grafico.pannelli) {
        tutti.push_back(&pannello.nome);
        tutti.push_back(&pannello.udm);
        for (Curva& curva : pannello.curve)
            tutti.push_back(&curva.nome);
    }
    return tutti;
}

bool tutto_ascii(const std::string& testo) {
    return std::ranges::all_of(testo, [](char c) { return static_cast<unsigned char>(c) < ASCII; });
}

}  // namespace

Caratteri::Caratteri(std::string_view insiemi) {
    while (!insiemi.empty()) {
        const std::string_view uno = insiemi.substr(0, insiemi.find_first_of(" \n"));
        if (const auto codici = intervallo(uno); codici.first <= codici.second)
            intervalli_.push_back(codici);
        insiemi.remove_prefix(std::min(insiemi.size(), uno.size() + 1));
    }
}

bool Caratteri::ha(std::uint32_t codice) const {
    return std::ranges::any_of(intervalli_,
                               [codice](const auto& uno) { return codice >= uno.first && codice <= uno.second; });
}

std::vector<std::string> togli_mancanti(Grafico& grafico, const Caratteri& caratteri) {
    std::vector<std::string> tolti;
    for (std::string* testo : testi(grafico)) {
        std::string nuovo;
        for (std::string_view resto = *testo; !resto.empty();) {
            const Carattere primo = primo_carattere(resto);
            const std::string uno(resto.substr(0, std::max<std::size_t>(1, primo.byte)));
            const bool resta = primo.byte == 0 || primo.codice < ASCII || caratteri.ha(primo.codice);
            nuovo += resta ? uno : "?";
            if (!resta && std::ranges::find(tolti, uno) == tolti.end())
                tolti.push_back(uno);
            resto.remove_prefix(uno.size());
        }
        *testo = std::move(nuovo);
    }
    return tolti;
}

std::vector<std::string> togli_senza_font(Grafico& grafico) {
    const std::vector<std::string*> tutti = testi(grafico);
    if (std::ranges::all_of(tutti, [](const std::string* testo) { return tutto_ascii(*testo); }))
        return {};
    const auto programma = cerca_programma("fc-list");
    if (!programma)
        return {};
    const EsitoProgramma esito =
        esegui_programma(*programma, {"fc-list", "--format", "%{charset}\n", ":scalable=true"}, "");
    const Caratteri caratteri(esito.uscita);
    return esito.stato != 0 || caratteri.vuoti() ? std::vector<std::string>() : togli_mancanti(grafico, caratteri);
}

}  // namespace kel::strumento
