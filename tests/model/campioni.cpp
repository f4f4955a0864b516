#include "model/campioni.h"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "model/mezzi.h"

namespace modello {

std::uint32_t u32(const Byte* byte) {
    return byte[0] + byte[1] * 256U + byte[2] * 65536U + byte[3] * 16777216U;
}

std::int32_t i32(const Byte* byte) {
    return static_cast<std::int32_t>(u32(byte));
}

std::uint16_t u16(const Byte* byte) {
    return static_cast<std::uint16_t>(byte[0] + byte[1] * 256U);
}

std::int16_t i16(const Byte* byte) {
    return static_cast<std::int16_t>(u16(byte));
}

namespace {

float da_bit(std::uint32_t bit) {
    float x = 0;
    std::memcpy(&x, &bit, sizeof x);
    return x;
}

}  // namespace

float f32(const Byte* byte) {
    return da_bit(u32(byte));
}

unsigned dimensione_campione(unsigned tipo) {
    return tipo < tabelle().dimensioni.size() ? tabelle().dimensioni[tipo] : 0;
}

namespace {

float lineare(float x, const RigaUdm& unita) {
    const float prodotto = x * unita.gain;
    return prodotto + unita.offset;
}

// A zero shows as 0, not as the offset.
float inverso(float x, const RigaUdm& unita) {
    return x == 0.0F ? 0.0F : lineare(1.0F / x, unita);
}

Letto buono(float x, bool reciproco, const RigaUdm& unita) {
    return {reciproco ? inverso(x, unita) : lineare(x, unita), 0};
}

// Status of a raw 16- or 32-bit sample that carries no measurement, else 0.
unsigned riservato(std::uint32_t grezzo, std::uint32_t base) {
    if (grezzo == base + 0xCFFF)
        return 4;
    if (grezzo == base + 0xCFFE)
        return 2;
    if (grezzo == base + 0xCFFD)
        return 8;
    return 0;
}

unsigned riservato32(std::uint32_t grezzo) {
    return riservato(grezzo, 0xFFFF0000U);
}

unsigned riservato16(std::uint32_t grezzo) {
    return riservato(grezzo, 0);
}

std::uint32_t campo_bit(std::uint32_t grezzo, const Campo& campo) {
    return campo.pos_bit >= 32 ? 0 : (grezzo & campo.maschera) >> campo.pos_bit;
}

Letto virgola_mobile(float x, bool reciproco, const RigaUdm& unita) {
    if (std::isnan(x))
        return {0.0F, 8};
    if (std::isinf(x))
        return {0.0F, 4};
    return buono(x, reciproco, unita);
}

Letto mezzo(std::uint32_t grezzo, bool reciproco, const RigaUdm& unita) {
    if (grezzo == 0x7C00)
        return {0.0F, 12};
    if (grezzo == 0xFC00)
        return {0.0F, 2};
    return buono(da_bit(espandi(grezzo)), reciproco, unita);
}

Letto marcia(const Byte* campione) {
    if (const unsigned stato = riservato16(u16(campione)))
        return {-8.0F, stato};
    const int grezzo = i16(campione);
    return {static_cast<float>(grezzo < -8 ? -8 : grezzo), 0};
}

// 1-based numbers of the set bits, the highest bit in the units place.
double lista_bit(unsigned byte) {
    double somma = 0;
    double peso = 1;
    for (int bit = 8; bit >= 1; bit--)
        if ((byte >> (bit - 1)) % 2 == 1) {
            somma += bit * peso;
            peso *= 10;
        }
    return somma;
}

// 0-based numbers of the set bits of the field, one place a bit.
double lista_bit_mascherata(unsigned byte, const Campo& campo) {
    const std::uint32_t x = campo_bit(byte, campo);
    double somma = 0;
    double peso = 1;
    for (unsigned i = 0; i < campo.num_bit && i < 32; i++) {
        if ((x >> i) % 2 == 1)
            somma += i * peso;
        peso *= 10;
    }
    return somma;
}

float radice_quadrati(const Byte* x, const Byte* y, const Byte* z) {
    const float vx = static_cast<float>(i32(x));
    const float vy = static_cast<float>(i32(y));
    const float vz = static_cast<float>(i32(z));
    return std::sqrt(vx * vx + vy * vy + vz * vz);
}

float velocita(const Byte* pacchetto, bool reciproco, const RigaUdm& unita) {
    if (pacchetto[14] < 3 || pacchetto[51] < 4)
        return 0.0F;
    const float v = radice_quadrati(pacchetto + 32, pacchetto + 36, pacchetto + 40) * 0.036F;
    return reciproco ? inverso(v, unita) : lineare(v, unita);
}

float velocita_semplice(const Byte* pacchetto, bool reciproco, const RigaUdm& unita) {
    const float v = radice_quadrati(pacchetto + 28, pacchetto + 32, pacchetto + 36);
    return reciproco ? inverso(v, unita) : lineare(v, unita);
}

constexpr double GRADI = 180 / 3.141592653589793;

float longitudine(const Byte* pacchetto) {
    const double x = i32(pacchetto + 16);
    const double y = i32(pacchetto + 20);
    if (x * x + y * y < 1e-10)
        return 0.0F;
    return static_cast<float>(std::atan2(y, x) * GRADI);
}

float latitudine(const Byte* pacchetto) {
    const double e2 = 0.00669437999014133;
    const double x = i32(pacchetto + 16);
    const double y = i32(pacchetto + 20);
    const double z = i32(pacchetto + 24);
    const double p2 = x * x + y * y;
    double dz = z * e2;
    double zz = 0;
    for (int giro = 1; giro <= 50; giro++) {
        zz = z + dz;
        const double r = std::sqrt(zz * zz + p2);
        if (r < 1e-10)
            return 0.0F;
        const double s = zz / r;
        const double t = 1 - e2 * s * s;
        if (t < 1e-10)
            return 0.0F;
        if (giro == 50)
            break;
        const double nuovo = e2 * s * (6378137.0 / std::sqrt(t));
        const double scarto = std::fabs(nuovo - dz);
        dz = nuovo;
        if (!(scarto > 1e-10))
            break;
    }
    if (p2 >= 1e-10)
        return static_cast<float>(std::atan2(zz, std::sqrt(p2)) * GRADI);
    return z > 0 ? 90.0F : -90.0F;
}

Letto numero_o_cifra(const Byte* campione) {
    if (campione[2] >= '1' && campione[2] <= '9')
        return {static_cast<float>(campione[2] - '0'), 0};
    return {static_cast<float>(i16(campione)), 0};
}

}  // namespace

Letto leggi_valore(Valore modo, bool reciproco, const RigaUdm& unita, const Campo& campo, const Byte* campione) {
    switch (modo) {
        case Valore::nessuno:
        case Valore::zero:
            return {0.0F, 0};
        case Valore::int32:
            if (const unsigned stato = riservato32(u32(campione)))
                return {0.0F, stato};
            return buono(static_cast<float>(i32(campione)), reciproco, unita);
        case Valore::int16:
            if (const unsigned stato = riservato16(u16(campione)))
                return {0.0F, stato};
            return buono(static_cast<float>(i16(campione)), reciproco, unita);
        case Valore::uint8:
            return buono(static_cast<float>(campione[0]), reciproco, unita);
        case Valore::uint32:
            if (const unsigned stato = riservato32(u32(campione)))
                return {0.0F, stato};
            return buono(static_cast<float>(u32(campione)), reciproco, unita);
        case Valore::uint16:
            if (const unsigned stato = riservato16(u16(campione)))
                return {0.0F, stato};
            return buono(static_cast<float>(u16(campione)), reciproco, unita);
        case Valore::virgola_mobile:
            return virgola_mobile(f32(campione), reciproco, unita);
        case Valore::mezzo:
            return mezzo(u16(campione), reciproco, unita);
        case Valore::uint32_bit:
            if (const unsigned stato = riservato32(u32(campione)))
                return {0.0F, stato};
            return {lineare(static_cast<float>(campo_bit(u32(campione), campo)), unita), 0};
        case Valore::uint16_bit:
            if (const unsigned stato = riservato16(u16(campione)))
                return {0.0F, stato};
            return {lineare(static_cast<float>(campo_bit(u16(campione), campo)), unita), 0};
        case Valore::uint8_bit:
            return {lineare(static_cast<float>(campo_bit(campione[0], campo) % 256), unita), 0};
        case Valore::marcia:
            return marcia(campione);
        case Valore::lista_bit:
            return {lineare(static_cast<float>(lista_bit(campione[0])), unita), 0};
        case Valore::lista_bit_mascherata:
            return {lineare(static_cast<float>(lista_bit_mascherata(campione[0], campo)), unita), 0};
        case Valore::numero:
            return {static_cast<float>(i16(campione)), 0};
        case Valore::numero_o_cifra:
            return numero_o_cifra(campione);
        case Valore::velocita:
            return {velocita(campione, reciproco, unita), 0};
        case Valore::velocita_semplice:
            return {velocita_semplice(campione, reciproco, unita), 0};
        case Valore::latitudine:
            return {latitudine(campione), 0};
        case Valore::longitudine:
            return {longitudine(campione), 0};
    }
    return {0.0F, 0};
}

std::string testo_stato(unsigned stato) {
    if (stato / 4 % 2 == 1)
        return "---";
    if (stato / 2 % 2 == 1)
        return "   ";
    if (stato / 8 % 2 == 1)
        return "---";
    if (stato % 2 == 1)
        return "Err";
    return "";
}

std::string testo_marcia(const Byte* campione) {
    const int grezzo = i16(campione);
    if (grezzo >= 1 && grezzo <= 9)
        return std::to_string(grezzo);
    if (grezzo <= 0 && grezzo >= -7)
        return std::string("NRDPSWdB").substr(static_cast<std::size_t>(-grezzo), 1);
    return "-";
}

namespace {

struct Parti {
    int ore, minuti, secondi, centesimi;
};

Parti parti(std::int32_t t) {
    Parti p{0, t / 60000, t % 60000 / 1000, 0};
    p.centesimi = (t - p.secondi * 1000) / 10 % 100;
    if (p.minuti >= 60) {
        p.ore = p.minuti / 60;
        p.minuti %= 60;
    }
    return p;
}

template <typename... Numeri>
std::string scrivi(const char* formato, Numeri... numeri) {
    char testo[64];
    std::snprintf(testo, sizeof testo, formato, numeri...);
    return testo;
}

}  // namespace

std::string testo_tempo_giro(std::int32_t millisecondi, unsigned decimali, bool compatto) {
    const Parti p = parti(millisecondi);
    if (compatto) {
        if (p.ore >= 1)
            return p.ore <= 9 ? scrivi("%d:%02d.%02d", p.ore, p.minuti, p.secondi)
                              : scrivi("%3d:%02d", p.ore, p.minuti);
        if (decimali != 1 && p.minuti <= 9)
            return scrivi("%d:%02d.%02d", p.minuti, p.secondi, p.centesimi);
        return scrivi("%2d:%02d.%d", p.minuti, p.secondi, p.centesimi / 10);
    }
    if (p.ore >= 1)
        return scrivi("%2d:%02d:%02d", decimali == 1 ? p.ore : p.ore % 100, p.minuti, p.secondi);
    if (decimali == 1)
        return scrivi("%2d:%02d.%d", p.minuti, p.secondi, p.centesimi / 10);
    return scrivi("%2d:%02d.%02d", p.minuti, p.secondi, p.centesimi);
}

std::string testo_differenza(std::int32_t millisecondi, bool compatto) {
    const Parti p = parti(millisecondi);
    const bool negativa = millisecondi < 0;
    const int secondi = negativa ? -p.secondi : p.secondi;
    const int centesimi = negativa ? -p.centesimi : p.centesimi;
    if (compatto)
        return scrivi(negativa ? "-%2d.%02d" : " %2d.%02d", secondi, centesimi);
    return scrivi(negativa ? " -%2d.%02d" : " +%2d.%02d", secondi, centesimi);
}

std::string testo_tempo_pacchetto(std::int32_t millisecondi) {
    const Parti p = parti(millisecondi);
    if (p.ore >= 1)
        return scrivi("%2d:%02d:%02d", p.ore % 100, p.minuti, p.secondi);
    return scrivi("%2d:%02d.%03d", p.minuti, p.secondi, p.centesimi * 10);
}

std::string testo_coordinata(const Byte* campione) {
    if (riservato32(u32(campione)) != 0)
        return "";
    const int grezzo = i32(campione);
    return scrivi("%d.%07d", grezzo / 10000000, grezzo % 10000000).substr(0, 31);
}

std::string testo_gps(unsigned fix, unsigned satelliti) {
    if (fix > 249 && satelliti > 249)
        return "No GPS";
    if (fix < 2)
        return "GPS fix missing";
    if (fix == 2)
        return "GPS low fix";
    return scrivi("GPS Fix=%u SVs=%u", fix, satelliti);
}

std::string testo_copiato(const Byte* campione, unsigned dimensione) {
    std::string testo;
    for (unsigned i = 2; i < dimensione && campione[i] != 0; i++)
        testo += static_cast<char>(campione[i]);
    return testo;
}

}  // namespace modello
