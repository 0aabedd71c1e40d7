#include "screen/Remembered.h"

#include "basics/Fault.h"

namespace zelvo::screen {

namespace {

/// Apart from what a user has set: nothing here is worth losing that.
constexpr std::string_view application = "Vexora/windows", section = "windows";

}  // namespace

std::string Remembered::text(std::string_view name) const {
    const auto kept = kept_.find(name);
    if (kept != kept_.end()) return kept->second;
    return store_ ? store_->read(application, section, name, {}) : std::string();
}

void Remembered::keep(std::string_view name, std::string_view text) {
    if (text == this->text(name)) return;
    kept_.insert_or_assign(std::string(name), std::string(text));
    if (!store_) return;
    try {
        store_->write(application, section, name, text);
    } catch (const basics::Fault&) {
        // The next session starts as ever.
    }
}

}  // namespace zelvo::screen
