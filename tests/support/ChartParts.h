#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "basics/Fault.h"
#include "screen/Desktop.h"

namespace zelvo::testing {

/// A cost page that answers what it is told, and remembers what it was asked.
struct CostPage {
    std::string answer;
    std::optional<std::string> fault;
    std::function<void()> whileAsked = [] {};
    std::vector<screen::OrderCostText::CostRequest> requests;
    std::vector<screen::OrderCostText::UpdateRequest> updates;

    /// A good answer: total, ten amounts, mileage; each note is "note N" and a second line.
    static std::string priced(std::int64_t total, std::int64_t mileage = 0) {
        std::string text = "<html>[START]1ok/*/" + std::to_string(total) + "&note 0";
        for (int line = 1; line <= 10; ++line) {
            text += "/*/" + std::to_string(line == 2 ? total : 0) + "&amp;note " + std::to_string(line) +
                    "vbCrLfmore";
        }
        return text + "/*/" + std::to_string(mileage) + "[END]</html>";
    }
    /// Answers in the place of the pharmacy's.
    void standIn(screen::Desktop& desktop) {
        desktop.components().add("OrderCostText.clsOrderCostText",
                                 [this] { return std::make_unique<Component>(*this); });
    }

private:
    struct Component : screen::OrderCostText {
        explicit Component(CostPage& owner) : page(owner) {}
        std::string ChubangJunCost(const CostRequest& request) override {
            page.requests.push_back(request);
            return page.answered();
        }
        std::string ChubangJunCostUpdate(const UpdateRequest& request) override {
            page.updates.push_back(request);
            return page.answered();
        }
        CostPage& page;
    };
    std::string answered() const {
        whileAsked();
        if (fault) throw basics::Fault(*fault);
        return answer;
    }
};

}  // namespace zelvo::testing
