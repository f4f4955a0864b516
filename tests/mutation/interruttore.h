// The switch of the mutants: every instrumented source includes it first.
#ifndef KEL_MUTAZIONE_INTERRUTTORE_H
#define KEL_MUTAZIONE_INTERRUTTORE_H

// The mutant that is on, 0 for none; and, where it is asked for, which mutants the run came by.
extern int kel_mutante_acceso;
extern unsigned char* kel_mutanti_visti;

// Whether mutant `numero` is on. What the compiler computes itself stays as it is: there the mutants are changes of text.
constexpr bool kel_mutante(int numero) noexcept {
    if (__builtin_is_constant_evaluated())
        return false;
    if (__builtin_expect(kel_mutanti_visti != nullptr, 0))
        kel_mutanti_visti[numero] = 1;
    return numero == kel_mutante_acceso;
}

#endif
