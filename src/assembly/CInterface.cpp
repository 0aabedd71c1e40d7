#include <algorithm>
#include <cstddef>
#include <cstring>
#include <exception>
#include <functional>
#include <string>

#include "assembly/Component.h"
#include "assembly/Glass.h"
#include "assembly/WindowCall.h"
#include "doctorzelvo/doctorzelvo.h"

// What the library shows. No exception and no object of ours leaves these functions.
namespace {

using zelvo::assembly::Component;
using zelvo::assembly::WindowCall;
using zelvo::host::HostArguments;
using Tell = std::function<void(const char*)>;

std::string text(const char* handed) {
    return handed ? handed : "";
}

/// Whether the chart has said what it brings, at the least the way of an order.
bool saysItsSize(const doctorzelvo_chart* brought) {
    return !brought || brought->size >= offsetof(doctorzelvo_chart, Login);
}

/// What this build knows of what a chart brings, which may have been built with another header.
doctorzelvo_chart known(const doctorzelvo_chart* brought) {
    doctorzelvo_chart chart{};
    if (brought) std::memcpy(&chart, brought, std::min(brought->size, sizeof chart));
    return chart;
}

/// Does what may fail; false when it has, which is told then.
bool guarded(const Tell& tell, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::exception& failure) {
        tell(*failure.what() ? failure.what() : "ZELVO failed");
    } catch (...) {
        tell("ZELVO failed");
    }
    return false;
}

int open(const doctorzelvo_chart* brought, const std::function<HostArguments()>& arguments,
         bool (zelvo::host::clsZELVOInterface::*call)(const HostArguments&)) {
    if (!saysItsSize(brought)) return doctorzelvo_broken;
    const doctorzelvo_chart chart = known(brought);
    const auto tell = [&chart](const char* reason) {
        if (chart.tell) chart.tell(reason, chart.context);
    };
    std::string reason;
    const bool whole = guarded(tell, [&] {
        const HostArguments handed = arguments();
        reason = WindowCall(chart).run(handed.YakGukIP, [&](auto& host) { (host.*call)(handed); });
    });
    if (!whole) return doctorzelvo_broken;
    if (reason.empty()) return doctorzelvo_closed;
    tell(reason.c_str());
    return doctorzelvo_turned_away;
}

HostArguments ofPatient(const doctorzelvo_patient& who, HostArguments call) {
    call.PatientPK = who.PatientPK;
    call.PatientName = text(who.PatientName);
    call.PatientJumin = text(who.PatientJumin);
    call.PatientAge = who.PatientAge;
    call.PatientSex = who.PatientSex;
    call.PatientCell = text(who.PatientCell);
    call.PatientTel = text(who.PatientTel);
    call.PatientEmail = text(who.PatientEmail);
    call.PatientZipCode = text(who.PatientZipCode);
    call.PatientJuso = text(who.PatientJuso);
    call.HospitalName = text(who.HospitalName);
    call.DoctorName = text(who.DoctorName);
    call.HospitalTel = text(who.HospitalTel);
    call.DoctorCell = text(who.DoctorCell);
    call.HospitalZipCode = text(who.HospitalZipCode);
    call.HospitalJuso = text(who.HospitalJuso);
    return call;
}

HostArguments account(void* conSQL, const char* YakGukIP, const char* DoctorIDPWD) {
    HostArguments call;
    call.conSQL = conSQL;
    call.YakGukIP = text(YakGukIP);
    call.DoctorIDPWD = text(DoctorIDPWD);
    return call;
}

/// A chart that takes its orders by one function and the reason in a place of its own.
struct PlainChart {
    doctorzelvo_send2chart send2chart;
    void* chart;
    char* error;
    std::size_t size;

    /// Puts the reason where the chart wants it; a character is not cut in two.
    void tell(const char* reason) const {
        if (!error || size == 0) return;
        const std::size_t whole = std::strlen(reason);
        std::size_t length = std::min(whole, size - 1);
        const auto continues = [&](std::size_t at) {
            return (static_cast<unsigned char>(reason[at]) & 0xC0U) == 0x80U;
        };
        while (length > 0 && length < whole && continues(length)) --length;
        std::copy_n(reason, length, error);
        error[length] = '\0';
    }

    doctorzelvo_chart brought() {
        tell("");
        doctorzelvo_chart full{};
        full.size = sizeof full;
        full.context = this;
        full.tell = [](const char* reason, void* plain) {
            static_cast<const PlainChart*>(plain)->tell(reason);
        };
        full.Send2Chart = [](const doctorzelvo_chart_record* order, doctorzelvo_text*, void* context) -> int {
            const auto& plain = *static_cast<const PlainChart*>(context);
            if (plain.send2chart) plain.send2chart(order, plain.chart);
            return doctorzelvo_confirmed;
        };
        return full;
    }
};

}  // namespace

int doctorzelvo_open(void* conSQL, const char* YakGukIP, const char* DoctorIDPWD,
                     const doctorzelvo_patient* patient, const doctorzelvo_chart* chart) {
    return open(
        chart,
        [&] {
            const doctorzelvo_patient who = patient ? *patient : doctorzelvo_patient{};
            return ofPatient(who, account(conSQL, YakGukIP, DoctorIDPWD));
        },
        &zelvo::host::clsZELVOInterface::ZELVOInterface);
}

int doctorzelvo_open_nurse(void* conSQL, const char* YakGukIP, const char* DoctorIDPWD,
                           const doctorzelvo_chart* chart) {
    return open(
        chart, [&] { return account(conSQL, YakGukIP, DoctorIDPWD); },
        &zelvo::host::clsZELVOInterface::ZELVOInterface_Nurse);
}

int doctorzelvo_interface(void* conSQL, const char* YakGukIP, const char* DoctorIDPWD,
                          const doctorzelvo_patient* patient, doctorzelvo_send2chart send2chart, void* chart,
                          char* error, size_t error_size) {
    PlainChart plain{send2chart, chart, error, error_size};
    const doctorzelvo_chart brought = plain.brought();
    const int outcome = doctorzelvo_open(conSQL, YakGukIP, DoctorIDPWD, patient, &brought);
    return outcome == doctorzelvo_closed ? 0 : 1;
}

int doctorzelvo_interface_nurse(void* conSQL, const char* YakGukIP, const char* DoctorIDPWD,
                                doctorzelvo_send2chart send2chart, void* chart, char* error,
                                size_t error_size) {
    PlainChart plain{send2chart, chart, error, error_size};
    const doctorzelvo_chart brought = plain.brought();
    const int outcome = doctorzelvo_open_nurse(conSQL, YakGukIP, DoctorIDPWD, &brought);
    return outcome == doctorzelvo_closed ? 0 : 1;
}

int doctorzelvo_run_in_terminal(const char* script,
                                int (*call)(doctorzelvo_terminal* terminal, void* context),
                                void (*tell)(const char* reason, void* context), void* context) {
    struct GivenUp {};
    const auto toChart = [&](const char* reason) {
        if (tell) tell(reason, context);
    };
    int code = -1;
    guarded(toChart, [&] {
        try {
            code = zelvo::assembly::runInTerminal(text(script), [&](doctorzelvo_terminal& terminal) {
                if (call && call(&terminal, context) == 0) throw GivenUp{};
            });
        } catch (const GivenUp&) {  // the chart knows why
        }
    });
    return code;
}

int doctorzelvo_shutdown(void) {
    bool shut = false;
    guarded([](const char*) {},
            [&] {
                const Component::Turn turn(Component::instance());
                shut = turn.granted() && zelvo::assembly::leaveGlass();
            });
    return shut ? 1 : 0;
}
