/// @file
/// The records that programs see: rows of the constant tables, and records that belong to the calling program.
///
/// The order of the members is fixed. Where pointers are 32 bits wide every record has exactly the layout of the
/// device: its size is given beside each record, and the compiler checks it. Where pointers are 64 bits wide the
/// members have the same order, with the alignment of the platform. `s_kel_canale` has 112 bytes everywhere.
///
/// Texts are 8-bit and NUL-terminated. Texts in table rows exist as long as the library is loaded.
#ifndef KEL_RECORD_H
#define KEL_RECORD_H

#include <stdint.h>

#include "kel_identificatori.h"

KEL_C_BEGIN

/// Row of a field table: one value of one field of an identifier. 16 bytes on the device.
typedef struct s_campo_fid {
    int32_t valore;     ///< the field value; equals the row's index
    const char* xml;    ///< XML name, such as "FID_PHI_SPEED"
    const char* breve;  ///< abbreviation, at most 6 characters
    const char* testo;  ///< text shown to the user
} s_campo_fid;

/// Choice of a side or of in/out. 12 bytes on the device.
typedef struct s_scelta_fid {
    uint32_t chiave;    ///< sides: the bits to set in the identifier; in/out: the field's value, not shifted
    const char* breve;  ///< abbreviation
    const char* testo;  ///< text shown to the user
} s_scelta_fid;

/// Position variant: a function that has a name and choices of its own at one position. Speed at a wheel, for example,
/// is "Wheel Spd". 36 bytes on the device.
typedef struct s_variante_posizione {
    uint32_t posizione;         ///< value of the position field
    const char* breve;          ///< abbreviation
    const char* testo;          ///< name of the function at this position
    int32_t num_inout;          ///< entries of `inout`
    const s_scelta_fid* inout;  ///< in/out choices, null when there are none
    int32_t primo;              ///< first instance number, -1 when not used
    int32_t ultimo;             ///< last instance number, -1 when not used
    int32_t num_lati;           ///< entries of `lati`
    const s_scelta_fid* lati;   ///< side choices, null when there are none
} s_variante_posizione;

/// Conversion parameters of a unit: value in the unit = value in the base unit * gain + offset. 16 bytes on the device.
typedef struct s_converter_data {
    const char* udm;    ///< the unit as shown, such as "km/h"; never null in the tables
    float offset;       ///< additive term
    float gain;         ///< multiplicative term
    int32_t reciproco;  ///< 1: the unit shows 1 divided by the value, as a pace ("min/km") does; else 0
} s_converter_data;

/// Row of a unit table. 28 bytes on the device. Row 0 of every table is the base unit.
typedef struct s_udm_associata {
    s_converter_data dati;     ///< the unit and its conversion
    int32_t decimali_default;  ///< decimals shown unless the user chooses
    int32_t decimali_max;      ///< most decimals to offer
    int32_t decimali_min;      ///< fewest decimals to offer
} s_udm_associata;

/// Row of the quantity table. 28 bytes on the device.
typedef struct s_grandezza_fisica_uiv {
    kel_funpos chiave;           ///< quantity and object; object 0: the row for all objects without a row of their own
    const char* breve;           ///< abbreviation
    const char* testo;           ///< readable name
    int32_t num_udm;             ///< rows of `udm`
    const s_udm_associata* udm;  ///< the unit table, base unit first
    int32_t num_varianti;        ///< records of `varianti`, 0 to 2
    const s_variante_posizione* varianti;  ///< names and choices at particular positions; null when there are none
} s_grandezza_fisica_uiv;

/// Row of the unit code table: a number for a unit text. 8 bytes on the device.
typedef struct s_codice_udm {
    const char* testo;  ///< the unit's text; not always that of the unit tables
    int32_t codice;     ///< the code; equals the row's index
} s_codice_udm;

#ifdef __GNUC__
/// Marks a record without padding, which may lie at any address.
#define KEL_COMPATTO __attribute__((packed))
#else
#error "the channel record needs a compiler with __attribute__((packed))"
#endif
/// Channel record, which belongs to the calling program. 112 bytes, little-endian, at any address.
///
/// The library reads `fid`, `tipo_campione`, `offset_campione` and `dim_buffer`, and gives out the two names. It writes
/// a record only in `kelFunGetFreeCh`, and then all of it. The caller may use the `riservato` bytes.
typedef struct KEL_COMPATTO s_kel_canale {
    uint16_t indice;           ///< byte 0: the record's index in the array, low 16 bits; `kelFunGetFreeCh` writes it
    uint8_t riservato1[10];    ///< byte 2
    kel_funpos fid;            ///< byte 12: the function: what the channel measures
    uint8_t riservato2[4];     ///< byte 16
    uint32_t tipo_campione;    ///< byte 20: sample type code, `KEL_TIPO_INT32` to `KEL_TIPO_DIFFERENZA_TEMPO`
    char breve[8];             ///< byte 24: short name, NUL-terminated
    char nome[36];             ///< byte 32: name, NUL-terminated
    uint32_t offset_campione;  ///< byte 68: offset of the channel's sample in a record of all samples, bytes
    uint32_t dim_buffer;       ///< byte 72: bytes that the channel needs in a record of all samples
    uint8_t riservato3[36];    ///< byte 76
} s_kel_canale;
#undef KEL_COMPATTO

/// Channel set, which belongs to the calling program: an array of channel records, and how many of them are in use. 12
/// bytes on the device.
typedef struct s_set_canali {
    s_kel_canale* canali;  ///< first record of the caller's array; may be null
    uint32_t totale;       ///< capacity of the array, records
    uint32_t usati;        ///< how many are in use: records 0 to `usati` - 1
} s_set_canali;

/// Sample type codes: the format of one sample. Samples are little-endian and may lie at any address.
/// `kelFunGetSamplSize` gives their sizes.
enum {
    KEL_TIPO_INT32 = 0,              ///< signed 32-bit integer
    KEL_TIPO_INT16 = 1,              ///< signed 16-bit integer
    KEL_TIPO_UINT8_INTERO = 2,       ///< unsigned 8-bit integer, never a bit field
    KEL_TIPO_UINT32 = 3,             ///< unsigned 32-bit integer, or a bit field in it
    KEL_TIPO_UINT16 = 4,             ///< unsigned 16-bit integer, or a bit field in it
    KEL_TIPO_UINT8 = 5,              ///< unsigned 8-bit integer, or a bit field in it
    KEL_TIPO_FLOAT = 6,              ///< IEEE 754 binary32
    KEL_TIPO_LAP_2G = 7,             ///< lap packet of the second generation
    KEL_TIPO_GPS_KEL = 8,            ///< GPS solution packet: a 32-bit time and a NAV-SOL payload
    KEL_TIPO_GPS_NAVSOL = 9,         ///< payload of a u-blox UBX NAV-SOL message
    KEL_TIPO_DATA_ORA = 10,          ///< date and time packet
    KEL_TIPO_MARCIA = 11,            ///< gear, signed 16-bit: 1 to 9, 0 neutral, -1 reverse and special positions
    KEL_TIPO_TEMPO_GIRO = 12,        ///< lap time, signed 32-bit, ms
    KEL_TIPO_LISTA_BIT = 13,         ///< 8 bits, shown as a list of those that are set
    KEL_TIPO_NESSUNO = 14,           ///< no sample
    KEL_TIPO_NUMERO_TESTO_6 = 15,    ///< signed 16-bit number and 6 bytes of text
    KEL_TIPO_NUMERO_TESTO_30 = 16,   ///< signed 16-bit number and 30 bytes of text
    KEL_TIPO_LAP_1G = 17,            ///< lap packet of the first generation
    KEL_TIPO_GPS_SATELLITI = 18,     ///< GPS satellite information packet
    KEL_TIPO_OTTO_BYTE = 19,         ///< 8 bytes without a decoder
    KEL_TIPO_MEZZO_FLOAT = 20,       ///< IEEE 754 binary16
    KEL_TIPO_COORDINATA = 21,        ///< signed 32-bit coordinate, 1e-7 degree
    KEL_TIPO_TEMPO_PACCHETTO = 22,   ///< packet with a time in ms in its second 32-bit word
    KEL_TIPO_NESSUNO_2 = 23,         ///< no sample
    KEL_TIPO_DIFFERENZA_TEMPO = 24,  ///< time difference, signed 32-bit, ms
    KEL_TIPO_CALCOLATO = 25          ///< in tables only: computed from several fields of a packet, or without a format
};

/// Alignment of a numeric text. Any other value acts as `FORMATO_DESTRA`.
typedef enum eFormatoConv KEL_ENUM {
    FORMATO_DESTRA = 0,    ///< right-aligned, leading zeros blanked, fixed length
    FORMATO_SINISTRA = 1,  ///< left-aligned, padded with blanks, fixed length
    FORMATO_COMPATTO = 2   ///< left-aligned, cut after the last digit
} eFormatoConv;

typedef struct s_kel_converter s_kel_converter;

/// Bits of a status word, which tells whether a sample is good; 0 is good. When several bits are set, the first of 4,
/// 2, 8, 1 decides the status text.
enum {
    KEL_STATO_ERRORE = 1,       ///< error: "Err"
    KEL_STATO_MANCANTE = 2,     ///< value missing, or under range: three blanks
    KEL_STATO_FUORI_SCALA = 4,  ///< over range: "---"
    KEL_STATO_NON_VALIDO = 8    ///< invalid value: "---"
};

/// Decodes one sample to a value and writes the status word.
typedef float (*f_valore_conv)(const s_kel_converter* conv, const void* campione, uint32_t* stato);

/// Writes the text of one sample, NUL-terminated, into 32 bytes that the caller has zeroed.
typedef void (*f_testo_conv)(s_kel_converter* conv, const void* campione, char* testo);

/// Writes the text of a status word, NUL-terminated, into 32 bytes. Does nothing when no status bit is set.
typedef void (*f_stato_conv)(uint32_t stato, char* testo);

/// Converter record, which belongs to the calling program. 44 bytes on the device. `kelConvInit` fills it, except
/// `larghezza`, `decimali`, `auto_decimali` and `formato`: the caller sets these, and may change them.
struct s_kel_converter {
    uint32_t offset_campione;      ///< byte offset of the sample within the buffer handed to the reads
    uint16_t pos_bit;              ///< first bit of a bit field
    uint16_t num_bit;              ///< width of a bit field; 0 = no bit field
    uint32_t maschera;             ///< the one bit above the bit field: 2 to the power of num_bit, shifted by pos_bit
    const s_converter_data* dati;  ///< conversion into the unit shown
    uint32_t larghezza;            ///< characters of the numeric text, the point not counted; 5 = compact lap times
    uint32_t decimali;             ///< digits after the point: 0, 1, 2, or 3 for any larger value; a negative
                                   ///< number needs a width of two more, also where they are larger than 3
    uint32_t auto_decimali;        ///< not 0: the text has 1 decimal for small numbers and none for large ones
    eFormatoConv formato;          ///< alignment of the numeric text
    f_valore_conv valore;          ///< decoder of the value; null = no value
    f_testo_conv testo;            ///< writer of the text
    f_stato_conv testo_stato;      ///< writer of the status text; null for most packets
};

/// Row of a subfield table: one quantity within a packet. 40 bytes on the device.
typedef struct s_sottocampo {
    kel_funpos fid;                  ///< function of the subfield
    uint32_t offset;                 ///< byte offset within the packet
    uint16_t pos_bit;                ///< first bit of a bit field
    uint16_t num_bit;                ///< width of a bit field; 0 = whole value
    uint32_t maschera;               ///< 0 in every row: the converter computes its own
    uint32_t tipo_campione;          ///< sample type code; 25 = computed from several packet fields
    f_valore_conv valore;            ///< used in place of the decoder of the sample type; may be null
    f_valore_conv valore_reciproco;  ///< the same for a unit with the reciprocal flag; may be null
    f_testo_conv conv_testo;         ///< text; null = the converter's numeric text
    const char* breve;               ///< default short name, "" when the row has none
    const char* testo;               ///< default name, "" when the row has none
} s_sottocampo;

/// Short name of a function, returned by value; NUL to the end.
typedef struct s_nome_breve {
    char testo[32];  ///< the name
} s_nome_breve;

/// Row of a camera table: a function that the on-board camera can show. 36 bytes on the device.
typedef struct t_SFunzioneZumikoCam {
    kel_funpos fid;         ///< function
    const char* udm;        ///< unit label shown by the camera
    float scala;            ///< camera counts (the whole numbers that the camera is sent) for one `udm`
    int32_t codice;         ///< the camera's parameter code; -1 = none
    float fattore;          ///< a second factor; the library does not use it
    const char* breve;      ///< short name, at most 4 characters
    const char* testo;      ///< long name
    const char* id;         ///< legacy identifier
    int32_t tipo_campione;  ///< sample type code; 25 in the end rows
} t_SFunzioneZumikoCam;

/// Row of the table of legacy identifiers: texts that older systems use as identifiers. 16 bytes on the device.
typedef struct t_SFunzioneVecchia {
    const char* breve;  ///< short name, at most 4 characters
    const char* testo;  ///< long name
    const char* id;     ///< legacy identifier
    kel_funpos fid;     ///< the function it stands for
} t_SFunzioneVecchia;

KEL_C_END

#endif
