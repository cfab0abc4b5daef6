#include <Utility/cancel.h>
#include <Utility/instance.h>
#include <gtest/gtest.h>
#include <support/vtable_slot.h>

#include <string>
#include <thread>

namespace cancel_test {
namespace {

using namespace Torvo;

// Writes down how it was asked.
class Application : public cCheckEscCallback {
public:
    explicit Application(bool answer = false) : pressed(answer) {}
    ~Application() override { log += "destroyed "; }
    bool CheckEsc(bool update) override {
        log += update ? "update " : "check ";
        return pressed;
    }
    void CancelConfirmed() override { log += "confirmed "; }

    const bool pressed;
    std::string log;
};

class Cancel : public testing::Test {
protected:
    void TearDown() override { InitCheckEscCallback(nullptr); }
};

TEST_F(Cancel, OperationsStandInTheirPublishedOrder) {
    using test::SlotOf;
    EXPECT_EQ(SlotOf(&cCheckEsc::SetCallback), 2u);
    EXPECT_EQ(SlotOf(static_cast<bool (cCheckEsc::*)()>(&cCheckEsc::CheckEsc)), 3u);
    EXPECT_EQ(SlotOf(&cCheckEsc::CheckEscUpdate), 4u);
    EXPECT_EQ(SlotOf(&cCheckEsc::CancelConfirmed), 5u);
    EXPECT_EQ(SlotOf(&cCheckEscCallback::CheckEsc), 2u);
    EXPECT_EQ(SlotOf(&cCheckEscCallback::CancelConfirmed), 3u);
}

TEST_F(Cancel, WithoutACallbackNothingIsEverPressed) {
    EXPECT_FALSE(CheckEsc());
    EXPECT_FALSE(CheckEsc4Update(true));
    EXPECT_FALSE(CheckEsc4Update(false));
    CancelConfirmed();
}

TEST_F(Cancel, QuestionsReachTheCallbackWithTheirUpdateFlag) {
    Application application(true);
    InitCheckEscCallback(&application);
    EXPECT_TRUE(CheckEsc());
    EXPECT_TRUE(CheckEsc4Update(true));
    EXPECT_TRUE(CheckEsc4Update(false));
    CancelConfirmed();
    EXPECT_EQ(application.log, "check update check confirmed ");
}

TEST_F(Cancel, TheCallbacksAnswerIsPassedOn) {
    Application application(false);
    InitCheckEscCallback(&application);
    EXPECT_FALSE(CheckEsc());
    EXPECT_FALSE(CheckEsc4Update(true));
}

TEST_F(Cancel, RemovingTheCallbackEndsTheQuestions) {
    Application application(true);
    InitCheckEscCallback(&application);
    InitCheckEscCallback(nullptr);
    EXPECT_FALSE(CheckEsc());
    EXPECT_EQ(application.log, "");
}

TEST_F(Cancel, TheLastCallbackCounts) {
    Application first(false);
    Application second(true);
    InitCheckEscCallback(&first);
    InitCheckEscCallback(&second);
    EXPECT_TRUE(CheckEsc());
    EXPECT_EQ(first.log, "");
}

TEST_F(Cancel, DestroyingTheInstanceLeavesTheCallbackAlive) {
    Application application(true);
    InitCheckEscCallback(&application);
    InstanceData::Destroy(false, false);
    EXPECT_EQ(application.log, "");
    EXPECT_FALSE(CheckEsc());
}

TEST_F(Cancel, TheCallbackBelongsToTheThreadThatInstalledIt) {
    Application application(true);
    InitCheckEscCallback(&application);
    std::thread([] {
        EXPECT_FALSE(CheckEsc());
        InstanceData::Destroy(false, false);
    }).join();
    EXPECT_EQ(application.log, "");
}

TEST_F(Cancel, CreateMakesAServiceWithoutACallbackAndStoresItNowhere) {
    cCheckEsc* const stored = cCheckEsc::Instance();
    cCheckEsc* const created = cCheckEsc::Create();
    EXPECT_NE(created, stored);
    EXPECT_EQ(cCheckEsc::Instance(), stored);
    EXPECT_FALSE(created->CheckEsc());
    delete created;
}

// A host that answers by itself.
class OwnService : public cCheckEsc {
public:
    void SetCallback(cCheckEscCallback*) override {}
    bool CheckEsc() override { return true; }
    bool CheckEscUpdate(bool update) override { return update; }
    void CancelConfirmed() override { confirmed = true; }
    bool confirmed = false;
};

TEST_F(Cancel, ServiceIsReplacedThroughItsSetter) {
    cCheckEsc* const original = cCheckEsc::Instance();
    OwnService own;
    EXPECT_TRUE(cCheckEsc::Instance(&own));
    EXPECT_TRUE(CheckEsc());
    EXPECT_TRUE(CheckEsc4Update(true));
    EXPECT_FALSE(CheckEsc4Update(false));
    CancelConfirmed();
    EXPECT_TRUE(own.confirmed);
    EXPECT_TRUE(cCheckEsc::Instance(original));
    EXPECT_FALSE(CheckEsc());
}

}  // namespace
}  // namespace cancel_test
