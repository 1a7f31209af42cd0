#include "playlist/ui/list_look.h"

#include <QFont>
#include <QGuiApplication>
#include <QHeaderView>

#include "platform/qt/colours.h"

namespace qublet {
namespace {

// The font with each of its traits said, so that a widget takes none from its parent.
QFont OwnFont(QFont font) {
  font.setResolveMask(QFont::AllPropertiesResolved);
  return font;
}

}  // namespace

QFont FontOf(const Look& look) {
  QFont font(QString::fromStdString(look.font));
  if (look.size > 0) font.setPointSizeF(ShownSize(look));
  // Where there is no such font, the one of the menus is easier on the eyes than any other. Elsewhere than on Windows
  // the system finds the nearest itself.
  if (QGuiApplication::platformName() == QLatin1String("windows"))
    font.setFamilies({font.family(), QGuiApplication::font().family()});
  font.setItalic(look.italic);
  font.setBold(look.bold);
  font.setStrikeOut(look.strikethrough);
  font.setUnderline(look.underline);
  return font;
}

void ApplyLook(const Look& look, RowList& list) {
  QPalette palette;
  if (SystemColour(look.background) != QPalette::Base)
    palette.setColor(QPalette::Base, ColourFromSetting(look.background));
  if (SystemColour(look.text) != QPalette::Text) palette.setColor(QPalette::Text, ColourFromSetting(look.text));
  list.setPalette(palette);

  const QFont font = FontOf(look);
  // First, so that the header isn't measured in the list's font.
  QFont header = QGuiApplication::font();
  header.setPointSizeF(font.pointSizeF());
  list.header()->setFont(OwnFont(header));
  list.setFont(font);
  list.SetGridLines(look.grid);
}

}  // namespace qublet
