// The order in which an instance's services are destroyed, written down by services that stand in for them.
#include <gtest/gtest.h>
#include <support/logging_services.h>
#include <support/temp_directory.h>

#include <string>
#include <thread>

namespace service_order_test {
namespace {

using namespace Torvo;

// Puts a service in the place of the instance's own, which is deleted.
template <typename Service, typename Logging>
void Replace(const char* name, std::string& log) {
    delete Service::Instance();
    EXPECT_TRUE(Service::Instance(new Logging(name, log)));
}

// All but the file system, which has more than a hundred operations; what it does to the cache shows when it goes.
void ReplaceAll(std::string& log) {
    Replace<cFileCache, test::LoggingFileCache>("cache", log);
    Replace<cCheckEsc, test::LoggingCheckEsc>("cancel", log);
    Replace<StringNormalizerManager, test::LoggingNormalizerManager>("normalizers", log);
    Replace<cCharsetConverter, test::LoggingCharsetConverter>("converter", log);
    Replace<cCharsetInfo, test::LoggingCharsetInfo>("charset", log);
    Replace<cLocaleInfo, test::LoggingLocaleInfo>("locale", log);
    Replace<cErrorSystem, test::LoggingErrorSystem>("errors", log);
    Replace<cStringResourceBuffers, test::LoggingResourceBuffers>("buffers", log);
}

constexpr const char* orderOfDestruction = "buffers errors normalizers charset converter locale cancel cache ";

TEST(ServiceOrder, OfDestruction) {
    std::string log;
    std::thread([&] {
        GetInstanceData();
        ReplaceAll(log);
        EXPECT_EQ(log, "") << "replacing destroys nothing";
        InstanceData::Destroy(false, false);
    }).join();
    EXPECT_EQ(log, orderOfDestruction);
}

TEST(ServiceOrder, OfDestructionFromTheThreadsStore) {
    std::string log;
    std::thread([&] {
        GetInstanceData();
        ReplaceAll(log);
        InstanceData::Destroy(true, true);
    }).join();
    EXPECT_EQ(log, orderOfDestruction);
}

TEST(ServiceOrder, NothingIsDestroyedUnderAClearedFlag) {
    std::string log;
    std::thread([&] {
        GetInstanceData()->ClearAutoDestroy();
        ReplaceAll(log);
        InstanceData::Destroy(true, false);
        EXPECT_EQ(log, "");
        InstanceData::Destroy(false, false);
    }).join();
    EXPECT_EQ(log, orderOfDestruction);
}

// The file system goes between the cancel check and the cache, into which it closes its idle files.
TEST(ServiceOrder, OfTheFileSystem) {
    const test::TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("idle.dat"), "content");
    std::string log;
    std::thread([&] {
        delete cFileSystem::Instance();
        cFileSystem::Instance(cFileSystem::Create(8, false, nullptr));
        const int file = register_file(path.c_str(), ftNone, true);
        EXPECT_EQ(fileopen(file, omRead, nullptr), file);
        EXPECT_EQ(close2(file), 0);
        EXPECT_NE(GetFileFD(file), -1) << "idle, not closed";
        ReplaceAll(log);
        InstanceData::Destroy(false, false);
    }).join();
    EXPECT_EQ(log, "buffers errors normalizers charset converter locale cancel flush cache ");
}

// Services that were never created are passed over.
TEST(ServiceOrder, OfThoseThatThereAre) {
    std::string log;
    std::thread([&] {
        InstanceData::Create();
        EXPECT_TRUE(cCheckEsc::Instance(new test::LoggingCheckEsc("cancel", log)));
        EXPECT_TRUE(cErrorSystem::Instance(new test::LoggingErrorSystem("errors", log)));
        InstanceData::Destroy(false, false);
    }).join();
    EXPECT_EQ(log, "errors cancel ");
}

// The slots are not cleared meanwhile: a service that goes later still finds what went before it under its key.
class LookingBack final : public cCheckEsc {
public:
    LookingBack(InstanceData* instance, bool& found) : instance_(instance), found_(found) {}
    ~LookingBack() override { found_ = instance_->GetSlot(7) != nullptr && GetInstanceData() == instance_; }
    void SetCallback(cCheckEscCallback*) override {}
    bool CheckEsc() override { return false; }
    bool CheckEscUpdate(bool) override { return false; }
    void CancelConfirmed() override {}

private:
    InstanceData* const instance_;
    bool& found_;
};

TEST(ServiceOrder, SlotsStayFilledDuringDestruction) {
    bool found = false;
    std::thread([&] {
        InstanceData* const instance = GetInstanceData();
        delete cCheckEsc::Instance();
        cCheckEsc::Instance(new LookingBack(instance, found));
        InstanceData::Destroy(false, false);
    }).join();
    EXPECT_TRUE(found);
}

}  // namespace
}  // namespace service_order_test
