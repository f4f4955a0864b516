// What messages call the choices of whoever reads: the members of the C face, or the options of a program on top of it.
#ifndef KEL_REGISTRAZIONI_PAROLE_H
#define KEL_REGISTRAZIONI_PAROLE_H

namespace kel_registrazioni {

struct Parole {
    const char* orario = "orario";         ///< the framing
    const char* compatta = "compatta";     ///< samples one behind the other
    const char* linea = "linea";           ///< the finish line
    const char* minimo = "minimo";         ///< the shortest lap
    const char* intermedio = "intermedi";  ///< the end of a sector
};

/// The face's own words. They stand once in read-only data; a copy on the stack is made from writable data by gcc for ARM.
inline constexpr Parole PAROLE_DELLA_FACCIA;

}  // namespace kel_registrazioni

#endif
