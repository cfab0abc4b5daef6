// What the address sanitizer is told by these programs; nobody asks where it is not part of the build. An allocation
// that no heap can serve gives null, as it does without the sanitizer, since tests ask for one.
extern "C" const char* __asan_default_options();

extern "C" const char* __asan_default_options() {
    return "allocator_may_return_null=1";
}
