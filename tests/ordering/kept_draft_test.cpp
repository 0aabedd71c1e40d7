#include "ordering/KeptDraft.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace zelvo::ordering {
namespace {

TEST(KeptDraft, IsReadWholeOrNotAtAll) {
    const KeptDraft draft{
        17, 1024, "김=하늘\\n", "server:1", "2026-03-01 09:00:00", {{"note", "a\r\nb\\"}, {"x", ""}}};
    const std::string text = writeDraft(draft);
    EXPECT_EQ(readDraft(text), draft);
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_FALSE(readDraft(std::string_view(text).substr(0, length))) << length;
    for (const char* damaged :
         {"draft 2\nend\n", "draft 1\ndoctor=x\npatient=1\nend\n", "draft 1\nnothing\nend\n"})
        EXPECT_FALSE(readDraft(damaged)) << damaged;
}

TEST(KeptDraft, TellsItsAgeInWords) {
    const std::vector<std::array<const char*, 3>> cases = {
        {"2026-03-01 09:00:00", "2026-03-01 09:00:59", "방금 전"},
        {"2026-03-01 09:00:00", "2026-03-01 09:59:59", "59분 전"},
        {"2026-02-28 22:00:00", "2026-03-01 01:00:00", "3시간 전"},
        {"2024-02-28 09:00:00", "2024-03-01 09:00:00", "2일 전"},
        {"2026-03-02 09:00:00", "2026-03-01 09:00:00", "방금 전"},
        {"damaged", "2026-03-01 09:00:00", "방금 전"}};
    for (const auto& [kept, now, age] : cases) EXPECT_EQ(ageText(kept, now), age) << kept << " " << now;
}

}  // namespace
}  // namespace zelvo::ordering
