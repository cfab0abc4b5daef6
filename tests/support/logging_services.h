// Services that do nothing but write down their end, to be put in the place of an instance's own.
#pragma once

#include <Utility/Utility.h>

#include <string>

namespace Torvo::test {

// Appends its name to a log when it is destroyed.
class LoggedEnd {
public:
    LoggedEnd(std::string name, std::string& log) : name_(std::move(name)), log_(log) {}
    ~LoggedEnd() { log_ += name_ + ' '; }
    LoggedEnd(const LoggedEnd&) = delete;
    LoggedEnd& operator=(const LoggedEnd&) = delete;

private:
    const std::string name_;
    std::string& log_;
};

class LoggingResourceBuffers final : public cStringResourceBuffers, private LoggedEnd {
public:
    using LoggedEnd::LoggedEnd;
    wchar16* GetNextBuffer() override { return nullptr; }
};

class LoggingErrorSystem final : public cErrorSystem, private LoggedEnd {
public:
    using LoggedEnd::LoggedEnd;
    bool HaveErrors() override { return false; }
    int32 NumErrors() override { return 0; }
    bool FirstError() override { return true; }
    void ClearErrors() override {}
    bool GetNextError(bool, wchar16*, uint64) override { return false; }
    bool ThisErrorOccurred(int32) override { return false; }
    int32 GetErrorNum(int32) override { return 0; }
    int32 GetResourceID(int32) override { return 0; }
    const GUID& GetErrorGUID(int32) override { return guid_; }
    void GetErrorMsg(const wchar16*, uint64, wchar16*, uint64) override {}
    void SetError(eErrorLevel, int32, const wchar16*, const GUID&, int32, const wchar16*, const wchar16*) override {}
    void SetError(eErrorLevel, const wchar16*, const GUID&, int32, const wchar16*, const wchar16*) override {}
    void EndError() override {}
    void SetErrorFunctions(cErrorFuncs*) override {}
    void ReportErrorsTo(void (*)(const wchar16*)) override {}
    void ReportErrors() override {}
    void SetZUErrorMode(eErrorMode) override {}
    eErrorMode GetZUErrorMode() override { return ERRORMODE_DEFAULT; }
    void EnumerateErrors(ErrorVisitor, bool) override {}

private:
    GUID guid_{};
};

class LoggingLocaleInfo final : public cLocaleInfo, private LoggedEnd {
public:
    using LoggedEnd::LoggedEnd;
    bool ResetZULocaleInfo() override { return true; }
    uint32 GetLocaleIdentifier() override { return 0; }
    bool GetLocaleInt(uint32, uint32*) override { return false; }
    bool GetLocaleString(uint32, wchar16*, uint64) override { return false; }
    bool SetNumberFormatCallback(bool (*)()) override { return false; }
    bool (*GetNumberFormatCallback())() override { return nullptr; }
    void GetZULocaleNumInfo(bool, wchar16*, wchar16*, int16*) override {}
    const wchar16* GetCurrencySymbol() override { return nullptr; }
    bool GetNumberFmt(_numberfmtW*) override { return false; }
    bool GetCurrentFmt(_currencyfmtW*) override { return false; }
    _numberfmtW* GetNumberFmtPtr() override { return nullptr; }
    _currencyfmtW* GetCurrencyFmtPtr() override { return nullptr; }
    bool SetDateFormatCallback(bool (*)()) override { return false; }
    bool (*GetDateFormatCallback())() override { return nullptr; }
    void GetZULocaleDateInfo(bool, int16*, wchar16*) override {}
    void GetZULocaleTimeFormat(bool, wchar16*, uint64) override {}
    void GetZULocaleTimeInfo(bool, bool*, int16*, const wchar16**, const wchar16**, const wchar16**,
                             const wchar16**) override {}
};

class LoggingCharsetInfo final : public cCharsetInfo, private LoggedEnd {
public:
    using LoggedEnd::LoggedEnd;
    ZUCHARSET system_charset() override { return csNeutral; }
};

class LoggingCharsetConverter final : public cCharsetConverter, private LoggedEnd {
public:
    using LoggedEnd::LoggedEnd;
    bool ConvertCharset(ZUCHARSET, ZUCHARSET, int*, unsigned char**) override { return false; }
};

class LoggingNormalizerManager final : public StringNormalizerManager, private LoggedEnd {
public:
    using LoggedEnd::LoggedEnd;
    StringNormalizer* GetDefaultNormalizer() override { return nullptr; }
    StringNormalizer* GetNormalizer(ZUCHARSET, uint16, uint32) override { return nullptr; }
    bool RequestDefaultNormalizer(int32) override { return false; }
    uint16 ConversionCodeForCharset(ZUCHARSET, int32) override { return 0; }
};

class LoggingCheckEsc final : public cCheckEsc, private LoggedEnd {
public:
    using LoggedEnd::LoggedEnd;
    void SetCallback(cCheckEscCallback*) override {}
    bool CheckEsc() override { return false; }
    bool CheckEscUpdate(bool) override { return false; }
    void CancelConfirmed() override {}
};

// Writes down too when a file's blocks are to be written, as they are when an idle file is closed.
class LoggingFileCache final : public cFileCache, private LoggedEnd {
public:
    LoggingFileCache(std::string name, std::string& log) : LoggedEnd(std::move(name), log), flushes_(log) {}
    bool Forget(int) override { return true; }
    bool Flush(int) override {
        flushes_ += "flush ";
        return true;
    }
    int BlockCount() override { return 0; }
    int BlockSize() override { return 0; }
    bool Lookup(int, int64, CacheEntry**, int) override { return false; }
    CacheEntry* EntryAt(int) override { return nullptr; }
    void* BlockData(int) override { return nullptr; }
    void EvictAt(int) override {}

private:
    std::string& flushes_;
};

}  // namespace Torvo::test
