#pragma once

#include <QWidget>

#include <optional>

class PathEdit;
class QLabel;
class QPushButton;

/// The path of an organization's chart, with a button that browses for it. Where a save would drop the chart,
/// since no file is at the path any more, a line below says so, and a click takes the stored copy instead.
class ChartField final : public QWidget
{
    Q_OBJECT

public:
    explicit ChartField(QWidget* parent);

    [[nodiscard]] QString path() const;
    void setPath(const QString& path);

    /// Says that a save drops the chart; `storedCopy` is what can be taken instead, where there is one.
    void warn(const std::optional<QString>& storedCopy);
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
