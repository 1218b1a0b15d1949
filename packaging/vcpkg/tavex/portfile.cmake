# An overlay port, which takes the sources from the tree or, without need of npm, from the unpacked source
# archive that it is part of: vcpkg install tavex --overlay-ports=packaging/vcpkg
# The triplet must be a dynamic one, such as x64-linux-dynamic: a static Qt would be in the program twice.
cmake_path(SET SOURCE_PATH NORMALIZE "${CMAKE_CURRENT_LIST_DIR}/../../..")

vcpkg_cmake_configure(
    SOURCE_PATH "${SOURCE_PATH}"
    OPTIONS
        -DTAVEX_BUILD_TESTS=OFF
        "-DLRELEASE_EXECUTABLE=${CURRENT_HOST_INSTALLED_DIR}/tools/Qt6/bin/lrelease${VCPKG_HOST_EXECUTABLE_SUFFIX}"
)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME Tavex CONFIG_PATH lib/cmake/Tavex)
vcpkg_fixup_pkgconfig()

file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
file(GLOB licences "${CURRENT_PACKAGES_DIR}/share/doc/Tavex/LICENSE*")
vcpkg_install_copyright(FILE_LIST ${licences})
file(REMOVE_RECURSE
    "${CURRENT_PACKAGES_DIR}/debug/include"
    "${CURRENT_PACKAGES_DIR}/debug/share"
    "${CURRENT_PACKAGES_DIR}/share/doc"
)
