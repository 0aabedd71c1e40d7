#include <algorithm>

#include "Demand.h"
#include "basics/Fault.h"
#include "platform/http/Form.h"
#include "platform/http/WebAddress.h"

using namespace zelvo;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    try {
        const http::WebAddress address(text);
        const std::string& whole = address.text();
        fuzz::demand(whole.starts_with(address.isSecure() ? "https://" : "http://"), "of the web");
        fuzz::demand(std::none_of(whole.begin(), whole.end(),
                                  [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == 0x7F; }),
                     "no blank and no control character");
        // A number in another writing is one more step to the host that it means.
        const std::string settled = http::WebAddress(whole).text();
        fuzz::demand(http::WebAddress(settled).text() == settled, "an address stays itself");
        static_cast<void>(http::withQuery(whole, "find", text));
    } catch (const basics::Fault&) {
        // Said to be none.
    }
    return 0;
}
