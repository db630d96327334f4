#include "views/clsCities.h"

#include <cmath>

QString clsCities::placeText() const
{
    if (!city.isEmpty() && !State.isEmpty()) return city + QStringLiteral(", ") + State;
    if (!city.isEmpty() || !State.isEmpty()) return city + State;
    constexpr int decimals = 2;
    return QStringLiteral("%1° %2, %3° %4")
        .arg(std::abs(lat), 0, 'f', decimals)
        .arg(lat < 0 ? QChar(u'S') : QChar(u'N'))
        .arg(std::abs(lon), 0, 'f', decimals)
        .arg(lon < 0 ? QChar(u'W') : QChar(u'E'));
}

bool clsCities::hasState() const
{
    const QString name = State.trimmed();
    return !name.isEmpty() && name.compare(u"None", Qt::CaseInsensitive) != 0;
}

int clsCities::colourOf(std::optional<qint64> functionId)
{
    constexpr qint64 colours = 16;
    if (!functionId || *functionId < 1) return 0;
    return static_cast<int>((*functionId - 1) % colours);
}
