"""optkw: options of a program, declared by definition text and set by parameter text.

    import optkw
    with optkw.Options("solver.def") as opts:
        opts.read_file("solver.opt")
        for message in opts.messages:
            print(message.text)
        limit = opts["maxiter"]

The package calls liboptkw.so through ctypes. It looks for the library in the
file named by the environment variable OPTKW_LIB, else in the package folder
(where pip puts the library it built), else where `cmake --install` put it
beside the package, else on the system. library_path() tells which it loaded.

Texts travel to and from the library as UTF-8; bytes that aren't valid UTF-8
come back as surrogate escapes, so nothing the library holds is lost.
"""

from ._library import LibraryNotFoundError
from ._options import (
    DefinitionError,
    Explanation,
    Message,
    MessageType,
    OptionError,
    Options,
    OptionType,
)
from ._suggest import closest_names, did_you_mean


def library_path() -> str:
    """The name or path under which liboptkw.so was loaded (loading it if need be)."""
    from ._library import library
    return library().path


__all__ = [
    "DefinitionError",
    "Explanation",
    "LibraryNotFoundError",
    "Message",
    "MessageType",
    "OptionError",
    "OptionType",
    "Options",
    "closest_names",
    "did_you_mean",
    "library_path",
]
