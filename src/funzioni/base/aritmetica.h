// Values have the same bits on every target: single precision is single precision, and nothing is fused.
// Included by every file that computes a value.
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
