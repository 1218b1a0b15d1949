# How every target of this project is compiled. The instrumentation goes into the library and its
# tests alike.
function(tavex_compile_options target)
    set(warnings -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
    if(TAVEX_WARNINGS_AS_ERRORS)
        list(APPEND warnings -Werror)
    endif()
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
        QT_DISABLE_DEPRECATED_BEFORE=0x060200)
    target_compile_options(${target} PRIVATE
        "$<$<COMPILE_LANGUAGE:CXX>:${warnings}>")
    if(TAVEX_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${TAVEX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${TAVEX_SANITIZE})
    endif()
endfunction()

# Declares the public headers of one folder and writes their forwarding headers: the name SVersion
# becomes <tavex/SVersion>, which includes the folder's sversion.h, after the check of the language's
# version. A name whose file is called otherwise is written NAME=file.
function(tavex_public_headers)
    get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
    set(headers)
    set(forwards)
    foreach(entry IN LISTS ARGN)
        if(entry MATCHES "^(.+)=(.+)$")
            set(name ${CMAKE_MATCH_1})
            set(file ${CMAKE_MATCH_2})
        else()
            set(name ${entry})
            string(TOLOWER ${entry} file)
        endif()
        list(APPEND headers ${file}.h)
        set(forward ${PROJECT_BINARY_DIR}/include/tavex/${name})
        file(CONFIGURE OUTPUT ${forward} CONTENT "#include <tavex/core/export.h>\n#include <tavex/${folder}/${file}.h>\n" @ONLY)
        list(APPEND forwards ${forward})
    endforeach()
    list(REMOVE_DUPLICATES headers)
    target_sources(tavex
        PUBLIC FILE_SET HEADERS FILES ${headers}
        PUBLIC FILE_SET forwarding TYPE HEADERS BASE_DIRS ${PROJECT_BINARY_DIR}/include
            FILES ${forwards})
    list(TRANSFORM headers PREPEND "${folder}/")
    set_property(GLOBAL APPEND PROPERTY TAVEX_HEADERS ${headers})
endfunction()

# Writes <tavex/Tavex>, which includes every public header.
function(tavex_umbrella_header)
    get_property(headers GLOBAL PROPERTY TAVEX_HEADERS)
    list(SORT headers)
    list(TRANSFORM headers REPLACE "(.+)" "#include <tavex/\\1>\n")
    list(JOIN headers "" content)
    set(umbrella ${PROJECT_BINARY_DIR}/include/tavex/Tavex)
    file(CONFIGURE OUTPUT ${umbrella} CONTENT "${content}" @ONLY)
    target_sources(tavex PUBLIC FILE_SET forwarding FILES ${umbrella})
endfunction()
