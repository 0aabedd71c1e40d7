#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "doctorzelvo/DoctorZELVO.hpp"

namespace chart {

/// What the command line says: whom the window is for and what the chart hands over. A text not given is
/// empty, a number 0.
struct ChartCall {
    bool nurse = false, console = false;
    std::string script, server, account;
    std::int32_t patientPk = 0;
    std::string patientName, patientJumin;
    std::int16_t patientAge = 0, patientSex = 0;
    std::string patientCell, patientTel, patientEmail, patientZip, patientAddress;
    std::string hospitalName, doctorName, hospitalTel, doctorCell, hospitalZip, hospitalAddress;

    /// Makes the call and returns when the window has closed.
    void make(doctorzelvo::clsZELVOInterface& component) const;
};

/// Reads the words behind the program's name, and the files of values that they name; false with the reason
/// in `error` when they can't be read. What stands twice counts as given the second time.
bool readChartCall(const std::vector<std::string>& words, ChartCall& call, std::string& error);

/// The same without a patient, who is chosen later: server, account and clinic only, no first word.
bool readClinic(const std::vector<std::string>& words, ChartCall& clinic, std::string& error);

/// How the programs are called: the one with a patient, the one without.
std::string chartUsage();
std::string clinicUsage();

/// Whether the words ask for the usage or the version alone, which is printed then.
bool tellsOfItself(const std::vector<std::string>& words, const std::string& program,
                   const std::string& usage);

}  // namespace chart
