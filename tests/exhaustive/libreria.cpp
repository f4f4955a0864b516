#include "exhaustive/libreria.h"

#include <iterator>
#include <map>
#include <memory>

namespace esaustivo {

Campi campiDi(const std::string& nome) {
    static const std::map<std::string, Campi> tabelle = {
        {"grandezza_fisica_FunzKel", {grandezza_fisica_FunzKel, std::size(grandezza_fisica_FunzKel)}},
        {"oggetto_misurato_FunzKel", {oggetto_misurato_FunzKel, std::size(oggetto_misurato_FunzKel)}},
        {"posizione_FunzKel", {posizione_FunzKel, std::size(posizione_FunzKel)}},
        {"inout_FunzKel", {inout_FunzKel, std::size(inout_FunzKel)}},
        {"leftright_FunzKel", {leftright_FunzKel, std::size(leftright_FunzKel)}},
        {"frontrear_FunzKel", {frontrear_FunzKel, std::size(frontrear_FunzKel)}},
        {"updown_FunzKel", {updown_FunzKel, std::size(updown_FunzKel)}},
        {"dettagli_FunzKel", {dettagli_FunzKel, std::size(dettagli_FunzKel)}},
        {"specializzazione_gps_FunzKel", {specializzazione_gps_FunzKel, std::size(specializzazione_gps_FunzKel)}},
        {"specializzazione_laptime_FunzKel",
         {specializzazione_laptime_FunzKel, std::size(specializzazione_laptime_FunzKel)}},
        {"-", {}},
    };
    return tabelle.at(nome);
}

Unita unitaDi(const std::string& nome) {
    static const std::map<std::string, Unita> tabelle = {
        {"NULL_udm_associate", {NULL_udm_associate, std::size(NULL_udm_associate)}},
        {"kmh_udm_associate", {kmh_udm_associate, std::size(kmh_udm_associate)}},
        {"kmh_vel_udm_associate", {kmh_vel_udm_associate, std::size(kmh_vel_udm_associate)}},
        {"C_udm_associate", {C_udm_associate, std::size(C_udm_associate)}},
        {"bar_udm_associate", {bar_udm_associate, std::size(bar_udm_associate)}},
        {"bar_oil_udm_associate", {bar_oil_udm_associate, std::size(bar_oil_udm_associate)}},
        {"bar_brake_udm_associate", {bar_brake_udm_associate, std::size(bar_brake_udm_associate)}},
        {"g_udm_associate", {g_udm_associate, std::size(g_udm_associate)}},
        {"km_udm_associate", {km_udm_associate, std::size(km_udm_associate)}},
        {"Hz_udm_associate", {Hz_udm_associate, std::size(Hz_udm_associate)}},
        {"ms_udm_associate", {ms_udm_associate, std::size(ms_udm_associate)}},
        {"s_udm_associate", {s_udm_associate, std::size(s_udm_associate)}},
        {"time_udm_associate", {time_udm_associate, std::size(time_udm_associate)}},
        {"deg_udm_associate", {deg_udm_associate, std::size(deg_udm_associate)}},
        {"mV_udm_associate", {mV_udm_associate, std::size(mV_udm_associate)}},
        {"battery_udm_associate", {battery_udm_associate, std::size(battery_udm_associate)}},
        {"deg_sec_udm_associate", {deg_sec_udm_associate, std::size(deg_sec_udm_associate)}},
        {"gyro_udm_associate", {gyro_udm_associate, std::size(gyro_udm_associate)}},
        {"kW_sec_udm_associate", {kW_sec_udm_associate, std::size(kW_sec_udm_associate)}},
        {"l_udm_associate", {l_udm_associate, std::size(l_udm_associate)}},
        {"l_sec_udm_associate", {l_sec_udm_associate, std::size(l_sec_udm_associate)}},
        {"pct_udm_associate", {pct_udm_associate, std::size(pct_udm_associate)}},
        {"pct_sec_udm_associate", {pct_sec_udm_associate, std::size(pct_sec_udm_associate)}},
        {"code_udm_associate", {code_udm_associate, std::size(code_udm_associate)}},
        {"coord_alt_udm_associate", {coord_alt_udm_associate, std::size(coord_alt_udm_associate)}},
        {"coord_lat_udm_associate", {coord_lat_udm_associate, std::size(coord_lat_udm_associate)}},
        {"coord_lon_udm_associate", {coord_lon_udm_associate, std::size(coord_lon_udm_associate)}},
        {"coord_udm_associate", {coord_udm_associate, std::size(coord_udm_associate)}},
        {"m_udm_associate", {m_udm_associate, std::size(m_udm_associate)}},
        {"pos_udm_associate", {pos_udm_associate, std::size(pos_udm_associate)}},
        {"kg_sec_udm_associate", {kg_sec_udm_associate, std::size(kg_sec_udm_associate)}},
        {"afr_udm_associate", {afr_udm_associate, std::size(afr_udm_associate)}},
        {"hash_udm_associate", {hash_udm_associate, std::size(hash_udm_associate)}},
        {"rpm_udm_associate", {rpm_udm_associate, std::size(rpm_udm_associate)}},
        {"rpm_s_udm_associate", {rpm_s_udm_associate, std::size(rpm_s_udm_associate)}},
        {"lambda_udm_associate", {lambda_udm_associate, std::size(lambda_udm_associate)}},
        {"lambda_tot_udm_associate", {lambda_tot_udm_associate, std::size(lambda_tot_udm_associate)}},
        {"gear_udm_associate", {gear_udm_associate, std::size(gear_udm_associate)}},
        {"Nm_udm_associate", {Nm_udm_associate, std::size(Nm_udm_associate)}},
        {"l_lap_udm_associate", {l_lap_udm_associate, std::size(l_lap_udm_associate)}},
        {"date_udm_associate", {date_udm_associate, std::size(date_udm_associate)}},
        {"pckt_udm_associate", {pckt_udm_associate, std::size(pckt_udm_associate)}},
        {"A_udm_associate", {A_udm_associate, std::size(A_udm_associate)}},
        {"-", {}},
    };
    return tabelle.at(nome);
}

Varianti variantiDi(const std::string& nome) {
    static const std::map<std::string, Varianti> tabelle = {
        {"z4_pres_brk", {z4_pres_brk, std::size(z4_pres_brk)}},
        {"z4_velocity", {z4_velocity, std::size(z4_velocity)}},
        {"z4_time_off", {z4_time_off, std::size(z4_time_off)}},
        {"z4_num_lambda", {z4_num_lambda, std::size(z4_num_lambda)}},
        {"z4_speed", {z4_speed, std::size(z4_speed)}},
        {"-", {}},
    };
    return tabelle.at(nome);
}

Scelte scelteDi(const std::string& nome) {
    static const std::map<std::string, Scelte> tabelle = {
        {"ios_completo", {ios_completo, std::size(ios_completo)}},
        {"ios_solo_inout", {ios_solo_inout, std::size(ios_solo_inout)}},
        {"udfrlrs_solo_fr", {udfrlrs_solo_fr, std::size(udfrlrs_solo_fr)}},
        {"udfrlrs_solo_frlr", {udfrlrs_solo_frlr, std::size(udfrlrs_solo_frlr)}},
        {"-", {}},
    };
    return tabelle.at(nome);
}

const s_sottocampo* sottocampiDi(const std::string& nome) {
    if (nome == "gps_kel")
        return sottocampi_gps_kel;
    if (nome == "lap_2G")
        return sottocampi_lap_time_2G;
    if (nome == "gps_navsol")
        return search_sottocampi_struct(3, 1);
    if (nome == "lap_1G")
        return search_sottocampi_struct(1, 1);
    return search_sottocampi_struct(2, 0);
}

s_converter_data datiDi(const modello::RigaUdm& riga) {
    return {riga.testo.c_str(), riga.offset, riga.gain, riga.reciproco};
}

s_kel_canale canaleDi(const modello::Canale& canale) {
    s_kel_canale record{};
    record.fid = canale.fid;
    record.tipo_campione = canale.tipo;
    record.offset_campione = canale.offset;
    return record;
}

IFunzioni& catalogo() {
    static const std::unique_ptr<IFunzioni> uno(IFunzioni::CreateMe());
    return *uno;
}

}  // namespace esaustivo
