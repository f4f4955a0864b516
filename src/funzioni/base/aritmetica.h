// What the arithmetic needs of the compiler, so that values have the same bits on every machine: intermediate results
// are no more precise than their type, and the rules of IEEE 754 hold. (Multiplications and additions are not fused
// either: the build passes -ffp-contract=off.)
//
// Every file that computes a value includes this one.
#ifndef KEL_BASE_ARITMETICA_H
#define KEL_BASE_ARITMETICA_H

#include <cfloat>
#include <limits>

#if !defined(FLT_EVAL_METHOD) || FLT_EVAL_METHOD != 0
#error "float arithmetic keeps excess precision here: on 32-bit x86 build with -msse2 -mfpmath=sse"
#endif
#ifdef __FAST_MATH__
#error "-ffast-math changes the values: build without it"
#endif

static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559,
              "samples and values are IEEE 754 numbers");

#endif
