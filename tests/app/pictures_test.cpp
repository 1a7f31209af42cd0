#include "platform/qt/pictures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <map>
#include <string>

namespace qublet {
namespace {

constexpr int kSizes[] = {16, 24, 32};

// Every drawing that a button, a menu, a row or a window asks for by name.
const QStringList kAskedFor{
    "new",        "open",  "save",       "save-relative", "add",      "remove",    "move-up", "move-down", "play",
    "preview",    "tag",   "tools",      "help",          "search",   "purge",     "rename",  "bookmark",  "report",
    "autocreate", "cd",    "row-normal", "row-missing",   "row-blue", "row-green", "row-red", "warning",   "program",
    "copy",       "paste", "refresh",    "undo",          "previous", "next"};
const QStringList kOwnColours{"row-normal", "row-missing", "row-blue", "row-green", "row-red", "warning", "program"};

QImage Drawn(const QString& name, int side, QIcon::Mode mode = QIcon::Normal) {
  return Picture(name).pixmap(QSize(side, side), 1.0, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

// Calls `look` with the colour of every pixel that can be seen.
template <typename Look>
void ForEachInked(const QImage& image, Look look) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (const QColor colour = image.pixelColor(x, y); colour.alpha() > 0) look(colour);
    }
  }
}

double InkedShare(const QImage& image) {
  int inked = 0;
  ForEachInked(image, [&](const QColor& colour) { inked += colour.alpha() >= 64; });
  return double(inked) / (image.width() * image.height());
}

// How far the picture stands out from a ground of that colour, 0 to 255: the mean over its visible pixels.
double Contrast(const QImage& image, const QColor& ground) {
  double sum = 0;
  int inked = 0;
  ForEachInked(image, [&](const QColor& colour) {
    const int apart = std::max({std::abs(colour.red() - ground.red()), std::abs(colour.green() - ground.green()),
                                std::abs(colour.blue() - ground.blue())});
    sum += double(apart) * double(colour.alphaF());
    ++inked;
  });
  return inked == 0 ? 0 : sum / inked;
}

// The application's palette for the time of a test.
class Palette {
 public:
  Palette(const QColor& window, const QColor& text) {
    QPalette palette = before_;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    QApplication::setPalette(palette);
  }
  ~Palette() { QApplication::setPalette(before_); }
  Palette(const Palette&) = delete;
  Palette& operator=(const Palette&) = delete;

 private:
  const QPalette before_ = QApplication::palette();
};

TEST(Pictures, AreAllThere) {
  QStringList asked = kAskedFor;
  asked.sort();
  EXPECT_EQ(PictureNames().join(' ').toStdString(), asked.join(' ').toStdString());
  for (const QString& name : kAskedFor) EXPECT_FALSE(Picture(name).isNull()) << name.toStdString();
}

TEST(Pictures, GiveANullIconForANameThatIsNotDrawn) {
  EXPECT_TRUE(Picture("no-such-drawing").isNull());
  EXPECT_TRUE(Picture("").isNull());
}

TEST(Pictures, OfTheMenusAreNumberedFromOneToFifteen) {
  ASSERT_EQ(ImageList1.size(), 16U);
  for (std::size_t number = 1; number < ImageList1.size(); ++number) {
    EXPECT_FALSE(Picture(ImageList1[number]).isNull()) << number;
  }
  EXPECT_STREQ(ImageList1[1], "new");
  EXPECT_STREQ(ImageList1[8], "play");
  EXPECT_STREQ(ImageList1[15], "help");
}

TEST(Pictures, FillTheirSquareAtEverySize) {
  for (const QString& name : kAskedFor) {
    for (const int side : kSizes) {
      const QImage image = Drawn(name, side);
      ASSERT_EQ(image.size(), QSize(side, side)) << name.toStdString();
      EXPECT_GT(InkedShare(image), 0.15) << name.toStdString() << " at " << side;
    }
  }
}

TEST(Pictures, DifferFromEachOtherAtEverySize) {
  for (const int side : kSizes) {
    std::map<QByteArray, QString> seen;
    for (const QString& name : kAskedFor) {
      const QImage image = Drawn(name, side);
      const QByteArray pixels(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
      const auto [other, is_new] = seen.emplace(pixels, name);
      EXPECT_TRUE(is_new) << name.toStdString() << " looks like " << other->second.toStdString();
    }
  }
}

TEST(Pictures, StandOutFromLightAndFromDarkWindows) {
  const std::pair<QColor, QColor> desktops[] = {{"#ffffff", "#000000"}, {"#efefef", "#232629"},
                                                {"#2b2b2b", "#eeeeee"}, {"#000000", "#ffffff"},
                                                {"#fcfcfc", "#3b4248"}, {"#3b4248", "#fcfcfc"}};
  for (const auto& [window, text] : desktops) {
    const Palette palette(window, text);
    for (const QString& name : kAskedFor) {
      EXPECT_GT(Contrast(Drawn(name, 16), window), 60) << name.toStdString() << " on " << window.name().toStdString();
      EXPECT_GT(Contrast(Drawn(name, 16, QIcon::Disabled), window), 20)
          << name.toStdString() << ", disabled, on " << window.name().toStdString();
    }
  }
}

TEST(Pictures, FollowAChangeOfThePaletteWithoutANewIcon) {
  const QIcon icon = Picture("move-up");
  const auto corner = [&] { return icon.pixmap(QSize(24, 24), 1.0).toImage().pixelColor(12, 3); };
  const Palette light("#ffffff", "#101010");
  EXPECT_EQ(corner().name(), "#101010");
  const Palette dark("#202020", "#f0f0f0");
  EXPECT_EQ(corner().name(), "#f0f0f0");
}

TEST(Pictures, LoseTheirColourWhenDisabled) {
  const Palette palette("#efefef", "#202020");
  for (const QString& name : kAskedFor) {
    if (kOwnColours.contains(name)) continue;
    int strongest = 0;
    ForEachInked(Drawn(name, 24, QIcon::Disabled), [&](const QColor& colour) {
      strongest = std::max(strongest, colour.hsvSaturation() * colour.alpha() / 255);
    });
    EXPECT_LT(strongest, 12) << name.toStdString();
  }
}

TEST(Pictures, OfRowsAndWarningsKeepTheirColoursOnEveryPalette) {
  for (const QString& name : kOwnColours) {
    const auto drawn_on = [&](const QColor& window, const QColor& text) {
      const Palette palette(window, text);
      return Drawn(name, 16);
    };
    EXPECT_EQ(drawn_on("#ffffff", "#000000"), drawn_on("#202020", "#f0f0f0")) << name.toStdString();
  }
}

TEST(Pictures, OfRowsCanBeSeenOnEveryColourOfTheList) {
  for (const char* ground :
       {"#3a5300", "#ffffff", "#000000", "#808080", "#000080", "#ffff80", "#c00000", "#c8ccd0"}) {
    for (const QString& name : kOwnColours.first(5)) {
      EXPECT_GT(Contrast(Drawn(name, 16), QColor(ground)), 40) << name.toStdString() << " on " << ground;
    }
  }
}

TEST(Pictures, AreSharpOnAScreenOfTwiceTheDensity) {
  const QPixmap picture = Picture("save").pixmap(QSize(24, 24), 2.0);
  EXPECT_EQ(picture.size(), QSize(48, 48));
  EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(24, 24));

  QImage canvas(48, 48, QImage::Format_ARGB32_Premultiplied);
  canvas.setDevicePixelRatio(2);
  canvas.fill(Qt::transparent);
  QPainter painter(&canvas);
  Picture("save").paint(&painter, QRect(0, 0, 24, 24));
  painter.end();
  canvas.setDevicePixelRatio(1);
  EXPECT_EQ(canvas.convertToFormat(QImage::Format_ARGB32), Drawn("save", 48));
}

}  // namespace
}  // namespace qublet
