// What messages call the choices of whoever reads: the members of the C face, or the options of a program on top of it.
#ifndef KEL_REGISTRAZIONI_PAROLE_H
#define KEL_REGISTRAZIONI_PAROLE_H

namespace kel_registrazioni {

struct Parole {
    const char* orario = "orario";      ///< the framing
    const char* compatta = "compatta";  ///< samples one behind the other
};

}  // namespace kel_registrazioni

#endif
