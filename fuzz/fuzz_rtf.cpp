#include <string>

#include "Demand.h"
#include "basics/Utf8.h"
#include "platform/text/MachineCodePages.h"
#include "screen/RtfReader.h"
#include "screen/RtfWriter.h"

using namespace zelvo;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const screen::CodePages pages = text::machineCodePages();
    const std::string rtf = "{\\rtf1" + std::string(fuzz::textOf(data, size));
    const screen::RichText content = screen::readRtf(rtf, pages);
    const std::string plain = screen::plainText(content);
    fuzz::demand(basics::isUtf8(plain), "the text is UTF-8");
    fuzz::demand(plain.size() <= 4 * rtf.size(), "no text out of nothing");
    fuzz::demand(screen::readRtf(screen::writeRtf(content), pages) == content,
                 "what was read is written as it was");
    fuzz::demand(screen::keepsAll(screen::writeRtf(content)), "what is written is kept");
    return 0;
}
