// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "history/RecordVersions.h"
#include "platform/Platform.h"

#include <QDialog>

#include <memory>

class DatabaseSession;
class ProgramFolder;
class QPushButton;
class QTreeView;
class VersionComparison;
class VersionsModel;

/// The modal dialog that shows the versions of a record and what differs between two of them, and makes the
/// record what it was in one of them. Lives for one opening.
class frmHistory final : public QDialog
{
    Q_OBJECT

public:
    /// The session and the folder of the open database must outlive the dialog.
    frmHistory(const Platform& platform, DatabaseSession& session, const ProgramFolder& folder,
               QWidget* parent);

    /// Shows the history of a record until the user closes it. A record that cannot be read shows its
    /// message and opens nothing.
    void showHistory(RecordKind kind, qint64 identifier);

    /// The record's title as it is now; the record must have been shown.
    [[nodiscard]] QString recordName() const;

    /// Whether a version was restored.
    [[nodiscard]] bool hasRestored() const { return m_hasRestored; }

    void done(int result) override;

private:
    void makeList();
    void makeButtons();
    void layOut();
    bool readVersions(RecordKind kind, qint64 identifier);
    [[nodiscard]] QString caption() const;
    [[nodiscard]] std::vector<std::size_t> chosen() const;
    void showChosen();
    void compare(std::size_t older, std::size_t newer);
    void enableRestore();
    [[nodiscard]] QString hindrance() const;
    void restore();
    [[nodiscard]] static QString leftOutText(const QStringList& links);

    Platform m_platform;
    DatabaseSession& m_session;
    const ProgramFolder& m_folder;
    std::unique_ptr<RecordVersions> m_versions;
    bool m_hasRestored = false;
    VersionsModel* m_model;
    QTreeView* lvVersions;
    VersionComparison* m_comparison;
    QPushButton* cmdRestore;
    QPushButton* cmdClose;
};
