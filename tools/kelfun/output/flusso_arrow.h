// Tables of the Arrow C data interface as an Arrow IPC stream, which data frames and databases read.
#ifndef KELFUN_OUTPUT_FLUSSO_ARROW_H
#define KELFUN_OUTPUT_FLUSSO_ARROW_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "kelregistrazioni.h"

namespace kel::strumento {

/// Writes the schema, then batches, then the end. Columns are written from where they lie.
class FlussoArrow {
public:
    /// @param colonne  those of the table that are written, by their places; in this order.
    FlussoArrow(std::FILE* file, std::vector<std::size_t> colonne);

    void schema(const ArrowSchema& tabella);
    /// @param tabella  of the array: the formats of its columns.
    void blocco(const ArrowSchema& tabella, const ArrowArray& array);
    void fine();

private:
    void messaggio(const std::uint8_t* metadati, std::size_t byte);
    void scrivi(const void* byte, std::size_t quanti);
    void allinea(std::size_t scritti);

    std::FILE* file_;
    std::vector<std::size_t> colonne_;
};

}  // namespace kel::strumento

#endif
