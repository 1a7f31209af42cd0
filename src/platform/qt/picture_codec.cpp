#include "platform/qt/picture_codec.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

namespace qublet {
namespace {

// As much as the largest bitmap that a tag can hold needs while it is read, at up to eight bytes a pixel.
constexpr int kReaderLimit = 768;  // MiB

constexpr qint64 kBitmapHead = 54;
constexpr int kDotsPerMeter = 3780;  // 96 an inch

// Rows of a bitmap fill whole words of four bytes.
qint64 BitmapLength(QSize size) {
  return kBitmapHead + (qint64{size.width()} * 3 + 3) / 4 * 4 * size.height();
}

class Source {
 public:
  explicit Source(std::span<const std::uint8_t> bytes)
      : bytes_(QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                       static_cast<qsizetype>(bytes.size()))) {
    buffer_.setBuffer(&bytes_);
    buffer_.open(QIODevice::ReadOnly);
    reader_.setDevice(&buffer_);
  }

  // What it will be once read; empty where it is none of the kinds that a tag's pictures are.
  QSize Size() {
    const QByteArray format = reader_.format();
    const bool known = format == "bmp" || format == "jpeg" || format == "gif" || format == "png";
    return known ? reader_.size() : QSize();
  }
  QImage Read() { return Size().isEmpty() ? QImage() : reader_.read(); }

 private:
  QByteArray bytes_;
  QBuffer buffer_;
  QImageReader reader_;
};

QImage OnWhite(const QImage& picture) {
  QImage opaque(picture.size(), QImage::Format_RGB32);
  if (opaque.isNull()) return opaque;
  // How large it would be on paper is the same for all, whatever the picture or the screen says.
  opaque.setDotsPerMeterX(kDotsPerMeter);
  opaque.setDotsPerMeterY(kDotsPerMeter);
  opaque.fill(Qt::white);
  QPainter(&opaque).drawImage(QRect(QPoint(), picture.size()), picture);
  return opaque;
}

}  // namespace

QtPictureCodec::QtPictureCodec() {
  QImageReader::setAllocationLimit(kReaderLimit);
}

bool QtPictureCodec::IsPicture(std::span<const std::uint8_t> bytes) const {
  return !DecodedPicture(bytes).isNull();
}

std::optional<std::vector<std::uint8_t>> QtPictureCodec::AsBitmap(std::span<const std::uint8_t> bytes,
                                                                  std::size_t longest) const {
  Source source(bytes);
  const QSize size = source.Size();
  if (size.isEmpty() || static_cast<std::size_t>(BitmapLength(size)) > longest) return std::nullopt;
  const QImage picture = source.Read();
  if (picture.isNull()) return std::nullopt;
  const QImage opaque = OnWhite(picture);
  QByteArray written;
  QBuffer target(&written);
  if (opaque.isNull() || !QImageWriter(&target, "bmp").write(opaque)) return std::nullopt;
  return std::vector<std::uint8_t>(written.begin(), written.end());
}

QImage DecodedPicture(std::span<const std::uint8_t> bytes) {
  return Source(bytes).Read();
}

}  // namespace qublet
