#include "data/ServerAddress.h"

#include <array>

#include "data/Failure.h"
#include "support/TestFolder.h"

namespace zelvo::data {

TEST(ServerAddress, IsReadOrRefusedAndHasOneName) {
    const std::array<const char*, 3> places[] = {{"host", "host||", "host:1433"},
                                                 {"host:1500", "host|1500|", "host:1500"},
                                                 {"TCP:Host,1500", "Host|1500|", "host:1500"},
                                                 {"host.:01433", "host.|1433|", "host:1433"},
                                                 {"host\\NAME", "host||NAME", "host\\name"},
                                                 {"[::1]:1433", "::1|1433|", "[::1]:1433"},
                                                 {"FE80::1", "FE80::1||", "[fe80::1]:1433"}};
    for (const auto& [address, parts, name] : places) {
        const ServerPlace place = readPlace(address);
        EXPECT_EQ(place.host + "|" + place.port + "|" + place.instance, parts) << address;
        EXPECT_EQ(databaseName(address) + " " + databaseName(name), std::string(name) + " " + name);
    }
    for (const char* address : {"", ":1433", "host:", "host:0", "host:65536", "host:1433x", "host:-1",
                                "host\\", "host\\a,1433", "[::1", "[::1]x"}) {
        EXPECT_THROW(readPlace(address), SetupFault) << address;
        EXPECT_EQ(databaseName(address), address);
    }
}

}  // namespace zelvo::data
