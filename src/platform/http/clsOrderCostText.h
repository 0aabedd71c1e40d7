#pragma once

#include "platform/http/HttpClient.h"
#include "screen/Components.h"

namespace zelvo::http {

/// The cost component over the web: each request is one form sent to the page that the caller names, the
/// answer is handed on whole.
class clsOrderCostText : public screen::OrderCostText {
public:
    explicit clsOrderCostText(HttpClient client = {}) : client_(std::move(client)) {}

    std::string ChubangJunCost(const CostRequest& request) override;
    std::string ChubangJunCostUpdate(const UpdateRequest& request) override;

private:
    HttpClient client_;
};

}  // namespace zelvo::http
