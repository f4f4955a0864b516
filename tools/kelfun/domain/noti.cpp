#include "domain/noti.h"

#include <algorithm>
#include <list>
#include <map>

#include "domain/campi.h"
#include "domain/identificatore.h"
#include "domain/pacchetti.h"
#include "output/celle.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

class Raccolta {
public:
    explicit Raccolta(IFunzioni& catalogo) : catalogo_(catalogo) {}

    // A row of a table; any text may be null or "". Reserved subfields have the identifier 0.
    void riga(kel_funpos fid, const char* nome, const char* breve, const char* vecchio = nullptr) {
        if (fid == 0 || kelFidFineTabella(fid))
            return;
        std::vector<Testo>& testi = noti_[fid];
        const bool nuovo = testi.empty();
        if (nuovo)
            nomi(fid, testi);
        aggiungi(testi, Specie::nome, nome);
        aggiungi(testi, Specie::breve, breve);
        aggiungi(testi, Specie::vecchio, vecchio);
        if (nuovo)
            resto(fid, testi);
    }

    std::vector<Noto> tutti() {
        std::vector<Noto> elenco;
        for (auto& [fid, testi] : noti_) {
            std::stable_sort(testi.begin(), testi.end(),
                             [](const Testo& a, const Testo& b) { return a.specie < b.specie; });
            elenco.push_back({fid, std::move(testi)});
        }
        return elenco;
    }

private:
    // Quantity, object and position lie at the low end of an identifier: they weigh most here.
    struct PerCampi {
        bool operator()(kel_funpos a, kel_funpos b) const { return peso(a) < peso(b); }
        static std::uint64_t peso(kel_funpos fid) {
            return static_cast<std::uint64_t>(kelFidGrandezza(fid)) << 48 |
                   static_cast<std::uint64_t>(kelFidOggetto(fid)) << 40 |
                   static_cast<std::uint64_t>(kelFidPosizione(fid)) << 32 | fid;
        }
    };

    static void aggiungi(std::vector<Testo>& testi, Specie specie, const char* testo) {
        if (testo == nullptr || *testo == '\0')
            return;
        const auto uguale = [&](const Testo& t) { return t.specie == specie && t.testo == testo; };
        if (std::none_of(testi.begin(), testi.end(), uguale))
            testi.push_back({specie, testo});
    }

    void nomi(kel_funpos fid, std::vector<Testo>& testi) {
        aggiungi(testi, Specie::nome, catalogo_.getNomeFunzione(fid, false).c_str());
        aggiungi(testi, Specie::breve, catalogo_.getNomeFunzioneShort(fid).c_str());
        aggiungi(testi, Specie::vecchio, id_vecchio(fid).c_str());
    }

    void resto(kel_funpos fid, std::vector<Testo>& testi) {
        std::list<std::string> unita;
        catalogo_.getFunzUIVs(fid, unita);
        for (const std::string& udm : unita)
            aggiungi(testi, Specie::unita, udm.c_str());
        for (const Campo& campo : campi(fid)) {
            if (campo.riga == nullptr || campo.valore == 0)
                continue;
            for (const char* testo : {campo.riga->xml, campo.riga->breve, campo.riga->testo})
                aggiungi(testi, Specie::campo, testo);
        }
        aggiungi(testi, Specie::identificatore, esadecimale(fid, 8).c_str());
        aggiungi(testi, Specie::identificatore, esadecimale(fid, 1).c_str());
        aggiungi(testi, Specie::identificatore, std::to_string(fid).c_str());
    }

    IFunzioni& catalogo_;
    std::map<kel_funpos, std::vector<Testo>, PerCampi> noti_;
};

void da_offrire(IFunzioni& catalogo, Raccolta& raccolta) {
    std::vector<unsigned> tutte;
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
    catalogo.getFunzioni(funzioni, tutte);
    for (const auto& [grandezza, elenco] : funzioni)
        for (const SFunzionePerGF& funzione : elenco) {
            raccolta.riga(funzione.funpos, funzione.nome.c_str(), nullptr);
            std::map<unsigned, std::string> lati;
            std::map<unsigned, std::string> inout;
            int primo = -1;
            int ultimo = -1;
            catalogo.getFunzDettagli(funzione.funpos, lati, inout, primo, ultimo);
            for (const auto& lato : lati)
                raccolta.riga(funzione.funpos | lato.first, nullptr, nullptr);
            for (const auto& verso : inout)
                raccolta.riga(funzione.funpos | kelFidBitInOut(verso.first), nullptr, nullptr);
            for (int numero = primo; numero >= 0 && numero <= ultimo; ++numero)
                raccolta.riga(funzione.funpos | kelFidIstanza(static_cast<unsigned>(numero)), nullptr, nullptr);
        }
    for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv) {
        raccolta.riga(riga.chiave, riga.testo, riga.breve);
        for (int i = 0; i < riga.num_varianti; ++i) {
            const s_variante_posizione& variante = riga.varianti[i];
            const kel_funpos fid =
                kelFidComponi(kelFidGrandezza(riga.chiave), kelFidOggetto(riga.chiave), variante.posizione);
            raccolta.riga(fid, variante.testo, variante.breve);
        }
    }
}

void pacchetti(Raccolta& raccolta) {
    for (const Pacchetto& pacchetto : tutti_i_pacchetti()) {
        raccolta.riga(pacchetto.fid, nullptr, nullptr);
        for (const s_sottocampo* riga = pacchetto.sottocampi; !kelFidFineTabella(riga->fid); ++riga)
            raccolta.riga(riga->fid, riga->testo, riga->breve);
    }
}

}  // namespace

const char* nome_specie(Specie specie) {
    switch (specie) {
        case Specie::nome:
            return "name";
        case Specie::breve:
            return "short name";
        case Specie::vecchio:
            return "legacy identifier";
        case Specie::unita:
            return "unit";
        case Specie::campo:
            return "field";
        default:
            return "identifier";
    }
}

std::vector<Noto> identificatori_noti(IFunzioni& catalogo) {
    Raccolta raccolta(catalogo);
    da_offrire(catalogo, raccolta);
    for (const t_SFunzioneZumikoCam& riga : funz_ZumikoCam_base)
        raccolta.riga(riga.fid, riga.testo, riga.breve, riga.id);
    for (const t_SFunzioneZumikoCam& riga : funz_ZumikoCam_estese)
        raccolta.riga(riga.fid, riga.testo, riga.breve, riga.id);
    for (const t_SFunzioneVecchia& riga : funz_Kel)
        raccolta.riga(riga.fid, riga.testo, riga.breve, riga.id);
    pacchetti(raccolta);
    return raccolta.tutti();
}

}  // namespace kel::strumento
