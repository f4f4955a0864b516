/// @file
/// The function identifier: its layout, the value of every field, and small functions that take it apart and compose
/// it.
///
/// A channel says what it measures with one 32-bit value, `kel_funpos`:
///
///     31 29 28 27 26 25 24 23 22  21 20 19    15 14        7 6        0
///    +-----+-----+-----+-----+---+-----+--------+-----------+----------+
///    |  0  |up/dn|fr/re|le/ri| 0 |in/ou|position|  object   | quantity |   sides
///    +-----+-----+-----+-----+---+-----+--------+-----------+----------+
///    |  0  | instance number | 1 |in/ou|position|  object   | quantity |   numbered
///    +-----+-----------------+---+-----+--------+-----------+----------+
///
/// A packet is a sample that holds several quantities. For packets (quantity `FID_PHI_PACKAGE`) the object field holds
/// the details (lap, date and time, or GPS) and the position field the specialisation (which version of the packet). A
/// field that is 0 is not given; in a request it matches any value.
#ifndef KEL_IDENTIFICATORI_H
#define KEL_IDENTIFICATORI_H

#include <stdint.h>

#include "kel_export.h"

// clang-format off

/// The function identifier (FID).
typedef uint32_t kel_funpos;

/// Physical quantity: bits 0 to 6.
typedef enum GRANDEZZA_FISICA_FUNZKEL KEL_ENUM {
    FID_PHI_UNDEFINED          = 0,
    FID_PHI_PERCENT            = 1,
    FID_PHI_PERCENT_SEC_RATIO  = 2,
    FID_PHI_ACCELERATION       = 3,
    FID_PHI_ANGLE              = 4,
    FID_PHI_ANGLE_SEC_RATIO    = 5,
    FID_PHI_CODE               = 6,
    FID_PHI_COORDINATE         = 7,
    FID_PHI_DISTANCE           = 8,
    FID_PHI_FREQUENCY          = 9,
    FID_PHI_MASS_SEC_RATIO     = 10,
    FID_PHI_NUMBER             = 11,
    FID_PHI_POSITION           = 12,
    FID_PHI_POWER              = 13,
    FID_PHI_PRESSURE           = 14,
    FID_PHI_RPM                = 15,
    FID_PHI_SPEED              = 16,
    FID_PHI_TEMPERATURE        = 17,
    FID_PHI_TIME               = 18,
    FID_PHI_TORQUE             = 19,
    FID_PHI_VELOCITY           = 20,
    FID_PHI_VOLTAGE            = 21,
    FID_PHI_VOLUME             = 22,
    FID_PHI_VOLUME_LAP_PRODUCT = 23,
    FID_PHI_VOLUME_SEC_RATIO   = 24,
    FID_PHI_DATE               = 25,
    FID_PHI_PACKAGE            = 26,
    FID_PHI_CURRENT            = 27,
    FID_PHI_CUSTOM             = 28,
    FID_PHI_RPM_SEC            = 29,
    FID_PHI_LAMBDA             = 30,
    FID_PHI_GEAR               = 31
} GRANDEZZA_FISICA_FUNZKEL;

/// Measured object: bits 7 to 14. Of their 256 values, 0 to 57 have a meaning. 58 to 255 are objects too, without a
/// name: the field is as wide as it is in recordings.
typedef enum OGGETTO_MISURATO_FUNZKEL KEL_ENUM {
    FID_OBJ_UNDEFINED                = 0,
    FID_OBJ_AIR                      = 1,
    FID_OBJ_ALTITUDE                 = 2,
    FID_OBJ_BATTERY                  = 3,
    FID_OBJ_BRAKE_FLUID              = 4,
    FID_OBJ_BRAKE_LOAD               = 5,
    FID_OBJ_CLUTCH_ENGAGEMENT        = 6,
    FID_OBJ_DETONATION               = 7,
    FID_OBJ_ENGINE_LOAD              = 8,
    FID_OBJ_ENGINE_OUTPUT            = 9,
    FID_OBJ_ERROR                    = 10,
    FID_OBJ_FUEL                     = 11,
    FID_OBJ_GEAR                     = 12,
    FID_OBJ_HEADING                  = 13,
    FID_OBJ_IGNITION_ADVANCE         = 14,
    FID_OBJ_INJECTION                = 15,
    FID_OBJ_INJECTION_ADVANCE        = 16,
    FID_OBJ_INJECTION_LOAD           = 17,
    FID_OBJ_LAMBDA                   = 18,
    FID_OBJ_LAP                      = 19,
    FID_OBJ_LATITUDE                 = 20,
    FID_OBJ_LONGITUDE                = 21,
    FID_OBJ_LOGGING_ODOMETER         = 22,
    FID_OBJ_OIL                      = 23,
    FID_OBJ_PEDAL_LOAD               = 24,
    FID_OBJ_RATIO                    = 25,
    FID_OBJ_SLIPPAGE                 = 26,
    FID_OBJ_STEERING                 = 27,
    FID_OBJ_SWITCH                   = 28,
    FID_OBJ_THROTTLE_LOAD            = 29,
    FID_OBJ_THROTTLE_LOAD_DERIVATIVE = 30,
    FID_OBJ_UNDERSTEER               = 31,
    FID_OBJ_VIDEORECORDING           = 32,
    FID_OBJ_WATER                    = 33,
    FID_OBJ_X                        = 34,
    FID_OBJ_Y                        = 35,
    FID_OBJ_Z                        = 36,
    FID_OBJ_HORIZONTAL_PLANE         = 37,
    FID_OBJ_BEST_LAP                 = 38,
    FID_OBJ_PREDICTIVE               = 39,
    FID_OBJ_SATELLITE                = 40,
    FID_OBJ_SLOPE                    = 41,
    FID_OBJ_MASTER_CLOCK             = 42,
    FID_OBJ_STATUS                   = 43,
    FID_OBJ_TOTAL_ODOMETER           = 44,
    FID_OBJ_RESETTABLE_ODOMETER      = 45,
    FID_OBJ_RUNNING_LAP              = 46,
    FID_OBJ_SPLIT                    = 47,
    FID_OBJ_BEST_SPLIT               = 48,
    FID_OBJ_SHAFT                    = 49,
    FID_OBJ_SESSION                  = 50,
    FID_OBJ_ACCURACY                 = 51,
    FID_OBJ_CUSTOM                   = 52,
    FID_OBJ_STATUS_ON                = 53,
    FID_OBJ_STATUS_OFF               = 54,
    FID_OBJ_PREDICTIVE_VS_BEST_DIFF  = 55,
    FID_OBJ_PREDICTIVE_VS_PREC_DIFF  = 56,
    FID_OBJ_PREDICTIVE_VS_REF_DIFF   = 57
} OGGETTO_MISURATO_FUNZKEL;

/// Position on the vehicle: bits 15 to 19.
typedef enum POSIZIONE_FUNZKEL KEL_ENUM {
    FID_POS_UNDEFINED      = 0,
    FID_POS_ADMISSION      = 1,
    FID_POS_KELDEVICE      = 2,
    FID_POS_BRAKE          = 3,
    FID_POS_CLUTCH         = 4,
    FID_POS_ECU            = 5,
    FID_POS_ENGINE         = 6,
    FID_POS_ENVIRONMENT    = 7,
    FID_POS_EXHAUST        = 8,
    FID_POS_GEARBOX        = 9,
    FID_POS_STEERING       = 10,
    FID_POS_SUSPENSION     = 11,
    FID_POS_TRANSMISSION   = 12,
    FID_POS_VEHICLE        = 13,
    FID_POS_WHEEL          = 14,
    FID_POS_COOLING_SYSTEM = 15,
    FID_POS_EVENT_RUN      = 16,
    FID_POS_AERODYNAMICS   = 17,
    FID_POS_RACER          = 18,
    FID_POS_TRACK          = 19,
    FID_POS_CUSTOM         = 20,
    FID_POS_GPS            = 21,
    FID_POS_DIFFERENTIAL   = 22
} POSIZIONE_FUNZKEL;

/// In/out: bits 20 and 21.
enum {
    FID_INOUT_UNDEF  = 0,
    FID_INOUT_OUT    = 1,
    FID_INOUT_IN     = 2,
    FID_INOUT_CENTER = 3
};

/// Left/right: bits 23 and 24, when bit 22 is clear.
enum {
    FID_LEFTRIGHT_UNDEF  = 0,
    FID_LEFTRIGHT_RIGHT  = 1,
    FID_LEFTRIGHT_LEFT   = 2,
    FID_LEFTRIGHT_CENTER = 3
};

/// Front/rear: bits 25 and 26, when bit 22 is clear.
enum {
    FID_FRONTREAR_UNDEF  = 0,
    FID_FRONTREAR_REAR   = 1,
    FID_FRONTREAR_FRONT  = 2,
    FID_FRONTREAR_CENTER = 3
};

/// Up/down: bits 27 and 28, when bit 22 is clear.
enum {
    FID_UPDOWN_UNDEF  = 0,
    FID_UPDOWN_DOWN   = 1,
    FID_UPDOWN_UP     = 2,
    FID_UPDOWN_CENTER = 3
};

/// Kind of packet: bits 7 to 14 of an identifier of quantity `FID_PHI_PACKAGE`.
enum {
    FID_DETTAGLI_UNDEF    = 0,
    FID_DETTAGLI_LAPTIME  = 1,
    FID_DETTAGLI_DATETIME = 2,
    FID_DETTAGLI_GPS      = 3
};

/// GPS packets: bits 15 to 19 of an identifier with details `FID_DETTAGLI_GPS`.
enum {
    FID_SPEC_GPS_KELNAVSOL = 0,
    FID_SPEC_GPS_UBXNAVSOL = 1
};

/// Lap packets: bits 15 to 19 of an identifier with details `FID_DETTAGLI_LAPTIME`.
enum {
    FID_SPEC_LAPTIME_KEL2G   = 0,
    FID_SPEC_LAPTIME_KEL1G   = 1,
    FID_SPEC_LAPTIME_KEL2Gv2 = 2
};

/// Shift and mask of every field. To read a field, shift right first, then mask.
enum {
    FID_SHIFT_PHI       = 0,  FID_MASK_PHI       = 0x7F,  ///< physical quantity
    FID_SHIFT_OBJ       = 7,  FID_MASK_OBJ       = 0xFF,  ///< measured object, or packet details
    FID_SHIFT_POS       = 15, FID_MASK_POS       = 0x1F,  ///< position, or packet specialisation
    FID_SHIFT_INOUT     = 20, FID_MASK_INOUT     = 3,     ///< in/out
    FID_SHIFT_NUMBERED  = 22, FID_MASK_NUMBERED  = 1,     ///< set: bits 23 to 28 are an instance number
    FID_SHIFT_NUMBER    = 23, FID_MASK_NUMBER    = 0x3F,  ///< instance number
    FID_SHIFT_LEFTRIGHT = 23, FID_MASK_LEFTRIGHT = 3,     ///< left/right
    FID_SHIFT_FRONTREAR = 25, FID_MASK_FRONTREAR = 3,     ///< front/rear
    FID_SHIFT_UPDOWN    = 27, FID_MASK_UPDOWN    = 3      ///< up/down
};

/// The end marker of tables whose rows are found by an identifier: each field is one above its last value.
/// The first row with this quantity and this object is the end of the table, whatever its other bits are.
enum {
    FID_PHI_FINE_TABELLA = 32,
    FID_OBJ_FINE_TABELLA = 58,
    FID_POS_FINE_TABELLA = 23
};

KEL_C_BEGIN

/// Physical quantity of an identifier, 0 to 127.
KEL_PURA unsigned kelFidGrandezza(kel_funpos fid) { return (fid >> FID_SHIFT_PHI) & FID_MASK_PHI; }

/// Measured object of an identifier, 0 to 255; the packet details when the quantity is `FID_PHI_PACKAGE`.
KEL_PURA unsigned kelFidOggetto(kel_funpos fid) { return (fid >> FID_SHIFT_OBJ) & FID_MASK_OBJ; }

/// Position of an identifier, 0 to 31; the packet specialisation when the quantity is `FID_PHI_PACKAGE`.
KEL_PURA unsigned kelFidPosizione(kel_funpos fid) { return (fid >> FID_SHIFT_POS) & FID_MASK_POS; }

/// In/out field of an identifier, 0 to 3.
KEL_PURA unsigned kelFidInOut(kel_funpos fid) { return (fid >> FID_SHIFT_INOUT) & FID_MASK_INOUT; }

/// 1 when the identifier has an instance number in place of the sides, else 0.
KEL_PURA unsigned kelFidNumerato(kel_funpos fid) { return (fid >> FID_SHIFT_NUMBERED) & FID_MASK_NUMBERED; }

/// Instance number of an identifier, 0 to 63. Use it only when `kelFidNumerato` is 1.
KEL_PURA unsigned kelFidNumero(kel_funpos fid) { return (fid >> FID_SHIFT_NUMBER) & FID_MASK_NUMBER; }

/// Left/right field of an identifier, 0 to 3. Use it only when `kelFidNumerato` is 0.
KEL_PURA unsigned kelFidLeftRight(kel_funpos fid) { return (fid >> FID_SHIFT_LEFTRIGHT) & FID_MASK_LEFTRIGHT; }

/// Front/rear field of an identifier, 0 to 3. Use it only when `kelFidNumerato` is 0.
KEL_PURA unsigned kelFidFrontRear(kel_funpos fid) { return (fid >> FID_SHIFT_FRONTREAR) & FID_MASK_FRONTREAR; }

/// Up/down field of an identifier, 0 to 3. Use it only when `kelFidNumerato` is 0.
KEL_PURA unsigned kelFidUpDown(kel_funpos fid) { return (fid >> FID_SHIFT_UPDOWN) & FID_MASK_UPDOWN; }

/// Composes an identifier from quantity, object (or packet details) and position (or packet specialisation).
/// Bits of an argument above its field are ignored. Add sides with `|`: `kelFidComponi(...) | kelFidLati(...)`.
KEL_PURA kel_funpos kelFidComponi(unsigned grandezza, unsigned oggetto, unsigned posizione) {
    return (grandezza & FID_MASK_PHI) << FID_SHIFT_PHI | (oggetto & FID_MASK_OBJ) << FID_SHIFT_OBJ |
           (posizione & FID_MASK_POS) << FID_SHIFT_POS;
}

/// The in/out bits of an identifier. Add them with `|`.
KEL_PURA kel_funpos kelFidBitInOut(unsigned inout) { return (inout & FID_MASK_INOUT) << FID_SHIFT_INOUT; }

/// The side bits of an identifier. Add them with `|`.
KEL_PURA kel_funpos kelFidLati(unsigned leftright, unsigned frontrear, unsigned updown) {
    return (leftright & FID_MASK_LEFTRIGHT) << FID_SHIFT_LEFTRIGHT |
           (frontrear & FID_MASK_FRONTREAR) << FID_SHIFT_FRONTREAR | (updown & FID_MASK_UPDOWN) << FID_SHIFT_UPDOWN;
}

/// The instance number of an identifier with its flag (bit 22). Add it with `|`, in place of the sides.
KEL_PURA kel_funpos kelFidIstanza(unsigned numero) {
    return 1u << FID_SHIFT_NUMBERED | (numero & FID_MASK_NUMBER) << FID_SHIFT_NUMBER;
}

/// 1 when the identifier is the end marker of a table, else 0. Only quantity and object are compared.
KEL_PURA int kelFidFineTabella(kel_funpos fid) {
    return kelFidGrandezza(fid) == FID_PHI_FINE_TABELLA && kelFidOggetto(fid) == FID_OBJ_FINE_TABELLA;
}

KEL_C_END
// clang-format on

#endif
