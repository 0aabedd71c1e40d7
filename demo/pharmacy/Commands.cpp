#include "pharmacy/Commands.h"

#include <charconv>
#include <cstdint>
#include <iostream>
#include <limits>
#include <map>
#include <optional>

#include "basics/Numbers.h"
#include "pharmacy/PharmacyBook.h"
#include "pharmacy/PharmacyFile.h"
#include "pharmacy/Server.h"

namespace zelvo::pharmacy {
namespace {

constexpr int done = 0;
constexpr int failed = 1;
constexpr int badUsage = 2;
constexpr std::int64_t largestPort = 65535;

constexpr auto help = R"(usage: zelvo-pharmacy [--db FILE] COMMAND
       zelvo-pharmacy --help|--version

Keeps the demo pharmacy: its database, its web pages and what its people do with an order.

  init [--fresh]           make the database with its catalogue; one that is there stays, unless --fresh
  serve [--port N] [--ready-file FILE] [--parent PID]
                           serve the cost pages, the postal search and the notices on 127.0.0.1, on a free port
                           unless N; the port goes into FILE; ends on SIGTERM, SIGINT or when PID is gone
  orders                   list all orders: key, date, patient, state, paid, cancelled, total in won
  state CBJ_PK 0|1|2|3     move an order on: waiting, in production, waiting for dispatch, finished
  paid CBJ_PK 0|1          mark an order paid or not
  deposit DTR_ID WON       pay in for a doctor; a negative amount pays out

  --db FILE                the database; otherwise zelvo/pharmacy.db in the user's data folder

exit: 0 done; 1 it can't be done: no such order, doctor or pharmacy; 2 words that can't be understood
)";

/// A problem with the words themselves.
struct UsageError {
    std::string text;
};

struct Words {
    std::vector<std::string> plain;
    std::map<std::string, std::string> options;  // "--port" and its value, "" for one without
};

/// The options with a value, and those without.
bool takesValue(const std::string& word) {
    return word == "--db" || word == "--port" || word == "--ready-file" || word == "--parent";
}
bool isSwitch(const std::string& word) {
    return word == "--fresh" || word == "--help" || word == "-h" || word == "--version";
}

Words sortWords(const std::vector<std::string>& words) {
    Words sorted;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto& word = words[i];
        if (takesValue(word)) {
            if (++i == words.size()) throw UsageError{word + " needs a value"};
            sorted.options[word] = words[i];
        } else if (isSwitch(word)) {
            sorted.options[word] = "";
        } else if (word.starts_with("--")) {
            throw UsageError{"unknown option " + word};
        } else {
            sorted.plain.push_back(word);
        }
    }
    return sorted;
}

std::int64_t number(const std::string& text, std::int64_t least, std::int64_t most, const std::string& what) {
    std::int64_t value = 0;
    const auto* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    if (text.empty() || read.ec != std::errc() || read.ptr != end || value < least || value > most) {
        throw UsageError{what + " must be a whole number from " + std::to_string(least) + " to " +
                         std::to_string(most) + ", not \"" + text + "\""};
    }
    return value;
}

void expectWords(const Words& words, std::size_t count) {
    if (words.plain.size() != count)
        throw UsageError{words.plain[0] + " takes " + std::to_string(count - 1) + " words"};
}

std::string databasePath(const Words& words) {
    const auto given = words.options.find("--db");
    auto path = given == words.options.end() ? defaultDatabasePath() : given->second;
    if (path.empty()) throw UsageError{"no data folder of the user is known: name the database with --db"};
    return path;
}

int init(const Words& words) {
    expectWords(words, 1);
    const auto path = databasePath(words);
    const auto making = makePharmacy(path, words.options.contains("--fresh"));
    std::cout << (making == Making::Made ? "made " : "left as it is ") << path << "\n";
    return done;
}

int serveWords(const Words& words) {
    expectWords(words, 1);
    ServeOptions options;
    options.databasePath = databasePath(words);
    const auto value = [&](const char* name) -> std::optional<std::string> {
        const auto found = words.options.find(name);
        return found == words.options.end() ? std::nullopt : std::optional(found->second);
    };
    if (const auto port = value("--port"))
        options.port = static_cast<int>(number(*port, 0, largestPort, "the port"));
    if (const auto parent = value("--parent")) {
        options.parent = number(*parent, 1, std::numeric_limits<std::int32_t>::max(), "the process");
    }
    options.readyFile = value("--ready-file").value_or("");
    return serve(options);
}

int listOrders(const Words& words) {
    expectWords(words, 1);
    const PharmacyBook book(databasePath(words));
    for (const auto& row : book.orders()) {
        std::cout << row.key << "\t" << row.date << "\t" << row.patient << "\t" << row.state << "\t"
                  << (row.paid ? "지불" : "미지불") << "\t" << (row.cancelled ? "취소" : "-") << "\t"
                  << row.total << "\n";
    }
    return done;
}

std::int64_t orderKey(const Words& words) {
    return number(words.plain[1], 1, std::numeric_limits<std::int32_t>::max(), "CBJ_PK");
}

int verdict(bool found, const std::string& what) {
    if (found) return done;
    std::cerr << "zelvo-pharmacy: there is no " << what << "\n";
    return failed;
}

int setState(const Words& words) {
    expectWords(words, 3);
    const auto key = orderKey(words);
    const auto state = static_cast<int>(number(words.plain[2], 0, 3, "the state"));
    return verdict(PharmacyBook(databasePath(words)).setState(key, state), "order " + words.plain[1]);
}

int setPaid(const Words& words) {
    expectWords(words, 3);
    const auto key = orderKey(words);
    const bool paid = number(words.plain[2], 0, 1, "paid") == 1;
    return verdict(PharmacyBook(databasePath(words)).setPaid(key, paid), "order " + words.plain[1]);
}

int deposit(const Words& words) {
    expectWords(words, 3);
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    const auto won = number(words.plain[2], -most, most, "the amount");
    if (won == 0) throw UsageError{"an amount of 0 is no deposit"};
    return verdict(PharmacyBook(databasePath(words)).addDeposit(words.plain[1], won),
                   "doctor " + words.plain[1]);
}

using Command = int (*)(const Words&);
const std::map<std::string, Command>& commands() {
    static const std::map<std::string, Command> all = {{"init", init},         {"serve", serveWords},
                                                       {"orders", listOrders}, {"state", setState},
                                                       {"paid", setPaid},      {"deposit", deposit}};
    return all;
}

int run(const std::vector<std::string>& words) {
    const auto sorted = sortWords(words);
    if (sorted.options.contains("--help") || sorted.options.contains("-h")) {
        std::cout << help;
        return done;
    }
    if (sorted.options.contains("--version")) {
        std::cout << "zelvo-pharmacy " << ZELVO_VERSION << "\n";
        return done;
    }
    if (sorted.plain.empty()) throw UsageError{"a command is missing (--help lists them)"};
    const auto command = commands().find(sorted.plain[0]);
    if (command == commands().end())
        throw UsageError{"unknown command " + sorted.plain[0] + " (--help lists them)"};
    return command->second(sorted);
}

}  // namespace

int runCommand(const std::vector<std::string>& words) {
    try {
        return run(words);
    } catch (const UsageError& error) {
        std::cerr << "zelvo-pharmacy: " << error.text << "\n";
        return badUsage;
    } catch (const std::exception& error) {
        std::cerr << "zelvo-pharmacy: " << error.what() << "\n";
        return failed;
    }
}

}  // namespace zelvo::pharmacy
