#include "host/HostArguments.h"

#include "basics/Utf8.h"

namespace zelvo::host {

HostArguments HostArguments::clean() const {
    HostArguments copy = *this;
    for (std::string* text :
         {&copy.YakGukIP, &copy.DoctorIDPWD, &copy.PatientName, &copy.PatientJumin, &copy.PatientCell,
          &copy.PatientTel, &copy.PatientEmail, &copy.PatientZipCode, &copy.PatientJuso, &copy.HospitalName,
          &copy.DoctorName, &copy.HospitalTel, &copy.DoctorCell, &copy.HospitalZipCode, &copy.HospitalJuso}) {
        *text = basics::cleanUtf8(*text);
    }
    return copy;
}

}  // namespace zelvo::host
