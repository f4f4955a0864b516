#include "model/tabelle.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <locale>
#include <sstream>

namespace modello {

namespace {

using Riga = std::map<std::string, std::string>;  // by column

[[noreturn]] void rinuncia(const std::string& file, const std::string& perche) {
    std::fprintf(stderr, "the model's table %s: %s\n", file.c_str(), perche.c_str());
    std::exit(2);
}

std::vector<std::string> dividi(const std::string& linea) {
    std::vector<std::string> celle;
    std::string cella;
    std::istringstream flusso(linea);
    while (std::getline(flusso, cella, '\t'))
        celle.push_back(cella);
    return celle;
}

std::vector<Riga> leggi(const std::string& nome) {
    const std::string percorso = std::string(KEL_MODELLO_TABELLE) + "/" + nome + ".tsv";
    std::ifstream file(percorso);
    if (!file)
        rinuncia(percorso, "cannot be read");
    std::vector<std::string> colonne;
    std::vector<Riga> righe;
    std::string linea;
    while (std::getline(file, linea)) {
        if (linea.empty() || linea[0] == '#')
            continue;
        const std::vector<std::string> celle = dividi(linea);
        if (colonne.empty()) {
            colonne = celle;
            continue;
        }
        if (celle.size() != colonne.size())
            rinuncia(percorso, "a row with another number of cells: " + linea);
        Riga riga;
        for (std::size_t i = 0; i < celle.size(); i++)
            riga[colonne[i]] = celle[i];
        righe.push_back(riga);
    }
    if (righe.empty())
        rinuncia(percorso, "no rows");
    return righe;
}

// A text stands in quotes, so that an empty one can be seen.
std::string testo(const Riga& riga, const std::string& colonna) {
    const std::string& cella = riga.at(colonna);
    if (cella.size() < 2 || cella.front() != '"' || cella.back() != '"')
        rinuncia(colonna, "not a text: " + cella);
    return cella.substr(1, cella.size() - 2);
}

// Decimal, or hexadecimal after "0x"; also negative.
long long intero(const Riga& riga, const std::string& colonna) {
    const std::string& cella = riga.at(colonna);
    std::size_t letti = 0;
    const long long numero = std::stoll(cella, &letti, 0);
    if (letti != cella.size())
        rinuncia(colonna, "not a number: " + cella);
    return numero;
}

float reale(const Riga& riga, const std::string& colonna) {
    std::istringstream flusso(riga.at(colonna));
    flusso.imbue(std::locale::classic());
    float numero = 0;
    if (!(flusso >> numero) || !flusso.eof())
        rinuncia(colonna, "not a number: " + riga.at(colonna));
    return numero;
}

int num(const Riga& riga, const std::string& colonna) {
    return static_cast<int>(intero(riga, colonna));
}

unsigned nat(const Riga& riga, const std::string& colonna) {
    return static_cast<unsigned>(intero(riga, colonna));
}

// A cell that is known from others, there for the reader: it must be right all the same.
void deve(const Riga& riga, const std::string& colonna, std::size_t valore) {
    if (nat(riga, colonna) != valore)
        rinuncia(colonna, riga.at(colonna) + " in place of " + std::to_string(valore));
}

void leggi_campi(Tabelle& t) {
    for (const Riga& r : leggi("campi_fid"))
        t.campi[r.at("tabella")].push_back({num(r, "valore"), testo(r, "xml"), testo(r, "breve"), testo(r, "testo")});
}

void leggi_unita(Tabelle& t) {
    for (const Riga& r : leggi("grandezze")) {
        deve(r, "chiave", nat(r, "grandezza") | nat(r, "oggetto") << 7U);
        t.grandezze.push_back({nat(r, "chiave"), testo(r, "breve"), testo(r, "testo"), num(r, "num_udm"), r.at("udm"),
                               num(r, "num_varianti"), r.at("varianti")});
    }
    for (const Riga& r : leggi("udm")) {
        deve(r, "riga", t.udm[r.at("tabella")].size());
        t.udm[r.at("tabella")].push_back({testo(r, "testo"), reale(r, "offset"), reale(r, "gain"), num(r, "reciproco"),
                                          num(r, "default"), num(r, "max"), num(r, "min")});
    }
    for (const Riga& r : leggi("codici_udm")) {
        deve(r, "codice", t.codici_udm.size());
        t.codici_udm.push_back(testo(r, "testo"));
    }
    for (const Riga& r : leggi("varianti"))
        t.varianti[r.at("tabella")].push_back({nat(r, "posizione"), testo(r, "breve"), testo(r, "testo"), r.at("inout"),
                                               num(r, "primo"), num(r, "ultimo"), r.at("lati")});
    for (const Riga& r : leggi("scelte"))
        t.scelte[r.at("tabella")].push_back({nat(r, "chiave"), testo(r, "breve"), testo(r, "testo")});
}

void leggi_pacchetti(Tabelle& t) {
    for (const Riga& r : leggi("sottocampi"))
        t.sottocampi[r.at("tabella")].push_back({nat(r, "fid"), nat(r, "offset"), nat(r, "pos_bit"), nat(r, "num_bit"),
                                                 nat(r, "tipo"), r.at("valore"), r.at("valore_reciproco"),
                                                 testo(r, "breve"), testo(r, "testo")});
    for (const Riga& r : leggi("campioni")) {
        deve(r, "codice", t.dimensioni.size());
        t.dimensioni.push_back(nat(r, "dimensione"));
    }
    for (const Riga& r : leggi("nomi_canali"))
        t.nomi_canali[r.at("pacchetto")].push_back({nat(r, "fid"), testo(r, "breve"), testo(r, "testo")});
}

void leggi_camera(Tabelle& t) {
    for (const Riga& r : leggi("camera")) {
        const RigaCamera riga{nat(r, "fid"),       testo(r, "udm"),   reale(r, "scala"), num(r, "codice"),
                              reale(r, "fattore"), testo(r, "breve"), testo(r, "testo"), testo(r, "id"),
                              num(r, "tipo"),      r.at("visibile")};
        if (riga.visibile != "si" && riga.visibile != "no" && riga.visibile != "-")
            rinuncia("visibile", "not si, no or -: " + riga.visibile);
        if (r.at("tabella") != "base" && r.at("tabella") != "estese")
            rinuncia("camera", "no table " + r.at("tabella"));
        std::vector<RigaCamera>& tabella = r.at("tabella") == "base" ? t.camera_base : t.camera_estese;
        deve(r, "riga", tabella.size());
        tabella.push_back(riga);
    }
    for (const Riga& r : leggi("funz_kel")) {
        deve(r, "riga", t.funz_kel.size());
        t.funz_kel.push_back({testo(r, "breve"), testo(r, "testo"), testo(r, "id"), nat(r, "fid")});
    }
}

Tabelle leggi_tutto() {
    Tabelle t;
    leggi_campi(t);
    leggi_unita(t);
    leggi_pacchetti(t);
    leggi_camera(t);
    return t;
}

}  // namespace

const Tabelle& tabelle() {
    static const Tabelle lette = leggi_tutto();
    return lette;
}

}  // namespace modello
