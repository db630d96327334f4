// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListStore.h"
#include "platform/Platform.h"

#include <QDialog>

#include <optional>

class PositionPicker;
class QComboBox;
class QFormLayout;
class QLineEdit;

/// The modal dialog that names an entry of a list: a new one, or one that gets another name. A city also gets
/// its state and its position. Lives for one opening.
class frmListEntry final : public QDialog
{
    Q_OBJECT

public:
    /// The session and the picker must outlive the dialog.
    frmListEntry(const Platform& platform, DatabaseSession& session, PositionPicker& positions, ListKind list,
                 QWidget* parent);

    /// Lets the user add an entry; `preset` is what the fields hold at first. Returns the entry as it was
    /// added.
    std::optional<LookupEntry> addEntry(const LookupEntry& preset = {});

    /// Lets the user change an entry, and returns what became of it.
    std::optional<ListOutcome> changeEntry(const LookupEntry& entry);

private:
    void makeFields(QFormLayout& form);
    void makeCityFields(QFormLayout& form);
    QLineEdit* addLine(QFormLayout& form, const char* name, const QString& caption);
    QComboBox* addChoice(QFormLayout& form, const char* name, const QString& caption);
    bool show(const LookupEntry& entry, const QString& title);
    void fillChoices(const LookupEntry& entry);
    void showPosition(const std::optional<MapPosition>& position);
    void pickPosition();
    void cmdOK();
    [[nodiscard]] bool take();

    Platform m_platform;
    ListStore m_store;
    PositionPicker& m_positions;
    ListKind m_list;
    LookupEntry m_entry;
    bool m_isNew = false;
    ListOutcome m_outcome;
    QLineEdit* txtName = nullptr;
    QLineEdit* txtDetail = nullptr;    ///< of a state
    QComboBox* cmbOf = nullptr;        ///< the type of a sub-type, the state of a city
    QLineEdit* txtLatitude = nullptr;  ///< of a city
    QLineEdit* txtLongitude = nullptr; ///< of a city
};
