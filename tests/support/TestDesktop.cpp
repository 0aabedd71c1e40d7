#include "support/TestDesktop.h"

#include <gtest/gtest.h>

#include "platform/text/MachineCodePages.h"

namespace zelvo::testing {

using screen::Answer;
using screen::BoxIcon;

TestDesktop::TestDesktop() {
    yieldAlways();
    components().setCodePages(text::machineCodePages());
}

TestDesktop::~TestDesktop() {
    for (const auto& box : boxes_) ADD_FAILURE() << "nobody looked at [" << box.caption << "] " << box.text;
    if (!answers_.empty()) ADD_FAILURE() << answers_.size() << " answers were queued and never used";
    for (const auto& [name, scripts] : scripts_) {
        if (!scripts.empty()) ADD_FAILURE() << name << " was never shown";
    }
}

void TestDesktop::expectBox(const std::string& caption, const std::string& text, BoxIcon icon) {
    const screen::MessageBox box = takeBox();
    EXPECT_EQ(box.caption, caption);
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(static_cast<int>(box.icon), static_cast<int>(icon)) << "icon of [" << caption << "] " << text;
}

void TestDesktop::expectNoBox() {
    for (const auto& box : boxes_) ADD_FAILURE() << "unexpected box [" << box.caption << "] " << box.text;
    boxes_.clear();
}

screen::MessageBox TestDesktop::takeBox() {
    if (boxes_.empty()) {
        ADD_FAILURE() << "no box to look at";
        return {};
    }
    screen::MessageBox box = boxes_.front();
    boxes_.pop_front();
    return box;
}

std::string TestDesktop::takeTexts() {
    std::string texts;
    for (const screen::MessageBox& box : boxes_) texts += box.text + "\n";
    boxes_.clear();
    return texts;
}

void TestDesktop::whenShown(const std::string& window, std::function<void(screen::Window&)> script) {
    scripts_[window].push_back(std::move(script));
}

void TestDesktop::show(screen::Window& window, std::function<void()> script) {
    whenShown(window.name(), [run = std::move(script)](screen::Window&) { run(); });
    window.showModal();
}

Answer TestDesktop::messageBox(const screen::MessageBox& box) {
    onBox(box);
    boxes_.push_back(box);
    if (answers_.empty()) return box.defaultAnswer;
    const Answer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

void TestDesktop::processEvents(bool) {
    if (const auto run = onEvents) run();  // it may set what runs the next time
}

void TestDesktop::runModal(screen::Window& window) {
    window.appear();
    auto& scripts = scripts_[window.name()];
    if (scripts.empty()) {
        ADD_FAILURE() << window.name() << " opened unexpectedly";
    } else {
        auto script = std::move(scripts.front());
        scripts.pop_front();
        script(window);
    }
    if (!window.leaving()) window.userClose();
    EXPECT_TRUE(window.leaving()) << window.name() << " can't be closed";
}

std::string TestDesktop::MemorySettings::read(std::string_view application, std::string_view section,
                                              std::string_view key, std::string_view absent) const {
    const auto found = values_.find({std::string(application), std::string(section), std::string(key)});
    return found == values_.end() ? std::string(absent) : found->second;
}

void TestDesktop::MemorySettings::write(std::string_view application, std::string_view section,
                                        std::string_view key, std::string_view value) {
    values_[{std::string(application), std::string(section), std::string(key)}] = value;
}

}  // namespace zelvo::testing
