"""Builds a wheel of the package with CMake, for pip: the two hooks that it asks for.

Needs cmake, ninja, a C++ compiler and the libraries of the README's list, and nothing of Python
beyond its standard library, so that an installation without a network works.
"""

from __future__ import annotations

import base64
import hashlib
import re
import subprocess
import sys
import sysconfig
import zipfile
from pathlib import Path
from typing import Any, Optional

ROOT = Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "pip"


def _project() -> dict[str, str]:
    """The plain values of [project]: older Pythons have no reader of this format."""
    text = (ROOT / "pyproject.toml").read_text(encoding="utf-8")
    section = text.split("[project]", 1)[1].split("\n[", 1)[0]
    return dict(re.findall(r'^([a-z-]+) = "(.*)"$', section, re.MULTILINE))


def _metadata(project: dict[str, str]) -> str:
    return (
        "Metadata-Version: 2.1\n"
        f"Name: {project['name']}\n"
        f"Version: {project['version']}\n"
        f"Summary: {project['description']}\n"
        f"Requires-Python: {project['requires-python']}\n"
        "Requires-Dist: numpy\n"
    )


def _tag() -> str:
    version = f"cp{sys.version_info.major}{sys.version_info.minor}"
    platform = re.sub(r"[^A-Za-z0-9]", "_", sysconfig.get_platform())
    return f"{version}-{version}-{platform}"


def _compile() -> Path:
    """The folder of the package, engine and all."""
    configure = ["cmake", "-S", str(ROOT), "-B", str(BUILD), "-G", "Ninja"]
    for option in (
        "CMAKE_BUILD_TYPE=Release",
        "CMAKE_CXX_FLAGS_RELEASE=-O3 -DNDEBUG",
        "CANTORIX_TESTS=OFF",
        "CANTORIX_DESKTOP=OFF",
        "CANTORIX_PYTHON=ON",
        f"Python_EXECUTABLE={sys.executable}",
    ):
        configure.append("-D" + option)
    subprocess.run(configure, check=True)
    subprocess.run(["cmake", "--build", str(BUILD), "--target", "cantorix_python"], check=True)
    return BUILD / "python" / "cantorix"


def _record(name: str, content: bytes) -> str:
    digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
    return f"{name},sha256={digest},{len(content)}\n"


def build_wheel(
    wheel_directory: str,
    config_settings: Optional[dict[str, Any]] = None,
    metadata_directory: Optional[str] = None,
) -> str:
    """Builds the wheel in `wheel_directory` and returns its name."""
    project = _project()
    package = _compile()
    stem = f"{project['name']}-{project['version']}"
    files = {
        f"cantorix/{path.name}": path.read_bytes()
        for path in sorted(package.iterdir())
        if path.is_file()
    }
    info = f"{stem}.dist-info"
    files[f"{info}/METADATA"] = _metadata(project).encode()
    files[f"{info}/WHEEL"] = (
        f"Wheel-Version: 1.0\nGenerator: cantorix\nRoot-Is-Purelib: false\nTag: {_tag()}\n".encode()
    )
    record = "".join(_record(name, content) for name, content in files.items())
    files[f"{info}/RECORD"] = f"{record}{info}/RECORD,,\n".encode()
    name = f"{stem}-{_tag()}.whl"
    with zipfile.ZipFile(Path(wheel_directory) / name, "w", zipfile.ZIP_DEFLATED) as wheel:
        for path, content in files.items():
            wheel.writestr(path, content)
    return name


def build_sdist(sdist_directory: str, config_settings: Optional[dict[str, Any]] = None) -> str:
    """There is none: the sources are the repository."""
    raise NotImplementedError("install from the repository: pip install .")
