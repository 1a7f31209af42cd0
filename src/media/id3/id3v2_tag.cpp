#include "media/id3/id3v2_tag.h"

#include <algorithm>
#include <map>

#include "platform/failure.h"

namespace qublet {
namespace {

constexpr char kNewLanguage[] = "eng";
constexpr std::uint8_t kFrontCover = 3;

bool IsProperty(std::string_view description) {
  return std::ranges::find(kPropertyDescriptions, description) != std::end(kPropertyDescriptions);
}

bool Any(const FrameText&) {
  return true;
}

bool HasNoDescription(const FrameText& text) {
  return text.description.empty();
}

// Numbers of old items by what they are, each to be taken once, in order.
template <typename Key>
class Stock {
 public:
  void Add(const Key& key, std::size_t number) { numbers_[key].push_back(number); }

  std::optional<std::size_t> Take(const Key& key, std::vector<bool>& taken) {
    const auto found = numbers_.find(key);
    if (found == numbers_.end()) return std::nullopt;
    for (auto& next = next_[key]; next < found->second.size();) {
      const std::size_t number = found->second[next++];
      if (taken[number]) continue;
      taken[number] = true;
      return number;
    }
    return std::nullopt;
  }

 private:
  std::map<Key, std::vector<std::size_t>> numbers_;
  std::map<Key, std::size_t> next_;
};

}  // namespace

std::optional<FrameText> Id3v2Tag::TextIn(const RawFrame& frame, FrameKind kind) const {
  const auto content = PlainContent(frame, raw_);
  return content ? DecodeFrameText(kind, *content) : std::nullopt;
}

std::optional<std::size_t> Id3v2Tag::Find(std::string_view id, const Wanted& wanted) const {
  const auto kind = KindOf(id);
  for (std::size_t place = 0; kind && place < raw_.frames.size(); ++place) {
    if (raw_.frames[place].id != id) continue;
    const auto text = TextIn(raw_.frames[place], *kind);
    if (text && wanted(*text)) return place;
  }
  return std::nullopt;
}

std::optional<std::size_t> Id3v2Tag::FindHidden(std::string_view id) const {
  const auto kind = KindOf(id);
  for (std::size_t place = 0; kind && place < raw_.frames.size(); ++place) {
    if (raw_.frames[place].id == id && !TextIn(raw_.frames[place], *kind)) return place;
  }
  return std::nullopt;
}

std::optional<std::size_t> Id3v2Tag::FindFrame(std::string_view id) const {
  if (id == "TYER") {
    const bool newest = raw_.version == 4;
    const auto place = Find(newest ? "TDRC" : "TYER", Any);
    return place ? place : Find(newest ? "TYER" : "TDRC", Any);
  }
  if (id == "TXXX") return Find(id, HasNoDescription);
  if (id == "WXXX" || id == "USLT") {
    const auto place = Find(id, HasNoDescription);
    return place ? place : Find(id, Any);
  }
  return Find(id, Any);
}

std::string Id3v2Tag::TextOf(std::optional<std::size_t> place) const {
  if (!place) return "";
  const auto text = TextIn(raw_.frames[*place], *KindOf(raw_.frames[*place].id));
  return text ? text->text : "";
}

std::string Id3v2Tag::Frame(std::string_view id) const {
  return TextOf(FindFrame(id));
}

void Id3v2Tag::SetText(std::size_t place, const std::string& text) {
  RawFrame& frame = raw_.frames[place];
  const FrameKind kind = *KindOf(frame.id);
  FrameText changed = TextIn(raw_.frames[place], kind).value_or(FrameText{});
  changed.text = text;
  ReplaceContent(frame, EncodeFrameText(kind, changed, raw_.version), raw_);
}

void Id3v2Tag::AddText(std::string_view id, const FrameText& text) {
  RawFrame frame{std::string(id), 0, {}};
  ReplaceContent(frame, EncodeFrameText(*KindOf(id), text, raw_.version), raw_);
  raw_.frames.push_back(std::move(frame));
}

void Id3v2Tag::Erase(std::size_t place) {
  raw_.frames.erase(raw_.frames.begin() + static_cast<std::ptrdiff_t>(place));
}

void Id3v2Tag::EraseAll(std::string_view id, const Wanted& wanted) {
  const auto kind = KindOf(id);
  std::erase_if(raw_.frames, [&](const RawFrame& frame) {
    const auto text = frame.id == id ? TextIn(frame, *kind) : std::nullopt;
    return text && wanted(*text);
  });
}

void Id3v2Tag::SetFrame(std::string_view id, const std::string& text) {
  const auto kind = KindOf(id);
  if (!kind || id == "COMM") throw Failure("no text frame", std::string(id));
  const auto place = FindFrame(id);
  const bool can_be_empty = *kind == FrameKind::kText || *kind == FrameKind::kUserText;
  const bool wants_empty = is_new_ && !place && can_be_empty;
  if (TextOf(place) == text && !wants_empty) return;
  if (id == "TYER") return SetYear(text);
  if (place && *kind == FrameKind::kUrl && text.empty()) return Erase(*place);
  if (place) return SetText(*place, text);

  // A frame that can't be shown and that there is but one of gives way to its new text.
  const auto hidden = FindHidden(id);
  if (hidden && (*kind == FrameKind::kText || *kind == FrameKind::kUrl)) return SetText(*hidden, text);
  AddText(id, {EncodingForNew(text, "", raw_.version), kNewLanguage, "", text});
}

// The year stands in one frame only, the one of the tag's version.
void Id3v2Tag::SetYear(const std::string& text) {
  const bool newest = raw_.version == 4;
  const std::string_view own = newest ? "TDRC" : "TYER";
  const std::string_view foreign = newest ? "TYER" : "TDRC";
  auto place = Find(own, Any);
  if (!place) place = Find(foreign, Any);
  if (!place) place = FindHidden(own);
  if (!place) return AddText(own, {EncodingForNew(text, "", raw_.version), "", "", text});
  raw_.frames[*place].id = own;
  SetText(*place, text);
  EraseAll(foreign, Any);
}

std::optional<std::size_t> Id3v2Tag::FindProperty(std::string_view description) const {
  return Find("COMM", [&](const FrameText& text) { return text.description == description; });
}

std::string Id3v2Tag::Property(std::string_view description) const {
  return TextOf(FindProperty(description));
}

void Id3v2Tag::SetProperty(std::string_view description, const std::string& text) {
  const auto place = FindProperty(description);
  if (TextOf(place) == text) return;
  if (place && !text.empty()) SetText(*place, text);
  // Whatever else has this description would be the property once this one is gone.
  EraseAll("COMM", [&](const FrameText& frame) { return frame.description == description && frame.text != text; });
  if (!place && !text.empty()) {
    AddText("COMM", {EncodingForNew(text, description, raw_.version), kNewLanguage, std::string(description), text});
  }
}

std::vector<std::size_t> Id3v2Tag::CommentPlaces() const {
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < raw_.frames.size(); ++place) {
    if (raw_.frames[place].id != "COMM") continue;
    const auto text = TextIn(raw_.frames[place], FrameKind::kComment);
    if (text && !IsProperty(text->description)) places.push_back(place);
  }
  return places;
}

std::vector<TagComment> Id3v2Tag::Comments() const {
  std::vector<TagComment> comments;
  for (const std::size_t place : CommentPlaces()) {
    const auto text = TextIn(raw_.frames[place], FrameKind::kComment);
    comments.push_back({text->description, text->text});
  }
  return comments;
}

RawFrame Id3v2Tag::NewComment(const TagComment& comment) const {
  const auto encoding = EncodingForNew(comment.text, comment.description, raw_.version);
  RawFrame frame{"COMM", 0, {}};
  ReplaceContent(
      frame,
      EncodeFrameText(FrameKind::kComment, {encoding, kNewLanguage, comment.description, comment.text}, raw_.version),
      raw_);
  return frame;
}

void Id3v2Tag::SetComments(const std::vector<TagComment>& comments) {
  const std::vector<std::size_t> places = CommentPlaces();
  const std::vector<TagComment> present = Comments();
  if (comments == present) return;
  Stock<std::pair<std::string, std::string>> same;
  Stock<std::string> same_description;
  for (std::size_t i = 0; i < present.size(); ++i) {
    same.Add({present[i].description, present[i].text}, i);
    same_description.Add(present[i].description, i);
  }

  // First whatever stays as it is, then what only changes its text; the rest is new.
  std::vector<bool> taken(present.size());
  std::vector<std::optional<std::size_t>> sources;
  for (const TagComment& comment : comments) sources.push_back(same.Take({comment.description, comment.text}, taken));
  std::vector<RawFrame> frames;
  for (std::size_t i = 0; i < comments.size(); ++i) {
    if (!sources[i] && !IsProperty(comments[i].description)) {
      sources[i] = same_description.Take(comments[i].description, taken);
      if (sources[i]) SetText(places[*sources[i]], comments[i].text);
    }
    frames.push_back(sources[i] ? raw_.frames[places[*sources[i]]] : NewComment(comments[i]));
  }
  Put(places, std::move(frames));
}

std::vector<std::size_t> Id3v2Tag::PicturePlaces() const {
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < raw_.frames.size(); ++place) {
    if (raw_.frames[place].id != "APIC") continue;
    const auto content = PlainContent(raw_.frames[place], raw_);
    if (content && DecodePicture(*content)) places.push_back(place);
  }
  return places;
}

std::vector<TagPicture> Id3v2Tag::Pictures() const {
  std::vector<TagPicture> pictures;
  for (const std::size_t place : PicturePlaces()) {
    const auto content = PlainContent(raw_.frames[place], raw_);
    const auto picture = DecodePicture(*content);
    pictures.push_back({picture->description, picture->mime_type, Bytes(picture->data.begin(), picture->data.end())});
  }
  return pictures;
}

RawFrame Id3v2Tag::NewPicture(const TagPicture& picture, bool first) const {
  const auto encoding = EncodingForNew(picture.description, "", raw_.version);
  const std::uint8_t type = first ? kFrontCover : 0;
  RawFrame frame{"APIC", 0, {}};
  ReplaceContent(
      frame, EncodePicture({encoding, picture.mime_type, type, picture.description, BytesView(picture.data)}), raw_);
  return frame;
}

void Id3v2Tag::SetPictures(const std::vector<TagPicture>& pictures) {
  const std::vector<std::size_t> places = PicturePlaces();
  const std::vector<TagPicture> present = Pictures();
  if (pictures == present) return;
  Stock<std::pair<std::string, Bytes>> same;
  for (std::size_t i = 0; i < present.size(); ++i) same.Add({present[i].description, present[i].data}, i);

  std::vector<bool> taken(present.size());
  std::vector<RawFrame> frames;
  for (const TagPicture& picture : pictures) {
    const auto source = same.Take({picture.description, picture.data}, taken);
    frames.push_back(source ? raw_.frames[places[*source]] : NewPicture(picture, frames.empty()));
  }
  Put(places, std::move(frames));
}

// Puts frames where others of their kind stood; more of them follow behind the last, or at the end.
void Id3v2Tag::Put(const std::vector<std::size_t>& places, std::vector<RawFrame> frames) {
  std::vector<RawFrame> result;
  std::size_t next = 0;
  const auto put_all = [&] {
    while (next < frames.size()) result.push_back(std::move(frames[next++]));
  };
  std::size_t passed = 0;
  for (std::size_t place = 0; place < raw_.frames.size(); ++place) {
    if (passed == places.size() || place != places[passed]) {
      result.push_back(std::move(raw_.frames[place]));
      continue;
    }
    ++passed;
    if (next < frames.size()) result.push_back(std::move(frames[next++]));
    if (passed == places.size()) put_all();
  }
  put_all();
  raw_.frames = std::move(result);
}

void Id3v2Tag::EnsureNotEmpty() {
  if (raw_.frames.empty()) AddText("TIT2", {});
}

}  // namespace qublet
