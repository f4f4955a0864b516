// Values of the side fields. 0 is a side that is not given, 3 the centre.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// In/out.
//   value             XML name            short  text
constexpr s_campo_fid inout_FunzKel[] = {
    {FID_INOUT_UNDEF,  "FID_INOUT_UNDEF",  "",    ""},
    {FID_INOUT_OUT,    "FID_INOUT_OUT",    "O",   "Out"},
    {FID_INOUT_IN,     "FID_INOUT_IN",     "I",   "In"},
    {FID_INOUT_CENTER, "FID_INOUT_CENTER", "M",   "Middle"},
};

// Left/right.
//   value                 XML name                short  text
constexpr s_campo_fid leftright_FunzKel[] = {
    {FID_LEFTRIGHT_UNDEF,  "FID_LEFTRIGHT_UNDEF",  "",    ""},
    {FID_LEFTRIGHT_RIGHT,  "FID_LEFTRIGHT_RIGHT",  "R",   "Right"},
    {FID_LEFTRIGHT_LEFT,   "FID_LEFTRIGHT_LEFT",   "L",   "Left"},
    {FID_LEFTRIGHT_CENTER, "FID_LEFTRIGHT_CENTER", "C",   "Center"},
};

// Front/rear. The centre is "xCenter", which tells it from the other centres in a composed name.
//   value                 XML name                short  text
constexpr s_campo_fid frontrear_FunzKel[] = {
    {FID_FRONTREAR_UNDEF,  "FID_FRONTREAR_UNDEF",  "",    ""},
    {FID_FRONTREAR_REAR,   "FID_FRONTREAR_REAR",   "R",   "Rear"},
    {FID_FRONTREAR_FRONT,  "FID_FRONTREAR_FRONT",  "F",   "Front"},
    {FID_FRONTREAR_CENTER, "FID_FRONTREAR_CENTER", "C",   "xCenter"},
};

// Up/down. The centre is "zCenter" for the same reason.
//   value              XML name             short  text
constexpr s_campo_fid updown_FunzKel[] = {
    {FID_UPDOWN_UNDEF,  "FID_UPDOWN_UNDEF",  "",    ""},
    {FID_UPDOWN_DOWN,   "FID_UPDOWN_DOWN",   "D",   "Down"},
    {FID_UPDOWN_UP,     "FID_UPDOWN_UP",     "U",   "Up"},
    {FID_UPDOWN_CENTER, "FID_UPDOWN_CENTER", "C",   "zCenter"},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(campo_in_regola(inout_FunzKel, "FID_INOUT_"),
              "row i describes value i; XML names unique; texts ASCII and in measure");
static_assert(campo_in_regola(leftright_FunzKel, "FID_LEFTRIGHT_"),
              "row i describes value i; XML names unique; texts ASCII and in measure");
static_assert(campo_in_regola(frontrear_FunzKel, "FID_FRONTREAR_"),
              "row i describes value i; XML names unique; texts ASCII and in measure");
static_assert(campo_in_regola(updown_FunzKel, "FID_UPDOWN_"),
              "row i describes value i; XML names unique; texts ASCII and in measure");

}  // namespace kel
