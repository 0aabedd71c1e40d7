#include "assembly/HostDialogs.h"

#include "assembly/LentText.h"
#include "basics/Fault.h"
#include "components/AccountPrompt.h"

namespace zelvo::assembly {

namespace {

/// What a function of the chart came to: whether the user agreed. Its failure is a Fault in its own words.
bool agreed(int answer, const LentText& error) {
    if (answer == doctorzelvo_failed)
        throw basics::Fault(error.wasGiven() ? error.text() : "알 수 없는 오류");
    return answer == doctorzelvo_confirmed;
}

/// A dialog of the host's as the logic knows it.
template <class Kind>
class OfHost : public Kind {
public:
    template <class... Parts>
    explicit OfHost(const doctorzelvo_chart& chart, Parts&... parts) : Kind(parts...), chart_(chart) {}

protected:
    /// Whether the user agreed. A dialog that the chart could not make is not there.
    static bool confirmed(int answer, const LentText& error) {
        if (answer == doctorzelvo_missing) throw screen::Components::missing(Kind::className);
        return agreed(answer, error);
    }

    const doctorzelvo_chart& chart_;
};

/// Of an account, ours stands in for what the host does not have.
class HostAccountPrompt : public OfHost<components::AccountPrompt> {
public:
    using OfHost::OfHost;
    bool Login(std::string& id, std::string& password) override {
        if (!chart_.Login) return components::AccountPrompt::Login(id, password);
        LentText ownId(id), ownPassword(password), error;
        const bool done = confirmed(chart_.Login(&ownId, &ownPassword, &error, chart_.context), error);
        id = ownId.text();
        password = ownPassword.text();
        return done;
    }
    bool ChangePassword(const std::string& oldPassword, std::string& newPassword) override {
        if (!chart_.ChangePassword) {
            return components::AccountPrompt::ChangePassword(oldPassword, newPassword);
        }
        LentText own(newPassword), error;
        const bool done =
            confirmed(chart_.ChangePassword(oldPassword.c_str(), &own, &error, chart_.context), error);
        newPassword = own.text();
        return done;
    }
};

class HostPostalLookup : public OfHost<screen::PostalLookup> {
public:
    using OfHost::OfHost;
    bool ZipCode(std::string& url, std::string& juso, std::string& zip, std::int32_t& left,
                 std::int32_t& top) override {
        LentText ownUrl(url), ownJuso(juso), ownZip(zip), error;
        const bool done =
            confirmed(chart_.ZipCode(&ownUrl, &ownJuso, &ownZip, &left, &top, &error, chart_.context), error);
        url = ownUrl.text();
        juso = ownJuso.text();
        zip = ownZip.text();
        return done;
    }
};

class HostEatGuideEditor : public OfHost<screen::EatGuideEditor> {
public:
    using OfHost::OfHost;
    bool edit(void* conSQL, std::string& patientName, std::string& sheetRtf, std::string& hospitalName,
              std::string& phoneNo) override {
        LentText ownName(patientName), ownSheet(sheetRtf), ownHospital(hospitalName), ownPhone(phoneNo),
            error;
        const bool done = confirmed(
            chart_.EditEatGuide(conSQL, &ownName, &ownSheet, &ownHospital, &ownPhone, &error, chart_.context),
            error);
        patientName = ownName.text();
        sheetRtf = ownSheet.text();
        hospitalName = ownHospital.text();
        phoneNo = ownPhone.text();
        return done;
    }
};

/// Puts one of them into the place of ours.
template <class Dialog, class... Parts>
void put(screen::Components& known, const doctorzelvo_chart& chart, Parts&... parts) {
    known.add(Dialog::className, [&] { return std::make_unique<Dialog>(chart, parts...); });
}

}  // namespace

void registerOwnDialogs(screen::Desktop& desktop, const doctorzelvo_chart& chart) {
    screen::Components& known = desktop.components();
    if (chart.Login || chart.ChangePassword) put<HostAccountPrompt>(known, chart, desktop);
    if (chart.ZipCode) put<HostPostalLookup>(known, chart);
    if (chart.EditEatGuide) put<HostEatGuideEditor>(known, chart);
}

void sendToChart(const doctorzelvo_chart& chart, const ordering::ChartRecord& record) {
    if (!chart.Send2Chart) return;
    const doctorzelvo_chart_record order{
        record.strJob.c_str(),     record.intChupSu,    record.intPouchAmount,
        record.sglDayTuYak,        record.intTuyakilsu, record.intPouchTotal,
        record.strMessage.c_str(), record.lngSumCost,   record.strxDrugList.c_str()};
    LentText error;
    agreed(chart.Send2Chart(&order, &error, chart.context), error);
}

}  // namespace zelvo::assembly
