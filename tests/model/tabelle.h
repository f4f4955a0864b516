// The model's tables, read at run time from tests/model/tables/*.tsv: files that a person can hold against the data.
// Nothing of the library is used.
#ifndef KEL_MODELLO_TABELLE_H
#define KEL_MODELLO_TABELLE_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace modello {

using Fid = std::uint32_t;

struct RigaCampo {
    int valore;
    std::string xml, breve, testo;
};

struct RigaUdm {
    std::string testo;
    float offset, gain;
    int reciproco;
    int decimali_default, decimali_max, decimali_min;
};

struct RigaGrandezza {
    Fid chiave;
    std::string breve, testo;
    int num_udm;
    std::string udm;  // name of the unit table, "-" in the end row
    int num_varianti;
    std::string varianti;  // name of the variant table, "-" when there is none
};

struct Scelta {
    std::uint32_t chiave;
    std::string breve, testo;
};

struct Variante {
    unsigned posizione;
    std::string breve, testo;
    std::string inout;  // name of a list of choices, "-" when there is none
    int primo, ultimo;
    std::string lati;
};

struct RigaSottocampo {
    Fid fid;
    unsigned offset, pos_bit, num_bit, tipo;
    std::string valore, valore_reciproco;  // names of computed values, "-" when there is none
    std::string breve, testo;
};

struct RigaCamera {
    Fid fid;
    std::string udm;
    float scala;
    int codice;
    float fattore;
    std::string breve, testo, id;
    int tipo;
    std::string visibile;  // extended rows: "si" or "no"; "-" elsewhere
};

struct RigaVecchia {
    std::string breve, testo, id;
    Fid fid;
};

struct NomeCanale {
    Fid fid;
    std::string breve, testo;
};

struct Tabelle {
    std::map<std::string, std::vector<RigaCampo>> campi;
    std::vector<RigaGrandezza> grandezze;
    std::map<std::string, std::vector<RigaUdm>> udm;
    std::vector<std::string> codici_udm;
    std::map<std::string, std::vector<Variante>> varianti;
    std::map<std::string, std::vector<Scelta>> scelte;
    std::map<std::string, std::vector<RigaSottocampo>> sottocampi;
    std::vector<RigaCamera> camera_base, camera_estese;
    std::vector<RigaVecchia> funz_kel;
    std::vector<unsigned> dimensioni;  // bytes of one sample, by sample type
    std::map<std::string, std::vector<NomeCanale>> nomi_canali;
};

// The tables, read at the first call. Ends the program with a message when a file is missing or malformed.
const Tabelle& tabelle();

}  // namespace modello

#endif
