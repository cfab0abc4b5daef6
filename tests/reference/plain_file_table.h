// The registry and the budget of open files in their plain form: every question walks the whole table.
#pragma once

#include <Utility/file_names.h>
#include <Utility/strings.h>

#include <string>
#include <vector>

namespace Torvo::test {

struct PlainEntry {
    bool inUse = false;
    wstring16 directory;
    wstring16 name;
    FILETYPE type = ftNone;
    int mode = 0;
    bool stream = false;
    bool open = false;
    int references = 0;
    int age = 0;

    bool IsIdle() const { return inUse && open && references == 0; }
};

class PlainFileTable {
public:
    PlainFileTable(int maxFiles, bool closeReadOnly) : maxFiles_(maxFiles), closeReadOnly_(closeReadOnly) {}

    int Register(const wstring16& directory, const wstring16& name, FILETYPE type, bool unique) {
        if (unique && IsRegistered(directory, name, type) != 0) return 0;
        std::size_t index = 0;
        while (index < entries.size() && entries[index].inUse) ++index;
        if (index == entries.size()) entries.resize(entries.size() + 100);
        entries[index] = PlainEntry();
        entries[index].inUse = true;
        entries[index].directory = directory;
        entries[index].name = name;
        entries[index].type = type;
        return static_cast<int>(index) + 1000;
    }

    int IsRegistered(const wstring16& directory, const wstring16& name, FILETYPE type) const {
        for (std::size_t index = 0; index < entries.size(); ++index) {
            const PlainEntry& entry = entries[index];
            if (!entry.inUse || !striequ(entry.directory.c_str(), directory.c_str())) continue;
            if (!striequ(entry.name.c_str(), name.c_str())) continue;
            if (entry.type == type || entry.type == ftNone || type == ftNone) return static_cast<int>(index) + 1000;
        }
        return 0;
    }

    void Unregister(int file) {
        if (PlainEntry* const entry = Find(file)) {
            if (entry->open) ReallyClose(*entry);
            *entry = PlainEntry();
        }
    }

    // For files that exist and may be read and written, so that only the budget and the references can refuse.
    int Open(int file, int mode, bool stream) {
        PlainEntry* const entry = Find(file);
        if (entry == nullptr) return -1;
        if (entry->open) {
            const bool serves = entry->mode == mode || entry->mode == 3 || (entry->mode == 2 && mode == 1);
            if (entry->stream == stream && serves) {
                if (entry->references == 0) --idleCount;
                ++entry->references;
                return file;
            }
            if (entry->references != 0) {
                if (entry->mode != 1 || mode != 2 || entry->stream != stream) return -1;
                return Upgrade(file, *entry, stream);
            }
            ReallyClose(*entry);
        }
        entry->stream = stream;
        entry->mode = mode;
        entry->age = 1;
        for (PlainEntry& other : entries) {
            if (other.IsIdle()) ++other.age;
        }
        while (openCount >= maxFiles_) {
            if (!CloseOldest()) return -1;
        }
        entry->open = true;
        ++openCount;
        entry->references = 1;
        return file;
    }

    int Close(int file) {
        PlainEntry* const entry = Find(file);
        if (entry == nullptr || entry->references == 0) return -1;
        if (entry->references > 1) {
            --entry->references;
        } else if (!closeReadOnly_ && entry->mode == 1) {
            ++idleCount;
            entry->references = 0;
        } else {
            ReallyClose(*entry);
            entry->references = 0;
        }
        return 0;
    }

    void CloseAllIdle() {
        for (PlainEntry& entry : entries) {
            if (entry.IsIdle()) ReallyClose(entry);
        }
    }

    PlainEntry* Find(int file) {
        const std::size_t index = static_cast<std::size_t>(file) - 1000;
        return index < entries.size() && entries[index].inUse ? &entries[index] : nullptr;
    }

    std::vector<PlainEntry> entries;
    int openCount = 0;
    int idleCount = 0;

private:
    int Upgrade(int file, PlainEntry& entry, bool stream) {
        const int references = entry.references;
        entry.references = 1;
        ReallyClose(entry);
        const int result = Open(file, 2, stream);
        if (result == -1) Open(file, 1, stream);
        entry.references = result != -1 ? references + 1 : references;
        return result;
    }

    bool CloseOldest() {
        PlainEntry* oldest = nullptr;
        int greatest = 0;
        for (PlainEntry& entry : entries) {
            if (entry.IsIdle() && entry.age > greatest) {
                oldest = &entry;
                greatest = entry.age;
            }
        }
        if (oldest == nullptr) return false;
        ReallyClose(*oldest);
        return true;
    }

    void ReallyClose(PlainEntry& entry) {
        if (!entry.open) return;
        if (entry.references == 0) --idleCount;
        --openCount;
        entry.open = false;
    }

    const int maxFiles_;
    const bool closeReadOnly_;
};

}  // namespace Torvo::test
