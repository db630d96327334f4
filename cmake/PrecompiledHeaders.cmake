# SPDX-License-Identifier: GPL-3.0-or-later
# The headers of libraries that most sources include, compiled once for each library instead of once for each source.
# Each source still includes what it uses: .ci/run compiles the core and its tests, source by source, with
# CMAKE_DISABLE_PRECOMPILE_HEADERS=ON, and fails if one does not.
set(ORVIK_STANDARD_HEADERS <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <set> <string>
    <string_view> <utility> <variant> <vector>)
set(ORVIK_CORE_HEADERS ${ORVIK_STANDARD_HEADERS} <SQLiteCpp/SQLiteCpp.h> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash>
    <QSet> <QString> <QStringList>)
set(ORVIK_WINDOW_HEADERS ${ORVIK_CORE_HEADERS} <QAbstractTableModel> <QAction> <QApplication> <QBoxLayout> <QComboBox>
    <QDialog> <QIcon> <QKeyEvent> <QLabel> <QLineEdit> <QListWidget> <QMenu> <QPainter> <QPushButton> <QToolBar>
    <QTreeView> <QUrl>)
set(ORVIK_TEST_HEADERS <gmock/gmock.h> <gtest/gtest.h> <random> <tuple> <QDirIterator> <QMap> <QProcess> <QRegularExpression>
    <QTemporaryDir>)
