// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/clsCities.h"

#include "views/ViewsTexts.h"

#include <cmath>

QString clsCities::placeText() const
{
    if (!city.isEmpty() && !State.isEmpty()) return city + QStringLiteral(", ") + State;
    if (!city.isEmpty() || !State.isEmpty()) return city + State;
    constexpr int decimals = 2;
    const QString latitude = QString::number(std::abs(lat), 'f', decimals);
    const QString longitude = QString::number(std::abs(lon), 'f', decimals);
    return (lat < 0 ? ViewsTexts::tr("%1° S") : ViewsTexts::tr("%1° N")).arg(latitude) +
           QStringLiteral(", ") +
           (lon < 0 ? ViewsTexts::tr("%1° W") : ViewsTexts::tr("%1° E")).arg(longitude);
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
