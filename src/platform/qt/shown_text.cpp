#include "platform/qt/shown_text.h"

#include <QStringList>
#include <QTextDocument>
#include <algorithm>

namespace qublet {
namespace {

constexpr char16_t kMark = 0xFFFD;             // for what has no picture of its own
constexpr char16_t kControlPictures = 0x2400;  // of 0x00 to 0x1F
constexpr char16_t kDeletePicture = 0x2421;
constexpr char16_t kBreak = 0x200B;  // a line may end here
constexpr char16_t kIsolate = 0x2068;
constexpr char16_t kEndIsolate = 0x2069;

constexpr qsizetype kLongestWord = 24;  // without a place to break

bool IsBetween(char16_t letter, char16_t first, char16_t last) {
  return first <= letter && letter <= last;
}

// Characters without a shape of their own that steer the direction of text or end a line.
bool IsInvisible(char16_t letter) {
  return IsBetween(letter, 0x80, 0x9F) || letter == 0x061C || letter == kBreak || IsBetween(letter, 0x200E, 0x200F) ||
         IsBetween(letter, 0x2028, 0x202E) || IsBetween(letter, 0x2060, 0x206F) || letter == 0xFEFF ||
         IsBetween(letter, 0xFFF9, 0xFFFB);
}

char16_t ShownLetter(char16_t letter) {
  // See platform/linux/native_text.h.
  if (letter == 0xF03A) return u':';
  if (letter == 0xF05C) return u'\\';
  if (IsBetween(letter, 0xF001, 0xF01F)) return static_cast<char16_t>(kControlPictures + (letter - 0xF000));
  if (IsBetween(letter, 0xF780, 0xF7FF)) return kMark;
  if (letter < 0x20) return static_cast<char16_t>(kControlPictures + letter);
  if (letter == 0x7F) return kDeletePicture;
  return IsInvisible(letter) ? kMark : letter;
}

bool IsRightToLeft(QChar letter) {
  return letter.direction() == QChar::DirR || letter.direction() == QChar::DirAL;
}

// Each stretch that runs from right to left on its own, so that it doesn't draw numbers and signs beside it along.
QString Isolated(const QString& text) {
  if (std::none_of(text.begin(), text.end(), IsRightToLeft)) return text;
  QString isolated;
  qsizetype last = -1;  // the end of the stretch, in `isolated`
  for (const QChar letter : text) {
    const bool strong = letter.direction() == QChar::DirL;
    if (last >= 0 && (strong || letter == u'\\')) {
      isolated.insert(last, QChar(kEndIsolate));
      last = -1;
    }
    if (IsRightToLeft(letter) && last < 0) isolated += QChar(kIsolate);
    isolated += letter;
    if (IsRightToLeft(letter)) last = isolated.size();
  }
  if (last >= 0) isolated.insert(last, QChar(kEndIsolate));
  return isolated;
}

QString WithoutMiddle(const QString& text, qsizetype longest) {
  if (text.size() <= longest) return text;
  const qsizetype beginning = longest / 4;
  return text.left(beginning) + QStringLiteral("...") + text.right(longest - beginning);
}

}  // namespace

QString ShownText(QStringView text) {
  QString shown = text.toString();
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char16_t letter = text[i].unicode();
    if (IsBetween(letter, 0x20, 0x7E)) continue;
    if (const char16_t mark = ShownLetter(letter); mark != letter) shown[i] = QChar(mark);
  }
  return shown;
}

QString ShownText(std::string_view text) {
  return ShownText(QStringView(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))));
}

QString ShownTip(std::string_view text) {
  // As markup that says nothing else, so that nobody has to guess; a plain tip doesn't wrap.
  return Qt::convertFromPlainText(WithBreaks(ShownText(text)));
}

QString ShownMessage(std::string_view text, qsizetype longest) {
  // Lines of a message end in CR, in LF and CR, or in CR and LF.
  QString whole = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  QStringList lines;
  for (const QString& line : whole.replace(u"\n\r"_qs, u"\r"_qs).replace(u"\r\n"_qs, u"\r"_qs).split(u'\r'))
    lines << WithBreaks(Isolated(WithoutMiddle(ShownText(line), longest)));
  return lines.join(u'\n');
}

QString ShownInMenu(std::string_view text) {
  return ShownText(text).replace(u'&', QStringLiteral("&&"));
}

QString ShownCaption(std::string_view text) {
  // Once alone it would stand for the mark of a changed document.
  return ShownText(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

QString WithBreaks(const QString& text) {
  QString broken;
  qsizetype word = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    broken += text[i];
    word = text[i].isSpace() ? 0 : word + 1;
    const bool behind = text[i] == u'\\' || (word >= kLongestWord && !text[i].isHighSurrogate());
    if (!behind || i + 1 == text.size() || text[i + 1].isSpace() || text[i + 1].isMark()) continue;
    broken += QChar(kBreak);
    word = 0;
  }
  return broken;
}

QString WithoutBreaks(QString text) {
  return text.remove(QChar(kBreak));
}

}  // namespace qublet
