/// @file
/// The object face of a converter: samples of one channel as values and texts in one unit.
#ifndef ICONVERTER_H
#define ICONVERTER_H

#include <string>

#include "kel_export.h"

/// A converter. Made by `IFunzioni::CreateConverter`, destroyed by its owner with `delete`.
///
/// Clients are compiled against the order of the operations: it never changes.
/// Reads may run in several threads; `SetNumDec` must not run beside a text read of the same converter.
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
    /// @param text    receives the characters and one NUL, which counts in its length: clients compare and print texts
    ///                with it. Empty when the result is false.
    /// @return whether the converter has a text function.
    virtual bool GetString(const void* buffer, std::string& text) = 0;

    /// Sets the decimals of the numeric text: 0, 1, 2, or 3 for any other number. Takes effect at the next text read.
    virtual void SetNumDec(int numDec) = 0;

protected:
    IConverter() = default;
    /// For derived classes.
    IConverter(const IConverter&) = default;
    /// For derived classes.
    IConverter& operator=(const IConverter&) = default;
};

#endif
