// The library used exactly as a C client uses it: loaded by name, every call
// through a symbol, counted strings laid out by hand.
#include <gtest/gtest.h>

#include <string>

#include "api/loaded_library.h"
#include "support/test_support.h"

namespace optkw::test {
namespace {

using CreateFn = int(void **, char *, int);
using FreeFn = int(void **);
using ReadFn = int(void *, const char *);
using GetIntFn = int(void *, int, int *);
using GetMessageFn = void(void *, int, char *, int *);
using CountFn = int(void *);
using GetStrStrFn = char *(void *, const char *, char *);
using ApiVersionFn = int(int, char *, int *);

class LoadedClient : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(library.loaded()) << dlerror(); }
  LoadedLibrary library;
  TempDir dir;
};

TEST_F(LoadedClient, WholeCycleUnderBothNames) {
  const std::string definition = dir.Write("solver.def",
                                           "iters integer 1 100 0 1000 1 1 Iteration limit\n"
                                           "name string 2 \"none\" 1 1 Run name\n");
  const std::string parameters = dir.Write("solver.opt", "iters 250\nname first run\n");
  for (const std::string suffix : {"", "_"}) {
    SCOPED_TRACE("suffix '" + suffix + "'");
    void *h = nullptr;
    char message[256] = "unchanged";
    ASSERT_EQ(library.Function<CreateFn>("optcreate" + suffix)(&h, message, 255), 1);
    EXPECT_STREQ(message, "");
    EXPECT_EQ(
        library.Function<ReadFn>("optreaddefinition" + suffix)(h, Counted(definition).c_str()), 0);
    EXPECT_EQ(library.Function<ReadFn>("coptreadparameterfile" + suffix)(h, parameters.c_str()), 0);
    EXPECT_EQ(library.Function<CountFn>("optmessagecount" + suffix)(h), 0);

    int value = -1;
    EXPECT_EQ(library.Function<GetIntFn>("optgetintnr" + suffix)(h, 2, &value), 1);
    EXPECT_EQ(value, 250);
    char result[256];
    char *returned =
        library.Function<GetStrStrFn>("optgetstrstr" + suffix)(h, Counted("name").c_str(), result);
    EXPECT_EQ(returned, result);
    EXPECT_EQ(FromCounted(result), "first run");
    returned = library.Function<GetStrStrFn>("coptgetstrstr" + suffix)(h, "NAME", result);
    EXPECT_STREQ(result, "first run");

    library.Function<ReadFn>("coptaddmessage" + suffix)(h, "note");
    int type = 0;
    library.Function<GetMessageFn>("optgetmessage" + suffix)(h, 1, result, &type);
    EXPECT_EQ(FromCounted(result), "*** Error note");
    EXPECT_EQ(type, 9);

    EXPECT_EQ(library.Function<FreeFn>("optfree" + suffix)(&h), 1);
    EXPECT_EQ(h, nullptr);
    EXPECT_EQ(library.Function<FreeFn>("optfree" + suffix)(&h), 1) << "a nil handle is accepted";
  }
}

TEST_F(LoadedClient, VersionCheckNeedsNoHandle) {
  struct Case {
    int api, result, status;
    std::string text;
  };
  const Case cases[] = {
      {-5, 0, 0,
       "optkwlib: The API is too old for the used library, API version: -5, library version: 2"},
      {0, 0, 0,
       "optkwlib: The API is too old for the used library, API version: 0, library version: 2"},
      {1, 1, 2, "optkwlib: Client version is compatible to this version of the library."},
      {2, 1, 1, "optkwlib: API version and library version are the same."},
      {3, 1, 3, "optkwlib: API version is newer than this library."},
  };
  for (const Case &c : cases) {
    char counted[256];
    char plain[256];
    int status = -1;
    EXPECT_EQ(library.Function<ApiVersionFn>("optxapiversion_")(c.api, counted, &status), c.result);
    EXPECT_EQ(status, c.status);
    EXPECT_EQ(FromCounted(counted), c.text);
    EXPECT_EQ(library.Function<ApiVersionFn>("cxapiversion")(c.api, plain, &status), c.result);
    EXPECT_EQ(plain, c.text);
  }
}

TEST_F(LoadedClient, HandlesAndLoadPath) {
  void *h = nullptr;
  library.Function<void(void **)>("xcreate")(&h);
  ASSERT_NE(h, nullptr);
  char version[256];
  library.Function<void(void *, char *)>("coptversion")(h, version);
  EXPECT_EQ(std::string(version).size(), 78u);
  EXPECT_EQ(std::string(version).rfind("_Option Lib", 0), 0u);
  library.Function<void(void **)>("optxfree_")(&h);
  EXPECT_EQ(h, nullptr);
  library.Function<void(void **)>("xfree")(&h);  // the second free finds nil

  // The load path is one value for the whole process.
  library.Function<void(const char *)>("coptsetloadpath")("/opt/solver/lib");
  char path[256];
  library.Function<void(char *)>("optgetloadpath")(path);
  EXPECT_EQ(FromCounted(path), "/opt/solver/lib");
}

}  // namespace
}  // namespace optkw::test
