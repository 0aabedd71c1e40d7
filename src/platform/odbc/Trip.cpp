#include "platform/odbc/Trip.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <string_view>
#include <vector>

#include "basics/Numbers.h"
#include "platform/odbc/Fetch.h"

namespace zelvo::odbc {
namespace {

/// Name of the column that tells the end of a statement: the counts that come before it may be those of a
/// trigger, with NOCOUNT there are none, and FreeTDS tells the next statement's failure at the end of the
/// rows.
constexpr std::string_view endMark = "ZelvoStep";

bool isEndMark(const Answer& answer) {
    if (answer.columnCount() != 1) return false;
    std::array<SQLWCHAR, 64> wide{};
    SQLSMALLINT length = 0, type = 0, decimals = 0, nullable = 0;
    SQLULEN size = 0;
    const StatementHandle& statement = answer.statement();
    statement.require(SQLDescribeColW(statement.get(), 1, wide.data(), static_cast<SQLSMALLINT>(wide.size()),
                                      &length, &type, &size, &decimals, &nullable));
    std::string name;
    appendUtf8(name, wide.data(), std::min(static_cast<std::size_t>(length), wide.size() - 1));
    return name == endMark;
}

}  // namespace

struct Trip::Came {
    /// Of each step the set that wants its rows, nullptr where nobody does.
    std::vector<data::RecordSet*> wanted;
    std::vector<std::unique_ptr<data::RecordSet::Filler>> rows;
    std::atomic<std::size_t> ran{0};

    bool endsUnmarked(std::size_t step) const { return step + 1 == wanted.size() && wanted[step]; }

    void take(const Answer& answer, std::size_t step) {
        if (wanted[step]) {
            while (answer.columnCount() == 0) next(answer);
            rows[step] = fetch(answer, *wanted[step]);
            if (endsUnmarked(step)) return;
        }
        while (!isEndMark(answer)) next(answer);
    }
    static void next(const Answer& answer) {
        if (!answer.next()) throw basics::Fault("a statement gave no result");
    }
};

Trip::Trip(std::span<const data::Step> steps, const std::function<std::string(std::string_view)>& dialect)
    : came_(std::make_shared<Came>()) {
    for (const data::Step& step : steps) {
        // An error ends a statement, and not what comes behind it.
        if (!text_.empty()) text_ += "\nIF @@ERROR <> 0 RETURN\n";
        text_ += dialect(step.statement);
        if (!step.rows || &step != &steps.back()) {
            text_ += "\nIF @@ERROR <> 0 RETURN\nSELECT " +
                     basics::decimalText(static_cast<std::int64_t>(came_->wanted.size())) + " AS " +
                     std::string(endMark);
        }
        came_->wanted.push_back(step.rows);
    }
    came_->rows.resize(steps.size());
}

std::function<void(Answer& answer)> Trip::reader() const {
    return [came = came_](Answer& answer) {
        for (std::size_t step = 0; step < came->wanted.size(); ++step) {
            if (step > 0) Came::next(answer);
            came->take(answer, step);
            came->ran = step + 1;
        }
    };
}

std::size_t Trip::ran() const {
    return came_->ran;
}

data::RecordSet::Filler& Trip::rows(std::size_t step) const {
    return *came_->rows[step];
}

}  // namespace zelvo::odbc
