// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/frmPosition.h"

#include "files/ProgramFolder.h"
#include "map/MapView.h"
#include "map/StatesFile.h"
#include "platform/Procedure.h"
#include "widgets/WindowSize.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace {

constexpr QSize firstSize(760, 560);

/// To about ten metres; the pixel of a map seldom says more.
double rounded(double degrees)
{
    constexpr double parts = 10000;
    return std::round(degrees * parts) / parts;
}

clsCities placeAt(const MapPosition& position)
{
    clsCities place;
    place.lat = position.lat;
    place.lon = position.lon;
    place.colour = 3; // stands out from the states
    return place;
}

} // namespace

frmPosition::frmPosition(const Platform& platform, const ProgramFolder& folder, QWidget* parent)
    : QDialog(parent),
      m_platform(platform),
      m_folder(folder),
      m_map(new MapView(this)),
      lblPosition(new QLabel(this)),
      cmdOK(new QPushButton(tr("OK"), this))
{
    setObjectName(QStringLiteral("frmPosition"));
    setWindowTitle(tr("Position on the Map"));
    m_map->setAccessibleName(tr("Map of the states"));
    lblPosition->setObjectName(QStringLiteral("lblPosition"));
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    m_map->installEventFilter(this);
    layOut();
    connect(m_map, &MapView::pointed, this, [this](double lat, double lon) {
        mark({rounded(lat), rounded(lon)});
    });
    WindowSize::restore(*this, m_platform.settings, firstSize);
}

void frmPosition::layOut()
{
    auto* cancel = new QPushButton(tr("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setAutoDefault(false);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(cmdOK, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancel, QDialogButtonBox::RejectRole);
    auto* hint = new QLabel(tr("Click on the place. The mouse wheel zooms, dragging moves the map."), this);
    hint->setWordWrap(true);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblPosition, 1);
    bottom->addWidget(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addWidget(m_map, 1);
    layout->addLayout(bottom);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

std::optional<MapPosition> frmPosition::choose(std::optional<MapPosition> position)
{
    // a position can be pointed at without the states, too
    runProcedure(m_platform.messages, QStringLiteral("drawMap"),
                 [this] { m_map->setStates(readStates(m_folder)); });
    cmdOK->setEnabled(position.has_value());
    if (position) mark(*position);
    return exec() == Accepted ? m_position : std::nullopt;
}

void frmPosition::mark(const MapPosition& position)
{
    m_position = position;
    const clsCities place = placeAt(position);
    m_map->setPlaces({place});
    m_map->showEntry(0);
    lblPosition->setText(place.placeText());
    cmdOK->setEnabled(true);
}

void frmPosition::done(int result)
{
    WindowSize::save(*this, m_platform.settings);
    QDialog::done(result);
}

/// The map has other uses for the keys that close a dialog.
bool frmPosition::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_map || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Escape) return false;
    keyPressEvent(static_cast<QKeyEvent*>(event));
    return true;
}

std::optional<MapPosition> MapPositionPicker::pick(std::optional<MapPosition> position, QWidget* window)
{
    return frmPosition(m_platform, m_folder, window).choose(position);
}
