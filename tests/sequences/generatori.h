// Random identifiers and sequences of operations. A failing sequence is made as short and as small as it can be.
#ifndef KEL_SEQUENZE_GENERATORI_H
#define KEL_SEQUENZE_GENERATORI_H

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <ostream>
#include <vector>

#include "model/campi.h"
#include "model/tabelle.h"

namespace sequenze {

// One operation: which one, and three arguments that each operation takes as it needs them.
struct Operazione {
    unsigned quale = 0;
    unsigned primo = 0;
    unsigned secondo = 0;
    modello::Fid fid = 0;
};

inline void showValue(const Operazione& operazione, std::ostream& flusso) {
    flusso << operazione.quale << "(" << operazione.primo << ", " << operazione.secondo << ", 0x" << std::hex
           << operazione.fid << std::dec << ")";
}

// Identifiers of table rows, whole or with other sides, of packets and of their subfields; now and then any number.
inline rc::Gen<modello::Fid> un_fid() {
    std::vector<modello::Fid> noti = {0, 0x1A, 0x9A, 0x809A, 0x1009A, 0x11A, 0x19A, 0x819A, 0x1019A, 0x1C, 0x1F};
    for (const modello::RigaGrandezza& riga : modello::tabelle().grandezze)
        noti.push_back(riga.chiave);
    for (const auto& [nome, righe] : modello::tabelle().sottocampi)
        for (const modello::RigaSottocampo& riga : righe)
            noti.push_back(riga.fid);
    for (const modello::RigaVecchia& riga : modello::tabelle().funz_kel)
        noti.push_back(riga.fid);
    const auto noto = rc::gen::elementOf(noti);
    const auto conLati = rc::gen::apply([](modello::Fid fid, unsigned posizione,
                                           unsigned lati) { return (fid & 0x7FFFU) | posizione << 15 | lati << 20; },
                                        noto, rc::gen::inRange(0U, 32U), rc::gen::inRange(0U, 4096U));
    return rc::gen::weightedOneOf<modello::Fid>({{5, noto}, {3, conLati}, {1, rc::gen::arbitrary<modello::Fid>()}});
}

// Sequences of operations numbered 0 to `quante` - 1.
inline rc::Gen<std::vector<Operazione>> operazioni(unsigned quante) {
    return rc::gen::scale(3, rc::gen::container<std::vector<Operazione>>(rc::gen::build<Operazione>(
                                 rc::gen::set(&Operazione::quale, rc::gen::inRange(0U, quante)),
                                 rc::gen::set(&Operazione::primo, rc::gen::inRange(0U, 12U)),
                                 rc::gen::set(&Operazione::secondo, rc::gen::arbitrary<unsigned>()),
                                 rc::gen::set(&Operazione::fid, un_fid()))));
}

}  // namespace sequenze

#endif
