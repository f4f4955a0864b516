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

/// What messages call the choices of whoever reads, where these are not members but, say, the options of a program. A null
/// member stands for its own name. The texts must stay as long as what they are given to.
typedef struct s_kel_parole {
    const char* orario;      ///< the framing
    const char* compatta;    ///< samples one behind the other
    const char* linea;       ///< the finish line
    const char* minimo;      ///< the shortest lap
    const char* intermedio;  ///< the end of a sector
} s_kel_parole;

/// How a recording is to be read. All zero is what a logger writes.
typedef struct s_kel_apertura {
    eKelOrario orario;  ///< the time stamp before each record
    int compatta;       ///< not 0: samples lie one behind the other, whatever the channel records say
    int dispositivo;    ///< not 0: GPS packets as the device shows them, by the library's rules, not in WGS 84
    int pacchetti;      ///< not 0: a column of texts for each packet too
    double frequenza;   ///< records a second where there are no stamps, 0.001 to 1000000; 0: they have no time
    uint64_t
        lunghezza;  ///< bytes of a whole stream that is pushed, so that more of it may tell the framing; 0: not known
    const s_kel_parole* parole;  ///< the words of its messages; null: the names of the members
} s_kel_apertura;

/// What the values of a column are.
typedef enum eKelValori KEL_ENUM {
    KEL_VALORI_FLOAT = 0,    ///< `float`: what `kelConvGetValFloat` gives
    KEL_VALORI_DOUBLE = 1,   ///< `double`: a number of a solution in WGS 84
    KEL_VALORI_UINT32 = 2,   ///< `uint32_t`: time of week in ms, fix, satellites
    KEL_VALORI_ISTANTE = 3,  ///< `int64_t`: UTC, microseconds since 1970
    KEL_VALORI_NESSUNO = 4   ///< a packet: it has texts alone
} eKelValori;

/// Which field of a GPS solution in WGS 84 a column shows.
typedef enum eKelCampo KEL_ENUM {
    KEL_CAMPO_NESSUNO = 0,  ///< none: a channel, a subfield as the device has it, the time of week
    KEL_CAMPO_UTC = 1,
    KEL_CAMPO_FIX = 2,
    KEL_CAMPO_SATELLITI = 3,
    KEL_CAMPO_LATITUDINE = 4,
    KEL_CAMPO_LONGITUDINE = 5,
    KEL_CAMPO_ALTEZZA = 6,
    KEL_CAMPO_VELOCITA = 7,
    KEL_CAMPO_ROTTA = 8,
    KEL_CAMPO_SALITA = 9,
    KEL_CAMPO_ACCURATEZZA_POSIZIONE = 10,
    KEL_CAMPO_ACCURATEZZA_VELOCITA = 11
} eKelCampo;

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
    const char*
        proprio;      ///< its name without what that says of the values: "Position Accuracy" of "Position Accuracy low
                      ///< byte"
    eKelCampo campo;  ///< the field of a solution
    int32_t con_unita;  ///< 1 where `kelRegUnita` takes the units of its function; 0: it has one unit, or none
    int32_t interna;    ///< 1 for what is read out of the packet of its channel, 0 for the channel itself
    int32_t pacchetto;  ///< 1 for a packet as a whole: its texts sum it up
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

/// How many channels there are; 0 for a u-blox stream.
/// @since 0.1.0
KEL_API unsigned kelRegNumCanali(const s_kel_registrazione* reg) KEL_NOEXCEPT;
/// A channel's record, its numbers as this machine has them, and its place as the recording is read.
/// @param reg     a recording.
/// @param canale  below `kelRegNumCanali`.
/// @param record  may be null.
/// @return        its name: the long one of the record, else the short one, else that of its function; stays until the
///                recording is closed. Null where there is no such channel.
/// @since 0.1.0
KEL_API const char* kelRegCanale(const s_kel_registrazione* reg, unsigned canale, s_kel_canale* record) KEL_NOEXCEPT;

/// Bytes from one record to the next, time stamp included; 0 while the framing is not known, and for a u-blox stream.
/// @since 0.1.0
KEL_API size_t kelRegPasso(const s_kel_registrazione* reg) KEL_NOEXCEPT;

/// Which framing was found, what speaks against the one that was asked for, and the packets that hold no numbers and so have
/// no column (dates): one line, "" for nothing to say.
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

/// What is to be said of them where they are part of a record: one line, "" for nothing to say.
/// @since 0.1.0
KEL_API const char* kelRegAvanzoDetto(const s_kel_registrazione* reg) KEL_NOEXCEPT;

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

/// Functions of the logger's GPS packet and of its subfields. The altitude is none of them, but `kelfun` computes one. Of the
/// accuracies the packet has only the low bytes, in cm and cm/s, whatever the units of their functions are.
#define KEL_FID_GPS_PACCHETTO kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL)
/// The kind of fix.
#define KEL_FID_GPS_FIX kelFidComponi(FID_PHI_CODE, FID_OBJ_ACCURACY, FID_POS_GPS)
/// Satellites used.
#define KEL_FID_GPS_SATELLITI kelFidComponi(FID_PHI_NUMBER, FID_OBJ_SATELLITE, FID_POS_GPS)
/// Speed over ground.
#define KEL_FID_GPS_VELOCITA kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS)
/// Latitude.
#define KEL_FID_GPS_LATITUDINE kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LATITUDE, FID_POS_GPS)
/// Longitude.
#define KEL_FID_GPS_LONGITUDINE kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_GPS)
/// Altitude.
#define KEL_FID_GPS_ALTEZZA kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_ALTITUDE, FID_POS_GPS)
/// Accuracy of the position.
#define KEL_FID_GPS_ACCURATEZZA_POSIZIONE kelFidComponi(FID_PHI_POSITION, FID_OBJ_ACCURACY, FID_POS_GPS)
/// Accuracy of the speed.
#define KEL_FID_GPS_ACCURATEZZA_VELOCITA kelFidComponi(FID_PHI_VELOCITY, FID_OBJ_ACCURACY, FID_POS_GPS)

/// Below this kind of fix the packet's speed is given as 0.
#define KEL_GPS_FIX_MINIMO 3u
/// Likewise, the satellites used.
#define KEL_GPS_SATELLITI_MINIMI 4u

/// From m/s to a unit of speed, as a factor; 0 where there is no such unit, or null.
/// @since 0.1.0
KEL_API double kelRegFattoreVelocita(const char* udm) KEL_NOEXCEPT;

/// The sample type of a packet channel, known from its function; -1 for other functions.
/// @since 0.1.0
KEL_API int kelRegTipoPacchetto(kel_funpos fid) KEL_NOEXCEPT;

/// Bytes of the payload of a NAV-SOL message.
enum { KEL_NAV_SOL_BYTE = 52 };

/// The payload of NAV-SOL that a row of a u-blox stream has; of a NAV-PVT, the one that it would have.
/// @param reg      a u-blox stream.
/// @param riga     a row at hand.
/// @param payload  52 bytes, as a channel of the logger's GPS packet has them behind its time.
/// @return         1; 0 where the row is not at hand, or it is no u-blox stream.
/// @since 0.1.0
KEL_API int kelRegNavSol(const s_kel_registrazione* reg, uint64_t riga, unsigned char* payload) KEL_NOEXCEPT;

/// What was found in a u-blox stream so far. Every byte is in a message, outside, or in what the end cut off.
typedef struct s_kel_conteggi {
    uint64_t byte;              ///< bytes read
    uint64_t byte_fuori;        ///< that belong to no good message
    uint64_t byte_troncati;     ///< of a message that the end of the stream cut off
    uint64_t soluzioni;         ///< rows
    uint64_t stessa_epoca;      ///< solutions left out, because the other kind of message came first
    uint64_t altri;             ///< good messages of other kinds
    uint64_t lunghezza_errata;  ///< NAV-SOL and NAV-PVT of another length
    uint64_t checksum_errati;   ///< whole messages whose checksum is wrong
} s_kel_conteggi;

/// Good messages of one kind.
typedef struct s_kel_messaggi {
    unsigned char classe;  ///< their class
    unsigned char id;      ///< their id within the class
    uint64_t quanti;       ///< how many there are
} s_kel_messaggi;

/// Counts what is in a u-blox stream: 1, or 0 for a recording of records.
/// @since 0.1.0
KEL_API int kelRegConteggi(const s_kel_registrazione* reg, s_kel_conteggi* conteggi) KEL_NOEXCEPT;
/// Its good messages by class and id, in this order.
/// @param reg       a u-blox stream; a recording of records has none.
/// @param messaggi  the first `capienza` of them; may be null.
/// @param capienza  how many `messaggi` has room for.
/// @return          how many kinds there are.
/// @since 0.1.0
KEL_API unsigned kelRegMessaggi(const s_kel_registrazione* reg, s_kel_messaggi* messaggi,
                                unsigned capienza) KEL_NOEXCEPT;

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
    const char* detto;  ///< what messages call the metres; null: their shortest decimals
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
    const char* udm;                    ///< unit of the speeds in what is said; null: km/h
    const s_kel_parole* parole;         ///< the words of its messages; null: the names of the members
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
    double inizio;           ///< s, on the clock of the rows (`kelRegTempi`); of a receiver's from the first row
    double distacco;         ///< s, to the best lap, of laps that count
    double massima;          ///< speed, m/s
    double minima;           ///< least speed, m/s
    double metri;            ///< distance driven, m
    uint64_t campioni;       ///< rows
} s_kel_giro;

/// A moment of a lap.
typedef struct s_kel_punto_giro {
    double metri;      ///< behind the line
    double secondi;    ///< since the line
    double velocita;   ///< m/s; a NaN where it is not known
    int32_t staccato;  ///< 1 where the way from the moment before is not known
} s_kel_punto_giro;

/// What a receiver says of a moment.
typedef struct s_kel_fix {
    double latitudine;   ///< degrees, WGS 84; a NaN where there is no position to go by
    double longitudine;  ///< degrees, WGS 84; a NaN likewise
    double velocita;     ///< over ground, m/s: the receiver's, or what the positions around it give; else a NaN
} s_kel_fix;

/// Reads a line as messages write it: "LAT,LON,HEADING" or "LAT,LON,HEADING,WIDTH".
/// @return  1; 0 for any other text, and for numbers that are no place, direction and width of up to 1000 m.
/// @since 0.1.0
KEL_API int kelGiriLinea(const char* testo, s_kel_linea* linea) KEL_NOEXCEPT;

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

/// What `kelfun laps` calls a state: "" for a lap that counts, "out", "in", "no fix", "wrong way", "stopped". Null for a
/// number that is none.
/// @since 0.1.0
KEL_API const char* kelGiriNomeStato(eKelStatoGiro stato) KEL_NOEXCEPT;

/// A closed lap over its distance, from line to line, stretched to a length, so that the same distance is the same place in
/// every lap. Where the fix was lost for a while, only that part is stretched, because the rest has been measured.
/// @param giri       laps that were computed.
/// @param quale      below `kelGiriNumero`.
/// @param lunghezza  m; above 0.
/// @param punti      the first `capienza` of them, may be null.
/// @param capienza   how many `punti` has room for.
/// @return           how many there are; 0 for a lap that is not closed, whose distance is not known, or that there is not,
///                   and when memory runs out.
/// @since 0.1.0
KEL_API size_t kelGiriAndamento(const s_kel_giri* giri, unsigned quale, double lunghezza, s_kel_punto_giro* punti,
                                size_t capienza) KEL_NOEXCEPT;
/// The fixes of a lap, in their order.
/// @param giri      laps that were computed.
/// @param quale     below `kelGiriNumero`.
/// @param fix       the first `capienza` of them, may be null.
/// @param capienza  how many `fix` has room for.
/// @return       how many there are; 0 where the times of the lap are not known, or there is no such lap.
/// @since 0.1.0
KEL_API size_t kelGiriFix(const s_kel_giri* giri, unsigned quale, s_kel_fix* fix, size_t capienza) KEL_NOEXCEPT;

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
///                the piece at hand: pushing the next ends it with an error. So does a unit that is changed after the
///                stream was made: a schema is asked for once.
/// @param errore  may be null.
/// @return        1; 0: `flusso` is as it was, see `errore`.
/// @since 0.1.0
KEL_API int kelRegArrow(s_kel_registrazione* reg, uint64_t da, uint64_t quante, int testi,
                        struct ArrowArrayStream* flusso, s_kel_errore* errore) KEL_NOEXCEPT;

/// @}

/// @name Names
/// Rules by which columns are named and shown, for programs that do as `kelfun` does.
/// @{

/// A text as a name for programs: small letters and digits, everything else one underscore: "Lambda 1 (L)" is "lambda_1_l".
/// The names of the columns of a recording are different also so.
/// @param testo     any text.
/// @param chiave    the first `capienza` - 1 of its characters and a NUL; may be null where `capienza` is 0.
/// @param capienza  bytes that `chiave` has room for.
/// @return          how many characters there are, without the NUL: no more than `testo` has.
/// @since 0.1.0
KEL_API size_t kelRegChiave(const char* testo, char* chiave, size_t capienza) KEL_NOEXCEPT;

/// The unit that values are in: "" for what the catalogue puts in its place where there is none ("#", "gear" and the like),
/// "ms" for the "time" of a lap, else the same text. The units of columns are so already.
/// @since 0.1.0
KEL_API const char* kelRegMisura(const char* udm) KEL_NOEXCEPT;

/// @}

KEL_C_END

#endif
