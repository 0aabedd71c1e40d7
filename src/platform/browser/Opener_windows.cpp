#include "platform/browser/Opener.h"

#include <windows.h>

#include <shellapi.h>

#include "basics/Fault.h"
#include "basics/Paths.h"

namespace zelvo::browser {

struct Opener::Running {};

Opener::Opener() = default;
Opener::~Opener() = default;

void Opener::open(const std::string& address) {
    // Above 32 it has been started.
    constexpr INT_PTR started = 32;
    const HINSTANCE result =
        ::ShellExecuteW(nullptr, L"open", basics::pathOf(address).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    if (reinterpret_cast<INT_PTR>(result) <= started)
        throw basics::Fault("이 컴퓨터에서 웹 브라우저를 찾지 못했습니다.");
}

}  // namespace zelvo::browser
