/// @file
/// The export mark and the few places where C and C++ differ. Every other public header includes this one.
#ifndef KEL_EXPORT_H
#define KEL_EXPORT_H

/// Marks what a client program may link; everything else in the library is hidden.
#if defined(__GNUC__)
#define KEL_API __attribute__((visibility("default")))
#else
#define KEL_API
#endif

#ifdef __cplusplus
/// Begins declarations with C linkage.
#define KEL_C_BEGIN extern "C" {
/// Ends declarations with C linkage.
#define KEL_C_END }
/// Gives an enumeration a 32-bit type in C++. A value without a name, read from a record or cast from a number, is then
/// well defined. C has no such syntax and does not need it.
#define KEL_ENUM : unsigned
/// Marks the small functions that are defined in the headers. In C++ they may be used in constant expressions.
#define KEL_PURA constexpr
/// Says to C++ callers that a flat function never throws.
#define KEL_NOEXCEPT noexcept
#else
#define KEL_C_BEGIN
#define KEL_C_END
#define KEL_ENUM
#define KEL_PURA static inline
#define KEL_NOEXCEPT
#endif

#endif
