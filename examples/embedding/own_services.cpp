// The third way to embed: services of the host's own making in place of the library's. Here a file system with a budget
// of its own, and a cancel check that stands in for the library's and counts.
#include <Utility/Utility.h>

#include <cstdio>
#include <memory>

#include "show.h"

namespace {

using namespace Torvo;

// Passes everything on to the service that it stands in for.
class CountingCancelCheck : public cCheckEsc {
public:
    explicit CountingCancelCheck(cCheckEsc& service) : former(service) {}
    void SetCallback(cCheckEscCallback* callback) override { former.SetCallback(callback); }
    bool CheckEsc() override { return CheckEscUpdate(false); }
    bool CheckEscUpdate(bool update) override {
        ++questions;
        return former.CheckEscUpdate(update);
    }
    void CancelConfirmed() override { former.CancelConfirmed(); }

    int questions = 0;

private:
    cCheckEsc& former;
};

}  // namespace

int main() {
    // A file system of three handles, whose read-only files stay open until a handle is wanted. The one that the
    // library made comes back to us, and with it the duty to delete it.
    const std::unique_ptr<cFileSystem> formerFiles(cFileSystem::Instance());
    if (!cFileSystem::Instance(cFileSystem::Create(3, false, nullptr))) return 1;
    std::printf("files open at once: %d\n", GetMaxFileCount());

    // A service of our own: whoever asks the library asks it.
    const std::unique_ptr<cCheckEsc> formerCheck(cCheckEsc::Instance());
    auto* const counting = new CountingCancelCheck(*formerCheck);
    cCheckEsc::Instance(counting);
    while (!CheckEsc() && counting->questions < 5) {
    }
    std::printf("questions: %d\n", counting->questions);

    // Without a block cache every byte goes to the file at once.
    const std::unique_ptr<cFileCache> formerCache(cFileCache::Instance());
    cFileCache::Instance(nullptr);
    const int file = register_file(ZUTEXT("direct.txt"), ftTxt, true);
    if (fileopen(file, omCreate, nullptr) == -1) return 1;
    write2(file, "at once", 7);
    wchar16 path[261];
    fhandle2path(file, path);
    struct _stat64 status {};
    stat2(path, &status);
    std::printf("bytes on disk: %d\n", static_cast<int>(status.st_size));
    fileremove(file);

    // Deletes what stands in the slots now: the file system and the cancel check of ours, and no cache.
    InstanceData::Destroy(false, false);
    return 0;
}
