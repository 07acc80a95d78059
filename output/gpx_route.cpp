#include "output/gpx_route.h"

#include <QXmlStreamWriter>

namespace merov::output
{
namespace
{

const QString Namespace = QStringLiteral("http://www.topografix.com/GPX/1/1");

/// A longitude as the format wants it: -180 up to, but not including, 180.
double RouteLongitude(double longitude)
{
    return QString::number(longitude, 'f', 7).toDouble() >= 180.0 ? longitude - 360.0 : longitude;
}

} // namespace

QByteArray GpxRoute(const QString& name, const std::vector<sailing::Waypoint>& waypoints)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement("gpx");
    xml.writeDefaultNamespace(Namespace);
    xml.writeAttribute("version", "1.1");
    xml.writeAttribute("creator", "Merov");
    xml.writeStartElement("rte");
    xml.writeTextElement("name", name);
    int number = 0;
    for (const sailing::Waypoint& waypoint : waypoints) {
        xml.writeStartElement("rtept");
        xml.writeAttribute("lat", QString::number(waypoint.Lat, 'f', 7));
        xml.writeAttribute("lon", QString::number(RouteLongitude(waypoint.Long), 'f', 7));
        xml.writeTextElement("name", QString("WP%1").arg(++number, 3, 10, QChar(u'0')));
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return bytes;
}

} // namespace merov::output
