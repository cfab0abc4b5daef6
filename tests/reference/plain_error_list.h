// The error list in its plain form: every record keeps its own texts, every step is one statement. What the library
// does is compared with this.
#pragma once

#include <Utility/errors.h>
#include <Utility/number_parsing.h>
#include <Utility/strings.h>

#include <string>
#include <vector>

namespace Torvo::test {

class PlainErrorList {
public:
    struct Record {
        int32 level = 0;
        wstring16 format;
        GUID guid = {};
        int32 resourceId = 0;
        int32 number = 0;
        wstring16 prefix;
        wstring16 param0;
        wstring16 param1;
    };

    // What the application's object would answer.
    bool suppressed = false;
    bool keepDuplicates = false;
    wstring16 prefix;

    bool HaveErrors() const { return !suppressed && storedCount > 0; }
    int32 NumErrors() const { return storedCount; }
    bool FirstError() const { return sinceEndError == 0; }
    int32 ResourceId(int32 index) const { return At(index).resourceId; }
    GUID Guid(int32 index) const { return At(index).guid; }

    void SetError(int32 level, int32 resourceId, const wchar16* format, const GUID& guid, int32 number,
                  const wchar16* param0, const wchar16* param1) {
        if (suppressed) return;
        if (number != -1 && !keepDuplicates) {
            for (int32 i = 0; i < attemptCount; ++i) {
                if (At(i).number == number) {
                    if (level > At(i).level) At(i).level = level;
                    return;
                }
            }
        }
        const int32 n = attemptCount;
        attemptCount = attemptCount + 1;
        if (n >= 30) {
            overflowed = true;
            attemptCount = 30;
            return;
        }
        if (overflowed) return;
        Record& record = At(n);
        record.level = level;
        record.resourceId = resourceId;
        if (format != nullptr) record.format = format;
        record.guid = guid;
        record.number = number;
        record.prefix = prefix;
        record.param0 = param0 != nullptr ? param0 : ZUTEXT("");
        record.param1 = param1 != nullptr ? param1 : ZUTEXT("");
        storedCount = storedCount + 1;
        sinceEndError = sinceEndError + 1;
    }

    void EndError() {
        if (sinceEndError == 0) return;
        SetError(0, -1, ZUTEXT(""), GUID{}, -1, nullptr, nullptr);
        sinceEndError = 0;
    }

    void ClearErrors() {
        for (int32 i = 0; i < storedCount; ++i) {
            const int32 resourceId = At(i).resourceId;
            At(i) = Record();
            At(i).resourceId = resourceId;
        }
        attemptCount = 0;
        cursor = 0;
        storedCount = 0;
        sinceEndError = 0;
        overflowed = false;
    }

    bool ThisErrorOccurred(int32 number) const {
        for (const Record& record : records) {
            if (record.number == number) return true;
        }
        return false;
    }

    int32 ErrorNum(int32 index) const {
        if (At(index).number != 15) return At(index).number;
        wstring16 text = At(index).param0 + At(index).param1;
        for (int32 i = index + 1; i < storedCount; ++i) text += At(i).prefix + At(i).param0 + At(i).param1;
        int value = 0;
        StringToInt(text.c_str(), &value, nullptr);
        return value;
    }

    wstring16 Message(const wchar16* format, int32 index) {
        if (format != nullptr) At(index).format = format;
        return Composed(At(index));
    }

    bool NextError(bool first, wstring16* text, uint64 size) {
        if (first) cursor = 0;
        const bool result = IsLive(cursor);
        text->clear();
        int32 index = cursor;
        cursor = cursor + 1;
        while (!overflowed && IsLive(index)) {
            wstring16 message = Composed(At(index));
            if (text->size() + 1 + message.size() < size) {
                if (!message.empty() && message.back() == '\n') message.pop_back();
                *text += message;
                *text += ' ';
            } else {
                overflowed = true;
            }
            index = index + 1;
            cursor = cursor + 1;
        }
        if (overflowed) {
            if (size >= text->size() + 2 + Lost().size()) {
                *text += Lost();
            } else {
                text->resize(size - Lost().size() - 1);
                *text += Lost();
            }
        }
        return result;
    }

    // The text of a report, and whether there is one.
    bool Report(wstring16* text) {
        const bool result = NextError(true, text, ~uint64{0});
        if (overflowed) *text = Lost();
        ClearErrors();
        return result;
    }

    std::vector<Record> Enumerate(bool clearAfterwards) {
        std::vector<Record> seen;
        cursor = 0;
        if (!overflowed) {
            while (IsLive(cursor)) {
                seen.push_back(At(cursor));
                cursor = cursor + 1;
            }
        }
        if (clearAfterwards) ClearErrors();
        return seen;
    }

private:
    static const wstring16& Lost() {
        static const wstring16 text = ZUTEXT(" Too many errors.  Error information has been lost.");
        return text;
    }

    Record& At(int32 index) { return records[static_cast<std::size_t>(index)]; }
    const Record& At(int32 index) const { return records[static_cast<std::size_t>(index)]; }
    bool IsLive(int32 index) const { return index < 30 && At(index).number != 0 && At(index).number != -1; }

    static wstring16 Composed(const Record& record) {
        wstring16 message = record.prefix;
        if (record.number == 0) return message;
        const wchar16* p = record.format.c_str();
        while (*p != 0) {
            if (p[0] == '^' && p[1] == '0') {
                message += record.param0;
                p = p + 2;
            } else if (p[0] == '^' && p[1] == '1') {
                message += record.param1;
                p = p + 2;
            } else if (p[0] == '^' && p[1] == '^') {
                message += '^';
                p = p + 2;
            } else if (p[0] == '^') {
                return message;
            } else {
                message += *p;
                p = zuNextChar(p);
            }
        }
        return message;
    }

    std::vector<Record> records = std::vector<Record>(30);
    int32 attemptCount = 0;
    int32 cursor = 0;
    int32 storedCount = 0;
    int32 sinceEndError = 0;
    bool overflowed = false;
};

}  // namespace Torvo::test
