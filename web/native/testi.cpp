// What JavaScript asks of the object face and of the search, as C functions: texts in and out, lists as lines whose parts
// stand apart by tabs. A text that is given out stays until the next call.
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "CLaptimeAndStrings.h"
#include "IFunzioni.h"
#include "domain/avvisi_unita.h"
#include "domain/identificatore.h"
#include "domain/lettura_fid.h"
#include "domain/noti.h"
#include "domain/pacchetti.h"
#include "domain/ricerca.h"
#include "domain/sinonimi.h"
#include "domain/tipi_campione.h"
#include "text/numeri.h"
#include "text/parole.h"
#include "text/vicini.h"

namespace {

using namespace kel::strumento;

IFunzioni& catalogo() {
    static IFunzioni* uno = IFunzioni::CreateMe();
    return *uno;
}

const std::vector<Noto>& noti() {
    static const std::vector<Noto> tutti = identificatori_noti(catalogo());
    return tutti;
}

const char* da(std::string testo) {
    static std::string ultimo;
    ultimo = std::move(testo);
    return ultimo.c_str();
}

std::vector<std::string> parole(const char* testo) {
    std::vector<std::string> tutte;
    for (const std::string& parola : dividi(testo, ' '))
        if (!senza_bordi(parola).empty())
            tutte.push_back(parola);
    return tutte;
}

std::string righe(const std::vector<std::string>& testi) {
    std::string tutte;
    for (const std::string& testo : testi)
        tutte += testo + '\n';
    return tutte;
}

}  // namespace

extern "C" {

/// The long name; with `tutti` that of every field.
const char* kelWebNome(kel_funpos fid, int tutti) {
    return da(catalogo().getNomeFunzione(fid, tutti != 0));
}

const char* kelWebIdVecchio(kel_funpos fid) {
    return da(id_vecchio(fid));
}

/// Every known identifier, in the order of quantity, object and position.
const char* kelWebNoti() {
    std::string tutti;
    for (const Noto& noto : noti())
        tutti += std::to_string(noto.fid) + '\n';
    return da(tutti);
}

/// What words find, best first: identifier, grade, and for each text its kind and itself.
const char* kelWebCerca(const char* testo) {
    const std::vector<std::string> cercate = parole(testo);
    std::string tutti;
    if (!cercate.empty())
        for (const Trovato& trovato : cerca(noti(), cercate)) {
            tutti += std::to_string(trovato.noto->fid) + '\t' + nome_grado(trovato.grado);
            for (const Testo* uno : trovato.testi)
                (tutti += '\t').append(nome_specie(uno->specie)).append("\t").append(uno->testo);
            tutti += '\n';
        }
    return da(tutti);
}

/// Words of the catalogue that differ little from one.
const char* kelWebVicine(const char* parola) {
    return da(righe(vicine(noti(), parola)));
}

/// The nearest of some words, one a line, to a wrong one, its synonyms counted; "" where none is near.
const char* kelWebVicino(const char* parola, const char* parole) {
    const std::vector<std::string> tutte = dividi(parole, '\n');
    for (const std::string& sinonimo : sinonimi(parola))
        for (const std::string& una : tutte)
            if (normale(una) == normale(sinonimo))
                return da(una);
    const std::vector<std::string> vicine = vicini(parola, tutte, 1);
    return da(vicine.empty() ? "" : vicine.front());
}

/// An identifier from its digits or its legacy identifier: 1, or 0 for any other text.
int kelWebLeggiFid(const char* testo, kel_funpos* fid) {
    const auto letto = fid_da_numero_o_vecchio(catalogo(), testo);
    if (letto)
        *fid = *letto;
    return letto ? 1 : 0;
}

/// The identifiers of a name; of short names only where no name is the same.
const char* kelWebChiamati(const char* testo) {
    const std::string cercato = normale(testo);
    std::string tutti;
    for (const Specie specie : {Specie::nome, Specie::breve}) {
        for (const Noto& noto : noti())
            for (const Testo& suo : noto.testi)
                if (suo.specie == specie && normale(suo.testo) == cercato) {
                    tutti += std::to_string(noto.fid) + '\n';
                    break;
                }
        if (!tutti.empty())
            break;
    }
    return da(tutti);
}

/// All names and legacy identifiers.
const char* kelWebNomi() {
    std::string tutti;
    for (const Noto& noto : noti())
        for (const Testo& suo : noto.testi)
            if (suo.specie == Specie::nome || suo.specie == Specie::vecchio)
                tutti += suo.testo + '\n';
    return da(tutti);
}

/// What a text is in small letters with its words apart by one blank: texts that differ in this alone are the same name.
const char* kelWebNormale(const char* testo) {
    return da(normale(testo));
}

/// What there is to say of a conversion whose result is not what most people expect; "" for nothing.
const char* kelWebAvvisoUnita(kel_funpos fid, const char* da_udm, const char* a_udm, float valore) {
    return da(avviso_conversione(catalogo(), fid, da_udm, a_udm, valore).value_or(""));
}

/// The double that is written like a float.
double kelWebComeScritto(float valore) {
    return come_scritto(valore);
}

/// The functions to offer: value of the quantity, identifier, name.
const char* kelWebFunzioni() {
    std::vector<unsigned> tutte;
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
    catalogo().getFunzioni(funzioni, tutte);
    std::string testo;
    for (const auto& [grandezza, elenco] : funzioni)
        for (const SFunzionePerGF& funzione : elenco)
            testo += std::to_string(static_cast<unsigned>(grandezza)) + '\t' + std::to_string(funzione.funpos) + '\t' +
                     funzione.nome + '\n';
    return da(testo);
}

/// The choices of a function: "side" or "inout", its number and text, and "number" with the first and the last.
const char* kelWebScelte(kel_funpos fid) {
    std::map<unsigned, std::string> lati;
    std::map<unsigned, std::string> inout;
    int primo = -1;
    int ultimo = -1;
    catalogo().getFunzDettagli(fid, lati, inout, primo, ultimo);
    std::string testo;
    for (const auto& [bit, nome] : lati)
        testo += "side\t" + std::to_string(bit) + '\t' + nome + '\n';
    for (const auto& [valore, nome] : inout)
        testo += "inout\t" + std::to_string(valore) + '\t' + nome + '\n';
    if (primo >= 0)
        testo += "number\t" + std::to_string(primo) + '\t' + std::to_string(ultimo) + '\n';
    return da(testo);
}

/// The camera's functions: table, whether it is shown, and where the row lies.
const char* kelWebCamera() {
    std::map<const t_SFunzioneZumikoCam*, bool> visibili;
    IFunzioni& uno = catalogo();
    for (const auto* r = uno.getFirstFunzVisZumikoCam(); r != nullptr; r = uno.getNextFunzVisZumikoCam())
        visibili[r] = true;
    for (const auto* r = uno.getFirstFunzVisZumikoCamEstese(); r != nullptr; r = uno.getNextFunzVisZumikoCamEstese())
        visibili[r] = true;
    std::vector<const t_SFunzioneZumikoCam*> tutte;
    uno.getAllFunzZumikoCamBasePerSw(tutte);
    const std::size_t base = tutte.size();
    uno.getAllFunzZumikoCamEstesePerSw(tutte);
    std::string testo;
    for (std::size_t i = 0; i < tutte.size(); ++i)
        testo += std::string(i < base ? "basic" : "extended") + (visibili.contains(tutte[i]) ? "\t1\t" : "\t0\t") +
                 std::to_string(reinterpret_cast<std::uintptr_t>(tutte[i])) + '\n';
    return da(testo);
}

/// The packets whose subfields are known: identifier, and where its table lies.
const char* kelWebPacchetti() {
    std::string testo;
    for (const Pacchetto& pacchetto : tutti_i_pacchetti())
        testo += std::to_string(pacchetto.fid) + '\t' +
                 std::to_string(reinterpret_cast<std::uintptr_t>(pacchetto.sottocampi)) + '\n';
    return da(testo);
}

/// The sample types in the order of their codes: name, content.
const char* kelWebTipi() {
    std::string testo;
    for (unsigned tipo = 0; tipo < NUM_TIPI_CAMPIONE; ++tipo)
        testo += std::string(nome_campione(tipo)) + '\t' + contenuto_campione(tipo) + '\n';
    return da(testo);
}

/// The sample type of a packet channel; -1 for any other function.
int kelWebTipoPacchetto(kel_funpos fid) {
    const auto tipo = tipo_pacchetto(fid);
    return tipo ? static_cast<int>(*tipo) : -1;
}

const char* kelWebTempo(int ms) {
    return da(CLaptimeAndStrings::LapTimeToStringa(ms));
}

const char* kelWebNumeroETempo(int numero, int ms) {
    return da(CLaptimeAndStrings::LapNumAndTimeToStringa(numero, ms));
}

int kelWebLeggiTempo(const char* testo) {
    return CLaptimeAndStrings::StringaToLapTime(testo);
}

}  // extern "C"
