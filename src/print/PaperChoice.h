// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QPageLayout>
#include <QPageSize>

#include <optional>

class SettingsStore;

/// What is printed of a view.
enum class PrintedPart
{
    List,
    Graphic,
    Sheets
};

/// The paper that users print on and how they turn it, kept from one run to the next.
class PaperChoice
{
public:
    /// The store must outlive the object.
    PaperChoice(SettingsStore& settings, RecordKind kind) : m_settings(settings), m_kind(kind) {}

    /// Letter or A4. As long as the user has chosen none, the paper of the country.
    [[nodiscard]] QPageSize::PageSizeId paper() const;
    void setPaper(QPageSize::PageSizeId paper);

    /// What the user chose last for that part of a view of the kind.
    [[nodiscard]] std::optional<QPageLayout::Orientation> orientation(PrintedPart part) const;
    void setOrientation(PrintedPart part, QPageLayout::Orientation orientation);

private:
    [[nodiscard]] QString orientationName(PrintedPart part) const;

    SettingsStore& m_settings;
    RecordKind m_kind;
};
