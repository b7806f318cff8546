"""Builds liboptkw with CMake (the library alone) and carries it inside the
package, beside the Python modules that load it.

The C++ sources are those named by OPTKW_SOURCE_DIR, else the checkout this
folder sits in (pip builds a local folder in place; a tool that copies the
folder elsewhere first needs OPTKW_SOURCE_DIR). OPTKW_CMAKE_BUILD_DIR names a
CMake build folder of that checkout to build the library in instead of a fresh
one (the tests use their own build that way).
"""

import os
import re
import shutil
import subprocess
from pathlib import Path
from typing import Dict, List, Tuple

from setuptools import Distribution, setup
from setuptools.command.build_py import build_py

HERE = Path(__file__).resolve().parent
LIBRARY = "liboptkw.so.2"  # the name the package looks for: the SONAME
PROJECT = re.compile(r"project\(optkw\s+VERSION\s+([0-9.]+)")


def source_and_version() -> Tuple[Path, str]:
    """The checkout that holds the C++ sources, and the version of its CMake
    project (so that the package's never differs)."""
    given = os.environ.get("OPTKW_SOURCE_DIR")
    source = Path(given or HERE.parent).resolve()
    try:
        found = PROJECT.search((source / "CMakeLists.txt").read_text(encoding="utf-8"))
    except OSError:
        found = None
    if found and (source / "src").is_dir():
        return source, found.group(1)
    if given:
        problem = f"OPTKW_SOURCE_DIR={given} is no checkout of optkw"
    else:
        problem = (f"{HERE} does not sit in a checkout of optkw (was the folder copied "
                   "before the build?)")
    raise SystemExit(f"optkw: {problem}. The package builds liboptkw from the C++ sources: "
                     "install from the python folder of a checkout, or set OPTKW_SOURCE_DIR "
                     "to the checkout.")


SOURCE, VERSION = source_and_version()


def run(command: List[str]) -> None:
    print(" ".join(command), flush=True)
    try:
        subprocess.run(command, check=True)
    except FileNotFoundError:
        raise SystemExit(f"optkw: {command[0]} not found; the package builds liboptkw with "
                         "CMake 3.25 or later and a C++20 compiler") from None


class BuildWithLibrary(build_py):
    """build_py, then liboptkw built by CMake and copied into the package."""

    def run(self) -> None:
        super().run()
        library = self.build_library()
        target = Path(self.build_lib) / "optkw" / LIBRARY
        shutil.copy(library, target)  # the file itself, not the link

    def build_library(self) -> Path:
        given = os.environ.get("OPTKW_CMAKE_BUILD_DIR")
        build = Path(given) if given else Path(self.build_temp_folder()) / "cmake"
        if not given:
            run(["cmake", "-S", str(SOURCE), "-B", str(build), "-DCMAKE_BUILD_TYPE=Release",
                 "-DOPTKW_BUILD_TESTS=OFF", "-DOPTKW_BUILD_TOOL=OFF"])
        jobs = [] if "CMAKE_BUILD_PARALLEL_LEVEL" in os.environ else ["-j", str(os.cpu_count() or 1)]
        run(["cmake", "--build", str(build), "--target", "optkw", *jobs])
        # CMake writes where the library lands when it configures.
        recorded = build / "optkw-library-path.txt"
        if not recorded.is_file():
            raise SystemExit(f"optkw: {build} is no single-configuration CMake build of optkw")
        return Path(recorded.read_text(encoding="utf-8").strip())

    def build_temp_folder(self) -> str:
        return self.get_finalized_command("build").build_temp


def wheel_commands() -> Dict[str, type]:
    """A wheel for this platform (it holds a shared library) that any Python 3
    can use (the library is no extension module)."""
    try:
        from setuptools.command.bdist_wheel import bdist_wheel
    except ImportError:
        try:
            from wheel.bdist_wheel import bdist_wheel  # type: ignore[no-redef]
        except ImportError:
            return {}

    class PlatformWheel(bdist_wheel):
        def get_tag(self) -> Tuple[str, str, str]:
            return ("py3", "none", super().get_tag()[2])

    return {"bdist_wheel": PlatformWheel}


class WithLibrary(Distribution):
    """A distribution holding a shared library: it installs into the platform's
    site-packages, and its wheel is for this platform."""

    def has_ext_modules(self) -> bool:
        return True


setup(version=VERSION, distclass=WithLibrary,
      cmdclass={"build_py": BuildWithLibrary, **wheel_commands()})
