// The second way to embed: a host that decides itself who shares what. Here every document has one set of services, and
// whichever thread works on the document works with that set, one thread at a time.
#include <Utility/Utility.h>

#include <cstdio>
#include <mutex>
#include <thread>

#include "show.h"

namespace {

using namespace Torvo;

// A document with its services, and the lock that the library leaves to the host.
struct Document {
    std::mutex busy;
    InstanceData* services = nullptr;
};

thread_local Document* currentDocument = nullptr;

// The two callbacks. They are called on every thread, at any time, and from inside other calls of the library.
InstanceData* GetServices() {
    return currentDocument == nullptr ? nullptr : currentDocument->services;
}
bool SetServices(InstanceData* services) {
    if (currentDocument == nullptr) return false;
    currentDocument->services = services;
    return true;
}

// A stretch of work on one document: nobody else works on it meanwhile.
class Working {
public:
    explicit Working(Document& document) : lock(document.busy) { currentDocument = &document; }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;
    ~Working() { currentDocument = nullptr; }

private:
    const std::lock_guard<std::mutex> lock;
};

void Close(Document& document) {
    const Working working(document);
    InstanceData::Destroy(false, false);  // of the current store: that is this document's
}

}  // namespace

int main() {
    // Before any other call of the library, so that no thread has services of its own yet.
    SetExternalDataStorage(GetServices, SetServices);

    Document map;
    Document table;
    int file = 0;
    {
        const Working working(map);
        file = register_file(ZUTEXT("map.txt"), ftTxt, true);
    }
    // Another thread takes over: the handle means the same file there.
    std::thread([&] {
        const Working working(map);
        wchar16 name[261];
        fhandle2name(file, name);
        std::printf("the map's handle on another thread: %s\n", Shown(name).c_str());
    }).join();
    {
        const Working working(table);
        std::printf("the table has a file of that name: %s\n",
                    YesOrNo(is_file_registered(ZUTEXT("map.txt"), ftTxt) != 0));
    }

    Close(map);
    Close(table);
    std::printf("nothing is left: %s\n", YesOrNo(map.services == nullptr && table.services == nullptr));
    ClearExternalDataStorage();
    return 0;
}
