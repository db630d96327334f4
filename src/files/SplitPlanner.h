// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/SplitPlan.h"

#include <QString>

/// The databases of a data folder and their files as they are now.
class SplitPlanner
{
public:
    /// `place` is where new folders are made.
    SplitPlanner(QString dataFolder, QString place);

    /// Whether there may be databases to part: a quick look.
    [[nodiscard]] bool mayBeNeeded() const;

    /// The plan that leaves one database in the folder: `preferred`, if that is one of those there, else
    /// `opened`. It is empty if there is no other, or if `opened` cannot be read. Nothing is changed. Throws
    /// Error if the folder cannot be read.
    [[nodiscard]] SplitPlan plan(const QString& opened, const QString& preferred) const;

    /// A path in the place that is free and that no move of the plan takes: the name, or with a number.
    [[nodiscard]] static QString freeFolder(const QString& place, const QString& name, const SplitPlan& plan);

private:
    QString m_dataFolder;
    QString m_place;
};
