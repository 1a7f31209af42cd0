#include <algorithm>
#include <array>
#include <string_view>

#include "media/id3/raw_tag.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

struct IdPair {
  std::string_view old_id;
  std::string_view id;
};

// Frames of ID3v2.2 and the same in 2.3, where only the id differs (and PIC, whose head is written anew).
constexpr auto kIds = std::to_array<IdPair>({
    {"BUF", "RBUF"}, {"CNT", "PCNT"}, {"COM", "COMM"}, {"CRA", "AENC"}, {"EQU", "EQUA"}, {"ETC", "ETCO"},
    {"GEO", "GEOB"}, {"GP1", "GRP1"}, {"IPL", "IPLS"}, {"LNK", "LINK"}, {"MCI", "MCDI"}, {"MLL", "MLLT"},
    {"MVI", "MVIN"}, {"MVN", "MVNM"}, {"PCS", "PCST"}, {"PIC", "APIC"}, {"POP", "POPM"}, {"REV", "RVRB"},
    {"RVA", "RVAD"}, {"SLT", "SYLT"}, {"STC", "SYTC"}, {"TAL", "TALB"}, {"TBP", "TBPM"}, {"TCM", "TCOM"},
    {"TCO", "TCON"}, {"TCP", "TCMP"}, {"TCR", "TCOP"}, {"TCT", "TCAT"}, {"TDA", "TDAT"}, {"TDR", "TDRL"},
    {"TDS", "TDES"}, {"TDY", "TDLY"}, {"TEN", "TENC"}, {"TFT", "TFLT"}, {"TID", "TGID"}, {"TIM", "TIME"},
    {"TKE", "TKEY"}, {"TKW", "TKWD"}, {"TLA", "TLAN"}, {"TLE", "TLEN"}, {"TMT", "TMED"}, {"TOA", "TOPE"},
    {"TOF", "TOFN"}, {"TOL", "TOLY"}, {"TOR", "TORY"}, {"TOT", "TOAL"}, {"TP1", "TPE1"}, {"TP2", "TPE2"},
    {"TP3", "TPE3"}, {"TP4", "TPE4"}, {"TPA", "TPOS"}, {"TPB", "TPUB"}, {"TRC", "TSRC"}, {"TRD", "TRDA"},
    {"TRK", "TRCK"}, {"TS2", "TSO2"}, {"TSA", "TSOA"}, {"TSC", "TSOC"}, {"TSI", "TSIZ"}, {"TSP", "TSOP"},
    {"TSS", "TSSE"}, {"TST", "TSOT"}, {"TT1", "TIT1"}, {"TT2", "TIT2"}, {"TT3", "TIT3"}, {"TXT", "TEXT"},
    {"TXX", "TXXX"}, {"TYE", "TYER"}, {"UFI", "UFID"}, {"ULT", "USLT"}, {"WAF", "WOAF"}, {"WAR", "WOAR"},
    {"WAS", "WOAS"}, {"WCM", "WCOM"}, {"WCP", "WCOP"}, {"WFD", "WFED"}, {"WPB", "WPUB"}, {"WXX", "WXXX"},
});

// The whole frame, in its old form, as something that every program passes on.
RawFrame Wrapped(const RawFrame& old) {
  RawFrame frame{"PRIV", 0, {}};
  Append(frame.content, kForeignFrameOwner);
  frame.content.push_back(0);
  Append(frame.content, old.id);
  AppendNumber(frame.content, static_cast<std::uint32_t>(old.content.size()), 3);
  Append(frame.content, old.content);
  return frame;
}

// Encoding and three characters of a format stand at the start of PIC.
constexpr std::size_t kPictureFormatEnd = 4;

Bytes WithMimeType(BytesView picture) {
  const std::string format(AsText(picture.subspan(1, kPictureFormatEnd - 1)));
  Bytes content = {picture[0]};
  if (format != "-->") Append(content, "image/");
  Append(content, format == "JPG" ? "jpeg" : LowerCase(format));
  content.push_back(0);
  Append(content, picture.subspan(kPictureFormatEnd));
  return content;
}

RawFrame UpgradedFrame(RawFrame old) {
  const auto pair = std::ranges::find(kIds, old.id, &IdPair::old_id);
  if (pair == kIds.end()) return Wrapped(old);
  if (old.id == "PIC") {
    if (old.content.size() <= kPictureFormatEnd) return Wrapped(old);
    old.content = WithMimeType(old.content);
  }
  old.id = pair->id;
  return old;
}

}  // namespace

RawTag Upgraded(RawTag tag) {
  if (tag.version != 2) return tag;
  RawTag upgraded;
  upgraded.frames.reserve(tag.frames.size());
  for (RawFrame& frame : tag.frames) upgraded.frames.push_back(UpgradedFrame(std::move(frame)));
  if (!tag.tail.empty()) upgraded.tail = std::move(tag.tail);
  return upgraded;
}

}  // namespace qublet
