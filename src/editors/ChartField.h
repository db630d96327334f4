// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include <optional>

class PathEdit;
class QLabel;
class QPushButton;

/// The path of an organization's chart, with a button that browses for it. If a save would drop the chart,
/// because there is neither a file at the path nor a stored copy of it, a line below says so; a click takes
/// another stored copy instead.
class ChartField final : public QWidget
{
    Q_OBJECT

public:
    explicit ChartField(QWidget* parent);

    [[nodiscard]] QString path() const;
    void setPath(const QString& path);

    /// Says that a save drops the chart; `storedCopy` is a file that can be taken instead, if there is one.
    void warn(const QString& text, const std::optional<QString>& storedCopy);
    void dropWarning();

Q_SIGNALS:
    void browsePressed();
    void pathChanged(const QString& path);

private:
    PathEdit* txtOrganizationChart;
    QPushButton* cmdUploadOrgChart;
    QWidget* m_warning;
    QLabel* m_warningText;
    QPushButton* m_takeCopy;
    QString m_storedCopy;
};
