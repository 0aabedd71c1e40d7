#pragma once

#include <cstdint>
#include <string>

namespace zelvo::host {

/// What a chart hands over when it opens the window for a doctor, in the order of the call. For a nurse only
/// the first three count.
struct HostArguments {
    void* conSQL = nullptr;   ///< the chart's own connection; never touched, only handed on
    std::string YakGukIP;     ///< address of the pharmacy's database server
    std::string DoctorIDPWD;  ///< id "/$/" password; a nurse's accounts are joined by "#$#"
    std::int32_t PatientPK = 0;
    std::string PatientName, PatientJumin;
    std::int16_t PatientAge = 0;
    std::int16_t PatientSex = 0;  ///< 1 is male, any other value female
    std::string PatientCell, PatientTel, PatientEmail, PatientZipCode, PatientJuso;
    std::string HospitalName, DoctorName, HospitalTel, DoctorCell, HospitalZipCode, HospitalJuso;

    /// The same with every text made clean UTF-8: bytes that are none never enter the system.
    HostArguments clean() const;
};

}  // namespace zelvo::host
