#include "media/editor/file_pages.h"

#include "media/media_info.h"
#include "playlist/paths/formats.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/path_text.h"

namespace qublet {
namespace {

// As the picture "###,###,###,###" does it: nothing at all for 0.
std::string LengthText(std::int64_t bytes, const std::string& thousands_separator) {
  return bytes == 0 ? "" : GroupedNumber(bytes, thousands_separator);
}

std::string Seconds(const FileSystem& files, const std::string& path, const StreamFacts& stream) {
  if (!IsVbr(stream.StreamBitrate)) return TwoDecimals(stream.StreamLength);
  return TwoDecimals(VbrLength(ToInteger32(files.FileLength(path)), stream.StreamBitrate));
}

std::string YesNo(bool flag) {
  return YesNoText(flag ? 1 : 0);
}

// Adds 1 to the last digit of a decimal text without a sign.
void CountUp(std::string& digits) {
  for (std::size_t at = digits.size(); at-- > 0;) {
    if (digits[at] == '.') continue;
    if (digits[at] != '9') {
      ++digits[at];
      return;
    }
    digits[at] = '0';
  }
  digits.insert(0, 1, '1');
}

}  // namespace

std::string TwoDecimals(double value) {
  std::string text = NumberText(value);
  const std::size_t point = text.find('.');
  if (point == text.npos || text.size() <= point + 3) return text;
  const std::string rest = text.substr(point + 3);
  const bool negative = text.starts_with('-');
  std::string digits = text.substr(negative ? 1 : 0, point + 3 - (negative ? 1 : 0));
  const bool odd = (digits.back() - '0') % 2 != 0;
  if (rest > "5" || (rest == "5" && odd)) CountUp(digits);
  while (digits.ends_with('0')) digits.pop_back();
  if (digits.ends_with('.')) digits.pop_back();
  return negative && digits != "0" ? "-" + digits : digits;
}

void ShowFileInfo(const FileSystem& files, const std::string& path, const std::string& thousands_separator,
                  FilePage& page) {
  page.attributes_enabled = true;
  page.FileInfo[0] = GetFileName(path);
  const bool shown = Guarded([&] {
    const std::optional<unsigned> attributes = files.Attributes(path);
    if (!attributes) throw Failure("no such file or folder", path);
    page.read_only = (*attributes & kReadOnly) != 0;
    page.archive = (*attributes & kArchive) != 0;
    page.FileInfo[1] = "File Size: " + LengthText(files.FileLength(path), thousands_separator) + " bytes";
  });
  if (shown) return;
  page.FileInfo[1] = "File Size: ???? Bytes";
  page.read_only = page.archive = page.attributes_enabled = false;
}

void ShowMpegInfo(const FileSystem& files, const std::string& path, const StreamFacts& stream, MpegLabels& labels) {
  if (path.empty()) {
    labels.fill("");
    return;
  }
  ResumeNext([&] {
    const bool vbr = stream.StreamBitrate.find("VBR") != std::string::npos;
    labels = {"Length: " + Seconds(files, path, stream) + " Seconds",
              "Version: MPEG " + stream.StreamVersion,
              "Encoding: " + stream.StreamBitrate + (vbr ? "" : " Kbit "),
              "Samplerate: " + NumberText(stream.StreamSamplerate) + " Hz",
              "CRCProtection: " + YesNo(stream.StreamCrc),
              "Copyrighted: " + YesNo(stream.StreamCopyrighted),
              "Original: " + YesNo(stream.StreamOriginal),
              "Emphasis: " + stream.StreamEmphasis,
              "Mode: " + stream.StreamMode,
              "Layer: " + stream.StreamLayer};
  });
}

void ShowWavInfo(const FileSystem& files, const std::string& path, const WavHeader& header, MpegLabels& labels) {
  labels[5] = labels[6] = labels[7] = "";
  if (path.empty()) {
    labels.fill("");
    return;
  }
  ResumeNext([&] {
    const std::int32_t bps = WavBitRate(header);
    labels[0] = "Length: " + std::to_string(WavLength(ToInteger32(files.FileLength(path)), bps)) + " Seconds";
    labels[1] = "Sample Res: " + std::to_string(header.BitsPerSample) + " bits/sample";
    labels[2] = "Bitrate: " + WavKilobits(bps) + " Kbit ";
    labels[3] = "Samplerate: " + std::to_string(header.SampleRate) + " Hz";
    labels[4] = std::string("Format: ") + (header.FormatTag == 1 ? "PCM" : "-");
    labels[8] = "Channels: " + std::to_string(header.Channels);
    if (header.Channels == 2) labels[9] = "Stereo Interleaved";
    if (header.Channels == 1) labels[9] = "Mono";
  });
}

void ShowOggInfo(const std::string& path, const VorbisComments& comments, OggLabels& labels) {
  if (path.empty()) {
    labels.fill(kUnknownLabel);
    labels[0] = comments.ErrorText;
    return;
  }
  labels = {"Title: " + comments.Title, "Artist: " + comments.Artist, "Album: " + comments.Album,
            "Encoded with: " + comments.EncodedUsing, "Track: " + std::to_string(comments.Track)};
}

}  // namespace qublet
