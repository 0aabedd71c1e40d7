#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "data/Connection.h"
#include "platform/odbc/Answer.h"

namespace zelvo::odbc {

/// Several statements as one text of the server's, and which of its results belongs to which of them.
class Trip {
public:
    Trip(std::span<const data::Step> steps, const std::function<std::string(std::string_view)>& dialect);

    /// Each statement word for word; behind one that fails nothing more runs.
    const std::string& text() const { return text_; }
    /// Takes the results. It owns what it touches.
    std::function<void(Answer& answer)> reader() const;
    /// How many statements have run so far.
    std::size_t ran() const;
    /// What came for a step with rows that has run.
    data::RecordSet::Filler& rows(std::size_t step) const;

private:
    struct Came;
    std::string text_;
    std::shared_ptr<Came> came_;
};

}  // namespace zelvo::odbc
