#include "assembly/LentText.h"

#include <utility>

#include "basics/Utf8.h"

namespace zelvo::assembly {

LentText::LentText(std::string text) : doctorzelvo_text(), text_(std::move(text)) {
    size = sizeof(doctorzelvo_text);
    utf8 = text_.c_str();
    give = [](doctorzelvo_text* place, const char* given) {
        if (place) static_cast<LentText*>(place)->take(given);
    };
}

const std::string& LentText::text() const {
    if (fault_) std::rethrow_exception(fault_);
    return text_;
}

/// The caller is the chart's: what fails waits until we have the word again.
void LentText::take(const char* text) noexcept {
    given_ = true;
    try {
        text_ = basics::cleanUtf8(text ? text : "");
        fault_ = nullptr;
    } catch (...) {
        fault_ = std::current_exception();
    }
    utf8 = text_.c_str();
}

}  // namespace zelvo::assembly
