#include "media/id3/id3v2_tag.h"

#include <algorithm>

#include "platform/failure.h"

namespace qublet {
namespace {

constexpr std::string_view YearId(int version) {
  return version == 4 ? "TDRC" : "TYER";
}

constexpr std::string_view OtherYearId(int version) {
  return YearId(version == 4 ? 3 : 4);
}

bool IsProperId(std::string_view id) {
  return std::ranges::all_of(id, [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

bool Any(const FrameText&) {
  return true;
}

bool HasNoDescription(const FrameText& text) {
  return text.description.empty();
}

std::vector<std::size_t> FirstOf(const std::vector<std::size_t>& places) {
  return {places.begin(), places.begin() + (places.empty() ? 0 : 1)};
}

}  // namespace

std::optional<BytesView> Id3v2Tag::ContentOf(const RawFrame& frame, Bytes& room) const {
  if (!shows_compressed_ && IsCompressed(frame, raw_)) return std::nullopt;
  return ShownContent(frame, raw_, room);
}

std::optional<FrameText> Id3v2Tag::TextIn(const RawFrame& frame, FrameKind kind) const {
  Bytes room;
  const auto content = ContentOf(frame, room);
  return content ? DecodeFrameText(kind, *content) : std::nullopt;
}

Id3v2Tag::Places Id3v2Tag::FindAll(std::string_view id, const Wanted& wanted) const {
  Places places;
  const auto kind = KindOf(id);
  for (std::size_t place = 0; kind && place < raw_.frames.size(); ++place) {
    if (ShownId(raw_.frames[place]) != id) continue;
    const auto text = TextIn(raw_.frames[place], *kind);
    if (text && wanted(*text)) places.push_back(place);
  }
  return places;
}

std::optional<std::size_t> Id3v2Tag::FindHidden(std::string_view id) const {
  const auto kind = KindOf(id);
  for (std::size_t place = 0; kind && place < raw_.frames.size(); ++place) {
    if (ShownId(raw_.frames[place]) == id && !TextIn(raw_.frames[place], *kind)) return place;
  }
  return std::nullopt;
}

Id3v2Tag::Places Id3v2Tag::FindFrame(std::string_view id) const {
  if (id == "TYER") {
    const Places own = FindAll(YearId(raw_.version), Any);
    return own.empty() ? FindAll(OtherYearId(raw_.version), Any) : own;
  }
  if (KindOf(id) == FrameKind::kText) return FindAll(id, Any);
  const Places places = FirstOf(FindAll(id, HasNoDescription));
  return places.empty() && id != "TXXX" ? FirstOf(FindAll(id, Any)) : places;
}

std::string Id3v2Tag::TextOf(const Places& places) const {
  std::vector<std::string> values;
  for (const std::size_t place : places) {
    const RawFrame& frame = raw_.frames[place];
    values.push_back(TextIn(frame, *KindOf(ShownId(frame)))->text);
  }
  return JoinedValues(values);
}

std::string Id3v2Tag::Frame(std::string_view id) const {
  return TextOf(FindFrame(id));
}

void Id3v2Tag::SetText(std::size_t place, const std::string& text) {
  RawFrame& frame = raw_.frames[place];
  const FrameKind kind = *KindOf(ShownId(frame));
  FrameText changed = TextIn(frame, kind).value_or(FrameText{});
  changed.text = text;
  frame.id = ShownId(frame);
  ReplaceContent(frame, EncodeFrameText(kind, changed, raw_.version), raw_);
}

void Id3v2Tag::AddText(std::string_view id, const FrameText& text) {
  RawFrame frame{std::string(id), 0, {}};
  ReplaceContent(frame, EncodeFrameText(*KindOf(id), text, raw_.version), raw_);
  raw_.frames.insert(raw_.frames.begin() + static_cast<std::ptrdiff_t>(PlaceForNew()), std::move(frame));
}

// Some programs stop at a frame with an odd id or without content, so nothing new stands behind one. What follows the
// frames may really belong to the last of them, so the two aren't parted.
std::size_t Id3v2Tag::PlaceForNew() const {
  const auto stops = [](const RawFrame& frame) { return frame.content.empty() || !IsProperId(frame.id); };
  const auto place = static_cast<std::size_t>(std::ranges::find_if(raw_.frames, stops) - raw_.frames.begin());
  return place > 0 && place == raw_.frames.size() && !raw_.tail.empty() ? place - 1 : place;
}

void Id3v2Tag::EraseIf(const std::function<bool(std::size_t, const RawFrame&)>& goes) {
  std::size_t place = 0;
  std::vector<RawFrame> stay;
  for (RawFrame& frame : raw_.frames) {
    if (!goes(place++, frame)) stay.push_back(std::move(frame));
  }
  raw_.frames = std::move(stay);
}

void Id3v2Tag::EraseAll(std::string_view id, const Wanted& wanted) {
  EraseIf([&](std::size_t, const RawFrame& frame) {
    const auto text = ShownId(frame) == id ? TextIn(frame, *KindOf(id)) : std::nullopt;
    return text && wanted(*text);
  });
}

void Id3v2Tag::SetFrame(std::string_view id, const std::string& text) {
  const auto kind = KindOf(id);
  if (!kind || id == "COMM") throw Failure("no text frame", std::string(id));
  const Places places = FindFrame(id);
  const bool can_be_empty = *kind == FrameKind::kText || *kind == FrameKind::kUserText;
  const bool wants_empty = is_new_ && places.empty() && can_be_empty;
  if (TextOf(places) == text && !wants_empty) return;
  if (id == "TYER") return SetYear(text);
  if (!places.empty()) return SetTexts(places, text);

  // A frame that can't be shown and that there is but one of gives way to its new text.
  const auto hidden = FindHidden(id);
  if (hidden && (*kind == FrameKind::kText || *kind == FrameKind::kUrl)) return SetText(*hidden, text);
  AddText(id, {EncodingForNew(text, "", raw_.version), kNewLanguage, "", text});
}

// The first of the frames gets the text, the others go; so does the first where it can't be empty.
void Id3v2Tag::SetTexts(const Places& places, const std::string& text) {
  const bool first_goes = text.empty() && KindOf(ShownId(raw_.frames[places[0]])) == FrameKind::kUrl;
  if (!first_goes) SetText(places[0], text);
  EraseIf([&](std::size_t place, const RawFrame&) {
    return std::ranges::binary_search(places, place) && (place != places[0] || first_goes);
  });
}

// The year stands in one frame only, the one of the tag's version. A day and a time of day that have frames of their
// own belong to the year in TYER and go with it.
void Id3v2Tag::SetYear(const std::string& text) {
  const std::string_view own = YearId(raw_.version);
  const std::string_view other = OtherYearId(raw_.version);
  const bool day_goes = raw_.version == 3 || !FindAll("TYER", Any).empty();
  const Places places = FindFrame("TYER");
  const auto place = places.empty() ? FindHidden(own) : places[0];
  if (place) {
    raw_.frames[*place].id = ShownId(raw_.frames[*place]);
    SetText(*place, text);
    raw_.frames[*place].id = own;
  }
  EraseIf([&](std::size_t at, const RawFrame& frame) {
    const std::string_view id = ShownId(frame);
    const bool year = (id == own || id == other) && TextIn(frame, FrameKind::kText);
    return at != place && (year || (day_goes && (id == "TDAT" || id == "TIME")));
  });
  if (!place) AddText(own, {EncodingForNew(text, "", raw_.version), "", "", text});
}

Id3v2Tag::Places Id3v2Tag::FindProperty(std::string_view description) const {
  return FirstOf(FindAll("COMM", [&](const FrameText& text) { return text.description == description; }));
}

std::string Id3v2Tag::Property(std::string_view description) const {
  return TextOf(FindProperty(description));
}

void Id3v2Tag::SetProperty(std::string_view description, const std::string& text) {
  const Places places = FindProperty(description);
  if (TextOf(places) == text) return;
  if (!places.empty() && !text.empty()) SetText(places[0], text);
  // Whatever else has this description would be the property once this one is gone.
  EraseAll("COMM", [&](const FrameText& frame) { return frame.description == description && frame.text != text; });
  if (places.empty() && !text.empty()) {
    AddText("COMM", {EncodingForNew(text, description, raw_.version), kNewLanguage, std::string(description), text});
  }
}

void Id3v2Tag::EnsureNotEmpty() {
  if (raw_.frames.empty()) AddText("TIT2", {});
}

}  // namespace qublet
