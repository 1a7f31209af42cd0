#include "media/mpeg_stream.h"

#include <gtest/gtest.h>

#include "support/mpeg_frames.h"

namespace qublet {
namespace {

StreamFacts FactsOf(const Bytes& content) {
  MemoryFile file(content);
  return ReadStreamInfo(file);
}

void ExpectNoFrame(const Bytes& content) {
  MemoryFile file(content);
  EXPECT_THROW(ReadStreamInfo(file), Failure);
}

constexpr std::size_t kXing = 36;

// The first frame with what an encoder writes into it: letters, flags and the counts that the flags name.
Bytes CountFrame(const char* letters, const Bytes& flags_and_counts, std::size_t offset = kXing,
                 const Bytes& head = kHead128, std::size_t length = kLength128) {
  return Overwritten(Frame(head, length), offset, Joined({BytesOf(letters), flags_and_counts}));
}

Bytes Counts(std::uint32_t frames, std::uint32_t bytes) {
  return Joined({BigEndian(3), BigEndian(frames), BigEndian(bytes)});
}

Bytes Vbri(std::uint32_t frames, std::uint32_t bytes) {
  return Overwritten(Frame(), 36, Joined({BytesOf("VBRI"), Bytes(6), BigEndian(bytes), BigEndian(frames)}));
}

TEST(ReadStreamInfo, GivesAllFactsOfAConstantRate) {
  const StreamFacts facts = FactsOf(Frames(100));
  EXPECT_DOUBLE_EQ(facts.StreamLength, 100 * 417 * 8 / 128000.0);
  EXPECT_EQ(facts.StreamLayer, "III");
  EXPECT_EQ(facts.StreamVersion, "1.0");
  EXPECT_EQ(facts.StreamBitrate, "128");
  EXPECT_EQ(facts.StreamSamplerate, 44100);
  EXPECT_FALSE(facts.StreamCrc);
  EXPECT_FALSE(facts.StreamCopyrighted);
  EXPECT_TRUE(facts.StreamOriginal);
  EXPECT_EQ(facts.StreamEmphasis, "None");
  EXPECT_EQ(facts.StreamMode, "Joint Stereo");
}

TEST(ReadStreamInfo, NamesVersionsAndLayers) {
  struct Row {
    Bytes head;
    std::size_t length;
    const char* version;
    const char* layer;
  };
  const Row rows[] = {
      {{0xFF, 0xFF, 0x48, 0x04}, 192, "1.0", "I"},   {{0xFF, 0xFD, 0xA0, 0x04}, 626, "1.0", "II"},
      {{0xFF, 0xF5, 0x90, 0x04}, 522, "2.0", "II"},  {{0xFF, 0xF3, 0x80, 0x64}, 208, "2.0", "III"},
      {{0xFF, 0xE3, 0x28, 0x64}, 144, "2.5", "III"}, {{0xFF, 0xE5, 0xE8, 0x04}, 2880, "2.5", "II"},
  };
  for (const Row& row : rows) {
    const StreamFacts facts = FactsOf(Frames(3, row.head, row.length));
    EXPECT_EQ(facts.StreamVersion, row.version);
    EXPECT_EQ(facts.StreamLayer, row.layer);
  }
}

TEST(ReadStreamInfo, NamesModesAndEmphases) {
  const auto with_last_byte = [](std::uint8_t byte) { return FactsOf(Frames(3, {0xFF, 0xFB, 0x90, byte})); };
  EXPECT_EQ(with_last_byte(0x00).StreamMode, "Stereo");
  EXPECT_EQ(with_last_byte(0x40).StreamMode, "Joint Stereo");
  EXPECT_EQ(with_last_byte(0x80).StreamMode, "Dual Channel");
  EXPECT_EQ(with_last_byte(0xC0).StreamMode, "Mono");
  EXPECT_EQ(with_last_byte(0x00).StreamEmphasis, "None");
  EXPECT_EQ(with_last_byte(0x01).StreamEmphasis, "50/15");
  EXPECT_EQ(with_last_byte(0x02).StreamEmphasis, "Resvd");
  EXPECT_EQ(with_last_byte(0x03).StreamEmphasis, "CCITT");
  EXPECT_TRUE(with_last_byte(0x08).StreamCopyrighted);
  EXPECT_FALSE(with_last_byte(0x08).StreamOriginal);
}

TEST(ReadStreamInfo, SeesTheCheckOfAFrame) {
  EXPECT_TRUE(FactsOf(Frames(3, {0xFF, 0xFA, 0x90, 0x64})).StreamCrc);
}

TEST(ReadStreamInfo, XingSaysVaryingRateWithTheAverageOfTheStatedBytes) {
  // 1000 frames of 1152 samples at 44100 Hz: 26.122 s
  const StreamFacts facts = FactsOf(Joined({CountFrame("Xing", Counts(1000, 333'000)), Frames(5)}));
  EXPECT_DOUBLE_EQ(facts.StreamLength, 1000 * 1152 / 44100.0);
  EXPECT_EQ(facts.StreamBitrate, "102 Kbit (VBR)");
}

TEST(ReadStreamInfo, VbriSaysVaryingRate) {
  const StreamFacts facts = FactsOf(Joined({Vbri(1000, 626'940), Frames(5)}));
  EXPECT_DOUBLE_EQ(facts.StreamLength, 1000 * 1152 / 44100.0);
  EXPECT_EQ(facts.StreamBitrate, "192 Kbit (VBR)");
}

TEST(ReadStreamInfo, InfoSaysConstantRateAndCountsTheLength) {
  const StreamFacts facts = FactsOf(Joined({CountFrame("Info", Counts(1000, 999'999)), Frames(5)}));
  EXPECT_DOUBLE_EQ(facts.StreamLength, 1000 * 1152 / 44100.0);
  EXPECT_EQ(facts.StreamBitrate, "128");
}

TEST(ReadStreamInfo, TakesTheConstantRateFromTheFrameBehindTheCount) {
  const Bytes count = CountFrame("Info", Counts(1000, 0), kXing, {0xFF, 0xFB, 0x90, 0x64}, 417);
  const StreamFacts facts = FactsOf(Joined({count, Frames(5, {0xFF, 0xFB, 0x20, 0x64}, 130)}));
  EXPECT_EQ(facts.StreamBitrate, "40");
}

TEST(ReadStreamInfo, FindsTheCountWhereverVersionAndModePutIt) {
  struct Row {
    Bytes head;
    std::size_t length, offset;
  };
  const Row rows[] = {
      {{0xFF, 0xFB, 0x90, 0x64}, 417, 36}, {{0xFF, 0xFB, 0x90, 0xC4}, 417, 21}, {{0xFF, 0xF3, 0x80, 0x64}, 208, 21},
      {{0xFF, 0xF3, 0x80, 0xC4}, 208, 13}, {{0xFF, 0xFA, 0x90, 0x64}, 417, 36}, {{0xFF, 0xFA, 0x90, 0x64}, 417, 38},
  };
  for (const Row& row : rows) {
    const Bytes count = CountFrame("Xing", Counts(50, 10'000), row.offset, row.head, row.length);
    const StreamFacts facts = FactsOf(Joined({count, Frames(5, row.head, row.length)}));
    EXPECT_NE(facts.StreamBitrate.find(" Kbit (VBR)"), std::string::npos) << row.offset;
  }
}

TEST(ReadStreamInfo, LooksForACountInLayerIIIOnly) {
  const Bytes head{0xFF, 0xFD, 0xA0, 0x04};
  const Bytes first = CountFrame("Xing", Counts(1000, 1000), kXing, head, 626);
  EXPECT_EQ(FactsOf(Joined({first, Frames(5, head, 626)})).StreamBitrate, "192");
}

TEST(ReadStreamInfo, XingWithoutCountsIsVaryingAtTheRateOfTheAudio) {
  const StreamFacts facts = FactsOf(Joined({CountFrame("Xing", BigEndian(0)), Frames(99), Id3v1TagOf()}));
  EXPECT_EQ(facts.StreamBitrate, "128 Kbit (VBR)");
  EXPECT_DOUBLE_EQ(facts.StreamLength, 100 * 417 * 8 / 128000.0);
}

TEST(ReadStreamInfo, XingWithFramesOnlyCountsTheAudioBytesOfTheFile) {
  const Bytes flags = Joined({BigEndian(1), BigEndian(200)});
  const StreamFacts facts = FactsOf(Joined({CountFrame("Xing", flags), Frames(99), ApeTag(500, true), Id3v1TagOf()}));
  // 41,700 bytes in 200 frames of 26.122 ms
  EXPECT_EQ(facts.StreamBitrate, "64 Kbit (VBR)");
  EXPECT_DOUBLE_EQ(facts.StreamLength, 200 * 1152 / 44100.0);
}

TEST(ReadStreamInfo, XingWithBytesOnlyTakesItsLengthFromThem) {
  const Bytes flags = Joined({BigEndian(2), BigEndian(160'000)});
  const StreamFacts facts = FactsOf(Joined({CountFrame("Xing", flags), Frames(9)}));
  EXPECT_EQ(facts.StreamBitrate, "128 Kbit (VBR)");
  EXPECT_DOUBLE_EQ(facts.StreamLength, 10);
}

TEST(ReadStreamInfo, TakesTheAverageOfTheFirst64KiBWhereTheNumberOfFramesIsMissing) {
  // 32 and 128 kbit/s by turns, then 320.
  Bytes audio;
  for (int i = 0; i < 200; ++i) audio = Joined({audio, Frames(1, {0xFF, 0xFB, 0x10, 0x64}, 104), Frames(1)});
  audio = Joined({audio, Frames(100, {0xFF, 0xFB, 0xE0, 0x64}, 1044)});
  const double bits = static_cast<double>(audio.size() + 417) * 8;
  for (const Bytes& head : {CountFrame("Xing", BigEndian(0)), Vbri(0, 0)}) {
    const StreamFacts facts = FactsOf(Joined({head, audio}));
    EXPECT_EQ(facts.StreamBitrate, "80 Kbit (VBR)");
    EXPECT_NEAR(facts.StreamLength, bits / 80'000, bits / 80'000 / 200);
  }
  EXPECT_EQ(FactsOf(audio).StreamBitrate, "32") << "without a head nothing is averaged";
  EXPECT_EQ(FactsOf(CountFrame("Xing", BigEndian(0))).StreamBitrate, "128 Kbit (VBR)");
}

TEST(ReadStreamInfo, TakesAFirstFrameThatTheFilesEndCutsOffWhereItsCountIsWhole) {
  const Bytes whole = CountFrame("Info", Counts(1000, 417'000));
  const StreamFacts facts = FactsOf(Bytes(whole.begin(), whole.begin() + 208));
  EXPECT_DOUBLE_EQ(facts.StreamLength, 1000 * 1152 / 44100.0);
  EXPECT_EQ(facts.StreamBitrate, "128");
  ExpectNoFrame(Bytes(whole.begin(), whole.begin() + 46));
  const Bytes varying = CountFrame("Xing", Counts(1000, 333'000));
  EXPECT_EQ(FactsOf(Bytes(varying.begin(), varying.begin() + 208)).StreamBitrate, "102 Kbit (VBR)");
}

TEST(ReadStreamInfo, CountsOfZeroAreNone) {
  const StreamFacts facts = FactsOf(Joined({CountFrame("Info", Counts(0, 0)), Frames(99)}));
  EXPECT_DOUBLE_EQ(facts.StreamLength, 100 * 417 * 8 / 128000.0);
}

TEST(ReadStreamInfo, SurvivesTheLargestCounts) {
  const StreamFacts facts = FactsOf(Joined({CountFrame("Xing", Counts(1, 0xFFFFFFFF)), Frames(5)}));
  EXPECT_EQ(facts.StreamBitrate, "1315333734 Kbit (VBR)");
  EXPECT_GT(FactsOf(Joined({CountFrame("Xing", Counts(0xFFFFFFFF, 1)), Frames(5)})).StreamLength, 1e8);
}

TEST(ReadStreamInfo, CountsNoTagAtTheEndAsAudio) {
  const double length = 100 * 417 * 8 / 128000.0;
  EXPECT_DOUBLE_EQ(FactsOf(Joined({Frames(100), Id3v1TagOf()})).StreamLength, length);
  EXPECT_DOUBLE_EQ(FactsOf(Joined({Frames(100), ApeTag(3000, true)})).StreamLength, length);
  EXPECT_DOUBLE_EQ(FactsOf(Joined({Frames(100), LyricsTag(3000), Id3v1TagOf()})).StreamLength, length);
  EXPECT_DOUBLE_EQ(
      FactsOf(Joined({Id3v2TagOf(5000), Frames(100), LyricsTag(9), ApeTag(8, false), Id3v1TagOf()})).StreamLength,
      length);
}

TEST(ReadStreamInfo, SkipsTagsInFront) {
  const Bytes audio = Frames(100);
  const double length = 100 * 417 * 8 / 128000.0;
  const Bytes footer = Joined({BytesOf("3DI"), {4, 0, 0x10}, SyncSafe(600)});
  const Bytes with_footer = Joined({Overwritten(Id3v2TagOf(600, 4), 5, {0x10}), footer});
  EXPECT_DOUBLE_EQ(FactsOf(Joined({Id3v2TagOf(600), audio})).StreamLength, length);
  EXPECT_DOUBLE_EQ(FactsOf(Joined({Id3v2TagOf(100'000), audio})).StreamLength, length);
  EXPECT_DOUBLE_EQ(FactsOf(Joined({Id3v2TagOf(600), Id3v2TagOf(70'000, 2), Id3v2TagOf(0), audio})).StreamLength,
                   length);
  EXPECT_DOUBLE_EQ(FactsOf(Joined({with_footer, audio})).StreamLength, length);
  EXPECT_DOUBLE_EQ(
      FactsOf(Joined({Id3v2TagOf(600), Bytes(2000), Id3v2TagOf(600), BytesOf("junk"), audio})).StreamLength, length);
}

TEST(ReadStreamInfo, SeesTheFirstFrameBehindATagWhoseFooterIsOnlyClaimed) {
  const Bytes tag = Overwritten(Id3v2TagOf(600, 4), 5, {0x10});
  EXPECT_DOUBLE_EQ(FactsOf(Joined({tag, CountFrame("Info", Counts(1000, 1)), Frames(9)})).StreamLength,
                   1000 * 1152 / 44100.0);
}

TEST(ReadStreamInfo, LooksAtNothingInsideATag) {
  const Bytes tag = Overwritten(Id3v2TagOf(5000), 10, Frames(10, {0xFF, 0xF3, 0x80, 0x64}, 208));
  EXPECT_EQ(FactsOf(Joined({tag, Frames(10)})).StreamVersion, "1.0");
}

TEST(ReadStreamInfo, SearchesBehindTheHeadOfATagThatClaimsMoreThanTheFile) {
  const Bytes broken = Overwritten(Id3v2TagOf(600), 6, SyncSafe(200'000'000));
  EXPECT_EQ(FactsOf(Joined({broken, Frames(10)})).StreamBitrate, "128");
  ExpectNoFrame(broken);
}

TEST(ReadStreamInfo, SkipsJunkAndFalseHeaders) {
  const double length = 10 * 417 * 8 / 128000.0;
  EXPECT_DOUBLE_EQ(FactsOf(Joined({Bytes(3000), Frames(10)})).StreamLength, length);
  EXPECT_DOUBLE_EQ(FactsOf(Joined({Bytes(3000, 0xFF), Frames(10)})).StreamLength, length);
  EXPECT_DOUBLE_EQ(FactsOf(Joined({kHead128, Bytes(200), kHead128, Bytes(5000), Frames(10)})).StreamLength, length);
  EXPECT_DOUBLE_EQ(FactsOf(Joined({Frame(), Bytes(1), Frames(10)})).StreamLength, length) << "a cut first frame";
}

TEST(ReadStreamInfo, SearchesOneMebibyteAndNoMore) {
  EXPECT_EQ(FactsOf(Joined({Bytes((1 << 20) - 1), Frames(10)})).StreamBitrate, "128");
  ExpectNoFrame(Joined({Bytes(1 << 20), Frames(10)}));
  EXPECT_EQ(FactsOf(Joined({Id3v2TagOf(3'000'000), Bytes(1'000'000), Frames(10)})).StreamBitrate, "128");
}

TEST(ReadStreamInfo, FailsWithoutAFrame) {
  ExpectNoFrame({});
  ExpectNoFrame(Bytes(1));
  ExpectNoFrame(BytesOf("This is a text, not a song. It says ID3 and TAG."));
  ExpectNoFrame(Bytes(100'000));
  ExpectNoFrame(Bytes(100'000, 0xFF));
  ExpectNoFrame(Id3v2TagOf(600));
  ExpectNoFrame(Joined({Id3v2TagOf(600), Id3v1TagOf()}));
}

TEST(ReadStreamInfo, FailsOnFreeFormat) {
  ExpectNoFrame(Frames(10, {0xFF, 0xFB, 0x00, 0x64}, 500));
}

TEST(ReadStreamInfo, TakesTheOnlyFrameOfAFileWhenItEndsWithTheAudio) {
  EXPECT_DOUBLE_EQ(FactsOf(Frame()).StreamLength, 417 * 8 / 128000.0);
  EXPECT_DOUBLE_EQ(FactsOf(Joined({Id3v2TagOf(50), Frame(), Id3v1TagOf()})).StreamLength, 417 * 8 / 128000.0);
  EXPECT_DOUBLE_EQ(FactsOf(Joined({Frame(), ApeTag(50, true), Id3v1TagOf()})).StreamLength, 417 * 8 / 128000.0);
  ExpectNoFrame(Joined({Frame(), Bytes(1)}));
  ExpectNoFrame(Frame(kHead128, kLength128 - 1));
}

TEST(ReadStreamInfo, TakesAFileCutInItsSecondFrame) {
  EXPECT_EQ(FactsOf(Joined({Frame(), kHead128})).StreamBitrate, "128");
  ExpectNoFrame(Joined({Frame(), {0xFF, 0xFB, 0x90}}));
}

TEST(ReadStreamInfo, LetsTheSecondFrameHaveAnotherRateAndMode) {
  const StreamFacts facts = FactsOf(Joined({Frame(), Frames(5, {0xFF, 0xFB, 0xA0, 0x04}, 522)}));
  EXPECT_EQ(facts.StreamBitrate, "128") << "without a count the rate of the first frame is taken";
  EXPECT_EQ(facts.StreamMode, "Joint Stereo");
}

TEST(ReadStreamInfo, ReadsOncePerPlaceThatMatters) {
  MemoryFile counted(Joined({CountFrame("Info", Counts(1000, 1)), Frames(1000)}));
  ReadStreamInfo(counted);
  EXPECT_EQ(counted.Reads(), 1);
  EXPECT_EQ(counted.BytesRead(), 4096u);

  MemoryFile behind_tag(Joined({Id3v2TagOf(100'000), CountFrame("Xing", Counts(1000, 1)), Frames(1000)}));
  ReadStreamInfo(behind_tag);
  EXPECT_EQ(behind_tag.Reads(), 2);
  EXPECT_EQ(behind_tag.BytesRead(), 8192u);

  MemoryFile without_count(Joined({Frames(1000), Id3v1TagOf()}));
  ReadStreamInfo(without_count);
  EXPECT_EQ(without_count.Reads(), 2);
  EXPECT_EQ(without_count.BytesRead(), 4096u + 160u);
}

TEST(ReadStreamInfo, ReadsNoMoreThanItSearches) {
  MemoryFile junk(Bytes(40'000'000, 0xFF));
  EXPECT_THROW(ReadStreamInfo(junk), Failure);
  EXPECT_LT(junk.BytesRead(), 2'500'000u);

  Bytes tags;
  for (int i = 0; i < 300'000; ++i) tags.insert(tags.end(), {'I', 'D', '3', 3, 0, 0, 0, 0, 0, 0});
  MemoryFile heap(tags);
  EXPECT_THROW(ReadStreamInfo(heap), Failure);
  EXPECT_LT(heap.BytesRead(), 2'500'000u);
}

TEST(ReadStreamInfo, FailsOnAnInputError) {
  MemoryFile file(Frames(10));
  file.Fail();
  EXPECT_THROW(ReadStreamInfo(file), Failure);
}

}  // namespace
}  // namespace qublet
