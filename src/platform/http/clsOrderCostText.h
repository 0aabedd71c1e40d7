#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/http/Form.h"
#include "platform/http/HttpClient.h"
#include "screen/Components.h"
#include "screen/Waiting.h"

namespace zelvo::http {

/// The cost component over the web: each request is one form sent to the page that the caller names, the
/// answer is handed on whole.
class clsOrderCostText : public screen::OrderCostText {
public:
    /// Runs a job that waits for the page, and returns when it has ended.
    using Waiting = std::function<void(const screen::WaitingJob& job)>;

    explicit clsOrderCostText(
        HttpClient client = {}, Waiting waiting = [](const screen::WaitingJob& job) { job({}); })
        : client_(std::move(client)), waiting_(std::move(waiting)) {}

    std::string ChubangJunCost(const CostRequest& request) override;
    std::string ChubangJunCostUpdate(const UpdateRequest& request) override;

private:
    std::string ask(const std::string& url, const FormFields& fields) const;

    HttpClient client_;
    Waiting waiting_;
};

}  // namespace zelvo::http
