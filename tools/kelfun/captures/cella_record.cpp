#include "captures/cella_record.h"

#include "captures/vista_gps.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

// Shown as the library's text.
bool come_testo(const ColonnaRecord& colonna, bool testi) {
    return !colonna.wgs84() && (testi || colonna.pacchetto);
}

}  // namespace

std::vector<VoceBlocco> voci_di(std::span<const ColonnaRecord> colonne, bool testi, bool persone) {
    std::vector<VoceBlocco> voci;
    for (const ColonnaRecord& colonna : colonne)
        voci.push_back({colonna.quale, colonna.valori,
                        come_testo(colonna, testi) || colonna.campo == KEL_CAMPO_UTC ||
                            (persone && !colonna.wgs84() && colonna.ha_valore())});
    return voci;
}

Cella cella_record(const ColonnaRecord& colonna, const BloccoRecord& blocco, std::size_t voce, std::size_t riga,
                   bool testi) {
    if (colonna.wgs84())
        return cella_gps(blocco.valore(voce, riga),
                         colonna.campo == KEL_CAMPO_UTC ? blocco.testo(voce, riga) : std::string_view(), colonna.campo,
                         colonna.decimali);
    if (come_testo(colonna, testi))
        return Cella::testo(blocco.testo(voce, riga));
    if (const auto numero = blocco.valore(voce, riga))
        return Cella::numero(static_cast<float>(*numero), con_decimali(*numero, colonna.decimali));
    // "---", or blanks for a missing value
    const std::string_view perche = colonna.ha_valore() ? blocco.testo(voce, riga) : std::string_view();
    return perche.find_first_not_of(' ') == std::string_view::npos ? Cella() : Cella::mancante(perche);
}

void scrivi_record(RigheDati& righe, const ColonnaRecord& colonna, const BloccoRecord& blocco, std::size_t voce,
                   std::size_t riga, bool testi) {
    if (come_testo(colonna, testi))
        return righe.testo(blocco.testo(voce, riga));
    if (colonna.valori == KEL_VALORI_NESSUNO || !blocco.valido(voce, riga))
        return righe.niente();
    switch (colonna.valori) {
        case KEL_VALORI_FLOAT:
            return righe.numero(blocco.come_float(voce, riga));
        case KEL_VALORI_UINT32:
            return righe.intero(blocco.come_intero(voce, riga));
        case KEL_VALORI_DOUBLE: {
            const NumeroGps numero = numero_gps(blocco.come_double(voce, riga), colonna.campo, colonna.decimali);
            return righe.reale(numero.valore, numero.decimali);
        }
        default:
            return righe.testo(blocco.testo(voce, riga));
    }
}

}  // namespace kel::strumento
