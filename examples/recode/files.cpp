#include <examples/recode/files.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace recode {

bool ReadFile(const std::string& path, std::string& bytes) {
    std::ifstream file(path, std::ios::binary);
    if (!file || std::filesystem::is_directory(path)) return false;
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    return !file.bad();
}

bool WriteFile(const std::string& path, const std::string& bytes) {
    const std::string unfinished = path + ".unfinished";
    std::error_code error;
    {
        std::ofstream file(unfinished, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        file.close();
        if (!file) {
            std::filesystem::remove(unfinished, error);
            return false;
        }
    }
    std::filesystem::rename(unfinished, path, error);
    if (!error) return true;
    std::filesystem::remove(unfinished, error);
    return false;
}

}  // namespace recode
