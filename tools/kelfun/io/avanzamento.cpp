#include "io/avanzamento.h"

#include <algorithm>

#include "text/numeri.h"

namespace kel::strumento {

namespace {

constexpr double ATTESA = 2;        // s without a line: most files are done by then
constexpr double INTERVALLO = 0.2;  // s between two of them
// ECMA-48: carriage return, ERASE IN LINE.
constexpr std::string_view DA_CAPO = "\r";
constexpr std::string_view CANCELLA = "\033[K";

std::string misura(std::uint64_t byte) {
    constexpr double MILLE = 1000;
    double quanti = static_cast<double>(byte);
    const char* unita = "B";
    for (const char* maggiore : {"kB", "MB", "GB", "TB"})
        if (quanti >= MILLE) {
            quanti /= MILLE;
            unita = maggiore;
        }
    return con_decimali(quanti, byte < 1000 ? 0 : 1) + " " + unita;
}

std::string minuti(double secondi) {
    constexpr double MASSIMO = 359999;  // 99:59:59; a longer time left is not shown
    const auto interi = static_cast<unsigned>(std::clamp(secondi, 0.0, MASSIMO));
    std::string resto = std::to_string(interi % 60);
    return std::to_string(interi / 60) + ":" + (resto.size() < 2 ? "0" : "") + resto;
}

}  // namespace

Avanzamento::Avanzamento(std::optional<std::uint64_t> totale, Orologio orologio, Schermo schermo)
    : totale_(totale),
      orologio_(std::move(orologio)),
      schermo_(std::move(schermo)),
      inizio_(orologio_()),
      prossima_(inizio_ + ATTESA) {}

Avanzamento::~Avanzamento() {
    fine();
}

std::string Avanzamento::riga(std::uint64_t byte, double trascorsi) const {
    if (!totale_ || *totale_ == 0 || byte == 0)
        return misura(byte);
    const double parte = std::min(1.0, static_cast<double>(byte) / static_cast<double>(*totale_));
    return misura(byte) + " of " + misura(*totale_) + ", " + std::to_string(static_cast<int>(parte * 100)) + "%, " +
           minuti(trascorsi / parte - trascorsi) + " left";
}

void Avanzamento::letti(std::uint64_t byte) {
    const double adesso = orologio_();
    if (adesso < prossima_)
        return;
    prossima_ = adesso + INTERVALLO;
    mostrata_ = true;
    schermo_(std::string(DA_CAPO) + riga(byte, adesso - inizio_) + std::string(CANCELLA));
}

void Avanzamento::fine() {
    if (mostrata_)
        schermo_(std::string(DA_CAPO) + std::string(CANCELLA));
    mostrata_ = false;
}

}  // namespace kel::strumento
