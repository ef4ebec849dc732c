# Installs documents the way Debian wants them: compressed, without the time of the build.

find_program(VELLORA_GZIP gzip REQUIRED)

# vellora_install_compressed(FILE NAME DESTINATION COMPONENT)
function(vellora_install_compressed file name destination component)
    set(result "${CMAKE_CURRENT_BINARY_DIR}/compressed/${component}/${name}.gz")
    get_filename_component(folder "${result}" DIRECTORY)
    file(MAKE_DIRECTORY "${folder}")
    execute_process(COMMAND "${VELLORA_GZIP}" -9nc "${file}"
        OUTPUT_FILE "${result}" COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    install(FILES "${result}" DESTINATION "${destination}" COMPONENT "${component}")
endfunction()
