/// @file
/// The second library, `libkelregistrazioni`: many samples a call. C99 and C++11.
///
/// It stands on the flat face of the first library, whose rules hold here too: no function throws, prints or locks, only
/// the result tells of a failure, nothing depends on the process's locale, and nothing is kept between calls but in the
/// memory that a call is given.
#ifndef KELREGISTRAZIONI_H
#define KELREGISTRAZIONI_H

#include <stddef.h>
#include <stdint.h>

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

/// @name Recordings
/// Records of samples, or the solutions of a u-blox receiver, as one table: a row a record, a column a channel, a subfield of
/// its packets, or a field of a GPS solution in WGS 84.
///
/// The caller holds the bytes: a file that he has mapped, a buffer, or a stream that he pushes piece by piece. They are not
/// copied, but for what is pushed; mapped bytes and buffers must stay until the recording and its Arrow streams are closed.
/// The rows *at hand* are all of them, or of a stream those of the piece that was pushed last.
///
/// Any bytes at all give a table or an error. What fails gives null or 0 and says why in one line; when memory runs out, too.
/// A recording belongs to one thread at a time; two recordings have nothing in common.
/// @{

/// A recording or a u-blox stream that is open.
typedef struct s_kel_registrazione s_kel_registrazione;

/// Why something failed. Not touched when all went well.
typedef struct s_kel_errore {
    char testo[512];  ///< one line that says what was wrong, and where; ends with a NUL
} s_kel_errore;

/// The time stamp before each record.
typedef enum eKelOrario KEL_ENUM {
    KEL_ORARIO_TROVATO = 0,  ///< that whose stamps run forward in even steps; an error where none does or several do
    KEL_ORARIO_NESSUNO = 1,  ///< none
    KEL_ORARIO_U32MS = 2,    ///< milliseconds, 32 bits, little-endian; goes on from its largest number to 0
    KEL_ORARIO_U64US = 3     ///< microseconds, 64 bits, little-endian
} eKelOrario;

/// How a recording is to be read. All zero is what a logger writes.
typedef struct s_kel_apertura {
    eKelOrario orario;  ///< the time stamp before each record
    int compatta;       ///< not 0: samples lie one behind the other, whatever the channel records say
    int dispositivo;    ///< not 0: GPS packets as the device shows them, by the library's rules, not in WGS 84
    int pacchetti;      ///< not 0: a column of texts for each packet too
    double frequenza;   ///< records a second where there are no stamps, 0.001 to 1000000; 0: they have no time
    uint64_t
        lunghezza;  ///< bytes of a whole stream that is pushed, so that more of it may tell the framing; 0: not known
} s_kel_apertura;

/// What the values of a column are.
typedef enum eKelValori KEL_ENUM {
    KEL_VALORI_FLOAT = 0,    ///< `float`: what `kelConvGetValFloat` gives
    KEL_VALORI_DOUBLE = 1,   ///< `double`: a number of a solution in WGS 84
    KEL_VALORI_UINT32 = 2,   ///< `uint32_t`: time of week in ms, fix, satellites
    KEL_VALORI_ISTANTE = 3,  ///< `int64_t`: UTC, microseconds since 1970
    KEL_VALORI_NESSUNO = 4   ///< a packet: it has texts alone
} eKelValori;

/// What a column is. The texts stay until the recording is closed, the unit until another is chosen; names are the bytes of
/// the channel record.
typedef struct s_kel_descrizione {
    const char* nome;   ///< of the channel or the subfield; no two columns have the same
    const char* lungo;  ///< the catalogue's name of its function; "" where it has none
    const char* udm;    ///< unit of its values; "" for none
    kel_funpos fid;     ///< 0 for what has no function
    uint32_t canale;    ///< place of its channel in the set; 0 for a u-blox stream
    eKelValori valori;  ///< the kind of its values
    int32_t decimali;   ///< that its unit is shown with
} s_kel_descrizione;

/// Where to put the rows of a column. A null member is not written.
typedef struct s_kel_lettura {
    unsigned colonna;       ///< below `kelRegNumColonne`
    void* valori;           ///< one a row, of the column's kind; 0 where the row has none
    unsigned char* validi;  ///< bitmap as in `s_kel_colonna`: 1 where the row has a value
    char* testi;            ///< 32 bytes a row: the library's text, or the number with the column's decimals
} s_kel_lettura;

/// Opens records of samples.
///
/// @param canali         channel records of 112 bytes, little-endian; not kept.
/// @param byte_canali    their length.
/// @param campioni       records of samples, each behind its time stamp if there is one; null: they will be pushed.
/// @param byte_campioni  their length; 0 with null.
/// @param apertura       null: all zero.
/// @param errore         may be null.
/// @return               to be closed with `kelRegChiudi`; null: see `errore`.
/// @since 0.1.0
KEL_API s_kel_registrazione* kelRegApri(const void* canali, size_t byte_canali, const void* campioni,
                                        size_t byte_campioni, const s_kel_apertura* apertura,
                                        s_kel_errore* errore) KEL_NOEXCEPT;

/// Opens a u-blox byte stream: a row for each NAV-SOL and NAV-PVT, the first of an epoch where both are sent. What else is in
/// it is left out. Null for `byte`: it will be pushed.
/// @since 0.1.0
KEL_API s_kel_registrazione* kelRegApriUbx(const void* byte, size_t quanti, s_kel_errore* errore) KEL_NOEXCEPT;

/// Closes it. Null is let through. Arrow streams that were handed out stay good.
/// @since 0.1.0
KEL_API void kelRegChiudi(s_kel_registrazione* reg) KEL_NOEXCEPT;

/// Pushes the next piece of a stream; its rows are at hand until the next. A piece of 0 bytes is the end of the stream.
/// @return  1; 0 where it was not opened for this, the framing cannot be found, or memory ran out.
/// @since 0.1.0
KEL_API int kelRegSpingi(s_kel_registrazione* reg, const void* byte, size_t quanti, s_kel_errore* errore) KEL_NOEXCEPT;

/// Which framing was found, and what speaks against the one that was asked for: one line, "" for nothing to say.
/// @since 0.1.0
KEL_API const char* kelRegDetto(const s_kel_registrazione* reg) KEL_NOEXCEPT;

/// The framing, once it is known; until then `KEL_ORARIO_TROVATO`.
/// @since 0.1.0
KEL_API eKelOrario kelRegOrario(const s_kel_registrazione* reg) KEL_NOEXCEPT;

/// The first of the rows at hand, counted from the start of the recording.
/// @since 0.1.0
KEL_API uint64_t kelRegPrima(const s_kel_registrazione* reg) KEL_NOEXCEPT;
/// How many rows are at hand.
/// @since 0.1.0
KEL_API uint64_t kelRegRighe(const s_kel_registrazione* reg) KEL_NOEXCEPT;

/// Bytes behind the last whole record, or the last message of a u-blox stream.
/// @since 0.1.0
KEL_API uint64_t kelRegAvanzo(const s_kel_registrazione* reg) KEL_NOEXCEPT;

/// How many columns there are.
/// @since 0.1.0
KEL_API unsigned kelRegNumColonne(const s_kel_registrazione* reg) KEL_NOEXCEPT;
/// What a column is: 1, or 0 where there is no such column.
/// @since 0.1.0
KEL_API int kelRegDescrivi(const s_kel_registrazione* reg, unsigned colonna,
                           s_kel_descrizione* descrizione) KEL_NOEXCEPT;

/// Shows a column in another unit of its function: 1, or 0 where it has no such unit.
/// @since 0.1.0
KEL_API int kelRegUnita(s_kel_registrazione* reg, unsigned colonna, const char* udm) KEL_NOEXCEPT;

/// The times of rows at hand, seconds: by the stamps, by the rate, or by the receiver's time of week, which goes on counting
/// when a week ends.
/// @return  1; 0 where the records have no time, or not all of the rows are at hand.
/// @since 0.1.0
KEL_API int kelRegTempi(s_kel_registrazione* reg, uint64_t da, size_t quante, double* secondi) KEL_NOEXCEPT;

/// The rows at hand from the first that is not before `da_s` to the last that is before `a_s`, and all between, even where
/// time runs backwards because sessions were joined.
/// @return  1; 0 where there is no such row, or the records have no time.
/// @since 0.1.0
KEL_API int kelRegTratto(s_kel_registrazione* reg, double da_s, double a_s, uint64_t* prima,
                         uint64_t* quante) KEL_NOEXCEPT;

/// Reads rows at hand into columns.
/// @return  1; 0 where not all of the rows are at hand, a column does not exist, or memory ran out.
/// @since 0.1.0
KEL_API int kelRegLeggi(s_kel_registrazione* reg, uint64_t da, size_t quante, const s_kel_lettura* letture,
                        unsigned num_letture) KEL_NOEXCEPT;

/// @}

/// @name Laps
/// The laps of a recording, as its logger has timed them or by its GPS packets, or of a u-blox stream by GPS.
/// @{

/// Laps that are put together.
typedef struct s_kel_giri s_kel_giri;

/// A line across the track that is passed in one direction.
typedef struct s_kel_linea {
    double latitudine;   ///< of its middle, degrees, WGS 84
    double longitudine;  ///< of its middle, degrees, WGS 84
    double rotta;        ///< in which it is passed, degrees from north, clockwise
    double larghezza;    ///< from end to end, m; 0: 30
} s_kel_linea;

/// The end of a sector.
typedef struct s_kel_intermedio {
    double metri;       ///< behind the finish line; 0: at the line
    s_kel_linea linea;  ///< used where `metri` is 0
} s_kel_intermedio;

/// Whose laps.
typedef enum eKelFonteGiri KEL_ENUM {
    KEL_GIRI_QUALUNQUE = 0,  ///< the logger's, if it has any and no line is given; else by GPS
    KEL_GIRI_REGISTRATORE = 1,
    KEL_GIRI_GPS = 2
} eKelFonteGiri;

/// How laps are looked for. All zero is the choice of whoever chooses nothing.
typedef struct s_kel_scelte_giri {
    eKelFonteGiri fonte;                ///< whose laps
    unsigned num_intermedi;             ///< entries of `intermedi`
    const s_kel_linea* linea;           ///< the finish line; null: the place that is passed most often at speed
    const s_kel_intermedio* intermedi;  ///< ends of sectors, in the order in which they are driven; null: none
    double minimo;                      ///< shortest lap by GPS, s, 1 to 3600; 0: 10
} s_kel_scelte_giri;

/// What a lap is; only those of the first kind count for the best.
typedef enum eKelStatoGiro KEL_ENUM {
    KEL_GIRO_BUONO = 0,
    KEL_GIRO_USCITA = 1,      ///< the way out, or a lap that began from standing on the line
    KEL_GIRO_RIENTRO = 2,     ///< the way in, or a lap that ended by standing on the line
    KEL_GIRO_SENZA_FIX = 3,   ///< the fix was lost for longer than the receiver's pace explains
    KEL_GIRO_CONTROMANO = 4,  ///< the line was passed the wrong way
    KEL_GIRO_FERMO = 5        ///< stood for some seconds
} eKelStatoGiro;

/// A lap. A number that is not known is a NaN.
typedef struct s_kel_giro {
    int32_t numero;          ///< as the logger counted it, or from 1; 0: the way out
    uint32_t sessione;       ///< from 0; a new one begins where time runs backwards, or on by more than ten minutes
    eKelStatoGiro stato;     ///< whether it counts, and if not, why
    int32_t migliore;        ///< 1 for the best lap
    int32_t ms;              ///< the lap time; -1 for a lap that is not closed
    uint32_t num_settori;    ///< entries of `settori`
    const int32_t* settori;  ///< ms, in the order in which they are driven; -1 where not known. Stay until the next
                             ///< `kelGiriCalcola`
    double inizio;           ///< s, from the start of its session
    double distacco;         ///< s, to the best lap, of laps that count
    double massima;          ///< speed, m/s
    double minima;           ///< least speed, m/s
    double metri;            ///< distance driven, m
    uint64_t campioni;       ///< rows
} s_kel_giro;

/// Begins to put the laps of a recording together; null: see `errore`. To be closed with `kelGiriChiudi`, before or behind
/// the recording.
/// @since 0.1.0
KEL_API s_kel_giri* kelGiriApri(const s_kel_registrazione* reg, s_kel_errore* errore) KEL_NOEXCEPT;
/// Null is let through.
/// @since 0.1.0
KEL_API void kelGiriChiudi(s_kel_giri* giri) KEL_NOEXCEPT;

/// Takes the rows at hand that it has not taken yet: once of bytes in memory, behind each piece of a stream.
/// @return  1; 0 where rows before them were missed, or memory ran out.
/// @since 0.1.0
KEL_API int kelGiriAggiungi(s_kel_giri* giri, s_kel_errore* errore) KEL_NOEXCEPT;

/// Finds the laps of the rows taken so far; may be called again with another choice.
/// @param giri    with the rows taken so far.
/// @param scelte  null: all zero.
/// @param errore  may be null.
/// @return        1; 0 where no lap is closed: `errore` says why.
/// @since 0.1.0
KEL_API int kelGiriCalcola(s_kel_giri* giri, const s_kel_scelte_giri* scelte, s_kel_errore* errore) KEL_NOEXCEPT;

/// What there is to say of them, in lines: where the laps are from, which line was found.
/// @since 0.1.0
KEL_API const char* kelGiriDetto(const s_kel_giri* giri) KEL_NOEXCEPT;

/// How many laps were found.
/// @since 0.1.0
KEL_API unsigned kelGiriNumero(const s_kel_giri* giri) KEL_NOEXCEPT;
/// What a lap was: 1, or 0 where there is no such lap.
/// @since 0.1.0
KEL_API int kelGiriGiro(const s_kel_giri* giri, unsigned quale, s_kel_giro* giro) KEL_NOEXCEPT;

/// @}

/// @cond
/* The Arrow C data interface, as its page asks for it: https://arrow.apache.org/docs/format/CDataInterface.html */
#ifndef ARROW_C_DATA_INTERFACE
#define ARROW_C_DATA_INTERFACE

#define ARROW_FLAG_DICTIONARY_ORDERED 1
#define ARROW_FLAG_NULLABLE 2
#define ARROW_FLAG_MAP_KEYS_SORTED 4

struct ArrowSchema {
    const char* format;
    const char* name;
    const char* metadata;
    int64_t flags;
    int64_t n_children;
    struct ArrowSchema** children;
    struct ArrowSchema* dictionary;
    void (*release)(struct ArrowSchema*);
    void* private_data;
};

struct ArrowArray {
    int64_t length;
    int64_t null_count;
    int64_t offset;
    int64_t n_buffers;
    int64_t n_children;
    const void** buffers;
    struct ArrowArray** children;
    struct ArrowArray* dictionary;
    void (*release)(struct ArrowArray*);
    void* private_data;
};

#endif /* ARROW_C_DATA_INTERFACE */

#ifndef ARROW_C_STREAM_INTERFACE
#define ARROW_C_STREAM_INTERFACE

struct ArrowArrayStream {
    int (*get_schema)(struct ArrowArrayStream*, struct ArrowSchema* out);
    int (*get_next)(struct ArrowArrayStream*, struct ArrowArray* out);
    const char* (*get_last_error)(struct ArrowArrayStream*);
    void (*release)(struct ArrowArrayStream*);
    void* private_data;
};

#endif /* ARROW_C_STREAM_INTERFACE */
/// @endcond

/// @name Arrow
/// @{

/// Hands out rows at hand as an Arrow stream, in batches of 65536 rows.
///
/// The first column is `time`, a duration in microseconds, where records have times. Then come the columns of the recording:
/// `float`, `double` and `uint32` with validity, UTC as a timestamp in microseconds, packets as utf8. Each field has the
/// metadata `unit`, `identifier` and `long_name`. Bytes of names and texts that are no UTF-8 become question marks.
///
/// @param reg     with the rows at hand.
/// @param da      first row.
/// @param quante  how many rows.
/// @param testi   not 0: all columns as utf8, by the texts of `kelRegLeggi`; null where they have no value.
/// @param flusso  to be released by its `release`, read to its end or not. It reads the caller's bytes, and of a pushed stream
///                the piece at hand: pushing the next ends it with an error.
/// @param errore  may be null.
/// @return        1; 0: `flusso` is as it was, see `errore`.
/// @since 0.1.0
KEL_API int kelRegArrow(s_kel_registrazione* reg, uint64_t da, uint64_t quante, int testi,
                        struct ArrowArrayStream* flusso, s_kel_errore* errore) KEL_NOEXCEPT;

/// @}

KEL_C_END

#endif
