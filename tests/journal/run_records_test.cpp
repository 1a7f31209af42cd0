#include "journal/run_records.h"

#include <gtest/gtest.h>

#include "support/memory_file.h"

namespace qublet {
namespace {

constexpr RunKind kKind{"test run", "test-runs"};

Bytes RunOf(const std::vector<std::string>& contents) {
  Bytes bytes;
  Append(bytes, RunHeader(kKind, {"time", "who"}));
  for (const std::string& content : contents) Append(bytes, AsRecord(BytesOf(content)));
  return bytes;
}

RunRecords Read(const Bytes& bytes) {
  return {kKind, std::make_unique<MemoryFile>(bytes)};
}

TEST(RunRecords, ComeBackAsTheyWereWritten) {
  const Bytes bytes = RunOf({"first", "", "third"});
  const RunRecords records = Read(bytes);
  ASSERT_EQ(records.Count(), 3u);
  EXPECT_EQ(AsText(records.At(0)), "first");
  EXPECT_TRUE(records.At(1).empty());
  EXPECT_EQ(AsText(records.At(2)), "third");
  EXPECT_EQ(records.End(), static_cast<std::int64_t>(bytes.size()));
}

TEST(RunRecords, EndWhereAKillHasCutThemOff) {
  const Bytes bytes = RunOf({"first", "second"});
  const Bytes first = RunOf({"first"});
  for (std::size_t size = first.size(); size < bytes.size(); ++size) {
    const RunRecords records = Read({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)});
    EXPECT_EQ(records.Count(), 1u);
    EXPECT_EQ(records.End(), static_cast<std::int64_t>(first.size())) << "the next record stands there";
  }
}

TEST(RunRecords, AreRefusedWhenDamaged) {
  Bytes bytes = RunOf({"first"});
  bytes[bytes.size() - 9] ^= 1;
  EXPECT_THROW(Read(bytes).At(0), Failure);
}

TEST(Taker, TakesWhatWasAppendedAndNoMore) {
  Bytes bytes;
  AppendNumber(bytes, 7, 4);
  AppendLong(bytes, 0x0102030405060708);
  AppendPiece(bytes, AsBytes("piece"));
  Taker taker(bytes);
  EXPECT_EQ(taker.Number(), 7u);
  EXPECT_EQ(taker.Long(), 0x0102030405060708u);
  EXPECT_EQ(AsText(taker.Piece()), "piece");
  EXPECT_TRUE(taker.IsEmpty());
  EXPECT_THROW(taker.Number(), Failure);
}

}  // namespace
}  // namespace qublet
