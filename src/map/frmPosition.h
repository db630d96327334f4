// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"
#include "views/PositionPicker.h"

#include <QDialog>

class MapView;
class ProgramFolder;
class QLabel;
class QPushButton;

/// The modal dialog in which a click on the map chooses a position. Lives for one choice.
class frmPosition final : public QDialog
{
    Q_OBJECT

public:
    /// The states are read from `folder`, which must outlive the dialog.
    frmPosition(const Platform& platform, const ProgramFolder& folder, QWidget* parent);

    /// Shows the map with a marker at `position` if there is one, and returns the position chosen.
    std::optional<MapPosition> choose(std::optional<MapPosition> position);

    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut();
    void mark(const MapPosition& position);

    Platform m_platform;
    const ProgramFolder& m_folder;
    MapView* m_map;
    QLabel* lblPosition;
    QPushButton* cmdOK;
    std::optional<MapPosition> m_position;
};

/// Lets other windows choose a position on the program's map.
class MapPositionPicker final : public PositionPicker
{
public:
    /// The folder must outlive the picker.
    MapPositionPicker(const Platform& platform, const ProgramFolder& folder)
        : m_platform(platform), m_folder(folder)
    {
    }

    std::optional<MapPosition> pick(std::optional<MapPosition> position, QWidget* window) override;

private:
    Platform m_platform;
    const ProgramFolder& m_folder;
};
