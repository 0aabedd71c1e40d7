#pragma once

#include <exception>
#include <string>

#include "doctorzelvo/doctorzelvo.h"

namespace zelvo::assembly {

/// A text of ours that a function of the chart reads and replaces. Bytes that are not UTF-8 don't come in.
class LentText : public doctorzelvo_text {
public:
    explicit LentText(std::string text = {});
    LentText(const LentText&) = delete;
    LentText& operator=(const LentText&) = delete;

    /// What stands there now. Throws what has kept a text from being taken.
    const std::string& text() const;
    bool wasGiven() const { return given_; }

private:
    void take(const char* text) noexcept;

    std::string text_;
    bool given_ = false;
    std::exception_ptr fault_;
};

}  // namespace zelvo::assembly
