#pragma once

#include <string>

#include "WidgetUser.h"
#include "platform/console/ConsoleDesktop.h"

namespace zelvo::stage {

/// A console script worked through the real windows: what it types and clicks goes to their widgets, and
/// after each command that changed something a picture of the screen is kept; of a sheet that was written,
/// the printed pages too.
class Stage : public console::ConsoleDesktop {
public:
    /// Pictures go into this folder; "" keeps none.
    Stage(console::ConsoleParts parts, std::string pictures);

    console::UserActions& user() override { return user_; }
    screen::Answer messageBox(const screen::MessageBox& box) override;
    void setPointer(screen::Pointer pointer) override;
    void processEvents(bool userInput) override;
    void runModal(screen::Window& window) override;
    double screenWidth() const override;
    double screenHeight() const override;

private:
    void commandDone() override;
    void await(std::chrono::milliseconds atMost) override;
    void keepPicture(QWidget& shown, const std::string& name);
    void keepPicture(const QImage& picture, const std::string& name);
    void keepTestPrint(const qt::Shell& editor);

    WidgetUser user_{*this};
    std::string pictures_;
    std::vector<qt::Shell*> shells_;
    int kept_ = 0;
};

}  // namespace zelvo::stage
