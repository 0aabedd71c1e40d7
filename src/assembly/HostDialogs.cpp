#include "assembly/HostDialogs.h"

namespace zelvo::assembly {

namespace {

/// The host's dialogs as the logic knows them.
class HostAccountPrompt : public screen::AccountPrompt {
public:
    explicit HostAccountPrompt(std::unique_ptr<doctorzelvo::AccountPrompt> own) : own_(std::move(own)) {}
    bool Login(std::string& id, std::string& password) override { return own_->Login(id, password); }
    bool ChangePassword(const std::string& oldPassword, std::string& newPassword) override {
        return own_->ChangePassword(oldPassword, newPassword);
    }

private:
    std::unique_ptr<doctorzelvo::AccountPrompt> own_;
};

class HostPostalLookup : public screen::PostalLookup {
public:
    explicit HostPostalLookup(std::unique_ptr<doctorzelvo::PostalLookup> own) : own_(std::move(own)) {}
    bool ZipCode(std::string& url, std::string& juso, std::string& zip, std::int32_t& left,
                 std::int32_t& top) override {
        return own_->ZipCode(url, juso, zip, left, top);
    }

private:
    std::unique_ptr<doctorzelvo::PostalLookup> own_;
};

class HostEatGuideEditor : public screen::EatGuideEditor {
public:
    explicit HostEatGuideEditor(std::unique_ptr<doctorzelvo::EatGuideEditor> own) : own_(std::move(own)) {}
    bool edit(void* conSQL, std::string& patientName, std::string& sheetRtf, std::string& hospitalName,
              std::string& phoneNo) override {
        return own_->edit(conSQL, patientName, sheetRtf, hospitalName, phoneNo);
    }

private:
    std::unique_ptr<doctorzelvo::EatGuideEditor> own_;
};

/// One that the host fails to make is not there.
template <class Known, class Own>
void registerOwn(screen::Components& components, const char* className,
                 const std::function<std::unique_ptr<Own>()>& make) {
    if (!make) return;
    components.add(className, [make]() -> std::unique_ptr<screen::Component> {
        std::unique_ptr<Own> own = make();
        return own ? std::make_unique<Known>(std::move(own)) : nullptr;
    });
}

}  // namespace

void registerOwnDialogs(screen::Components& components, const doctorzelvo::clsZELVOInterface& chart) {
    registerOwn<HostAccountPrompt>(components, "AccountPrompt.clsAccountPrompt", chart.makeAccountPrompt);
    registerOwn<HostPostalLookup>(components, "PostalLookup.clsPostalLookup", chart.makePostalLookup);
    registerOwn<HostEatGuideEditor>(components, "EatGuideEditor", chart.makeEatGuideEditor);
}

}  // namespace zelvo::assembly
