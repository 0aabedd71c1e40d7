#include "screen/Event.h"

#include <gtest/gtest.h>

namespace zelvo::screen {
namespace {

TEST(Event, BearsListenersThatComeAndGoWhileItRuns) {
    Event<> event;
    std::string log;
    Event<>::Subscription self, later;
    self = event.listen([&, kept = std::string(100, 'x')] {
        self.end();
        later.end();
        event.add([&] { log += "new "; });
        log += kept.substr(0, 1) + " ";
    });
    event.add([&] { log += "stays "; });
    later = event.listen([&] { log += "gone "; });
    event();
    EXPECT_EQ(log, "x stays ");
    event();
    EXPECT_EQ(log, "x stays stays new ");
}

TEST(Event, BearsThatItsOwnerGoesAway) {
    auto event = std::make_unique<Event<std::string>>();
    std::string log;
    event->add([&, kept = std::string(100, 'y')](const std::string&) {
        event.reset();
        log += kept.substr(0, 1);
    });
    event->add([&](const std::string& text) { log += text; });
    (*event)("z");
    EXPECT_EQ(log, "yz");
}

}  // namespace
}  // namespace zelvo::screen
