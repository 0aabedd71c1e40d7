#include "platform/UserFiles.h"
#include "platform/settings/SettingsText.h"
#include "platform/settings/UserSettings.h"

namespace zelvo {
namespace {

TEST_F(UserFiles, TheSupportRecordStaysSmallAndItsUsersOwn) {
    const fs::path log = home / "zelvo/support.log", former = home / "zelvo/support.1.log";
    files::SupportFile record(home / "zelvo");
    EXPECT_EQ(record.lastLines(), "");
    record.add("one\r\nline\xff");
    EXPECT_TRUE(record.lastLines().ends_with(" one  line\uFFFD\n")) << record.lastLines();
    EXPECT_TRUE(testing::isPrivate(log));
    for (int i = 0; i < 6000; ++i) record.add(std::string(400, 'x'));
    record.add("the last");
    EXPECT_LE(fs::file_size(log), 1U << 20);
    EXPECT_LE(fs::file_size(former), 1U << 20);
    EXPECT_EQ(entriesOf(home / "zelvo"), 2);
    EXPECT_TRUE(record.lastLines().ends_with(" the last\n"));
}

TEST_F(UserFiles, AFileIsMadeWholeForItsUserAloneAndHeld) {
    const std::string folder = files.fixedFolder("zelvo");
    EXPECT_EQ(folder, basics::textOf(home / ".local" / "share" / "zelvo"));
    EXPECT_TRUE(files.namesIn(folder).empty());
    files.createFolder(folder);
    EXPECT_TRUE(testing::isPrivate(folder));
    const std::string path = folder + "/zelvo_20240229101112.htm";
    auto made = files.makeFile(path, "당귀\xff");
    ASSERT_TRUE(made);
    EXPECT_EQ(testing::contentOf(path), "\xef\xbb\xbf당귀\uFFFD");
    EXPECT_EQ(files.readTextFile(path) + "|" + files.readTextFile(path + "x"), "당귀\uFFFD|");
    EXPECT_THROW(files.readTextFile(folder), basics::Fault);
    EXPECT_TRUE(testing::isPrivate(path));
    EXPECT_FALSE(files.makeFile(path, "another's")) << "what stands there is not this one's to write over";
    EXPECT_FALSE(files.holdFile(path) || files.holdFile(path + "x"));
    made = nullptr;
    auto held = files.holdFile(path);
    ASSERT_TRUE(held);
    EXPECT_EQ(held->text(), "당귀\uFFFD");
    std::ofstream(folder + "/x.htm.AbCdEf.part") << "of a program that was killed";
    files.clearHalfWritten(folder);
    EXPECT_EQ(files.namesIn(folder), std::vector<std::string>{"zelvo_20240229101112.htm"});
    held->remove();
    held->remove();
    EXPECT_FALSE(fs::exists(path));
    held = nullptr;
    EXPECT_EQ(entriesOf(folder), 0);
}

TEST_F(UserFiles, SettingsComeBackAsTheyWereStored) {
    settings::UserSettings store;
    const std::vector<std::string> values{
        "", " both ends ", "a=b # c", "two\r\nlines", "back\\slash\\n", "[head]", "#", "\uFEFF\t'\""};
    for (const std::string& value : values) {
        store.write("Vexora", "벡 소라", "복용법 추가메모1", value);
        EXPECT_EQ(settings::UserSettings().read("Vexora", "벡 소라", "복용법 추가메모1", "absent"), value);
        for (const std::string& name : values) {
            settings::SettingsText text("");
            text.setValue(name, value, "kept");
            EXPECT_EQ(settings::SettingsText(text.text()).value(name, value), "kept") << text.text();
        }
    }
    const fs::path file = home / ".config/Vexora/settings.ini";
    EXPECT_EQ(entriesOf(file.parent_path()), 1);
    fs::remove(file);
    fs::create_directory(file);  // a file that can't be read is not overwritten
    EXPECT_EQ(store.read("Vexora", "벡 소라", "복용법 추가메모1", "absent"), "absent");
    EXPECT_THROW(store.write("Vexora", "벡 소라", "복용법 추가메모1", "x"), basics::Fault);
}

TEST_F(UserFiles, WhatTheWindowsWereLikeIsNeverAFailure) {
    const auto session = [] { return screen::Remembered(std::make_unique<settings::UserSettings>()); };
    const fs::path file = home / ".config/Vexora/windows/settings.ini";
    session().keep("zoom", "125");
    EXPECT_EQ(session().text("zoom"), "125");
    const std::string damaged("\xff\0=\n[windows\nzoom", 17), notOurs(2'000'000, 'x');
    for (const auto& [text, next] : {std::pair{damaged, "150"}, {notOurs, ""}}) {
        std::ofstream(file) << text;
        screen::Remembered here = session();
        EXPECT_EQ(here.text("zoom"), "");
        here.keep("zoom", "150");
        EXPECT_EQ(here.text("zoom"), "150");
        EXPECT_EQ(session().text("zoom"), next);
    }
}

TEST(SettingsText, LinesOfOthersAreKept) {
    settings::SettingsText text(
        "\uFEFF# by hand\r\nstray\r\n[a]\r\nk=1\r\n# k=2\r\nwhat\r\n\r\n[b]\r\nk=3\r\nk=4");
    EXPECT_EQ(text.value("b", "k"), "3");
    text.setValue("a", "k", "5");
    text.setValue("a", "new", "6");
    text.setValue("c", "k", "7");
    EXPECT_EQ(text.text(), "# by hand\nstray\n[a]\nk=5\n# k=2\nwhat\nnew=6\n\n[b]\nk=3\nk=4\n\n[c]\nk=7\n");
}

}  // namespace
}  // namespace zelvo
