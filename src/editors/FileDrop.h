#pragma once

#include <QObject>

class QMimeData;
class QWidget;

/// Takes a file that is dropped anywhere on a window, also on a field that would else take its name as text.
/// Lives as long as the window.
class FileDrop final : public QObject
{
    Q_OBJECT

public:
    /// Watches the window and the parts that it has now.
    explicit FileDrop(QWidget* window);

    void setEnabled(bool enabled) { m_isEnabled = enabled; }

Q_SIGNALS:
    /// A file of this machine was dropped.
    void dropped(const QString& file);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_isEnabled = true;
};
