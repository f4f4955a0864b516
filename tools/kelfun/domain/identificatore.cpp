#include "domain/identificatore.h"

#include <charconv>
#include <list>

#include "domain/campi.h"
#include "text/errori.h"
#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

const Vocabolario OGGETTI = {"--object", "FID_OBJ_", oggetto_misurato_FunzKel, FID_MASK_OBJ};
const Vocabolario POSIZIONI = {"--position", "FID_POS_", posizione_FunzKel, FID_MASK_POS};
const Vocabolario INOUT = {"--inout", "FID_INOUT_", inout_FunzKel, FID_MASK_INOUT};
const Vocabolario DETTAGLI = {"--details", "FID_DETTAGLI_", dettagli_FunzKel, FID_MASK_OBJ};

constexpr const char* ACCETTATI =
    "accepted: hexadecimal (0x10), decimal (16) up to 32 bits, a legacy identifier (REF_SPEED), or fields "
    "(--quantity speed)";

unsigned leggiSpecializzazione(unsigned dettagli, std::string_view nome) {
    const char* prefisso = dettagli == FID_DETTAGLI_GPS ? "FID_SPEC_GPS_" : "FID_SPEC_LAPTIME_";
    return leggiCampo({"--specialisation", prefisso, specializzazioni(dettagli), FID_MASK_POS}, nome);
}

// The three side fields share one option. Texts come first: "Center" is the centre of left and right, "xCenter" that of
// front and rear, "zCenter" that of up and down.
struct CampoLato {
    Vocabolario vocabolario;
    unsigned shift = 0;
};
const CampoLato LATI[] = {
    {{"--side", "FID_LEFTRIGHT_", leftright_FunzKel, FID_MASK_LEFTRIGHT}, FID_SHIFT_LEFTRIGHT},
    {{"--side", "FID_FRONTREAR_", frontrear_FunzKel, FID_MASK_FRONTREAR}, FID_SHIFT_FRONTREAR},
    {{"--side", "FID_UPDOWN_", updown_FunzKel, FID_MASK_UPDOWN}, FID_SHIFT_UPDOWN},
};

// One side by name, as bits; 0 when there is no such side.
kel_funpos bitLato(std::string_view nome) {
    const std::string cercato = normale(nome);
    for (const CampoLato& campo : LATI)
        for (const s_campo_fid& riga : campo.vocabolario.righe)
            if (riga.valore != 0 && (normale(riga.testo) == cercato || normale(riga.xml) == cercato))
                return static_cast<kel_funpos>(riga.valore) << campo.shift;
    return 0;
}

kel_funpos leggiLati(const std::vector<std::string>& testi) {
    kel_funpos bit = 0;
    for (const std::string& testo : testi) {
        // An XML name is one side; else every word is: "front left".
        std::vector<std::string> nomi;
        if (bitLato(testo) != 0)
            nomi.push_back(testo);
        else
            nomi = dividi(normale(testo), ' ');
        for (const std::string& nome : nomi) {
            const kel_funpos nuovo = bitLato(nome);
            if (nuovo == 0)
                throw ErroreUso(
                    "there is no --side '" + nome +
                    "'; accepted: left, right, center, front, rear, xcenter, up, down, zcenter, one of each "
                    "direction, such as 'front left'");
            for (const CampoLato& campo : LATI) {
                const kel_funpos maschera = 3u << campo.shift;
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

bool CampiDati::dati() const {
    return !grandezza.empty() || !oggetto.empty() || !posizione.empty() || !inout.empty() || !numero.empty() ||
           !dettagli.empty() || !specializzazione.empty() || !lati.empty();
}

void aggiungiCampi(Comando& comando, CampiDati& campi) {
    const char* gruppo = "Fields by name (XML name, its last words such as 'speed', text or number)";
    comando.opzione("--quantity", campi.grandezza, "Physical quantity: speed, oil pressure is 'pressure'")
        .valore("NAME")
        .gruppo(gruppo);
    comando.opzione("--object", campi.oggetto, "Measured object: oil, water, lap...").valore("NAME").gruppo(gruppo);
    comando.opzione("--position", campi.posizione, "Position: wheel, engine, gps...").valore("NAME").gruppo(gruppo);
    comando.opzione("--inout", campi.inout, "in, out or center").valore("NAME").gruppo(gruppo);
    comando.opzione("--side", campi.lati, "Sides, such as 'front left'; may be repeated")
        .valore("NAME")
        .gruppo(gruppo)
        .ripetibile();
    comando.opzione("--number", campi.numero, "Instance number, 0 to 63, in place of sides").valore("N").gruppo(gruppo);
    comando.opzione("--details", campi.dettagli, "Kind of packet: laptime, datetime, gps")
        .valore("NAME")
        .gruppo(gruppo);
    comando.opzione("--specialisation", campi.specializzazione, "Its specialisation: kelnavsol, ubxnavsol, kel2g...")
        .valore("NAME")
        .gruppo(gruppo);
}

kel_funpos componi(const CampiDati& campi) {
    kel_funpos fid = 0;
    unsigned grandezza = campi.grandezza.empty() ? 0 : leggiCampo(grandezze(), campi.grandezza);
    if (!campi.dettagli.empty() || !campi.specializzazione.empty()) {
        if (campi.grandezza.empty())
            grandezza = FID_PHI_PACKAGE;
        if (grandezza != FID_PHI_PACKAGE)
            throw ErroreUso("only packets have --details and --specialisation; accepted with them: --quantity package");
    }
    if (grandezza == FID_PHI_PACKAGE) {
        if (!campi.oggetto.empty() || !campi.posizione.empty())
            throw ErroreUso("a packet has no --object and no --position; accepted: --details, --specialisation");
        const unsigned dettagli = campi.dettagli.empty() ? 0 : leggiCampo(DETTAGLI, campi.dettagli);
        if (!campi.specializzazione.empty() && specializzazioni(dettagli).empty())
            throw ErroreUso(
                "only lap and GPS packets have a --specialisation; accepted: --details laptime, --details gps");
        const unsigned specializzazione =
            campi.specializzazione.empty() ? 0 : leggiSpecializzazione(dettagli, campi.specializzazione);
        fid = kelFidComponi(grandezza, dettagli, specializzazione);
    } else {
        const unsigned oggetto = campi.oggetto.empty() ? 0 : leggiCampo(OGGETTI, campi.oggetto);
        const unsigned posizione = campi.posizione.empty() ? 0 : leggiCampo(POSIZIONI, campi.posizione);
        fid = kelFidComponi(grandezza, oggetto, posizione);
    }
    if (!campi.inout.empty())
        fid |= kelFidBitInOut(leggiCampo(INOUT, campi.inout));
    if (!campi.numero.empty()) {
        if (!campi.lati.empty())
            throw ErroreUso("a function has either a --number or a --side; accepted: one of the two");
        const auto numero = leggiIntero(campi.numero, 0, FID_MASK_NUMBER);
        if (!numero)
            throw ErroreUso("--number '" + campi.numero + "' is no instance number; accepted: 0 to 63");
        fid |= kelFidIstanza(static_cast<unsigned>(*numero));
    }
    return fid | leggiLati(campi.lati);
}

kel_funpos leggiFid(IFunzioni& catalogo, std::string_view testo) {
    const bool esadecimale = testo.starts_with("0x") || testo.starts_with("0X");
    const std::string_view cifre = esadecimale ? testo.substr(2) : testo;
    kel_funpos fid = 0;
    const auto letto = std::from_chars(cifre.data(), cifre.data() + cifre.size(), fid, esadecimale ? 16 : 10);
    if (!cifre.empty() && letto.ec == std::errc() && letto.ptr == cifre.data() + cifre.size())
        return fid;
    const bool lettera =
        !testo.empty() && (std::isalpha(static_cast<unsigned char>(testo.front())) || testo.front() == '_');
    if (!lettera)
        throw ErroreUso("'" + std::string(testo) + "' is no identifier; " + ACCETTATI);
    fid = catalogo.getFidDaID(std::string(testo));
    if (fid == 0)
        throw NonTrovato("there is no legacy identifier '" + std::string(testo) +
                         "', and kelfun find searches names; " + ACCETTATI);
    return fid;
}

kel_funpos risolvi(IFunzioni& catalogo, const std::string& argomento, const CampiDati& campi) {
    if (!argomento.empty() && campi.dati())
        throw ErroreUso("an identifier and its fields are both given; accepted: one of the two");
    if (argomento.empty() && !campi.dati())
        throw ErroreUso(std::string("there is no identifier; ") + ACCETTATI);
    return campi.dati() ? componi(campi) : leggiFid(catalogo, argomento);
}

std::string idVecchio(kel_funpos fid) {
    if (const t_SFunzioneZumikoCam* riga = kelFunGetFunVecchiaZumikoDaFID(fid))
        return riga->id;
    for (const t_SFunzioneVecchia& riga : funz_Kel)
        if (riga.fid == fid && !kelFidFineTabella(fid))
            return riga.id;
    return "";
}

std::string leggiUdm(const IFunzioni& catalogo, kel_funpos fid, const std::string& udm) {
    if (udm.empty())
        return catalogo.getUnitaBase(fid);
    std::list<std::string> unita;
    catalogo.getFunzUIVs(fid, unita);
    std::string accettate;
    for (const std::string& una : unita) {
        if (una == udm)
            return udm;
        accettate += (accettate.empty() ? "" : ", ") + una;
    }
    throw ErroreUso("'" + udm + "' is no unit of " + esadecimale(fid, 8) +
                    "; accepted: " + (accettate.empty() ? "none, this function has no units" : accettate));
}

}  // namespace kel::strumento
