// The values of every field of an identifier, for an editor.
#include <span>

#include "CFunzioni.h"
#include "object/conversione_testi.h"

namespace {

using Testi = std::list<std::string>;

void aggiungi_xml(std::span<const s_campo_fid> tabella, Testi& testi) {
    for (const s_campo_fid& riga : tabella)
        testi.push_back(kel::da_8(riga.xml));
}

}  // namespace

void CFunzioni::GetValoriCampiFID(Testi& grandezze, Testi& oggetti, Testi& posizioni, Testi& dettagli, Testi& specGps,
                                  Testi& specLaptime, Testi& sensoLati, Testi& inout, Testi& leftright,
                                  Testi& frontrear, Testi& updown, Testi& numeri) {
    aggiungi_xml(grandezza_fisica_FunzKel, grandezze);
    aggiungi_xml(oggetto_misurato_FunzKel, oggetti);
    aggiungi_xml(posizione_FunzKel, posizioni);
    aggiungi_xml(dettagli_FunzKel, dettagli);
    aggiungi_xml(specializzazione_gps_FunzKel, specGps);
    aggiungi_xml(specializzazione_laptime_FunzKel, specLaptime);
    aggiungi_xml(inout_FunzKel, inout);
    aggiungi_xml(leftright_FunzKel, leftright);
    aggiungi_xml(frontrear_FunzKel, frontrear);
    aggiungi_xml(updown_FunzKel, updown);
    // Numbers and the two words are no table texts and pass through no conversion.
    for (unsigned numero = 0; numero <= FID_MASK_NUMBER; ++numero)
        numeri.push_back(std::to_string(numero));
    sensoLati.push_back("Position");
    sensoLati.push_back("Number");
}
