#pragma once

#include <string>
#include <utility>
#include <vector>

#include "screen/Desktop.h"

namespace zelvo::ordering {

/// What there is to say while a transaction is open: the pharmacy would wait for its reader, so it is shown
/// when the transaction has ended.
class KeptBoxes {
public:
    void alarm(std::string text, std::string caption) {
        boxes_.push_back(
            {.text = std::move(text), .caption = std::move(caption), .icon = screen::BoxIcon::Critical});
    }
    void inform(std::string text, std::string caption) {
        boxes_.push_back({.text = std::move(text), .caption = std::move(caption)});
    }
    void clear() { boxes_.clear(); }
    /// Shows them in their order, and keeps none.
    void show(screen::Desktop& desktop) {
        for (const screen::MessageBox& box : std::exchange(boxes_, {})) desktop.messageBox(box);
    }

private:
    std::vector<screen::MessageBox> boxes_;
};

}  // namespace zelvo::ordering
