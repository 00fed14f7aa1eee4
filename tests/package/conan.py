"""Runs the recipe for Conan, without Conan: its functions do nothing here, but the recipe's own must fit the project."""

import pathlib
import runpy
import sys
from unittest.mock import MagicMock

project = pathlib.Path(__file__).parents[2]
for name in ("conan", "conan.tools", "conan.tools.build", "conan.tools.cmake", "conan.tools.files"):
    sys.modules[name] = MagicMock()
sys.modules["conan"].ConanFile = MagicMock
sys.modules["conan.tools.files"].load = lambda _, path: pathlib.Path(path).read_text()
toolchain = sys.modules["conan.tools.cmake"].CMakeToolchain.return_value
toolchain.cache_variables = {}

recipe = project / "packaging/conan/conanfile.py"
package = runpy.run_path(str(recipe))["QrtVistrelClasses4"]()
package.settings = package.options = MagicMock(os="Windows")
package.recipe_folder = str(recipe.parent)
package.export_sources_folder = package.package_folder = "nowhere"
for step in ("set_version", "export_sources", "config_options", "validate", "layout", "generate", "build", "package", "package_info"):
    getattr(package, step)()
text = (project / "CMakeLists.txt").read_text()
assert f" VERSION {package.version} " in text
assert toolchain.cache_variables and all(f"option({name} " in text for name in toolchain.cache_variables)
