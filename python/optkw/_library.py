"""Finding and loading liboptkw.so, the C prototypes, and text conversion."""

import ctypes
import ctypes.util
import os

ENCODING = "utf-8"
ERRORS = "surrogateescape"
STRBUF_SIZE = 256  # OPTKW_STRBUF_SIZE: 255 bytes of text and the length byte
API_VERSION = 2  # the interface version this package is written for

_H = ctypes.c_void_p
_I = ctypes.c_int
_D = ctypes.c_double
_S = ctypes.c_char_p  # counted string in, or a C string (optReadFromPChar and co.)
_B = ctypes.POINTER(ctypes.c_char)  # output buffer of STRBUF_SIZE bytes
_IP = ctypes.POINTER(ctypes.c_int)
_DP = ctypes.POINTER(ctypes.c_double)

# Result type and argument types of every function the package calls.
_PROTOTYPES = {
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
    """The loaded shared library, with its prototypes declared."""

    def __init__(self, cdll):
        self.cdll = cdll
        self.path = cdll._name
        for name, (restype, argtypes) in _PROTOTYPES.items():
            function = getattr(cdll, name)
            function.restype = restype
            function.argtypes = argtypes
            setattr(self, name, function)


def _candidates(tried):
    """(description, name or path) pairs in the order they are tried; places
    without a library go into `tried`."""
    here = os.path.dirname(os.path.abspath(__file__))
    beside = os.path.join(os.path.dirname(here), "lib")
    found = []
    for folder in (here, beside):
        paths = [os.path.join(folder, file) for file in ("liboptkw.so", "liboptkw.so.2")]
        paths = [path for path in paths if os.path.exists(path)]
        found += [(path, path) for path in paths]
        if not paths:
            tried.append(f"  {folder}: no liboptkw.so there")
    system = ctypes.util.find_library("optkw")
    if system:
        found.append((f"find_library('optkw') -> {system}", system))
    else:
        tried.append("  ctypes.util.find_library('optkw'): nothing found")
    found.append(("liboptkw.so.2 on the loader's search path", "liboptkw.so.2"))
    return found


def _check_version(library):
    message = ctypes.create_string_buffer(STRBUF_SIZE)
    status = ctypes.c_int()
    ok = library.cxapiversion(API_VERSION, message, ctypes.byref(status))
    if not ok or status.value == 3:
        raise LibraryNotFoundError(
            f"{library.path} does not serve interface version {API_VERSION}: "
            + message.value.decode(ENCODING, ERRORS))


def _open():
    variable = os.environ.get("OPTKW_LIB")
    tried = []
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


_loaded = None


def library():
    """The library, loaded on first use."""
    global _loaded
    if _loaded is None:
        _loaded = _open()
    return _loaded


def encode(text):
    """A str as the library's bytes."""
    return text.encode(ENCODING, ERRORS)


def decode(data):
    """The library's bytes as a str."""
    return data.decode(ENCODING, ERRORS)


def counted(data, what="text"):
    """Bytes (or a str) as a counted string: the length byte, then the text."""
    if isinstance(data, str):
        data = encode(data)
    if len(data) > STRBUF_SIZE - 1:
        raise ValueError(f"{what} longer than {STRBUF_SIZE - 1} bytes: {data[:40]!r}...")
    return bytes([len(data)]) + data


def c_string(text):
    """A str as a NUL-terminated C string of any length."""
    data = encode(text)
    if b"\0" in data:
        raise ValueError("text holds a NUL character")
    return data


def buffer():
    return ctypes.create_string_buffer(STRBUF_SIZE)


def from_counted(buf):
    """The text of a counted output buffer."""
    raw = buf.raw
    return decode(raw[1:1 + raw[0]])
