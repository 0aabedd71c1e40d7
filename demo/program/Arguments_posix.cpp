#include "program/Arguments.h"

namespace program {

std::vector<std::string> wordsOf(int argc, char** argv) {
    return {argv + 1, argv + argc};
}

}  // namespace program
