// What the boundary guard makes of a failure that reaches it: the caller gets
// a message and a neutral or error-code result, never the exception.
#include <gtest/gtest.h>

#include <cerrno>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>

#include "api/boundary.h"
#include "api/library_frame.h"

namespace optkw::test {
namespace {

class BoundaryTest : public ::testing::Test {
 protected:
  ~BoundaryTest() override {
    void *handle = db_;
    FreeHandle(handle);
  }
  std::string LastText() const {
    return std::string(db_->Messages.Text(db_->Messages.Count() - 1));
  }
  int32_t LastType() const { return db_->Messages.Type(db_->Messages.Count() - 1); }

  tvlmoptions *db_ = CreateHandle();
};

TEST_F(BoundaryTest, OutOfMemoryIsAMessageAndENOMEMWhereACodeIsGiven) {
  const auto starved = []() -> int { throw std::bad_alloc(); };
  EXPECT_EQ(api::Guarded<int>(db_, "optReadParameterFile", nullptr, starved), ENOMEM);
  EXPECT_EQ(LastText(), "Out of memory");
  EXPECT_EQ(LastType(), optMsgUserError);
  // An int that is no error code gives the plain failure value.
  EXPECT_EQ(api::Guarded<int>(db_, "optFindStr", nullptr, starved), 0);
  EXPECT_EQ(db_->Messages.Count(), 2);
  EXPECT_EQ(
      api::Guarded<double>(db_, "optGetDblNr", nullptr, []() -> double { throw std::bad_alloc(); }),
      0.0);
  // A text result comes back empty in the caller's own buffer.
  char text[8] = "stale";
  EXPECT_EQ(
      api::Guarded<char *>(db_, "coptGetStrNr", text, []() -> char * { throw std::bad_alloc(); }),
      text);
  EXPECT_STREQ(text, "");
  // Without a handle there is nowhere to say it, and nothing breaks.
  api::Guarded<void>(nullptr, "xcreate", nullptr, [] { throw std::bad_alloc(); });
}

TEST_F(BoundaryTest, SystemErrorsGiveTheirCode) {
  const auto failing = []() -> int {
    throw std::system_error(EIO, std::generic_category(), "reading");
  };
  EXPECT_EQ(api::Guarded<int>(db_, "optWriteParameterFile", nullptr, failing), EIO);
  EXPECT_EQ(LastText().rfind("Error code = 5; ", 0), 0u);
  EXPECT_EQ(LastType(), optMsgUserError);
  EXPECT_EQ(api::Guarded<int>(db_, "optReadDefinition", nullptr,
                              []() -> int { throw std::system_error(std::error_code()); }),
            EIO);
}

TEST_F(BoundaryTest, ResultsPassThroughUntouched) {
  EXPECT_EQ(api::Guarded<int>(db_, "optReadParameterFile", nullptr, [] { return 7; }), 7);
  EXPECT_TRUE(db_->Messages.empty());
}

}  // namespace
}  // namespace optkw::test
