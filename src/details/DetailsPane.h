// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "details/RecordPage.h"

#include <QWidget>

class FilePicture;
class QPushButton;
class QTextBrowser;

/// What the details show of a record.
struct DetailedRecord
{
    LinkedRecord record;
    QString page;         ///< HTML
    bool hasFile = false; ///< whether the record names a file
    QString file = {};    ///< path of the machine, or empty if the file does not lie in the collection
};

/// A record to be read: its page, the first page of its file, and a button that opens the file.
class DetailsPane final : public QWidget
{
    Q_OBJECT

public:
    /// `programs` is the folder of the program that makes pictures of files; empty for none.
    DetailsPane(const QString& programs, QWidget* parent);

    /// Shows a record; if it is the one that is shown, the user's place in its page stays.
    void showRecord(const DetailedRecord& record);

    /// Says why there is no record to be shown.
    void showText(const QString& text);

Q_SIGNALS:
    void linkFollowed(const QUrl& address);

    /// The user wants the file of the record that is shown.
    void fileAsked(RecordKind kind, qint64 identifier);

protected:
    void changeEvent(QEvent* event) override;

private:
    void setPage(const QString& html);

    QTextBrowser* m_text;
    FilePicture* m_picture;
    QPushButton* m_openFile;
    LinkedRecord m_record;
    QString m_page;            ///< as HTML
    double m_captionWidth = 0; ///< pixels
};
