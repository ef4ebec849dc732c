# Compiler settings that every target of the project shares.

find_program(VELLORA_CCACHE ccache)
if(VELLORA_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${VELLORA_CCACHE}")
endif()

add_library(vellora_build_flags INTERFACE)
target_compile_options(vellora_build_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion
    $<$<BOOL:${VELLORA_WARNINGS_AS_ERRORS}>:-Werror>)
if(VELLORA_SANITIZE)
    target_compile_options(vellora_build_flags INTERFACE
        -fsanitize=${VELLORA_SANITIZE} -fno-omit-frame-pointer
        $<$<CONFIG:Debug>:-O1>)
    if(VELLORA_SANITIZE MATCHES "undefined")
        target_compile_options(vellora_build_flags INTERFACE -fno-sanitize-recover=undefined)
    endif()
    target_link_options(vellora_build_flags INTERFACE -fsanitize=${VELLORA_SANITIZE})
endif()
