#include "model/nomi.h"

#include "model/campi.h"

namespace modello {

std::optional<std::string> nomeLungoElencato(Fid fid) {
    for (const RigaCamera& riga : tabelle().camera_base) {
        if (fineTabella(riga.fid))
            break;
        if (riga.fid == fid)
            return riga.testo;
    }
    for (const RigaCamera& riga : tabelle().camera_estese) {
        if (fineTabella(riga.fid))
            break;
        if (riga.fid == fid)
            return riga.testo;
    }
    for (const RigaVecchia& riga : tabelle().funz_kel) {
        if (fineTabella(riga.fid))
            break;
        if (riga.fid == fid)
            return riga.testo;
    }
    return std::nullopt;
}

std::optional<std::string> nomeLungoGrandezza(Fid fid) {
    for (const RigaGrandezza& riga : tabelle().grandezze) {
        if (fineTabella(riga.chiave))
            break;
        if (grandezza(riga.chiave) != grandezza(fid))
            continue;
        if (oggetto(riga.chiave) == oggetto(fid)) {
            if (riga.num_varianti > 0)
                for (const Variante& variante : tabelle().varianti.at(riga.varianti))
                    if (variante.posizione == posizione(fid))
                        return variante.testo;
            return riga.testo;
        }
        if (oggetto(riga.chiave) == 0)
            return riga.testo;
    }
    return std::nullopt;
}

namespace {

std::string composizioneLunga(Fid fid, bool tutti) {
    std::string nome;
    if (grandezza(fid) < 32)
        nome += testoCampo("grandezza_fisica_FunzKel", grandezza(fid)) + " ";
    if (grandezza(fid) == 26) {
        if (oggetto(fid) <= 3)
            nome += testoCampo("dettagli_FunzKel", oggetto(fid)) + " ";
        if ((posizione(fid) >= 1 && posizione(fid) <= 22) || (posizione(fid) == 0 && tutti))
            nome += testoCampo("posizione_FunzKel", posizione(fid)) + " ";
    } else {
        if ((oggetto(fid) != 0 && oggetto(fid) <= 57) || (oggetto(fid) == 0 && tutti))
            nome += testoCampo("oggetto_misurato_FunzKel", oggetto(fid)) + " ";
    }
    if (inOut(fid) != 0 || tutti)
        nome += testoCampo("inout_FunzKel", inOut(fid)) + " ";
    if (numerato(fid))
        return nome + std::to_string(numero(fid)) + " ";
    if (leftRight(fid) != 0 || tutti)
        nome += testoCampo("leftright_FunzKel", leftRight(fid));
    if (frontRear(fid) != 0 || tutti)
        nome += testoCampo("frontrear_FunzKel", frontRear(fid));
    if (upDown(fid) != 0 || tutti)
        nome += testoCampo("updown_FunzKel", upDown(fid));
    return nome + " ";
}

}  // namespace

std::string nomeLungoComposto(Fid fid, bool tutti) {
    std::string nome = composizioneLunga(fid, tutti);
    const std::size_t ultimo = nome.find_last_not_of(' ');
    if (ultimo == std::string::npos)
        return nome;
    return nome.substr(0, ultimo + 1);
}

std::string nomeLungo(Fid fid, bool tutti) {
    if (const auto elencato = nomeLungoElencato(fid))
        return *elencato;
    if (const auto della_grandezza = nomeLungoGrandezza(fid))
        return *della_grandezza;
    return nomeLungoComposto(fid, tutti);
}

std::optional<std::string> nomeBreveElencato(Fid fid) {
    for (const RigaCamera& riga : tabelle().camera_base)  // the end row takes part
        if (riga.fid == fid)
            return riga.breve;
    for (const RigaCamera& riga : tabelle().camera_estese)
        if (riga.fid == fid)
            return riga.breve;
    return std::nullopt;
}

std::string nomeBreveComposto(Fid fid) {
    std::string nome = testoCampo("grandezza_fisica_FunzKel", grandezza(fid));
    if (grandezza(fid) == 26) {
        nome += testoCampo("dettagli_FunzKel", oggetto(fid));
        nome += testoCampo("posizione_FunzKel", posizione(fid));
    } else {
        nome += testoCampo("oggetto_misurato_FunzKel", oggetto(fid));
    }
    nome += testoCampo("inout_FunzKel", inOut(fid));
    if (numerato(fid)) {
        nome += std::to_string(numero(fid));
    } else {
        nome += testoCampo("leftright_FunzKel", leftRight(fid));
        nome += testoCampo("frontrear_FunzKel", frontRear(fid));
        nome += testoCampo("updown_FunzKel", upDown(fid));
    }
    return nome.substr(0, 31);
}

std::string nomeBreve(Fid fid) {
    if (const auto elencato = nomeBreveElencato(fid))
        return *elencato;
    return nomeBreveComposto(fid);
}

}  // namespace modello
