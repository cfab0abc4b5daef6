// A block of text that a call of the library has handed out, freed as its documentation says.
#pragma once

#include <Utility/memory_blocks.h>

namespace Torvo::test {

class OwnedText {
public:
    OwnedText() = default;
    ~OwnedText() {
        void* block = text;
        ffree_(&block);
    }
    OwnedText(const OwnedText&) = delete;
    OwnedText& operator=(const OwnedText&) = delete;

    // Where the call stores its block.
    wchar16** Place() { return &text; }
    wchar16* Get() const { return text; }

private:
    wchar16* text = nullptr;
};

}  // namespace Torvo::test
