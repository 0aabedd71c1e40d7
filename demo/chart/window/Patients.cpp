#include "Patients.h"

#include <array>
#include <charconv>
#include <optional>
#include <sstream>

namespace chart {

namespace {

constexpr std::size_t sexAt = 7;  // in a birth number, behind its hyphen

template <class Number>
bool readNumber(const std::string& text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

std::vector<std::string> words(const std::string& line) {
    std::vector<std::string> found;
    std::istringstream in(line + "\t");
    for (std::string word; std::getline(in, word, '\t');) found.push_back(word);
    return found;
}

/// The digit that tells the sex and the century: 1 and 2 were born in the 1900s, 3 and 4 in the 2000s.
std::optional<int> sexDigit(const std::string& jumin) {
    if (jumin.size() <= sexAt || jumin[sexAt] < '1' || jumin[sexAt] > '4') return std::nullopt;
    return jumin[sexAt] - '0';
}

std::optional<std::chrono::year_month_day> birthday(const std::string& jumin) {
    const auto digit = sexDigit(jumin);
    int number = 0;
    if (!digit || !readNumber(jumin.substr(0, sexAt - 1), number)) return std::nullopt;
    const int century = *digit <= 2 ? 1900 : 2000;
    const std::chrono::year_month_day day{std::chrono::year(century + number / 10000),
                                          std::chrono::month(static_cast<unsigned>(number / 100 % 100)),
                                          std::chrono::day(static_cast<unsigned>(number % 100))};
    return day.ok() ? std::optional(day) : std::nullopt;
}

}  // namespace

std::vector<Patient> readPatients(const std::string& text) {
    std::vector<Patient> patients;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const auto values = words(line);
        Patient patient;
        const std::array targets{&patient.name,  &patient.jumin, &patient.cell,   &patient.tel,
                                 &patient.email, &patient.zip,   &patient.address};
        if (values.size() != targets.size() + 1 || !readNumber(values[0], patient.pk)) continue;
        for (std::size_t i = 0; i < targets.size(); ++i) *targets[i] = values[i + 1];
        patients.push_back(patient);
    }
    return patients;
}

std::int16_t sexOf(const Patient& patient) {
    const auto digit = sexDigit(patient.jumin);
    if (!digit) return 0;
    return *digit % 2 == 1 ? 1 : 2;
}

std::int16_t ageOf(const Patient& patient, std::chrono::year_month_day today) {
    const auto born = birthday(patient.jumin);
    if (!born || *born > today) return 0;
    const bool before =
        today.month() < born->month() || (today.month() == born->month() && today.day() < born->day());
    return static_cast<std::int16_t>((today.year() - born->year()).count() - (before ? 1 : 0));
}

}  // namespace chart
