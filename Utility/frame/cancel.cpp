#include <Utility/cancel.h>

#include <Utility/frame/instance_data.h>

#include <new>

namespace Torvo {

namespace {

class cCheckEscImpl final : public cCheckEsc {
public:
    void SetCallback(cCheckEscCallback* newCallback) override { callback = newCallback; }
    bool CheckEsc() override { return CheckEscUpdate(false); }
    bool CheckEscUpdate(bool update) override { return callback != nullptr && callback->CheckEsc(update); }
    void CancelConfirmed() override {
        if (callback != nullptr) callback->CancelConfirmed();
    }

private:
    cCheckEscCallback* callback = nullptr;  // the application's
};

}  // namespace

cCheckEsc* cCheckEsc::Create() {
    return new (std::nothrow) cCheckEscImpl;
}

cCheckEsc* cCheckEsc::Instance() {
    return ServiceInstance<cCheckEsc, ServiceKey::CheckEsc>();
}

bool cCheckEsc::Instance(cCheckEsc* service) {
    return SetServiceInstance<cCheckEsc, ServiceKey::CheckEsc>(service);
}

void InitCheckEscCallback(cCheckEscCallback* callback) {
    cCheckEsc::Instance()->SetCallback(callback);
}

bool CheckEsc() {
    return cCheckEsc::Instance()->CheckEsc();
}

bool CheckEsc4Update(bool update) {
    return cCheckEsc::Instance()->CheckEscUpdate(update);
}

void CancelConfirmed() {
    cCheckEsc::Instance()->CancelConfirmed();
}

}  // namespace Torvo
