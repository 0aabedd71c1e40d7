#include <iconv.h>

#include <array>
#include <cerrno>

#include "platform/text/CharsetTable.h"

namespace zelvo::text {

struct CharsetTable::Insides {
    iconv_t handle;
    bool korean;

    /// The system's Korean table holds this pair for no character, but has stepped over it when it says so.
    bool hasSteppedOver(std::string_view taken) const { return korean && taken.ends_with("\xA2\xE8"); }
    void finish(std::string& text) const;
};

CharsetTable::CharsetTable(const std::string& charset)
    : insides_(std::make_unique<Insides>(Insides{iconv_open("UTF-8", charset.c_str()), charset == "CP949"})) {
}

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
        if (stuck && reason == EILSEQ && insides_->hasSteppedOver(bytes.substr(0, bytes.size() - left)))
            left += 2;
        bytes.remove_prefix(bytes.size() - left);
        if (!stuck || reason == E2BIG) continue;
        if (reason != EINVAL) return Stop::Broken;
        insides_->finish(text);
        return Stop::WithinCharacter;
    }
    insides_->finish(text);
    return Stop::End;
}

/// The last letter, where a mark that comes behind it could still have changed it.
void CharsetTable::Insides::finish(std::string& text) const {
    std::array<char, 64> buffer;
    char* out = buffer.data();
    std::size_t room = buffer.size();
    iconv(handle, nullptr, nullptr, &out, &room);
    text.append(buffer.data(), out);
}

}  // namespace zelvo::text
