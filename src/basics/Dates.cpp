#include "basics/Dates.h"

#include <array>
#include <cstdio>
#include <ctime>

#include "basics/Fault.h"
#include "basics/LocalTime.h"
#include "basics/Text.h"

namespace zelvo::basics {
namespace {

/// Takes digits and marks from the front of a text, and remembers whether all that was asked for stood there.
class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    int digits(std::size_t count) {
        int value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const char c = i < rest_.size() ? rest_[i] : ' ';
            if (c < '0' || c > '9') {
                sound_ = false;
                return 0;
            }
            value = value * 10 + (c - '0');
        }
        rest_.remove_prefix(count);
        return value;
    }
    /// The mark that stands next, if it is one of `marks`.
    char mark(std::string_view marks) {
        if (rest_.empty() || marks.find(rest_.front()) == std::string_view::npos) {
            sound_ = false;
            return '\0';
        }
        const char found = rest_.front();
        rest_.remove_prefix(1);
        return found;
    }
    bool atEnd() const { return rest_.empty(); }
    bool sound() const { return sound_; }
    std::string_view rest() const { return rest_; }

private:
    std::string_view rest_;
    bool sound_ = true;
};

Date readDate(Reader& reader, std::string_view marks) {
    Date date;
    date.year = reader.digits(4);
    const char mark = reader.mark(marks);
    date.month = reader.digits(2);
    reader.mark(std::string_view(&mark, 1));
    date.day = reader.digits(2);
    return date;
}

bool isFraction(std::string_view text) {
    return text.size() > 1 && text.front() == '.' &&
           text.substr(1).find_first_not_of("0123456789") == std::string_view::npos;
}

int daysIn(int year, int month) {
    constexpr std::array<int, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : days[static_cast<std::size_t>(month - 1)];
}

}  // namespace

Date today() {
    return now().date;
}

DateTime now() {
    const std::tm local = localTime(std::time(nullptr));
    return {
        {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}, local.tm_hour, local.tm_min, local.tm_sec};
}

bool isValid(const Date& date) {
    return date.year >= 1 && date.year <= 9999 && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
           date.day <= daysIn(date.year, date.month);
}

std::optional<Date> parseDate(std::string_view text) {
    Reader reader(text);
    const Date date = readDate(reader, "-");
    if (!reader.sound() || !reader.atEnd() || !isValid(date)) return std::nullopt;
    return date;
}

std::optional<DateTime> parseDateTime(std::string_view text) {
    const std::string trimmed = trim(text);
    Reader reader(trimmed);
    DateTime value;
    value.date = readDate(reader, "-/");
    if (!reader.sound() || !isValid(value.date)) return std::nullopt;
    if (reader.atEnd()) return value;
    reader.mark(" T");
    value.hour = reader.digits(2);
    reader.mark(":");
    value.minute = reader.digits(2);
    reader.mark(":");
    value.second = reader.digits(2);
    if (!reader.sound() || value.hour > 23 || value.minute > 59 || value.second > 59) return std::nullopt;
    if (!reader.atEnd() && !isFraction(reader.rest())) return std::nullopt;
    return value;
}

std::string dateText(const Date& date) {
    std::array<char, 48> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%04d-%02d-%02d", date.year, date.month, date.day);
    return buffer.data();
}

std::string dateTimeText(const DateTime& value) {
    std::array<char, 48> buffer{};
    std::snprintf(buffer.data(), buffer.size(), " %02d:%02d:%02d", value.hour, value.minute, value.second);
    return dateText(value.date) + buffer.data();
}

std::string plainDateTimeText(const DateTime& value) {
    const bool midnight = value.hour == 0 && value.minute == 0 && value.second == 0;
    return midnight ? dateText(value.date) : dateTimeText(value);
}

std::string formatDate(std::string_view text) {
    const auto value = parseDateTime(text);
    if (!value) throwTypeMismatch();
    return dateText(value->date);
}

std::string formatDateTime(std::string_view text) {
    const auto value = parseDateTime(text);
    if (!value) throwTypeMismatch();
    return dateTimeText(*value);
}

}  // namespace zelvo::basics
