#include "data/Failure.h"

#include <algorithm>
#include <cctype>

namespace zelvo::data {
namespace {

bool isWordCharacter(char c) {
    return c == '_' || std::isalnum(static_cast<unsigned char>(c)) != 0;
}

}  // namespace

std::string causeOf(const std::exception_ptr& fault) {
    try {
        if (fault) std::rethrow_exception(fault);
    } catch (const DriverFault& told) {
        return told.code();
    } catch (const SetupFault& told) {
        return told.what();
    } catch (...) {
        // Its text may hold a value.
    }
    return {};
}

std::string kindOfStatement(std::string_view statement) {
    // Values stand between quotes; the table stands before them.
    const std::string_view plain = statement.substr(0, statement.find('\''));
    std::string kind;
    for (const char c : plain.substr(0, plain.find_first_of(" ;\n"))) {
        if (isWordCharacter(c)) kind += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    for (std::size_t at = plain.find("t_"); at != std::string_view::npos; at = plain.find("t_", at + 1)) {
        if (at > 0 && isWordCharacter(plain[at - 1])) continue;
        const auto* const end = std::find_if_not(plain.begin() + at, plain.end(), isWordCharacter);
        return kind.append(" ").append(plain.begin() + at, end);
    }
    return kind;
}

std::string functionOf(const CodePlace& place) {
    std::string_view name = place.function_name();
    name = name.substr(0, name.find('('));
    const std::size_t before = name.find_last_of(" :*&");
    return std::string(before == std::string_view::npos ? name : name.substr(before + 1));
}

}  // namespace zelvo::data
