/*
 * optkw.h -- the C interface of optkw, an option definition library.
 *
 * A client creates a handle, gives it a definition text that declares the
 * options it understands, lets its users set them through parameter text, and
 * reads the values back by number or by name. The library prints nothing as a
 * rule: whatever it has to say goes into a message queue that the client reads
 * with optMessageCount and optGetMessage.
 *
 *   void *h;
 *   char msg[OPTKW_STRBUF_SIZE];
 *   int errors, warnings, n;
 *   optCreate(&h, msg, sizeof msg - 1);
 *   coptReadDefinition(h, "solver.def");
 *   coptReadParameterFile(h, "solver.opt");
 *   optErrorCount(h, &errors, &warnings);
 *   for (n = 1; n <= optMessageCount(h); n++) { int type; coptGetMessage(h, n, msg, &type);
 * puts(msg); } optFree(&h);
 *
 * Strings. Every operation that passes text exists in two forms: the plain one
 * passes counted strings (byte 0 holds the length, 0 to 255, and the text
 * follows without a NUL), the form with the prefix "c" passes NUL-terminated C
 * strings. Output buffers must hold OPTKW_STRBUF_SIZE (256) bytes. A C string
 * of 255 bytes or more is not cut: it arrives as the text "PCharToStr Overflow".
 *
 * Names. The library exports every function under its lower-case name
 * (optreadparameterfile) and the same name with a trailing underscore. This
 * header also offers the mixed-case spellings (optReadParameterFile,
 * coptReadParameterFile) as inline functions; define OPTKW_NO_MIXED_CASE before
 * including it to leave them out.
 *
 * The operations of the table are documented where they are listed, in
 * optkw_table.def; this file holds the frame around them.
 */
#ifndef OPTKW_H
#define OPTKW_H

#include "optkw_constants.h"

/* The release of this header. Its major number is the interface version
 * (OPTKW_API_VERSION, in optkw_constants.h) that a client passes to
 * xapiversion, and the number in the shared object's name (liboptkw.so.2). */
#define OPTKW_VERSION_MAJOR 2
#define OPTKW_VERSION_MINOR 0
#define OPTKW_VERSION_PATCH 0
#define OPTKW_VERSION_STRING "2.0.0"

#ifdef __cplusplus
extern "C" {
#endif

typedef void *optHandle_t;

/* ------------------------------------------------------------------------ */
/* The frame: handles, version checks and the load path.                    */
/* ------------------------------------------------------------------------ */

/* Creates a handle with an empty option table. */
void xcreate(optHandle_t *h);
void optxcreate(optHandle_t *h);

/* Creates a handle. Returns 1; if the object could not be made returns 0 with
 * "Error while creating object" in msgBuf (at most msgBufLen bytes and a NUL). */
int optcreate(optHandle_t *h, char *msgBuf, int msgBufLen);

/* Frees a handle and sets it to NULL; a NULL handle is accepted. */
void xfree(optHandle_t *h);
void optxfree(optHandle_t *h);
/* As xfree; returns 1. */
int optfree(optHandle_t *h);

/* Checks that this library serves clients of interface version `api`. Returns 1
 * for versions 1 and up, with status 2 (compatible), 1 (the same) or 3 (newer
 * than the library); returns 0 with status 0 for versions 0 and below. `msg`
 * receives a sentence that says which (a counted string in xapiversion, a C
 * string in cxapiversion). Needs no handle. */
int xapiversion(int api, char *msg, int *status);
int optxapiversion(int api, char *msg, int *status);
int cxapiversion(int api, char *msg, int *status);

/* Checks that the operation `funcName` (as spelled in the table, for instance
 * "optGetIntNr") exists with `nArgs` arguments behind the handle, of the
 * signature codes in argTypes[0..nArgs] (position 0 is the result). Returns 1,
 * or 0 with the reason in `msg`. Needs no handle. */
int xcheck(const char *funcName, int nArgs, const int *argTypes, char *msg);
int optxcheck(const char *funcName, int nArgs, const int *argTypes, char *msg);
int cxcheck(const char *funcName, int nArgs, const int *argTypes, char *msg);

/* A text that the client may park in the library, shared by all handles. */
void optsetloadpath(const char *path);
void optgetloadpath(char *path);
void coptsetloadpath(const char *path);
void coptgetloadpath(char *path);

/* ------------------------------------------------------------------------ */
/* The operations of the table.                                             */
/* ------------------------------------------------------------------------ */

/* How a row of optkw_table.def becomes C: each argument kind has a C type per
 * "mode" (OPTKW_M_<mode>_<kind>), and OPTKW_EACH applies a mode to every
 * argument of a row. These macros are also used by the library itself. */
#define OPTKW_STRIP(...) __VA_ARGS__
#define OPTKW_CAT(a, b) OPTKW_CAT_I(a, b)
#define OPTKW_CAT_I(a, b) a##b
#define OPTKW_STRINGIFY(x) OPTKW_STRINGIFY_I(x)
#define OPTKW_STRINGIFY_I(x) #x
#define OPTKW_COUNT(...) OPTKW_COUNT_I(__VA_ARGS__, 8, 7, 6, 5, 4, 3, 2, 1, 0)
#define OPTKW_COUNT_I(a1, a2, a3, a4, a5, a6, a7, a8, n, ...) n
#define OPTKW_EACH(mode, args) OPTKW_EACH_I(mode, OPTKW_STRIP args)
#define OPTKW_EACH_I(mode, ...) OPTKW_CAT(OPTKW_EACH_, OPTKW_COUNT(__VA_ARGS__))(mode, __VA_ARGS__)
#define OPTKW_EACH_1(m, a) OPTKW_M_##m##_##a
#define OPTKW_EACH_2(m, a, ...) OPTKW_M_##m##_##a OPTKW_EACH_1(m, __VA_ARGS__)
#define OPTKW_EACH_3(m, a, ...) OPTKW_M_##m##_##a OPTKW_EACH_2(m, __VA_ARGS__)
#define OPTKW_EACH_4(m, a, ...) OPTKW_M_##m##_##a OPTKW_EACH_3(m, __VA_ARGS__)
#define OPTKW_EACH_5(m, a, ...) OPTKW_M_##m##_##a OPTKW_EACH_4(m, __VA_ARGS__)
#define OPTKW_EACH_6(m, a, ...) OPTKW_M_##m##_##a OPTKW_EACH_5(m, __VA_ARGS__)
#define OPTKW_EACH_7(m, a, ...) OPTKW_M_##m##_##a OPTKW_EACH_6(m, __VA_ARGS__)
#define OPTKW_EACH_8(m, a, ...) OPTKW_M_##m##_##a OPTKW_EACH_7(m, __VA_ARGS__)

/* The rows list their arguments without commas between them; each kind expands
 * to an item and a comma, so that OPTKW_EACH sees a comma-separated list whose
 * last item is empty. Every mode gives nothing for the empty item. */
#define OPTKW_INT(x) optkw_int(x),
#define OPTKW_INT_OUT(x) optkw_int_out(x),
#define OPTKW_DBL(x) optkw_dbl(x),
#define OPTKW_DBL_OUT(x) optkw_dbl_out(x),
#define OPTKW_PCHAR(x) optkw_pchar(x),
#define OPTKW_STR(x) optkw_str(x),
#define OPTKW_STR_OUT(x) optkw_str_out(x),

/* Mode "param": the C parameter. An empty item (a row without arguments, or the
 * item behind the last comma) gives nothing. */
#define OPTKW_M_param_
#define OPTKW_M_param_optkw_int(x) , int x
#define OPTKW_M_param_optkw_int_out(x) , int *x
#define OPTKW_M_param_optkw_dbl(x) , double x
#define OPTKW_M_param_optkw_dbl_out(x) , double *x
#define OPTKW_M_param_optkw_pchar(x) , const char *x
#define OPTKW_M_param_optkw_str(x) , const char *x
#define OPTKW_M_param_optkw_str_out(x) , char *x

/* Mode "name": the argument name, for forwarding calls. */
#define OPTKW_M_name_
#define OPTKW_M_name_optkw_int(x) , x
#define OPTKW_M_name_optkw_int_out(x) , x
#define OPTKW_M_name_optkw_dbl(x) , x
#define OPTKW_M_name_optkw_dbl_out(x) , x
#define OPTKW_M_name_optkw_pchar(x) , x
#define OPTKW_M_name_optkw_str(x) , x
#define OPTKW_M_name_optkw_str_out(x) , x

/* Results: C type, the further parameter of a string result, and the return. */
#define OPTKW_RTYPE_OPTKW_VOID void
#define OPTKW_RTYPE_OPTKW_INT int
#define OPTKW_RTYPE_OPTKW_DOUBLE double
#define OPTKW_RTYPE_OPTKW_BOOL int
#define OPTKW_RTYPE_OPTKW_SHORTSTR char *
#define OPTKW_RPARAM_OPTKW_VOID
#define OPTKW_RPARAM_OPTKW_INT
#define OPTKW_RPARAM_OPTKW_DOUBLE
#define OPTKW_RPARAM_OPTKW_BOOL
#define OPTKW_RPARAM_OPTKW_SHORTSTR , char *result
#define OPTKW_RNAME_OPTKW_VOID
#define OPTKW_RNAME_OPTKW_INT
#define OPTKW_RNAME_OPTKW_DOUBLE
#define OPTKW_RNAME_OPTKW_BOOL
#define OPTKW_RNAME_OPTKW_SHORTSTR , result
#define OPTKW_RETURN_OPTKW_VOID
#define OPTKW_RETURN_OPTKW_INT return
#define OPTKW_RETURN_OPTKW_DOUBLE return
#define OPTKW_RETURN_OPTKW_BOOL return
#define OPTKW_RETURN_OPTKW_SHORTSTR return

/* The parameter list of a row: the handle, its arguments, a result buffer. */
#define OPTKW_PARAMS(R, ARGS) (optHandle_t h OPTKW_EACH(param, ARGS) OPTKW_RPARAM_##R)

/* Declarations: both export names, and the C-string form where there is one. */
#define OPTKW_DECLARE(symbol, R, ARGS)          \
  OPTKW_RTYPE_##R symbol OPTKW_PARAMS(R, ARGS); \
  OPTKW_RTYPE_##R OPTKW_CAT(symbol, _) OPTKW_PARAMS(R, ARGS);
#define OPTKW_DECLARE_CFORM_OPTKW_CFORM(lower, R, ARGS) OPTKW_DECLARE(OPTKW_CAT(c, lower), R, ARGS)
#define OPTKW_DECLARE_CFORM_OPTKW_NO_CFORM(lower, R, ARGS)

#define OPTKW_ROW(Name, lower, R, CFORM, ARGS) \
  OPTKW_DECLARE(lower, R, ARGS)                \
  OPTKW_DECLARE_CFORM_##CFORM(lower, R, ARGS)
#include "optkw_table.def"
#undef OPTKW_ROW

/* The mixed-case spellings, as inline functions over the exported names. */
#ifndef OPTKW_NO_MIXED_CASE
#if defined(__cplusplus)
#define OPTKW_INLINE inline
#else
#define OPTKW_INLINE static inline
#endif
#define OPTKW_FORWARD(alias, symbol, R, ARGS)                          \
  OPTKW_INLINE OPTKW_RTYPE_##R alias OPTKW_PARAMS(R, ARGS) {           \
    OPTKW_RETURN_##R symbol(h OPTKW_EACH(name, ARGS) OPTKW_RNAME_##R); \
  }
#define OPTKW_FORWARD_CFORM_OPTKW_CFORM(Name, lower, R, ARGS) \
  OPTKW_FORWARD(OPTKW_CAT(c, Name), OPTKW_CAT(c, lower), R, ARGS)
#define OPTKW_FORWARD_CFORM_OPTKW_NO_CFORM(Name, lower, R, ARGS)
#define OPTKW_ROW(Name, lower, R, CFORM, ARGS) \
  OPTKW_FORWARD(Name, lower, R, ARGS)          \
  OPTKW_FORWARD_CFORM_##CFORM(Name, lower, R, ARGS)
#include "optkw_table.def"
#undef OPTKW_ROW

OPTKW_INLINE int optCreate(optHandle_t *h, char *msgBuf, int msgBufLen) {
  return optcreate(h, msgBuf, msgBufLen);
}
OPTKW_INLINE int optFree(optHandle_t *h) {
  return optfree(h);
}
OPTKW_INLINE void optSetLoadPath(const char *path) {
  optsetloadpath(path);
}
OPTKW_INLINE void optGetLoadPath(char *path) {
  optgetloadpath(path);
}
OPTKW_INLINE void coptSetLoadPath(const char *path) {
  coptsetloadpath(path);
}
OPTKW_INLINE void coptGetLoadPath(char *path) {
  coptgetloadpath(path);
}
#endif /* OPTKW_NO_MIXED_CASE */

#ifdef __cplusplus
}
#endif

#endif /* OPTKW_H */
