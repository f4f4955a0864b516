// Numbers as texts of a fixed width.
#ifndef KEL_MODELLO_TESTO_NUMERICO_H
#define KEL_MODELLO_TESTO_NUMERICO_H

#include <string>

namespace modello {

// How a number is shown. `decimali` is rewritten by a read with `auto_decimali`.
struct Aspetto {
    unsigned larghezza = 0;
    unsigned decimali = 0;
    unsigned auto_decimali = 0;
    unsigned formato = 0;  // 1 left-aligned, 2 cut short, any other right-aligned
};

// Chooses between 1 and 0 decimals by magnitude, when the look asks for it.
void scegli_decimali(Aspetto& aspetto, float valore);

// A magnitude scaled by its decimals (0 to 3) and rounded to a whole number. The product is single precision, so that
// 123.45, a little less than that as a float, is with one decimal 1235. Rounding itself is exact: 8388609 stays what it
// is, and 0.49999997 is nothing.
double arrotondata(float grandezza, unsigned decimali);

// Digits of that number: "" when there are more than `ammesse`, or when it is more than an int holds.
std::string cifre(float grandezza, unsigned decimali, unsigned ammesse);

// The text; first chooses the decimals.
std::string testo_numerico(Aspetto& aspetto, float valore);

}  // namespace modello

#endif
