#include <string>

#include "Demand.h"
#include "platform/settings/SettingsText.h"

using namespace zelvo;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    const std::string_view section = text.substr(0, size / 4), key = text.substr(size / 4, size / 4);
    settings::SettingsText file(text);
    const auto other = file.value("section", "other");
    file.setValue(section, key, text);
    const settings::SettingsText again(file.text());
    if (section != "section" || key != "other")
        fuzz::demand(again.value("section", "other") == other, "another value stays");
    fuzz::demand(again.value(section, key) == file.value(section, key), "a value comes back");
    return 0;
}
