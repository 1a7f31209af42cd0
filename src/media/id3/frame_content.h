#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "media/id3/bytes.h"
#include "media/id3/text_encoding.h"

namespace qublet {

// What stands inside the frames that are shown.

// The layouts that hold a text: T***, W***, TXXX, WXXX, and COMM or USLT.
enum class FrameKind { kText, kUrl, kUserText, kUserUrl, kComment };

// Nothing for a frame that holds no text of these kinds.
std::optional<FrameKind> KindOf(std::string_view id);

struct FrameText {
  TextEncoding encoding = TextEncoding::kLatin1;
  std::string language;     // three characters; only of kComment
  std::string description;  // not of kText and kUrl
  std::string text;         // several values of one frame are joined by "/"
};

// With "/" between them; empty ones at the end are left out.
std::string JoinedValues(const std::vector<std::string>& values);

// Nothing when the bytes don't follow the layout.
std::optional<FrameText> DecodeFrameText(FrameKind kind, BytesView content);
// In the encoding that `text` names if everything fits it and the version (3 or 4) knows it, else in UTF-16 or, for
// version 4, UTF-8. A URL is always Latin-1, or UTF-8 when it doesn't fit.
Bytes EncodeFrameText(FrameKind kind, const FrameText& text, int version);

struct PictureFrame {
  TextEncoding encoding = TextEncoding::kLatin1;
  std::string mime_type;
  std::uint8_t type = 0;  // 3 is the front cover
  std::string description;
  BytesView data;  // inside the bytes that were decoded
};

// APIC. Nothing when the bytes don't follow the layout.
std::optional<PictureFrame> DecodePicture(BytesView content);
// In the encoding that `picture` names.
Bytes EncodePicture(const PictureFrame& picture);

// Of a picture's first bytes: "image/bmp", "image/jpeg", "image/gif", "image/png", "image/webp", "image/tiff", else
// "image/".
std::string MimeTypeOf(BytesView picture);

// The encoding for new texts: Latin-1 when all of them fit it, else the version's own.
TextEncoding EncodingForNew(std::string_view text, std::string_view description, int version);

}  // namespace qublet
