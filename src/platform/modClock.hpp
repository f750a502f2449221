#pragma once
// The program's clock: local time, or the time that SOURCE_DATE_EPOCH names, in UTC, so that output can be
// compared byte for byte.

#include <string>

namespace tarvek {

struct DateTime {
    int year, month, day, hour, minute, second;
};

DateTime Now();

// "mm/dd/yyyy" and "mm/dd/yyyy h:mm:ss", the form of every date in a survey file.
std::string DateText(const DateTime& when);
std::string DateTimeText(const DateTime& when);

}  // namespace tarvek
