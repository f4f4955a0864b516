/// @file
/// The object face of a converter: samples of one channel as values and texts in one unit.
#ifndef ICONVERTER_H
#define ICONVERTER_H

#include <string>

#include "kel_export.h"

/// A converter. `IFunzioni::CreateConverter` creates it; the caller destroys it with `delete`.
///
/// Compiled programs rely on the order of the operations, so it never changes.
/// Several threads may read at the same time. While one calls `SetNumDec`, no other may read a text with the same
/// converter.
class KEL_API IConverter {
public:
    virtual ~IConverter();

    /// Reads a value in the converter's unit; a bad sample reads as 0.
    ///
    /// @param buffer  the sample, or the record of samples, at any address.
    /// @param value   receives the value; 0 when the converter has no decoder.
    /// @return whether the converter has a decoder.
    virtual bool GetVal(const void* buffer, float* value) = 0;

    /// Reads a text.
    ///
    /// @param buffer  the sample, or the record of samples, at any address.
    /// @param text    receives the characters and one NUL. The NUL counts in the length, because programs compare and
    ///                print texts with it. Empty when the result is false.
    /// @return whether the converter has a text function.
    virtual bool GetString(const void* buffer, std::string& text) = 0;

    /// Sets the decimals of the numeric text: 0, 1, 2, or 3 for any other number. The next text has them.
    virtual void SetNumDec(int numDec) = 0;

protected:
    IConverter() = default;
    /// For derived classes.
    IConverter(const IConverter&) = default;
    /// For derived classes.
    IConverter& operator=(const IConverter&) = default;
};

#endif
