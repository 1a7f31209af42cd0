#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <vector>

#include "generators/report/report_engine.h"
#include "support/mpeg_frames.h"
#include "support/stopped_clock.h"
#include "support/tag_bytes.h"
#include "support/temporary_drives.h"
#include "support/vorbis_bytes.h"

namespace qublet {

// Songs of every kind on c:, and reports of them to "c:\out".
class ReportTestBase : public testing::Test {
 protected:
  ReportTestBase() {
    LoadDefaults(settings_);
    drives_.Write("music/my.song.mp3",
                  TagBytes(3, TextFrameBytes(3, "TIT2", "T2") + TextFrameBytes(3, "TPE1", "A2") +
                                  TextFrameBytes(3, "TALB", "B2") + TextFrameBytes(3, "TYER", "2001")) +
                      TextOf(Frames(100)) + Id3v1Bytes("T1", "A1", "B1", "1999"));  // 41,892 bytes, 2.6 seconds
    drives_.Write("music/a b/AB CD.MP3", TextOf(Frames(383)));                      // 159,711 bytes, 10.0 seconds
    drives_.Write("music/x.ogg", VorbisFile({"TITLE=OT", "ARTIST=OA", "ALBUM=OB"}));
    drives_.Write("music/y.wma", std::string(20'000, 'w'));
    drives_.Write("music/z.wav", Wav(1, 2, 44100, 16, 176'400));  // 1 second
  }

  // So many bytes in all.
  static std::string Wav(int tag, int channels, int rate, int bits, std::size_t size) {
    std::string wav = "RIFF....WAVEfmt ....";
    const auto add = [&](int value, int length) {
      for (int i = 0; i < length; ++i) wav += static_cast<char>(value >> (8 * i));
    };
    add(tag, 2);
    add(channels, 2);
    add(rate, 4);
    add(0, 6);
    add(bits, 2);
    wav.resize(size, 'd');
    return wav;
  }

  // Only these columns, in this order.
  void Select(const std::vector<std::int16_t>& numbers) {
    settings_.ColumnOrder.fill(1);
    settings_.ColumnChecked.fill(false);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      settings_.ColumnOrder[i] = numbers[i];
      settings_.ColumnChecked[i] = true;
    }
  }

  // No title, no headers, no summary, cells with a bar behind each.
  void UsePlainText() {
    settings_.RepType = kTextReport;
    settings_.ColumnHeaders = settings_.Summary = settings_.SpaceAligned = false;
    settings_.CustomDelimited = true;
    settings_.Delimiter = "|";
  }

  ReportResult Generate(const Collection& files) {
    return GenerateReport({*files_, clock_, ","}, "c:\\out", files, settings_,
                          [&](int value, int maximum) { progress_.emplace_back(value, maximum); });
  }
  std::string Report(const Collection& files) {
    EXPECT_TRUE(Generate(files).written);
    return drives_.Read("out");
  }
  // The rows of a plain text.
  std::vector<std::string> Rows(const Collection& files) {
    UsePlainText();
    std::vector<std::string> rows;
    std::string text = Report(files);
    for (std::size_t end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n")) {
      rows.push_back(text.substr(0, end));
      text.erase(0, end + 2);
    }
    // The empty lines of the head, of the missing headers and of the foot.
    EXPECT_GE(rows.size(), 3u);
    return {rows.begin() + 2, rows.end() - 1};
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  StoppedClock clock_;
  ReportSettings settings_;
  std::vector<std::pair<int, int>> progress_;
};

}  // namespace qublet
