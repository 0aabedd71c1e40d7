#pragma once

#include <string>
#include <string_view>

namespace zelvo::http {

/// A page's bytes as sound UTF-8, read by the charset that its content type names: UTF-8 without one or for
/// one that this machine doesn't know; EUC-KR, KS_C_5601 and their kin as code page 949. What can't be read
/// is U+FFFD; a byte order mark at the start goes.
std::string decodePage(std::string_view bytes, std::string_view contentType);

/// The same for a page that is written for people: where its content type names no charset, a mark at its
/// start or a meta element in its head does. One that says nothing and is no UTF-8 is in code page 949.
std::string decodeHtml(std::string_view bytes, std::string_view contentType);

}  // namespace zelvo::http
