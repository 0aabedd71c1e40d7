#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "basics/Utf8.h"
#include "platform/text/MachineCodePages.h"
#include "screen/RtfReader.h"
#include "screen/RtfWriter.h"

using namespace zelvo;

namespace {

void demand(bool held, const char* what) {
    if (held) return;
    std::cerr << "broken: " << what << '\n';
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const screen::CodePages pages = text::machineCodePages();
    std::string rtf = "{\\rtf1";
    rtf.append(reinterpret_cast<const char*>(data), size);
    const screen::RichText content = screen::readRtf(rtf, pages);
    const std::string plain = screen::plainText(content);
    demand(basics::isUtf8(plain), "the text is UTF-8");
    demand(plain.size() <= 4 * rtf.size(), "no text out of nothing");
    demand(screen::readRtf(screen::writeRtf(content), pages) == content,
           "what was read is written as it was");
    return 0;
}
