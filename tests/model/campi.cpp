#include "model/campi.h"

#include <sstream>

namespace modello {

unsigned grandezza(Fid fid) {
    return fid % 128;
}
unsigned oggetto(Fid fid) {
    return fid / 128 % 256;
}
unsigned posizione(Fid fid) {
    return fid / 32768 % 32;
}
unsigned in_out(Fid fid) {
    return fid / 1048576 % 4;
}
bool numerato(Fid fid) {
    return fid / 4194304 % 2 == 1;
}
unsigned numero(Fid fid) {
    return fid / 8388608 % 64;
}
unsigned left_right(Fid fid) {
    return fid / 8388608 % 4;
}
unsigned front_rear(Fid fid) {
    return fid / 33554432 % 4;
}
unsigned up_down(Fid fid) {
    return fid / 134217728 % 4;
}

Fid componi(unsigned grandezza, unsigned oggetto, unsigned posizione) {
    return grandezza % 128 + oggetto % 256 * 128 + posizione % 32 * 32768;
}

Fid bit_in_out(unsigned inout) {
    return inout % 4 * 1048576;
}

Fid bit_lati(unsigned leftright, unsigned frontrear, unsigned updown) {
    return leftright % 4 * 8388608 + frontrear % 4 * 33554432 + updown % 4 * 134217728;
}

Fid bit_istanza(unsigned numero) {
    return 4194304 + numero % 64 * 8388608;
}

bool fine_tabella(Fid fid) {
    return grandezza(fid) == 32 && oggetto(fid) == 58;
}

std::string testo_campo(const std::string& tabella, long long valore) {
    for (const RigaCampo& riga : tabelle().campi.at(tabella))
        if (riga.valore == valore)
            return riga.testo;
    return "";
}

std::string xml_campo(const std::string& tabella, long long valore) {
    for (const RigaCampo& riga : tabelle().campi.at(tabella))
        if (riga.valore == valore)
            return riga.xml;
    return "";
}

int valore_campo(const std::string& tabella, const std::string& xml) {
    for (const RigaCampo& riga : tabelle().campi.at(tabella))
        if (riga.xml == xml)
            return riga.valore;
    return 0;
}

std::vector<std::list<std::string>> valori_campi() {
    const std::vector<std::string> nomi = {"grandezza_fisica_FunzKel",
                                           "oggetto_misurato_FunzKel",
                                           "posizione_FunzKel",
                                           "dettagli_FunzKel",
                                           "specializzazione_gps_FunzKel",
                                           "specializzazione_laptime_FunzKel",
                                           "",
                                           "inout_FunzKel",
                                           "leftright_FunzKel",
                                           "frontrear_FunzKel",
                                           "updown_FunzKel"};
    std::vector<std::list<std::string>> liste;
    for (const std::string& nome : nomi) {
        std::list<std::string> lista;
        if (nome.empty())
            lista = {"Position", "Number"};
        else
            for (const RigaCampo& riga : tabelle().campi.at(nome))
                lista.push_back(riga.xml);
        liste.push_back(lista);
    }
    std::list<std::string> numeri;
    for (int i = 0; i <= 63; i++) {
        std::ostringstream flusso;
        flusso.imbue(std::locale::classic());
        flusso << i;
        numeri.push_back(flusso.str());
    }
    liste.push_back(numeri);
    return liste;
}

}  // namespace modello
