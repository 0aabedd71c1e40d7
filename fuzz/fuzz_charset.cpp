#include <string>

#include "Demand.h"
#include "basics/Utf8.h"
#include "platform/http/Charset.h"

using namespace zelvo;

/// The first line is the content type.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    const std::string_view type = text.substr(0, text.find('\n'));
    const std::string_view bytes = text.substr(std::min(type.size() + 1, text.size()));
    fuzz::demand(basics::isUtf8(http::decodeHtml(bytes, type)), "a page is UTF-8");
    fuzz::demand(basics::isUtf8(http::decodePage(bytes, type)), "an answer is UTF-8");
    return 0;
}
