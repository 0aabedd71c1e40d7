#include "Demand.h"
#include "basics/Utf8.h"
#include "platform/qt/PageHtml.h"

using namespace zelvo;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string html = basics::cleanUtf8(fuzz::textOf(data, size));
    const qt::ReadablePage page = qt::readablePage(html);
    fuzz::demand(basics::isUtf8(page.html), "the page is UTF-8");
    fuzz::demand(page.html.find("<script") == std::string::npos, "no script");
    fuzz::demand(page.html.size() <= 200 * html.size() + 2000, "no page out of nothing");
    fuzz::demand(!page.shown || !page.html.empty(), "what is shown is there");
    return 0;
}
