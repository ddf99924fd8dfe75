#include "desktop_fixture.h"

namespace orvane::simulation {
namespace {

class BooksTest : public DesktopFixture {
 protected:
  void buildFaults(const std::string& faults) {
    build(R"({"faults":)" + faults + R"(,"windows":[{"id":"w","tabs":[{"title":"Tab","selected":true,
             "page":[{"id":"a"},{"id":"b"}]}]},{"id":"v"}]})");
  }
};

TEST_F(BooksTest, Calls_AreCountedByName) {
  books.enter("Sleep");
  books.enter("Sleep");
  books.enter("SendInput");
  EXPECT_EQ(books.calls().at("Sleep"), 2);
  EXPECT_EQ(books.calls().at("SendInput"), 1);
  EXPECT_FALSE(books.calls().contains("OpenClipboard"));
}

TEST_F(BooksTest, Fault_MeetsTheNthCallAndThoseBehindIt) {
  buildFaults(R"([{"call":"SendInput","nth":2,"times":2,"result":0}])");
  std::vector<bool> failed;
  for (int turn = 0; turn < 4; ++turn) failed.push_back(books.enter("SendInput").has_value());
  EXPECT_EQ(failed, (std::vector{false, true, true, false}));
  EXPECT_EQ(books.calls().at("SendInput"), 4);
}

TEST_F(BooksTest, Fault_GivesItsResultAndLastError) {
  buildFaults(R"([{"call":"A","result":"0x80040201","lastError":5},{"call":"B","result":null},
                  {"call":"C","result":false}])");
  const auto first = books.enter("A");
  ASSERT_TRUE(first);
  EXPECT_EQ(first->number, 0x80040201);
  EXPECT_EQ(first->lastError, 5u);
  EXPECT_EQ(books.enter("B")->kind, FaultResult::Kind::null);
  EXPECT_EQ(books.enter("C")->number, 0);
}

TEST_F(BooksTest, Fault_MeetsOnlyTheElementAndWindowItNames) {
  buildFaults(R"([{"call":"Read","element":"b","result":0},{"call":"Focus","window":"v","result":0},
                  {"call":"Name","element":"Tab","result":0},{"call":"Find","window":"w","result":0}])");
  EXPECT_FALSE(books.enter("Read", nullptr, &element("w", "a")));
  EXPECT_TRUE(books.enter("Read", nullptr, &element("w", "b")));
  EXPECT_FALSE(books.enter("Focus", &window("w")));
  EXPECT_TRUE(books.enter("Focus", &window("v")));
  EXPECT_TRUE(books.enter("Name", nullptr, &element("w", "Tab")));
  EXPECT_TRUE(books.enter("Find", nullptr, &element("w", "a")));
}

TEST_F(BooksTest, HeldKinds_AllStandAtZero_WhenNothingWasTaken) {
  EXPECT_EQ(books.held().size(), 11u);
  books.hold(held_kind::bstrs, 2);
  books.hold(held_kind::bstrs, -1);
  EXPECT_EQ(books.held().at("bstrs"), 1);
  EXPECT_EQ(books.held().at("menus"), 0);
}

TEST_F(BooksTest, GivingBackMoreThanWasTaken_EndsTheRun) {
  EXPECT_EXIT(books.hold(held_kind::menus, -1), ::testing::ExitedWithCode(3), "simulation: menus: ");
}

}  // namespace
}  // namespace orvane::simulation
