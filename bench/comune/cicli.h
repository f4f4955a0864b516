// Operations of the catalogue as plain loops over its tables, as a program that has only the tables would write them.
#ifndef KEL_BENCH_CICLI_H
#define KEL_BENCH_CICLI_H

#include <list>
#include <map>
#include <string>
#include <vector>

#include "IFunzioni.h"
#include "comune/prova.h"

namespace ciclo {

using Funzioni = std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>>;

struct Dettagli {
    std::map<unsigned, std::string> lati;
    std::map<unsigned, std::string> inout;
    int primo = 0;
    int ultimo = 0;
};

const s_grandezza_fisica_uiv* grandezza(kel_funpos fid);
std::string nome(kel_funpos fid, bool tutti);
s_nome_breve nome_breve(kel_funpos fid);
void funzioni(Funzioni& trovate, const std::vector<unsigned>& filtro);
void dettagli(kel_funpos fid, Dettagli& trovati);

/// Registers our operation and the loop, which must agree.
template <typename Ingresso, typename Nostra, typename Loro>
void righe(const std::string& riga, const char* nome, const prova::Ingressi<Ingresso>& ingressi, Nostra nostra,
           Loro loro) {
    prova::concordi(riga, ingressi, nostra, loro);
    prova::serie(riga, prova::Ruolo::nostro, nome, ingressi, nostra);
    prova::serie(riga, prova::Ruolo::pari, "plain loop", ingressi, loro);
}

}  // namespace ciclo

#endif
