#include "domain/identificatore.h"

#include <algorithm>
#include <list>

#include "domain/campi.h"
#include "domain/lettura_fid.h"
#include "domain/sinonimi.h"
#include "text/errori.h"
#include "text/numeri.h"
#include "text/parole.h"
#include "text/vicini.h"

namespace kel::strumento {

namespace {

// The three side fields share one option. Texts come first: "Center" is the centre of left and right, "xCenter" that of
// front and rear, "zCenter" that of up and down.
struct CampoLato {
    Vocabolario vocabolario;
    unsigned shift = 0;
};
const CampoLato LATI[] = {
    {{OPZIONE_LATO, "FID_LEFTRIGHT_", leftright_FunzKel, FID_MASK_LEFTRIGHT}, FID_SHIFT_LEFTRIGHT},
    {{OPZIONE_LATO, "FID_FRONTREAR_", frontrear_FunzKel, FID_MASK_FRONTREAR}, FID_SHIFT_FRONTREAR},
    {{OPZIONE_LATO, "FID_UPDOWN_", updown_FunzKel, FID_MASK_UPDOWN}, FID_SHIFT_UPDOWN},
};

// One side by name, as bits; 0 when there is no such side.
kel_funpos bit_lato(std::string_view nome) {
    const std::string cercato = normale(nome);
    for (const CampoLato& campo : LATI)
        for (const s_campo_fid& riga : campo.vocabolario.righe)
            if (riga.valore != 0 && (normale(riga.testo) == cercato || normale(riga.xml) == cercato))
                return static_cast<kel_funpos>(riga.valore) << campo.shift;
    return 0;
}

kel_funpos leggi_lati(const std::vector<std::string>& testi) {
    kel_funpos bit = 0;
    for (const std::string& testo : testi) {
        // An XML name is one side; else every word is: "front left".
        std::vector<std::string> nomi;
        if (bit_lato(testo) != 0)
            nomi.push_back(testo);
        else
            nomi = dividi(normale(testo), ' ');
        for (const std::string& nome : nomi) {
            const kel_funpos nuovo = bit_lato(nome);
            if (nuovo == 0)
                throw ErroreUso("there is no --side '" + nome + "'; " + forse(nome, nomi_lati()) +
                                "accepted: " + elenco(nomi_lati()) + ", one of each direction, such as 'front left'");
            for (const CampoLato& campo : LATI) {
                const kel_funpos maschera = campo.vocabolario.massimo << campo.shift;
                if ((nuovo & maschera) != 0 && (bit & maschera) != 0 && (nuovo & maschera) != (bit & maschera))
                    throw ErroreUso("--side '" + nome +
                                    "' contradicts the one before it; accepted: one of each direction");
            }
            bit |= nuovo;
        }
    }
    return bit;
}

}  // namespace

const std::vector<std::string>& nomi_lati() {
    static const std::vector<std::string> nomi = [] {
        std::vector<std::string> tutti;
        for (const CampoLato& campo : LATI)
            for (const s_campo_fid& riga : campo.vocabolario.righe)
                if (riga.valore != 0)
                    tutti.push_back(normale(riga.testo));
        return tutti;
    }();
    return nomi;
}

bool CampiDati::dati() const {
    return !grandezza.empty() || !oggetto.empty() || !posizione.empty() || !inout.empty() || numero ||
           !dettagli.empty() || !specializzazione.empty() || !lati.empty();
}

void aggiungi_campi(Comando& comando, CampiDati& campi) {
    const char* gruppo = "Fields by name (XML name, its last words such as 'speed', text or number)";
    comando.opzione(OPZIONE_GRANDEZZA, campi.grandezza, "Physical quantity: speed, oil pressure is 'pressure'")
        .valore("NAME")
        .gruppo(gruppo);
    comando.opzione(OPZIONE_OGGETTO, campi.oggetto, "Measured object: oil, water, lap...")
        .valore("NAME")
        .gruppo(gruppo);
    comando.opzione(OPZIONE_POSIZIONE, campi.posizione, "Position: wheel, engine, gps...")
        .valore("NAME")
        .gruppo(gruppo);
    comando.opzione(OPZIONE_INOUT, campi.inout, "in, out or center").valore("DIRECTION").gruppo(gruppo);
    comando.opzione(OPZIONE_LATO, campi.lati, "Sides, such as 'front left'; may be repeated")
        .valore("SIDE")
        .gruppo(gruppo)
        .ripetibile();
    comando.intero(OPZIONE_NUMERO, campi.numero, 0, FID_MASK_NUMBER, "Instance number, 0 to 63, in place of sides")
        .valore("NUMBER")
        .gruppo(gruppo);
    comando.opzione(OPZIONE_DETTAGLI, campi.dettagli, "Kind of packet: laptime, datetime, gps")
        .valore("NAME")
        .gruppo(gruppo);
    comando
        .opzione(OPZIONE_SPECIALIZZAZIONE, campi.specializzazione, "Its specialisation: kelnavsol, ubxnavsol, kel2g...")
        .valore("NAME")
        .gruppo(gruppo);
}

kel_funpos componi(const CampiDati& campi) {
    kel_funpos fid = 0;
    unsigned grandezza = campi.grandezza.empty() ? 0 : leggi_campo(grandezze(), campi.grandezza);
    if (!campi.dettagli.empty() || !campi.specializzazione.empty()) {
        if (campi.grandezza.empty())
            grandezza = FID_PHI_PACKAGE;
        if (grandezza != FID_PHI_PACKAGE)
            throw ErroreUso("only packets have --details and --specialisation; accepted with them: --quantity package");
    }
    if (grandezza == FID_PHI_PACKAGE) {
        if (!campi.oggetto.empty() || !campi.posizione.empty())
            throw ErroreUso("a packet has no --object and no --position; accepted: --details, --specialisation");
        const unsigned dettagli =
            campi.dettagli.empty() ? 0 : leggi_campo(*vocabolario(OPZIONE_DETTAGLI), campi.dettagli);
        if (!campi.specializzazione.empty() && specializzazioni(dettagli).empty())
            throw ErroreUso(
                "only lap and GPS packets have a --specialisation; accepted: --details laptime, --details gps");
        const unsigned specializzazione =
            campi.specializzazione.empty()
                ? 0
                : leggi_campo(*vocabolario(OPZIONE_SPECIALIZZAZIONE, dettagli), campi.specializzazione);
        fid = kelFidComponi(grandezza, dettagli, specializzazione);
    } else {
        const unsigned oggetto = campi.oggetto.empty() ? 0 : leggi_campo(*vocabolario(OPZIONE_OGGETTO), campi.oggetto);
        const unsigned posizione =
            campi.posizione.empty() ? 0 : leggi_campo(*vocabolario(OPZIONE_POSIZIONE), campi.posizione);
        fid = kelFidComponi(grandezza, oggetto, posizione);
    }
    if (!campi.inout.empty())
        fid |= kelFidBitInOut(leggi_campo(*vocabolario(OPZIONE_INOUT), campi.inout));
    if (campi.numero) {
        if (!campi.lati.empty())
            throw ErroreUso("a function has either a --number or a --side; accepted: one of the two");
        fid |= kelFidIstanza(*campi.numero);
    }
    return fid | leggi_lati(campi.lati);
}

kel_funpos risolvi(IFunzioni& catalogo, const std::string& argomento, const CampiDati& campi) {
    if (!argomento.empty() && campi.dati())
        throw ErroreUso("an identifier and its fields are both given; accepted: one of the two");
    if (argomento.empty() && !campi.dati())
        throw ErroreUso(std::string("there is no identifier; ") + FID_ACCETTATI);
    return campi.dati() ? componi(campi) : leggi_fid(catalogo, argomento);
}

std::string id_vecchio(kel_funpos fid) {
    if (const t_SFunzioneZumikoCam* riga = kelFunGetFunVecchiaZumikoDaFID(fid))
        return riga->id;
    for (const t_SFunzioneVecchia& riga : funz_Kel)
        if (riga.fid == fid && !kelFidFineTabella(fid))
            return riga.id;
    return "";
}

std::string leggi_udm(const IFunzioni& catalogo, kel_funpos fid, const std::string& udm) {
    if (udm.empty())
        return catalogo.getUnitaBase(fid);
    std::list<std::string> unita;
    catalogo.getFunzUIVs(fid, unita);
    if (std::find(unita.begin(), unita.end(), udm) != unita.end())
        return udm;
    const std::vector<std::string> tutte(unita.begin(), unita.end());
    throw ErroreUso("'" + udm + "' is no unit of " + esadecimale(fid, 8) + "; " + proposta(udm, tutte) +
                    "accepted: " + (tutte.empty() ? "none, this function has no units" : elenco(tutte)));
}

}  // namespace kel::strumento
