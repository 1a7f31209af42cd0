#include "media/id3/frame_content.h"

#include <algorithm>

#include "platform/code_page.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::size_t kLanguageLength = 3;

struct Layout {
  bool encoding;
  bool language;
  bool description;
  bool url;       // the text is Latin-1 whatever the encoding says
  bool multiple;  // terminators separate values
};

constexpr Layout LayoutOf(FrameKind kind) {
  switch (kind) {
    case FrameKind::kText:
      return {true, false, false, false, true};
    case FrameKind::kUrl:
      return {false, false, false, true, false};
    case FrameKind::kUserText:
      return {true, false, true, false, true};
    case FrameKind::kUserUrl:
      return {true, false, true, true, false};
    case FrameKind::kComment:
      return {true, true, true, false, false};
  }
  return {};
}

std::string ReadValues(StringReader& reader) {
  std::vector<std::string> values;
  while (!reader.AtEnd()) values.push_back(reader.Next());
  return JoinedValues(values);
}

std::string ReadUrl(BytesView content) {
  const BytesView url = content.first(std::min<std::size_t>(content.size(), AsText(content).find('\0')));
  return IsValidUtf8(AsText(url)) ? std::string(AsText(url)) : FromLatin1(url);
}

bool Suits(TextEncoding encoding, const FrameText& text, bool url, int version) {
  if (encoding == TextEncoding::kLatin1) return FitsLatin1(text.description) && (url || FitsLatin1(text.text));
  return encoding == TextEncoding::kUtf16 || version == 4;
}

TextEncoding OwnEncoding(int version) {
  return version == 4 ? TextEncoding::kUtf8 : TextEncoding::kUtf16;
}

bool IsPicture(BytesView data) {
  return MimeTypeOf(data) != "image/";
}

// Some programs end a description in UTF-16 with one zero, or write a zero for an empty one. It is the first zero
// that a picture follows.
std::optional<std::size_t> SingleZeroInFrontOfPicture(BytesView bytes, TextEncoding encoding) {
  constexpr std::size_t kLongest = 1024;
  if (encoding != TextEncoding::kUtf16 && encoding != TextEncoding::kUtf16BigEndian) return std::nullopt;
  for (std::size_t at = 0; at < std::min(bytes.size(), kLongest); ++at) {
    if (bytes[at] == 0 && IsPicture(bytes.subspan(at + 1))) return at;
  }
  return std::nullopt;
}

// A description that ends so may not be UTF-16 at all.
std::string FirstString(BytesView bytes, TextEncoding encoding) {
  const bool marked =
      bytes.size() >= 2 && ((bytes[0] == 0xFF && bytes[1] == 0xFE) || (bytes[0] == 0xFE && bytes[1] == 0xFF));
  const bool wide = marked || (encoding == TextEncoding::kUtf16BigEndian && bytes.size() % 2 == 0);
  return StringReader(bytes, wide ? encoding : TextEncoding::kLatin1).Next();
}

}  // namespace

std::optional<FrameKind> KindOf(std::string_view id) {
  if (id.size() != 4) return std::nullopt;
  if (id == "TXXX") return FrameKind::kUserText;
  if (id == "WXXX") return FrameKind::kUserUrl;
  if (id == "COMM" || id == "USLT") return FrameKind::kComment;
  if (id[0] == 'T') return FrameKind::kText;
  if (id[0] == 'W') return FrameKind::kUrl;
  return std::nullopt;
}

std::string JoinedValues(const std::vector<std::string>& values) {
  std::string joined;
  std::string separators;  // of empty values, which count only when another one follows
  bool first = true;
  for (const std::string& value : values) {
    if (!first) separators += '/';
    first = false;
    if (value.empty()) continue;
    joined += separators + value;
    separators.clear();
  }
  return joined;
}

std::optional<FrameText> DecodeFrameText(FrameKind kind, BytesView content) {
  const Layout layout = LayoutOf(kind);
  FrameText result;
  if (layout.encoding) {
    if (content.empty()) return kind == FrameKind::kText ? std::optional(result) : std::nullopt;
    if (!IsTextEncoding(content[0])) return std::nullopt;
    result.encoding = static_cast<TextEncoding>(content[0]);
    content = content.subspan(1);
  }
  if (layout.language) {
    if (content.size() < kLanguageLength) return std::nullopt;
    result.language = AsText(content.first(kLanguageLength));
    content = content.subspan(kLanguageLength);
  }

  StringReader reader(content, result.encoding);
  if (layout.description) {
    result.description = reader.Next();
    if (!reader.WasTerminated()) return std::nullopt;
  }
  if (layout.url) {
    result.text = ReadUrl(reader.Rest());
  } else {
    result.text = layout.multiple ? ReadValues(reader) : reader.Next();
  }
  return result;
}

Bytes EncodeFrameText(FrameKind kind, const FrameText& text, int version) {
  const Layout layout = LayoutOf(kind);
  const TextEncoding encoding =
      Suits(text.encoding, text, layout.url, version) ? text.encoding : OwnEncoding(version);
  Bytes out;
  if (layout.encoding) out.push_back(static_cast<std::uint8_t>(encoding));
  if (layout.language) Append(out, (text.language + "   ").substr(0, kLanguageLength));
  if (layout.description) {
    Append(out, EncodeString(text.description, encoding));
    AppendTerminator(out, encoding);
  }
  // An empty text frame is its encoding byte and nothing more.
  if (kind == FrameKind::kText && text.text.empty()) return out;
  if (layout.url) {
    const Bytes latin1 = EncodeString(text.text, TextEncoding::kLatin1);
    Append(out, ReadUrl(latin1) == text.text ? latin1 : EncodeString(text.text, TextEncoding::kUtf8));
  } else {
    Append(out, EncodeString(text.text, encoding));
  }
  return out;
}

std::optional<PictureFrame> DecodePicture(BytesView content) {
  if (content.empty() || !IsTextEncoding(content[0])) return std::nullopt;
  PictureFrame picture;
  picture.encoding = static_cast<TextEncoding>(content[0]);
  StringReader mime(content.subspan(1), TextEncoding::kLatin1);
  picture.mime_type = mime.Next();
  if (!mime.WasTerminated() || mime.AtEnd()) return std::nullopt;
  picture.type = mime.Rest()[0];
  const BytesView rest = mime.Rest().subspan(1);
  StringReader description(rest, picture.encoding);
  picture.description = description.Next();
  picture.data = description.Rest();
  if (description.WasTerminated() && IsPicture(picture.data)) return picture;
  if (const auto end = SingleZeroInFrontOfPicture(rest, picture.encoding)) {
    picture.description = FirstString(rest.first(*end), picture.encoding);
    picture.data = rest.subspan(*end + 1);
    return picture;
  }
  return description.WasTerminated() ? std::optional(picture) : std::nullopt;
}

Bytes EncodePicture(const PictureFrame& picture) {
  Bytes out = {static_cast<std::uint8_t>(picture.encoding)};
  Append(out, EncodeString(picture.mime_type, TextEncoding::kLatin1));
  out.push_back(0);
  out.push_back(picture.type);
  Append(out, EncodeString(picture.description, picture.encoding));
  AppendTerminator(out, picture.encoding);
  Append(out, picture.data);
  return out;
}

std::string MimeTypeOf(BytesView picture) {
  const std::string_view bytes = AsText(picture.first(std::min<std::size_t>(picture.size(), 16)));
  if (bytes.starts_with("BM")) return "image/bmp";
  if (bytes.starts_with("\xFF\xD8\xFF")) return "image/jpeg";
  if (bytes.starts_with("GIF8")) return "image/gif";
  if (bytes.starts_with("\x89PNG")) return "image/png";
  if (bytes.starts_with("RIFF") && bytes.find("WEBP", 8) == 8) return "image/webp";
  if (bytes.starts_with("II*") || bytes.starts_with(std::string_view("MM\0*", 4))) return "image/tiff";
  return "image/";
}

TextEncoding EncodingForNew(std::string_view text, std::string_view description, int version) {
  return FitsLatin1(text) && FitsLatin1(description) ? TextEncoding::kLatin1 : OwnEncoding(version);
}

}  // namespace qublet
