// SPDX-License-Identifier: GPL-3.0-or-later

// An empty window, which ends the program once it is painted.

#include "EndAtOnce.h"

#include <QApplication>
#include <QMainWindow>

namespace {

class EmptyWindow final : public QMainWindow
{
protected:
    void paintEvent(QPaintEvent* event) override
    {
        QMainWindow::paintEvent(event);
        endAtOnce();
    }
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    EmptyWindow window;
    window.resize(1152, 700);
    window.show();
    return QApplication::exec();
}
