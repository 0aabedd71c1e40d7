#pragma once

#include <string>

namespace zelvo::pharmacy {

/// Where the pharmacy's database stands when nothing else is said: "zelvo/pharmacy.db" in the user's data
/// folder. Empty when the user has no such folder.
std::string defaultDatabasePath();

/// True when the file is there and holds the pharmacy's tables.
bool isPharmacy(const std::string& path);

enum class Making { Made, LeftAsItIs };

/// Makes the database with its whole catalogue, its folder too, both for the user's eyes only. A pharmacy
/// that is there already is left as it is but for that, unless `fresh`. Throws DatabaseError for another file
/// in its place (unless `fresh`) and when it cannot be written; what is there stays whole then.
Making makePharmacy(const std::string& path, bool fresh);

}  // namespace zelvo::pharmacy
