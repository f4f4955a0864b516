#include "corsa.h"

namespace digest {

namespace {

Caso caso_di(const Famiglia& famiglia, std::uint32_t chiamata, Racconto* racconto) {
    // FNV-1a of the name. One step of the generator parts neighbouring calls.
    std::uint64_t seme = 0xCBF29CE484222325U;
    for (const char* c = famiglia.nome; *c != '\0'; c++)
        seme = (seme ^ static_cast<unsigned char>(*c)) * 0x100000001B3U;
    return Caso(Caso(seme + chiamata).u64(), racconto);
}

void chiama(Conto& conto) {
    conto.chiamate++;
    Caso caso = caso_di(*conto.famiglia, conto.chiamate, nullptr);
    Impronta risultati;
    conto.famiglia->prova(caso, risultati);
    for (Impronta* dove : {&conto.tutte, &conto.blocco}) {
        dove->numero(risultati.alto());
        dove->numero(risultati.basso());
    }
    if (conto.chiamate + 1 < conto.prossimo)
        return;
    conto.blocchi.push_back(static_cast<std::uint16_t>(conto.blocco.alto() >> 48));
    conto.blocco = Impronta();
    conto.prossimo = blocco_dopo(conto.prossimo);
}

}  // namespace

Corsa::Corsa(bool flat) {
    for (const Famiglia& famiglia : famiglie_flat())
        conti_.push_back({&famiglia});
    if (!flat)
        for (const auto& famiglie : {famiglie_oggetti(), famiglie_colonne(), famiglie_registrazioni()})
            for (const Famiglia& famiglia : famiglie)
                conti_.push_back({&famiglia});
}

void Corsa::fino(std::uint32_t giri) {
    for (; giri_ < giri; giri_++)
        for (Conto& conto : conti_)
            if (giri_ % conto.famiglia->ogni == 0)
                chiama(conto);
}

void racconta(const Famiglia& famiglia, std::uint32_t chiamata, Racconto& dati, Racconto& risultati) {
    Caso caso = caso_di(famiglia, chiamata, &dati);
    Impronta impronta(&risultati);
    famiglia.prova(caso, impronta);
}

}  // namespace digest
