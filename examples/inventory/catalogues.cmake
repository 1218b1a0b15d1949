# Compiles the catalogues of the folders given into translations/ beside the program, where the library looks
# for them.
function(add_catalogues)
    get_target_property(rcc Qt6::rcc LOCATION)
    cmake_path(GET rcc PARENT_PATH tools_dir)
    find_program(LRELEASE_EXECUTABLE NAMES lrelease lrelease-qt6 lrelease6
        HINTS ${tools_dir} ${tools_dir}/../bin REQUIRED)
    file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/translations)
    list(TRANSFORM ARGN APPEND /*.ts)
    file(GLOB sources CONFIGURE_DEPENDS ${ARGN})
    set(catalogues)
    foreach(ts IN LISTS sources)
        cmake_path(GET ts STEM name)
        set(qm ${CMAKE_CURRENT_BINARY_DIR}/translations/${name}.qm)
        add_custom_command(OUTPUT ${qm}
            COMMAND ${LRELEASE_EXECUTABLE} -silent ${ts} -qm ${qm}
            DEPENDS ${ts} COMMENT "" VERBATIM)
        list(APPEND catalogues ${qm})
    endforeach()
    add_custom_target(catalogues ALL DEPENDS ${catalogues})
endfunction()
