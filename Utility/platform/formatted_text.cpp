#include <Utility/platform/formatted_text.h>

#include <Utility/platform/buffer_end.h>
#include <Utility/platform/float_text.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>

namespace Torvo::platform {

namespace {

using TextView = std::basic_string_view<wchar16>;

// A copy of an argument list, which can be handed on by reference.
class Arguments {
public:
    explicit Arguments(va_list source) { va_copy(list, source); }
    ~Arguments() { va_end(list); }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    template <typename T>
    T Next() {
        // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the constructor copied it
        return va_arg(list, T);
    }

private:
    va_list list;
};

// Takes the text: keeps what fits before `end`, counts all of it.
class Output {
public:
    Output(wchar16* buffer, uint64 room) : cursor(buffer), end(BufferEnd(buffer, room)) {}

    void Put(wchar16 unit) {
        if (cursor != end) *cursor++ = unit;
        ++length;
    }
    template <typename Unit>
    void Put(std::basic_string_view<Unit> text) {
        cursor = std::copy_n(text.begin(), Kept(text.size()), cursor);
        length += text.size();
    }
    void Fill(wchar16 unit, uint64 count) {
        cursor = std::fill_n(cursor, Kept(count), unit);
        length += count;
    }

    uint64 Length() const { return length; }
    wchar16* Cursor() const { return cursor; }

private:
    uint64 Kept(uint64 count) const { return std::min(count, static_cast<uint64>(end - cursor)); }

    wchar16* cursor;
    wchar16* const end;
    uint64 length = 0;
};

enum class Size { None, Bits8, Bits16, Long, Bits64, LongDouble, Wide };

// One conversion of the format.
struct Directive {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zero = false;
    uint64 width = 0;
    int precision = -1;  // -1 for none
    Size size = Size::None;
    wchar16 type = 0;
};

bool IsDigit(wchar16 unit) {
    return unit >= '0' && unit <= '9';
}

// Reads one directive behind its percent sign, asking for arguments where the format has an asterisk.
class DirectiveReader {
public:
    DirectiveReader(const wchar16** formatText, Arguments* list) : format(*formatText), arguments(*list) {}

    // False if the format is refused.
    bool Read(Directive* directive) {
        while (ReadFlag(directive)) ++format;
        if (!ReadWidth(directive) || !ReadPrecision(directive)) return false;
        directive->size = ReadSize();
        directive->type = *format;
        if (*format == 0) return false;
        ++format;
        return true;
    }

private:
    bool ReadFlag(Directive* directive) const {
        switch (*format) {
            case '-':
                return directive->left = true;
            case '+':
                return directive->plus = true;
            case ' ':
                return directive->blank = true;
            case '#':
                return directive->alternate = true;
            case '0':
                return directive->zero = true;
            default:
                return false;
        }
    }

    bool ReadWidth(Directive* directive) {
        if (*format != '*') {
            const std::optional<int> width = ReadNumber();
            if (width) directive->width = static_cast<uint64>(*width);
            return width.has_value();
        }
        ++format;
        const int64 width = arguments.Next<int>();
        if (width < 0) directive->left = true;
        directive->width = static_cast<uint64>(width < 0 ? -width : width);
        return true;
    }

    bool ReadPrecision(Directive* directive) {
        if (*format != '.') return true;
        ++format;
        if (*format != '*') {
            const std::optional<int> precision = ReadNumber();
            directive->precision = precision.value_or(-1);
            return precision.has_value();
        }
        ++format;
        directive->precision = std::max(arguments.Next<int>(), -1);
        return true;
    }

    // 0 where no digits stand; nothing where the number is too large for an int.
    std::optional<int> ReadNumber() {
        int64 number = 0;
        for (; IsDigit(*format); ++format) {
            number = number * 10 + (*format - '0');
            if (number > std::numeric_limits<int>::max()) return std::nullopt;
        }
        return static_cast<int>(number);
    }

    bool Skip(wchar16 unit) {
        if (*format != unit) return false;
        ++format;
        return true;
    }

    bool Skip(wchar16 first, wchar16 second) {
        if (format[0] != first || format[1] != second) return false;
        format += 2;
        return true;
    }

    Size ReadSize() {
        if (Skip('h')) return Skip('h') ? Size::Bits8 : Size::Bits16;
        if (Skip('l')) return Skip('l') ? Size::Bits64 : Size::Long;
        if (Skip('w')) return Size::Wide;
        if (Skip('L')) return Size::LongDouble;
        if (Skip('j') || Skip('z') || Skip('t')) return Size::Bits64;
        if (Skip('I')) return Skip('3', '2') ? Size::None : (static_cast<void>(Skip('6', '4')), Size::Bits64);
        return Size::None;
    }

    const wchar16*& format;
    Arguments& arguments;
};

// Text of bytes in the runtime's character locale, read unit by unit.
class NarrowReader {
public:
    NarrowReader(const char* bytes, uint64 byteCount) : text(bytes), remaining(byteCount) {}

    // The next unit; nothing at the end or where the bytes mean nothing, which Failed tells apart.
    std::optional<wchar16> Next() {
        if (second != 0) return std::exchange(second, wchar16{0});
        if (remaining == 0) return std::nullopt;
        wchar_t point = 0;
        std::size_t used = std::mbrtowc(&point, text, remaining, &state);
        if (used > remaining) {
            // In the "C" locale every byte is a character, whatever the C library of the system makes of those above
            // 127.
            if (MB_CUR_MAX > 1) {
                failed = true;
                return std::nullopt;
            }
            state = {};
            point = static_cast<wchar_t>(static_cast<unsigned char>(*text));
            used = 1;
        }
        used = std::max<std::size_t>(used, 1);
        text += used;
        remaining -= used;
        return Split(static_cast<uint32>(point));
    }

    bool Failed() const { return failed; }

private:
    // The first unit of a code point; the second one, if it has two, is kept for the next call.
    wchar16 Split(uint32 point) {
        if (point < 0x10000) return static_cast<wchar16>(point);
        second = static_cast<wchar16>(0xDC00 + (point & 0x3FF));
        return static_cast<wchar16>(0xD7C0 + (point >> 10));
    }

    const char* text;
    uint64 remaining;
    std::mbstate_t state{};
    wchar16 second = 0;
    bool failed = false;
};

// The decimal mark of the runtime's numeric locale: mostly one unit, in few locales more.
class DecimalMark {
public:
    DecimalMark() {
        const char* const mark = std::localeconv()->decimal_point;
        if (mark[0] == '.' && mark[1] == 0) return;
        NarrowReader reader(mark, std::strlen(mark));
        uint64 count = 0;
        while (count < units.size()) {
            const std::optional<wchar16> unit = reader.Next();
            if (!unit) break;
            units[count++] = *unit;
        }
        if (count > 0 && !reader.Failed())
            length = count;
        else
            units[0] = '.';
    }

    TextView View() const { return {units.data(), length}; }

private:
    std::array<wchar16, 4> units{'.'};
    uint64 length = 1;
};

class Formatter {
public:
    Formatter(Output* target, const wchar16* text, va_list list) : output(*target), format(text), arguments(list) {}

    // False if the format is refused or an argument cannot be converted.
    bool Run() {
        while (PutLiteral()) {
            Directive directive;
            if (!DirectiveReader(&format, &arguments).Read(&directive) || !Put(directive)) return false;
        }
        return true;
    }

private:
    // Copies up to the next directive, and steps over its percent sign; false at the end of the format.
    bool PutLiteral() {
        for (;;) {
            const wchar16* const start = format;
            while (*format != 0 && *format != '%') ++format;
            output.Put(TextView(start, static_cast<uint64>(format - start)));
            if (*format == 0) return false;
            ++format;
            if (*format != '%') return true;
            output.Put(*format++);
        }
    }

    bool Put(const Directive& directive) {
        switch (directive.type) {
            case 'c':
            case 'C':
                return PutCharacter(directive);
            case 's':
            case 'S':
                return PutText(directive);
            case 'd':
            case 'i':
                return PutSigned(directive);
            case 'u':
                return PutUnsigned(directive, 10);
            case 'o':
                return PutUnsigned(directive, 8);
            case 'x':
            case 'X':
                return PutUnsigned(directive, 16);
            case 'p':
                return PutPointer(directive);
            case 'e':
            case 'E':
            case 'f':
            case 'F':
            case 'g':
            case 'G':
            case 'a':
            case 'A':
                return PutFloat(directive);
            default:
                return false;
        }
    }

    // Whether %c and %s, or in capitals %C and %S, take 16-bit text.
    static bool TakesWideText(const Directive& directive) {
        switch (directive.size) {
            case Size::Bits8:
            case Size::Bits16:
                return false;
            case Size::Long:
            case Size::Wide:
                return true;
            default:
                return directive.type == 'c' || directive.type == 's';
        }
    }

    // Prints what `putBody` prints, which has `length` units, in the field that the directive asks for. A `prefix`
    // stands before padding with zeros.
    template <typename Body>
    void PutField(const Directive& directive, std::string_view prefix, uint64 length, const Body& putBody) {
        const uint64 used = prefix.size() + length;
        const uint64 padding = directive.width > used ? directive.width - used : 0;
        const bool zeros = directive.zero && !directive.left;
        if (!directive.left && !zeros) output.Fill(' ', padding);
        output.Put(prefix);
        if (zeros) output.Fill('0', padding);
        putBody();
        if (directive.left) output.Fill(' ', padding);
    }

    void PutWide(const Directive& directive, TextView text) {
        PutField(directive, {}, text.size(), [&] { output.Put(text); });
    }

    bool PutCharacter(const Directive& directive) {
        const int character = arguments.Next<int>();
        const wchar16 unit = static_cast<wchar16>(character);
        if (TakesWideText(directive)) {
            PutWide(directive, TextView(&unit, 1));
            return true;
        }
        const char byte = static_cast<char>(character);
        return PutNarrow(directive, NarrowReader(&byte, 1), 1);
    }

    bool PutText(const Directive& directive) {
        const uint64 limit = directive.precision < 0 ? ~uint64{0} : static_cast<uint64>(directive.precision);
        if (TakesWideText(directive)) {
            const wchar16* text = arguments.Next<const wchar16*>();
            if (text == nullptr) text = ZUTEXT("(null)");
            PutWide(directive, TextView(text, Length(text, limit)));
            return true;
        }
        const char* text = arguments.Next<const char*>();
        if (text == nullptr) text = "(null)";
        // A character has at most MB_CUR_MAX bytes, so no more than this many can belong to the units asked for.
        const uint64 most = MB_CUR_MAX;
        const uint64 bytes = Length(text, limit > ~uint64{0} / most ? limit : limit * most);
        return PutNarrow(directive, NarrowReader(text, bytes), limit);
    }

    template <typename Unit>
    static uint64 Length(const Unit* text, uint64 limit) {
        uint64 length = 0;
        while (length < limit && text[length] != 0) ++length;
        return length;
    }

    // Prints at most `limit` units of what `reader` gives, which is read twice.
    bool PutNarrow(const Directive& directive, const NarrowReader& reader, uint64 limit) {
        NarrowReader counted = reader;
        uint64 length = 0;
        while (length < limit && counted.Next()) ++length;
        if (counted.Failed()) return false;
        PutField(directive, {}, length, [&] {
            NarrowReader printed = reader;
            for (uint64 i = 0; i < length; ++i) output.Put(printed.Next().value_or(wchar16{0}));
        });
        return true;
    }

    static std::string_view Sign(const Directive& directive, bool negative) {
        if (negative) return "-";
        if (directive.plus) return "+";
        return directive.blank ? " " : "";
    }

    // The next argument as the directive's size has it, extended to 64 bits by its sign.
    int64 NextSigned(const Directive& directive) {
        if (directive.size == Size::Bits64) return arguments.Next<int64>();
        const int value = arguments.Next<int>();
        if (directive.size == Size::Bits8) return static_cast<signed char>(value);
        if (directive.size == Size::Bits16) return static_cast<int16>(value);
        return value;
    }

    uint64 NextUnsigned(const Directive& directive) {
        if (directive.size == Size::Bits64) return arguments.Next<uint64>();
        const unsigned int value = arguments.Next<unsigned int>();
        if (directive.size == Size::Bits8) return static_cast<uint8>(value);
        if (directive.size == Size::Bits16) return static_cast<uint16>(value);
        return value;
    }

    bool PutSigned(const Directive& directive) {
        const int64 value = NextSigned(directive);
        const uint64 bits = static_cast<uint64>(value);
        PutInteger(directive, Sign(directive, value < 0), value < 0 ? 0 - bits : bits, 10);
        return true;
    }

    bool PutUnsigned(const Directive& directive, int base) {
        const uint64 value = NextUnsigned(directive);
        const bool marked = directive.alternate && base == 16 && value != 0;
        PutInteger(directive, !marked ? "" : directive.type == 'X' ? "0X" : "0x", value, base);
        return true;
    }

    bool PutPointer(Directive directive) {
        directive.precision = 16;
        directive.type = 'X';
        const uint64 value = reinterpret_cast<std::uintptr_t>(arguments.Next<void*>());
        PutInteger(directive, directive.alternate && value != 0 ? "0X" : "", value, 16);
        return true;
    }

    void PutInteger(Directive directive, std::string_view prefix, uint64 value, int base) {
        std::array<char, 24> buffer{};
        char* digitsEnd = buffer.data();
        if (value != 0 || directive.precision != 0) {
            digitsEnd = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, base).ptr;
        }
        if (directive.type == 'X') ToUpper(buffer.data(), digitsEnd);
        const std::string_view digits(buffer.data(), static_cast<uint64>(digitsEnd - buffer.data()));

        uint64 zeros = 0;
        if (directive.precision >= 0) {
            directive.zero = false;
            const uint64 precision = static_cast<uint64>(directive.precision);
            if (precision > digits.size()) zeros = precision - digits.size();
        }
        const bool startsWithZero = zeros > 0 || digits.starts_with('0');
        if (base == 8 && directive.alternate && !startsWithZero) zeros = 1;
        PutField(directive, prefix, zeros + digits.size(), [&] {
            output.Fill('0', zeros);
            output.Put(digits);
        });
    }

    bool PutFloat(Directive directive) {
        const double value = directive.size == Size::LongDouble ? static_cast<double>(arguments.Next<long double>())
                                                                : arguments.Next<double>();
        const FloatText text(value, static_cast<char>(directive.type), directive.precision, directive.alternate);
        if (!text.IsNumber()) directive.zero = false;
        std::array<char, 3> prefix;
        const std::string_view sign = Sign(directive, text.IsNegative());
        char* const prefixEnd = std::copy(sign.begin(), sign.end(), prefix.begin());
        const std::string_view mark = text.Prefix();
        const char* const end = std::copy(mark.begin(), mark.end(), prefixEnd);
        PutDecimal(directive, {prefix.data(), static_cast<uint64>(end - prefix.data())}, text);
        return true;
    }

    void PutDecimal(const Directive& directive, std::string_view prefix, const FloatText& text) {
        const std::optional<DecimalMark> mark =
            text.HasPoint() ? std::optional<DecimalMark>(std::in_place) : std::nullopt;
        const TextView point = mark ? mark->View() : TextView();
        const uint64 length =
            text.Whole().size() + point.size() + text.Fraction().size() + text.Zeros() + text.Exponent().size();
        PutField(directive, prefix, length, [&] {
            output.Put(text.Whole());
            output.Put(point);
            output.Put(text.Fraction());
            output.Fill('0', text.Zeros());
            output.Put(text.Exponent());
        });
    }

    Output& output;
    const wchar16* format;
    Arguments arguments;
};

// Prints what fits before the last of `size` units; the length of the whole text, or -1.
int Print(wchar16* buffer, std::size_t size, const wchar16* format, va_list arguments) {
    Output output(buffer, size > 0 ? size - 1 : 0);
    const bool printed = Formatter(&output, format, arguments).Run();
    const bool counted = output.Length() <= static_cast<uint64>(std::numeric_limits<int>::max());
    if (size > 0) *(printed && counted ? output.Cursor() : buffer) = 0;
    return printed && counted ? static_cast<int>(output.Length()) : -1;
}

}  // namespace

int vswprintf(wchar16* buffer, std::size_t size, const wchar16* format, va_list arguments) {
    const int length = Print(buffer, size, format, arguments);
    return length >= 0 && static_cast<std::size_t>(length) < size ? length : -1;
}

int swprintf(wchar16* buffer, std::size_t size, const wchar16* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = vswprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

int _vscwprintf(const wchar16* format, va_list arguments) {
    return Print(nullptr, 0, format, arguments);
}

int _scwprintf(const wchar16* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = _vscwprintf(format, arguments);
    va_end(arguments);
    return length;
}

int FormatText(wstring16* text, const wchar16* format, va_list arguments) {
    text->clear();
    const int length = _vscwprintf(format, arguments);
    if (length < 0) return -1;
    text->resize(static_cast<std::size_t>(length));
    return vswprintf(text->data(), text->size() + 1, format, arguments);
}

}  // namespace Torvo::platform
