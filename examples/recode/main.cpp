#include <examples/recode/command_line.h>

#include <iostream>

int main(int count, char** arguments) {
    return recode::Run({arguments + 1, arguments + count}, std::cout, std::cerr);
}
