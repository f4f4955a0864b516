// Default names of the channels in which a program shows the subfields of a packet.
#include "CFunzioni.h"
#include "packets/ricerca_sottocampi.h"
#include "tables/fid.h"

namespace {

using Canali = std::map<unsigned int, IFunzioni::NomiDefaultCanale>;

struct NomePredefinito {
    kel_funpos fid;
    const char* breve;
    const char* nome;
};

using kel::fid;

// clang-format off
constexpr NomePredefinito NUMERO_GIRO = {fid(FID_PHI_NUMBER, FID_OBJ_LAP), "nLap", "Lap Number"};

// The predictive time and its difference to the best lap are no subfields: the application computes them.
constexpr NomePredefinito TEMPI_GIRO[] = {
    {fid(FID_PHI_TIME, FID_OBJ_LAP),                     "LapT", "Lap Time"},
    {fid(FID_PHI_TIME, FID_OBJ_RUNNING_LAP),             "RunT", "Rolling Time"},
    {fid(FID_PHI_TIME, FID_OBJ_PREDICTIVE),              "PreT", "Predictive Time"},
    {fid(FID_PHI_TIME, FID_OBJ_PREDICTIVE_VS_BEST_DIFF), "PT+-", "+- Best Time"},
};
// clang-format on

// An identifier that the caller has names for already keeps them. These texts are fixed, and no table's: they are
// handed out as they stand.
void aggiungi(Canali& canali, const NomePredefinito& canale) {
    canali.insert({canale.fid, {canale.breve, canale.nome}});
}

}  // namespace

// Rows without a name are not shown as channels.
void CFunzioni::getCanaliGPS(Canali& canali) const {
    for (const s_sottocampo* riga = sottocampi_gps_kel; !kel::fine_sottocampi_qui(*riga); ++riga)
        if (*riga->testo != '\0')
            canali.insert({riga->fid, {ConvertiDa8(riga->breve), ConvertiDa8(riga->testo)}});
}

void CFunzioni::getCanaliLapNum(Canali& canali) const {
    aggiungi(canali, NUMERO_GIRO);
}

void CFunzioni::getCanaliLapTime(Canali& canali) const {
    for (const NomePredefinito& canale : TEMPI_GIRO)
        aggiungi(canali, canale);
}
