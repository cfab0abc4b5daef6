// What the address sanitizer is told by these programs; nobody asks where it is not part of the build. An allocation
// that no heap can serve gives null, as it does without the sanitizer, since tests ask for one. The sanitizer looks for
// the function from its own library, so the function must be visible.
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options();

const char* __asan_default_options() {
    return "allocator_may_return_null=1";
}
