#include "platform/sqlite/Dialect.h"

#include <algorithm>
#include <cstddef>

#include "basics/Utf8.h"

namespace zelvo::sqlite {
namespace {

bool isNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool isWord(std::string_view word, std::string_view lowerCase) {
    return word.size() == lowerCase.size() && basics::foldCase(word) == lowerCase;
}

/// A whole number as it is written when it is stored as one: no sign, no leading zero, within 64 bits.
bool isPlainNumber(std::string_view text) {
    return !text.empty() && text.size() <= 18 && std::all_of(text.begin(), text.end(), isDigit) &&
           (text.front() != '0' || text.size() == 1);
}

/// Makes a server wait for rows that are just being written; SQLite has one writer and needs no hint.
constexpr std::string_view lockHint = "(READCOMMITTEDLOCK)";
/// The length of a text without a bound, which SQLite's types don't bear.
constexpr std::string_view unbounded = "(MAX)";

class Translator {
public:
    Translator(std::string_view text, bool looseColumns) : text_(text), looseColumns_(looseColumns) {
        result_.reserve(text.size() + 64);
    }

    std::string run() {
        while (at_ < text_.size()) {
            const char c = text_[at_];
            if (c == '\'') {
                copyTo(literalEnd(at_));
            } else if (isNameStart(c) || static_cast<unsigned char>(c) >= 0x80) {
                word();
            } else if (c == '=' && inConditions_ && !isComparison(at_)) {
                equals();
            } else if (looseColumns_ && inConditions_ && text_.substr(at_).starts_with("<>")) {
                if (!comparesNumber(at_ + 2, "NOT IN (")) copyTo(at_ + 2);
            } else {
                copyTo(at_ + 1);
            }
        }
        return std::move(result_);
    }

private:
    void copyTo(std::size_t end) {
        result_.append(text_, at_, end - at_);
        at_ = end;
    }

    /// Behind the closing quote of the literal that opens at `from`.
    std::size_t literalEnd(std::size_t from) const {
        for (std::size_t quote = text_.find('\'', from + 1); quote != std::string_view::npos;
             quote = text_.find('\'', quote + 2)) {
            if (quote + 1 >= text_.size() || text_[quote + 1] != '\'') return quote + 1;
        }
        return text_.size();
    }

    std::size_t skipBlanks(std::size_t from) const {
        while (from < text_.size() && isBlank(text_[from])) ++from;
        return from;
    }

    /// The = of "<=", ">=" and "!=".
    bool isComparison(std::size_t equals) const {
        return equals > 0 && std::string_view("<>!=").find(text_[equals - 1]) != std::string_view::npos;
    }

    void word() {
        std::size_t end = at_;
        while (end < text_.size() && (isNameStart(text_[end]) || isDigit(text_[end]) ||
                                      static_cast<unsigned char>(text_[end]) >= 0x80)) {
            ++end;
        }
        const std::string_view word = text_.substr(at_, end - at_);
        if (isWord(word, "where")) inConditions_ = true;
        const std::size_t next = skipBlanks(end);
        if (isWord(word, "left") && next < text_.size() && text_[next] == '(') {
            result_ += "\"left\"";
            at_ = end;
        } else if (isWord(word, "with") && text_.substr(next).starts_with(lockHint)) {
            at_ = next + lockHint.size();
        } else if (isWord(word, "nvarchar") && text_.substr(next).starts_with(unbounded)) {
            result_ += word;
            at_ = next + unbounded.size();
        } else {
            copyTo(end);
        }
    }

    void equals() {
        const std::size_t open = skipBlanks(at_ + 1);
        if (looseColumns_ && (comparesNumber(open, "IN (") || comparesColumn(open))) return;
        if (open >= text_.size() || text_[open] != '\'') return copyTo(at_ + 1);
        const std::size_t end = literalEnd(open);
        const std::string_view literal = text_.substr(open, end - open);
        const std::string_view content = literal.size() < 2 ? "" : literal.substr(1, literal.size() - 2);
        if (isPlainNumber(content)) {
            result_.append("IN (").append(literal).append(", ").append(content).append(")");
        } else {
            result_.append("= ").append(literal).append(" COLLATE ").append(serverCollation);
        }
        at_ = end;
    }

    /// "1" as the number and as the text; false for anything but a whole number.
    bool comparesNumber(std::size_t from, std::string_view with) {
        const std::size_t open = skipBlanks(from);
        std::size_t end = open < text_.size() && text_[open] == '-' ? open + 1 : open;
        const std::size_t digits = end;
        while (end < text_.size() && isDigit(text_[end])) ++end;
        if (end == digits || (end < text_.size() && text_[end] == '.')) return false;
        const std::string_view number = text_.substr(open, end - open);
        result_.append(with).append(number).append(", '").append(number).append("')");
        at_ = end;
        return true;
    }

    /// The keys of two tables, compared as texts.
    bool comparesColumn(std::size_t open) {
        if (open >= text_.size() || !isNameStart(text_[open])) return false;
        std::size_t end = open;
        while (end < text_.size() && (isNameStart(text_[end]) || isDigit(text_[end]) || text_[end] == '.'))
            ++end;
        if (end < text_.size() && text_[end] == '(') return false;
        result_.append("|| '' = ").append(text_.substr(open, end - open)).append(" || ''");
        at_ = end;
        return true;
    }

    std::string_view text_;
    bool looseColumns_;
    std::size_t at_ = 0;
    bool inConditions_ = false;
    std::string result_;
};

}  // namespace

std::string toSqlite(std::string_view statement, bool looseColumns) {
    return Translator(statement, looseColumns).run();
}

}  // namespace zelvo::sqlite
