#include <Utility/errors/message_composer.h>

#include <Utility/strings.h>

namespace Torvo {

void ComposeMessage(wstring16* message, const wchar16* format, std::basic_string_view<wchar16> param0,
                    std::basic_string_view<wchar16> param1, uint64 limit) {
    while (*format != 0 && message->size() < limit) {
        if (*format != '^') {
            message->push_back(*format);
            format = zuNextChar(format);
            continue;
        }
        switch (format[1]) {
            case '0':
                message->append(param0);
                break;
            case '1':
                message->append(param1);
                break;
            case '^':
                message->push_back('^');
                break;
            default:
                return;
        }
        format += 2;
    }
}

}  // namespace Torvo
