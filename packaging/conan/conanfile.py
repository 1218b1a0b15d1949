"""Recipe for Conan 2: conan create packaging/conan --build=missing

Takes the sources from the tree or, without need of npm, from the unpacked source archive that it is part of.
"""

import re
from pathlib import Path

from conan import ConanFile
from conan.tools.build import check_min_cppstd, cross_building
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load, rmdir

required_conan_version = ">=2.0"


class TavexRecipe(ConanFile):
    name = "tavex"
    description = "Application framework library on Qt Core"
    license = "MIT"
    topics = ("qt", "framework")
    package_type = "shared-library"
    settings = "os", "arch", "compiler", "build_type"
    # A static Qt would be in the program twice; qttools has lrelease.
    default_options = {"qt/*:shared": True, "qt/*:qttools": True}

    @property
    def _root(self):
        return Path(self.recipe_folder).parents[1]

    def set_version(self):
        text = load(self, str(self._root / "CMakeLists.txt"))
        self.version = re.search(r"^ *VERSION ([0-9.]+)$", text, re.MULTILINE)[1]

    def export_sources(self):
        copy(self, "*", src=str(self._root), dst=self.export_sources_folder,
             excludes=("build/*", ".git/*", "packaging/*"))

    def layout(self):
        cmake_layout(self)

    def validate(self):
        check_min_cppstd(self, 20)

    def requirements(self):
        self.requires("qt/[>=6.2 <7]", transitive_headers=True)

    def build_requirements(self):
        if cross_building(self):
            self.tool_requires("qt/<host_version>")

    def generate(self):
        CMakeDeps(self).generate()
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["TAVEX_BUILD_TESTS"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        package = Path(self.package_folder)
        copy(self, "LICENSE*", src=str(package / "share" / "doc" / "Tavex"), dst=str(package / "licenses"))
        # Conan writes these itself, for the dependencies that it has chosen.
        for folder in ("share", "lib/cmake", "lib/pkgconfig"):
            rmdir(self, str(package / folder))

    def package_info(self):
        self.cpp_info.libs = ["tavex"]
        self.cpp_info.requires = ["qt::qtCore"]
        self.cpp_info.set_property("cmake_file_name", "Tavex")
        self.cpp_info.set_property("cmake_target_name", "Tavex::Tavex")
        self.cpp_info.set_property("pkg_config_name", "tavex")
