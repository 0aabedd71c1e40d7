#include "platform/odbc/Dialect.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace zelvo::odbc {
namespace {

/// Behind the closing quote of the literal that opens at `from`.
std::size_t literalEnd(std::string_view text, std::size_t from) {
    for (std::size_t quote = text.find('\'', from + 1); quote != std::string_view::npos;
         quote = text.find('\'', quote + 2)) {
        if (quote + 1 >= text.size() || text[quote + 1] != '\'') return quote + 1;
    }
    return text.size();
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Behind the next backslash that stands before a line end; npos when there is none.
std::size_t nextContinuation(std::string_view text, std::size_t from) {
    for (std::size_t at = text.find('\\', from); at != std::string_view::npos; at = text.find('\\', at + 1)) {
        if (at + 1 < text.size() && (text[at + 1] == '\r' || text[at + 1] == '\n')) return at + 1;
    }
    return std::string_view::npos;
}

/// The pieces of a literal that holds continuations, without quotes: each but the last ends in a backslash.
std::vector<std::string_view> piecesOf(std::string_view content) {
    std::vector<std::string_view> pieces;
    std::size_t done = 0;
    for (std::size_t cut = nextContinuation(content, 0); cut != std::string_view::npos;
         cut = nextContinuation(content, done)) {
        pieces.push_back(content.substr(done, cut - done));
        done = cut;
    }
    pieces.push_back(content.substr(done));
    return pieces;
}

/// The sum of literals. Each group starts with a text without bound: a sum of short literals would end at
/// 8000 bytes. Groups are joined in halves: a chain of thousands is nested too deeply for a server.
void appendSum(std::string& result, std::span<const std::string_view> pieces, std::string_view mark) {
    constexpr std::size_t group = 32;
    result += '(';
    if (pieces.size() > group) {
        appendSum(result, pieces.first(pieces.size() / 2), mark);
        result += " + ";
        appendSum(result, pieces.subspan(pieces.size() / 2), mark);
    } else {
        result.append(mark.empty() ? "CAST('' AS varchar(max))" : "CAST(N'' AS nvarchar(max))");
        for (const std::string_view piece : pieces)
            result.append(" + ").append(mark).append("'").append(piece).append("'");
    }
    result += ')';
}

/// A literal with its quotes.
void appendLiteral(std::string& result, std::string_view literal) {
    const std::string_view mark = isAscii(literal) ? "" : "N";
    if (nextContinuation(literal, 0) == std::string_view::npos) {
        result.append(mark).append(literal);
    } else {
        appendSum(result, piecesOf(literal.substr(1, literal.size() - 2)), mark);
    }
}

}  // namespace

std::string toSqlServer(std::string_view statement) {
    std::string result;
    result.reserve(statement.size() + 64);
    std::size_t done = 0;
    for (std::size_t quote = statement.find('\''); quote != std::string_view::npos;
         quote = statement.find('\'', done)) {
        const std::size_t end = literalEnd(statement, quote);
        const std::string_view literal = statement.substr(quote, end - quote);
        result.append(statement, done, quote - done);
        appendLiteral(result, literal);
        done = end;
    }
    return result.append(statement, std::min(done, statement.size()));
}

}  // namespace zelvo::odbc
