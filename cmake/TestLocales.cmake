# Locales of the C library for the tests of the numeric locale, made from the distribution's definitions (package
# `locales`) into the build tree. Without the program or the definitions the tests say so and skip.
find_program(TORVO_LOCALEDEF localedef)
foreach(locale de_DE fr_FR en_US)
    set(directory ${PROJECT_BINARY_DIR}/locales/${locale}.UTF-8)
    if(TORVO_LOCALEDEF AND NOT EXISTS ${directory}/LC_NUMERIC)
        file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/locales)
        execute_process(COMMAND ${TORVO_LOCALEDEF} -i ${locale} -f UTF-8 ${directory} ERROR_VARIABLE torvo_ignored)
    endif()
endforeach()
