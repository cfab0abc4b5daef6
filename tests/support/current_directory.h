// The process's current directory, changed for as long as an object lives.
#pragma once

#include <filesystem>

namespace Torvo::test {

class InDirectory {
public:
    explicit InDirectory(const std::filesystem::path& path) : former(std::filesystem::current_path()) {
        std::filesystem::current_path(path);
    }
    ~InDirectory() {
        std::error_code ignored;
        std::filesystem::current_path(former, ignored);
    }
    InDirectory(const InDirectory&) = delete;
    InDirectory& operator=(const InDirectory&) = delete;

private:
    const std::filesystem::path former;
};

}  // namespace Torvo::test
