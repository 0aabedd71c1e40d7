#include "screen/RtfTables.h"

#include <algorithm>
#include <cstdint>

#include "basics/Text.h"

namespace zelvo::screen {

namespace {

constexpr std::size_t mostEntries = 4000, longestName = 100;
constexpr int bulletForm = 23;

}  // namespace

void RtfTables::word(RtfPart part, const RtfWord& word, int number, RtfEncoding& encoding) {
    switch (part) {
        case RtfPart::Fonts:
            return fontWord(word, number, encoding);
        case RtfPart::Colours:
            return colourWord(word.act, number);
        case RtfPart::Lists:
            return listWord(word.act, number);
        case RtfPart::ListUses:
            return listUseWord(word.act, number);
        default:
            return;
    }
}

void RtfTables::text(RtfPart part, std::string_view text) {
    if (part == RtfPart::Fonts) fontText(text);
    if (part != RtfPart::Colours) return;
    for (const char byte : text) {
        if (byte != ';' || colours_.size() >= mostEntries) continue;
        colours_.push_back(colour_);
        colour_.reset();
    }
}

void RtfTables::fontWord(const RtfWord& word, int number, RtfEncoding& encoding) {
    if (word.act == RtfAct::Font) {
        const bool room = fonts_.size() < mostEntries || fonts_.contains(number);
        font_ = room ? &(fonts_[number] = Font{}) : nullptr;
        encoding = plainEncoding();
    } else if (word.act == RtfAct::Charset && font_ != nullptr) {
        font_->charset = number;
        encoding = this->encoding(*font_);
    } else if (word.act == RtfAct::FontPage && font_ != nullptr) {
        font_->page = number;
        encoding = this->encoding(*font_);
    }
}

void RtfTables::fontText(std::string_view text) {
    if (font_ == nullptr || font_->named) return;
    const std::size_t end = text.find(';');
    const std::string_view name = text.substr(0, end);
    if (font_->name.size() + name.size() <= longestName && name != "\t" && name != "\n") font_->name += name;
    font_->named = end != std::string_view::npos;
}

void RtfTables::colourWord(RtfAct act, int number) {
    const auto level = static_cast<std::uint8_t>(std::clamp(number, 0, 255));
    Colour colour = colour_.value_or(Colour{});
    if (act == RtfAct::Red) {
        colour.red = level;
    } else if (act == RtfAct::Green) {
        colour.green = level;
    } else if (act == RtfAct::Blue) {
        colour.blue = level;
    } else {
        return;
    }
    colour_ = colour;
}

/// A list tells the forms of its levels, then its number.
void RtfTables::listWord(RtfAct act, int number) {
    if (act == RtfAct::NumberForm && !numberForm_) numberForm_ = number;
    if (act != RtfAct::ListId) return;
    if (numberForm_ == bulletForm && bulletLists_.size() < mostEntries) bulletLists_.insert(number);
    numberForm_.reset();
}

/// A use tells the list's number, then the one that stands for it in the text.
void RtfTables::listUseWord(RtfAct act, int number) {
    if (act == RtfAct::ListId) listId_ = number;
    if (act != RtfAct::ListNumber || !bulletLists_.contains(listId_)) return;
    if (bulletUses_.size() < mostEntries) bulletUses_.insert(number);
}

RtfEncoding RtfTables::encoding(const Font& font) const {
    if (font.page) return {readablePage(*font.page), false, false};
    return font.charset ? encodingOf(*font.charset, documentPage_) : plainEncoding();
}

RtfEncoding RtfTables::encoding(int font) const {
    const auto found = fonts_.find(font);
    return found == fonts_.end() ? plainEncoding() : encoding(found->second);
}

std::string RtfTables::family(int font) const {
    const auto found = fonts_.find(font);
    std::string name = found == fonts_.end() ? std::string() : basics::trim(found->second.name);
    return name.empty() ? std::string(standardFamily) : name;
}

std::optional<Colour> RtfTables::colour(int number) const {
    if (number < 0 || static_cast<std::size_t>(number) >= colours_.size()) return std::nullopt;
    return colours_[static_cast<std::size_t>(number)];
}

}  // namespace zelvo::screen
