// The switch of the mutants: every instrumented source includes it first.
#ifndef KEL_MUTATION_SWITCH_H
#define KEL_MUTATION_SWITCH_H

// The mutant that is on, 0 for none; and where it is noted which ones the run comes by, null unless that is asked for.
extern int kel_mutant_on;
extern unsigned char* kel_mutants_seen;

// Whether a mutant is on. What the compiler computes itself stays as it is.
constexpr bool kel_mutant(int number) noexcept {
    if (__builtin_is_constant_evaluated())
        return false;
    if (__builtin_expect(kel_mutants_seen != nullptr, 0))
        kel_mutants_seen[number] = 1;
    return number == kel_mutant_on;
}

#endif
