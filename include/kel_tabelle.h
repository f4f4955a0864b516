/// @file
/// The constant tables, exported under their own names with their row counts.
///
/// Programs may read the tables directly, and compare their addresses with pointers that the functions return. As long
/// as the soname of the library stays the same, a table does not change and does not grow. A table whose rows are found
/// by an identifier ends with an end row: quantity 32 and object 58 (`kelFidFineTabella`). The end row counts in the
/// size.
#ifndef KEL_TABELLE_H
#define KEL_TABELLE_H

#include "kel_record.h"

KEL_C_BEGIN

// clang-format off

/// @name Values of the identifier's fields. Row i describes value i.
/// @{
extern KEL_API const s_campo_fid grandezza_fisica_FunzKel[32];         ///< physical quantity
extern KEL_API const s_campo_fid oggetto_misurato_FunzKel[58];         ///< measured object
extern KEL_API const s_campo_fid posizione_FunzKel[23];                ///< position
extern KEL_API const s_campo_fid inout_FunzKel[4];                     ///< in/out
extern KEL_API const s_campo_fid leftright_FunzKel[4];                 ///< left/right
extern KEL_API const s_campo_fid frontrear_FunzKel[4];                 ///< front/rear
extern KEL_API const s_campo_fid updown_FunzKel[4];                    ///< up/down
extern KEL_API const s_campo_fid dettagli_FunzKel[4];                  ///< packet details
extern KEL_API const s_campo_fid specializzazione_gps_FunzKel[2];      ///< specialisation of GPS packets
extern KEL_API const s_campo_fid specializzazione_laptime_FunzKel[3];  ///< specialisation of lap packets
/// @}

/// The quantity table: which units, names and variants each quantity and object has. The last row is the end row; its
/// key is 0x1D20.
extern KEL_API const s_grandezza_fisica_uiv uib_grandezza_fisica_uiv[66];

/// @name Position variants (functions with a name of their own at one position) and the choices that they offer.
/// @{
extern KEL_API const s_variante_posizione z4_pres_brk[2];    ///< brake pressure: brake, wheel
extern KEL_API const s_variante_posizione z4_velocity[1];    ///< velocity: suspension
extern KEL_API const s_variante_posizione z4_time_off[1];    ///< off time: engine
extern KEL_API const s_variante_posizione z4_num_lambda[1];  ///< air/fuel ratio: exhaust
extern KEL_API const s_variante_posizione z4_speed[2];       ///< speed: vehicle, wheel
extern KEL_API const s_scelta_fid ios_completo[3];           ///< in, out, centre; other numbers than `inout_FunzKel`
extern KEL_API const s_scelta_fid ios_solo_inout[2];         ///< out, in
extern KEL_API const s_scelta_fid udfrlrs_solo_fr[2];        ///< front, rear
extern KEL_API const s_scelta_fid udfrlrs_solo_frlr[6];      ///< front, rear and the four corners
/// @}

/// The unit code table: row i has code i.
extern KEL_API const s_codice_udm udm_codici[33];

/// @name Unit tables. Row 0 is the base unit.
/// @{
extern KEL_API const s_udm_associata NULL_udm_associate[1];        ///< no unit: what an identifier without units gets
extern KEL_API const s_udm_associata kmh_udm_associate[2];         ///< speed
extern KEL_API const s_udm_associata kmh_vel_udm_associate[7];     ///< velocity
extern KEL_API const s_udm_associata C_udm_associate[2];           ///< temperature
extern KEL_API const s_udm_associata bar_udm_associate[5];         ///< pressure
extern KEL_API const s_udm_associata bar_oil_udm_associate[3];     ///< oil pressure
extern KEL_API const s_udm_associata bar_brake_udm_associate[2];   ///< brake pressure
extern KEL_API const s_udm_associata g_udm_associate[1];           ///< acceleration
extern KEL_API const s_udm_associata km_udm_associate[7];          ///< long distance; no quantity uses it
extern KEL_API const s_udm_associata Hz_udm_associate[2];          ///< frequency
extern KEL_API const s_udm_associata ms_udm_associate[5];          ///< time
extern KEL_API const s_udm_associata s_udm_associate[4];           ///< time spent switched off
extern KEL_API const s_udm_associata time_udm_associate[1];        ///< lap time
extern KEL_API const s_udm_associata deg_udm_associate[2];         ///< angle
extern KEL_API const s_udm_associata mV_udm_associate[2];          ///< voltage
extern KEL_API const s_udm_associata battery_udm_associate[1];     ///< battery voltage, from millivolts
extern KEL_API const s_udm_associata deg_sec_udm_associate[5];     ///< angular velocity
extern KEL_API const s_udm_associata gyro_udm_associate[1];        ///< roll, pitch and yaw rate
extern KEL_API const s_udm_associata kW_sec_udm_associate[4];      ///< power
extern KEL_API const s_udm_associata l_udm_associate[2];           ///< volume
extern KEL_API const s_udm_associata l_sec_udm_associate[4];       ///< volume flow
extern KEL_API const s_udm_associata pct_udm_associate[1];         ///< percent
extern KEL_API const s_udm_associata pct_sec_udm_associate[1];     ///< percent per second
extern KEL_API const s_udm_associata code_udm_associate[1];        ///< code
extern KEL_API const s_udm_associata coord_alt_udm_associate[2];   ///< altitude
extern KEL_API const s_udm_associata coord_lat_udm_associate[1];   ///< latitude
extern KEL_API const s_udm_associata coord_lon_udm_associate[1];   ///< longitude
extern KEL_API const s_udm_associata coord_udm_associate[1];       ///< coordinate
extern KEL_API const s_udm_associata m_udm_associate[4];           ///< distance
extern KEL_API const s_udm_associata pos_udm_associate[2];         ///< position, from metres
extern KEL_API const s_udm_associata kg_sec_udm_associate[1];      ///< mass flow
extern KEL_API const s_udm_associata afr_udm_associate[1];         ///< air/fuel ratio
extern KEL_API const s_udm_associata hash_udm_associate[1];        ///< number
extern KEL_API const s_udm_associata rpm_udm_associate[1];         ///< rotational speed
extern KEL_API const s_udm_associata rpm_s_udm_associate[1];       ///< its rate of change
extern KEL_API const s_udm_associata lambda_udm_associate[1];      ///< lambda of one engine or probe
extern KEL_API const s_udm_associata lambda_tot_udm_associate[1];  ///< lambda
extern KEL_API const s_udm_associata gear_udm_associate[1];        ///< gear
extern KEL_API const s_udm_associata Nm_udm_associate[1];          ///< torque
extern KEL_API const s_udm_associata l_lap_udm_associate[1];       ///< volume on a lap
extern KEL_API const s_udm_associata date_udm_associate[1];        ///< date
extern KEL_API const s_udm_associata pckt_udm_associate[1];        ///< packet
extern KEL_API const s_udm_associata A_udm_associate[1];           ///< current
/// @}

/// @name Subfields of packets. The last row is the end row.
/// @{
extern KEL_API const s_sottocampo sottocampi_gps_kel[9];       ///< the logger's 56-byte GPS solution packet
extern KEL_API const s_sottocampo sottocampi_lap_time_2G[13];  ///< the 28-byte lap packet of the second generation
/// @}

/// @name Functions that the on-board camera can show. The last row is the end row.
/// @{
extern KEL_API const t_SFunzioneZumikoCam funz_ZumikoCam_base[20];    ///< basic functions
extern KEL_API const t_SFunzioneZumikoCam funz_ZumikoCam_estese[23];  ///< extended functions
/// @}

/// Legacy identifiers that are not rows of the camera tables. The last row is the end row.
extern KEL_API const t_SFunzioneVecchia funz_Kel[20];

// clang-format on

KEL_C_END

#endif
