#include "media/editor/tag_copies.h"

#include <array>
#include <utility>

#include "media/editor/form_texts.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::array<std::pair<Id3v1Box, Id3v2Box>, 4> kSameTexts{
    {{kV1Title, kV2Title}, {kV1Artist, kV2Artist}, {kV1Album, kV2Album}, {kV1Year, kV2Year}}};

void CopyTrack(const std::string& text, std::string& track) {
  if (NumericValue(text)) {
    track = text;
  } else if (Contains(text, "/")) {
    const std::string number = text.substr(0, text.find('/'));
    if (NumericValue(number)) track = number;
  }
}

void CopyGenre(const std::string& text, int& entry) {
  const std::string wanted = LowerCase(text);
  const std::vector<std::string> entries = GenreEntries();
  for (std::size_t i = 1; i < entries.size(); ++i) {
    if (!Contains(wanted, LowerCase(entries[i]))) continue;
    entry = static_cast<int>(i);
    return;
  }
}

}  // namespace

void CopyFromId3v1(TagForm& form) {
  for (const auto& [v1, v2] : kSameTexts) form.v2[v2] = form.v1[v1];
  form.v2[kV2Track] = form.v1_track;
  form.v2[kV2Genre] = form.v1_genre > 0 ? GenreEntries().at(static_cast<std::size_t>(form.v1_genre)) : "";
}

void CopyFromId3v2(TagForm& form) {
  for (const auto& [v1, v2] : kSameTexts) form.v1[v1] = form.v2[v2];
  CopyTrack(form.v2[kV2Track], form.v1_track);
  CopyGenre(form.v2[kV2Genre], form.v1_genre);
}

}  // namespace qublet
