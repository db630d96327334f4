// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "export/ExportChoices.h"

#include <QDialog>

#include <array>
#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLayout;
class QPushButton;
class QRadioButton;
class QStackedWidget;
struct ExportFormat;

/// The modal dialog that asks which records are exported, in which format and into which file. It only asks;
/// whoever opens it exports them. Lives for one export.
class frmExport final : public QDialog
{
    Q_OBJECT

public:
    enum class Records
    {
        OfList,
        Selected,
        All
    };

    /// What there is to export, and how many records each choice has.
    struct Offer
    {
        RecordKind kind;
        QString caption; ///< of the list's view
        std::size_t listed = 0;
        std::size_t selected = 0;
        std::size_t all = 0;
        QString noGraphic; ///< why the graphic beside the list has no picture; empty if it has one
    };

    /// Asks for the file; returns an empty text if the user wants none.
    using FileChooser = std::function<QString(const ExportFormat& format, Records records)>;

    frmExport(const Offer& offer, const ExportChoices& choices, FileChooser chooser, QWidget* parent);

    /// What the controls say now.
    [[nodiscard]] Records records() const;
    [[nodiscard]] ExportChoices choices() const;
    [[nodiscard]] const ExportFormat& format() const;

    /// The file that was chosen, once the dialog is accepted.
    [[nodiscard]] const QString& file() const { return m_file; }

    void accept() override;

private:
    /// What is shown of a format.
    struct Page
    {
        const ExportFormat* format;
        QCheckBox* forSpreadsheet = nullptr; ///< null if there is no such choice
        QCheckBox* hasPicture = nullptr;
    };

    QGroupBox* makeRecords();
    QGroupBox* makeFormats();
    QWidget* makePage(Page& page);
    QGroupBox* makeFields();
    QLayout* makeButtons();
    [[nodiscard]] const Page& page() const;
    void showFormat();
    void enablePicture();

    Offer m_offer;
    ExportChoices m_before;
    FileChooser m_chooser;
    std::array<QRadioButton*, 3> m_records{}; ///< by Records
    QComboBox* m_formats = nullptr;
    QStackedWidget* m_details = nullptr;
    std::vector<Page> m_pages;               ///< in the order of the formats offered
    std::array<QRadioButton*, 2> m_fields{}; ///< by FieldChoice
    FieldChoice m_chosenFields;
    QString m_file;
};
