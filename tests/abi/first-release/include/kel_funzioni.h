/// @file
/// The flat functions: the whole library for programs in any language that can call a shared library.
///
/// What holds for every one of them:
///
/// - none throws, prints, allocates, locks or keeps state; failures are told by the result only;
/// - texts given are 8-bit and NUL-terminated, and compared byte for byte, case-sensitive;
/// - texts and rows returned lie in constant tables, or in the caller's own channel array: nothing is ever freed;
/// - functions that take a channel set or a converter record touch only that memory, and belong to one thread at a
///   time; every other function may be called from any thread, at any time, without initialisation.
#ifndef KEL_FUNZIONI_H
#define KEL_FUNZIONI_H

#include "kel_record.h"

KEL_C_BEGIN

/// @name Channel set
/// The bounds of the indices differ from function to function on purpose: clients depend on each as it is.
/// @{

/// Binds a channel set to the caller's array. Call it before any other function on the set.
///
/// @param set     the context to fill; never null.
/// @param canali  first record of the array, which must outlive the set; may be null (no array yet).
/// @param totale  capacity of the array, records.
/// @param usati   live records at its start. Nothing is checked.
/// @since 0.1.0
KEL_API void kelFunInit(s_set_canali* set, s_kel_canale* canali, unsigned totale, unsigned usati) KEL_NOEXCEPT;

/// Hands out the next free record: clears its 112 bytes, writes its position (low 16 bits) into `indice` and counts it
/// as used.
///
/// @return the record, in the caller's array; null when there is no array or no free record, and then nothing changes.
/// @since 0.1.0
KEL_API s_kel_canale* kelFunGetFreeCh(s_set_canali* set) KEL_NOEXCEPT;

/// Takes the last used record back; its contents stay as they are.
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

/// Sample buffer that all used channels need together, bytes: the sum of their `dim_buffer`, modulo 2^32.
///
/// @return the sum; 0 when there is no array or no used record.
/// @since 0.1.0
KEL_API unsigned kelFunGetSizeBufferValori(const s_set_canali* set) KEL_NOEXCEPT;

/// Name of the channel at an index, in place in its record.
///
/// One record past the last used one is accepted as well, and its name is given as it stands. The array is not looked
/// at: for a null array the result is the address that the record layout implies, which must not be read.
///
/// @return the name; null when `indice` is above the used or above the total count.
/// @since 0.1.0
KEL_API const char* kelFunGetNomeCanale(const s_set_canali* set, unsigned indice) KEL_NOEXCEPT;

/// Short name of the channel at an index; else as `kelFunGetNomeCanale`. @since 0.1.0
KEL_API const char* kelFunGetNomeCanaleShort(const s_set_canali* set, unsigned indice) KEL_NOEXCEPT;

/// @}
/// @name Matching
/// Which channel carries a function. Fields of the request that are 0 match anything.
/// A packet channel also matches the identifier of any of its subfields, compared whole.
/// @{

/// First used channel whose quantity, object and position match.
///
/// @return the record; null when none matches, or there is no array or no used record.
/// @since 0.1.0
KEL_API s_kel_canale* kelFunGetMatchCh(const s_set_canali* set, kel_funpos fid) KEL_NOEXCEPT;

/// First used channel of which every field up to bit 28 matches.
///
/// Bit 22 is one-way: a request without it accepts channels with and without. Bits 23 to 28 are compared in three
/// pieces of two bits, each only where it is not 0 in the request, even for instance numbers: a request for number 4
/// also accepts number 5.
///
/// @return the record; null when none matches, or there is no array or no used record.
/// @since 0.1.0
KEL_API s_kel_canale* kelFunGetMatchChFull(const s_set_canali* set, kel_funpos fid) KEL_NOEXCEPT;

/// All used channels whose quantity, object and position match. Packet channels match by their subfields only.
///
/// @param set      the channel set.
/// @param fid      the request.
/// @param trovati  receives the records found, in order; null is answered with 0.
/// @param numero   in: capacity of `trovati`, at least 1; out: records stored. The walk stops when the number stored
///                 equals the capacity right after a store, so a capacity of 0 never stops it: `trovati` must then
///                 have room for every used channel.
/// @return 1; 0 when nothing matched, and then `trovati` and `numero` are as they were.
/// @since 0.1.0
KEL_API int kelFunGetMatchChList(const s_set_canali* set, kel_funpos fid, s_kel_canale** trovati,
                                 unsigned* numero) KEL_NOEXCEPT;

/// @}
/// @name Units of measure
/// An identifier's units follow from its quantity and object alone; the other fields are never looked at.
/// @{

/// The row of the quantity table that an identifier falls under: the first of its quantity with its object, or the
/// quantity's generic row.
///
/// @return a row of `uib_grandezza_fisica_uiv`; null for quantities without one (0, 28 and all above 31).
/// @since 0.1.0
KEL_API const s_grandezza_fisica_uiv* kelFunGetUIVs(kel_funpos fid) KEL_NOEXCEPT;

/// Text of the base unit: the first of the identifier's unit table.
///
/// @return the text; "" for an identifier without units, never null.
/// @since 0.1.0
KEL_API const char* kelFunGetUnitaBase(kel_funpos fid) KEL_NOEXCEPT;

/// Text of a unit code.
///
/// @return the text; null when `codice` is above 32.
/// @since 0.1.0
KEL_API const char* kelFunGetUdmTxt(unsigned codice) KEL_NOEXCEPT;

/// Code of a unit text. The codes have a vocabulary of their own ("a/f", "lambda"), not always that of the unit tables.
///
/// @param testo  never null.
/// @return 0 to 32; -1 when there is no such text.
/// @since 0.1.0
KEL_API int kelFunGetUdmCode(const char* testo) KEL_NOEXCEPT;

/// Decimals that a function shows in a unit unless the user chooses.
///
/// @param fid  any identifier.
/// @param udm  never null. A text that is not a unit of the function is answered with the base unit's decimals.
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
/// @return a unit row, in place; the base unit's for an unknown text; that of `NULL_udm_associate` (gain 1, offset 0)
///         for null and for an identifier without units. Never null.
/// @since 0.1.0
KEL_API const s_converter_data* kelFunGetConvData(kel_funpos fid, const char* udm) KEL_NOEXCEPT;

/// Conversion from one unit of a function into another: value * gain + offset, both in single precision.
///
/// The result carries no unit text ("") and no reciprocal flag, also between "km/h" and "min/km".
///
/// @param fid    any identifier.
/// @param udmDa  unit to convert from; never null.
/// @param udmA   unit to convert into; never null.
/// @return gain = gain of `udmA` / gain of `udmDa`, and the offset that goes with it; the identity (offset 0, gain 1)
///         for equal texts, for texts that are not units of the function and for an identifier without units.
/// @since 0.1.0
KEL_API s_converter_data kelFunGetConvDatas(kel_funpos fid, const char* udmDa, const char* udmA) KEL_NOEXCEPT;

/// @}
/// @name Names, legacy identifiers and camera rows
/// @{

/// Short name of a function: that of its camera row, else the texts of its fields one after the other.
///
/// @param set  not used, may be null: kept for the clients that pass their channel set.
/// @param fid  any identifier.
/// @return the name by value, at most 31 characters; all NUL when no field has a text.
/// @since 0.1.0
KEL_API s_nome_breve kelFunGetNomeFunzioneShort(const s_set_canali* set, kel_funpos fid) KEL_NOEXCEPT;

/// Identifier of a legacy textual identifier of the table `funz_Kel`. The camera tables are not searched.
///
/// @param id  may be null.
/// @return the identifier; 0 when it is unknown, null or "".
/// @since 0.1.0
KEL_API kel_funpos kelFunGetFidDaID(const char* id) KEL_NOEXCEPT;

/// Camera row of a legacy textual identifier: base table first, then the extended one. The end rows take part, so ""
/// finds the base end row.
///
/// @param id  never null.
/// @return the row; null when neither table has it.
/// @since 0.1.0
KEL_API const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaID(const char* id) KEL_NOEXCEPT;

/// Camera row of an identifier, compared whole: base table first, then the extended one, end rows included.
///
/// @return the row; null when neither table has it.
/// @since 0.1.0
KEL_API const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaFID(kel_funpos fid) KEL_NOEXCEPT;

/// The same search as `kelFunGetFunVecchiaZumikoDaFID`. @since 0.1.0
KEL_API const t_SFunzioneZumikoCam* kelFunGetParamZumikoCam(kel_funpos fid) KEL_NOEXCEPT;

/// Rows of `funz_ZumikoCam_base`, its end row included: 20. @since 0.1.0
KEL_API unsigned getFunzVisSize(void) KEL_NOEXCEPT;

/// Rows of `funz_ZumikoCam_estese`, its end row included: 23. @since 0.1.0
KEL_API unsigned getFunzVisEstSize(void) KEL_NOEXCEPT;

/// @}
/// @name Samples
/// @{

/// Size of one sample of a sample type, bytes.
///
/// @return 1 to 64; 0 for the types without a sample (14, 23) and for codes above 24.
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
/// @param mezzo  bits of the 16-bit float; only the low 16 are looked at.
/// @return bits of the equal IEEE 754 binary32.
/// @since 0.1.0
KEL_API unsigned kelF16decompress(unsigned mezzo) KEL_NOEXCEPT;

/// @}
/// @name Converters
/// @{

/// Sets a converter record up for one function of one channel in one unit.
///
/// Set `larghezza`, `decimali`, `auto_decimali` and `formato` of the record yourself, before or after: they are left
/// alone here; the record's other bytes need not be cleared. A set-up that finds no decoder (an unknown sample type, a subfield that the packet does not have, no
/// unit data for a format that needs them) leaves a record that reads no value and shows "- -".
///
/// @param conv              the record to fill; never null.
/// @param canale            the channel, at any address; read only during the call; never null.
/// @param fid               the channel's own function, or that of one subfield of a packet channel.
/// @param dati              the unit, as `kelFunGetConvData` gives it; must outlive the record; null leaves the
///                          record's pointer as it was. That one is looked through only for sample types that have a
///                          reciprocal form (0 to 6, 20, 21) and for computed subfields: all others are set up without a
///                          unit, whatever the record holds.
/// @param pos_bit           first bit of a bit field, 0 when there is none.
/// @param num_bit           width of the bit field, 0 for the whole value.
/// @param campione_in_testa not 0: the reads are given the sample itself; 0: they are given a record of all samples,
///                          in which this one lies at the channel's `offset_campione`.
/// @since 0.1.0
KEL_API void kelConvInit(s_kel_converter* conv, const s_kel_canale* canale, kel_funpos fid,
                         const s_converter_data* dati, unsigned short pos_bit, unsigned short num_bit,
                         int campione_in_testa) KEL_NOEXCEPT;

/// Reads a value in the converter's unit. The status word is not given; a bad sample reads as 0.
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
/// Tables end with a row whose identifier has 32 in its low seven bits.
/// @{

/// Subfield table of a lap packet, by the specialisation of its identifier. Null for specialisations above 2.
/// @since 0.1.0
KEL_API const s_sottocampo* kelConvGetSottoCampiLapTime(kel_funpos fid) KEL_NOEXCEPT;

/// Subfield table of a date and time packet: holds only the end row. @since 0.1.0
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
