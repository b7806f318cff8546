"""Finding and loading liboptkw.so, the C prototypes, and text conversion."""

import ctypes
import ctypes.util
import importlib
import os
from typing import Any, Dict, List, Optional, Tuple, Union

ENCODING = "utf-8"
ERRORS = "surrogateescape"
STRBUF_SIZE = 256  # OPTKW_STRBUF_SIZE: 255 bytes of text and the length byte
API_VERSION = 2  # the interface version this package is written for
LIBRARY_FILES = ("liboptkw.so.2", "liboptkw.so")  # the SONAME first

_H = ctypes.c_void_p
_I = ctypes.c_int
_D = ctypes.c_double
_S = ctypes.c_char_p  # counted string in, or a C string (optReadFromPChar and co.)
_B = ctypes.POINTER(ctypes.c_char)  # output buffer of STRBUF_SIZE bytes
_IP = ctypes.POINTER(ctypes.c_int)
_DP = ctypes.POINTER(ctypes.c_double)

# Result type and argument types of every function the package calls.
_PROTOTYPES: Dict[str, Tuple[Any, List[Any]]] = {
    "optcreate": (_I, [ctypes.POINTER(_H), _B, _I]),
    "optfree": (_I, [ctypes.POINTER(_H)]),
    "cxapiversion": (_I, [_I, _B, _IP]),
    "optreaddefinition": (_I, [_H, _S]),
    "optreadparameterfile": (_I, [_H, _S]),
    "optreadfrompchar": (None, [_H, _S]),
    "optreadfromcmdline": (None, [_H, _S]),
    "optwriteparameterfile": (_I, [_H, _S]),
    "optclearmessages": (None, [_H]),
    "optmessagecount": (_I, [_H]),
    "optgetmessage": (None, [_H, _I, _B, _IP]),
    "opterrorcount": (None, [_H, _IP, _IP]),
    "optresetall": (None, [_H]),
    "optresetnr": (_I, [_H, _I]),
    "optshowhelp": (None, [_H, _S]),
    "optcount": (_I, [_H]),
    "optfindstr": (_I, [_H, _S, _IP, _IP]),
    "optgetinfonr": (_I, [_H, _I, _IP, _IP, _IP, _IP, _IP, _IP]),
    "optgethelpnr": (_I, [_H, _I, _B, _B]),
    "optgetdefinednr": (_I, [_H, _I, _IP]),
    "optgetintnr": (_I, [_H, _I, _IP]),
    "optgetint2nr": (_I, [_H, _I, _IP]),
    "optsetintnr": (_I, [_H, _I, _I]),
    "optsetint2nr": (_I, [_H, _I, _I]),
    "optgetdblnr": (_I, [_H, _I, _DP]),
    "optgetdbl2nr": (_I, [_H, _I, _DP]),
    "optsetdblnr": (_I, [_H, _I, _D]),
    "optsetdbl2nr": (_I, [_H, _I, _D]),
    "optgetstrnr": (_I, [_H, _I, _B]),
    "optgetstr2nr": (_I, [_H, _I, _B]),
    "optsetstrnr": (_I, [_H, _I, _S]),
    "optsetstr2nr": (_I, [_H, _I, _S]),
    "optlistcountstr": (_I, [_H, _S]),
    "optreadfromliststr": (_I, [_H, _S, _I, _B]),
    "opteolonlyset": (_I, [_H, _I]),
    "optnoboundsset": (None, [_H, _I]),
    "optgetnamenr": (_I, [_H, _I, _B]),
    "optsynonymcount": (_I, [_H]),
    "optgetsynonym": (_I, [_H, _I, _B, _B]),
    "optgetenumcount": (_I, [_H, _I, _IP]),
    "optgetenumvalue": (_I, [_H, _I, _I, _IP, _B]),
}


class LibraryNotFoundError(OSError):
    """liboptkw.so could not be found or loaded; the text lists every attempt."""


class Library:
    """The loaded shared library, with its prototypes declared as attributes."""

    def __init__(self, cdll: ctypes.CDLL) -> None:
        self.cdll = cdll
        self.path: str = cdll._name
        for name, (restype, argtypes) in _PROTOTYPES.items():
            function = getattr(cdll, name)
            function.restype = restype
            function.argtypes = argtypes
            setattr(self, name, function)

    def __getattr__(self, name: str) -> Any:
        # Only reached for names not set in __init__; tells type checkers that
        # the C functions are attributes.
        raise AttributeError(name)


# (what the attempt was, the name or path handed to the loader)
Candidate = Tuple[str, str]


def _installed_library_dir(package: str) -> Optional[str]:
    """The library directory that `cmake --install` wrote beside the package,
    or None for a package that came some other way (pip, the source tree)."""
    try:
        # By name: the module exists only where cmake --install wrote it.
        installed = importlib.import_module("._installed", __package__)
    except ImportError:
        return None
    return os.path.normpath(os.path.join(package, installed.LIBRARY_DIR))


def _files_in(folder: str, where: str, tried: List[str]) -> List[Candidate]:
    """The library files in `folder` (`where` says which folder that is); a
    folder without any goes into `tried`."""
    paths = [os.path.join(folder, file) for file in LIBRARY_FILES]
    found = [(f"{where}: {path}", path) for path in paths if os.path.exists(path)]
    if not found:
        tried.append(f"  {where}: no {' or '.join(LIBRARY_FILES)} in {folder}")
    return found


def _candidates(tried: List[str]) -> List[Candidate]:
    """The places tried in order: the library bundled in the package folder
    (a pip install), the one `cmake --install` put beside the package, then
    the system's. Places without a library go into `tried`."""
    package = os.path.dirname(os.path.abspath(__file__))
    found = _files_in(package, "the package folder", tried)
    installed = _installed_library_dir(package)
    if installed is None:
        tried.append("  installed beside the package: not installed by cmake --install")
    else:
        found += _files_in(installed, "installed beside the package", tried)
    system = ctypes.util.find_library("optkw")
    if system:
        found.append((f"find_library('optkw') -> {system}", system))
    else:
        tried.append("  ctypes.util.find_library('optkw'): nothing found")
    found.append(("liboptkw.so.2 on the loader's search path", "liboptkw.so.2"))
    return found


def _check_version(library: Library) -> None:
    message = ctypes.create_string_buffer(STRBUF_SIZE)
    status = ctypes.c_int()
    ok = library.cxapiversion(API_VERSION, message, ctypes.byref(status))
    if not ok or status.value == 3:
        raise LibraryNotFoundError(
            f"{library.path} does not serve interface version {API_VERSION}: "
            + message.value.decode(ENCODING, ERRORS))


def _open() -> Library:
    variable = os.environ.get("OPTKW_LIB")
    tried: List[str] = []
    if variable:
        candidates = [(f"OPTKW_LIB={variable}", variable)]
    else:
        tried.append("  OPTKW_LIB: not set")
        candidates = _candidates(tried)
    for description, name in candidates:
        try:
            cdll = ctypes.CDLL(name)
        except OSError as fault:
            tried.append(f"  {description}: {fault}")
            continue
        try:
            library = Library(cdll)
        except AttributeError as fault:
            raise LibraryNotFoundError(f"{description} is no optkw library: {fault}") from None
        _check_version(library)
        return library
    raise LibraryNotFoundError(
        "cannot load the optkw library (liboptkw.so); tried:\n" + "\n".join(tried)
        + "\nSet OPTKW_LIB to the path of liboptkw.so.")


_loaded: Optional[Library] = None


def library() -> Library:
    """The library, loaded on first use."""
    global _loaded
    if _loaded is None:
        _loaded = _open()
    return _loaded


def encode(text: str) -> bytes:
    """A str as the library's bytes."""
    return text.encode(ENCODING, ERRORS)


def decode(data: bytes) -> str:
    """The library's bytes as a str."""
    return data.decode(ENCODING, ERRORS)


def counted(data: Union[bytes, str], what: str = "text") -> bytes:
    """Bytes (or a str) as a counted string: the length byte, then the text."""
    if isinstance(data, str):
        data = encode(data)
    if len(data) > STRBUF_SIZE - 1:
        raise ValueError(f"{what} longer than {STRBUF_SIZE - 1} bytes: {data[:40]!r}...")
    return bytes([len(data)]) + data


def c_string(text: str) -> bytes:
    """A str as a NUL-terminated C string of any length."""
    data = encode(text)
    if b"\0" in data:
        raise ValueError("text holds a NUL character")
    return data


def buffer() -> "ctypes.Array[ctypes.c_char]":
    return ctypes.create_string_buffer(STRBUF_SIZE)


def from_counted(buf: "ctypes.Array[ctypes.c_char]") -> str:
    """The text of a counted output buffer."""
    raw = buf.raw
    return decode(raw[1:1 + raw[0]])
