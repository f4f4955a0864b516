/// @file
/// The second library, `libkelregistrazioni`: many samples a call. C99 and C++11.
///
/// It stands on the flat face of the first library, whose rules hold here too: no function throws, prints or locks, only
/// the result tells of a failure, nothing depends on the process's locale, and nothing is kept between calls but in the
/// memory that a call is given.
#ifndef KELREGISTRAZIONI_H
#define KELREGISTRAZIONI_H

#include <stddef.h>

#include "kelfunzioni.h"

KEL_C_BEGIN

/// @name Columns
/// All samples of a channel at once. Values, status words and texts have the bits that `kelConvGetValFloat` and
/// `kelConvGetString` give for each sample alone, NaNs included.
/// @{

/// One column: a converter, and where to write what it reads. A null member is not written.
typedef struct s_kel_colonna {
    s_kel_converter* conv;  ///< set up by `kelConvInit`; automatic decimals are its state; never null
    float* valori;          ///< the value of each sample, or null; 0 where the converter has no decoder
    unsigned char* stati;   ///< the status word of each sample, or null; `KEL_STATO_ERRORE` where there is no decoder
    unsigned char* validi;  ///< bitmap, the lowest bit of each byte first, or null: 1 for a sample of status 0. Spare
                            ///< bits of the last byte are 0. (numero + 7) / 8 bytes
    char* testi;            ///< the text of each sample, 32 bytes each, NUL to the end; or null
} s_kel_colonna;

/// Reads columns out of records of samples. Sample i of every column lies where its converter finds it in the record at
/// `record + i * passo`.
///
/// Nothing outside the samples is read: the last of them may end where memory ends. Texts of a converter with automatic
/// decimals are made in the order of the samples, and rewrite its `decimali`.
///
/// Use a converter in one thread at a time, and in one column of a call when its texts have automatic decimals. What is
/// written must not overlap the samples, the converters or what another column writes.
///
/// @param record       the first record, at any address.
/// @param passo        bytes from one record to the next: any number, 0 included.
/// @param numero       records; with 0 nothing is read or written.
/// @param colonne      the columns; none of them is changed, but for the converter's `decimali`.
/// @param num_colonne  number of columns.
/// @since 0.1.0
KEL_API void kelColLeggi(const void* record, size_t passo, size_t numero, s_kel_colonna* colonne,
                         unsigned num_colonne) KEL_NOEXCEPT;

/// @}

/* Recordings: here. */

KEL_C_END

#endif
