/// @file
/// The one implementation of `IConverter`.
#ifndef CCONVERTER_H
#define CCONVERTER_H

#include <list>

#include "IConverter.h"
#include "kelfunzioni.h"

/// A converter with its own converter record. It keeps a pointer to the unit data, which must exist longer than the
/// converter. It reads the channel record only in the constructor.
class KEL_API CConverter : public IConverter {
public:
    /// @param ch             the channel, at any address; never null.
    /// @param fid            the channel's own function, or that of one subfield of a packet channel.
    /// @param data           the unit, as `kelFunGetConvData` gives it; null stands for no conversion.
    /// @param sampleAtStart  true: reads are given the sample itself; false: a record of all samples.
    /// @param numDec         decimals of the numeric text.
    /// @param format         alignment of the numeric text.
    /// @param width          characters of the numeric text, the point not counted.
    CConverter(const s_kel_canale* ch, kel_funpos fid, const s_converter_data* data, bool sampleAtStart,
               unsigned int numDec, eFormatoConv format, unsigned int width);
    ~CConverter() override;

    bool GetVal(const void* buffer, float* value) override;
    bool GetString(const void* buffer, std::string& text) override;
    void SetNumDec(int numDec) override;

    /// Identifiers of the subfields of a packet function, in the order of the table, with the reserved rows (0).
    ///
    /// @param fid  a packet function; for any other the list is empty.
    /// @param out  emptied first.
    static void getAllInnerFunpos(kel_funpos fid, std::list<kel_funpos>& out);

private:
    s_kel_converter conv_;
};

#endif
