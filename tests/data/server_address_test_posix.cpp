#include "data/ServerAddress.h"

#include <array>

#include "data/Failure.h"
#include "support/TestFolder.h"

namespace zelvo::data {

TEST(ServerAddress, OfAFileIsItsRealPath) {
    const testing::TestFolder machine;
    const std::string folder = machine.path.string(), real = "sqlite:" + folder + "/P 약.db";
    std::ofstream(machine.path / "P 약.db").flush();
    std::filesystem::create_symlink("P 약.db", machine.path / "link");
    const std::string back = std::filesystem::relative(machine.path).string();
    for (const std::string& path : {folder + "/P 약.db", folder + "/./x/../P 약.db", folder + "/link",
                                    back + "/P 약.db", "./" + back + "//link"})
        EXPECT_EQ(databaseName("sqlite:" + path), real);
    EXPECT_EQ(databaseName("sqlite:gone"), "sqlite:" + (std::filesystem::current_path() / "gone").string());
}

}  // namespace zelvo::data
