#pragma once

#include <QWidget>

class HomeButton;
class QHBoxLayout;
class QLabel;

/// The home page: the way in to each kind of record.
class HomePage final : public QWidget
{
    Q_OBJECT

public:
    explicit HomePage(QWidget* parent);

    /// The line below the title; empty where no database is open.
    void setSubtitle(const QString& text);

Q_SIGNALS:
    /// Button 0 shows the documents, 1 the events, 2 the organizations, 3 searches, 4 opens the user's guide.
    void chosen(int button);

private:
    void addButton(int index, const QString& picture, const QString& caption, const QString& explanation);

    QLabel* m_subtitle;
    QHBoxLayout* m_buttons;
};
