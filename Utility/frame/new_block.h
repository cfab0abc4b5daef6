// Memory blocks of elements of a type.
#pragma once

#include <Utility/memory_blocks.h>

namespace Torvo {

enum class Content { Any, Zero };

// A new block of `count` elements, to be freed with ffree_; null if memory is short.
template <typename Element>
Element* NewBlock(uint64 count, Content content = Content::Any) {
    void* block = nullptr;
    falloc_(count * sizeof(Element), &block, false, content == Content::Zero);
    return static_cast<Element*>(block);
}

// Frees such a block, which may be null.
template <typename Element>
void FreeBlock(Element* block) {
    void* untyped = block;
    ffree_(&untyped);
}

}  // namespace Torvo
