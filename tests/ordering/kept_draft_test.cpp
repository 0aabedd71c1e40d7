#include "ordering/KeptDraft.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "ordering/DraftFiles.h"
#include "support/TestDesktop.h"
#include "support/TestFolder.h"

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

TEST(KeptDraft, GoesWhenNobodyHasComeBackToItForAMonth) {
    const struct {
        std::string name;
        const char* keptAt;  // "" for a damaged one
        bool stays = false, held = false;
    } cases[] = {{"draft_1_7_20260101080000", "2026-01-30 09:00:00"},
                 {"draft_1_7_20260101080001", "2026-01-30 09:00:01", true},
                 {"draft_1_7_20260101080002_2", "2026-01-01 09:00:00", true, true},
                 {"draft_9_-7_20260101080003", ""},
                 {"draft_9_7_20260201080004", "", true},
                 {"draft_by_hand", "2025-01-01 09:00:00", true}};
    const auto machine = std::make_shared<testing::TestFolder>();
    std::filesystem::create_directory(machine->path / "zelvo");
    testing::TestDesktop desktop;
    testing::standIn(machine, desktop);
    const DraftFiles drafts(desktop);
    const auto file = [&](const std::string& name) { return machine->path / "zelvo" / (name + ".txt"); };
    std::vector<DraftFiles::Held> holds;
    for (const auto& test : cases) {
        std::ofstream(file(test.name), std::ios::binary)
            << (*test.keptAt ? writeDraft({1, 7, "", "", test.keptAt, {}}) : "draft 1");
        if (test.held) holds.push_back(*drafts.hold(test.name));
    }
    drafts.clearOld("2026-03-01 09:00:00");
    for (const auto& test : cases)
        EXPECT_EQ(std::filesystem::exists(file(test.name)), test.stays) << test.name;
    EXPECT_EQ(machine->files("zelvo").size(), 5U) << "and no hold but of the one that is held";
}

}  // namespace
}  // namespace zelvo::ordering
