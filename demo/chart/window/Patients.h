#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace chart {

/// A patient as the clinic's chart keeps him. `jumin` is the birth number, yymmdd-sxxxxxx.
struct Patient {
    std::int32_t pk = 0;
    std::string name, jumin, cell, tel, email, zip, address;
};

/// The patients of a text: one a line, the values in the order of Patient, parted by tabs. A line that is
/// none of that is left out.
std::vector<Patient> readPatients(const std::string& text);

/// 1 for a man, 2 for a woman; 0 where the birth number does not tell.
std::int16_t sexOf(const Patient& patient);
/// Full years on this day, 0 where the birth number does not tell.
std::int16_t ageOf(const Patient& patient, std::chrono::year_month_day today);

}  // namespace chart
