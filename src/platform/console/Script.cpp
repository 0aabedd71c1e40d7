#include "platform/console/Script.h"

#include <charconv>
#include <istream>
#include <ostream>

#include "basics/Utf8.h"
#include "platform/console/UserActions.h"

namespace zelvo::console {

namespace {

constexpr std::string_view blanks = " \t";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isCommand(const std::string& line) {
    const std::size_t first = line.find_first_not_of(blanks);
    return first != std::string::npos && line[first] != '#';
}

}  // namespace

Script::Script(std::istream& in, std::string name, std::ostream* prompt)
    : in_(in), name_(std::move(name)), prompt_(prompt) {}

std::optional<Line> Script::next() {
    std::string line;
    while (true) {
        if (prompt_) *prompt_ << "zelvo> " << std::flush;
        if (!std::getline(in_, line)) return std::nullopt;
        ++number_;
        if (number_ == 1 && line.starts_with(byteOrderMark)) line.erase(0, byteOrderMark.size());
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (isCommand(line)) return Line{number_, basics::cleanUtf8(line)};
    }
}

void WordReader::skipBlanks() {
    at_ = std::min(line_.find_first_not_of(blanks, at_), line_.size());
}

bool WordReader::atEnd() {
    skipBlanks();
    return at_ == line_.size();
}

/// The word whose opening quote stands at the reading position.
std::string WordReader::quoted() {
    std::string word;
    for (std::size_t i = at_ + 1; i < line_.size(); ++i) {
        const char here = line_[i];
        if (here == '"') {
            at_ = i + 1;
            if (at_ < line_.size() && blanks.find(line_[at_]) == std::string_view::npos) {
                throw UnreadableError("a word in quotes ends at its second quote");
            }
            return word;
        }
        if (here != '\\' || i + 1 == line_.size()) {
            word += here;
            continue;
        }
        const char next = line_[++i];
        switch (next) {
            case 'n':
                word += '\n';
                break;
            case 'r':
                word += '\r';
                break;
            case 't':
                word += '\t';
                break;
            case '"':
            case '\\':
                word += next;
                break;
            default:
                word.append({here, next});
        }
    }
    throw UnreadableError("the quotes do not end");
}

std::string WordReader::word(const char* what) {
    if (atEnd()) throw UnreadableError(std::string(what) + " is missing");
    if (line_[at_] == '"') return quoted();
    const std::size_t end = std::min(line_.find_first_of(blanks, at_), line_.size());
    const std::string_view word = line_.substr(at_, end - at_);
    at_ = end;
    return std::string(word);
}

std::string WordReader::lastWord(const char* what) {
    if (atEnd()) throw UnreadableError(std::string(what) + " is missing");
    if (line_[at_] != '"') return std::string(line_.substr(std::exchange(at_, line_.size())));
    std::string word = quoted();
    end();
    return word;
}

std::vector<std::string> WordReader::allWords() {
    std::vector<std::string> words;
    while (!atEnd()) words.push_back(word(""));
    return words;
}

int WordReader::number(const char* what) {
    const std::string text = word(what);
    int number = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end) throw UnreadableError(text + " is no number");
    return number;
}

bool WordReader::either(const char* first, const char* second) {
    const std::string text = word(first);
    if (text != first && text != second) {
        throw UnreadableError(text + " is neither " + first + " nor " + second);
    }
    return text == first;
}

void WordReader::end() {
    if (!atEnd()) throw UnreadableError("\"" + std::string(line_.substr(at_)) + "\" is one word too many");
}

}  // namespace zelvo::console
