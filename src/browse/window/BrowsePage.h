// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QWidget>

#include <functional>
#include <map>

class QSplitter;
class QStackedWidget;
class SettingsStore;

/// The list of records with the graphic of the kind shown, to its right or below it. Side and size of the
/// graphic are kept for each kind, also from one run to the next.
class BrowsePage final : public QWidget
{
    Q_OBJECT

public:
    /// The list becomes a child of the page; the settings must outlive it.
    BrowsePage(QWidget* list, SettingsStore& settings, QWidget* parent);
    ~BrowsePage() override;

    /// Makes a graphic as a child of a widget.
    using Maker = std::function<QWidget*(QWidget* parent)>;

    /// Sets the graphic of a kind, to be made when the kind is first shown, and its side unless the settings
    /// have one.
    void setGraphic(RecordKind kind, Maker maker, Qt::Orientation side);

    /// Shows the graphic of a kind, which must have one, beside the list.
    void showKind(RecordKind kind);

    /// `Qt::Horizontal` if the graphic of the kind shown is to the right of the list, `Qt::Vertical` if
    /// below.
    [[nodiscard]] Qt::Orientation side() const;
    void setSide(Qt::Orientation side);

    /// Writes sides and sizes to the settings; to be called when the window closes.
    void save();

private:
    struct Place
    {
        Maker maker;
        QWidget* graphic = nullptr; ///< null until it is first shown
        Qt::Orientation side = Qt::Vertical;
        double share = 0.5; ///< of the page's width or height, for the graphic
    };

    void rememberShare();
    void applyPlace();

    SettingsStore& m_settings;
    QSplitter* m_splitter;
    QStackedWidget* m_graphics;
    std::map<RecordKind, Place> m_places;
    Place* m_shown = nullptr; ///< null until a kind is shown
};
