# Installs the build in BUILD_DIR, moves the copy (it must not depend on where it was installed), and
# builds and runs the consumer against it.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/moved)

function(run)
    execute_process(COMMAND ${ARGV} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGV}\n${output}")
    endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/installed)
file(RENAME ${WORK_DIR}/installed ${prefix})
if(NOT EXISTS ${prefix}/${LIB_DIR}/libtavex.so.2.0.12)
    message(FATAL_ERROR "The library file is not installed under its full version")
endif()

run(${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/cmake -G Ninja -DCMAKE_CXX_COMPILER=${CXX}
    -DCMAKE_PREFIX_PATH=${prefix} -DTAVEX_INCLUDE_DIR=${prefix}/include
    -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/cmake)
run(${WORK_DIR}/cmake/consumer)

set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIB_DIR}/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs tavex
    OUTPUT_VARIABLE options OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(options UNIX_COMMAND "${options}")
run(${CXX} -std=c++20 -fPIC ${CONSUMER_DIR}/main.cpp -o ${WORK_DIR}/with-pkg-config ${options})
set(ENV{LD_LIBRARY_PATH} ${prefix}/${LIB_DIR})
run(${WORK_DIR}/with-pkg-config)
