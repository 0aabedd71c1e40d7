#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zelvo::basics {

struct Date {
    int year = 1900, month = 1, day = 1;
    auto operator<=>(const Date&) const = default;
};

struct DateTime {
    Date date;
    int hour = 0, minute = 0, second = 0;
};

/// The machine's local date and time.
Date today();
DateTime now();

/// True for a day that the calendar has.
bool isValid(const Date& date);
/// Reads "yyyy-mm-dd"; nothing when the text is no such day.
std::optional<Date> parseDate(std::string_view text);
/// Reads "yyyy-mm-dd", "yyyy-mm-dd hh:mm:ss" (a fraction of a second is dropped), "yyyy/mm/dd ..." and a "T"
/// between.
std::optional<DateTime> parseDateTime(std::string_view text);

/// "yyyy-mm-dd"
std::string dateText(const Date& date);
/// "yyyy-mm-dd hh:mm:ss", 24 hours
std::string dateTimeText(const DateTime& value);
/// The text of a date-time value as every driver says it: at midnight the date alone.
std::string plainDateTimeText(const DateTime& value);

/// A text through the pictures "yyyy-mm-dd" and "yyyy-mm-dd hh:mm:ss". Throws Fault for a text that is no
/// date.
std::string formatDate(std::string_view text);
std::string formatDateTime(std::string_view text);

}  // namespace zelvo::basics
