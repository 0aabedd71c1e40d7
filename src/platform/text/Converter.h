#pragma once

#include <iconv.h>

#include <string>

namespace zelvo::text {

/// Makes UTF-8 of texts in one charset, with the machine's tables.
class Converter {
public:
    /// `charset` by the machine's name for it; nothing but known() may be asked of one that it doesn't have.
    explicit Converter(const std::string& charset);
    ~Converter();
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool known() const { return handle_ != reinterpret_cast<iconv_t>(-1); }
    /// One whole text. U+FFFD stands for what is no character: a byte, or a pair where the charset has pairs
    /// (so that the next one is read from its first byte).
    std::string convert(std::string bytes);

private:
    std::size_t brokenLength(const char* bytes, std::size_t left) const;

    iconv_t handle_;
    bool pairs_;
};

}  // namespace zelvo::text
