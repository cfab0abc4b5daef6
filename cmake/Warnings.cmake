# The one list of warnings. All of them are errors, for every compiler that the library is built with.
set(TORVO_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

# Adds the warnings to a target, for its own sources only.
function(torvo_warnings target)
    target_compile_options(${target} PRIVATE ${TORVO_WARNINGS})
endfunction()
