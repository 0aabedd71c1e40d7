#include <string>
#include <vector>

#include "pharmacy/Commands.h"

int main(int argc, char** argv) {
    return zelvo::pharmacy::runCommand(std::vector<std::string>(argv + 1, argv + argc));
}
