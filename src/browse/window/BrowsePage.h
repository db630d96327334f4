// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QWidget>

#include <functional>
#include <map>

class QSplitter;
class QStackedWidget;
class SettingsStore;

/// The list of records with the graphic of the kind shown, to its right or below it, and on request the
/// details of a record to the right of both. Side and size of the graphic and whether it is shown are kept
/// for each kind, also from one run to the next, as are the width of the details and whether they are shown.
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

    /// Sets the details, to be made when they are first shown: with the first kind if the settings say so.
    void setDetails(Maker maker);

    void showDetails(bool shown);
    [[nodiscard]] bool showsDetails() const { return m_details.isShown; }

    /// Shows the list for records of a kind, which must have a graphic, and that graphic unless it is hidden.
    void showKind(RecordKind kind);

    /// `Qt::Horizontal` if the graphic of the kind shown is to the right of the list, `Qt::Vertical` if
    /// below.
    [[nodiscard]] Qt::Orientation side() const;

    /// Puts the graphic of the kind shown there, and shows it if it was hidden.
    void setSide(Qt::Orientation side);

    /// Whether the graphic of a kind is shown with its list.
    [[nodiscard]] bool showsGraphic(RecordKind kind) const { return !m_places.at(kind).isHidden; }

    /// Whether the graphic of the kind shown is hidden.
    [[nodiscard]] bool hidesGraphic() const { return m_shown != nullptr && m_shown->isHidden; }
    void hideGraphic(bool hidden);

    /// Writes what is kept to the settings; to be called when the window closes.
    void save();

Q_SIGNALS:
    /// The graphic of the kind shown, which was hidden, is there again.
    void graphicShown();

private:
    struct Place
    {
        Maker maker;
        QWidget* graphic = nullptr; ///< null until it is first shown
        Qt::Orientation side = Qt::Vertical;
        double share = 0.5; ///< of the page's width or height, for the graphic
        bool isHidden = false;
    };

    struct Details
    {
        Maker maker;
        QWidget* widget = nullptr; ///< null until they are first shown
        bool isShown = false;
        double share = 0.27; ///< of the page's width
    };

    void change(Qt::Orientation side, bool isHidden);
    void rememberShare();
    void applyPlace();
    void rememberDetails();
    void applyDetails();

    SettingsStore& m_settings;
    QSplitter* m_columns;  ///< list and graphic, then the details once they were shown
    QSplitter* m_splitter; ///< the list, then the graphic
    QStackedWidget* m_graphics;
    std::map<RecordKind, Place> m_places;
    Place* m_shown = nullptr; ///< null until a kind is shown
    Details m_details;
};
