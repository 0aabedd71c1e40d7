// The server's schema is the embedded one, word for word but for its types.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "basics/Text.h"

namespace zelvo::odbc {

std::vector<std::string> tableLines(const std::string& path) {
    std::ifstream file(std::string(ZELVO_SOURCE_DIR) + "/demo/pharmacy/" + path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with("--") && !line.empty()) lines.push_back(line);
    }
    return lines;
}

TEST(Schema, IsTheSameOnBothDatabases) {
    const std::vector<std::string> embedded = tableLines("schema.sql");
    std::vector<std::string> server = tableLines("sqlserver/schema.sql");
    for (std::string& line : server) {
        for (const auto& [servers, embeddeds] :
             {std::pair{" INT IDENTITY(1,1) PRIMARY KEY", " INTEGER PRIMARY KEY AUTOINCREMENT"},
              {" INT", " INTEGER"},
              {" INTEGEREGER", " INTEGER"},
              {" NVARCHAR(MAX)", " TEXT"},
              {" NVARCHAR(", " VARCHAR("}}) {
            line = basics::replaceAll(line, servers, embeddeds);
        }
    }
    const std::vector<std::string> given = tableLines("sqlserver/schema.sql");
    for (const char* key : {"CBJ_PK", "DET_PK", "UCB_PK", "UDET_PK"}) {
        const std::string line = "    " + std::string(key) + " INT IDENTITY(1,1) PRIMARY KEY,";
        EXPECT_EQ(std::count(given.begin(), given.end(), line), 1) << "the client does not give it";
    }
    ASSERT_GT(embedded.size(), 200U);
    EXPECT_EQ(server, embedded);
}

}  // namespace zelvo::odbc
