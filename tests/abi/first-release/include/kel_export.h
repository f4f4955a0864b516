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
/// Begins what has C linkage.
#define KEL_C_BEGIN extern "C" {
/// Ends what has C linkage.
#define KEL_C_END }
/// Gives an enumeration its 32-bit type in C++, where a value without an enumerator (read from a record, or cast from a
/// number) is then well defined; C has no such syntax and needs none.
#define KEL_ENUM : unsigned
/// Marks the small functions that live in the headers: usable in constant expressions in C++.
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
