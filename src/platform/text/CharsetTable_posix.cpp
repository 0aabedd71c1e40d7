#include <iconv.h>

#include <array>
#include <cerrno>

#include "platform/text/CharsetTable.h"

namespace zelvo::text {

struct CharsetTable::Insides {
    iconv_t handle;
};

CharsetTable::CharsetTable(const std::string& charset)
    : insides_(std::make_unique<Insides>(Insides{iconv_open("UTF-8", charset.c_str())})) {}

CharsetTable::~CharsetTable() {
    if (known()) iconv_close(insides_->handle);
}

bool CharsetTable::known() const {
    return insides_->handle != reinterpret_cast<iconv_t>(-1);
}

CharsetTable::Stop CharsetTable::take(std::string_view& bytes, std::string& text, bool first) {
    if (first) iconv(insides_->handle, nullptr, nullptr, nullptr, nullptr);
    while (!bytes.empty()) {
        std::array<char, 4096> buffer;
        char* in = const_cast<char*>(bytes.data());  // the system's own type; it only reads there
        char* out = buffer.data();
        std::size_t left = bytes.size(), room = buffer.size();
        const bool stuck = iconv(insides_->handle, &in, &left, &out, &room) == static_cast<std::size_t>(-1);
        const int reason = errno;
        text.append(buffer.data(), out);
        bytes.remove_prefix(bytes.size() - left);
        if (stuck && reason != E2BIG) return reason == EINVAL ? Stop::WithinCharacter : Stop::Broken;
    }
    return Stop::End;
}

}  // namespace zelvo::text
