#pragma once

#include "views/clsView.h"

#include <QWidget>

#include <functional>
#include <map>

class QSplitter;
class QStackedWidget;
class SettingsStore;

/// The list of records with, beside it or below it, the graphic view of the kind shown. Where the graphic
/// stands and how much room it has is kept for each kind, also from one run to the next.
class BrowsePage final : public QWidget
{
    Q_OBJECT

public:
    /// Takes the list as its child; the settings must outlive the page.
    BrowsePage(QWidget* list, SettingsStore& settings, QWidget* parent);
    ~BrowsePage() override;

    /// Makes a graphic view as a child of the widget that it is given.
    using Maker = std::function<QWidget*(QWidget* parent)>;

    /// Gives a kind its graphic view, made when the kind is first shown. `side` is where it stands at first.
    void setGraphic(ViewKind kind, Maker maker, Qt::Orientation side);

    /// Shows the list with the graphic of a kind, or alone where the kind has none.
    void showKind(ViewKind kind);

    /// `Qt::Horizontal` where the graphic of the kind shown stands to the right, `Qt::Vertical` where below.
    [[nodiscard]] Qt::Orientation side() const;
    void setSide(Qt::Orientation side);

    /// Writes down where the graphics stand; called when the window closes.
    void save();

private:
    struct Place
    {
        Maker maker;
        QWidget* graphic = nullptr; ///< null until it is shown
        Qt::Orientation side = Qt::Vertical;
        double share = 0.5; ///< of the page, for the graphic
    };

    void rememberShare();
    void applyPlace();

    SettingsStore& m_settings;
    QSplitter* m_splitter;
    QStackedWidget* m_graphics;
    std::map<ViewKind, Place> m_places;
    ViewKind m_kind = ViewKind::Home;
};
