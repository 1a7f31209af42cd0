#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "media/id3/frame_content.h"
#include "media/id3/frame_walk.h"
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

const IdPair* FindOldId(std::string_view old_id) {
  const auto* const pair = std::ranges::find(kIds, old_id, &IdPair::old_id);
  return pair == kIds.end() ? nullptr : pair;
}

// Bytes of a tag of 2.2, in their old form, as something that every program passes on.
RawFrame Wrapped(std::string_view owner, BytesView old) {
  Bytes content;
  Append(content, owner);
  content.push_back(0);
  Append(content, old);
  return {"PRIV", 0, std::move(content)};
}

RawFrame Wrapped(const RawFrame& old) {
  Bytes whole;
  Append(whole, old.id);
  AppendNumber(whole, static_cast<std::uint32_t>(old.content.size()), 3);
  Append(whole, old.content);
  return Wrapped(kForeignFrameOwner, whole);
}

// Encoding and three characters of a format stand at the start of PIC.
constexpr std::size_t kPictureFormatEnd = 4;
// The id of the frame that is linked to stands at the start of LNK.
constexpr std::size_t kLinkedIdEnd = 3;

// With the new id of that frame, filled up with a blank where there is none.
Bytes WithLinkedId(BytesView link) {
  const std::string_view old_id = AsText(link.first(kLinkedIdEnd));
  const IdPair* pair = FindOldId(old_id);
  Bytes content;
  Append(content, pair != nullptr ? std::string(pair->id) : std::string(old_id) + " ");
  Append(content, link.subspan(kLinkedIdEnd));
  return content;
}

Bytes WithMimeType(BytesView picture) {
  const std::string format(AsText(picture.subspan(1, kPictureFormatEnd - 1)));
  Bytes content = {picture[0]};
  if (format != "-->") Append(content, "image/");
  Append(content, format == "JPG" ? "jpeg" : LowerCase(format));
  content.push_back(0);
  Append(content, picture.subspan(kPictureFormatEnd));
  return content;
}

// The content of a frame of 2.2 as later versions want it; nothing when it is too short for its layout.
std::optional<Bytes> UpgradedContent(std::string_view old_id, BytesView content) {
  if (old_id == "PIC") {
    if (content.size() <= kPictureFormatEnd) return std::nullopt;
    return WithMimeType(content);
  }
  if (old_id == "LNK" && content.size() >= kLinkedIdEnd) return WithLinkedId(content);
  return Bytes(content.begin(), content.end());
}

RawFrame UpgradedFrame(RawFrame old) {
  const IdPair* pair = FindOldId(old.id);
  auto content = pair != nullptr ? UpgradedContent(old.id, old.content) : std::nullopt;
  if (!content) return Wrapped(old);
  return {std::string(pair->id), 0, std::move(*content)};
}

// A frame that the end of the tag cuts off is the same in the new version, with the size that it claims; nothing for
// other bytes.
std::optional<Bytes> UpgradedCutFrame(BytesView tail) {
  constexpr std::size_t kIdLength = 3;
  if (tail.size() < FrameHeaderSize(2)) return std::nullopt;
  const IdPair* pair = FindOldId(AsText(tail.first(kIdLength)));
  const BytesView content = tail.subspan(FrameHeaderSize(2));
  const std::uint32_t claimed = ReadNumber(tail.subspan(kIdLength, 3));
  if (pair == nullptr || claimed <= content.size()) return std::nullopt;
  const auto upgraded = UpgradedContent(pair->old_id, content);
  if (!upgraded) return std::nullopt;
  Bytes out;
  Append(out, pair->id);
  AppendNumber(out, claimed + static_cast<std::uint32_t>(upgraded->size() - content.size()), 4);
  AppendNumber(out, 0, 2);
  Append(out, *upgraded);
  return out;
}

const IdPair* FindFilledId(const RawFrame& frame) {
  if (frame.id.size() != 4 || frame.id[3] != '\0') return nullptr;
  return FindOldId(std::string_view(frame.id).substr(0, 3));
}

}  // namespace

RawTag Upgraded(RawTag tag) {
  if (tag.version != 2) return tag;
  RawTag upgraded;
  upgraded.frames.reserve(tag.frames.size() + 1);
  for (RawFrame& frame : tag.frames) upgraded.frames.push_back(UpgradedFrame(std::move(frame)));
  if (tag.tail.empty()) return upgraded;
  if (auto cut = UpgradedCutFrame(tag.tail)) {
    upgraded.tail = std::move(*cut);
  } else {
    upgraded.frames.push_back(Wrapped(kForeignTailOwner, tag.tail));
  }
  return upgraded;
}

std::string_view ShownId(const RawFrame& frame) {
  const IdPair* pair = FindFilledId(frame);
  return pair != nullptr ? pair->id : std::string_view(frame.id);
}

std::optional<BytesView> ShownContent(const RawFrame& frame, const RawTag& tag, Bytes& room) {
  const std::size_t most = KindOf(ShownId(frame)) ? kMostText : SIZE_MAX;
  const IdPair* pair = FindFilledId(frame);
  if (pair == nullptr && IsPlain(frame, tag))
    return BytesView(frame.content).first(std::min(frame.content.size(), most));
  auto content = PlainContent(frame, tag, most);
  if (content && pair != nullptr) content = UpgradedContent(pair->old_id, *content);
  if (!content) return std::nullopt;
  room = std::move(*content);
  return room;
}

}  // namespace qublet
