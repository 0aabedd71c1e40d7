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

/// The same of a dialog; one that the chart could not make is not there.
template <class Kind>
bool agreedIn(int answer, const LentText& error) {
    if (answer == doctorzelvo_missing) throw screen::Components::missing(Kind::className);
    return agreed(answer, error);
}

/// The host's dialogs as the logic knows them. Of an account, ours stands in for what the host does not have.
class HostAccountPrompt : public components::AccountPrompt {
public:
    HostAccountPrompt(screen::Desktop& desktop, const doctorzelvo_chart& chart)
        : components::AccountPrompt(desktop), chart_(chart) {}
    bool Login(std::string& id, std::string& password) override {
        if (!chart_.Login) return components::AccountPrompt::Login(id, password);
        LentText ownId(id), ownPassword(password), error;
        const int answer = chart_.Login(&ownId, &ownPassword, &error, chart_.context);
        const bool confirmed = agreedIn<screen::AccountPrompt>(answer, error);
        id = ownId.text();
        password = ownPassword.text();
        return confirmed;
    }
    bool ChangePassword(const std::string& oldPassword, std::string& newPassword) override {
        if (!chart_.ChangePassword) {
            return components::AccountPrompt::ChangePassword(oldPassword, newPassword);
        }
        LentText own(newPassword), error;
        const int answer = chart_.ChangePassword(oldPassword.c_str(), &own, &error, chart_.context);
        const bool confirmed = agreedIn<screen::AccountPrompt>(answer, error);
        newPassword = own.text();
        return confirmed;
    }

private:
    const doctorzelvo_chart& chart_;
};

class HostPostalLookup : public screen::PostalLookup {
public:
    explicit HostPostalLookup(const doctorzelvo_chart& chart) : chart_(chart) {}
    bool ZipCode(std::string& url, std::string& juso, std::string& zip, std::int32_t& left,
                 std::int32_t& top) override {
        LentText ownUrl(url), ownJuso(juso), ownZip(zip), error;
        const int answer = chart_.ZipCode(&ownUrl, &ownJuso, &ownZip, &left, &top, &error, chart_.context);
        const bool confirmed = agreedIn<screen::PostalLookup>(answer, error);
        url = ownUrl.text();
        juso = ownJuso.text();
        zip = ownZip.text();
        return confirmed;
    }

private:
    const doctorzelvo_chart& chart_;
};

class HostEatGuideEditor : public screen::EatGuideEditor {
public:
    explicit HostEatGuideEditor(const doctorzelvo_chart& chart) : chart_(chart) {}
    bool edit(void* conSQL, std::string& patientName, std::string& sheetRtf, std::string& hospitalName,
              std::string& phoneNo) override {
        LentText ownName(patientName), ownSheet(sheetRtf), ownHospital(hospitalName), ownPhone(phoneNo),
            error;
        const int answer =
            chart_.EditEatGuide(conSQL, &ownName, &ownSheet, &ownHospital, &ownPhone, &error, chart_.context);
        const bool confirmed = agreedIn<screen::EatGuideEditor>(answer, error);
        patientName = ownName.text();
        sheetRtf = ownSheet.text();
        hospitalName = ownHospital.text();
        phoneNo = ownPhone.text();
        return confirmed;
    }

private:
    const doctorzelvo_chart& chart_;
};

}  // namespace

void registerOwnDialogs(screen::Desktop& desktop, const doctorzelvo_chart& chart) {
    screen::Components& known = desktop.components();
    if (chart.Login || chart.ChangePassword) {
        known.add(screen::AccountPrompt::className,
                  [&] { return std::make_unique<HostAccountPrompt>(desktop, chart); });
    }
    if (chart.ZipCode) {
        known.add(screen::PostalLookup::className, [&] { return std::make_unique<HostPostalLookup>(chart); });
    }
    if (chart.EditEatGuide) {
        known.add(screen::EatGuideEditor::className,
                  [&] { return std::make_unique<HostEatGuideEditor>(chart); });
    }
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
