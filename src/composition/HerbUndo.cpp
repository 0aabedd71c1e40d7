#include "composition/HerbUndo.h"

#include <utility>

#include "composition/modHanYakGuk.h"
#include "screen/Window.h"

namespace zelvo::composition {

namespace {

constexpr std::size_t mostSteps = 100;

}  // namespace

HerbUndo::HerbUndo(screen::Window& form, session::Session& session, HerbTable& herbs,
                   screen::TextField& packets, LeftOut& leftOut, OrderWatch& watch)
    : form_(form), session_(session), herbs_(herbs), packets_(packets), leftOut_(leftOut), watch_(watch) {
    herbs_.onChanging.add([this] { remember(); });
    herbs_.onReset.add([this] { steps_.back().leftOut = leftOut_.takeHerbs(); });
    form_.addShortcut({"Ctrl+Z", "약재 구성 되돌리기", [this] { return applies(); },
                       [this] { form_.userInput([this] { undo(); }); }, &herbs_.tdbDGL});
}

/// A text that is being written has an undo of its own.
bool HerbUndo::applies() const {
    const screen::Field* focus = form_.focus();
    const bool inText =
        focus && (focus->kind() == screen::FieldKind::Text || focus->kind() == screen::FieldKind::RichText);
    return !steps_.empty() && !inText && !herbs_.tdbDGL.editing() && herbs_.tdbDGL.reachable();
}

HerbUndo::Step HerbUndo::now() const {
    const tables::XArrayDB& lines = session_.g_xaDrug;
    Step step{{}, packets_.text(), herbs_.tdbDGL.currentRow(), {}};
    for (int row = 0; row <= lines.upperRow(); ++row) {
        step.rows.emplace_back();
        for (int column = 0; column <= herb::lastColumn; ++column)
            step.rows.back().push_back(lines.text(row, column));
    }
    return step;
}

void HerbUndo::remember() {
    Step step = now();
    if (!steps_.empty() && steps_.back().sameAs(step)) return;
    steps_.push_back(std::move(step));
    if (steps_.size() > mostSteps) steps_.erase(steps_.begin());
}

/// An edit that came to nothing has left a step that is what stands there.
void HerbUndo::undo() {
    const Step current = now();
    while (!steps_.empty() && steps_.back().sameAs(current)) steps_.pop_back();
    if (steps_.empty()) return;
    const Step step = std::move(steps_.back());
    steps_.pop_back();
    tables::XArrayDB& lines = session_.g_xaDrug;
    lines.reDim(static_cast<int>(step.rows.size()) - 1, herb::lastColumn);
    for (int row = 0; row <= lines.upperRow(); ++row) {
        for (int column = 0; column <= herb::lastColumn; ++column) {
            lines.set(row, column,
                      step.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
        }
    }
    herbs_.tdbDGL.bind(&lines);
    herbs_.showRowCount();
    leftOut_.bringBack(step.leftOut);
    if (step.row >= 0 && step.row <= lines.upperRow()) herbs_.tdbDGL.setCurrentRow(step.row);
    watch_.priceOutdated();
    packets_.setText("");
    packets_.setText(step.packets);
    herbs_.dropUnfilledRow();
}

}  // namespace zelvo::composition
