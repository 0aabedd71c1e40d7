#pragma once

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::odbc {

static_assert(sizeof(SQLWCHAR) == 2, "the wide entry points take UTF-16");

/// UTF-8 as the wide entry points take it: UTF-16, with an ending 0 that is not part of the text.
std::vector<SQLWCHAR> toWide(std::string_view text);

/// Puts UTF-16 behind `text` as UTF-8; a half of a pair that stands alone becomes U+FFFD.
void appendUtf8(std::string& text, const SQLWCHAR* wide, std::size_t count);

}  // namespace zelvo::odbc
