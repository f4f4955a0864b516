/// @file
/// Lap times and lap numbers as texts, both ways.
#ifndef CLAPTIMEANDSTRINGS_H
#define CLAPTIMEANDSTRINGS_H

#include <string>

#include "kel_export.h"

/// Static operations only, in any number of threads. Lap times are milliseconds. No locale is looked at.
class KEL_API CLaptimeAndStrings {
public:
    /// Lap time as text: "1:23.456", or "1:02:03" (the milliseconds cut) from one hour on.
    ///
    /// Every number gives a text. Negative times go through unsigned arithmetic: -1 gives "71582:47.295"; clients
    /// compare these texts byte for byte.
    /// @param lapTime  milliseconds.
    static std::string LapTimeToStringa(int lapTime);

    /// Line of a lap list: the lap number right-aligned in at least three characters, " - ", the lap time.
    ///
    /// For numbers 0 to 999 the time begins at position 6, where `StringaToLapNumAndTime` looks for it.
    /// @param lapNum   lap number.
    /// @param lapTime  milliseconds.
    static std::string LapNumAndTimeToStringa(int lapNum, int lapTime);

    /// Lap time of a text; never refuses one.
    ///
    /// Three fields a, b, c, with one character of any kind between them. With a "." anywhere they are minutes,
    /// seconds and thousandths as written ("1:23.4" is 83004), else hours, minutes and seconds. A field that is missing
    /// repeats the one before it; one without digits is 0 and ends the reading; one above 32 bits is 4294967295 and ends
    /// it too. Sums are taken modulo 2^32.
    /// @return milliseconds; 0 for an empty or blank text.
    static int StringaToLapTime(const std::string& text);

    /// Lap number and lap time of a line of a lap list; the time is read from position 6 on.
    ///
    /// @param text     the line.
    /// @param lapNum   receives the number at its start, 0 when there is none.
    /// @param lapTime  receives the lap time; left alone when the text is too short.
    /// @throws std::out_of_range  "basic_string::substr", when the text has fewer than 6 characters; `lapNum` is then
    ///                            set already.
    static void StringaToLapNumAndTime(const std::string& text, int& lapNum, int& lapTime);
};

#endif
