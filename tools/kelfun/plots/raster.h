// Dots finer than characters, drawn with characters.
#ifndef KELFUN_PLOTS_RASTER_H
#define KELFUN_PLOTS_RASTER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kel::strumento {

/// A sheet of characters.
class Foglio {
public:
    Foglio(int colonne, int righe);

    /// Text in UTF-8, or of its ASCII with question marks for the rest; what does not fit is cut off.
    void scrivi(int colonna, int riga, std::string_view testo, bool utf8);
    /// One character of any encoding, a column wide.
    void metti(int colonna, int riga, std::string_view carattere);

    /// Lines without blanks at their ends.
    std::string testo() const;

private:
    std::size_t posto(int colonna, int riga) const;

    int colonne_;
    int righe_;
    std::vector<std::string> celle_;
};

/// Dots over an area of a sheet: 2 by 4 to a character as braille patterns, 1 by 2 in ASCII. They are about as wide as
/// high.
class Raster {
public:
    Raster(int colonne, int righe, bool braille);

    int larghezza() const { return larghezza_; }
    int altezza() const { return altezza_; }

    /// A line between two dots, (0, 0) at the lower left; dots outside are left out.
    void linea(int x0, int y0, int x1, int y1);

    /// Puts the characters that have dots on a sheet.
    /// @param segno  what stands for every such character; "" for one that shows the dots.
    void stampa(Foglio& foglio, int colonna, int riga, std::string_view segno = "") const;

private:
    std::size_t posto(int x, int y) const;
    void punto(int x, int y);
    bool acceso(int x, int y) const;
    std::string carattere(int colonna, int riga) const;

    bool braille_;
    int larghezza_;
    int altezza_;
    std::vector<bool> punti_;
};

}  // namespace kel::strumento

#endif
