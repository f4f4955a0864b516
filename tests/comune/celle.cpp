#include "comune/celle.h"

#include <algorithm>
#include <iterator>
#include <type_traits>

#include "comune/tabelle.h"
#include "model/tabelle.h"

namespace kel_test {

namespace {

// How a cell names the table that begins with a row of the library: "-" for none.
template <typename Tabelle, typename Riga>
std::string nome(const Tabelle& tabelle, const Riga* prima) {
    if (prima == nullptr)
        return "-";
    for (const auto& [nome, righe] : tabelle)
        if (righe.data() == prima)
            return nome;
    return "a table without a name";
}

// How many rows it has.
template <typename Tabelle, typename Riga>
std::ptrdiff_t righe_di(const Tabelle& tabelle, const Riga* prima) {
    const auto tabella = tabelle.find(nome(tabelle, prima));
    return tabella == tabelle.end() ? 0 : std::ssize(tabella->second);
}

}  // namespace

template <typename Libreria, typename Modello>
void Celle::cella(const std::string& colonna, const Libreria& libreria, const Modello& modello) {
    const std::string dove = tabella_ + "[" + std::to_string(riga_) + "]." + colonna;
    if constexpr (std::is_floating_point_v<Libreria>)
        reale(dove, libreria, modello);
    else if constexpr (std::is_integral_v<Libreria>)
        numero(dove, static_cast<long long>(libreria), static_cast<long long>(modello));
    else if constexpr (std::is_pointer_v<Libreria>)
        testo(dove, libreria == nullptr ? "(null)" : libreria, modello);
    else
        testo(dove, libreria, modello);
}

template <typename Righe, typename Attese, typename Confronto>
void Celle::righe(const std::string& tabella, const Righe& libreria, const Attese& attese, Confronto confronta) {
    tabella_ = tabella;
    numero("rows of " + tabella, std::ssize(libreria), std::ssize(attese));
    for (riga_ = 0; riga_ < std::min(std::size(libreria), std::size(attese)); ++riga_)
        confronta(libreria[riga_], attese[riga_]);
}

template <typename Tabelle, typename Attese, typename Confronto>
void Celle::tabelle(const char* file, const Tabelle& libreria, const Attese& attese, Confronto confronta) {
    numero(std::string("tables in ") + file, std::ssize(libreria), std::ssize(attese));
    for (const auto& [nome, righe_attese] : attese) {
        const auto tabella = libreria.find(nome);
        if (tabella == libreria.end())
            testo(file, "no table of this name", nome);
        else
            righe(nome, tabella->second, righe_attese, confronta);
    }
}

void Celle::campi() {
    tabelle("campi_fid.tsv", tabelle_campi(), modello::tabelle().campi,
            [this](const s_campo_fid& riga, const modello::RigaCampo& attesa) {
                cella("valore", riga.valore, attesa.valore);
                cella("xml", riga.xml, attesa.xml);
                cella("breve", riga.breve, attesa.breve);
                cella("testo", riga.testo, attesa.testo);
            });
}

void Celle::unita() {
    tabelle("udm.tsv", tabelle_unita(), modello::tabelle().udm,
            [this](const s_udm_associata& riga, const modello::RigaUdm& attesa) {
                cella("testo", riga.dati.udm, attesa.testo);
                cella("offset", riga.dati.offset, attesa.offset);
                cella("gain", riga.dati.gain, attesa.gain);
                cella("reciproco", riga.dati.reciproco, attesa.reciproco);
                cella("default", riga.decimali_default, attesa.decimali_default);
                cella("max", riga.decimali_max, attesa.decimali_max);
                cella("min", riga.decimali_min, attesa.decimali_min);
            });
}

void Celle::codici_unita() {
    righe("udm_codici", udm_codici, modello::tabelle().codici_udm,
          [this](const s_codice_udm& riga, const std::string& attesa) {
              cella("codice", riga.codice, static_cast<long long>(riga_));
              cella("testo", riga.testo, attesa);
          });
}

void Celle::grandezze() {
    righe("uib_grandezza_fisica_uiv", uib_grandezza_fisica_uiv, modello::tabelle().grandezze,
          [this](const s_grandezza_fisica_uiv& riga, const modello::RigaGrandezza& attesa) {
              cella("chiave", riga.chiave, attesa.chiave);
              cella("breve", riga.breve, attesa.breve);
              cella("testo", riga.testo, attesa.testo);
              cella("udm", nome(tabelle_unita(), riga.udm), attesa.udm);
              cella("num_udm", riga.num_udm, attesa.num_udm);
              cella("num_udm, by the table", riga.num_udm, righe_di(tabelle_unita(), riga.udm));
              cella("varianti", nome(tabelle_varianti(), riga.varianti), attesa.varianti);
              cella("num_varianti", riga.num_varianti, attesa.num_varianti);
              cella("num_varianti, by the table", riga.num_varianti, righe_di(tabelle_varianti(), riga.varianti));
          });
}

void Celle::varianti() {
    tabelle("varianti.tsv", tabelle_varianti(), modello::tabelle().varianti,
            [this](const s_variante_posizione& riga, const modello::Variante& attesa) {
                cella("posizione", riga.posizione, attesa.posizione);
                cella("breve", riga.breve, attesa.breve);
                cella("testo", riga.testo, attesa.testo);
                cella("inout", nome(tabelle_scelte(), riga.inout), attesa.inout);
                cella("num_inout, by the list", riga.num_inout, righe_di(tabelle_scelte(), riga.inout));
                cella("primo", riga.primo, attesa.primo);
                cella("ultimo", riga.ultimo, attesa.ultimo);
                cella("lati", nome(tabelle_scelte(), riga.lati), attesa.lati);
                cella("num_lati, by the list", riga.num_lati, righe_di(tabelle_scelte(), riga.lati));
            });
}

void Celle::scelte() {
    tabelle("scelte.tsv", tabelle_scelte(), modello::tabelle().scelte,
            [this](const s_scelta_fid& riga, const modello::Scelta& attesa) {
                cella("chiave", riga.chiave, attesa.chiave);
                cella("breve", riga.breve, attesa.breve);
                cella("testo", riga.testo, attesa.testo);
            });
}

void Celle::sottocampi() {
    tabelle("sottocampi.tsv", tabelle_sottocampi(), modello::tabelle().sottocampi,
            [this](const s_sottocampo& riga, const modello::RigaSottocampo& attesa) {
                cella("fid", riga.fid, attesa.fid);
                cella("offset", riga.offset, attesa.offset);
                cella("pos_bit", riga.pos_bit, attesa.pos_bit);
                cella("num_bit", riga.num_bit, attesa.num_bit);
                cella("maschera", riga.maschera, 0);
                cella("tipo", riga.tipo_campione, attesa.tipo);
                cella("valore: a decoder of its own", riga.valore != nullptr, attesa.valore != "-");
                cella("valore_reciproco: one for reciprocal units", riga.valore_reciproco != nullptr,
                      attesa.valore_reciproco != "-");
                cella("conv_testo: the text is the converter's", riga.conv_testo == nullptr, true);
                cella("breve", riga.breve, attesa.breve);
                cella("testo", riga.testo, attesa.testo);
            });
}

void Celle::camera() {
    const auto confronta = [this](const t_SFunzioneZumikoCam& riga, const modello::RigaCamera& attesa) {
        cella("fid", riga.fid, attesa.fid);
        cella("udm", riga.udm, attesa.udm);
        cella("scala", riga.scala, attesa.scala);
        cella("codice", riga.codice, attesa.codice);
        cella("fattore", riga.fattore, attesa.fattore);
        cella("breve", riga.breve, attesa.breve);
        cella("testo", riga.testo, attesa.testo);
        cella("id", riga.id, attesa.id);
        cella("tipo", riga.tipo_campione, attesa.tipo);
    };
    righe("funz_ZumikoCam_base", funz_ZumikoCam_base, modello::tabelle().camera_base, confronta);
    righe("funz_ZumikoCam_estese", funz_ZumikoCam_estese, modello::tabelle().camera_estese, confronta);
}

void Celle::vecchie() {
    righe("funz_Kel", funz_Kel, modello::tabelle().funz_kel,
          [this](const t_SFunzioneVecchia& riga, const modello::RigaVecchia& attesa) {
              cella("breve", riga.breve, attesa.breve);
              cella("testo", riga.testo, attesa.testo);
              cella("id", riga.id, attesa.id);
              cella("fid", riga.fid, attesa.fid);
          });
}

}  // namespace kel_test
