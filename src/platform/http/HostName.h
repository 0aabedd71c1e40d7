#pragma once

#include <string>

namespace zelvo::http {

/// A host's name as name servers know it: Hangul in its ASCII form. "" for one that is none.
std::string asciiHost(const std::string& host);

}  // namespace zelvo::http
