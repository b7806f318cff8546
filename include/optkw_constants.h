/*
 * optkw_constants.h -- the numeric vocabulary of optkw.
 *
 * Each family is a list, so that the enumerations below and the names that
 * optGetConstName gives back come from one place.
 */
#ifndef OPTKW_CONSTANTS_H
#define OPTKW_CONSTANTS_H

/* Data type of an option, as optGetInfoNr reports it (optGetConstName group 1). */
#define OPTKW_DATA_TYPES(X) \
  X(optDataNone, 0)         \
  X(optDataInteger, 1)      \
  X(optDataDouble, 2)       \
  X(optDataString, 3)       \
  X(optDataStrList, 4)

/* Option type, the keyword of its definition line (group 2). */
#define OPTKW_OPTION_TYPES(X) \
  X(optTypeInteger, 0)        \
  X(optTypeDouble, 1)         \
  X(optTypeString, 2)         \
  X(optTypeBoolean, 3)        \
  X(optTypeEnumStr, 4)        \
  X(optTypeEnumInt, 5)        \
  X(optTypeMultiList, 6)      \
  X(optTypeStrList, 7)        \
  X(optTypeMacro, 8)          \
  X(optTypeImmediate, 9)

/* Subtype: how many values an option takes ("NV", "OPT", "TWO" modifiers) (group 3). */
#define OPTKW_SUBTYPES(X) \
  X(optsubRequired, 0)    \
  X(optsubNoValue, 1)     \
  X(optsubOptional, 2)    \
  X(optsub2Values, 3)

/* Message type, as optGetMessage reports it (group 4; optMsgUserError has no name there). */
#define OPTKW_MESSAGE_TYPES(X) \
  X(optMsgInputEcho, 0)        \
  X(optMsgHelp, 1)             \
  X(optMsgDefineError, 2)      \
  X(optMsgValueError, 3)       \
  X(optMsgValueWarning, 4)     \
  X(optMsgDeprecated, 5)       \
  X(optMsgFileEnter, 6)        \
  X(optMsgFileLeave, 7)        \
  X(optMsgTooManyMsgs, 8)      \
  X(optMsgUserError, 9)

/* Kind of a variable-equation map (group 5). */
#define OPTKW_MAP_KINDS(X) \
  X(optmapIndicator, 0)    \
  X(optmapDefinedvar, 1)

#define OPTKW_ENUMERATOR(name, value) name = value,
enum optDataType { OPTKW_DATA_TYPES(OPTKW_ENUMERATOR) };
enum optOptionType { OPTKW_OPTION_TYPES(OPTKW_ENUMERATOR) };
enum optSubType { OPTKW_SUBTYPES(OPTKW_ENUMERATOR) };
enum optMessageType { OPTKW_MESSAGE_TYPES(OPTKW_ENUMERATOR) };
enum optMapKind { OPTKW_MAP_KINDS(OPTKW_ENUMERATOR) };
#undef OPTKW_ENUMERATOR

/* Interface version of this library; clients built for versions 1 and up work with it. */
#define OPTKW_API_VERSION 2

/* Size of a caller's buffer for a string result: 255 bytes of text and one more byte. */
#define OPTKW_STRBUF_SIZE 256

#endif /* OPTKW_CONSTANTS_H */
