# Installs the build in BUILD_DIR, by way of the ZIP for Windows, moves the copy (it must not depend on where
# it was installed), and builds and runs the consumer against it; then against the build itself, and with
# the sources in its own build.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/moved)

function(run)
    execute_process(COMMAND ${ARGV} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGV}\n${output}")
    endif()
endfunction()

# Builds a target of the project in the folder SOURCE in WORK_DIR/NAME.
function(build source name target)
    set(options -DCMAKE_CXX_COMPILER=${CXX})
    if(TOOLCHAIN_FILE)
        set(options -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN_FILE} -DCMAKE_FIND_ROOT_PATH=${prefix})
    endif()
    run(${CMAKE_COMMAND} -S ${source} -B ${WORK_DIR}/${name} -G Ninja ${options} ${ARGN}
        -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    run(${CMAKE_COMMAND} --build ${WORK_DIR}/${name} --target ${target})
endfunction()

if(TOOLCHAIN_FILE)
    run(${CPACK} --config ${BUILD_DIR}/CPackConfig.cmake -B ${BUILD_DIR}/archive)
    file(GLOB archive ${BUILD_DIR}/archive/tavex-*.zip)
    file(ARCHIVE_EXTRACT INPUT ${archive} DESTINATION ${WORK_DIR})
    cmake_path(GET archive STEM LAST_ONLY installed)
else()
    set(installed installed)
    run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/${installed})
endif()
file(RENAME ${WORK_DIR}/${installed} ${prefix})
if(NOT EXISTS ${prefix}/${LIBRARY_FILE})
    message(FATAL_ERROR "The library file is not installed as ${LIBRARY_FILE}")
endif()

# CMake names the version that it finds and does not take.
foreach(version 1.9 2.0.13 3.0)
    find_package(Tavex ${version} QUIET PATHS ${prefix}/${LIB_DIR}/cmake/Tavex NO_DEFAULT_PATH)
    if(Tavex_FOUND OR NOT Tavex_CONSIDERED_VERSIONS STREQUAL "2.0.12")
        message(FATAL_ERROR "Asked for ${version}: ${Tavex_FOUND} ${Tavex_CONSIDERED_VERSIONS}")
    endif()
endforeach()

build(${EXAMPLE_DIR} inventory all)
set(headers -DTAVEX_INCLUDE_DIR=${prefix}/include)
if(TOOLCHAIN_FILE)
    # That the headers stand alone does not depend on the system.
    build(${CONSUMER_DIR} cmake consumer ${headers})
    set(ENV{WINEPATH} Z:${prefix}/bin)
    run(${EMULATOR} ${WORK_DIR}/cmake/consumer.exe)

    file(WRITE ${WORK_DIR}/files/größe 123456789)
    execute_process(COMMAND ${EMULATOR} ${WORK_DIR}/inventory/inventory.exe --lang de ${WORK_DIR}/files
        OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
    if(NOT output MATCHES "9 B  0376e6e7 .* größe")
        message(FATAL_ERROR "${output}")
    endif()
    return()
endif()
build(${CONSUMER_DIR} cmake all ${headers})
run(${WORK_DIR}/cmake/consumer)
run(${EXAMPLE_DIR}/tests/check ${WORK_DIR}/inventory/inventory ${WORK_DIR}/list)
build(${CONSUMER_DIR} build-tree consumer ${headers} -DTavex_DIR=${BUILD_DIR})
run(${WORK_DIR}/build-tree/consumer)
build(${CONSUMER_DIR} subdirectory consumer ${headers} -DTAVEX_SOURCE_DIR=${SOURCE_DIR} -DTAVEX_FLAGS_DIR=${FLAGS_DIR})
run(${WORK_DIR}/subdirectory/consumer)

set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIB_DIR}/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs tavex
    OUTPUT_VARIABLE options OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(options UNIX_COMMAND "${options}")
run(${CXX} -std=c++20 -fPIC -fno-exceptions ${CONSUMER_DIR}/main.cpp -o ${WORK_DIR}/with-pkg-config ${options})
set(ENV{LD_LIBRARY_PATH} ${prefix}/${LIB_DIR})
run(${WORK_DIR}/with-pkg-config)

# An older language is refused with the reason, not with hundreds of errors.
execute_process(COMMAND ${CXX} -std=c++17 -fPIC -fsyntax-only ${CONSUMER_DIR}/main.cpp ${options}
    ERROR_VARIABLE output RESULT_VARIABLE result)
if(result EQUAL 0 OR NOT output MATCHES "tavex needs C\\+\\+20" OR output MATCHES "concept")
    message(FATAL_ERROR "C++17: ${output}")
endif()
