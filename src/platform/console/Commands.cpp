#include "platform/console/Commands.h"

#include <algorithm>
#include <array>

#include "platform/console/Expectations.h"
#include "platform/console/Texts.h"

namespace zelvo::console {

namespace {

/// The arguments of a command, and what it works on.
struct Call {
    ConsoleDesktop& desktop;
    UserActions& user;
    WordReader& words;

    std::string field() { return words.word("FIELD"); }
    std::string text() { return words.lastWord("TEXT"); }
    /// The last plain word of a command.
    std::string last(const char* what) {
        std::string word = words.word(what);
        words.end();
        return word;
    }
    int lastNumber() {
        const int number = words.number("N");
        words.end();
        return number;
    }
    std::vector<std::string> some(const char* what) {
        std::vector<std::string> all = words.allWords();
        if (all.empty()) throw UnreadableError(std::string(what) + " is missing");
        return all;
    }
};

struct Command {
    const char* name;
    const char* usage;
    void (*run)(Call&);
};

void type(Call& call) {
    const std::string field = call.field();
    call.user.type(field, call.text());
}

void key(Call& call) {
    const std::string field = call.field();
    call.user.key(field, call.some("KEY"));
}

void paste(Call& call) {
    const std::string field = call.field();
    call.user.paste(field, call.text());
}

void focus(Call& call) {
    call.user.focus(call.last("FIELD"));
}

void choose(Call& call) {
    const std::string field = call.field();
    call.user.choose(field, call.last("ENTRY"));
}

void check(Call& call) {
    const std::string field = call.field();
    const bool on = call.words.either("on", "off");
    call.words.end();
    call.user.check(field, on);
}

void press(Call& call) {
    call.user.press(call.last("FIELD"));
}

void tab(Call& call) {
    const std::string field = call.field();
    call.user.tab(field, call.lastNumber());
}

void date(Call& call) {
    const std::string field = call.field();
    call.user.date(field, call.last("YYYY-MM-DD"));
}

void row(Call& call) {
    const std::string grid = call.words.word("GRID");
    call.user.row(grid, call.lastNumber());
}

void cell(Call& call) {
    const std::string grid = call.words.word("GRID");
    const std::string column = call.words.word("COLUMN");
    call.user.cell(grid, column, call.text());
}

void cellKey(Call& call) {
    const std::string grid = call.words.word("GRID");
    const std::string column = call.words.word("COLUMN");
    call.user.cellKey(grid, column, call.last("KEY"));
}

void cellButton(Call& call) {
    const std::string grid = call.words.word("GRID");
    call.user.cellButton(grid, call.last("COLUMN"));
}

void head(Call& call) {
    const std::string grid = call.words.word("GRID");
    call.user.head(grid, call.last("COLUMN"));
}

void column(Call& call) {
    const std::string grid = call.words.word("GRID");
    const std::string column = call.words.word("COLUMN");
    const bool shown = call.words.either("on", "off");
    call.words.end();
    call.user.column(grid, column, shown);
}

void widths(Call& call) {
    const std::string grid = call.words.word("GRID");
    std::vector<double> twips;
    while (!call.words.atEnd()) twips.push_back(call.words.number("TWIPS"));
    call.user.widths(grid, twips);
}

void mark(Call& call) {
    const std::string grid = call.words.word("GRID");
    if (call.words.atEnd()) return call.user.mark(grid, std::nullopt);
    call.user.mark(grid, call.lastNumber());
}

void copy(Call& call) {
    call.user.copy(call.last("GRID"));
}

void shortcut(Call& call) {
    call.user.shortcut(call.last("KEYS"));
}

void answer(Call& call) {
    for (const std::string& word : call.some("Yes, No or OK")) {
        if (word == "Yes") {
            call.desktop.queueAnswer(screen::Answer::Yes);
        } else if (word == "No") {
            call.desktop.queueAnswer(screen::Answer::No);
        } else if (word == "OK") {
            call.desktop.queueAnswer(screen::Answer::Ok);
        } else {
            throw UnreadableError(word + " is neither Yes nor No nor OK");
        }
    }
}

void page(Call& call) {
    const std::string word = call.last("finished, failed or never");
    if (word == "finished") return call.desktop.queuePage(PageOutcome::Finished);
    if (word == "failed") return call.desktop.queuePage(PageOutcome::Failed);
    if (word == "never") return call.desktop.queuePage(PageOutcome::Never);
    throw UnreadableError(word + " is neither finished nor failed nor never");
}

void resize(Call& call) {
    call.words.end();
    call.user.resize();
}

void close(Call& call) {
    call.words.end();
    call.user.close();
}

void pharmacy(Call& call) {
    const int code = call.desktop.runPharmacy(call.some("what the pharmacy is to do"));
    if (code != 0) throw ExpectationError("the pharmacy to do it", "exit code " + std::to_string(code));
}

void support(Call& call) {
    call.words.end();
    call.desktop.out() << call.desktop.support().lastLines();
}

void show(Call& call) {
    call.desktop.out() << fieldLine(call.user.find(call.last("FIELD"))) << "\n";
}

void dump(Call& call) {
    if (call.words.atEnd()) return printWindow(call.desktop.out(), call.user.front());
    const std::string name = call.last("GRID");
    auto* grid = dynamic_cast<screen::Grid*>(&call.user.find(name));
    if (!grid) throw ExpectationError(name + " to be a grid", "another kind of field");
    printGrid(call.desktop.out(), *grid);
}

void help(Call& call);

void expectation(Call& call) {
    expect(call.desktop, call.words);
}

constexpr std::array commands{
    Command{"type", "FIELD TEXT", type},
    Command{"key", "FIELD KEY...", key},
    Command{"paste", "FIELD TEXT", paste},
    Command{"focus", "FIELD", focus},
    Command{"choose", "FIELD ENTRY", choose},
    Command{"check", "FIELD on|off", check},
    Command{"press", "FIELD", press},
    Command{"tab", "FIELD N", tab},
    Command{"date", "FIELD YYYY-MM-DD", date},
    Command{"row", "GRID N", row},
    Command{"cell", "GRID COLUMN TEXT", cell},
    Command{"cellkey", "GRID COLUMN KEY", cellKey},
    Command{"cellbutton", "GRID COLUMN", cellButton},
    Command{"head", "GRID COLUMN", head},
    Command{"column", "GRID COLUMN on|off", column},
    Command{"widths", "GRID [TWIPS...]", widths},
    Command{"mark", "GRID [ROW]", mark},
    Command{"copy", "GRID", copy},
    Command{"shortcut", "KEYS", shortcut},
    Command{"answer", "Yes|No|OK", answer},
    Command{"page", "finished|failed|never", page},
    Command{"resize", "", resize},
    Command{"close", "", close},
    Command{"pharmacy", "WORDS...", pharmacy},
    Command{"support", "", support},
    Command{"expect", "...", expectation},
    Command{"show", "FIELD", show},
    Command{"dump", "[GRID]", dump},
    Command{"help", "", help},
};

void help(Call& call) {
    call.words.end();
    for (const Command& command : commands) {
        if (command.run == expectation) continue;
        call.desktop.out() << command.name << " " << command.usage << "\n";
    }
    for (const std::string& form : expectationForms()) call.desktop.out() << "expect " << form << "\n";
}

}  // namespace

void runCommand(ConsoleDesktop& desktop, const std::string& line) {
    WordReader words(line);
    const std::string name = words.word("the command");
    const auto* command = std::find_if(commands.begin(), commands.end(),
                                       [&](const Command& known) { return known.name == name; });
    if (command == commands.end()) throw UnreadableError("there is no command " + name);
    if (desktop.afterMain() && command->run != expectation) {
        throw UnreadableError("no window is left for " + name);
    }
    Call call{desktop, desktop.user(), words};
    command->run(call);
}

}  // namespace zelvo::console
