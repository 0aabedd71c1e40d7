#include "platform/odbc/Handle.h"

#include <algorithm>
#include <array>

#include "basics/Numbers.h"

namespace zelvo::odbc {
namespace {

/// Class 08 is the line itself; HYT is a time-out, HY008 a statement that was given up.
ServerFault::Kind kindOf(std::string_view state) {
    if (state.starts_with("08")) return ServerFault::Kind::Broken;
    return state.starts_with("HYT") || state == "HY008" ? ServerFault::Kind::Late
                                                        : ServerFault::Kind::Refusal;
}

}  // namespace

ServerFault faultOf(SQLSMALLINT kind, SQLHANDLE handle) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 4096> message{};
    std::string description, code;
    bool said = false;
    auto worst = ServerFault::Kind::Refusal;
    for (SQLSMALLINT record = 1;; ++record) {
        SQLINTEGER number = 0;
        SQLSMALLINT length = 0;
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(kind, handle, record, state.data(), &number, message.data(),
                                          static_cast<SQLSMALLINT>(message.size()), &length))) {
            break;
        }
        std::string stateText;
        appendUtf8(stateText, state.data(), 5);
        worst = std::max(worst, kindOf(stateText));
        // FreeTDS numbers its own messages from 20000 on.
        said = said || (number > 0 && (number < 20000 || number > 20100));
        code += (code.empty() ? "" : " ") + stateText + "/" + basics::decimalText(std::int64_t{number});
        if (!description.empty()) description += ' ';
        description += "[" + stateText + "] ";
        const auto told = std::min<std::size_t>(static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0)),
                                                message.size() - 1);
        appendUtf8(description, message.data(), told);
        description += " (" + basics::decimalText(std::int64_t{number}) + ")";
    }
    return {description.empty() ? "the driver says nothing of its failure" : description, worst, code, said};
}

}  // namespace zelvo::odbc
