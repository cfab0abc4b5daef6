# Sanitizers are a property of the whole build: mixing instrumented and plain objects hides faults.
if(TORVO_SANITIZE)
    add_compile_options(-fsanitize=${TORVO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${TORVO_SANITIZE})
    add_compile_definitions(TORVO_CHECK_INVARIANTS=1)
endif()
