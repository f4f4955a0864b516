#include "comune/tabelle.h"

#define TABELLA(nome) \
    { #nome, nome }

namespace kel_test {

namespace {

// With its end row, the first whose quantity is 32.
Sottocampi fino_alla_fine(const s_sottocampo* tabella) {
    std::size_t righe = 0;
    while ((tabella[righe].fid & 0x7F) != 32)
        ++righe;
    return {tabella, righe + 1};
}

}  // namespace

const std::map<std::string, Campi>& tabelle_campi() {
    static const std::map<std::string, Campi> tabelle = {TABELLA(grandezza_fisica_FunzKel),
                                                         TABELLA(oggetto_misurato_FunzKel),
                                                         TABELLA(posizione_FunzKel),
                                                         TABELLA(inout_FunzKel),
                                                         TABELLA(leftright_FunzKel),
                                                         TABELLA(frontrear_FunzKel),
                                                         TABELLA(updown_FunzKel),
                                                         TABELLA(dettagli_FunzKel),
                                                         TABELLA(specializzazione_gps_FunzKel),
                                                         TABELLA(specializzazione_laptime_FunzKel)};
    return tabelle;
}

const std::map<std::string, Unita>& tabelle_unita() {
    static const std::map<std::string, Unita> tabelle = {
        TABELLA(NULL_udm_associate),       TABELLA(kmh_udm_associate),       TABELLA(kmh_vel_udm_associate),
        TABELLA(C_udm_associate),          TABELLA(bar_udm_associate),       TABELLA(bar_oil_udm_associate),
        TABELLA(bar_brake_udm_associate),  TABELLA(g_udm_associate),         TABELLA(km_udm_associate),
        TABELLA(Hz_udm_associate),         TABELLA(ms_udm_associate),        TABELLA(s_udm_associate),
        TABELLA(time_udm_associate),       TABELLA(deg_udm_associate),       TABELLA(mV_udm_associate),
        TABELLA(battery_udm_associate),    TABELLA(deg_sec_udm_associate),   TABELLA(gyro_udm_associate),
        TABELLA(kW_sec_udm_associate),     TABELLA(l_udm_associate),         TABELLA(l_sec_udm_associate),
        TABELLA(pct_udm_associate),        TABELLA(pct_sec_udm_associate),   TABELLA(code_udm_associate),
        TABELLA(coord_alt_udm_associate),  TABELLA(coord_lat_udm_associate), TABELLA(coord_lon_udm_associate),
        TABELLA(coord_udm_associate),      TABELLA(m_udm_associate),         TABELLA(pos_udm_associate),
        TABELLA(kg_sec_udm_associate),     TABELLA(afr_udm_associate),       TABELLA(hash_udm_associate),
        TABELLA(rpm_udm_associate),        TABELLA(rpm_s_udm_associate),     TABELLA(lambda_udm_associate),
        TABELLA(lambda_tot_udm_associate), TABELLA(gear_udm_associate),      TABELLA(Nm_udm_associate),
        TABELLA(l_lap_udm_associate),      TABELLA(date_udm_associate),      TABELLA(pckt_udm_associate),
        TABELLA(A_udm_associate)};
    return tabelle;
}

const std::map<std::string, Varianti>& tabelle_varianti() {
    static const std::map<std::string, Varianti> tabelle = {
        TABELLA(z4_pres_brk), TABELLA(z4_velocity), TABELLA(z4_time_off), TABELLA(z4_num_lambda), TABELLA(z4_speed)};
    return tabelle;
}

const std::map<std::string, Scelte>& tabelle_scelte() {
    static const std::map<std::string, Scelte> tabelle = {TABELLA(ios_completo), TABELLA(ios_solo_inout),
                                                          TABELLA(udfrlrs_solo_fr), TABELLA(udfrlrs_solo_frlr)};
    return tabelle;
}

// The names are those of the model: not every packet's table is exported.
const std::map<std::string, Sottocampi>& tabelle_sottocampi() {
    static const std::map<std::string, Sottocampi> tabelle = {
        {"gps_kel", sottocampi_gps_kel},
        {"gps_navsol", fino_alla_fine(search_sottocampi_struct(3, 1))},
        {"lap_2G", sottocampi_lap_time_2G},
        {"lap_1G", fino_alla_fine(search_sottocampi_struct(1, 1))},
        {"data_ora", fino_alla_fine(search_sottocampi_struct(2, 0))},
    };
    return tabelle;
}

}  // namespace kel_test
