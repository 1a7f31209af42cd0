#include "platform/qt/picture_codec.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPainter>

namespace qublet {
namespace {

constexpr std::size_t kAnyLength = 1 << 28;

using Bytes = std::vector<std::uint8_t>;

Bytes Encoded(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  EXPECT_TRUE(image.save(&buffer, format)) << format;
  return Bytes(bytes.begin(), bytes.end());
}

QImage Shown(const Bytes& bytes) {
  return QImage::fromData(bytes.data(), static_cast<int>(bytes.size())).convertToFormat(QImage::Format_RGB32);
}

// Five pixels wide, so that rows of a bitmap don't end where words do.
QImage Drawn(QImage::Format format = QImage::Format_RGB32) {
  QImage image(5, 3, format);
  image.fill(Qt::red);
  image.setPixelColor(1, 1, Qt::blue);
  return image;
}

// The smallest there is: one white pixel.
const Bytes kGif = {'G', 'I',  'F', '8', '9', 'a', 1, 0, 1, 0, 0x80, 0, 0, 0xFF, 0xFF, 0xFF, 0,   0,
                    0,   0x2C, 0,   0,   0,   0,   1, 0, 1, 0, 0,    2, 2, 0x44, 1,    0,    0x3B};

class PictureCodecTest : public testing::Test {
 protected:
  QtPictureCodec codec_;
};

TEST_F(PictureCodecTest, MakesABitmapOfTwentyFourBitsOfEveryKind) {
  for (const char* format : {"png", "bmp", "jpg"}) {
    const auto bitmap = codec_.AsBitmap(Encoded(Drawn(), format), kAnyLength);
    ASSERT_TRUE(bitmap) << format;
    EXPECT_EQ(std::string(bitmap->begin(), bitmap->begin() + 2), "BM");
    EXPECT_EQ((*bitmap)[28], 24) << "bits a pixel";
    EXPECT_EQ(bitmap->size(), 54u + 3 * 16) << format;
  }
  EXPECT_EQ(Shown(*codec_.AsBitmap(Encoded(Drawn(), "png"), kAnyLength)), Drawn());
  ASSERT_TRUE(codec_.AsBitmap(kGif, kAnyLength));
  EXPECT_EQ(Shown(*codec_.AsBitmap(kGif, kAnyLength)).pixelColor(0, 0), QColor(Qt::white));
}

TEST_F(PictureCodecTest, GivesTheSameBytesForItsOwnBitmap) {
  QImage dense = Drawn();
  dense.setDotsPerMeterX(11811);
  const Bytes once = *codec_.AsBitmap(Encoded(dense, "png"), kAnyLength);
  EXPECT_EQ(*codec_.AsBitmap(once, kAnyLength), once);
}

TEST_F(PictureCodecTest, PutsTransparencyOnWhite) {
  QImage image = Drawn(QImage::Format_ARGB32);
  image.setPixelColor(0, 0, Qt::transparent);
  image.setPixelColor(2, 0, QColor(0, 0, 0, 128));
  const QImage shown = Shown(*codec_.AsBitmap(Encoded(image, "png"), kAnyLength));
  EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::white));
  EXPECT_NEAR(shown.pixelColor(2, 0).red(), 127, 1);
}

TEST_F(PictureCodecTest, ReadsSixteenBitsAChannel) {
  const Bytes png = Encoded(Drawn().convertToFormat(QImage::Format_RGBA64), "png");
  EXPECT_EQ(png[24], 16) << "bits a channel";
  EXPECT_EQ(Shown(*codec_.AsBitmap(png, kAnyLength)), Drawn());
}

TEST_F(PictureCodecTest, RefusesWhatIsNoPictureOfItsKinds) {
  for (const Bytes& bytes : {Bytes{}, Bytes{'B', 'M'}, Bytes{0x89, 'P', 'N', 'G', 0, 1, 2}, Bytes(100, 'x'),
                             Encoded(Drawn(), "ppm"), Encoded(Drawn(), "xpm")}) {
    EXPECT_FALSE(codec_.IsPicture(bytes));
    EXPECT_FALSE(codec_.AsBitmap(bytes, kAnyLength));
  }
  EXPECT_TRUE(codec_.IsPicture(kGif));
}

TEST_F(PictureCodecTest, RefusesABitmapThatWouldBeTooLong) {
  const Bytes png = Encoded(Drawn(), "png");
  EXPECT_TRUE(codec_.AsBitmap(png, 54 + 3 * 16));
  EXPECT_FALSE(codec_.AsBitmap(png, 54 + 3 * 16 - 1));
}

// Its head tells of 60,000 times 60,000 pixels.
TEST_F(PictureCodecTest, RefusesAPictureThatClaimsMoreThanMemoryHolds) {
  Bytes png = Encoded(Drawn(QImage::Format_Mono), "png");
  png[18] = png[22] = 0xEA;
  png[19] = png[23] = 0x60;
  EXPECT_FALSE(codec_.IsPicture(png));
  EXPECT_FALSE(codec_.AsBitmap(png, kAnyLength));
}

}  // namespace
}  // namespace qublet
