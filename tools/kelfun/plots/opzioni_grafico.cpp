#include "plots/opzioni_grafico.h"

#include "cli/forma.h"
#include "text/durata.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

constexpr int MISURA_MASSIMA = 10000;

std::optional<double> secondi(const char* nome, const std::optional<std::string>& testo) {
    if (!testo)
        return std::nullopt;
    const auto letti = leggi_durata(*testo);
    if (!letti)
        throw ErroreUso(std::string(nome) + " '" + *testo + "' is no time; accepted: m:ss, h:mm:ss, or seconds");
    return letti;
}

}  // namespace

Opzione aggiungi_grafico(Comando& comando, SceltaGrafico& scelta) {
    Opzione file = comando
                       .opzione("--plot", scelta.file,
                                "Draw a plot, no table: FILE.svg, FILE.png or FILE.pdf with gnuplot, - in the terminal")
                       .valore("FILE");
    escludi_forma(comando, file);
    comando.opzione("--size", scelta.misura, "Size of the plot: dots of a picture, characters of a terminal")
        .valore("WxH");
    return file;
}

void aggiungi_tratto(Comando& comando, SceltaGrafico& scelta) {
    comando.opzione("--from", scelta.da, "Draw from this time on: m:ss or seconds").valore("TIME");
    comando.opzione("--to", scelta.a, "Draw up to this time: m:ss or seconds").valore("TIME");
    comando
        .opzione("--x", scelta.ascissa, "Draw over time (default) or over distance, which is computed from the speed")
        .scelta({"time", "distance"});
}

void verifica_senza_grafico(const SceltaGrafico& scelta) {
    if (scelta.file)
        return;
    for (const auto& [nome, valore] :
         {std::pair("--size", &scelta.misura), {"--from", &scelta.da}, {"--to", &scelta.a}, {"--x", &scelta.ascissa}})
        if (*valore)
            throw ErroreUso(std::string(nome) + " is for a plot; accepted: --plot FILE with it");
}

Tratto tratto_scelto(const SceltaGrafico& scelta, bool con_tempo) {
    verifica_senza_grafico(scelta);
    Tratto tratto;
    tratto.ascissa = con_tempo ? Ascissa::tempo : Ascissa::numero;
    if (scelta.ascissa == "distance")
        tratto.ascissa = Ascissa::distanza;
    tratto.da = secondi("--from", scelta.da);
    tratto.a = secondi("--to", scelta.a);
    if (!con_tempo && (tratto.da || tratto.a || scelta.ascissa))
        throw ErroreUso(
            "--from, --to and --x take times, and these records have none; accepted: --time or --rate with them");
    if (tratto.da && tratto.a && *tratto.a <= *tratto.da)
        throw ErroreUso("--to '" + *scelta.a + "' is not behind --from '" + *scelta.da + "'; accepted: a later time");
    return tratto;
}

std::optional<Misura> leggi_misura(const std::string& testo) {
    const std::size_t per = testo.find('x');
    if (per == std::string::npos)
        return std::nullopt;
    const auto larghezza = leggi_intero(testo.substr(0, per), 1, MISURA_MASSIMA);
    const auto altezza = leggi_intero(testo.substr(per + 1), 1, MISURA_MASSIMA);
    if (!larghezza || !altezza)
        return std::nullopt;
    return Misura{static_cast<int>(*larghezza), static_cast<int>(*altezza)};
}

}  // namespace kel::strumento
