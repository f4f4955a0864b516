#include "domain/tipi_campione.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "kelregistrazioni.h"
#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

struct Tipo {
    unsigned codice;
    const char* costante;
    const char* nome;
    const char* contenuto;
};
// clang-format off
constexpr Tipo TIPI[] = {
    {KEL_TIPO_INT32,            "KEL_TIPO_INT32",            "int32",            "signed 32-bit integer"},
    {KEL_TIPO_INT16,            "KEL_TIPO_INT16",            "int16",            "signed 16-bit integer"},
    {KEL_TIPO_UINT8_INTERO,     "KEL_TIPO_UINT8_INTERO",     "uint8-plain",      "unsigned 8-bit integer"},
    {KEL_TIPO_UINT32,           "KEL_TIPO_UINT32",           "uint32",           "unsigned 32-bit integer"},
    {KEL_TIPO_UINT16,           "KEL_TIPO_UINT16",           "uint16",           "unsigned 16-bit integer"},
    {KEL_TIPO_UINT8,            "KEL_TIPO_UINT8",            "uint8",            "unsigned 8-bit integer, may be a bit field"},
    {KEL_TIPO_FLOAT,            "KEL_TIPO_FLOAT",            "float32",          "32-bit float"},
    {KEL_TIPO_LAP_2G,           "KEL_TIPO_LAP_2G",           "lap-2g",           "lap packet, second generation"},
    {KEL_TIPO_GPS_KEL,          "KEL_TIPO_GPS_KEL",          "gps",              "GPS solution packet of the logger"},
    {KEL_TIPO_GPS_NAVSOL,       "KEL_TIPO_GPS_NAVSOL",       "navsol",           "u-blox NAV-SOL payload"},
    {KEL_TIPO_DATA_ORA,         "KEL_TIPO_DATA_ORA",         "date-time",        "date and time packet"},
    {KEL_TIPO_MARCIA,           "KEL_TIPO_MARCIA",           "gear",             "gear"},
    {KEL_TIPO_TEMPO_GIRO,       "KEL_TIPO_TEMPO_GIRO",       "lap-time",         "lap time, ms"},
    {KEL_TIPO_LISTA_BIT,        "KEL_TIPO_LISTA_BIT",        "bits",             "bit set"},
    {KEL_TIPO_NESSUNO,          "KEL_TIPO_NESSUNO",          "none",             "no sample"},
    {KEL_TIPO_NUMERO_TESTO_6,   "KEL_TIPO_NUMERO_TESTO_6",   "text6",            "16-bit number and text of 6"},
    {KEL_TIPO_NUMERO_TESTO_30,  "KEL_TIPO_NUMERO_TESTO_30",  "text30",           "16-bit number and text of 30"},
    {KEL_TIPO_LAP_1G,           "KEL_TIPO_LAP_1G",           "lap-1g",           "lap packet, first generation"},
    {KEL_TIPO_GPS_SATELLITI,    "KEL_TIPO_GPS_SATELLITI",    "satellites",       "GPS satellite packet"},
    {KEL_TIPO_OTTO_BYTE,        "KEL_TIPO_OTTO_BYTE",        "bytes8",           "8 bytes without a decoder"},
    {KEL_TIPO_MEZZO_FLOAT,      "KEL_TIPO_MEZZO_FLOAT",      "float16",          "16-bit float"},
    {KEL_TIPO_COORDINATA,       "KEL_TIPO_COORDINATA",       "coordinate",       "coordinate, 1e-7 degrees"},
    {KEL_TIPO_TEMPO_PACCHETTO,  "KEL_TIPO_TEMPO_PACCHETTO",  "packet-time",      "packet with a time, ms"},
    {KEL_TIPO_NESSUNO_2,        "KEL_TIPO_NESSUNO_2",        "none-2",           "no sample"},
    {KEL_TIPO_DIFFERENZA_TEMPO, "KEL_TIPO_DIFFERENZA_TEMPO", "time-difference",  "time difference, ms"},
};
// clang-format on
static_assert(std::size(TIPI) == NUM_TIPI_CAMPIONE, "all of them");
static_assert(std::ranges::all_of(TIPI, [](const Tipo& tipo) { return &tipo == &TIPI[tipo.codice]; }),
              "row i is code i");

}  // namespace

const char* contenuto_campione(unsigned tipo) {
    return TIPI[tipo].contenuto;
}

const char* costante_campione(unsigned tipo) {
    return TIPI[tipo].costante;
}

const char* nome_campione(unsigned tipo) {
    return TIPI[tipo].nome;
}

std::string nome_con_codice(unsigned tipo) {
    return std::string(nome_campione(tipo)) + " (" + std::to_string(tipo) + ")";
}

const std::vector<std::string>& nomi_campioni() {
    static const std::vector<std::string> nomi = [] {
        std::vector<std::string> tutti;
        for (const Tipo& tipo : TIPI)
            tutti.emplace_back(tipo.nome);
        return tutti;
    }();
    return nomi;
}

std::optional<unsigned> leggi_tipo_campione(std::string_view testo) {
    if (const auto codice = leggi_intero(testo, 0, NUM_TIPI_CAMPIONE - 1))
        return static_cast<unsigned>(*codice);
    const std::string cercato = normale(testo);
    for (const Tipo& tipo : TIPI)
        if (normale(tipo.nome) == cercato || normale(tipo.costante) == cercato)
            return tipo.codice;
    return std::nullopt;
}

std::optional<unsigned> tipo_pacchetto(kel_funpos fid) {
    const int tipo = kelRegTipoPacchetto(fid);
    return tipo < 0 ? std::nullopt : std::optional(static_cast<unsigned>(tipo));
}

}  // namespace kel::strumento
