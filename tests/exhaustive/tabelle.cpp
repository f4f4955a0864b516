// Every cell of every exported table.
#include <map>

#include "CFunzioni.h"

#include "exhaustive/libreria.h"
#include "exhaustive/spazi.h"
#include "kelfunzioni.h"
#include "model/camera.h"
#include "model/tabelle.h"

namespace esaustivo {

namespace {

using modello::tabelle;

class Celle {
public:
    Celle(Conta& conta, std::string tabella) : conta_(conta), tabella_(std::move(tabella)) {}

    void riga(std::size_t riga) { riga_ = riga; }
    void testo(const char* colonna, const char* libreria, const std::string& modello) {
        conta_.testi(libreria == nullptr ? "(null)" : libreria, modello, [&] { return dove(colonna); });
    }
    void numero(const char* colonna, long long libreria, long long modello) {
        conta_.numeri(libreria, modello, [&] { return dove(colonna); });
    }
    void reale(const char* colonna, float libreria, float modello) {
        conta_.reali(libreria, modello, [&] { return dove(colonna); });
    }

private:
    std::string dove(const char* colonna) const { return tabella_ + "[" + std::to_string(riga_) + "]." + colonna; }

    Conta& conta_;
    std::string tabella_;
    std::size_t riga_ = 0;
};

void campi(Conta& conta) {
    for (const auto& [nome, righe] : tabelle().campi) {
        const Campi libreria = campiDi(nome);
        Celle celle(conta, nome);
        celle.numero("rows", static_cast<long long>(libreria.righe), static_cast<long long>(righe.size()));
        for (std::size_t i = 0; i < righe.size() && i < libreria.righe; i++) {
            celle.riga(i);
            celle.numero("valore", libreria.prima[i].valore, righe[i].valore);
            celle.testo("xml", libreria.prima[i].xml, righe[i].xml);
            celle.testo("breve", libreria.prima[i].breve, righe[i].breve);
            celle.testo("testo", libreria.prima[i].testo, righe[i].testo);
        }
    }
}

void unita(Conta& conta) {
    for (const auto& [nome, righe] : tabelle().udm) {
        const Unita libreria = unitaDi(nome);
        Celle celle(conta, nome);
        celle.numero("rows", static_cast<long long>(libreria.righe), static_cast<long long>(righe.size()));
        for (std::size_t i = 0; i < righe.size() && i < libreria.righe; i++) {
            const s_udm_associata& riga = libreria.prima[i];
            celle.riga(i);
            celle.testo("udm", riga.dati.udm, righe[i].testo);
            celle.reale("offset", riga.dati.offset, righe[i].offset);
            celle.reale("gain", riga.dati.gain, righe[i].gain);
            celle.numero("reciproco", riga.dati.reciproco, righe[i].reciproco);
            celle.numero("decimali_default", riga.decimali_default, righe[i].decimali_default);
            celle.numero("decimali_max", riga.decimali_max, righe[i].decimali_max);
            celle.numero("decimali_min", riga.decimali_min, righe[i].decimali_min);
        }
    }
    Celle celle(conta, "udm_codici");
    for (std::size_t i = 0; i < tabelle().codici_udm.size(); i++) {
        celle.riga(i);
        celle.testo("testo", udm_codici[i].testo, tabelle().codici_udm[i]);
        celle.numero("codice", udm_codici[i].codice, static_cast<long long>(i));
    }
}

void grandezze(Conta& conta) {
    Celle celle(conta, "uib_grandezza_fisica_uiv");
    celle.numero("rows", std::size(uib_grandezza_fisica_uiv), static_cast<long long>(tabelle().grandezze.size()));
    for (std::size_t i = 0; i < tabelle().grandezze.size(); i++) {
        const modello::RigaGrandezza& attesa = tabelle().grandezze[i];
        const s_grandezza_fisica_uiv& riga = uib_grandezza_fisica_uiv[i];
        celle.riga(i);
        celle.numero("chiave", riga.chiave, attesa.chiave);
        celle.testo("breve", riga.breve, attesa.breve);
        celle.testo("testo", riga.testo, attesa.testo);
        celle.numero("num_udm", riga.num_udm, attesa.num_udm);
        celle.numero("udm", riga.udm == (attesa.udm == "-" ? nullptr : unitaDi(attesa.udm).prima), 1);
        celle.numero("num_varianti", riga.num_varianti, attesa.num_varianti);
        celle.numero("varianti", riga.varianti == variantiDi(attesa.varianti).prima, 1);
    }
}

void varianti(Conta& conta) {
    for (const auto& [nome, righe] : tabelle().varianti) {
        const Varianti libreria = variantiDi(nome);
        Celle celle(conta, nome);
        celle.numero("rows", static_cast<long long>(libreria.righe), static_cast<long long>(righe.size()));
        for (std::size_t i = 0; i < righe.size() && i < libreria.righe; i++) {
            const s_variante_posizione& riga = libreria.prima[i];
            const Scelte inout = scelteDi(righe[i].inout);
            const Scelte lati = scelteDi(righe[i].lati);
            celle.riga(i);
            celle.numero("posizione", riga.posizione, righe[i].posizione);
            celle.testo("breve", riga.breve, righe[i].breve);
            celle.testo("testo", riga.testo, righe[i].testo);
            celle.numero("inout", riga.inout == inout.prima, 1);
            celle.numero("num_inout", riga.num_inout, static_cast<long long>(inout.righe));
            celle.numero("primo", riga.primo, righe[i].primo);
            celle.numero("ultimo", riga.ultimo, righe[i].ultimo);
            celle.numero("lati", riga.lati == lati.prima, 1);
            celle.numero("num_lati", riga.num_lati, static_cast<long long>(lati.righe));
        }
    }
    for (const auto& [nome, righe] : tabelle().scelte) {
        const Scelte libreria = scelteDi(nome);
        Celle celle(conta, nome);
        celle.numero("rows", static_cast<long long>(libreria.righe), static_cast<long long>(righe.size()));
        for (std::size_t i = 0; i < righe.size() && i < libreria.righe; i++) {
            celle.riga(i);
            celle.numero("chiave", libreria.prima[i].chiave, righe[i].chiave);
            celle.testo("breve", libreria.prima[i].breve, righe[i].breve);
            celle.testo("testo", libreria.prima[i].testo, righe[i].testo);
        }
    }
}

void sottocampi(Conta& conta) {
    for (const auto& [nome, righe] : tabelle().sottocampi) {
        const s_sottocampo* libreria = sottocampiDi(nome);
        Celle celle(conta, nome);
        for (std::size_t i = 0; i < righe.size(); i++) {
            celle.riga(i);
            celle.numero("fid", libreria[i].fid, righe[i].fid);
            celle.numero("offset", libreria[i].offset, righe[i].offset);
            celle.numero("pos_bit", libreria[i].pos_bit, righe[i].pos_bit);
            celle.numero("num_bit", libreria[i].num_bit, righe[i].num_bit);
            celle.numero("maschera", libreria[i].maschera, 0);
            celle.numero("tipo_campione", libreria[i].tipo_campione, righe[i].tipo);
            celle.numero("valore", libreria[i].valore != nullptr, righe[i].valore != "-");
            celle.numero("valore_reciproco", libreria[i].valore_reciproco != nullptr, righe[i].valore_reciproco != "-");
            if (i + 1 == righe.size())
                break;  // the end row has no names
            celle.testo("breve", libreria[i].breve, righe[i].breve);
            celle.testo("testo", libreria[i].testo, righe[i].testo);
        }
    }
}

void camera(Conta& conta, const char* nome, const t_SFunzioneZumikoCam* libreria,
            const std::vector<modello::RigaCamera>& righe) {
    Celle celle(conta, nome);
    for (std::size_t i = 0; i < righe.size(); i++) {
        celle.riga(i);
        celle.numero("fid", libreria[i].fid, righe[i].fid);
        celle.testo("udm", libreria[i].udm, righe[i].udm);
        celle.reale("scala", libreria[i].scala, righe[i].scala);
        celle.numero("codice", libreria[i].codice, righe[i].codice);
        celle.reale("fattore", libreria[i].fattore, righe[i].fattore);
        celle.testo("breve", libreria[i].breve, righe[i].breve);
        celle.testo("testo", libreria[i].testo, righe[i].testo);
        celle.testo("id", libreria[i].id, righe[i].id);
        celle.numero("tipo_campione", libreria[i].tipo_campione, righe[i].tipo);
    }
}

// Which extended rows the camera walk shows: by row, and by parameter code.
void visibili(Conta& conta) {
    CFunzioni funzioni;
    for (const modello::RigaCamera& riga : tabelle().camera_estese)
        if (riga.visibile != "-")
            conta.numeri(funzioni.is_est_valid(riga.codice) ? 1 : 0, riga.visibile == "si" ? 1 : 0,
                         [&] { return "visible " + riga.id; });
    for (int codice = -70000; codice < 1 << 20; codice++)
        conta.numeri(funzioni.is_est_valid(codice) ? 1 : 0, modello::visibileEstesa(codice) ? 1 : 0,
                     [&] { return "visible code " + std::to_string(codice); });
}

void vecchie(Conta& conta) {
    Celle celle(conta, "funz_Kel");
    for (std::size_t i = 0; i < tabelle().funz_kel.size(); i++) {
        celle.riga(i);
        celle.testo("breve", funz_Kel[i].breve, tabelle().funz_kel[i].breve);
        celle.testo("testo", funz_Kel[i].testo, tabelle().funz_kel[i].testo);
        celle.testo("id", funz_Kel[i].id, tabelle().funz_kel[i].id);
        celle.numero("fid", funz_Kel[i].fid, tabelle().funz_kel[i].fid);
    }
}

void tutte(unsigned /*parte*/, Conta& conta) {
    campi(conta);
    unita(conta);
    grandezze(conta);
    varianti(conta);
    sottocampi(conta);
    camera(conta, "funz_ZumikoCam_base", funz_ZumikoCam_base, tabelle().camera_base);
    camera(conta, "funz_ZumikoCam_estese", funz_ZumikoCam_estese, tabelle().camera_estese);
    vecchie(conta);
    visibili(conta);
}

}  // namespace

std::vector<Spazio> spaziTabelle() {
    return {{"tables", "every cell of every exported table", 1, 1, tutte}};
}

}  // namespace esaustivo
