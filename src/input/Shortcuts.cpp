#include "input/Shortcuts.h"

#include <array>
#include <string_view>

#include "basics/Fault.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "screen/SmallWindow.h"

namespace zelvo::input {

namespace {

enum class Does { Focus, Press };

struct Way {
    std::string_view keys, what, field;
    Does does;
    std::string_view within = {};  ///< the table that has to have the focus, if one has to
};

constexpr std::array ways{
    Way{"F6", "약재 구성으로", "tdbDGL", Does::Focus},
    Way{"F7", "첩수로", "txtChubsu", Does::Focus},
    Way{"F8", "탕전 방식으로", "tdbTJML", Does::Focus},
    Way{"Ctrl+F8", "제형 변화로", "tdbTJAL", Does::Focus},
    Way{"Ctrl+F7", "환자명으로", "txtPatientName", Does::Focus},
    Way{"Ctrl+P", "지불방식으로", "cboPaymentMethod", Does::Focus},
    Way{"Ctrl+Delete", "선택된 약재 삭제", "sscDrugDelete", Does::Press, "tdbDGL"},
    Way{"Ctrl+O", "처방 읽어오기", "sscCBJRead", Does::Press},
    Way{"Ctrl+F6", "복용법 작성", "cmdEatGuide", Does::Press},
    Way{"F5", "비용확인", "ssrCostConfirm", Does::Press},
    Way{"Ctrl+F5", "처방전 전송", "ssrCBJSend", Does::Press},
    Way{"F11", "보관된 처방전 이어서 작성", "cmdDraftTake", Does::Press},
    Way{"Ctrl+F", "전송한 처방전을 환자명으로 찾기", "txtCBJsearchPatient", Does::Focus},
};

/// Whether a field can be had once its pages are brought forward: no holder is hidden or shut, and each page
/// may be turned to.
bool canComeForward(const screen::Field& field) {
    for (const screen::Field* at = &field; at; at = at->place().holder) {
        if (!at->visible() || !at->enabled()) return false;
        const screen::Place& place = at->place();
        if (place.holder && place.holder->kind() == screen::FieldKind::Tabs &&
            !static_cast<const screen::TabControl*>(place.holder)->selectable(place.page))
            return false;
    }
    return true;
}

/// Turns the main tab as a click on it would, the price included; inner pages come forward with the focus.
/// An empty table gets the line to write in.
void goTo(screen::Field& field) {
    for (const screen::Field* at = &field; at; at = at->place().holder) {
        screen::Field* const holder = at->place().holder;
        if (!holder || holder->name() != "c1tMain") continue;
        auto& tabs = static_cast<screen::TabControl&>(*holder);
        if (tabs.current() != at->place().page) static_cast<void>(tabs.userClick(at->place().page));
    }
    field.window().userInput([&field] { field.setFocus(); });
    if (field.kind() != screen::FieldKind::Grid || !field.hasFocus()) return;
    const auto& grid = static_cast<const screen::Grid&>(field);
    if (grid.allowsUpdate && grid.rowCount() == 0) field.window().userKey({screen::keys::enter, U'\r'});
}

void press(screen::Field& field) {
    if (field.kind() == screen::FieldKind::TwoState) {
        static_cast<screen::TwoStateButton&>(field).userPress();
    } else {
        static_cast<screen::Button&>(field).userPress();
    }
}

/// Whether a table has the focus and none of its cells is open.
bool isUnwritten(const screen::Field& table) {
    return table.hasFocus() && !static_cast<const screen::Grid&>(table).editing();
}

screen::Shortcut shortcut(screen::Field& field, const Way& way) {
    screen::Shortcut made{std::string(way.keys), std::string(way.what), {}, {}, &field};
    if (way.does == Does::Focus) {
        made.applies = [&field] { return canComeForward(field); };
        made.run = [&field] { goTo(field); };
    } else {
        // A button is pressed where it can be seen; a line is deleted out of its table only.
        screen::Field* const within = field.window().field(way.within);
        made.applies = [&field, within] { return field.reachable() && (!within || isUnwritten(*within)); };
        made.run = [&field, within] {
            press(field);
            if (within) field.window().userInput([within] { within->setFocus(); });
        };
    }
    return made;
}

/// The next page that can be had, as a click on its tab.
screen::Shortcut pageTurn(screen::TabControl& tabs) {
    return {"Ctrl+Tab", "다음 탭으로", [] { return true; },
            [&tabs] {
                const int count = tabs.pageCount();
                int page = (tabs.current() + 1) % count;
                while (!tabs.selectable(page) && page != tabs.current()) page = (page + 1) % count;
                static_cast<void>(tabs.userClick(page));
            },
            &tabs};
}

}  // namespace

void addShortcuts(screen::Window& form) {
    for (const Way& way : ways) {
        screen::Field* const field = form.field(way.field);
        if (!field) throw basics::Fault("no field " + std::string(way.field));
        form.addShortcut(shortcut(*field, way));
    }
    if (auto* tabs = dynamic_cast<screen::TabControl*>(form.field("c1tMain")))
        form.addShortcut(pageTurn(*tabs));
    screen::addZoomKeys(form);
}

}  // namespace zelvo::input
