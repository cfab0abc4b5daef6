#include <Utility/errors.h>

#include <Utility/errors/error_system.h>
#include <Utility/frame/instance_data.h>

#include <new>

namespace Torvo {

cErrorSystem* cErrorSystem::Create() {
    try {
        return new (std::nothrow) cErrorSystemImpl;
    } catch (cErrorSystemImpl::eCreateError) {
        return nullptr;
    }
}

cErrorSystem* cErrorSystem::Instance() {
    return ServiceInstance<cErrorSystem, ServiceKey::ErrorSystem>();
}

bool cErrorSystem::Instance(cErrorSystem* service) {
    return SetServiceInstance<cErrorSystem, ServiceKey::ErrorSystem>(service);
}

bool HaveErrors() {
    return cErrorSystem::Instance()->HaveErrors();
}

int32 NumErrors() {
    return cErrorSystem::Instance()->NumErrors();
}

bool FirstError() {
    return cErrorSystem::Instance()->FirstError();
}

void ClearErrors() {
    cErrorSystem::Instance()->ClearErrors();
}

bool GetNextError(bool first, wchar16* buffer, uint64 size) {
    return cErrorSystem::Instance()->GetNextError(first, buffer, size);
}

bool ThisErrorOccurred(int32 number) {
    return cErrorSystem::Instance()->ThisErrorOccurred(number);
}

int32 GetErrorNum(int32 index) {
    return cErrorSystem::Instance()->GetErrorNum(index);
}

int32 GetResourceID(int32 index) {
    return cErrorSystem::Instance()->GetResourceID(index);
}

const GUID& GetErrorGUID(int32 index) {
    return cErrorSystem::Instance()->GetErrorGUID(index);
}

void GetErrorMsg(const wchar16* format, uint64 index, wchar16* buffer, uint64 size) {
    cErrorSystem::Instance()->GetErrorMsg(format, index, buffer, size);
}

void SetError(eErrorLevel level, int32 resourceId, const wchar16* format, const GUID& guid, int32 number,
              const wchar16* param0, const wchar16* param1) {
    cErrorSystem::Instance()->SetError(level, resourceId, format, guid, number, param0, param1);
}

void SetError(eErrorLevel level, const wchar16* format, const GUID& guid, int32 number, const wchar16* param0,
              const wchar16* param1) {
    if (format == nullptr) return;
    cErrorSystem::Instance()->SetError(level, format, guid, number, param0, param1);
}

void EndError() {
    cErrorSystem::Instance()->EndError();
}

void SetErrorFunctions(cErrorFuncs* functions) {
    cErrorSystem::Instance()->SetErrorFunctions(functions);
}

void ReportErrors() {
    cErrorSystem::Instance()->ReportErrors();
}

void SetZUErrorMode(eErrorMode mode) {
    cErrorSystem::Instance()->SetZUErrorMode(mode);
}

eErrorMode GetZUErrorMode() {
    return cErrorSystem::Instance()->GetZUErrorMode();
}

}  // namespace Torvo
