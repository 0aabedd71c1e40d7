#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zelvo::ordering {

/// An order in the making as it is kept on the clinic's machine: whose it is, and what it holds under the
/// names of its fields.
struct KeptDraft {
    using Texts = std::map<std::string, std::string>;
    std::int32_t DTR_PK = 0, Patient_PK = 0;
    std::string patientName, server;
    std::string keptAt;  ///< the machine's time, "yyyy-mm-dd hh:mm:ss"
    Texts texts;
    bool operator==(const KeptDraft&) const = default;
};

/// A line a text, and a last line by which a whole draft is known.
std::string writeDraft(const KeptDraft& draft);
/// Nothing for a text that is no whole draft.
std::optional<KeptDraft> readDraft(std::string_view text);

/// Minutes from a time to another, both "yyyy-mm-dd hh:mm:ss"; 0 where one of them is none.
std::int64_t ageInMinutes(std::string_view keptAt, std::string_view now);
/// How long ago a draft was kept, in words: "방금 전", "20분 전", "3시간 전", "2일 전". Both times
/// "yyyy-mm-dd hh:mm:ss"; a time that lies ahead, or is none, is "방금 전".
std::string ageText(std::string_view keptAt, std::string_view now);

}  // namespace zelvo::ordering
