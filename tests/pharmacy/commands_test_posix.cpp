#include "pharmacy/Commands.h"
#include "support/Machine.h"
#include "support/TestDatabase.h"

namespace zelvo::pharmacy {
namespace {

TEST(Commands, APharmacyIsForItsUsersEyesAlone) {
    const testing::TestDatabase pharmacy;
    std::filesystem::permissions(pharmacy.path(), std::filesystem::perms(0644));
    const std::string folder = pharmacy.path() + "-own", fresh = folder + "/new.db";
    for (const std::string& path : {pharmacy.path(), fresh}) {
        EXPECT_EQ(runCommand({"--db", path, "init"}), 0);
        EXPECT_TRUE(testing::isPrivate(path)) << path;
    }
    EXPECT_TRUE(testing::isPrivate(folder));
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace zelvo::pharmacy
