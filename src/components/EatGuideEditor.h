#pragma once

#include <string>

#include "screen/Components.h"
#include "screen/Desktop.h"

namespace zelvo::components {

/// The editor of the dosage sheet as a window of our own. The chart's connection and the patient's name
/// pass by unchanged.
class EatGuideEditor : public screen::EatGuideEditor {
public:
    explicit EatGuideEditor(screen::Desktop& desktop) : desktop_(desktop) {}

    bool edit(void* conSQL, std::string& patientName, std::string& sheetRtf, std::string& hospitalName,
              std::string& phoneNo) override;

private:
    screen::Desktop& desktop_;
};

}  // namespace zelvo::components
