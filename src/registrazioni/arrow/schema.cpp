#include "arrow/schema.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "common/utf8.h"

namespace kel_registrazioni {

namespace {

// What a schema points to.
struct Sostegno {
    std::string formato;
    std::string nome;
    std::string metadati;
    std::vector<std::unique_ptr<ArrowSchema>> figli;
    std::vector<ArrowSchema*> puntatori;
};

// A child that was moved away, or released on its own, is marked so; those still here go with their parent.
void rilascia(ArrowSchema* schema) {
    const std::unique_ptr<Sostegno> suo(static_cast<Sostegno*>(schema->private_data));
    for (const auto& figlio : suo->figli)
        if (figlio->release != nullptr)
            figlio->release(figlio.get());
    schema->release = nullptr;
}

void riempi(ArrowSchema& schema, std::unique_ptr<Sostegno> suo, std::int64_t segni) {
    schema = {};
    schema.format = suo->formato.c_str();
    schema.name = suo->nome.c_str();
    schema.metadata = suo->metadati.empty() ? nullptr : suo->metadati.data();
    schema.flags = segni;
    schema.n_children = static_cast<std::int64_t>(suo->puntatori.size());
    schema.children = suo->puntatori.empty() ? nullptr : suo->puntatori.data();
    schema.release = rilascia;
    schema.private_data = suo.release();
}

// How many pairs, then the length of each key and value before its bytes; numbers as this machine has them.
class Metadati {
public:
    void aggiungi(const std::string& chiave, const std::string& valore) {
        for (const std::string* testo : {&chiave, &valore}) {
            intero(static_cast<std::int32_t>(testo->size()));
            byte_ += *testo;
        }
        ++quanti_;
    }
    std::string byte() && {
        std::string tutti;
        std::swap(tutti, byte_);
        intero(quanti_);
        return byte_ + tutti;
    }

private:
    void intero(std::int32_t valore) {
        char byte[sizeof valore];
        std::memcpy(byte, &valore, sizeof valore);
        byte_.append(byte, sizeof byte);
    }

    std::string byte_;
    std::int32_t quanti_ = 0;
};

std::string esadecimale(kel_funpos fid) {
    std::string testo = "0x00000000";
    for (std::size_t i = testo.size() - 1; fid != 0; --i, fid /= 16)
        testo[i] = "0123456789ABCDEF"[fid % 16];
    return testo;
}

const char* formato(const VoceColonna& voce, bool testi) {
    if (come_testo(voce, testi))
        return "u";
    switch (voce.valori) {
        case KEL_VALORI_DOUBLE:
            return "g";
        case KEL_VALORI_UINT32:
            return "I";
        case KEL_VALORI_ISTANTE:
            return "tsu:UTC";
        default:
            return "f";
    }
}

std::unique_ptr<ArrowSchema> campo(const VoceColonna& voce, const char* formato) {
    auto suo = std::make_unique<Sostegno>();
    suo->formato = formato;
    suo->nome = come_utf8(voce.nome);
    Metadati metadati;
    metadati.aggiungi("unit", come_utf8(voce.udm));
    if (voce.fid != 0)
        metadati.aggiungi("identifier", esadecimale(voce.fid));
    metadati.aggiungi("long_name", come_utf8(voce.lungo.empty() ? voce.nome : voce.lungo));
    suo->metadati = std::move(metadati).byte();
    auto schema = std::make_unique<ArrowSchema>();
    riempi(*schema, std::move(suo), ARROW_FLAG_NULLABLE);
    return schema;
}

// While it is put together nobody else releases the fields.
struct Tutti : Sostegno {
    ~Tutti() {
        for (const auto& figlio : figli)
            figlio->release(figlio.get());
    }
};

}  // namespace

bool come_testo(const VoceColonna& voce, bool testi) {
    return testi || voce.valori == KEL_VALORI_NESSUNO;
}

void schema(const Tabella& tabella, bool testi, ArrowSchema& uscita) {
    Tutti campi;
    campi.figli.reserve(tabella.voci().size() + 1);
    if (tabella.con_tempo())
        campi.figli.push_back(campo({"time", "", "us", 0, 0, KEL_VALORI_ISTANTE, 0, ""}, "tDu"));
    for (const VoceColonna& voce : tabella.voci())
        campi.figli.push_back(campo(voce, formato(voce, testi)));
    auto suo = std::make_unique<Sostegno>();
    suo->formato = "+s";
    suo->puntatori.reserve(campi.figli.size());
    suo->figli = std::move(campi.figli);
    for (const auto& figlio : suo->figli)
        suo->puntatori.push_back(figlio.get());
    riempi(uscita, std::move(suo), 0);
}

}  // namespace kel_registrazioni
