#include "settings/ui/MASPreferencesGeometryText.h"

#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QString pairPattern = QStringLiteral(R"(\{\s*(-?\d{1,6}(?:\.\d*)?)\s*,\s*(-?\d{1,6}(?:\.\d*)?)\s*\})");

int wholePixels(const QString& number)
{
    return int(std::lround(number.toDouble()));
}

}

QString MASPreferencesGeometryText::fromPoint(QPoint point)
{
    return u"{%1, %2}"_s.arg(point.x()).arg(point.y());
}

std::optional<QPoint> MASPreferencesGeometryText::toPoint(const QString& text)
{
    static const QRegularExpression pattern(QRegularExpression::anchoredPattern(pairPattern));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    return QPoint(wholePixels(match.captured(1)), wholePixels(match.captured(2)));
}

QString MASPreferencesGeometryText::fromSize(QSize size)
{
    return u"{{0, 0}, {%1, %2}}"_s.arg(size.width()).arg(size.height());
}

std::optional<QSize> MASPreferencesGeometryText::toSize(const QString& text)
{
    static const QRegularExpression pattern(
        QRegularExpression::anchoredPattern(uR"(\{\s*%1\s*,\s*%1\s*\})"_s.arg(pairPattern)));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    const QSize size(wholePixels(match.captured(3)), wholePixels(match.captured(4)));
    return size.isEmpty() ? std::nullopt : std::optional(size);
}
