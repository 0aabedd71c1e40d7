#pragma once

#include <string>

#include "screen/AskWindow.h"

namespace zelvo::components {

/// Lets a dosage sheet be written, with the clinic's name and telephone that stand on it; the patient's name
/// and today's date stand on the printed one.
class frmEatGuideEditor : public screen::AskWindow {
public:
    /// The patient's name stands in the caption as well.
    frmEatGuideEditor(screen::Desktop& desktop, const std::string& patientName);

    screen::RichTextField rtxSheet;
    screen::Label lblPatient, lblDate;
    screen::TextField txtHospName, txtPhoneNo;

private:
    struct Page {
        screen::RichText sheet;
        std::string clinic, phone;
        bool operator==(const Page&) const = default;
    };

    /// Every sheet can be taken, an empty one too.
    bool confirm() override { return true; }
    bool mayClose() override;
    Page page() const { return {rtxSheet.content(), txtHospName.text(), txtPhoneNo.text()}; }

    Page opened_;
};

}  // namespace zelvo::components
