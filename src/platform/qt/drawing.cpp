#include "platform/qt/drawing.h"

#include <QHash>
#include <QLinearGradient>
#include <QPainterPath>
#include <QTransform>
#include <QXmlStreamReader>
#include <QtMath>
#include <utility>

namespace qublet {
namespace {

// How shapes are painted; a group hands it down.
struct Style {
  QString fill = QStringLiteral("black");
  QString stroke = QStringLiteral("none");
  qreal fill_opacity = 1;
  qreal width = 1;
  Qt::PenCapStyle cap = Qt::FlatCap;
  Qt::PenJoinStyle join = Qt::MiterJoin;
};

Style Changed(Style style, const QXmlStreamAttributes& attributes) {
  const auto text = [&](const char* name) { return attributes.value(QLatin1String(name)).toString(); };
  if (!text("fill").isEmpty()) style.fill = text("fill");
  if (!text("fill-opacity").isEmpty()) style.fill_opacity = text("fill-opacity").toDouble();
  if (!text("stroke").isEmpty()) style.stroke = text("stroke");
  if (!text("stroke-width").isEmpty()) style.width = text("stroke-width").toDouble();
  if (text("stroke-linecap") == QLatin1String("round")) style.cap = Qt::RoundCap;
  if (text("stroke-linejoin") == QLatin1String("round")) style.join = Qt::RoundJoin;
  return style;
}

// The text of a path's "d": letters and numbers, the second "." or a "-" beginning a new number.
class PathText {
 public:
  explicit PathText(const QString& text) : text_(text) {}

  bool AtEnd() {
    while (at_ < text_.size() && (text_[at_].isSpace() || text_[at_] == QLatin1Char(','))) ++at_;
    return at_ >= text_.size();
  }
  bool AtLetter() { return !AtEnd() && text_[at_].isLetter(); }
  QChar Letter() { return text_[at_++]; }

  qreal Number() {
    AtEnd();
    const qsizetype start = at_;
    bool point = false;
    while (at_ < text_.size() && Continues(text_[at_], start, point)) ++at_;
    bool good = false;
    const qreal number = QStringView(text_).mid(start, at_ - start).toDouble(&good);
    good_ = good_ && good;
    if (at_ == start) ++at_;
    return number;
  }
  // The two flags of an arc may stand without a blank between them.
  bool Flag() { return !AtEnd() && text_[at_++] == QLatin1Char('1'); }
  bool Good() const { return good_; }

 private:
  bool Continues(QChar character, qsizetype start, bool& point) const {
    if (character == QLatin1Char('-')) return at_ == start;
    if (character != QLatin1Char('.')) return character.isDigit();
    return !std::exchange(point, true);
  }

  const QString& text_;
  qsizetype at_ = 0;
  bool good_ = true;
};

struct Arc {
  qreal rx = 0;
  qreal ry = 0;
  bool large = false;
  bool sweep = false;
};

// From the path's end to `end`, along an ellipse that isn't turned: the two points say where its middle is.
void AddArc(QPainterPath& path, Arc arc, QPointF end) {
  const QPointF start = path.currentPosition();
  if (start == end || arc.rx <= 0 || arc.ry <= 0) return path.lineTo(end);
  const QTransform to_circle = QTransform::fromScale(1 / arc.rx, 1 / arc.ry);
  const QPointF a = to_circle.map(start);
  const QPointF b = to_circle.map(end);
  const QPointF half = (b - a) / 2;
  const qreal reach = std::hypot(half.x(), half.y());
  const qreal radius = std::max(1.0, reach);  // one too small is made to reach
  const qreal away = std::sqrt(std::max(0.0, radius * radius - reach * reach)) / reach;
  const qreal side = arc.large == arc.sweep ? -1 : 1;
  const QPointF middle = (a + b) / 2 + QPointF(-half.y(), half.x()) * side * away;
  const qreal from = qRadiansToDegrees(std::atan2(a.y() - middle.y(), a.x() - middle.x()));
  qreal span = qRadiansToDegrees(std::atan2(b.y() - middle.y(), b.x() - middle.x())) - from;
  if (arc.sweep && span < 0) span += 360;
  if (!arc.sweep && span > 0) span -= 360;
  const QPointF centre(middle.x() * arc.rx, middle.y() * arc.ry);
  const qreal rx = arc.rx * radius;
  const qreal ry = arc.ry * radius;
  // Angles run the other way round there.
  path.arcTo(QRectF(centre.x() - rx, centre.y() - ry, 2 * rx, 2 * ry), -from, -span);
}

// One step of a path; `command` in small letters is relative to the path's end.
bool AddStep(QPainterPath& path, PathText& text, QChar command) {
  const QPointF here = path.currentPosition();
  const QPointF base = command.isLower() ? here : QPointF();
  const auto point = [&] {
    const qreal x = text.Number();
    return base + QPointF(x, text.Number());
  };
  switch (command.toLower().toLatin1()) {
    case 'm':
      path.moveTo(point());
      return true;
    case 'l':
      path.lineTo(point());
      return true;
    case 'h':
      path.lineTo(base.x() + text.Number(), here.y());
      return true;
    case 'v':
      path.lineTo(here.x(), base.y() + text.Number());
      return true;
    case 'c': {
      const QPointF one = point();
      const QPointF two = point();
      path.cubicTo(one, two, point());
      return true;
    }
    case 'a': {
      Arc arc{text.Number(), text.Number()};
      const bool turned = text.Number() != 0;
      arc.large = text.Flag();
      arc.sweep = text.Flag();
      AddArc(path, arc, point());
      return !turned;
    }
    default:
      return false;
  }
}

bool ReadPath(const QString& d, QPainterPath& path) {
  PathText text(d);
  QChar command;
  while (!text.AtEnd()) {
    if (text.AtLetter()) {
      command = text.Letter();
    } else if (command.toLower() == QLatin1Char('m')) {
      command = command.isLower() ? QLatin1Char('l') : QLatin1Char('L');  // further points of a start are lines
    }
    if (command.toLower() == QLatin1Char('z')) {
      path.closeSubpath();
    } else if (!AddStep(path, text, command)) {
      return false;
    }
  }
  return text.Good();
}

class Drawing {
 public:
  Drawing(QPainter& painter, const QByteArray& svg, const QRectF& place)
      : painter_(painter), xml_(svg), place_(place) {}

  bool Paint() {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    const bool painted =
        xml_.readNextStartElement() && xml_.name() == QLatin1String("svg") && Place() && Children({});
    painter_.restore();
    return painted && !xml_.hasError();
  }

 private:
  qreal Number(const char* name) const { return xml_.attributes().value(QLatin1String(name)).toDouble(); }
  QString Text(const char* name) const { return xml_.attributes().value(QLatin1String(name)).toString(); }

  bool Place() {
    const QStringList box = Text("viewBox").split(QLatin1Char(' '));
    if (box.size() != 4 || box[2].toDouble() <= 0 || box[3].toDouble() <= 0) return false;
    const QRectF view(box[0].toDouble(), box[1].toDouble(), box[2].toDouble(), box[3].toDouble());
    const qreal scale = std::min(place_.width() / view.width(), place_.height() / view.height());
    painter_.translate(place_.center());
    painter_.scale(scale, scale);
    painter_.translate(-view.center());
    return true;
  }

  bool Children(const Style& style) {
    bool understood = true;
    while (understood && xml_.readNextStartElement()) understood = Element(Changed(style, xml_.attributes()));
    return understood;
  }

  bool Element(const Style& style) {
    const auto name = xml_.name();
    if (name == QLatin1String("g") || name == QLatin1String("defs")) return Children(style);
    if (name == QLatin1String("linearGradient")) return Gradient();
    QPainterPath path;
    if (name == QLatin1String("path")) {
      if (!ReadPath(Text("d"), path)) return false;
    } else if (name == QLatin1String("rect")) {
      const qreal round = Number("rx");
      path.addRoundedRect(QRectF(Number("x"), Number("y"), Number("width"), Number("height")), round, round);
    } else if (name == QLatin1String("circle")) {
      path.addEllipse(QPointF(Number("cx"), Number("cy")), Number("r"), Number("r"));
    } else if (name == QLatin1String("ellipse")) {
      path.addEllipse(QPointF(Number("cx"), Number("cy")), Number("rx"), Number("ry"));
    } else {
      return false;
    }
    xml_.skipCurrentElement();
    Shape(path, style);
    return true;
  }

  bool Gradient() {
    const QString name = QStringLiteral("url(#%1)").arg(Text("id"));
    QLinearGradient gradient(Number("x1"), Number("y1"), Number("x2"), Number("y2"));
    gradient.setCoordinateMode(QGradient::ObjectMode);
    while (xml_.readNextStartElement()) {
      gradient.setColorAt(Number("offset"), QColor(Text("stop-color")));
      xml_.skipCurrentElement();
    }
    gradients_.insert(name, gradient);
    return true;
  }

  static QColor Paled(QColor colour, qreal opacity) {
    colour.setAlphaF(static_cast<float>(opacity));
    return colour;
  }

  void Shape(const QPainterPath& path, const Style& style) {
    const QLatin1String none("none");
    const auto gradient = gradients_.constFind(style.fill);
    const QBrush fill = gradient != gradients_.constEnd() ? QBrush(*gradient)
                        : style.fill != none              ? QBrush(Paled(QColor(style.fill), style.fill_opacity))
                                                          : QBrush(Qt::NoBrush);
    const QPen stroke = style.stroke != none
                            ? QPen(QColor(style.stroke), style.width, Qt::SolidLine, style.cap, style.join)
                            : QPen(Qt::NoPen);
    painter_.setBrush(fill);
    painter_.setPen(stroke);
    painter_.drawPath(path);
  }

  QPainter& painter_;
  QXmlStreamReader xml_;
  QRectF place_;
  QHash<QString, QLinearGradient> gradients_;
};

}  // namespace

bool PaintDrawing(QPainter& painter, const QByteArray& svg, const QRectF& place) {
  return Drawing(painter, svg, place).Paint();
}

}  // namespace qublet
