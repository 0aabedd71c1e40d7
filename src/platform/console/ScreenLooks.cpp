#include "platform/console/Looks.h"
#include "platform/console/Texts.h"

namespace zelvo::console::looks {

void compare(const std::string& what, const std::string& expected, const std::string& found) {
    if (expected != found) throw ExpectationError(what + " " + inQuotes(expected), inQuotes(found));
}

void compare(const std::string& what, int expected, int found) {
    if (expected != found) {
        throw ExpectationError(what + " " + std::to_string(expected), std::to_string(found));
    }
}

namespace {

std::string listed(const std::vector<std::string>& entries) {
    std::string line;
    for (const std::string& entry : entries) line += (line.empty() ? "" : " ") + inQuotes(entry);
    return line.empty() ? "none" : line;
}

}  // namespace

void compare(const std::string& what, const std::vector<std::string>& expected,
             const std::vector<std::string>& found) {
    if (expected != found) throw ExpectationError(what + " " + listed(expected), listed(found));
}

void message(Look& look) {
    const std::string title = look.words.word("CAPTION");
    const std::string text = look.lastText();
    const std::string expected = "the box [" + escaped(title) + "] " + escaped(text);
    const screen::MessageBox* box = look.desktop.oldestBox();
    if (!box) throw ExpectationError(expected, "no box");
    if (box->caption != title || (text != "*" && box->text != text))
        throw ExpectationError(expected, boxText(*box));
    look.desktop.boxSeen();
}

void noMessage(Look& look) {
    look.words.either("message", "message");
    look.words.end();
    const screen::MessageBox* box = look.desktop.oldestBox();
    if (box) throw ExpectationError("no box", boxText(*box));
}

void events(Look& look) {
    compare("events", look.lastNumber(), look.desktop.events());
}

void event(Look& look) {
    const int number = look.words.number("I");
    const std::string expected = look.lastText();
    const std::string what = "value " + std::to_string(number) + " of the event " + inQuotes(expected);
    const auto& values = look.desktop.lastEvent();
    if (number < 1 || number > 9) throw UnreadableError("an event has the values 1 to 9");
    if (values.empty()) throw ExpectationError(what, "no event");
    const std::string& found = values.at(static_cast<std::size_t>(number - 1));
    if (found != expected) throw ExpectationError(what, inQuotes(found));
}

void pointer(Look& look) {
    const bool busy = look.lastEither("busy", "normal");
    const bool found = look.desktop.pointer() == screen::Pointer::Busy;
    compare("pointer", busy ? "busy" : "normal", found ? "busy" : "normal");
}

void window(Look& look) {
    const std::string expected = look.lastText();
    const auto& open = look.desktop.openWindows();
    const std::string found = open.empty() ? "none" : open.back()->name();
    if (found != expected) throw ExpectationError("the window " + expected + " in front", found);
}

void copied(Look& look) {
    compare("the copy", look.lastText(), look.desktop.copied());
}

}  // namespace zelvo::console::looks
