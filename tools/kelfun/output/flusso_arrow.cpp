#include "output/flusso_arrow.h"

#include <flatbuffers/flatbuffers.h>
#include <bit>
#include <cstring>
#include <string_view>
#include <utility>

namespace kel::strumento {

namespace {

using Costruttore = flatbuffers::FlatBufferBuilder;
template <typename Tipo>
using Posto = flatbuffers::Offset<Tipo>;
struct Tabella {};

// The tables of the format's Message.fbs and Schema.fbs that are used here: the numbers of their fields, and of the types in
// their unions. https://arrow.apache.org/docs/format/Columnar.html#serialization-and-interprocess-communication-ipc
namespace di_messaggio {
enum Campo { versione, tipo, testata, byte_corpo };
enum Tipo : std::uint8_t { schema = 1, blocco = 3 };
constexpr std::int16_t V5 = 4;
}  // namespace di_messaggio
namespace di_schema {
enum Campo { ordine_byte, campi };
}
namespace di_campo {
enum Campo { nome, nullo, tipo_tipo, tipo, dizionario, figli, metadati };
enum Tipo : std::uint8_t { intero = 2, virgola_mobile = 3, utf8 = 5, istante = 10, durata = 18 };
}  // namespace di_campo
namespace di_blocco {
enum Campo { lunghezza, nodi, buffer };
}

constexpr std::int16_t MICROSECONDI = 2;
constexpr std::size_t ALLINEAMENTO = 8;
constexpr std::uint32_t CONTINUA = 0xFFFFFFFF;

struct Nodo {
    std::int64_t righe;
    std::int64_t nulle;
};
struct Tratto {
    std::int64_t da;
    std::int64_t byte;
};

constexpr flatbuffers::voffset_t posto(int campo) {
    return static_cast<flatbuffers::voffset_t>(4 + 2 * campo);
}

Posto<Tabella> chiusa(Costruttore& c, flatbuffers::uoffset_t inizio) {
    return {c.EndTable(inizio)};
}

std::size_t tondo(std::size_t byte) {
    return (byte + ALLINEAMENTO - 1) / ALLINEAMENTO * ALLINEAMENTO;
}

// The type of a column, by the text that the C data interface has for it.
std::pair<di_campo::Tipo, Posto<Tabella>> tipo(Costruttore& c, std::string_view formato) {
    if (formato == "u")
        return {di_campo::utf8, chiusa(c, c.StartTable())};
    if (formato == "f" || formato == "g") {
        const auto inizio = c.StartTable();
        c.AddElement<std::int16_t>(posto(0), formato == "f" ? 1 : 2, 0);  // precision
        return {di_campo::virgola_mobile, chiusa(c, inizio)};
    }
    if (formato == "I") {
        const auto inizio = c.StartTable();
        c.AddElement<std::int32_t>(posto(0), 32, 0);  // bits, unsigned
        return {di_campo::intero, chiusa(c, inizio)};
    }
    const bool istante = formato.starts_with("tsu:");
    const auto fuso = istante ? c.CreateString(formato.data() + 4, formato.size() - 4) : 0;
    const auto inizio = c.StartTable();
    c.AddElement<std::int16_t>(posto(0), MICROSECONDI, istante ? 0 : 1);
    if (istante)
        c.AddOffset(posto(1), fuso);
    return {istante ? di_campo::istante : di_campo::durata, chiusa(c, inizio)};
}

// How many bytes a value of a column takes; 0 for texts.
std::size_t larghezza(std::string_view formato) {
    return formato == "u" ? 0 : formato == "f" || formato == "I" ? 4 : 8;
}

// The pairs of a field's metadata, whose numbers are this machine's.
Posto<flatbuffers::Vector<Posto<Tabella>>> metadati(Costruttore& c, const char* byte) {
    const auto intero = [&byte] {
        std::int32_t valore = 0;
        std::memcpy(&valore, byte, sizeof valore);
        byte += sizeof valore;
        return valore;
    };
    const auto testo = [&] {
        const auto quanti = static_cast<std::size_t>(intero());
        const auto scritto = c.CreateString(byte, quanti);
        byte += quanti;
        return scritto;
    };
    std::vector<Posto<Tabella>> coppie;
    for (std::int32_t resto = intero(); resto > 0; --resto) {
        const auto chiave = testo();
        const auto valore = testo();
        const auto inizio = c.StartTable();
        c.AddOffset(posto(0), chiave);
        c.AddOffset(posto(1), valore);
        coppie.push_back(chiusa(c, inizio));
    }
    return c.CreateVector(coppie);
}

Posto<Tabella> campo_di(Costruttore& c, const ArrowSchema& colonna) {
    const auto nome = c.CreateString(colonna.name);
    const auto [tipo_tipo, suo] = tipo(c, colonna.format);
    const auto figli = c.CreateVector(std::vector<Posto<Tabella>>());
    const auto suoi = colonna.metadata != nullptr ? metadati(c, colonna.metadata) : 0;
    const auto inizio = c.StartTable();
    c.AddOffset(posto(di_campo::nome), nome);
    c.AddElement<std::uint8_t>(posto(di_campo::nullo), 1, 0);
    c.AddElement<std::uint8_t>(posto(di_campo::tipo_tipo), tipo_tipo, 0);
    c.AddOffset(posto(di_campo::tipo), suo);
    c.AddOffset(posto(di_campo::figli), figli);
    if (!suoi.IsNull())
        c.AddOffset(posto(di_campo::metadati), suoi);
    return chiusa(c, inizio);
}

void chiudi_messaggio(Costruttore& c, di_messaggio::Tipo tipo, Posto<Tabella> testata, std::size_t corpo) {
    const auto inizio = c.StartTable();
    c.AddElement<std::int16_t>(posto(di_messaggio::versione), di_messaggio::V5, 0);
    c.AddElement<std::uint8_t>(posto(di_messaggio::tipo), tipo, 0);
    c.AddOffset(posto(di_messaggio::testata), testata);
    c.AddElement<std::int64_t>(posto(di_messaggio::byte_corpo), static_cast<std::int64_t>(corpo), 0);
    c.Finish(chiusa(c, inizio));
}

// Bytes of each buffer of a column.
std::vector<std::size_t> byte_di(const ArrowArray& colonna, std::string_view formato) {
    const auto righe = static_cast<std::size_t>(colonna.length);
    const std::size_t bitmap = (righe + 7) / 8;
    if (const std::size_t larga = larghezza(formato); larga != 0)
        return {bitmap, righe * larga};
    const auto* inizi = static_cast<const std::int32_t*>(colonna.buffers[1]);
    return {bitmap, (righe + 1) * sizeof(std::int32_t), static_cast<std::size_t>(inizi[righe])};
}

}  // namespace

FlussoArrow::FlussoArrow(std::FILE* file, std::vector<std::size_t> colonne)
    : file_(file), colonne_(std::move(colonne)) {}

void FlussoArrow::scrivi(const void* byte, std::size_t quanti) {
    std::fwrite(byte, 1, quanti, file_);
}

void FlussoArrow::allinea(std::size_t scritti) {
    static constexpr char ZERI[ALLINEAMENTO] = {};
    scrivi(ZERI, tondo(scritti) - scritti);
}

void FlussoArrow::messaggio(const std::uint8_t* metadati, std::size_t byte) {
    for (const std::uint32_t numero : {CONTINUA, static_cast<std::uint32_t>(tondo(byte))}) {
        const std::uint32_t scritto = flatbuffers::EndianScalar(numero);
        scrivi(&scritto, sizeof scritto);
    }
    scrivi(metadati, byte);
    allinea(byte);
}

void FlussoArrow::schema(const ArrowSchema& tabella) {
    Costruttore c;
    std::vector<Posto<Tabella>> campi;
    for (const std::size_t i : colonne_)
        campi.push_back(campo_di(c, *tabella.children[i]));
    const auto tutti = c.CreateVector(campi);
    const auto inizio = c.StartTable();
    c.AddElement<std::int16_t>(posto(di_schema::ordine_byte), std::endian::native == std::endian::big ? 1 : 0, 0);
    c.AddOffset(posto(di_schema::campi), tutti);
    chiudi_messaggio(c, di_messaggio::schema, chiusa(c, inizio), 0);
    messaggio(c.GetBufferPointer(), c.GetSize());
}

void FlussoArrow::blocco(const ArrowSchema& tabella, const ArrowArray& array) {
    std::vector<Nodo> nodi;
    std::vector<Tratto> tratti;
    std::size_t corpo = 0;
    for (const std::size_t i : colonne_) {
        nodi.push_back({flatbuffers::EndianScalar(array.children[i]->length),
                        flatbuffers::EndianScalar(array.children[i]->null_count)});
        for (const std::size_t byte : byte_di(*array.children[i], tabella.children[i]->format)) {
            tratti.push_back({flatbuffers::EndianScalar(static_cast<std::int64_t>(corpo)),
                              flatbuffers::EndianScalar(static_cast<std::int64_t>(byte))});
            corpo += tondo(byte);
        }
    }
    Costruttore c;
    const auto suoi_nodi = c.CreateVectorOfStructs(nodi);
    const auto suoi_tratti = c.CreateVectorOfStructs(tratti);
    const auto inizio = c.StartTable();
    c.AddElement<std::int64_t>(posto(di_blocco::lunghezza), array.length, 0);
    c.AddOffset(posto(di_blocco::nodi), suoi_nodi);
    c.AddOffset(posto(di_blocco::buffer), suoi_tratti);
    chiudi_messaggio(c, di_messaggio::blocco, chiusa(c, inizio), corpo);
    messaggio(c.GetBufferPointer(), c.GetSize());
    for (const std::size_t i : colonne_) {
        const std::vector<std::size_t> byte = byte_di(*array.children[i], tabella.children[i]->format);
        for (std::size_t k = 0; k < byte.size(); ++k) {
            scrivi(array.children[i]->buffers[k], byte[k]);
            allinea(byte[k]);
        }
    }
}

void FlussoArrow::fine() {
    messaggio(nullptr, 0);
}

}  // namespace kel::strumento
