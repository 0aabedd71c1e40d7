#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvo::http {

/// The named values of a form, in the order in which they are sent.
using FormFields = std::vector<std::pair<std::string_view, std::string>>;

/// The text's bytes percent-encoded, all but letters, digits and "-._~"; what is no UTF-8 is replaced first.
std::string percentEncoded(std::string_view text);
/// "name=value&name=value", names as they stand, values percent-encoded.
std::string formBody(const FormFields& fields);
/// The address with "name=value" added to its query, before a fragment.
std::string withQuery(std::string_view address, std::string_view name, std::string_view value);

}  // namespace zelvo::http
