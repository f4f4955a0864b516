#include "domain/disegno_bit.h"

#include <algorithm>

#include "domain/campi.h"

namespace kel::strumento {

namespace {

struct Casella {
    unsigned bit;
    unsigned quanti;
    std::string bit_scritti;
    std::string nome;
    std::string valore;
    std::size_t larghezza = 0;
};

// The numbers of the first and the last bit, as far apart as the box allows.
std::string numeri(const Casella& casella) {
    std::string testo = std::to_string(casella.bit + casella.quanti - 1);
    if (casella.quanti == 1)
        return testo;
    const std::string ultimo = std::to_string(casella.bit);
    const std::size_t fra =
        casella.larghezza > testo.size() + ultimo.size() + 2 ? casella.larghezza - testo.size() - ultimo.size() - 2 : 1;
    return testo + std::string(fra, ' ') + ultimo;
}

std::string in_mezzo(const std::string& testo, std::size_t larghezza) {
    const std::size_t spazi = larghezza - testo.size();
    return std::string(spazi / 2, ' ') + testo + std::string(spazi - spazi / 2, ' ');
}

Casella casella(kel_funpos fid, unsigned bit, unsigned quanti, std::string nome, std::string valore) {
    Casella una{bit, quanti, "", std::move(nome), std::move(valore), 0};
    for (unsigned i = quanti; i > 0; --i)
        una.bit_scritti += (fid >> (bit + i - 1) & 1) != 0 ? '1' : '0';
    una.larghezza = std::max({una.bit_scritti.size(), una.nome.size(), una.valore.size(), numeri(una).size()}) + 2;
    return una;
}

std::string significato(const Campo& campo) {
    if (campo.riga != nullptr && *campo.riga->testo != '\0')
        return campo.riga->testo;
    return campo.valore == 0 && campo.riga != nullptr ? "-" : std::to_string(campo.valore);
}

// From the highest bit down.
std::vector<Casella> caselle(kel_funpos fid) {
    std::vector<Casella> tutte;
    for (const Campo& campo : campi(fid))
        if (campo.bit < PRIMO_BIT_LIBERO)
            tutte.push_back(casella(fid, campo.bit, campo.quanti, campo.titolo, significato(campo)));
    tutte.push_back(casella(fid, FID_SHIFT_NUMBERED, 1, "numbered", kelFidNumerato(fid) ? "yes" : "no"));
    tutte.push_back(casella(fid, PRIMO_BIT_LIBERO, 32 - PRIMO_BIT_LIBERO, "unused",
                            fid >> PRIMO_BIT_LIBERO != 0 ? std::to_string(fid >> PRIMO_BIT_LIBERO) : "-"));
    std::sort(tutte.begin(), tutte.end(), [](const Casella& a, const Casella& b) { return a.bit > b.bit; });
    return tutte;
}

}  // namespace

std::vector<std::string> disegno_bit(kel_funpos fid) {
    std::string numeri_bit = " ";
    std::string bordo = "+";
    std::string bit = "|";
    std::string nomi = "|";
    std::string valori = "|";
    for (const Casella& una : caselle(fid)) {
        numeri_bit += in_mezzo(numeri(una), una.larghezza) + " ";
        bordo += std::string(una.larghezza, '-') + "+";
        bit += in_mezzo(una.bit_scritti, una.larghezza) + "|";
        nomi += in_mezzo(una.nome, una.larghezza) + "|";
        valori += in_mezzo(una.valore, una.larghezza) + "|";
    }
    return {numeri_bit, bordo, bit, nomi, valori, bordo};
}

}  // namespace kel::strumento
