#include "pharmacy/Commands.h"
#include "program/Arguments.h"

int main(int argc, char** argv) {
    return zelvo::pharmacy::runCommand(program::wordsOf(argc, argv));
}
