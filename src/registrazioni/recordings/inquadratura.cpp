#include "recordings/inquadratura.h"

#include <algorithm>
#include <array>
#include <vector>

#include "common/errore.h"
#include "common/numeri.h"

namespace kel_registrazioni {

namespace {

constexpr Orario TUTTI[] = {Orario::nessuno, Orario::u32ms, Orario::u64us};
constexpr std::uint64_t ORA_MS = 3600000;  // no logger waits longer from record to record

std::uint64_t orario_di(const std::uint8_t* byte, Orario orario) {
    std::uint64_t valore = 0;
    for (std::size_t i = byte_orario(orario); i-- > 0;)
        valore = valore << 8 | byte[i];
    return valore;
}

// Steps from stamp to stamp, as the stamps count: a counter of 32 bits goes on from 4294967295 to 0.
std::vector<std::uint64_t> passi(std::span<const std::uint8_t> testa, const EsameOrario& esame) {
    std::vector<std::uint64_t> tutti;
    for (std::size_t i = 1; i < esame.record; ++i) {
        const std::uint64_t prima = orario_di(testa.data() + (i - 1) * esame.passo, esame.orario);
        const std::uint64_t dopo = orario_di(testa.data() + i * esame.passo, esame.orario);
        tutti.push_back(esame.orario == Orario::u32ms ? static_cast<std::uint32_t>(dopo - prima) : dopo - prima);
    }
    return tutti;
}

// One step in five may differ: records get lost, and sessions are joined.
void guarda_passi(EsameOrario& esame, const std::vector<std::uint64_t>& tutti) {
    const std::uint64_t massimo = esame.orario == Orario::u32ms ? ORA_MS : ORA_MS * 1000;
    std::vector<std::uint64_t> avanti;
    std::copy_if(tutti.begin(), tutti.end(), std::back_inserter(avanti),
                 [massimo](std::uint64_t passo) { return passo > 0 && passo <= massimo; });
    if (avanti.empty())
        return;
    const auto mezzo = avanti.begin() + static_cast<std::ptrdiff_t>(avanti.size() / 2);
    std::nth_element(avanti.begin(), mezzo, avanti.end());
    esame.intervallo = *mezzo;
    const std::uint64_t largo = std::max<std::uint64_t>(1, esame.intervallo / 2);
    const auto uguali = std::count_if(avanti.begin(), avanti.end(), [&](std::uint64_t passo) {
        return passo + largo >= esame.intervallo && passo <= esame.intervallo + largo;
    });
    esame.regolare = tutti.size() - static_cast<std::size_t>(uguali) <= tutti.size() / 5;
}

std::string misurato(Orario orario, std::uint64_t intervallo) {
    if (orario == Orario::u64us && intervallo % 1000 != 0)
        return std::to_string(intervallo) + " us";
    return std::to_string(orario == Orario::u64us ? intervallo / 1000 : intervallo) + " ms";
}

// "u32ms: 104 records of 103 bytes and 1 byte over, stamps not in even steps".
std::string descritto(const EsameOrario& esame, std::optional<std::uint64_t> lunghezza) {
    std::string testo = std::string(nome_orario(esame.orario)) + ": records of " + contati(esame.passo, "byte");
    if (lunghezza)
        testo = std::string(nome_orario(esame.orario)) + ": " + contati(*lunghezza / esame.passo, "record") + " of " +
                contati(esame.passo, "byte") + (esame.entra() ? "" : " and " + contati(*esame.resto, "byte") + " over");
    if (esame.orario != Orario::nessuno && esame.record > 1)
        testo += esame.regolare ? ", every " + misurato(esame.orario, esame.intervallo) : ", its steps not even";
    return testo;
}

using Esami = std::array<EsameOrario, std::size(TUTTI)>;

Esami esamina_tutti(std::span<const std::uint8_t> testa, std::size_t dimensione,
                    std::optional<std::uint64_t> lunghezza) {
    Esami esami;
    std::transform(std::begin(TUTTI), std::end(TUTTI), esami.begin(),
                   [&](Orario orario) { return esamina_orario(testa, dimensione, orario, lunghezza); });
    return esami;
}

[[noreturn]] void indeciso(const char* perche, const Esami& esami, std::optional<std::uint64_t> lunghezza,
                           const Parole& parole) {
    std::string testo = std::string("the framing of the samples is not clear: ") + perche;
    if (lunghezza)
        testo += " (" + contati(*lunghezza, "byte") + ")";
    std::string prima = std::string("; ") + parole.orario + " may be ";
    for (const EsameOrario& esame : esami) {
        testo += prima + descritto(esame, lunghezza);
        prima = "; ";
    }
    throw Errore(testo);
}

Inquadratura presa(const EsameOrario& esame, const std::string& perche) {
    std::string testo = std::string("time stamps: ") + nome_orario(esame.orario);
    if (esame.orario != Orario::nessuno && esame.record > 1)
        testo += ", every " + misurato(esame.orario, esame.intervallo);
    return {esame.orario, testo + perche};
}

}  // namespace

const char* nome_orario(Orario orario) {
    return orario == Orario::u32ms ? "u32ms" : orario == Orario::u64us ? "u64us" : "none";
}

std::string lunghezza_errata(std::uint64_t lunghezza, std::size_t passo) {
    return contati(lunghezza, "byte") + (lunghezza == 1 ? " is" : " are") + " no whole number of records of " +
           contati(passo, "byte") + ": " + contati(lunghezza / passo, "record") + " and " +
           contati(lunghezza % passo, "byte") + " over";
}

EsameOrario esamina_orario(std::span<const std::uint8_t> testa, std::size_t dimensione, Orario orario,
                           std::optional<std::uint64_t> lunghezza) {
    EsameOrario esame;
    esame.orario = orario;
    esame.passo = dimensione + byte_orario(orario);
    esame.record = testa.size() / esame.passo;
    if (lunghezza)
        esame.resto = *lunghezza % esame.passo;
    if (orario != Orario::nessuno && esame.record > 1)
        guarda_passi(esame, passi(testa, esame));
    return esame;
}

Inquadratura scegli_inquadratura(std::span<const std::uint8_t> testa, std::size_t dimensione,
                                 std::optional<std::uint64_t> lunghezza, const Parole& parole) {
    const Esami esami = esamina_tutti(testa, dimensione, lunghezza);
    const EsameOrario& nessuno = esami.front();
    // How many pass a test, and the first that does.
    const auto quanti = [&esami](auto prova) { return std::count_if(esami.begin(), esami.end(), prova); };
    const auto primo = [&esami](auto prova) -> const EsameOrario& {
        return *std::find_if(esami.begin(), esami.end(), prova);
    };
    const auto provato = [](const EsameOrario& e) { return e.provato(); };
    const auto provatoIntero = [](const EsameOrario& e) { return e.provato() && e.entra(); };
    if (quanti(provatoIntero) == 1)
        return presa(primo(provatoIntero), "");
    if (quanti(provato) == 1)
        return presa(primo(provato), "");  // the end has cut its last record off
    if (quanti(provato) > 1)
        indeciso("time stamps run in even steps under more than one", esami, lunghezza, parole);

    // A short file: one step is always even, and one record has none. Only here the length decides.
    const auto coppia = [](const EsameOrario& e) { return e.regolare && e.resto && e.entra(); };
    const auto solo = [](const EsameOrario& e) {
        return e.orario != Orario::nessuno && e.record == 1 && e.resto && e.entra();
    };
    if (nessuno.entra() && quanti(coppia) > 0)
        indeciso("two records are too few to tell", esami, lunghezza, parole);
    if (quanti(coppia) == 1)
        return presa(primo(coppia), ", as no other framing fits the length");
    if (nessuno.entra())
        return presa(nessuno, quanti(solo) > 0
                                  ? std::string("; but it may be one record with a stamp (") + parole.orario + ")"
                                  : std::string(", as nothing runs forward in even steps"));
    if (quanti(solo) == 1)
        return presa(primo(solo), ", as no other framing fits the length");
    indeciso("none fits", esami, lunghezza, parole);
}

Inquadratura verifica_inquadratura(std::span<const std::uint8_t> testa, std::size_t dimensione,
                                   std::optional<std::uint64_t> lunghezza, Orario scelto, const Parole& parole) {
    const Esami esami = esamina_tutti(testa, dimensione, lunghezza);
    const EsameOrario& suo =
        *std::find_if(esami.begin(), esami.end(), [scelto](const EsameOrario& e) { return e.orario == scelto; });
    const auto meglio = std::find_if(esami.begin(), esami.end(), [scelto](const EsameOrario& e) {
        return e.orario != scelto && e.provato() && e.entra();
    });
    const std::string consiglio =
        meglio == esami.end() ? "" : std::string("; ") + parole.orario + " " + descritto(*meglio, lunghezza);
    if (!suo.entra() && !suo.provato())
        throw Errore(lunghezza_errata(lunghezza.value_or(0), suo.passo) + consiglio);
    Inquadratura inquadratura{scelto, ""};
    const std::string opzione = std::string("warning: ") + parole.orario + " " + nome_orario(scelto);
    if (scelto != Orario::nessuno && suo.record > 1 && !suo.regolare)
        inquadratura.detto = opzione + ": the time stamps do not run forward in even steps" + consiglio;
    else if (!consiglio.empty() && !suo.provato())
        inquadratura.detto = opzione + ": time stamps seem to be there" + consiglio;
    return inquadratura;
}

}  // namespace kel_registrazioni
