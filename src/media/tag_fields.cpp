#include "media/tag_fields.h"

#include <algorithm>
#include <array>

#include "playlist/paths/numbers.h"

namespace qublet {
namespace {

using Get = std::string (TagObject::*)() const;
using Set = void (TagObject::*)(const std::string&);
using GetByte = std::uint8_t (TagObject::*)() const;
using SetByte = void (TagObject::*)(std::uint8_t);

template <Get get, Set set>
constexpr TagField Text(std::string_view name) {
  return {name, name.starts_with("V1"), [](const TagObject& tag, std::string_view) { return (tag.*get)(); },
          [](TagObject& tag, std::string_view, const std::string& text) { (tag.*set)(text); }};
}

template <GetByte get, SetByte set>
constexpr TagField Byte(std::string_view name) {
  return {name, true, [](const TagObject& tag, std::string_view) { return std::to_string((tag.*get)()); },
          [](TagObject& tag, std::string_view, const std::string& text) {
            const int number = TextToInteger16(text);
            if (number < 0 || number > 255) throw Failure("a number from 0 to 255 is wanted");
            (tag.*set)(static_cast<std::uint8_t>(number));
          }};
}

constexpr TagField Frame(std::string_view id) {
  return {id, false, [](const TagObject& tag, std::string_view name) { return tag.Frame(name); },
          [](TagObject& tag, std::string_view name, const std::string& text) { tag.SetFrame(name, text); }};
}

constexpr std::array kFields{
    Text<&TagObject::V1Title, &TagObject::SetV1Title>("V1Title"),
    Text<&TagObject::V1Artist, &TagObject::SetV1Artist>("V1Artist"),
    Text<&TagObject::V1Album, &TagObject::SetV1Album>("V1Album"),
    Text<&TagObject::V1Year, &TagObject::SetV1Year>("V1Year"),
    Text<&TagObject::V1Comment, &TagObject::SetV1Comment>("V1Comment"),
    Byte<&TagObject::V1Track, &TagObject::SetV1Track>("V1Track"),
    Byte<&TagObject::V1Genre, &TagObject::SetV1Genre>("V1Genre"),
    Frame("TIT2"),
    Frame("TPE1"),
    Frame("TALB"),
    Frame("TYER"),
    Frame("TRCK"),
    Frame("TCOM"),
    Frame("TOPE"),
    Frame("TCOP"),
    Frame("TENC"),
    Frame("WXXX"),
    Frame("USLT"),
    Frame("TXXX"),
    Frame("WOAR"),
    Frame("TCON"),
    Text<&TagObject::Preference, &TagObject::SetPreference>("Preference"),
    Text<&TagObject::Mood, &TagObject::SetMood>("Mood"),
    Text<&TagObject::Tempo, &TagObject::SetTempo>("Tempo"),
    Text<&TagObject::Situation, &TagObject::SetSituation>("Situation"),
};

}  // namespace

std::span<const TagField> TagFields() {
  return kFields;
}

const TagField* FindTagField(std::string_view name) {
  const auto* const field = std::ranges::find(kFields, name, &TagField::name);
  return field == kFields.end() ? nullptr : field;
}

}  // namespace qublet
