#include "domain/lettura_fid.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

#include "domain/noti.h"
#include "domain/sinonimi.h"
#include "output/celle.h"
#include "text/errori.h"
#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

char minuscola(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool uguali(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, minuscola, minuscola);
}

std::optional<kel_funpos> numero(std::string_view testo) {
    const bool esadecimale = testo.starts_with("0x") || testo.starts_with("0X");
    const std::string_view cifre = esadecimale ? testo.substr(2) : testo;
    kel_funpos fid = 0;
    const auto letto = std::from_chars(cifre.data(), cifre.data() + cifre.size(), fid, esadecimale ? 16 : 10);
    if (cifre.empty() || letto.ec != std::errc() || letto.ptr != cifre.data() + cifre.size())
        return std::nullopt;
    return fid;
}

// The tables of legacy identifiers give the first row that has the text.
template <typename Tabella>
const char* come_scritto(const Tabella& tabella, std::string_view testo) {
    for (const auto& riga : tabella)
        if (!kelFidFineTabella(riga.fid) && riga.id != nullptr && *riga.id != '\0' && uguali(riga.id, testo))
            return riga.id;
    return nullptr;
}

std::optional<kel_funpos> vecchio(IFunzioni& catalogo, std::string_view testo) {
    const std::string scritto(testo);
    const char* suo = come_scritto(funz_ZumikoCam_base, testo);
    if (suo == nullptr)
        suo = come_scritto(funz_ZumikoCam_estese, testo);
    if (suo == nullptr)
        suo = come_scritto(funz_Kel, testo);
    for (const char* uno : {scritto.c_str(), suo})
        if (uno != nullptr)
            if (const kel_funpos fid = catalogo.getFidDaID(uno); fid != 0)
                return fid;
    return std::nullopt;
}

// The functions that have a text as their name; of short names only where no name is the same.
std::vector<const Noto*> con_nome(const std::vector<Noto>& noti, const std::string& cercato) {
    std::vector<const Noto*> trovati;
    for (const Specie specie : {Specie::nome, Specie::breve}) {
        for (const Noto& noto : noti)
            if (std::ranges::any_of(noto.testi, [&](const Testo& testo) {
                    return testo.specie == specie && normale(testo.testo) == cercato;
                }))
                trovati.push_back(&noto);
        if (!trovati.empty())
            break;
    }
    return trovati;
}

[[noreturn]] void ambiguo(IFunzioni& catalogo, std::string_view testo, const std::vector<const Noto*>& trovati) {
    constexpr std::size_t MASSIMO = 8;
    std::vector<std::string> alcuni;
    for (std::size_t i = 0; i < std::min(MASSIMO, trovati.size()); ++i)
        alcuni.push_back(esadecimale(trovati[i]->fid, 8) + " (" +
                         senza_nul(catalogo.getNomeFunzioneShort(trovati[i]->fid)) + ")");
    throw ErroreUso("'" + std::string(testo) + "' is the name of " + std::to_string(trovati.size()) +
                    " functions; accepted: " + elenco(alcuni) +
                    (trovati.size() > MASSIMO ? ", and more that kelfun find shows" : ""));
}

[[noreturn]] void nessuno(std::string_view testo, const std::vector<Noto>& noti) {
    std::vector<std::string> nomi;
    for (const Noto& noto : noti)
        for (const Testo& suo : noto.testi)
            if (suo.specie == Specie::nome || suo.specie == Specie::vecchio)
                nomi.push_back(suo.testo);
    throw NonTrovato("there is no legacy identifier and no name '" + std::string(testo) + "'; " +
                     proposta(testo, nomi) + "kelfun find searches names; " + FID_ACCETTATI);
}

}  // namespace

std::optional<kel_funpos> fid_da_numero_o_vecchio(IFunzioni& catalogo, std::string_view testo) {
    const auto letto = numero(testo);
    return letto ? letto : vecchio(catalogo, testo);
}

kel_funpos leggi_fid(IFunzioni& catalogo, std::string_view testo) {
    if (const auto fid = fid_da_numero_o_vecchio(catalogo, testo))
        return *fid;
    static const std::vector<Noto> noti = identificatori_noti(catalogo);  // the same of every catalogue
    const std::vector<const Noto*> trovati = con_nome(noti, normale(testo));
    if (trovati.size() == 1)
        return trovati.front()->fid;
    if (!trovati.empty())
        ambiguo(catalogo, testo, trovati);
    const char primo = testo.empty() ? '\0' : minuscola(testo.front());
    if ((primo < 'a' || primo > 'z') && primo != '_')
        throw ErroreUso("'" + std::string(testo) + "' is no identifier; " + FID_ACCETTATI);
    nessuno(testo, noti);
}

}  // namespace kel::strumento
