#include "media/id3/frame_content.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

using namespace std::string_literals;

std::optional<FrameText> Decode(FrameKind kind, const std::string& content) {
  return DecodeFrameText(kind, AsBytes(content));
}

std::string Encode(FrameKind kind, const FrameText& text, int version = 3) {
  return std::string(AsText(EncodeFrameText(kind, text, version)));
}

TEST(KindOf, GoesByTheId) {
  EXPECT_EQ(KindOf("TIT2"), FrameKind::kText);
  EXPECT_EQ(KindOf("WOAR"), FrameKind::kUrl);
  EXPECT_EQ(KindOf("TXXX"), FrameKind::kUserText);
  EXPECT_EQ(KindOf("WXXX"), FrameKind::kUserUrl);
  EXPECT_EQ(KindOf("USLT"), FrameKind::kComment);
  EXPECT_FALSE(KindOf("APIC").has_value());
  EXPECT_FALSE(KindOf("TT2").has_value());
}

TEST(DecodeFrameText, TakesTextAsItStands) {
  EXPECT_EQ(Decode(FrameKind::kText, "\0(17)Rock"s)->text, "(17)Rock");
  EXPECT_EQ(Decode(FrameKind::kText,
                   "\0"
                   "3/12\0"s)
                ->text,
            "3/12");
  EXPECT_EQ(Decode(FrameKind::kText, "\0"s)->text, "");
  EXPECT_EQ(Decode(FrameKind::kText, "")->text, "");
}

TEST(DecodeFrameText, JoinsSeveralValues) {
  EXPECT_EQ(Decode(FrameKind::kText, "\0a\0b\0\0c\0\0"s)->text, "a/b//c");
  EXPECT_EQ(Decode(FrameKind::kText, "\0\0a"s)->text, "/a");
}

TEST(DecodeFrameText, ReadsDescriptionAndLanguage) {
  const auto comment = Decode(FrameKind::kComment, "\0deuwhat\0it says"s);
  EXPECT_EQ(comment->language, "deu");
  EXPECT_EQ(comment->description, "what");
  EXPECT_EQ(comment->text, "it says");
  EXPECT_EQ(Decode(FrameKind::kUserText, "\0\0mine"s)->text, "mine");
  EXPECT_EQ(Decode(FrameKind::kComment, "\0engdescribed\0"s)->description, "described");
}

TEST(DecodeFrameText, ReadsAUrlAsLatin1WhateverTheEncoding) {
  const auto url = Decode(FrameKind::kUserUrl,
                          "\x01\xFF\xFE"
                          "d\0\0\0http://x\0y"s);
  EXPECT_EQ(url->description, "d");
  EXPECT_EQ(url->text, "http://x");
  EXPECT_EQ(Decode(FrameKind::kUrl, "http://caf\xE9")->text, "http://café");
}

TEST(DecodeFrameText, RefusesWhatDoesNotFollowTheLayout) {
  EXPECT_FALSE(Decode(FrameKind::kText, "\x07text").has_value());
  EXPECT_FALSE(Decode(FrameKind::kUserText, "").has_value());
  EXPECT_FALSE(Decode(FrameKind::kUserText, "\0no end"s).has_value());
  EXPECT_FALSE(Decode(FrameKind::kComment, "\0en"s).has_value());
}

TEST(EncodeFrameText, WritesWhatIsReadBack) {
  for (const int version : {3, 4}) {
    for (const auto encoding :
         {TextEncoding::kLatin1, TextEncoding::kUtf16, TextEncoding::kUtf16BigEndian, TextEncoding::kUtf8}) {
      const FrameText text{encoding, "eng", "Beschreibung ü", "Текст"};
      const auto back = Decode(FrameKind::kComment, Encode(FrameKind::kComment, text, version));
      EXPECT_EQ(back->language, "eng");
      EXPECT_EQ(back->description, text.description);
      EXPECT_EQ(back->text, text.text);
    }
  }
}

TEST(EncodeFrameText, KeepsTheEncodingThatTheVersionKnows) {
  EXPECT_EQ(Encode(FrameKind::kText, {TextEncoding::kUtf8, "", "", "a"}, 4),
            "\x03"
            "a");
  EXPECT_EQ(Encode(FrameKind::kText, {TextEncoding::kUtf8, "", "", "a"}, 3),
            "\x01\xFF\xFE"
            "a\0"s);
  EXPECT_EQ(Encode(FrameKind::kText, {TextEncoding::kLatin1, "", "", "€"}, 4), "\x03€");
  EXPECT_EQ(Encode(FrameKind::kText, {TextEncoding::kLatin1, "", "", "é"}, 3), "\0\xE9"s);
}

TEST(EncodeFrameText, LeavesAnEmptyTextFrameItsEncodingOnly) {
  EXPECT_EQ(Encode(FrameKind::kText, {}), "\0"s);
  EXPECT_EQ(Encode(FrameKind::kText, {TextEncoding::kUtf16, "", "", ""}), "\x01");
}

TEST(EncodeFrameText, LosesNoLetterOfAUrl) {
  const std::string url = Encode(FrameKind::kUrl, {TextEncoding::kLatin1, "", "", "http://пример"});
  EXPECT_EQ(Decode(FrameKind::kUrl, url)->text, "http://пример");
  const std::string odd = Encode(FrameKind::kUrl, {TextEncoding::kLatin1, "", "", "http://Ã©"});
  EXPECT_EQ(Decode(FrameKind::kUrl, odd)->text, "http://Ã©");
}

TEST(DecodePicture, TakesThePartsApart) {
  const std::string content =
      "\0image/png\0\x03"
      "cover\0\x89PNG"s;
  const auto picture = DecodePicture(AsBytes(content));
  EXPECT_EQ(picture->mime_type, "image/png");
  EXPECT_EQ(picture->type, 3);
  EXPECT_EQ(picture->description, "cover");
  EXPECT_EQ(AsText(picture->data), "\x89PNG");
  EXPECT_EQ(AsText(EncodePicture(*picture)), content);
}

TEST(DecodePicture, RefusesWhatDoesNotFollowTheLayout) {
  EXPECT_FALSE(DecodePicture(AsBytes("")).has_value());
  EXPECT_FALSE(DecodePicture(AsBytes("\0image/png"s)).has_value());
  EXPECT_FALSE(DecodePicture(AsBytes("\0image/png\0"s)).has_value());
  EXPECT_FALSE(DecodePicture(AsBytes("\0image/png\0\x03no end"s)).has_value());
}

TEST(MimeTypeOf, GoesByTheFirstBytes) {
  EXPECT_EQ(MimeTypeOf(AsBytes("BM123")), "image/bmp");
  EXPECT_EQ(MimeTypeOf(AsBytes("\xFF\xD8\xFF\xE0")), "image/jpeg");
  EXPECT_EQ(MimeTypeOf(AsBytes("GIF89a")), "image/gif");
  EXPECT_EQ(MimeTypeOf(AsBytes("\x89PNG\r\n")), "image/png");
  EXPECT_EQ(MimeTypeOf(AsBytes("RIFF1234WEBPVP8 ")), "image/webp");
  EXPECT_EQ(MimeTypeOf(AsBytes("")), "image/");
  EXPECT_EQ(MimeTypeOf(AsBytes("RIFF123")), "image/");
}

TEST(DecodePicture, BelievesAPictureWhereADescriptionInUtf16EndsWithOneZero) {
  const std::string jpeg = "\xFF\xD8\xFF\xE0 data\0\0more"s;
  const auto decoded = [&](const std::string& description) {
    const std::string content = "\x01image/jpeg\0\x03"s + description + jpeg;
    const auto picture = DecodePicture(AsBytes(content));
    EXPECT_TRUE(picture.has_value());
    return std::pair(picture->description, std::string(AsText(picture->data)));
  };
  EXPECT_EQ(decoded("\0"s), std::pair(""s, jpeg));
  EXPECT_EQ(decoded("cover\0"s), std::pair("cover"s, jpeg));
  EXPECT_EQ(decoded("\xFF\xFE"
                    "a\0b\0\0"s),
            std::pair("ab"s, jpeg));
  EXPECT_EQ(decoded("\xFF\xFE"
                    "a\0b\0\0\0"s),
            std::pair("ab"s, jpeg));
  EXPECT_EQ(decoded("\0\0"s), std::pair(""s, jpeg));
}

TEST(DecodePicture, TakesDataOfAnUnknownKindBehindTheWholeTerminator) {
  const std::string content =
      "\x01image/x\0\x03\xFF\xFE"
      "a\0\0\0what\0ever"s;
  const auto picture = DecodePicture(AsBytes(content));
  EXPECT_EQ(picture->description, "a");
  EXPECT_EQ(AsText(picture->data), "what\0ever"s);
}

}  // namespace
}  // namespace qublet
