#include "text/numeri.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kel::strumento {

namespace {

template <typename Numero, typename... Argomenti>
std::string scritto(Numero valore, Argomenti... argomenti) {
    char testo[352];  // the longest is a double of 1e308 with 30 decimals
    const auto fine = std::to_chars(std::begin(testo), std::end(testo), valore, argomenti...);
    return fine.ec == std::errc() ? std::string(testo, fine.ptr) : std::string("?");
}

int cifra_esadecimale(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

}  // namespace

std::string con_decimali(float valore, int decimali) {
    return scritto(valore, std::chars_format::fixed, std::clamp(decimali, 0, 30));
}

std::string con_decimali(double valore, int decimali) {
    return scritto(valore, std::chars_format::fixed, std::clamp(decimali, 0, 30));
}

std::string breve(float valore) {
    const float grandezza = std::fabs(valore);
    if (grandezza == 0.0f || (grandezza >= 1e-4f && grandezza < 1e9f))
        return scritto(valore, std::chars_format::fixed);
    return scritto(valore);
}

double come_scritto(const std::string& testo) {
    double valore = 0;
    std::from_chars(testo.data(), testo.data() + testo.size(), valore);
    return valore;
}

double come_scritto(float valore) {
    return come_scritto(scritto(valore));
}

std::string esadecimale(std::uint32_t valore, int cifre) {
    std::string testo;
    while (valore != 0 || static_cast<int>(testo.size()) < cifre) {
        testo += "0123456789ABCDEF"[valore % 16];
        valore /= 16;
    }
    testo += "x0";
    std::reverse(testo.begin(), testo.end());
    return testo;
}

std::optional<std::int64_t> leggi_intero(std::string_view testo, std::int64_t minimo, std::int64_t massimo) {
    std::int64_t valore = 0;
    const char* fine = testo.data() + testo.size();
    const auto letto = std::from_chars(testo.data(), fine, valore);
    if (testo.empty() || letto.ec != std::errc() || letto.ptr != fine || valore < minimo || valore > massimo)
        return std::nullopt;
    return valore;
}

std::optional<float> leggi_float(std::string_view testo) {
    float valore = 0;
    const char* fine = testo.data() + testo.size();
    const auto letto = std::from_chars(testo.data(), fine, valore);
    if (testo.empty() || letto.ec != std::errc() || letto.ptr != fine || !std::isfinite(valore))
        return std::nullopt;
    return valore;
}

std::optional<std::string> leggi_byte(std::string_view testo) {
    if (testo.starts_with("0x") || testo.starts_with("0X"))
        testo.remove_prefix(2);
    std::string byte;
    while (!testo.empty()) {
        if (std::string_view(" \t\r\n:").find(testo.front()) != std::string_view::npos) {
            testo.remove_prefix(1);
            continue;
        }
        const int alta = cifra_esadecimale(testo[0]);
        const int bassa = testo.size() > 1 ? cifra_esadecimale(testo[1]) : -1;
        if (alta < 0 || bassa < 0)
            return std::nullopt;
        byte += static_cast<char>(alta * 16 + bassa);
        testo.remove_prefix(2);
    }
    return byte;
}

}  // namespace kel::strumento
