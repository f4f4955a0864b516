#include "model/nomi.h"

#include "model/campi.h"

namespace modello {

std::optional<std::string> nome_lungo_elencato(Fid fid) {
    for (const RigaCamera& riga : tabelle().camera_base) {
        if (fine_tabella(riga.fid))
            break;
        if (riga.fid == fid)
            return riga.testo;
    }
    for (const RigaCamera& riga : tabelle().camera_estese) {
        if (fine_tabella(riga.fid))
            break;
        if (riga.fid == fid)
            return riga.testo;
    }
    for (const RigaVecchia& riga : tabelle().funz_kel) {
        if (fine_tabella(riga.fid))
            break;
        if (riga.fid == fid)
            return riga.testo;
    }
    return std::nullopt;
}

std::optional<std::string> nome_lungo_grandezza(Fid fid) {
    for (const RigaGrandezza& riga : tabelle().grandezze) {
        if (fine_tabella(riga.chiave))
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

std::string composizione_lunga(Fid fid, bool tutti) {
    std::string nome;
    if (grandezza(fid) < 32)
        nome += testo_campo("grandezza_fisica_FunzKel", grandezza(fid)) + " ";
    if (grandezza(fid) == 26) {
        if (oggetto(fid) <= 3)
            nome += testo_campo("dettagli_FunzKel", oggetto(fid)) + " ";
        if ((posizione(fid) >= 1 && posizione(fid) <= 22) || (posizione(fid) == 0 && tutti))
            nome += testo_campo("posizione_FunzKel", posizione(fid)) + " ";
    } else {
        if ((oggetto(fid) != 0 && oggetto(fid) <= 57) || (oggetto(fid) == 0 && tutti))
            nome += testo_campo("oggetto_misurato_FunzKel", oggetto(fid)) + " ";
    }
    if (in_out(fid) != 0 || tutti)
        nome += testo_campo("inout_FunzKel", in_out(fid)) + " ";
    if (numerato(fid))
        return nome + std::to_string(numero(fid)) + " ";
    if (left_right(fid) != 0 || tutti)
        nome += testo_campo("leftright_FunzKel", left_right(fid));
    if (front_rear(fid) != 0 || tutti)
        nome += testo_campo("frontrear_FunzKel", front_rear(fid));
    if (up_down(fid) != 0 || tutti)
        nome += testo_campo("updown_FunzKel", up_down(fid));
    return nome + " ";
}

}  // namespace

std::string nome_lungo_composto(Fid fid, bool tutti) {
    std::string nome = composizione_lunga(fid, tutti);
    const std::size_t ultimo = nome.find_last_not_of(' ');
    if (ultimo == std::string::npos)
        return nome;
    return nome.substr(0, ultimo + 1);
}

std::string nome_lungo(Fid fid, bool tutti) {
    if (const auto elencato = nome_lungo_elencato(fid))
        return *elencato;
    if (const auto della_grandezza = nome_lungo_grandezza(fid))
        return *della_grandezza;
    return nome_lungo_composto(fid, tutti);
}

std::optional<std::string> nome_breve_elencato(Fid fid) {
    for (const RigaCamera& riga : tabelle().camera_base)  // the end row takes part
        if (riga.fid == fid)
            return riga.breve;
    for (const RigaCamera& riga : tabelle().camera_estese)
        if (riga.fid == fid)
            return riga.breve;
    return std::nullopt;
}

std::string nome_breve_composto(Fid fid) {
    std::string nome = testo_campo("grandezza_fisica_FunzKel", grandezza(fid));
    if (grandezza(fid) == 26) {
        nome += testo_campo("dettagli_FunzKel", oggetto(fid));
        nome += testo_campo("posizione_FunzKel", posizione(fid));
    } else {
        nome += testo_campo("oggetto_misurato_FunzKel", oggetto(fid));
    }
    nome += testo_campo("inout_FunzKel", in_out(fid));
    if (numerato(fid)) {
        nome += std::to_string(numero(fid));
    } else {
        nome += testo_campo("leftright_FunzKel", left_right(fid));
        nome += testo_campo("frontrear_FunzKel", front_rear(fid));
        nome += testo_campo("updown_FunzKel", up_down(fid));
    }
    return nome.substr(0, 31);
}

std::string nome_breve(Fid fid) {
    if (const auto elencato = nome_breve_elencato(fid))
        return *elencato;
    return nome_breve_composto(fid);
}

}  // namespace modello
