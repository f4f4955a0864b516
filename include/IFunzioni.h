/// @file
/// The catalogue as a C++ object.
#ifndef IFUNZIONI_H
#define IFUNZIONI_H

#include <list>
#include <map>
#include <string>
#include <vector>

#include "IConverter.h"
#include "kelfunzioni.h"

/// A function that a configuration program may offer. A function is what a channel measures, such as oil pressure.
struct SFunzionePerGF {
    kel_funpos funpos;  ///< the function
    std::string nome;   ///< its name
};

/// The catalogue: everything the library knows about function identifiers, and the caller's channels.
///
/// Compiled programs rely on the order of the operations and on which of them are const, so neither changes. Use a
/// catalogue in one thread at a time, because it holds the two camera cursors; different catalogues share only constant
/// tables. Operations throw only when memory runs out, unless their comment says otherwise.
class KEL_API IFunzioni {
public:
    /// Default names of a packet's channel.
    struct NomiDefaultCanale {
        std::string breve;  ///< at most 4 characters
        std::string nome;   ///< name as shown to the user
    };

    /// @name Creation
    /// The caller destroys the result with `delete`.
    /// @{

    /// A catalogue for an array of channel records, which all count as used.
    /// @param canali     the array; it stays the caller's and must exist longer than the catalogue.
    /// @param numCanali  the number of its records.
    static IFunzioni* CreateMe(s_kel_canale* canali, unsigned int numCanali);

    /// A catalogue without channels.
    static IFunzioni* CreateMe();
    /// @}

    virtual ~IFunzioni();

    /// @name Channels: see the flat functions of the same names
    /// @{

    /// Name of a channel. Throws `std::logic_error` when the index is out of range or the catalogue has no channels.
    virtual std::string getNomeCanale(unsigned int indice) = 0;
    /// Short name of a channel; else as `getNomeCanale`.
    virtual std::string getNomeCanaleShort(unsigned int indice) = 0;
    /// Bytes of a record of samples of all used channels.
    virtual unsigned int getSizeBufferValori() = 0;
    /// Number of used channels.
    virtual unsigned int getNumChUsed() = 0;
    /// Takes the next free channel record into use and clears it; null when there is none.
    virtual s_kel_canale* getFreeCh() = 0;
    /// Channel record of an index; null when it is not in use.
    virtual s_kel_canale* getCanale(unsigned int indice) = 0;
    /// First channel that carries a function; null when none does.
    virtual s_kel_canale* getMatchCh(kel_funpos fid) = 0;
    /// @}

    /// @name Names
    /// @{

    /// Short name of a function. It ends with one NUL, which counts in its length.
    virtual std::string getNomeFunzioneShort(kel_funpos fid) const = 0;
    /// Long name of a function.
    /// @param fid    any identifier; one that is in no table gets a name composed from its fields.
    /// @param tutti  true: a composed name shows its empty fields too.
    virtual std::string getNomeFunzione(kel_funpos fid, bool tutti) const = 0;
    /// The class of a function: quantity and object of its row in the quantity table; 0 without a row.
    virtual kel_funpos getFidEquivalente(kel_funpos fid) const = 0;
    /// Text of the base unit of a function, "" when it has none.
    virtual std::string getUnitaBase(kel_funpos fid) const = 0;
    /// @}

    /// @name Legacy identifiers and the camera
    /// Rows are in constant tables.
    /// @{

    /// Function of a legacy identifier (a text, such as "WATER_TEMP"); 0 when it is unknown. First calls
    /// `getFunVecchiaZumikoDaID` of this object, so that a derived class may add identifiers of its own.
    virtual kel_funpos getFidDaID(const std::string& id) = 0;
    /// Camera row of a function, or null.
    virtual const t_SFunzioneZumikoCam* getFunVecchiaZumikoDaFID(kel_funpos fid) = 0;
    /// Camera row of a legacy identifier, or null. "" finds the end row of the basic table.
    virtual const t_SFunzioneZumikoCam* getFunVecchiaZumikoDaID(const std::string& id) = 0;
    /// Camera row of a function, or null.
    virtual const t_SFunzioneZumikoCam* getParamZumikoCam(kel_funpos fid) const = 0;
    /// The first basic camera function. Moves the cursor back to it.
    virtual const t_SFunzioneZumikoCam* getFirstFunzVisZumikoCam() = 0;
    /// The next basic camera function; null at the end, and at every call after that.
    virtual const t_SFunzioneZumikoCam* getNextFunzVisZumikoCam() = 0;
    /// The first visible extended camera function. Moves the cursor back to it.
    virtual const t_SFunzioneZumikoCam* getFirstFunzVisZumikoCamEstese() = 0;
    /// The next visible extended camera function; null at the end, and at every call after that.
    virtual const t_SFunzioneZumikoCam* getNextFunzVisZumikoCamEstese() = 0;
    /// Adds all 19 basic camera functions at the end.
    virtual void getAllFunzZumikoCamBasePerSw(std::vector<const t_SFunzioneZumikoCam*>& funzioni) = 0;
    /// Adds all 22 extended camera functions at the end, hidden ones too.
    virtual void getAllFunzZumikoCamEstesePerSw(std::vector<const t_SFunzioneZumikoCam*>& funzioni) = 0;
    /// @}

    /// @name Units, decimals, function lists
    /// @{

    /// Decimals that a function shows in a unit unless the user chooses.
    virtual int getNumDecimaliDefault(kel_funpos fid, const std::string& udm) const = 0;
    /// Most decimals to offer.
    virtual int getNumDecimaliMax(kel_funpos fid, const std::string& udm) const = 0;
    /// Fewest decimals to offer.
    virtual int getNumDecimaliMin(kel_funpos fid, const std::string& udm) const = 0;
    /// Units of a function, base unit first.
    /// @param fid    any identifier.
    /// @param unita  emptied first; stays empty for an identifier without units.
    virtual void getFunzUIVs(kel_funpos fid, std::list<std::string>& unita) const = 0;
    /// Functions to offer, by quantity.
    /// @param funzioni  emptied first.
    /// @param filtro    identifiers of the quantities that are wanted, or of quantity and object; empty for all
    ///                  functions.
    virtual void getFunzioni(std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>>& funzioni,
                             std::vector<unsigned int>& filtro) const = 0;
    /// Choices that make sense for a function at its position.
    /// @param fid     any identifier.
    /// @param lati    emptied first; side bits and their texts.
    /// @param inout   emptied first; in/out values and their texts.
    /// @param primo   first instance number or -1; not changed when the function has no variant at this position.
    /// @param ultimo  last instance number or -1; not changed in the same case.
    virtual void getFunzDettagli(kel_funpos fid, std::map<unsigned int, std::string>& lati,
                                 std::map<unsigned int, std::string>& inout, int& primo, int& ultimo) const = 0;
    /// Output formats of a function. There are none: returns 0 and does not change the number.
    virtual int getFormati(kel_funpos fid, unsigned int* formati) = 0;
    /// Identifiers of the subfields of a packet function. The list is emptied first; for any other function it stays
    /// empty.
    virtual void getAllInnerFunpos(kel_funpos fid, std::list<kel_funpos>& interni) = 0;
    /// Conversion from the base unit of a function into a unit; never null.
    virtual const s_converter_data* getParamConv(kel_funpos fid, const std::string& udm) const = 0;
    /// Conversion from one unit of a function into another.
    virtual s_converter_data getParamConv(kel_funpos fid, const std::string& udmDa, const std::string& udmA) const = 0;
    /// The camera's parameters of a function.
    /// @param fid     the identifier's bits.
    /// @param codice  receives the parameter code.
    /// @param scala   receives the scale, if it is above 0.
    /// @param udm     receives the unit, if it is not "".
    /// @return false when no camera table has the function; then nothing is changed.
    virtual bool FunGetParamZumikoCam(int fid, int& codice, float& scala, std::string& udm) const = 0;
    /// @}

    /// @name Default channel names of packets
    /// Entries are added. An entry that is there already keeps its names.
    /// @{

    /// Channels of a GPS packet.
    virtual void getCanaliGPS(std::map<unsigned int, NomiDefaultCanale>& canali) const = 0;
    /// Lap time channels of a lap packet.
    virtual void getCanaliLapTime(std::map<unsigned int, NomiDefaultCanale>& canali) const = 0;
    /// Lap number channel of a lap packet.
    virtual void getCanaliLapNum(std::map<unsigned int, NomiDefaultCanale>& canali) const = 0;
    /// @}

    /// @name Texts and XML names of field values
    /// A text is "" for a value out of range. A value is 0 for an unknown name; "undefined" is 0 too.
    /// @{

    /// Text of a quantity, such as "Speed".
    virtual std::string getStrPhi(GRANDEZZA_FISICA_FUNZKEL valore) = 0;
    /// Text of an object, such as "Oil".
    virtual std::string getStrObj(OGGETTO_MISURATO_FUNZKEL valore) = 0;
    /// Text of a position, such as "Wheel".
    virtual std::string getStrPos(POSIZIONE_FUNZKEL valore) = 0;
    /// XML name of a quantity, such as "FID_PHI_SPEED".
    virtual std::string getXmlStrPhi(GRANDEZZA_FISICA_FUNZKEL valore) = 0;
    /// XML name of an object, such as "FID_OBJ_OIL".
    virtual std::string getXmlStrObj(OGGETTO_MISURATO_FUNZKEL valore) = 0;
    /// Adds the text of every quantity. An entry that is there already keeps its text.
    virtual void RiempiMapGrandezzaFisica(std::map<GRANDEZZA_FISICA_FUNZKEL, std::string>& mappa) const = 0;
    /// Quantity of an XML name.
    virtual int getIdxPhi(const std::string& xml) = 0;
    /// Object of an XML name.
    virtual int getIdxObj(const std::string& xml) = 0;
    /// Position of an XML name.
    virtual int getIdxPos(const std::string& xml) = 0;
    /// Front/rear value of an XML name.
    virtual int getIdxFrontRear(const std::string& xml) = 0;
    /// @}

    /// A converter of one function of one channel in one unit. The caller destroys it with `delete`. It may exist
    /// longer than the catalogue and the channel.
    ///
    /// @param ch             the channel, at any address; never null.
    /// @param fid            the channel's own function, or that of one subfield of a packet channel.
    /// @param udm            a unit of the function; for an unknown text the base unit is taken.
    /// @param sampleAtStart  true: reads are given the sample itself; false: a record of all samples.
    /// @param numDec         decimals of the numeric text.
    /// @param format         alignment of the numeric text.
    /// @param width          characters of the numeric text, the point not counted.
    virtual IConverter* CreateConverter(const s_kel_canale* ch, kel_funpos fid, const std::string& udm,
                                        bool sampleAtStart, unsigned int numDec, eFormatoConv format,
                                        unsigned int width) = 0;

    /// Adds the values of every field of an identifier at the end of the lists, for a program that edits identifiers:
    /// XML names in the order of the values; for `sensoLati` "Position" and "Number"; for `numeri` "0" to "63".
    virtual void GetValoriCampiFID(std::list<std::string>& grandezze, std::list<std::string>& oggetti,
                                   std::list<std::string>& posizioni, std::list<std::string>& dettagli,
                                   std::list<std::string>& specGps, std::list<std::string>& specLaptime,
                                   std::list<std::string>& sensoLati, std::list<std::string>& inout,
                                   std::list<std::string>& leftright, std::list<std::string>& frontrear,
                                   std::list<std::string>& updown, std::list<std::string>& numeri) = 0;

protected:
    IFunzioni() = default;
    /// For derived classes.
    IFunzioni(const IFunzioni&) = default;
    /// For derived classes.
    IFunzioni& operator=(const IFunzioni&) = default;
};

#endif
