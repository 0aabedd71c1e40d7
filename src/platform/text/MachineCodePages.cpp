#include "platform/text/MachineCodePages.h"

#include <map>
#include <memory>
#include <string>

#include "basics/Utf8.h"
#include "platform/text/Converter.h"

namespace zelvo::text {

screen::CodePages machineCodePages() {
    // A document changes to and fro between its pages, and opening a table costs more than using it.
    return [open = std::make_shared<std::map<int, Converter>>()](std::string_view bytes, int page) {
        Converter& converter = open->try_emplace(page, "CP" + std::to_string(page)).first->second;
        return converter.known() ? converter.convert(bytes) : basics::cleanUtf8(bytes);
    };
}

}  // namespace zelvo::text
