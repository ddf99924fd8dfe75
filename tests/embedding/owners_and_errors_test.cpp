#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

#include "embedding/captured_errors.h"
#include "embedding/error_stream.h"
#include "embedding/unique_resource.h"

namespace orvane::embedding_tests {
namespace {

std::vector<int>& released() {
  static std::vector<int> values;
  return values;
}

struct NumberTraits {
  using Value = int;
  static constexpr int invalid() noexcept { return -1; }
  static void release(int value) noexcept { released().push_back(value); }
};
using UniqueNumber = UniqueResource<NumberTraits>;

static_assert(!std::is_copy_constructible_v<UniqueNumber>);
static_assert(!std::is_copy_assignable_v<UniqueNumber>);
static_assert(std::is_nothrow_move_constructible_v<UniqueNumber>);
static_assert(std::is_nothrow_move_assignable_v<UniqueNumber>);
static_assert(!std::is_convertible_v<int, UniqueNumber>);
static_assert(!std::is_convertible_v<UniqueNumber, bool>);
static_assert(!std::is_convertible_v<UniqueNumber, int>);
static_assert(sizeof(UniqueNumber) == sizeof(int));

class UniqueResourceTest : public ::testing::Test {
 protected:
  void SetUp() override { released().clear(); }
};

TEST_F(UniqueResourceTest, HoldsNothing_AtFirst) {
  {
    const UniqueNumber number;
    EXPECT_FALSE(static_cast<bool>(number));
    EXPECT_EQ(number.get(), -1);
  }

  EXPECT_TRUE(released().empty());
}

TEST_F(UniqueResourceTest, GivesBackOnce_AtItsEnd) {
  {
    const UniqueNumber number(5);
    EXPECT_TRUE(static_cast<bool>(number));
    EXPECT_EQ(number.get(), 5);
  }

  EXPECT_EQ(released(), std::vector<int>{5});
}

TEST_F(UniqueResourceTest, OwnsZero_WhenThatIsNotTheInvalidValue) {
  { const UniqueNumber number(0); }

  EXPECT_EQ(released(), std::vector<int>{0});
}

TEST_F(UniqueResourceTest, EmptiesFirst_WhenFilledByACall) {
  UniqueNumber number(5);

  int* place = number.put();
  const bool isEmptyInBetween = !number;
  *place = 6;

  EXPECT_TRUE(isEmptyInBetween);
  EXPECT_EQ(number.get(), 6);
  EXPECT_EQ(released(), std::vector<int>{5});
}

TEST_F(UniqueResourceTest, GivesNothingBack_AfterHandingOver) {
  int handedOver = 0;
  {
    UniqueNumber number(5);
    handedOver = number.release();
    EXPECT_FALSE(static_cast<bool>(number));
  }

  EXPECT_EQ(handedOver, 5);
  EXPECT_TRUE(released().empty());
}

TEST_F(UniqueResourceTest, GivesTheFormerBack_WhenReset) {
  UniqueNumber number(5);

  number.reset(6);
  number.reset();
  number.reset();

  EXPECT_FALSE(static_cast<bool>(number));
  EXPECT_EQ(released(), (std::vector<int>{5, 6}));
}

TEST_F(UniqueResourceTest, MovesWhatItHolds) {
  UniqueNumber first(5);
  UniqueNumber second(std::move(first));
  UniqueNumber third(6);

  third = std::move(second);

  EXPECT_EQ(third.get(), 5);
  EXPECT_EQ(released(), std::vector<int>{6});
}

TEST_F(UniqueResourceTest, KeepsWhatItHolds_WhenMovedToItself) {
  UniqueNumber number(5);
  UniqueNumber& same = number;

  number = std::move(same);

  EXPECT_EQ(number.get(), 5);
  EXPECT_TRUE(released().empty());
}

TEST(ErrorStream, GetsEachLineWithItsEnd) {
  ::testing::internal::CaptureStderr();

  logErrorLine("first");
  logErrorLine("");
  logErrorLine("100% %s");

  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "first\n\n100% %s\n");
}

}  // namespace
}  // namespace orvane::embedding_tests
