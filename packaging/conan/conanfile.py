"""Builds the library from the sources that this recipe lies in: conan create packaging/conan"""

import os
import re

from conan import ConanFile
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load, rm


class QrtVistrelClasses4(ConanFile):
    name = "qrtvistrelclasses4"
    description = "Class library for LED message signs"
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False]}
    default_options = {"shared": False}

    def _project(self):
        return os.path.join(self.recipe_folder, "..", "..")

    def set_version(self):
        text = load(self, os.path.join(self._project(), "CMakeLists.txt"))
        self.version = re.search(r"project\(\w+ VERSION ([\d.]+)", text).group(1)

    def export_sources(self):
        copy(self, "*", self._project(), self.export_sources_folder, excludes=("build/*", ".git/*"))

    def config_options(self):
        if self.settings.os == "Windows":
            del self.options.shared

    def validate(self):
        check_min_cppstd(self, 20)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        for part in ("TOOLS", "TESTS", "SERVER"):
            toolchain.cache_variables[f"QRT_BUILD_{part}"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        if self.options.get_safe("shared"):
            rm(self, "*.a", os.path.join(self.package_folder, "lib"))

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "qrtVistrelClasses4")
        self.cpp_info.set_property("cmake_target_name", "qrtVistrelClasses4::qrtVistrelClasses4")
        if self.settings.os == "Windows":
            self.cpp_info.libs = ["qrtVistrelClasses4-core"]
            self.cpp_info.system_libs = ["advapi32", "ole32", "shell32", "user32"]
        else:
            self.cpp_info.libs = ["qrtVistrelClasses4"]
            self.cpp_info.system_libs = ["dl"]
