// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMainWindow>
#include <QString>
#include <QStringList>
#include <QTreeView>

#include <functional>

/// Walks the program's window through what the user's guide tells, and takes a picture at each station.
/// Windows and their parts are found by object name.
class GuidePictures
{
public:
    /// The window must be shown and outlive this object; the pictures go into `folder`, which exists.
    GuidePictures(QMainWindow& window, QString folder) : m_window(window), m_folder(std::move(folder)) {}

    /// Takes all pictures; what could not be taken, and why, one line each.
    [[nodiscard]] QStringList takeAll();

private:
    using Visit = std::function<void(QWidget&)>;

    void showLists();
    void showFilter();
    void showDetails();
    void showGraphics();
    void showRowMenu();
    void showNavigateMenu();
    void showSearch();
    void showSearchInFiles();
    void showAdvancedSearch();
    void showEditors();
    void showHistory();
    void showExport();
    void showCheck();
    void showCollections();
    void showAbout();

    template <typename Widget>
    Widget& part(QWidget& of, const char* name);
    QTreeView& list() { return part<QTreeView>(m_window, "ListView1"); }

    void awaitReading();
    void trigger(const char* action);
    void press(QWidget& of, const char* button);
    void select(const QString& beginning);
    void inDialog(const char* name, const std::function<void()>& opener, const Visit& visit);
    [[nodiscard]] static QString visitAndClose(QWidget& dialog, const Visit& visit);
    void save(const QPixmap& picture, const char* name);

    QMainWindow& m_window;
    QString m_folder;
};
