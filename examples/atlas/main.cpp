#include <Utility/instance.h>
#include <examples/atlas/command_line.h>

#include <iostream>

int main(int count, char** arguments) {
    const int result = atlas::Run({arguments + 1, arguments + count}, std::cout, std::cerr);
    Torvo::InstanceData::Destroy(false, false);
    return result;
}
