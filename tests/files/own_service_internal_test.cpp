#include <Utility/files/own_service.h>
#include <gtest/gtest.h>

namespace own_service_internal_test {
namespace {

using namespace Torvo;

struct Service {
    virtual ~Service() = default;
};
struct OwnService : Service {};
struct HostsService : Service {};
struct HostsKindOfOwn : OwnService {};

TEST(OwnService, IsToldFromAHostsThatIsMadeOfIt) {
    OwnService own;
    HostsService hosts;
    HostsKindOfOwn kind;
    EXPECT_EQ(AsOwn<OwnService>(static_cast<Service*>(&own)), &own);
    EXPECT_EQ(AsOwn<OwnService>(static_cast<Service*>(&hosts)), nullptr);
    EXPECT_EQ(AsOwn<OwnService>(static_cast<Service*>(&kind)), nullptr) << "what it overrides has to be called";
    EXPECT_EQ(AsOwn<OwnService>(static_cast<Service*>(nullptr)), nullptr);
}

}  // namespace
}  // namespace own_service_internal_test
