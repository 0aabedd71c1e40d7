#include "platform/console/Expectations.h"

#include <algorithm>
#include <array>

#include "platform/console/Looks.h"

namespace zelvo::console {

namespace {

using looks::Look;

struct Form {
    const char* name;
    const char* usage;
    void (*look)(Look&);
    bool afterMain = false;
};

constexpr std::array forms{
    Form{"caption", "FIELD TEXT", looks::caption},
    Form{"shown", "FIELD", looks::shown},
    Form{"hidden", "FIELD", looks::hidden},
    Form{"enabled", "FIELD", looks::enabled},
    Form{"disabled", "FIELD", looks::disabled},
    Form{"focus", "FIELD", looks::focus},
    Form{"tab", "FIELD N", looks::tab},
    Form{"selectable", "FIELD N yes|no", looks::selectable},
    Form{"entries", "FIELD \"A\" \"B\"...", looks::entries},
    Form{"selected", "FIELD N", looks::selected},
    Form{"item", "FIELD N on|off", looks::item},
    Form{"panel", "FIELD N TEXT", looks::panel},
    Form{"rows", "GRID N", looks::rows},
    Form{"current", "GRID N", looks::current},
    Form{"cell", "GRID ROW COLUMN TEXT", looks::cell},
    Form{"value", "GRID ROW COLUMN TEXT", looks::value},
    Form{"style", "GRID ROW NAME", looks::style},
    Form{"glass", "GRID ROW COLUMN TEXT", looks::glass},
    Form{"columns", "GRID \"A\" \"B\"...", looks::columns},
    Form{"hint", "GRID TEXT", looks::hint},
    Form{"copied", "TEXT", looks::copied},
    Form{"textcolor", "FIELD R,G,B", looks::textColor},
    Form{"backcolor", "FIELD R,G,B", looks::backColor},
    Form{"plain", "FIELD TEXT", looks::plain},
    Form{"message", "CAPTION TEXT|*", looks::message, true},
    Form{"no", "message", looks::noMessage, true},
    Form{"events", "N", looks::events, true},
    Form{"event", "I TEXT", looks::event, true},
    Form{"pointer", "normal|busy", looks::pointer},
    Form{"window", "NAME|none", looks::window, true},
};

}  // namespace

void expect(ConsoleDesktop& desktop, WordReader& words) {
    Look look{desktop, words};
    const std::string first = words.word("what is expected");
    const auto* form =
        std::find_if(forms.begin(), forms.end(), [&](const Form& known) { return known.name == first; });
    const bool known = form != forms.end();
    if (desktop.afterMain() && !(known && form->afterMain)) {
        throw UnreadableError("no window is left to look for " + first);
    }
    if (known) return form->look(look);
    looks::text(look, first);
}

std::vector<std::string> expectationForms() {
    std::vector<std::string> all{"FIELD TEXT"};
    for (const Form& form : forms) all.push_back(std::string(form.name) + " " + form.usage);
    return all;
}

}  // namespace zelvo::console
