#include <algorithm>
#include <exception>
#include <functional>
#include <string>

#include "doctorzelvo/DoctorZELVO.hpp"
#include "doctorzelvo/doctorzelvo.h"

// The C functions over the public class. No exception leaves them.
namespace {

std::string text(const char* handed) {
    return handed ? handed : "";
}

/// Puts the reason where the caller wants it; a character is not cut in two.
void tell(const std::string& reason, char* error, std::size_t size) {
    if (!error || size == 0) return;
    std::size_t length = std::min(reason.size(), size - 1);
    const auto continues = [&](std::size_t at) {
        return (static_cast<unsigned char>(reason[at]) & 0xC0U) == 0x80U;
    };
    while (length > 0 && length < reason.size() && continues(length)) --length;
    std::copy_n(reason.data(), length, error);
    error[length] = '\0';
}

/// One call of the component. 0 when it went its way.
int call(doctorzelvo_send2chart send2chart, void* chart, char* error, std::size_t size,
         const std::function<void(doctorzelvo::clsZELVOInterface&)>& make) {
    tell("", error, size);
    std::string reason;
    try {
        doctorzelvo::clsZELVOInterface component;
        component.Send2Chart = [&](const doctorzelvo::ChartRecord& order) {
            if (!send2chart) return;
            const doctorzelvo_chart_record record{
                order.strJob.c_str(),     order.intChupSu,    order.intPouchAmount,
                order.sglDayTuYak,        order.intTuyakilsu, order.intPouchTotal,
                order.strMessage.c_str(), order.lngSumCost,   order.strxDrugList.c_str()};
            send2chart(&record, chart);
        };
        make(component);
        reason = component.errorText();
    } catch (const std::exception& failure) {
        reason = failure.what();
        if (reason.empty()) reason = "ZELVO failed";
    }
    if (reason.empty()) return 0;
    tell(reason, error, size);
    return 1;
}

}  // namespace

int doctorzelvo_interface(void* conSQL, const char* YakGukIP, const char* DoctorIDPWD,
                          const doctorzelvo_patient* patient, doctorzelvo_send2chart send2chart, void* chart,
                          char* error, size_t error_size) {
    const doctorzelvo_patient who = patient ? *patient : doctorzelvo_patient{};
    return call(send2chart, chart, error, error_size, [&](doctorzelvo::clsZELVOInterface& component) {
        component.ZELVOInterface(conSQL, text(YakGukIP), text(DoctorIDPWD), who.PatientPK,
                                 text(who.PatientName), text(who.PatientJumin), who.PatientAge,
                                 who.PatientSex, text(who.PatientCell), text(who.PatientTel),
                                 text(who.PatientEmail), text(who.PatientZipCode), text(who.PatientJuso),
                                 text(who.HospitalName), text(who.DoctorName), text(who.HospitalTel),
                                 text(who.DoctorCell), text(who.HospitalZipCode), text(who.HospitalJuso));
    });
}

int doctorzelvo_interface_nurse(void* conSQL, const char* YakGukIP, const char* DoctorIDPWD,
                                doctorzelvo_send2chart send2chart, void* chart, char* error,
                                size_t error_size) {
    return call(send2chart, chart, error, error_size, [&](doctorzelvo::clsZELVOInterface& component) {
        component.ZELVOInterface_Nurse(conSQL, text(YakGukIP), text(DoctorIDPWD));
    });
}

int doctorzelvo_shutdown(void) {
    try {
        return doctorzelvo::shutdown() ? 1 : 0;
    } catch (const std::exception&) {
        return 0;
    }
}
