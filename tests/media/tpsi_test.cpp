#include "media/tpsi.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

TEST(Tpsi, JoinsRecordsWithoutAnythingBetween) {
  std::string text = "before";
  EXPECT_TRUE(EncodeTpsi({TpsiRecord(0, 0, 1), TpsiRecord(0, 2, 0)}, text));
  EXPECT_EQ(text, "000001000000120000");
  EXPECT_TRUE(EncodeTpsi({}, text));
  EXPECT_EQ(text, "");
}

TEST(Tpsi, TakesTextsApartByNineCharacters) {
  Collection records = {"before"};
  EXPECT_TRUE(DecodeTpsi(records, "000001000000120000"));
  EXPECT_EQ(records, (Collection{"000001000", "000120000"}));
  EXPECT_TRUE(DecodeTpsi(records, ""));
  EXPECT_TRUE(records.empty());
}

TEST(Tpsi, LeavesTheRecordsAloneWhenTheLengthIsNoMultipleOfNine) {
  Collection records = {"before"};
  EXPECT_FALSE(DecodeTpsi(records, "00000100000012000"));
  EXPECT_EQ(records, Collection{"before"});
}

TEST(Tpsi, KeepsWhateverCharactersARecordHolds) {
  Collection records;
  EXPECT_TRUE(DecodeTpsi(records, "abcdefghi12\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9"));
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[0], "abcdefghi");
  EXPECT_EQ(TpsiTimeText(records[0]), "0:00");
  EXPECT_EQ(TpsiMilliseconds("5000 left"), 5000);
}

TEST(Tpsi, GathersTheRecordsOfAllReservedComments) {
  EXPECT_EQ(TpsiRecords({{"QUBLET_tpsidata", "000001000"},
                         {"qublet_tpsidata", "000009000"},
                         {"", "000008000"},
                         {"QUBLET_tpsidata", "17 characters ..."},
                         {"QUBLET_tpsidata", "000002000000003000"}}),
            (Collection{"000001000", "000002000", "000003000"}));
}

TEST(Tpsi, StoresTheRecordsAsOneCommentAtTheEnd) {
  std::vector<TagComment> comments = {
      {"QUBLET_tpsidata", "000001000"}, {"a", "b"}, {"QUBLET_tpsidata", "17 characters ..."}};
  StoreTpsi({"000002000", "000001000"}, comments);
  EXPECT_EQ(comments, (std::vector<TagComment>{{"a", "b"}, {"QUBLET_tpsidata", "000002000000001000"}}));
  StoreTpsi({}, comments);
  EXPECT_EQ(comments, (std::vector<TagComment>{{"a", "b"}})) << "none leave no trace";
}

TEST(Tpsi, MakesRecordsOfMilliseconds) {
  EXPECT_EQ(TpsiRecord(0, 1, 23), "000083000");
  EXPECT_EQ(TpsiRecord(59, 59, 59), "215999000");
}

TEST(Tpsi, ShowsWholeSecondsCutOff) {
  EXPECT_EQ(TpsiTimeText("000083999"), "1:23");
  EXPECT_EQ(TpsiTimeText("215999000"), "59:59:59");
  EXPECT_EQ(TpsiMilliseconds("999999999"), 999999999);
  EXPECT_EQ(TpsiMilliseconds("-00001000"), 0);
}

TEST(Tpsi, AddsARecordOnceAndNeverTheVeryStart) {
  Collection records;
  AddTpsi("000002000", records);
  AddTpsi("000001000", records);
  AddTpsi("000002000", records);
  AddTpsi("000000000", records);
  EXPECT_EQ(records, (Collection{"000002000", "000001000"})) << "in the order in which they came";
}

}  // namespace
}  // namespace qublet
