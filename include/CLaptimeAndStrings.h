/// @file
/// Lap times and lap numbers as texts, both ways.
#ifndef CLAPTIMEANDSTRINGS_H
#define CLAPTIMEANDSTRINGS_H

#include <string>

#include "kel_export.h"

/// All operations are static and may run in any number of threads. Lap times are milliseconds. The locale changes
/// nothing.
class KEL_API CLaptimeAndStrings {
public:
    /// Lap time as text: "1:23.456", or from one hour on "1:02:03" (without the milliseconds).
    ///
    /// Every number gives a text. A negative time is taken as an unsigned number: -1 gives "71582:47.295". Programs
    /// compare these texts byte for byte, so they stay as they are.
    /// @param lapTime  milliseconds.
    static std::string LapTimeToStringa(int lapTime);

    /// Line of a lap list: the lap number, right-aligned in at least three characters, then " - ", then the lap time.
    ///
    /// For numbers 0 to 999 the time begins at position 6 (counted from 0), where `StringaToLapNumAndTime` reads it.
    /// @param lapNum   lap number.
    /// @param lapTime  milliseconds.
    static std::string LapNumAndTimeToStringa(int lapNum, int lapTime);

    /// Lap time of a text. No text is refused.
    ///
    /// A text has three fields, with one character between them; any character will do. With a "." anywhere in the text
    /// they are minutes, seconds and a number of thousandths ("1:23.4" is 83004). Without, they are hours, minutes and
    /// seconds. A missing field has the value of the field before it. A field without digits is 0, and a field above 32
    /// bits is 4294967295; both end the reading. Sums are modulo 2^32.
    /// @return milliseconds; 0 for an empty or blank text.
    static int StringaToLapTime(const std::string& text);

    /// Lap number and lap time of a line of a lap list; the time is read from position 6 on.
    ///
    /// @param text     the line.
    /// @param lapNum   receives the number at the start of the line, 0 when there is none.
    /// @param lapTime  receives the lap time; not changed when the text is too short.
    /// @throws std::out_of_range  "basic_string::substr", when the text has fewer than 6 characters. `lapNum` has been
    ///                            stored by then.
    static void StringaToLapNumAndTime(const std::string& text, int& lapNum, int& lapTime);
};

#endif
