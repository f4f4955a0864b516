// The values that each field of an identifier may have, by their XML names: what an editor of identifiers offers.
#include "CFunzioni.h"

#include <span>

namespace {

using Testi = std::list<std::string>;

void aggiungi_xml(const CFunzioni& catalogo, std::span<const s_campo_fid> tabella, Testi& testi) {
    for (const s_campo_fid& riga : tabella)
        testi.push_back(catalogo.ConvertiDa8(riga.xml));
}

}  // namespace

void CFunzioni::GetValoriCampiFID(Testi& grandezze, Testi& oggetti, Testi& posizioni, Testi& dettagli, Testi& specGps,
                                  Testi& specLaptime, Testi& sensoLati, Testi& inout, Testi& leftright,
                                  Testi& frontrear, Testi& updown, Testi& numeri) {
    aggiungi_xml(*this, grandezza_fisica_FunzKel, grandezze);
    aggiungi_xml(*this, oggetto_misurato_FunzKel, oggetti);
    aggiungi_xml(*this, posizione_FunzKel, posizioni);
    aggiungi_xml(*this, dettagli_FunzKel, dettagli);
    aggiungi_xml(*this, specializzazione_gps_FunzKel, specGps);
    aggiungi_xml(*this, specializzazione_laptime_FunzKel, specLaptime);
    aggiungi_xml(*this, inout_FunzKel, inout);
    aggiungi_xml(*this, leftright_FunzKel, leftright);
    aggiungi_xml(*this, frontrear_FunzKel, frontrear);
    aggiungi_xml(*this, updown_FunzKel, updown);
    // Plain 8-bit texts, unconverted: neither the numbers nor the two words come from a table.
    for (unsigned numero = 0; numero <= FID_MASK_NUMBER; ++numero)
        numeri.push_back(std::to_string(numero));
    sensoLati.push_back("Position");
    sensoLati.push_back("Number");
}
