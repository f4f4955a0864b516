// The catalogue's creation, and what it keeps.
#include "CFunzioni.h"

IFunzioni::~IFunzioni() = default;

IFunzioni* IFunzioni::CreateMe(s_kel_canale* canali, unsigned int numCanali) {
    return new CFunzioni(canali, numCanali);
}

IFunzioni* IFunzioni::CreateMe() {
    return new CFunzioni;
}

CFunzioni::CFunzioni() : CFunzioni(nullptr, 0) {}

CFunzioni::CFunzioni(s_kel_canale* canali, unsigned int numCanali)
    : set_{canali, numCanali, numCanali},
      cursore_base_(0),
      cursore_estese_(0),
      dimensione_base_(getFunzVisSize()),
      dimensione_estese_(getFunzVisEstSize()) {}

CFunzioni::~CFunzioni() = default;
