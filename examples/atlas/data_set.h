// The folder of files behind the atlas: an index, and two files for each country.
#pragma once

#include <examples/atlas/country.h>

#include <map>
#include <string>

namespace atlas {

// A file system for the calling thread that holds only so many files open at once, in place of its usual one.
class SmallFileSystem {
public:
    explicit SmallFileSystem(int handles);
    ~SmallFileSystem();
    SmallFileSystem(const SmallFileSystem&) = delete;
    SmallFileSystem& operator=(const SmallFileSystem&) = delete;

    bool IsMade() const { return mine != nullptr; }

private:
    Torvo::cFileSystem* mine;
    Torvo::cFileSystem* former = nullptr;
};

class DataSet {
public:
    // Finds all files of the folder and registers them. Nothing is opened yet.
    explicit DataSet(const std::string& folder);
    ~DataSet();
    DataSet(const DataSet&) = delete;
    DataSet& operator=(const DataSet&) = delete;

    std::size_t RegisteredFiles() const { return outlines.size() + names.size() + (index != nullptr ? 1 : 0); }

    // Reads all countries, in the order of the index. What is wrong with the folder, or an empty text.
    std::string Read(std::vector<Country>& countries);

private:
    std::string ReadIndex(std::vector<Country>& countries);
    bool ReadNames(Country& country);
    bool ReadOutline(Country& country);

    Torvo::wstring16 folder;
    Torvo::FILE* index = nullptr;
    std::map<Torvo::wstring16, Torvo::FILE*> outlines;  // by country code
    std::map<Torvo::wstring16, int> names;
};

}  // namespace atlas
