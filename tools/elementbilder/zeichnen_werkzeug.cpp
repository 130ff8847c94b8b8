// The two palette tools; they are never placed, so they have only a palette
// picture.

#include "zeichnen.h"

namespace planor::elementbilder {

void zeichneRadierer(QPainter& p)
{
    p.save();
    p.translate(mitte() + QPointF(0, 2));
    p.rotate(-28);
    const QRectF koerper(-23, -10, 46, 20);
    const QRectF huelle(-23, -10, 18, 20);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xE4, 0x6C, 0x86));
    p.drawRoundedRect(koerper, 3.5, 3.5);
    p.setBrush(QColor(0x4A, 0x78, 0xC0));
    p.drawRoundedRect(huelle, 3.5, 3.5);
    p.fillRect(QRectF(-8, -10, 3, 20), QColor(0x4A, 0x78, 0xC0));
    p.setPen(QPen(QColor(0x30, 0x30, 0x30), 1.6));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(koerper, 3.5, 3.5);
    QPainterPath naht(QPointF(-5, -10));
    naht.lineTo(-5, 10);
    p.drawPath(naht);
    p.restore();
}

void zeichneAuswahl(QPainter& p)
{
    p.save();
    QPen pen(QColor(0x30, 0x30, 0x30), 2.0, Qt::CustomDashLine, Qt::FlatCap, Qt::MiterJoin);
    pen.setDashPattern({3.0, 2.0});
    p.setPen(pen);
    p.setBrush(QColor(0xDC, 0xE8, 0xF8));
    p.drawRect(QRectF(13, 9, 50, 32));
    // A mouse pointer on the corner tells that the tool picks a rectangle.
    QPolygonF zeiger;
    zeiger << QPointF(0, 0) << QPointF(0, 17) << QPointF(4, 13) << QPointF(7.5, 19.5) << QPointF(10.5, 18)
           << QPointF(7, 11.5) << QPointF(12.5, 11.5);
    zeiger.translate(57, 31);
    p.setPen(QPen(QColor(0x20, 0x20, 0x20), 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(QColor(0xFF, 0xFF, 0xFF));
    p.drawPolygon(zeiger);
    p.restore();
}

}  // namespace planor::elementbilder
