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

// Front/rear: the centre is "xCenter", to tell it from the other centres in a composed name.
//   value                 XML name                short  text
constexpr s_campo_fid frontrear_FunzKel[] = {
    {FID_FRONTREAR_UNDEF,  "FID_FRONTREAR_UNDEF",  "",    ""},
    {FID_FRONTREAR_REAR,   "FID_FRONTREAR_REAR",   "R",   "Rear"},
    {FID_FRONTREAR_FRONT,  "FID_FRONTREAR_FRONT",  "F",   "Front"},
    {FID_FRONTREAR_CENTER, "FID_FRONTREAR_CENTER", "C",   "xCenter"},
};

// Up/down: the centre is "zCenter" for the same reason.
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

static_assert(indice_uguale_valore(inout_FunzKel), "row i describes value i");
static_assert(xml_unici(inout_FunzKel, "FID_INOUT_"), "an XML name stands for one value");
static_assert(testi_in_misura(inout_FunzKel), "texts are ASCII and fit their fields");

static_assert(indice_uguale_valore(leftright_FunzKel), "row i describes value i");
static_assert(xml_unici(leftright_FunzKel, "FID_LEFTRIGHT_"), "an XML name stands for one value");
static_assert(testi_in_misura(leftright_FunzKel), "texts are ASCII and fit their fields");

static_assert(indice_uguale_valore(frontrear_FunzKel), "row i describes value i");
static_assert(xml_unici(frontrear_FunzKel, "FID_FRONTREAR_"), "an XML name stands for one value");
static_assert(testi_in_misura(frontrear_FunzKel), "texts are ASCII and fit their fields");

static_assert(indice_uguale_valore(updown_FunzKel), "row i describes value i");
static_assert(xml_unici(updown_FunzKel, "FID_UPDOWN_"), "an XML name stands for one value");
static_assert(testi_in_misura(updown_FunzKel), "texts are ASCII and fit their fields");

}  // namespace kel
