// What tests of the error list share.
#pragma once

#include <Utility/errors.h>

#include <algorithm>
#include <string>

namespace Torvo::test {

inline const wstring16& LostText() {
    static const wstring16 text = ZUTEXT(" Too many errors.  Error information has been lost.");
    return text;
}

inline GUID GuidOf(uint32 number) {
    return {number, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
}

inline bool SameGuid(const GUID& a, const GUID& b) {
    const auto* const first = reinterpret_cast<const unsigned char*>(&a);
    const auto* const second = reinterpret_cast<const unsigned char*>(&b);
    return std::equal(first, first + sizeof a, second);
}

// The message of one record.
inline wstring16 Message(cErrorSystem& errors, uint64 index, const wchar16* format = nullptr) {
    wstring16 buffer(4096, wchar16{'?'});
    errors.GetErrorMsg(format, index, buffer.data(), buffer.size());
    return buffer.c_str();
}

// A group, read with room to spare, or an asterisk when there is none.
inline wstring16 Group(cErrorSystem& errors, bool first) {
    wstring16 buffer(100000, wchar16{'?'});
    return errors.GetNextError(first, buffer.data(), buffer.size()) ? wstring16(buffer.c_str()) : ZUTEXT("*");
}

// An application that writes down what it is asked.
class RecordingApplication : public cErrorFuncs {
public:
    ~RecordingApplication() override { log += "destroyed "; }
    void ReportErrorText(const wchar16* text) override {
        log += "report ";
        reported = text;
        errorsWhileReporting = cErrorSystem::Instance()->NumErrors();
    }
    bool ErrorsSuppressed() override {
        log += "suppressed? ";
        return suppressed;
    }
    bool KeepDuplicateErrors() override {
        log += "keep? ";
        return keepDuplicates;
    }
    const wchar16* GetErrorPrefix(int32 sinceEndError) override {
        log += "prefix" + std::to_string(sinceEndError) + ' ';
        return prefix;
    }

    bool suppressed = false;
    bool keepDuplicates = false;
    const wchar16* prefix = nullptr;
    std::string log;
    wstring16 reported;
    int32 errorsWhileReporting = -1;
};

}  // namespace Torvo::test
