"""Options: one handle of the library, with its definition, values and messages."""

import contextlib
import ctypes
import enum
import os
import tempfile
from typing import (Any, Callable, Dict, Iterable, Iterator, List, NamedTuple, Optional, Tuple,
                    Union)

from . import _library as _lib
from ._library import buffer, c_string, counted, from_counted
from ._suggest import closest_names

# An option named, or numbered from 1 as the library counts them.
OptionKey = Union[str, int]
# A file name, as open() takes it.
PathLike = Union[str, "os.PathLike[str]"]


class MessageType(enum.IntEnum):
    """The type of a message in the queue (optMsg... in optkw_constants.h)."""

    INPUT_ECHO = 0
    HELP = 1
    DEFINE_ERROR = 2
    VALUE_ERROR = 3
    VALUE_WARNING = 4
    DEPRECATED = 5
    FILE_ENTER = 6
    FILE_LEAVE = 7
    TOO_MANY_MESSAGES = 8
    USER_ERROR = 9

    def __str__(self) -> str:
        """The name as the C header spells it, e.g. optMsgValueError."""
        return _MESSAGE_TYPE_NAMES[self.value]


class OptionType(enum.IntEnum):
    """The type of an option, as its definition line names it."""

    INTEGER = 0
    DOUBLE = 1
    STRING = 2
    BOOLEAN = 3
    ENUMSTR = 4
    ENUMINT = 5
    MULTILIST = 6
    STRLIST = 7
    MACRO = 8
    IMMEDIATE = 9

    def __str__(self) -> str:
        """The keyword of the definition statement, e.g. enumstr."""
        return self.name.lower()


_MESSAGE_TYPE_NAMES = (
    "optMsgInputEcho", "optMsgHelp", "optMsgDefineError", "optMsgValueError",
    "optMsgValueWarning", "optMsgDeprecated", "optMsgFileEnter", "optMsgFileLeave",
    "optMsgTooManyMsgs", "optMsgUserError")


class Message(NamedTuple):
    """One message of the queue: its text as the library words it, and its type."""

    text: str
    type: MessageType


class Explanation(NamedTuple):
    """Where the value of an option comes from."""

    name: str
    value: Any          # as opts[name] gives it
    default: Any        # the value with nothing set
    source: Optional[str]  # what set it last: a file name, "string", "command line",
    #                        "client" (a setter of this object), or None: never set


class OptionError(Exception):
    """The library refused something; `messages` holds what it said about it."""

    def __init__(self, summary: str, messages: Iterable[Message] = ()) -> None:
        self.messages = list(messages)
        super().__init__(summary + "".join("\n  " + m.text for m in self.messages))


class DefinitionError(OptionError):
    """The definition text holds errors."""


_INT_TYPES = {OptionType.INTEGER, OptionType.BOOLEAN, OptionType.ENUMINT}
_STR_TYPES = {OptionType.STRING, OptionType.ENUMSTR}
_VALUE_TYPES = _INT_TYPES | _STR_TYPES | {OptionType.DOUBLE, OptionType.STRLIST}
_TWO_VALUES = 3  # optsub2Values
_INT32 = range(-2**31, 2**31)


def _os_error(code: int, messages: Iterable[Message], path: PathLike) -> OSError:
    return OSError(code, "; ".join(m.text for m in messages), os.fspath(path))


class Options:
    """The options of a program, declared by a definition file.

    Use ``Options.from_string(text)`` for a definition held in a string.
    """

    def __init__(self, definition_file: PathLike) -> None:
        with open(definition_file, "rb") as file:
            definition = file.read()
        self._start(definition_file, repr(os.fspath(definition_file)), definition)

    @classmethod
    def from_string(cls, text: str) -> "Options":
        """Options declared by definition text held in a string."""
        return cls._from_bytes(_lib.encode(text), "the definition text")

    @classmethod
    def _from_bytes(cls, definition: bytes, source: str) -> "Options":
        fd, path = tempfile.mkstemp(prefix="optkw-", suffix=".def")
        try:
            with os.fdopen(fd, "wb") as file:
                file.write(definition)
            options = cls.__new__(cls)
            options._start(path, source, definition)
            return options
        finally:
            os.unlink(path)

    def _start(self, path: PathLike, source: str, definition: bytes) -> None:
        """Creates the handle and reads the definitions from the file `path`."""
        self._handle: Optional[ctypes.c_void_p] = None
        self._definition = definition
        self._defaults_handle: Optional["Options"] = None
        self._provenance: Dict[int, str] = {}
        self._lib = _lib.library()
        handle = ctypes.c_void_p()
        text = buffer()
        if not self._lib.optcreate(ctypes.byref(handle), text, _lib.STRBUF_SIZE - 1):
            raise MemoryError(_lib.decode(text.value))
        self._handle = handle
        try:
            code = self._lib.optreaddefinition(self._h, self._path(path))
            if code > 0:
                raise _os_error(code, self.messages, path)
            if self.errors:
                raise DefinitionError(f"errors in {source}", self.messages)
        except BaseException:
            self.close()
            raise

    # ---- the handle

    @property
    def _h(self) -> ctypes.c_void_p:
        if self._handle is None:
            raise ValueError("operation on closed Options")
        return self._handle

    def close(self) -> None:
        """Frees the handle; further use raises ValueError. Closing twice is harmless."""
        defaults = getattr(self, "_defaults_handle", None)
        if defaults is not None:
            defaults.close()
            self._defaults_handle = None
        if self._handle is not None:
            self._lib.optfree(ctypes.byref(self._handle))
            self._handle = None

    def __enter__(self) -> "Options":
        return self

    def __exit__(self, *exc: object) -> None:
        self.close()

    def __del__(self) -> None:
        if getattr(self, "_handle", None) is not None:
            self.close()

    def __repr__(self) -> str:
        if self._handle is None:
            return "<optkw.Options (closed)>"
        return f"<optkw.Options: {len(self)} options, {self.errors} errors>"

    # ---- messages

    def _message_count(self) -> int:
        return self._lib.optmessagecount(self._h)

    def _messages_from(self, first: int) -> List[Message]:
        text, kind = buffer(), ctypes.c_int()
        result: List[Message] = []
        for nr in range(first, self._message_count() + 1):
            self._lib.optgetmessage(self._h, nr, text, ctypes.byref(kind))
            result.append(Message(from_counted(text), MessageType(kind.value)))
        return result

    @property
    def messages(self) -> List[Message]:
        """Every message in the queue, oldest first, as Message(text, type)."""
        return self._messages_from(1)

    def _counts(self) -> Tuple[int, int]:
        errors, warnings = ctypes.c_int(), ctypes.c_int()
        self._lib.opterrorcount(self._h, ctypes.byref(errors), ctypes.byref(warnings))
        return errors.value, warnings.value

    @property
    def errors(self) -> int:
        """Number of errors in the message queue."""
        return self._counts()[0]

    @property
    def warnings(self) -> int:
        """Number of warnings (deprecations included) in the message queue."""
        return self._counts()[1]

    def clear_messages(self) -> None:
        self._lib.optclearmessages(self._h)

    # ---- parameter text

    @staticmethod
    def _path(path: PathLike) -> bytes:
        data = os.fsencode(path)
        if not data:
            raise ValueError("empty file name")
        return counted(data, "file name")

    def read_file(self, path: PathLike) -> List[Message]:
        """Reads a parameter file; returns the messages the read added.

        Raises OSError (FileNotFoundError, ...) when the file can't be opened.
        """
        first = self._message_count() + 1
        with self._tracking(os.fspath(path)):
            code = self._lib.optreadparameterfile(self._h, self._path(path))
        added = self._messages_from(first)
        if code:
            raise _os_error(code, added, path)
        return added

    def read_string(self, text: str) -> List[Message]:
        """Reads parameter text from a string; returns the messages the read added.

        Each line is read as a string source of its own; empty lines and lines
        with "*" in column 1 are skipped, as in a file.
        """
        lines = [c_string(line.removesuffix("\r")) for line in text.split("\n")]
        first = self._message_count() + 1
        with self._tracking("string"):
            for line in lines:
                if line.strip() and not line.startswith(b"*"):
                    self._lib.optreadfrompchar(self._h, line)
        return self._messages_from(first)

    def read_cmdline(self, args: Union[str, Iterable[str]]) -> List[Message]:
        """Reads a command line (a string, or a list such as sys.argv[1:]).

        Each value is one token here, whatever eol_only says; returns the
        messages the read added.
        """
        data = c_string(args if isinstance(args, str) else " ".join(args))
        first = self._message_count() + 1
        former = self._lib.opteolonlyset(self._h, 0)
        try:
            with self._tracking("command line"):
                self._lib.optreadfromcmdline(self._h, data)
        finally:
            self._lib.opteolonlyset(self._h, former)
        return self._messages_from(first)

    @property
    def eol_only(self) -> bool:
        """True (the default): in parameter text a value runs to the end of its line."""
        former = self._lib.opteolonlyset(self._h, 1)
        self._lib.opteolonlyset(self._h, former)
        return bool(former)

    @eol_only.setter
    def eol_only(self, flag: bool) -> None:
        self._lib.opteolonlyset(self._h, 1 if flag else 0)

    def set_no_bounds(self, flag: bool = True) -> None:
        """Numbers out of range are brought in range with warnings instead of errors."""
        self._lib.optnoboundsset(self._h, 1 if flag else 0)

    def write(self, path: Optional[PathLike] = None) -> Optional[str]:
        """Writes what is set as parameter text: to `path`, or returned as a str."""
        if path is not None:
            self._write(path)
            return None
        fd, temp = tempfile.mkstemp(prefix="optkw-", suffix=".opt")
        os.close(fd)
        try:
            self._write(temp)
            with open(temp, encoding=_lib.ENCODING, errors=_lib.ERRORS, newline="") as file:
                return file.read()
        finally:
            os.unlink(temp)

    def _write(self, path: PathLike) -> None:
        first = self._message_count() + 1
        code = self._lib.optwriteparameterfile(self._h, self._path(path))
        if code:
            raise _os_error(code, self._messages_from(first), path)

    def help(self, request: Union[str, int] = "") -> List[str]:
        """Help lines: for an option name, or a listing mode (1 by group, 2 alphabetical).

        The lines also stay in the message queue.
        """
        first = self._message_count() + 1
        self._lib.optshowhelp(self._h, counted(str(request), "help request"))
        return [m.text for m in self._messages_from(first) if m.type == MessageType.HELP]

    def reset(self) -> None:
        """Unsets every option and empties the message queue."""
        self._lib.optresetall(self._h)
        self._provenance.clear()

    # ---- options by name

    def _find(self, name: object) -> int:
        if isinstance(name, int) and not isinstance(name, bool):
            if not 1 <= name <= self._lib.optcount(self._h):
                raise KeyError(name)
            return name
        if not isinstance(name, str):
            raise TypeError(f"options are named by str or numbered by int, "
                            f"not {type(name).__name__}")
        data = _lib.encode(name)
        nr, ref = ctypes.c_int(), ctypes.c_int()
        if len(data) > _lib.STRBUF_SIZE - 1 or not self._lib.optfindstr(
                self._h, counted(data), ctypes.byref(nr), ctypes.byref(ref)):
            raise KeyError(name)
        return nr.value

    def _info(self, nr: int) -> Tuple[OptionType, int]:
        words = [ctypes.c_int() for _ in range(6)]
        self._lib.optgetinfonr(self._h, nr, *(ctypes.byref(w) for w in words))
        return OptionType(words[4].value), words[5].value

    def _key(self, nr: int) -> str:
        name, text = buffer(), buffer()
        self._lib.optgethelpnr(self._h, nr, name, text)
        return from_counted(name)

    def option_type(self, name: OptionKey) -> OptionType:
        """The OptionType of an option (or synonym)."""
        return self._info(self._find(name))[0]

    def names(self) -> List[str]:
        """Names of the options that hold a value, in the library's order.

        Multilists, macros and immediate options (the built-in "Help" among
        them) act when they are set and hold no value; they aren't listed.
        """
        count = self._lib.optcount(self._h)
        return [self._key(nr) for nr in range(1, count + 1) if self._info(nr)[0] in _VALUE_TYPES]

    def __iter__(self) -> Iterator[str]:
        return iter(self.names())

    def __len__(self) -> int:
        return len(self.names())

    def __contains__(self, name: object) -> bool:
        try:
            self._find(name)
        except (KeyError, TypeError):
            return False
        return True

    def items(self) -> List[Tuple[str, Any]]:
        return [(name, self[name]) for name in self.names()]

    def is_set(self, name: OptionKey) -> bool:
        """True when a value of the option was set (either of a two-valued option)."""
        defined = ctypes.c_int()
        self._lib.optgetdefinednr(self._h, self._find(name), ctypes.byref(defined))
        return defined.value != 0

    def __getitem__(self, name: OptionKey) -> Any:
        nr = self._find(name)
        kind, subtype = self._info(nr)
        if kind == OptionType.STRLIST:
            return self._entries(nr)
        if kind not in _VALUE_TYPES:
            raise TypeError(f"option {name!r} is a {kind.name.lower()} and holds no value")
        first = self._get(nr, kind, False)
        return (first, self._get(nr, kind, True)) if subtype == _TWO_VALUES else first

    def _get(self, nr: int, kind: OptionType, second: bool) -> Union[int, float, str]:
        lib = self._lib
        if kind in _INT_TYPES:
            value = ctypes.c_int()
            (lib.optgetint2nr if second else lib.optgetintnr)(self._h, nr, ctypes.byref(value))
            return value.value
        if kind == OptionType.DOUBLE:
            value = ctypes.c_double()
            (lib.optgetdbl2nr if second else lib.optgetdblnr)(self._h, nr, ctypes.byref(value))
            return value.value
        text = buffer()
        (lib.optgetstr2nr if second else lib.optgetstrnr)(self._h, nr, text)
        return from_counted(text)

    def _entries(self, nr: int) -> List[str]:
        key = counted(self._key(nr))
        text = buffer()
        entries: List[str] = []
        for index in range(1, self._lib.optlistcountstr(self._h, key) + 1):
            self._lib.optreadfromliststr(self._h, key, index, text)
            entries.append(from_counted(text))
        return entries

    def __setitem__(self, name: OptionKey, value: Any) -> None:
        """Sets an option. A str is read as parameter text would read it; an int
        sets an integer, boolean or enumint option, an int or float a double
        option. A pair sets both values of a two-valued option (None keeps
        one), a list appends each entry to a string list.
        """
        nr = self._find(name)
        kind, subtype = self._info(nr)
        if kind == OptionType.IMMEDIATE:
            raise TypeError(f"option {name!r} acts only in parameter text; use read_string")
        if isinstance(value, (tuple, list)) and kind == OptionType.STRLIST:
            steps = [self._setter(name, kind, v, False) for v in value]
        elif isinstance(value, (tuple, list)) and subtype == _TWO_VALUES:
            if len(value) != 2:
                raise ValueError(f"option {name!r} takes two values, got {len(value)}")
            steps = [self._setter(name, kind, v, second)
                     for v, second in zip(value, (False, True)) if v is not None]
        else:
            steps = [self._setter(name, kind, value, False)]
        first = self._message_count() + 1
        with self._tracking("client"):
            results = [setter(self._h, nr, argument) for setter, argument in steps]
        if not all(results):
            raise OptionError(f"option {name!r} refused {value!r}", self._messages_from(first))

    def _setter(self, name: OptionKey, kind: OptionType, value: Any,
                second: bool) -> Tuple[Callable[..., int], Any]:
        """The library function that assigns `value` and its argument."""
        lib = self._lib
        if isinstance(value, int) and kind in _INT_TYPES and value in _INT32:
            return (lib.optsetint2nr if second else lib.optsetintnr), value
        if isinstance(value, int) and kind in _INT_TYPES:
            value = str(value)  # out of 32 bits: the library words the refusal
        elif isinstance(value, (int, float)) and kind == OptionType.DOUBLE:
            return (lib.optsetdbl2nr if second else lib.optsetdblnr), float(value)
        if not isinstance(value, str):
            raise TypeError(f"option {name!r} ({kind.name.lower()}) can't take a "
                            f"{type(value).__name__}")
        return (lib.optsetstr2nr if second else lib.optsetstrnr), counted(value, "value")

    def __delitem__(self, name: OptionKey) -> None:
        """Unsets an option: it goes back to its default."""
        nr = self._find(name)
        self._lib.optresetnr(self._h, nr)
        self._provenance.pop(nr, None)

    # ---- by number, suggestions, what differs from the defaults and why

    def number(self, name: str) -> int:
        """The number of an option (or of the option a synonym stands for), from 1."""
        return self._find(name)

    def name_of(self, nr: int) -> str:
        """The name of option number `nr` as the definition spells it."""
        return self._key(self._find(nr))

    def suggest(self, name: str) -> List[str]:
        """Names of options and synonyms close to `name`, the nearest first (at most 3)."""
        text, target = buffer(), buffer()
        names: List[str] = []
        for nr in range(1, self._lib.optcount(self._h) + 1):
            self._lib.optgetnamenr(self._h, nr, text)
            if not from_counted(text).startswith("."):
                names.append(from_counted(text))
        for pos in range(1, self._lib.optsynonymcount(self._h) + 1):
            self._lib.optgetsynonym(self._h, pos, text, target)
            names.append(from_counted(text))
        return closest_names(name, names)

    def suggest_value(self, name: OptionKey, text: str) -> List[str]:
        """Values of an enumerated option close to `text`, the nearest first (at most 3)."""
        nr = self._find(name)
        count, number, value = ctypes.c_int(), ctypes.c_int(), buffer()
        self._lib.optgetenumcount(self._h, nr, ctypes.byref(count))
        values: List[str] = []
        for k in range(1, count.value + 1):
            self._lib.optgetenumvalue(self._h, nr, k, ctypes.byref(number), value)
            values.append(from_counted(value))
        return closest_names(text, values)

    def _defaults(self) -> "Options":
        """A handle with the same definition and nothing set."""
        if self._defaults_handle is None:
            self._defaults_handle = Options._from_bytes(self._definition, "the definition")
        return self._defaults_handle

    def _default_of(self, nr: int) -> Any:
        defaults = self._defaults()
        if nr > defaults._lib.optcount(defaults._h):
            return []  # a list made by a "--" key of parameter text
        return defaults[nr]

    def changed(self) -> List[str]:
        """Names of the options whose value differs from their default (a string list:
        that holds entries), in the order of the definition."""
        count = self._lib.optcount(self._h)
        return [self._key(nr) for nr in range(1, count + 1)
                if self._info(nr)[0] in _VALUE_TYPES and self[nr] != self._default_of(nr)]

    def explain(self, name: OptionKey) -> Explanation:
        """The value of an option, its default, and what set it last."""
        nr = self._find(name)
        return Explanation(self._key(nr), self[nr], self._default_of(nr),
                           self._provenance.get(nr))

    def _state(self) -> List[Tuple[Any, ...]]:
        """What tells, per option, whether a source set it: the bits of Defined and
        DefinedR, the value texts, the entries of a list."""
        lib, h = self._lib, self._h
        words = [ctypes.c_int() for _ in range(6)]
        first, second = buffer(), buffer()
        state: List[Tuple[Any, ...]] = []
        for nr in range(1, lib.optcount(h) + 1):
            lib.optgetinfonr(h, nr, *(ctypes.byref(w) for w in words))
            lib.optgetstrnr(h, nr, first)
            lib.optgetstr2nr(h, nr, second)
            entries = self._entries(nr) if words[4].value == OptionType.STRLIST else None
            state.append((words[0].value, words[1].value, from_counted(first),
                          from_counted(second), entries))
        return state

    @contextlib.contextmanager
    def _tracking(self, source: str) -> Iterator[None]:
        """Marks every option that the block sets as set by `source`."""
        before = self._state()
        try:
            yield
        finally:
            for nr, now in enumerate(self._state(), 1):
                if nr > len(before) or now != before[nr - 1]:
                    self._provenance[nr] = source
