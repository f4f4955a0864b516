/// @file
/// The flat functions: the library for programs in any language that can call a shared library.
///
/// For all of them:
///
/// - No function throws, prints, allocates, locks or keeps state. Only the result tells of a failure.
/// - Texts that you pass are 8-bit and NUL-terminated. They are compared byte for byte; capitals matter.
/// - Texts and rows that you get are in constant tables, or in your own array of channels. Never free them.
/// - A function that takes a channel set or a converter record uses only that memory. Use one set or record in one
///   thread at a time. Every other function may be called from any thread, at any time, without initialisation.
#ifndef KEL_FUNZIONI_H
#define KEL_FUNZIONI_H

#include "kel_record.h"

KEL_C_BEGIN

/// @name Channel set
/// The limits of the indices differ from function to function. This is intended: programs depend on each as it is.
/// @{

/// Sets up a channel set for the caller's array. Call it before any other function on the set.
///
/// @param set     the set to fill; never null.
/// @param canali  first record of the array, which must exist longer than the set; may be null (no array yet).
/// @param totale  number of records in the array.
/// @param usati   how many of them are in use, from the first on. Nothing is checked.
/// @since 0.1.0
KEL_API void kelFunInit(s_set_canali* set, s_kel_canale* canali, unsigned totale, unsigned usati) KEL_NOEXCEPT;

/// Takes the next free record into use: clears its 112 bytes and writes its index (low 16 bits) into `indice`.
///
/// @return the record, in the caller's array; null when there is no array or no free record, and then nothing changes.
/// @since 0.1.0
KEL_API s_kel_canale* kelFunGetFreeCh(s_set_canali* set) KEL_NOEXCEPT;

/// Makes the last used record free again. Its contents stay as they are.
///
/// @return 1; 0 when there is no array or no used record.
/// @since 0.1.0
KEL_API int kelFunFreeLastCh(s_set_canali* set) KEL_NOEXCEPT;

/// The used record of an index.
///
/// @return the record; null when there is no array, or `indice` is not below both the used and the total count.
/// @since 0.1.0
KEL_API s_kel_canale* kelFunGetCanale(const s_set_canali* set, unsigned indice) KEL_NOEXCEPT;

/// Number of used records. @since 0.1.0
KEL_API unsigned kelFunGetNumChUsed(const s_set_canali* set) KEL_NOEXCEPT;

/// Capacity of the array, records. @since 0.1.0
KEL_API unsigned kelFunGetNumChTot(const s_set_canali* set) KEL_NOEXCEPT;

/// Bytes of a record of samples of all used channels: the sum of their `dim_buffer`, modulo 2^32.
///
/// @return the sum; 0 when there is no array or no used record.
/// @since 0.1.0
KEL_API unsigned kelFunGetSizeBufferValori(const s_set_canali* set) KEL_NOEXCEPT;

/// Name of the channel at an index: a pointer into its record.
///
/// The index of the first record that is not in use is accepted too; a program can name a record before it is used. The
/// array is not checked: for a null array the result is not null either, but must not be read.
///
/// @return the name; null when `indice` is above the used or above the total count.
/// @since 0.1.0
KEL_API const char* kelFunGetNomeCanale(const s_set_canali* set, unsigned indice) KEL_NOEXCEPT;

/// Short name of the channel at an index; else as `kelFunGetNomeCanale`. @since 0.1.0
KEL_API const char* kelFunGetNomeCanaleShort(const s_set_canali* set, unsigned indice) KEL_NOEXCEPT;

/// @}
/// @name Matching
/// Which channel carries a function. A field of the request that is 0 matches anything.
/// A packet channel also matches the identifier of each of its subfields; all bits of it must be equal.
/// @{

/// First used channel whose quantity, object and position match.
///
/// @return the record; null when none matches, or there is no array or no used record.
/// @since 0.1.0
KEL_API s_kel_canale* kelFunGetMatchCh(const s_set_canali* set, kel_funpos fid) KEL_NOEXCEPT;

/// First used channel of which every field up to bit 28 matches.
///
/// A request without bit 22 (numbered) accepts channels with and without it; a request with it accepts only numbered
/// channels. Bits 23 to 28 are compared as three pairs of bits, for instance numbers too. A pair that is 0 in the
/// request matches anything. So a request for number 4 also finds number 5.
///
/// @return the record; null when none matches, or there is no array or no used record.
/// @since 0.1.0
KEL_API s_kel_canale* kelFunGetMatchChFull(const s_set_canali* set, kel_funpos fid) KEL_NOEXCEPT;

/// All used channels whose quantity, object and position match. Packet channels match by their subfields only.
///
/// @param set      the channel set.
/// @param fid      the request.
/// @param trovati  receives the channels found, in order; when it is null the result is 0.
/// @param numero   in: how many channels `trovati` has room for, at least 1; out: how many were stored. The number is
///                 compared with the room only after a channel was stored. So a room of 0 does not stop the search, and
///                 `trovati` must then have room for every used channel.
/// @return 1; 0 when nothing matched, and then `trovati` and `numero` are not changed.
/// @since 0.1.0
KEL_API int kelFunGetMatchChList(const s_set_canali* set, kel_funpos fid, s_kel_canale** trovati,
                                 unsigned* numero) KEL_NOEXCEPT;

/// @}
/// @name Units of measure
/// The quantity and the object of an identifier decide which units it has. The other fields do not matter.
/// @{

/// Row of the quantity table for an identifier: the row of its quantity and object, or else the row of its quantity
/// for all other objects.
///
/// @return a row of `uib_grandezza_fisica_uiv`; null for quantities that have none (0, 28 and all above 31).
/// @since 0.1.0
KEL_API const s_grandezza_fisica_uiv* kelFunGetUIVs(kel_funpos fid) KEL_NOEXCEPT;

/// Text of the base unit: the first of the unit table, in most cases the unit that values are recorded in.
///
/// @return the text; "" for an identifier without units, never null.
/// @since 0.1.0
KEL_API const char* kelFunGetUnitaBase(kel_funpos fid) KEL_NOEXCEPT;

/// Text of a unit code.
///
/// @return the text; null when `codice` is not in the table.
/// @since 0.1.0
KEL_API const char* kelFunGetUdmTxt(unsigned codice) KEL_NOEXCEPT;

/// Code of a unit text. The texts are those of `udm_codici`, some of which ("a/f", "lambda", "m/s2", "mA") are in no
/// unit table.
///
/// @param testo  never null.
/// @return the code; -1 when there is no such text.
/// @since 0.1.0
KEL_API int kelFunGetUdmCode(const char* testo) KEL_NOEXCEPT;

/// Decimals that a function shows in a unit unless the user chooses.
///
/// @param fid  any identifier.
/// @param udm  never null. For a text that is not a unit of the function the result is that of the base unit.
/// @return decimals; 0 for an identifier without units.
/// @since 0.1.0
KEL_API int kelFunGetNumDecimaliDefault(kel_funpos fid, const char* udm) KEL_NOEXCEPT;

/// Most decimals to offer; else as `kelFunGetNumDecimaliDefault`. @since 0.1.0
KEL_API int kelFunGetNumDecimaliMax(kel_funpos fid, const char* udm) KEL_NOEXCEPT;

/// Fewest decimals to offer; else as `kelFunGetNumDecimaliDefault`. @since 0.1.0
KEL_API int kelFunGetNumDecimaliMin(kel_funpos fid, const char* udm) KEL_NOEXCEPT;

/// Conversion from a function's base unit into a unit: value * gain + offset.
///
/// @param fid  any identifier.
/// @param udm  a unit of the function, or null.
/// @return a pointer into the unit table. For an unknown text it is the base unit; for null and for an identifier
///         without units it is the row of `NULL_udm_associate` (gain 1, offset 0). Never null.
/// @since 0.1.0
KEL_API const s_converter_data* kelFunGetConvData(kel_funpos fid, const char* udm) KEL_NOEXCEPT;

/// Conversion from one unit of a function into another: value * gain + offset, both in single precision.
///
/// The result has no unit text ("") and no reciprocal flag. So the result between "km/h" and "min/km" is not a pace: it
/// is only value * gain + offset.
///
/// @param fid    any identifier.
/// @param udmDa  unit to convert from; never null.
/// @param udmA   unit to convert into; never null.
/// @return gain = gain of `udmA` / gain of `udmDa`, and the offset that goes with it. Offset 0 and gain 1 (no change)
///         for equal texts, for texts that are not units of the function and for an identifier without units.
/// @since 0.1.0
KEL_API s_converter_data kelFunGetConvDatas(kel_funpos fid, const char* udmDa, const char* udmA) KEL_NOEXCEPT;

/// @}
/// @name Names, legacy identifiers and camera rows
/// @{

/// Short name of a function: that of its camera row, else the texts of its fields one after the other.
///
/// @param set  not used, may be null; it is there because programs pass their channel set.
/// @param fid  any identifier.
/// @return the name by value, at most 31 characters; all NUL when no field has a text.
/// @since 0.1.0
KEL_API s_nome_breve kelFunGetNomeFunzioneShort(const s_set_canali* set, kel_funpos fid) KEL_NOEXCEPT;

/// Function identifier of a legacy identifier, which is a text such as "REF_SPEED_FL". Only the table `funz_Kel` is
/// searched, not the camera tables.
///
/// @param id  may be null.
/// @return the identifier; 0 when it is unknown, null or "".
/// @since 0.1.0
KEL_API kel_funpos kelFunGetFidDaID(const char* id) KEL_NOEXCEPT;

/// Camera row of a legacy identifier: the basic table is searched first, then the extended one. The end rows are
/// searched too, so "" finds the end row of the basic table.
///
/// @param id  never null.
/// @return the row; null when neither table has it.
/// @since 0.1.0
KEL_API const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaID(const char* id) KEL_NOEXCEPT;

/// Camera row of an identifier; all bits must be equal. The basic table is searched first, then the extended one, and
/// the end rows too.
///
/// @return the row; null when neither table has it.
/// @since 0.1.0
KEL_API const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaFID(kel_funpos fid) KEL_NOEXCEPT;

/// The same search as `kelFunGetFunVecchiaZumikoDaFID`. @since 0.1.0
KEL_API const t_SFunzioneZumikoCam* kelFunGetParamZumikoCam(kel_funpos fid) KEL_NOEXCEPT;

/// Number of rows of `funz_ZumikoCam_base`, with its end row: 20. @since 0.1.0
KEL_API unsigned getFunzVisSize(void) KEL_NOEXCEPT;

/// Number of rows of `funz_ZumikoCam_estese`, with its end row: 23. @since 0.1.0
KEL_API unsigned getFunzVisEstSize(void) KEL_NOEXCEPT;

/// @}
/// @name Samples
/// @{

/// Size of one sample of a sample type, bytes.
///
/// @return 1 to 64; 0 for the types without a sample (`KEL_TIPO_NESSUNO`, `KEL_TIPO_NESSUNO_2`) and for a code that is
///         no sample type.
/// @since 0.1.0
KEL_API unsigned kelFunGetSamplSize(unsigned codice) KEL_NOEXCEPT;

/// Float to 16-bit float (IEEE 754 binary16), truncating toward zero, so that a value never grows.
///
/// Magnitudes above 65504 become infinity; a NaN stays a NaN.
///
/// @param bit_float  bits of an IEEE 754 binary32.
/// @return bits of the 16-bit float, 0 to 0xFFFF.
/// @since 0.1.0
KEL_API unsigned kelF16compress(unsigned bit_float) KEL_NOEXCEPT;

/// 16-bit float (IEEE 754 binary16) to float, exact.
///
/// @param mezzo  bits of the 16-bit float; those above the low 16 are ignored.
/// @return bits of the equal IEEE 754 binary32.
/// @since 0.1.0
KEL_API unsigned kelF16decompress(unsigned mezzo) KEL_NOEXCEPT;

/// @}
/// @name Converters
/// @{

/// Sets a converter record up for one function of one channel in one unit.
///
/// Set `larghezza`, `decimali`, `auto_decimali` and `formato` of the record yourself, before or after; this function
/// does not change them. The record's other bytes need not be cleared. When there is no decoder (an unknown sample
/// type, a subfield that the packet does not have, no unit data for a format that needs them), the record reads no
/// value and shows "- -".
///
/// @param conv              the record to fill; never null.
/// @param canale            the channel, at any address; read only during the call; never null.
/// @param fid               the channel's own function, or that of one subfield of a packet channel.
/// @param dati              the unit, as `kelFunGetConvData` gives it; must exist longer than the record. Null leaves
///                          the record's pointer as it was; set-up then reads through that pointer only for sample
///                          types that have a reciprocal form (0 to 6, 20, 21) and for computed subfields.
/// @param pos_bit           first bit of a bit field, 0 when there is none.
/// @param num_bit           width of the bit field, 0 for the whole value.
/// @param campione_in_testa not 0: the reads are given the sample itself; 0: they are given a record of all samples,
///                          in which this one lies at the channel's `offset_campione`.
/// @since 0.1.0
KEL_API void kelConvInit(s_kel_converter* conv, const s_kel_canale* canale, kel_funpos fid,
                         const s_converter_data* dati, unsigned short pos_bit, unsigned short num_bit,
                         int campione_in_testa) KEL_NOEXCEPT;

/// Reads a value in the converter's unit. A bad sample reads as 0; the status word is not returned.
///
/// @param conv    set up with `kelConvInit`.
/// @param buffer  the sample, or the record of samples, at any address. Nothing outside the sample is read.
/// @param valore  receives the value; 0 when the converter has no decoder. Never null.
/// @return 1; 0 when the converter has no decoder.
/// @since 0.1.0
KEL_API int kelConvGetValFloat(const s_kel_converter* conv, const void* buffer, float* valore) KEL_NOEXCEPT;

/// Reads a text. With `auto_decimali` set it may rewrite the record's `decimali`.
///
/// @param conv    set up with `kelConvInit`.
/// @param buffer  the sample, or the record of samples, at any address. Nothing outside the sample is read.
/// @param testo   32 bytes, all written: the text, NUL-terminated, and NUL to the end.
/// @return 1; 0 when the converter has no text function, with the text "- -".
/// @since 0.1.0
KEL_API int kelConvGetString(s_kel_converter* conv, const void* buffer, char testo[32]) KEL_NOEXCEPT;

/// The unit data that the converter was set up with. @since 0.1.0
KEL_API const s_converter_data* kelConvGetConvData(const s_kel_converter* conv) KEL_NOEXCEPT;

/// Byte offset of the sample within the buffer that the reads are given. @since 0.1.0
KEL_API unsigned kelConvGetOffset(const s_kel_converter* conv) KEL_NOEXCEPT;

/// @}
/// @name Packet subfields
/// A subfield is one quantity within a packet. Its tables end with a row whose identifier has 32 in its low seven bits.
/// @{

/// Subfield table of a lap packet, by the specialisation of its identifier. Null for specialisations above 2.
/// @since 0.1.0
KEL_API const s_sottocampo* kelConvGetSottoCampiLapTime(kel_funpos fid) KEL_NOEXCEPT;

/// Subfield table of a date and time packet. It has only the end row. @since 0.1.0
KEL_API const s_sottocampo* kelConvGetSottoCampiDataOra(kel_funpos fid) KEL_NOEXCEPT;

/// Subfield table of a GPS packet, by the specialisation of its identifier. Null for specialisations above 1.
/// @since 0.1.0
KEL_API const s_sottocampo* kelConvGetSottoCampiGPS(kel_funpos fid) KEL_NOEXCEPT;

/// Whether a kind of packet has a subfield.
///
/// @param dettagli  packet details, 1 to 3.
/// @param spec      packet specialisation.
/// @param fid       identifier of the subfield.
/// @return 1 when its table has a row with exactly this identifier, else 0.
/// @since 0.1.0
KEL_API int kelConvMatchSottocampo(unsigned dettagli, unsigned spec, kel_funpos fid) KEL_NOEXCEPT;

/// Row of a subfield in a table.
///
/// @param tabella  closed by an end row; null, as `search_sottocampi_struct` may give it, has no rows.
/// @param fid      identifier of the subfield.
/// @return the first row with exactly this identifier; null when none stands before the end row.
/// @since 0.1.0
KEL_API const s_sottocampo* getDettagliSottocampo(const s_sottocampo* tabella, kel_funpos fid) KEL_NOEXCEPT;

/// Subfield table of a kind of packet.
///
/// @param dettagli  1 lap, 2 date and time (any `spec`), 3 GPS.
/// @param spec      lap: 0 and 2 second generation, 1 first generation; GPS: 0 the logger's packet, 1 NAV-SOL.
/// @return the table; null for any other pair.
/// @since 0.1.0
KEL_API const s_sottocampo* search_sottocampi_struct(unsigned dettagli, unsigned spec) KEL_NOEXCEPT;

/// @}

KEL_C_END

#endif
