#include "captures/tempo_record.h"

#include "domain/registrazioni.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

constexpr float FREQUENZA_MINIMA = 0.001f;
constexpr float FREQUENZA_MASSIMA = 1e6f;

eKelOrario orario_chiesto(const std::string& nome) {
    return nome == "none"    ? KEL_ORARIO_NESSUNO
           : nome == "u32ms" ? KEL_ORARIO_U32MS
           : nome == "u64us" ? KEL_ORARIO_U64US
                             : KEL_ORARIO_TROVATO;
}

}  // namespace

void aggiungi_tempo(Comando& comando, SceltaTempo& scelta) {
    comando
        .opzione(
            "--time", scelta.orario,
            "Time stamp before every record: u32ms (32 bits, ms), u64us (64 bits, us), none, or auto (default): found "
            "from the samples")
        .scelta({"auto", "none", "u32ms", "u64us"});
    comando.opzione("--rate", scelta.frequenza, "Records a second, if they have no time stamps").valore("HZ");
}

s_kel_apertura apertura_di(const SceltaTempo& scelta) {
    s_kel_apertura apertura{};
    apertura.parole = &PAROLE;
    apertura.orario = orario_chiesto(scelta.orario);
    if (scelta.frequenza.empty())
        return apertura;
    if (apertura.orario == KEL_ORARIO_U32MS || apertura.orario == KEL_ORARIO_U64US)
        throw ErroreUso("--time and --rate exclude each other; accepted: one of them");
    const auto frequenza = leggi_float(scelta.frequenza);
    if (!frequenza || *frequenza < FREQUENZA_MINIMA || *frequenza > FREQUENZA_MASSIMA)
        throw ErroreUso("--rate '" + scelta.frequenza + "' is no rate; accepted: records a second, 0.001 to 1000000");
    apertura.frequenza = static_cast<double>(*frequenza);
    apertura.orario = KEL_ORARIO_NESSUNO;
    return apertura;
}

int decimali_tempo(eKelOrario orario, double frequenza) {
    constexpr double MILLE = 1000;
    return orario == KEL_ORARIO_U64US || frequenza > MILLE ? 6 : 3;
}

}  // namespace kel::strumento
