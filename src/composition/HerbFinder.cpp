#include "composition/HerbFinder.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "basics/Hangul.h"
#include "basics/Numbers.h"
#include "basics/Pictures.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "composition/modHanYakGuk.h"
#include "data/Running.h"
#include "data/clsZELVORecordSet.h"
#include "screen/Window.h"

namespace zelvo::composition {

namespace {

constexpr std::size_t mostLines = 50;
constexpr std::chrono::minutes untilNextTry{5};
constexpr int noMatch = 9;

/// 0 for the likeliest.
int likelihood(const HerbFinder::Herb& herb, const std::string& typed) {
    const std::size_t at = basics::findTyped(herb.name, typed);
    if (at == 0) return 0;
    if (at != std::string::npos) return 1;
    return basics::findTyped(herb.pharmacyName, typed) != std::string::npos ? 2 : noMatch;
}

std::string lineOf(const HerbFinder::Herb& herb) {
    std::string line = herb.name + "  " + herb.pharmacyName;
    if (basics::IsNumeric(herb.price)) {
        line += "  " +
                basics::formatNumber(basics::toNumber(herb.price), basics::NumberPicture::SeparatedZero) +
                "원";
    }
    return herb.recommended ? line + "  권장" : line;
}

}  // namespace

HerbFinder::HerbFinder(screen::Window& form, session::Session& session, HerbTable& herbs)
    : form_(form), session_(session), herbs_(herbs) {
    herbs_.tdbDGL.onFocus.add([this] { load(); });
    herbs_.tdbDGL.onEditText.add([this](int column) { textChanged(column); });
    herbs_.tdbDGL.onSuggestion.add([this](int line) { take(line); });
    form_.onKeyPreview.add([this](int& code) { keyDown(code); });
}

std::vector<std::size_t> HerbFinder::find(const std::vector<Herb>& herbs, const std::string& typed) {
    const std::string word = basics::trim(typed), hangul = basics::hangulOfKeys(word);
    std::vector<std::pair<int, std::size_t>> found;
    if (word.empty()) return {};
    for (std::size_t i = 0; i < herbs.size(); ++i) {
        int rank = likelihood(herbs[i], word);
        if (rank == noMatch && hangul != word) rank = 3 + likelihood(herbs[i], hangul);
        if (rank < noMatch) found.emplace_back(rank, i);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    found.resize(std::min(found.size(), mostLines));
    std::vector<std::size_t> places;
    places.reserve(found.size());
    for (const auto& [rank, place] : found) places.push_back(place);
    return places;
}

/// A list that can't be read is left alone for a while; typing goes on without it.
void HerbFinder::load() {
    if (!session_.g_conYakGuk || form_.desktop().now() < nextRead_) return;
    nextRead_ = form_.desktop().now() + untilNextTry;
    data::RecordSet rows;
    if (data::clsZELVORecordSet().RecordSet_YakGukDrugList(*session_.g_conYakGuk, rows, "") == -1) return;
    nextRead_ = std::chrono::steady_clock::time_point::max();
    for (; !rows.atEnd(); rows.moveNext()) {
        all_.push_back({rows.text("DGL_CallSign"), rows.text("DGL_Internal"), rows.text("DGL_PK"),
                        rows.text("DGD_Danga"), data::running::isTrue(rows.text("DGL_Default"))});
    }
}

void HerbFinder::textChanged(int column) {
    if (column != herb::name) return;
    offered_ = find(all_, herbs_.tdbDGL.editText());
    std::vector<std::string> lines;
    for (const std::size_t place : offered_) lines.push_back(lineOf(all_[place]));
    herbs_.tdbDGL.suggest(std::move(lines));
}

void HerbFinder::keyDown(int& code) {
    screen::Grid& table = herbs_.tdbDGL;
    if (!table.hasFocus() || table.suggestions().empty()) return;
    switch (code) {
        case screen::keys::down:
            table.markSuggestion(table.suggested() + 1);
            break;
        case screen::keys::up:
            table.markSuggestion(table.suggested() - 1);
            break;
        case screen::keys::escape:
            table.suggest({});
            break;
        case screen::keys::enter:
            if (table.suggested() >= 0) {
                take(table.suggested());
            } else if (pickerFinds()) {
                return;
            } else {
                table.markSuggestion(0);  // seen before it is taken
            }
            break;
        default:
            return;
    }
    code = screen::keys::none;
}

/// Whether the typed text stands in some herb's name as the picker looks for it.
bool HerbFinder::pickerFinds() const {
    const std::string typed = basics::foldCase(basics::trim(herbs_.tdbDGL.editText()));
    return std::any_of(offered_.begin(), offered_.end(), [&](std::size_t place) {
        return basics::foldCase(all_[place].name).find(typed) != std::string::npos;
    });
}

/// Name and price are asked for anew: the list may have been read hours ago.
void HerbFinder::take(int line) {
    const Herb herb = all_[offered_.at(static_cast<std::size_t>(line))];
    PickedHerb picked{herb.name, "", basics::toInt32(herb.key), ""};
    if (data::clsZELVORecordSet().RecordSet_HapBang(session_.connection(), herb.key, picked.pharmacyName,
                                                    picked.price) == -1 ||
        basics::isBlank(picked.pharmacyName) || basics::isBlank(picked.price)) {
        form_.desktop().inform("[" + herb.name + "] 약재의 오늘 단가를 확인할 수 없습니다.", "약재 정보");
        return;
    }
    herbs_.tdbDGL.commitEdit();  // another name: what stood behind the former one goes
    herbs_.takeHerb(picked);
    herbs_.tdbDGL.setCurrentColumn(composition::herb::grams);
}

}  // namespace zelvo::composition
