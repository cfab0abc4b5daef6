#include <examples/recode/files.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace recode {

namespace {

// A new folder beside a file, removed at the end with what is left in it. Making a folder fails where anything has the
// name already, on every system, so that nobody's file is ever written over.
class ScratchFolder {
public:
    explicit ScratchFolder(const std::string& path) {
        for (int number = 1; number <= mostNumbers && !made; ++number) {
            folder = path + ".unfinished-" + std::to_string(number);
            std::error_code error;
            made = std::filesystem::create_directory(folder, error);
            const bool taken = std::filesystem::exists(std::filesystem::symlink_status(folder, error));
            if (!made && !taken) return;
        }
    }
    ~ScratchFolder() {
        std::error_code ignored;
        if (made) std::filesystem::remove_all(folder, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    bool IsMade() const { return made; }
    const std::filesystem::path& Folder() const { return folder; }

private:
    static constexpr int mostNumbers = 1000;
    std::filesystem::path folder;
    bool made = false;
};

}  // namespace

bool ReadFile(const std::string& path, std::string& bytes) {
    std::ifstream file(path, std::ios::binary);
    if (!file || std::filesystem::is_directory(path)) return false;
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    return !file.bad();
}

bool WriteFile(const std::string& path, const std::string& bytes) {
    const ScratchFolder scratch(path);
    if (!scratch.IsMade()) return false;
    const std::filesystem::path unfinished = scratch.Folder() / "unfinished";
    std::ofstream file(unfinished, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) return false;
    std::error_code error;
    std::filesystem::rename(unfinished, path, error);
    return !error;
}

}  // namespace recode
