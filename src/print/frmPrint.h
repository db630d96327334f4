// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"
#include "print/PaperChoice.h"
#include "print/PrintedPages.h"
#include "widgets/GraphicPicture.h"

#include <QDialog>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

class DatabaseSession;
class PagePreview;
class QBoxLayout;
class QButtonGroup;
class QComboBox;
class QGroupBox;
class QLabel;
class QToolButton;
class RecordListModel;

/// The window in which the user chooses what is printed of a view, sees its pages, and prints them or has
/// them written as PDF. The pages are measured while the window is open.
class frmPrint final : public QDialog
{
    Q_OBJECT

public:
    /// A view. Session and list must outlive the window and stay as they are.
    struct View
    {
        DatabaseSession& session;
        const RecordListModel& list;
        QString caption;
        std::vector<qint64> selected;
        std::optional<GraphicPicture> graphic;
        QString noGraphic; ///< why there is none, in a sentence for the user
    };

    frmPrint(const Platform& platform, View view, QWidget* parent);

    /// What was printed or saved, for the user, once the window was accepted.
    [[nodiscard]] const QString& outcome() const { return m_outcome; }

    void done(int result) override;

private:
    QGroupBox* makeParts();
    void addPart(QGroupBox& box, PrintedPart part, const char* name, const QString& text,
                 const QString& hindrance);
    QGroupBox* makePaper();
    QBoxLayout* makeTurning();
    QToolButton* makeTurn(const char* name, const QString& icon, const QString& text, int pages);
    QBoxLayout* makeButtons();
    [[nodiscard]] PrintedPart part() const;
    [[nodiscard]] QPageLayout layout() const;
    [[nodiscard]] QPageLayout::Orientation usualOrientation() const;
    [[nodiscard]] std::unique_ptr<PrintedPages> makePages() const;
    void choosePart();
    void choosePaper();
    void chooseOrientation();
    void begin();
    void goOn();
    void turn(int pages);
    void showPage();
    void showNumber();
    void print();
    void savePdf();
    template <typename Work>
    void finish(const char* procedure, Work&& work);

    Platform m_platform;
    View m_view;
    PaperChoice m_choice;
    std::unique_ptr<PrintedPages> m_pages;
    QTimer m_timer;
    int m_page = 0;
    QString m_outcome;
    QButtonGroup* m_parts = nullptr;
    QComboBox* cmbPaper = nullptr;
    QComboBox* cmbOrientation = nullptr;
    PagePreview* m_preview = nullptr;
    QLabel* lblPage = nullptr;
    QToolButton* cmdFirst = nullptr;
    QToolButton* cmdPrevious = nullptr;
    QToolButton* cmdNext = nullptr;
    QToolButton* cmdLast = nullptr;
};
