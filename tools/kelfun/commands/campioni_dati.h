// Samples written in hexadecimal, as arguments and as lines of standard input.
#ifndef KELFUN_COMMANDS_CAMPIONI_DATI_H
#define KELFUN_COMMANDS_CAMPIONI_DATI_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "cli/elementi.h"

namespace kel::strumento {

/// The bytes of one sample after the other. All arguments together are whole samples. A line may end within a sample:
/// its bytes then wait for the next line.
class CampioniDati {
public:
    /// @throws ErroreUso  for a type without a sample.
    CampioniDati(unsigned tipo, const std::vector<std::string>& testi);

    std::size_t dimensione() const;
    bool con_righe() const { return elementi_.con_righe(); }

    /// @param inizia  called once, before the first sample or when the first line has come.
    /// @param mostra  is given the bytes of one sample.
    /// @throws ErroreUso  for arguments that are no bytes or no whole samples, and where there are none at all.
    void leggi(const std::function<void()>& inizia, const std::function<void(const char*)>& mostra);

    /// What is to be said once all samples have been shown.
    /// @throws NonTrovato  for lines that were left out, and bytes at the end that are no whole sample.
    void fine() const;

private:
    std::string leggi_pezzo(const std::string& testo);

    unsigned tipo_;
    Elementi elementi_;
    std::string resto_;  // of lines: the beginning of a sample
};

}  // namespace kel::strumento

#endif
