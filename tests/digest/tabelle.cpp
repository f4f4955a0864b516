#include "tabelle.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "columns/nuclei.h"
#include "nuclei_scelti.h"

namespace digest {

namespace {

using Byte = std::vector<unsigned char>;

// One column of some rows.
struct Letta {
    Byte valori;  // room for any kind
    Byte validi;
    std::vector<char> testi;

    bool operator==(const Letta&) const = default;
};

std::vector<Letta> leggi(s_kel_registrazione* reg, const kel_colonne::Nuclei* nuclei) {
    const auto quante = static_cast<std::size_t>(kelRegRighe(reg));
    std::vector<Letta> lette(kelRegNumColonne(reg));
    std::vector<s_kel_lettura> letture;
    for (unsigned i = 0; i < lette.size(); ++i) {
        lette[i] = {Byte(quante * sizeof(double)), Byte((quante + 7) / 8), std::vector<char>(quante * 32)};
        letture.push_back({i, lette[i].valori.data(), lette[i].validi.data(), lette[i].testi.data()});
    }
    scegli_nuclei(nuclei);
    kelRegLeggi(reg, kelRegPrima(reg), quante, letture.data(), static_cast<unsigned>(letture.size()));
    scegli_nuclei(nullptr);
    return lette;
}

template <typename Valore>
Valore valore(const Letta& letta, std::size_t riga) {
    Valore uno;
    std::memcpy(&uno, letta.valori.data() + riga * sizeof uno, sizeof uno);
    return uno;
}

void colonna(Impronta& impronta, const s_kel_descrizione& che, const Letta& letta, std::size_t righe) {
    impronta.testo(che.nome);
    impronta.testo(che.lungo);
    impronta.testo(che.udm);
    impronta.testo(che.proprio);
    for (const std::uint32_t uno : {che.fid, che.canale, static_cast<std::uint32_t>(che.valori),
                                    static_cast<std::uint32_t>(che.campo), static_cast<std::uint32_t>(che.decimali)})
        impronta.numero(uno);
    for (const std::int32_t uno : {che.con_unita, che.interna, che.pacchetto})
        impronta.segno(uno);
    for (std::size_t i = 0; i < righe; ++i)
        switch (che.valori) {
            case KEL_VALORI_FLOAT:
                impronta.reale(valore<float>(letta, i));
                break;
            case KEL_VALORI_DOUBLE:
                numero(impronta, valore<double>(letta, i), PARTI);
                break;
            case KEL_VALORI_UINT32:
                impronta.numero(valore<std::uint32_t>(letta, i));
                break;
            case KEL_VALORI_ISTANTE:
                impronta.segno(valore<std::int64_t>(letta, i));
                break;
            case KEL_VALORI_NESSUNO:
                break;
        }
    impronta.byte(letta.validi.data(), letta.validi.size());
    impronta.byte(letta.testi.data(), letta.testi.size());
}

// Whether the batches of Arrow hold the values and the validity that columns have.
bool come_arrow(s_kel_registrazione* reg, const std::vector<Letta>& lette) {
    ArrowArrayStream flusso{};
    if (kelRegArrow(reg, kelRegPrima(reg), kelRegRighe(reg), 0, &flusso, nullptr) == 0)
        return false;
    ArrowArray blocco{};
    bool uguali = flusso.get_next(&flusso, &blocco) == 0;
    if (uguali && blocco.release != nullptr) {
        const std::size_t prima = static_cast<std::size_t>(blocco.n_children) - lette.size();  // a column of times
        for (std::size_t i = 0; i < lette.size(); ++i) {
            s_kel_descrizione che{};
            kelRegDescrivi(reg, static_cast<unsigned>(i), &che);
            const ArrowArray& sua = *blocco.children[prima + i];
            const std::size_t larga = che.valori == KEL_VALORI_DOUBLE || che.valori == KEL_VALORI_ISTANTE ? 8 : 4;
            const auto righe = static_cast<std::size_t>(blocco.length);
            if (che.valori == KEL_VALORI_NESSUNO)
                continue;
            uguali = uguali && std::memcmp(sua.buffers[0], lette[i].validi.data(), (righe + 7) / 8) == 0 &&
                     std::memcmp(sua.buffers[1], lette[i].valori.data(), righe * larga) == 0;
        }
        blocco.release(&blocco);
    }
    flusso.release(&flusso);
    return uguali;
}

}  // namespace

void numero(Impronta& impronta, double valore, double parti) {
    if (std::isfinite(valore) && std::fabs(valore) < 1e9)
        impronta.segno(std::llround(valore * parti));
    else
        impronta.numero(std::isnan(valore) ? 1 : 2);
}

void tabella(Impronta& impronta, s_kel_registrazione* reg) {
    const auto righe = static_cast<std::size_t>(kelRegRighe(reg));
    impronta.testo(kelRegDetto(reg));
    impronta.testo(kelRegAvanzoDetto(reg));
    for (const std::uint64_t uno : {kelRegRighe(reg), kelRegAvanzo(reg), std::uint64_t{kelRegPasso(reg)},
                                    static_cast<std::uint64_t>(kelRegOrario(reg))})
        impronta.numero(uno);
    for (unsigned i = 0; i < kelRegNumCanali(reg); ++i) {
        s_kel_canale canale;
        impronta.testo(kelRegCanale(reg, i, &canale));
        impronta.numero(canale.offset_campione);
    }
    std::vector<double> tempi(righe);
    impronta.segno(kelRegTempi(reg, kelRegPrima(reg), righe, tempi.data()));
    for (const double tempo : tempi)
        numero(impronta, tempo, 1e3);
    const kel_colonne::InsiemiNuclei possibili = kel_colonne::nuclei_possibili();
    const std::vector<Letta> lette = leggi(reg, possibili.insiemi[0]);
    for (unsigned i = 0; i < lette.size(); ++i) {
        s_kel_descrizione che{};
        kelRegDescrivi(reg, i, &che);
        colonna(impronta, che, lette[i], righe);
    }
    unsigned diverse = come_arrow(reg, lette) ? 0 : 1;
    for (unsigned i = 1; i <= possibili.numero; ++i)
        diverse += leggi(reg, i < possibili.numero ? possibili.insiemi[i] : nullptr) == lette ? 0 : 1;
    impronta.numero(diverse);
}

void a_pezzi(Caso& caso, Impronta& impronta, s_kel_registrazione* reg, const Byte& byte) {
    std::size_t da = 0;
    while (da < byte.size()) {
        const std::size_t quanti = std::min<std::size_t>(1 + caso.sotto(4000), byte.size() - da);
        if (kelRegSpingi(reg, byte.data() + da, quanti, nullptr) == 0)
            break;
        da += quanti;
    }
    s_kel_errore errore = {};
    impronta.segno(kelRegSpingi(reg, nullptr, 0, &errore));
    impronta.testo(errore.testo);
    impronta.numero(kelRegPrima(reg) + kelRegRighe(reg));
    impronta.numero(kelRegAvanzo(reg));
}

}  // namespace digest
