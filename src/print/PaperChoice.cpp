// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/PaperChoice.h"

#include "platform/StdREG.h"

#include <QLocale>

#include <algorithm>
#include <array>

namespace {

constexpr QLatin1StringView section("Print");
constexpr QLatin1StringView paperName("Paper");
constexpr QLatin1StringView letter("Letter");
constexpr QLatin1StringView landscape("Landscape");

bool usesLetter(QLocale::Territory territory)
{
    constexpr std::array territories{QLocale::Belize,       QLocale::Canada,      QLocale::Chile,
                                     QLocale::Colombia,     QLocale::CostaRica,   QLocale::ElSalvador,
                                     QLocale::Guatemala,    QLocale::Mexico,      QLocale::Nicaragua,
                                     QLocale::Panama,       QLocale::Philippines, QLocale::PuertoRico,
                                     QLocale::UnitedStates, QLocale::Venezuela};
    return std::ranges::find(territories, territory) != territories.end();
}

} // namespace

QPageSize::PageSizeId PaperChoice::paper() const
{
    const QString chosen = StdREG(m_settings).GetRegString(section, paperName);
    const bool isLetter = chosen.isEmpty() ? usesLetter(QLocale().territory()) : chosen == letter;
    return isLetter ? QPageSize::Letter : QPageSize::A4;
}

void PaperChoice::setPaper(QPageSize::PageSizeId paper)
{
    StdREG(m_settings)
        .WriteRegString(section, paperName, paper == QPageSize::Letter ? letter : QLatin1StringView("A4"));
}

QString PaperChoice::orientationName(PrintedPart part) const
{
    constexpr std::array names{"List", "Graphic", "Sheets"};
    return recordNames(m_kind).record + QLatin1StringView(names[static_cast<std::size_t>(part)]);
}

std::optional<QPageLayout::Orientation> PaperChoice::orientation(PrintedPart part) const
{
    const QString chosen = StdREG(m_settings).GetRegString(section, orientationName(part));
    if (chosen.isEmpty()) return std::nullopt;
    return chosen == landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
}

void PaperChoice::setOrientation(PrintedPart part, QPageLayout::Orientation orientation)
{
    StdREG(m_settings)
        .WriteRegString(section, orientationName(part),
                        orientation == QPageLayout::Landscape ? landscape : QLatin1StringView("Portrait"));
}
