#include "domain/pacchetti.h"

#include <iterator>

#include "domain/campi.h"

namespace kel::strumento {

std::vector<Pacchetto> tutti_i_pacchetti() {
    std::vector<Pacchetto> tutti;
    for (unsigned dettagli = 1; dettagli < std::size(dettagli_FunzKel); ++dettagli) {
        const std::size_t quante = specializzazioni(dettagli).size();
        for (unsigned specie = 0; specie == 0 || specie < quante; ++specie)
            if (const s_sottocampo* sottocampi = search_sottocampi_struct(dettagli, specie))
                tutti.push_back({kelFidComponi(FID_PHI_PACKAGE, dettagli, specie), sottocampi});
    }
    return tutti;
}

}  // namespace kel::strumento
