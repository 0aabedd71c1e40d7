#include "data/Words.h"

namespace zelvo::data {

std::int16_t pay::code(std::string_view word) {
    if (word == deposit) return 1;
    return word == later ? 2 : 3;
}

std::int16_t delivery::code(std::string_view word) {
    if (word == undecided) return 1;
    if (word == parcel) return 2;
    return word == courier ? 3 : 4;
}

}  // namespace zelvo::data
