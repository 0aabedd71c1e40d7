#include "data/ServerAddress.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "basics/Numbers.h"
#include "basics/Paths.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "data/Failure.h"

namespace zelvo::data {

namespace {

std::string checkedPort(std::string_view port, std::string_view address) {
    const bool digits =
        !port.empty() && port.size() <= 5 && port.find_first_not_of("0123456789") == std::string_view::npos;
    const std::int32_t number = digits ? basics::toInt32(port) : 0;
    if (number < 1 || number > 65535)
        throw SetupFault("no port in the server address " + std::string(address));
    return basics::decimalText(std::int64_t{number});
}

/// Its path without links and dots, from the root on.
std::string realPath(std::string_view path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(basics::pathOf(path), error);
    const std::filesystem::path real = error ? whole : std::filesystem::weakly_canonical(whole, error);
    return error ? std::string(path) : basics::cleanUtf8(basics::textOf(real));
}

}  // namespace

ServerPlace readPlace(std::string_view address) {
    std::string_view rest = address;
    if (basics::foldCase(rest.substr(0, 4)) == "tcp:") rest.remove_prefix(4);
    ServerPlace place;
    if (rest.starts_with('[')) {
        const std::size_t end = rest.find(']');
        if (end == std::string_view::npos)
            throw SetupFault("no host in the server address " + std::string(address));
        place.host = rest.substr(1, end - 1);
        rest.remove_prefix(end + 1);
    } else {
        // More than one colon and no bracket: the whole is an IPv6 address.
        const bool bareIpv6 = std::count(rest.begin(), rest.end(), ':') > 1;
        const std::size_t end = std::min(rest.find_first_of(bareIpv6 ? ",\\" : ":,\\"), rest.size());
        place.host = rest.substr(0, end);
        rest.remove_prefix(end);
    }
    if (rest.starts_with('\\')) {
        place.instance = rest.substr(1);
        if (place.instance.empty() || place.instance.find_first_of(",:") != std::string::npos) {
            throw SetupFault("no instance in the server address " + std::string(address));
        }
    } else if (!rest.empty()) {
        if (rest.front() != ':' && rest.front() != ',') {
            throw SetupFault("can't read the server address " + std::string(address));
        }
        place.port = checkedPort(rest.substr(1), address);
    }
    if (place.host.empty()) throw SetupFault("no host in the server address " + std::string(address));
    return place;
}

std::string databaseName(std::string_view address) {
    if (address.starts_with(fileAddress))
        return std::string(fileAddress) + realPath(address.substr(fileAddress.size()));
    try {
        ServerPlace place = readPlace(address);
        while (place.host.ends_with('.')) place.host.pop_back();
        if (place.host.find(':') != std::string::npos) place.host = "[" + place.host + "]";
        if (place.port.empty()) place.port = defaultPort;
        return basics::foldCase(place.host +
                                (place.instance.empty() ? ":" + place.port : "\\" + place.instance));
    } catch (const SetupFault&) {
        return basics::foldCase(address);
    }
}

}  // namespace zelvo::data
