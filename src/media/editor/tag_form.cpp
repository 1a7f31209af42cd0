#include "media/editor/tag_form.h"

#include "media/editor/form_texts.h"
#include "media/tag_fields.h"
#include "media/tag_file.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::array<std::string_view, kV2BoxCount> kV2Fields{
    "TIT2", "TPE1", "TALB", "TYER", "TRCK", "TCOM",       "TOPE", "TCOP",  "TENC",
    "WXXX", "USLT", "TXXX", "WOAR", "TCON", "Preference", "Mood", "Tempo", "Situation"};

constexpr std::array<std::string_view, kV1BoxCount> kV1Fields{"V1Title", "V1Artist", "V1Album", "V1Year",
                                                              "V1Comment"};
constexpr std::uint8_t kNoGenre = 254;

const TagField& Field(std::string_view name) {
  return *FindTagField(name);
}

int GenreCount() {
  static const int count = static_cast<int>(GenreEntries().size()) - 1;
  return count;
}

std::uint8_t GenreNumber(int entry) {
  return entry > 0 ? static_cast<std::uint8_t>(entry - 1) : kNoGenre;
}

void SelectGenre(std::uint8_t number, TagForm& form) {
  if (number == kNoGenre) form.v1_genre = 0;
  if (number < GenreCount()) form.v1_genre = number + 1;
}

std::uint8_t TrackNumber(const std::string& text) {
  std::int32_t number = 0;
  ResumeNext([&] { number = RoundHalfEven(NumericValue(text).value_or(0)); });
  return number >= 1 && number <= 254 ? static_cast<std::uint8_t>(number) : std::uint8_t{0};
}

void ShowId3v1(const TagObject& tag, bool present, TagForm& form) {
  form.id3v1_present = present;
  if (!present) {
    form.v1.fill("");
    form.v1_track.clear();
    form.v1_genre = 0;
    return;
  }
  for (std::size_t i = 0; i < kV1BoxCount; ++i) form.v1[i] = Field(kV1Fields[i]).get(tag, kV1Fields[i]);
  form.v1_track = std::to_string(tag.V1Track());
  SelectGenre(tag.V1Genre(), form);
}

void ShowId3v2(const TagObject& tag, bool present, TagForm& form) {
  form.id3v2_present = present;
  form.comments.clear();
  form.images.clear();
  if (!present) {
    form.v2.fill("");
    return;
  }
  for (std::size_t i = 0; i < kV2BoxCount; ++i) form.v2[i] = Field(kV2Fields[i]).get(tag, kV2Fields[i]);
  form.comments = tag.Comments().All();
  form.images = tag.Images().All();
}

}  // namespace

std::string_view FieldOf(Id3v2Box box) {
  return kV2Fields[box];
}

std::vector<std::string> GenreEntries() {
  std::vector<std::string> entries = Split(TagObject::GenreList(), '|');
  entries.insert(entries.begin(), "");
  return entries;
}

void ShowTag(const TagObject& tag, TagForm& form) {
  ShowId3v1(tag, tag.HasID3v1(), form);
  ShowId3v2(tag, tag.HasID3v2(), form);
}

void ShowClipboard(const TagClipboard& clipboard, TagForm& form) {
  ShowId3v1(clipboard.ClipboardTag, clipboard.ClipV1Present, form);
  ShowId3v2(clipboard.ClipboardTag, clipboard.ClipV2Present, form);
}

void CollectTag(const TagForm& form, TagObject& tag) {
  if (form.id3v1_present) {
    for (std::size_t i = 0; i < kV1BoxCount; ++i) Field(kV1Fields[i]).set(tag, kV1Fields[i], form.v1[i]);
    tag.SetV1Track(TrackNumber(form.v1_track));
    tag.SetV1Genre(GenreNumber(form.v1_genre));
  }
  if (form.id3v2_present) {
    for (std::size_t i = 0; i < kV2BoxCount; ++i) Field(kV2Fields[i]).set(tag, kV2Fields[i], form.v2[i]);
    tag.Images().Assign(form.images);
    tag.Comments().Assign(form.comments);
  }
}

void CollectToClipboard(const TagForm& form, TagClipboard& clipboard) {
  CollectTag(form, clipboard.ClipboardTag);
  clipboard.ClipV1Present = form.id3v1_present;
  clipboard.ClipV2Present = form.id3v2_present;
  clipboard.ClipboardFull = true;
}

TagWrite PlanUpdate(const FileSystem& files, const std::string& path, const TagForm& form) {
  RefuseAllButMp3(path);
  TagObject tag(files);
  tag.PrepareFile(path);
  tag.ReadTags(path, false);
  tag.Comments().Clear();
  tag.Images().Clear();
  CollectTag(form, tag);
  RefuseUnwritable(files, path);
  TagWrite write = tag.Plan(path, WrittenIf(form.id3v1_present), WrittenIf(form.id3v2_present));
  RefuseUnlessReadFrom(write, tag.Version());
  return write;
}

}  // namespace qublet
