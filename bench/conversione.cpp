// Two unit texts to the conversion between them.
#include <array>
#include <cstring>
#include <memory>
#include <string>

#ifdef KEL_PARI_UDUNITS2
#include <udunits2.h>
#endif

#include "comune/funzioni.h"
#include "comune/prova.h"
#include "righe.h"

using namespace prova;

namespace {

struct Unita {
    kel_funpos fid;
    const char* testo;
    const char* udunits;
};

// Two units of one quantity follow each other: any two neighbours of the same function make a conversion.
constexpr std::array<Unita, 14> UNITA = {{
    {0x0010, "km/h", "km/h"},
    {0x0010, "mph", "mile/hour"},
    {0x0014, "m/s", "m/s"},
    {0x0014, "ft/s", "ft/s"},
    {0x0014, "cm/s", "cm/s"},
    {0x0014, "m/min", "m/min"},
    {0x1091, "C", "degC"},
    {0x1091, "F", "degF"},
    {0x000E, "bar", "bar"},
    {0x000E, "psi", "psi"},
    {0x000E, "kPa", "kPa"},
    {0x000E, "mbar", "mbar"},
    {0x0B8E, "bar", "bar"},
    {0x0B8E, "psi", "psi"},
}};

struct Richiesta {
    unsigned da;
    unsigned a;
};

#ifdef KEL_PARI_UDUNITS2
struct Risultato {
    double pendenza;
    double intercetta;
};

// Gain and offset of a conversion, which is what a program keeps.
Risultato retta(ut_unit* da, ut_unit* a) {
    cv_converter* const conversione = ut_get_converter(da, a);
    const double zero = cv_convert_double(conversione, 0.0);
    const double uno = cv_convert_double(conversione, 1.0);
    cv_free(conversione);
    return {uno - zero, zero};
}

void con_udunits2(const std::string& riga, const Ingressi<Richiesta>& richieste) {
    ut_set_error_message_handler(ut_ignore);
    ut_system* const sistema = ut_read_xml(nullptr);
    std::array<ut_unit*, UNITA.size()> lette = {};
    for (std::size_t i = 0; i < UNITA.size(); ++i)
        lette[i] = ut_parse(sistema, UNITA[i].udunits, UT_ASCII);
    serie(riga, Ruolo::pari, "udunits2", richieste,
          [lette](const Richiesta& richiesta) { return retta(lette[richiesta.da], lette[richiesta.a]); });
    serie(riga, Ruolo::pari, "udunits2 from texts", richieste, [sistema](const Richiesta& richiesta) {
        ut_unit* const da = ut_parse(sistema, UNITA[richiesta.da].udunits, UT_ASCII);
        ut_unit* const a = ut_parse(sistema, UNITA[richiesta.a].udunits, UT_ASCII);
        const Risultato risultato = retta(da, a);
        ut_free(da);
        ut_free(a);
        return risultato;
    });
}
#endif

}  // namespace

void righe_conversione() {
    const std::string riga = "unit texts to conversion";
    const auto richieste = genera([](Casuale& casuale) {
        for (;;) {
            const Richiesta richiesta = {sotto(casuale, UNITA.size()), sotto(casuale, UNITA.size())};
            if (richiesta.da != richiesta.a && UNITA[richiesta.da].fid == UNITA[richiesta.a].fid)
                return richiesta;
        }
    });
    const auto nostro = [](const Richiesta& richiesta) {
        const s_converter_data dati =
            kelFunGetConvDatas(UNITA[richiesta.da].fid, UNITA[richiesta.da].testo, UNITA[richiesta.a].testo);
        return std::array<float, 2>{dati.gain, dati.offset};
    };
    // The rows known beforehand: what remains is the arithmetic.
    static std::array<const s_converter_data*, UNITA.size()> dati;
    for (std::size_t i = 0; i < UNITA.size(); ++i)
        dati[i] = kelFunGetConvData(UNITA[i].fid, UNITA[i].testo);
    const auto limite = [](const Richiesta& richiesta) {
        const s_converter_data& da = *dati[richiesta.da];
        const s_converter_data& a = *dati[richiesta.a];
        return std::array<float, 2>{a.gain / da.gain, a.offset - (a.gain * da.offset) / da.gain};
    };
    concordi(riga, richieste, nostro, limite);
    serie(riga, Ruolo::nostro, "kelFunGetConvDatas", richieste, nostro);
    serie(riga, Ruolo::limite, "rows known", richieste, limite);
#ifdef KEL_PARI_UDUNITS2
    con_udunits2(riga, richieste);
#endif
}
