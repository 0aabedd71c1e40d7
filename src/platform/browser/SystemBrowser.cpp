#include "platform/browser/SystemBrowser.h"

#include <algorithm>
#include <string>

#include "basics/Fault.h"
#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::browser {
namespace {

bool isWebAddress(std::string_view address) {
    const auto bad = [](char c) { return static_cast<unsigned char>(c) <= 0x20 || c == 0x7F; };
    if (std::any_of(address.begin(), address.end(), bad)) return false;
    const std::string folded = basics::foldCase(address.substr(0, 8));
    return folded.starts_with("http://") || folded.starts_with("https://");
}

}  // namespace

void SystemBrowser::open(std::string_view address) {
    const std::string trimmed = basics::replaceAll(basics::pastedAddress(address), " ", "%20");
    if (!isWebAddress(trimmed)) throw basics::Fault("열 수 없는 웹페이지 주소입니다.");
    opener_.open(trimmed);
}

}  // namespace zelvo::browser
