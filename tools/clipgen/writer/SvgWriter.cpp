#include <QBuffer>
#include <QXmlStreamWriter>

#include "writer/Writers.h"

namespace vellora::clipgen {
namespace {

QString number(double value) {
    return QString::number(value, 'f', 4);
}

QString pointText(QPointF point) {
    return number(point.x()) + u' ' + number(point.y());
}

QString pathText(const QPainterPath& path) {
    QString text;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo())
            text += u'M';
        else if (element.isLineTo())
            text += u'L';
        else if (element.isCurveTo())
            text += u'C';
        else
            text += u' ';
        text += pointText(element);
    }
    return text;
}

void add(QXmlStreamWriter& xml, const Shape& shape) {
    xml.writeEmptyElement(QStringLiteral("path"));
    xml.writeAttribute(QStringLiteral("d"), pathText(shape.path));
    xml.writeAttribute(QStringLiteral("fill"),
                       shape.fill ? shape.fill->name() : QStringLiteral("none"));
    xml.writeAttribute(QStringLiteral("fill-rule"), shape.path.fillRule() == Qt::WindingFill
                                                        ? QStringLiteral("nonzero")
                                                        : QStringLiteral("evenodd"));
    if (!shape.line)
        return;
    const Line& line = *shape.line;
    xml.writeAttribute(QStringLiteral("stroke"), line.color.name());
    xml.writeAttribute(QStringLiteral("stroke-width"), number(line.width));
    xml.writeAttribute(QStringLiteral("stroke-linejoin"), QStringLiteral("round"));
    if (line.dashes == Line::Dashes::None) {
        xml.writeAttribute(QStringLiteral("stroke-linecap"), QStringLiteral("round"));
    } else {
        const double dash = line.dashes == Line::Dashes::Dash ? 3 : 1;
        xml.writeAttribute(QStringLiteral("stroke-dasharray"),
                           number(dash * line.width) + u' ' + number(line.width));
    }
}

void add(QXmlStreamWriter& xml, const Text& text) {
    xml.writeStartElement(QStringLiteral("text"));
    xml.writeAttribute(QStringLiteral("transform"),
                       QStringLiteral("translate(%1 %2) rotate(%3)")
                           .arg(number(text.at.x()), number(text.at.y()), number(-text.angle)));
    xml.writeAttribute(QStringLiteral("font-family"), text.face);
    xml.writeAttribute(QStringLiteral("font-size"), number(text.size));
    xml.writeAttribute(QStringLiteral("font-weight"),
                       text.bold ? QStringLiteral("bold") : QStringLiteral("normal"));
    xml.writeAttribute(QStringLiteral("font-style"),
                       text.italic ? QStringLiteral("italic") : QStringLiteral("normal"));
    xml.writeAttribute(QStringLiteral("text-anchor"),
                       text.centred ? QStringLiteral("middle") : QStringLiteral("start"));
    xml.writeAttribute(QStringLiteral("fill"), text.color.name());
    xml.writeCharacters(text.text);
    xml.writeEndElement();
}

void add(QXmlStreamWriter& xml, const Picture& picture) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    picture.image.save(&buffer, "PNG");
    xml.writeEmptyElement(QStringLiteral("image"));
    xml.writeAttribute(QStringLiteral("x"), number(picture.place.x()));
    xml.writeAttribute(QStringLiteral("y"), number(picture.place.y()));
    xml.writeAttribute(QStringLiteral("width"), number(picture.place.width()));
    xml.writeAttribute(QStringLiteral("height"), number(picture.place.height()));
    xml.writeAttribute(QStringLiteral("xlink:href"), QStringLiteral("data:image/png;base64,") +
                                                         QString::fromLatin1(png.toBase64()));
}

}  // namespace

QByteArray writeSvg(const Drawing& drawing) {
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("svg"));
    xml.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
    xml.writeNamespace(QStringLiteral("http://www.w3.org/1999/xlink"), QStringLiteral("xlink"));
    xml.writeAttribute(QStringLiteral("viewBox"),
                       QStringLiteral("0 0 %1 %2")
                           .arg(number(drawing.size().width()), number(drawing.size().height())));
    for (const Drawing::Item& item : drawing.items())
        std::visit([&xml](const auto& part) { add(xml, part); }, item);
    xml.writeEndElement();
    xml.writeEndDocument();
    return bytes;
}

}  // namespace vellora::clipgen
