#include "plots/raster.h"

#include <algorithm>
#include <cstdlib>

#include "text/larghezza.h"
#include "text/mostrabile.h"

namespace kel::strumento {

namespace {

constexpr int BRAILLE_X = 2;
constexpr int BRAILLE_Y = 4;
constexpr int ASCII_Y = 2;

// Unicode, Braille Patterns: U+2800 and a bit for each dot, by row and column from the upper left.
constexpr unsigned BRAILLE_BASE = 0x2800;
constexpr unsigned BRAILLE_BIT[BRAILLE_Y][BRAILLE_X] = {{0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}};

std::string utf8(unsigned codice) {  // of three bytes: U+0800 to U+FFFF
    return {static_cast<char>(0xE0 | codice >> 12), static_cast<char>(0x80 | (codice >> 6 & 0x3F)),
            static_cast<char>(0x80 | (codice & 0x3F))};
}

}  // namespace

Foglio::Foglio(int colonne, int righe)
    : colonne_(colonne),
      righe_(righe),
      celle_(static_cast<std::size_t>(colonne) * static_cast<std::size_t>(righe), " ") {}

std::size_t Foglio::posto(int colonna, int riga) const {
    return static_cast<std::size_t>(riga) * static_cast<std::size_t>(colonne_) + static_cast<std::size_t>(colonna);
}

void Foglio::scrivi(int colonna, int riga, std::string_view testo, bool utf8) {
    for (const Glifo& glifo : glifi(mostrabile(testo))) {
        const bool entra = colonna >= 0 && colonna + glifo.colonne <= colonne_;
        if (entra)
            metti(colonna, riga, utf8 || glifo.byte.size() == 1 ? glifo.byte : "?");
        // The second column of a wide character holds no character of its own.
        if (entra && glifo.colonne == 2)
            metti(colonna + 1, riga, utf8 ? "" : " ");
        colonna += glifo.colonne;
    }
}

void Foglio::metti(int colonna, int riga, std::string_view carattere) {
    if (colonna >= 0 && colonna < colonne_ && riga >= 0 && riga < righe_)
        celle_[posto(colonna, riga)] = carattere;
}

std::string Foglio::testo() const {
    std::string tutto;
    for (int riga = 0; riga < righe_; ++riga) {
        std::string una;
        for (int colonna = 0; colonna < colonne_; ++colonna)
            una += celle_[posto(colonna, riga)];
        una.erase(una.find_last_not_of(' ') + 1);
        tutto += una + "\n";
    }
    return tutto;
}

Raster::Raster(int colonne, int righe, bool braille)
    : braille_(braille),
      larghezza_(colonne * (braille ? BRAILLE_X : 1)),
      altezza_(righe * (braille ? BRAILLE_Y : ASCII_Y)),
      punti_(static_cast<std::size_t>(larghezza_) * static_cast<std::size_t>(altezza_)) {}

std::size_t Raster::posto(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(larghezza_) + static_cast<std::size_t>(x);
}

void Raster::punto(int x, int y) {
    if (x >= 0 && x < larghezza_ && y >= 0 && y < altezza_)
        punti_[posto(x, y)] = true;
}

bool Raster::acceso(int x, int y) const {
    return punti_[posto(x, y)];
}

// Bresenham's algorithm for all octants.
void Raster::linea(int x0, int y0, int x1, int y1) {
    const int dx = std::abs(x1 - x0);
    const int dy = -std::abs(y1 - y0);
    const int passo_x = x0 < x1 ? 1 : -1;
    const int passo_y = y0 < y1 ? 1 : -1;
    int errore = dx + dy;
    for (;;) {
        punto(x0, y0);
        if (x0 == x1 && y0 == y1)
            return;
        const int doppio = 2 * errore;
        if (doppio >= dy) {
            errore += dy;
            x0 += passo_x;
        }
        if (doppio <= dx) {
            errore += dx;
            y0 += passo_y;
        }
    }
}

std::string Raster::carattere(int colonna, int riga) const {
    const int sopra = altezza_ - 1 - riga * (braille_ ? BRAILLE_Y : ASCII_Y);
    if (!braille_) {
        const bool alto = acceso(colonna, sopra);
        const bool basso = acceso(colonna, sopra - 1);
        return alto && basso ? ":" : alto ? "'" : basso ? "." : " ";
    }
    unsigned bit = 0;
    for (int y = 0; y < BRAILLE_Y; ++y)
        for (int x = 0; x < BRAILLE_X; ++x)
            if (acceso(colonna * BRAILLE_X + x, sopra - y))
                bit |= BRAILLE_BIT[y][x];
    return bit == 0 ? " " : utf8(BRAILLE_BASE + bit);
}

void Raster::stampa(Foglio& foglio, int colonna, int riga, std::string_view segno) const {
    for (int y = 0; y < altezza_ / (braille_ ? BRAILLE_Y : ASCII_Y); ++y)
        for (int x = 0; x < larghezza_ / (braille_ ? BRAILLE_X : 1); ++x)
            if (const std::string uno = carattere(x, y); uno != " ")
                foglio.metti(colonna + x, riga + y, segno.empty() ? uno : segno);
}

}  // namespace kel::strumento
