// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The folders of the program, each as a program path below its base folder.
struct ProgramFolders
{
    static inline const QString documents = QStringLiteral("\\data\\documents\\");
    static inline const QString organizationCharts = QStringLiteral("\\data\\orgcharts\\");
    static inline const QString formerCharts = QStringLiteral("\\data\\orgcharts\\former\\");
    static inline const QString data = QStringLiteral("\\data\\");
    static inline const QString maps = QStringLiteral("\\data\\maps\\");

    /// Those that belong to a collection besides its database.
    static inline const QStringList ofFiles{documents, organizationCharts, maps};
};

/// A folder with a database and its files, and the one place that turns program paths such as
/// `\data\documents\` into paths of the machine. Letter case of stored names does not matter.
class ProgramFolder
{
public:
    /// `installed` is the folder of what comes with the program, or empty.
    explicit ProgramFolder(QString root, QString installed = {})
        : m_root(std::move(root)), m_installed(std::move(installed))
    {
    }

    /// The folder of a database: the files of its records are in folders beside it, whatever the folder that
    /// holds them all is called.
    [[nodiscard]] ProgramFolder ofDatabase(const QString& databaseFile) const;

    /// What the choice of the folder depends on.
    struct Surroundings
    {
        QString orvikHome;        ///< the environment's `ORVIK_HOME`, or empty
        QString executableFolder; ///< where the program runs from
        QString userDataFolder;   ///< the user's own data folder
    };

    /// `ORVIK_HOME` if set; else the executable's folder if it holds `data`; else `orvik` in the user's data.
    static QString choose(const Surroundings& surroundings);

    /// Fills a folder that does not exist yet with the data of a sample, whole or not at all; returns true if
    /// it did. If there is no sample, makes the empty data folders. A folder that exists is left alone.
    /// Throws Error if the folder cannot be made.
    static bool fillFromSample(const QString& root, const QString& sample);

    [[nodiscard]] const QString& root() const { return m_root; }

    /// The folder of all that belongs to the collection: the one that holds `data`. The data folder itself,
    /// if that is not called so, is all that a database has which is used where it is.
    [[nodiscard]] QString collection() const;

    /// The folder of what comes with the program, or an empty text.
    [[nodiscard]] const QString& installed() const { return m_installed; }

    /// A program path below this folder as a path of the machine; it need not exist.
    [[nodiscard]] QString machinePath(const QString& programPath) const;

    /// A program path of a folder as a path of the machine that ends with `/`: through the folders that are
    /// there, whatever the letter case of their names.
    [[nodiscard]] QString folderPath(const QString& programPath) const;

    /// A path of the machine in the program's form, with `\` between folders.
    [[nodiscard]] static QString programForm(const QString& machinePath);

    /// The file of that name in a program folder, whatever the letter case of the file and of the folders;
    /// `.htm` and `.html` are one.
    /// std::nullopt if there is none, or if the name or a link of that name leads out of the folder, or if it
    /// cannot be a name.
    [[nodiscard]] std::optional<QString> find(const QString& programPath, const QString& fileName) const;

    /// The file of that name in the folder's maps, else in those that come with the program; std::nullopt if
    /// there is none.
    [[nodiscard]] std::optional<QString> findMap(const QString& fileName) const;

    /// Whether a stored name can only mean a file in its folder.
    static bool isPlainName(const QString& fileName);

private:
    struct Place
    {
        QString folder;
        QStringList below; ///< folders that may have other letter cases on the disk
    };

    [[nodiscard]] Place placeOf(const QString& programPath) const;

    QString m_root;
    QString m_data; ///< what `\data` stands for, if that is not the folder of this name
    QString m_installed;
};
