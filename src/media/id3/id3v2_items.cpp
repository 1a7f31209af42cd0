// The comments and pictures of a tag.

#include <algorithm>
#include <iterator>
#include <map>

#include "media/id3/id3v2_tag.h"

namespace qublet {
namespace {

constexpr std::uint8_t kFrontCover = 3;

bool IsProperty(std::string_view description) {
  return std::ranges::find(kPropertyDescriptions, description) != std::end(kPropertyDescriptions);
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

Id3v2Tag::Places Id3v2Tag::CommentPlaces() const {
  Places places;
  for (std::size_t place = 0; place < raw_.frames.size(); ++place) {
    if (ShownId(raw_.frames[place]) != "COMM") continue;
    const auto text = TextIn(raw_.frames[place], FrameKind::kComment);
    if (text && !IsProperty(text->description)) places.push_back(place);
  }
  return places;
}

std::vector<TagComment> Id3v2Tag::Comments() const {
  std::vector<TagComment> comments;
  for (const std::size_t place : CommentPlaces()) {
    const auto text = TextIn(raw_.frames[place], FrameKind::kComment);
    comments.push_back({text->description, text->text, text->language});
  }
  return comments;
}

RawFrame Id3v2Tag::NewComment(const TagComment& comment) const {
  const auto encoding = EncodingForNew(comment.text, comment.description, raw_.version);
  const std::string language = comment.language.size() == 3 ? comment.language : kNewLanguage;
  RawFrame frame{"COMM", 0, {}};
  ReplaceContent(
      frame,
      EncodeFrameText(FrameKind::kComment, {encoding, language, comment.description, comment.text}, raw_.version),
      raw_);
  return frame;
}

void Id3v2Tag::SetComments(const std::vector<TagComment>& comments) {
  const Places places = CommentPlaces();
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

Id3v2Tag::Places Id3v2Tag::PicturePlaces() const {
  Places places;
  for (std::size_t place = 0; place < raw_.frames.size(); ++place) {
    if (ShownId(raw_.frames[place]) != "APIC") continue;
    Bytes room;
    const auto content = ContentOf(raw_.frames[place], room);
    if (content && DecodePicture(*content)) places.push_back(place);
  }
  return places;
}

std::vector<TagPicture> Id3v2Tag::Pictures() const {
  std::vector<TagPicture> pictures;
  for (const std::size_t place : PicturePlaces()) {
    Bytes room;
    const auto content = ContentOf(raw_.frames[place], room);
    const auto picture = DecodePicture(*content);
    const SharedBytes whole = room.empty() ? raw_.frames[place].content : SharedBytes(std::move(room));
    pictures.push_back({picture->description, picture->mime_type, whole.Part(picture->data), picture->type});
  }
  return pictures;
}

RawFrame Id3v2Tag::NewPicture(const TagPicture& picture, bool first) const {
  const auto encoding = EncodingForNew(picture.description, "", raw_.version);
  const std::uint8_t type = picture.type.value_or(first ? kFrontCover : 0);
  RawFrame frame{"APIC", 0, {}};
  ReplaceContent(
      frame, EncodePicture({encoding, picture.mime_type, type, picture.description, BytesView(picture.data)}), raw_);
  return frame;
}

void Id3v2Tag::SetPictures(const std::vector<TagPicture>& pictures) {
  const Places places = PicturePlaces();
  const std::vector<TagPicture> present = Pictures();
  if (pictures == present) return;
  Stock<std::pair<std::string, SharedBytes>> same;
  for (std::size_t i = 0; i < present.size(); ++i) same.Add({present[i].description, present[i].data}, i);

  std::vector<bool> taken(present.size());
  std::vector<RawFrame> frames;
  for (const TagPicture& picture : pictures) {
    const auto source = same.Take({picture.description, picture.data}, taken);
    frames.push_back(source ? raw_.frames[places[*source]] : NewPicture(picture, frames.empty()));
  }
  Put(places, std::move(frames));
}

// Puts frames where others of their kind stood; more of them follow behind the last, or where new frames stand.
void Id3v2Tag::Put(const Places& places, std::vector<RawFrame> frames) {
  const std::size_t place_for_more = places.empty() ? PlaceForNew() : std::min(places.back() + 1, PlaceForNew());
  std::vector<RawFrame> result;
  std::size_t next = 0;
  for (std::size_t place = 0; place <= raw_.frames.size(); ++place) {
    if (place == place_for_more && frames.size() > places.size()) {
      std::move(frames.begin() + static_cast<std::ptrdiff_t>(places.size()), frames.end(),
                std::back_inserter(result));
    }
    if (place == raw_.frames.size()) break;
    const bool stood_here = next < places.size() && places[next] == place;
    if (!stood_here) {
      result.push_back(std::move(raw_.frames[place]));
    } else if (next++; next <= frames.size()) {
      result.push_back(std::move(frames[next - 1]));
    }
  }
  raw_.frames = std::move(result);
}

}  // namespace qublet
