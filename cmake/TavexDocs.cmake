# The documentation: HTML, the tag file by which other projects' documentation links to it, and the
# licences of all source files as an SPDX document.
foreach(program doxygen dot reuse)
    find_program(${program}_EXECUTABLE ${program} REQUIRED)
endforeach()
set(docs ${PROJECT_BINARY_DIR}/docs)
file(GLOB_RECURSE sources CONFIGURE_DEPENDS src/tavex/*.h docs/*)
file(GLOB pages CONFIGURE_DEPENDS *.md)
add_custom_command(OUTPUT ${docs}/tavex.spdx
    COMMAND ${PROJECT_SOURCE_DIR}/tools/docs ${docs}
    DEPENDS ${sources} ${pages} ${PROJECT_SOURCE_DIR}/tools/docs ${PROJECT_SOURCE_DIR}/tools/check-includes
    COMMENT "Making the documentation"
    VERBATIM)
add_custom_target(docs ALL DEPENDS ${docs}/tavex.spdx)
install(DIRECTORY ${docs}/html DESTINATION ${CMAKE_INSTALL_DOCDIR}
    PATTERN *.map EXCLUDE PATTERN *.md5 EXCLUDE)
install(FILES ${docs}/tavex.spdx ${docs}/tavex.tag DESTINATION ${CMAKE_INSTALL_DOCDIR})
