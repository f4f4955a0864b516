/// @file
/// The one implementation of `IFunzioni`. Programs may derive their own catalogue from it.
#ifndef CFUNZIONI_H
#define CFUNZIONI_H

#include <list>
#include <map>
#include <string>
#include <vector>

#include "IFunzioni.h"

/// The catalogue. What each operation does is told in `IFunzioni`.
class KEL_API CFunzioni : public IFunzioni {
public:
    /// A catalogue without channels.
    CFunzioni();

    /// A catalogue bound to an array of channel records, all of which count as used.
    /// @param canali     the array; stays the caller's and must outlive the catalogue.
    /// @param numCanali  its records.
    CFunzioni(s_kel_canale* canali, unsigned int numCanali);

    ~CFunzioni() override;

    std::string getNomeCanale(unsigned int indice) override;
    std::string getNomeCanaleShort(unsigned int indice) override;
    unsigned int getSizeBufferValori() override;
    unsigned int getNumChUsed() override;
    s_kel_canale* getFreeCh() override;
    s_kel_canale* getCanale(unsigned int indice) override;
    s_kel_canale* getMatchCh(kel_funpos fid) override;
    std::string getNomeFunzioneShort(kel_funpos fid) const override;
    std::string getNomeFunzione(kel_funpos fid, bool tutti) const override;
    kel_funpos getFidEquivalente(kel_funpos fid) const override;
    std::string getUnitaBase(kel_funpos fid) const override;
    kel_funpos getFidDaID(const std::string& id) override;
    const t_SFunzioneZumikoCam* getFunVecchiaZumikoDaFID(kel_funpos fid) override;
    const t_SFunzioneZumikoCam* getFunVecchiaZumikoDaID(const std::string& id) override;
    const t_SFunzioneZumikoCam* getParamZumikoCam(kel_funpos fid) const override;
    const t_SFunzioneZumikoCam* getFirstFunzVisZumikoCam() override;
    const t_SFunzioneZumikoCam* getNextFunzVisZumikoCam() override;
    const t_SFunzioneZumikoCam* getFirstFunzVisZumikoCamEstese() override;
    const t_SFunzioneZumikoCam* getNextFunzVisZumikoCamEstese() override;
    void getAllFunzZumikoCamBasePerSw(std::vector<const t_SFunzioneZumikoCam*>& funzioni) override;
    void getAllFunzZumikoCamEstesePerSw(std::vector<const t_SFunzioneZumikoCam*>& funzioni) override;
    int getNumDecimaliDefault(kel_funpos fid, const std::string& udm) const override;
    int getNumDecimaliMax(kel_funpos fid, const std::string& udm) const override;
    int getNumDecimaliMin(kel_funpos fid, const std::string& udm) const override;
    void getFunzUIVs(kel_funpos fid, std::list<std::string>& unita) const override;
    void getFunzioni(std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>>& funzioni,
                     std::vector<unsigned int>& filtro) const override;
    void getFunzDettagli(kel_funpos fid, std::map<unsigned int, std::string>& lati,
                         std::map<unsigned int, std::string>& inout, int& primo, int& ultimo) const override;
    int getFormati(kel_funpos fid, unsigned int* formati) override;
    void getAllInnerFunpos(kel_funpos fid, std::list<kel_funpos>& interni) override;
    const s_converter_data* getParamConv(kel_funpos fid, const std::string& udm) const override;
    s_converter_data getParamConv(kel_funpos fid, const std::string& udmDa, const std::string& udmA) const override;
    bool FunGetParamZumikoCam(int fid, int& codice, float& scala, std::string& udm) const override;
    void getCanaliGPS(std::map<unsigned int, NomiDefaultCanale>& canali) const override;
    void getCanaliLapTime(std::map<unsigned int, NomiDefaultCanale>& canali) const override;
    void getCanaliLapNum(std::map<unsigned int, NomiDefaultCanale>& canali) const override;
    std::string getStrPhi(GRANDEZZA_FISICA_FUNZKEL valore) override;
    std::string getStrObj(OGGETTO_MISURATO_FUNZKEL valore) override;
    std::string getStrPos(POSIZIONE_FUNZKEL valore) override;
    std::string getXmlStrPhi(GRANDEZZA_FISICA_FUNZKEL valore) override;
    std::string getXmlStrObj(OGGETTO_MISURATO_FUNZKEL valore) override;
    void RiempiMapGrandezzaFisica(std::map<GRANDEZZA_FISICA_FUNZKEL, std::string>& mappa) const override;
    int getIdxPhi(const std::string& xml) override;
    int getIdxObj(const std::string& xml) override;
    int getIdxPos(const std::string& xml) override;
    int getIdxFrontRear(const std::string& xml) override;
    IConverter* CreateConverter(const s_kel_canale* ch, kel_funpos fid, const std::string& udm, bool sampleAtStart,
                                unsigned int numDec, eFormatoConv format, unsigned int width) override;
    void GetValoriCampiFID(std::list<std::string>& grandezze, std::list<std::string>& oggetti,
                           std::list<std::string>& posizioni, std::list<std::string>& dettagli,
                           std::list<std::string>& specGps, std::list<std::string>& specLaptime,
                           std::list<std::string>& sensoLati, std::list<std::string>& inout,
                           std::list<std::string>& leftright, std::list<std::string>& frontrear,
                           std::list<std::string>& updown, std::list<std::string>& numeri) override;

    /// @name The character conversion
    /// Every text of the caller that is looked up passes through `ConvertiIn8`, every table text that is handed out
    /// through `ConvertiDa8`. Both return an exact copy: the catalogue works in 8-bit text throughout. They are the one
    /// place where a build with another character type would convert.
    /// @{

    /// A text of the caller, as tables hold texts.
    std::string ConvertiIn8(const std::string& testo) const;
    /// A text of a table, as the caller holds texts.
    std::string ConvertiDa8(const std::string& testo) const;
    /// @}

    /// @name The camera walk's parts
    /// None of them is const, though two change nothing: programs look for the exported names that go without it.
    /// @{

    /// Row at the cursor of the basic camera functions; null on the end row.
    const t_SFunzioneZumikoCam* get_funz_vis_zumiko_cam();
    /// Row at the cursor of the extended camera functions, moved on to the first visible one; null on the end row.
    const t_SFunzioneZumikoCam* get_funz_vis_zumiko_cam_estese();
    /// Whether the camera shows the extended function of a parameter code.
    bool is_est_valid(int codice);
    /// @}

private:
    s_set_canali set_;              // the caller's channels
    unsigned int cursore_base_;     // row of the walk over the basic camera functions
    unsigned int cursore_estese_;   // row of the walk over the extended camera functions
    unsigned int dimensione_base_;  // rows of the two tables, end rows included
    unsigned int dimensione_estese_;
};

#endif
