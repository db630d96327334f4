// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <vector>

/// A file system as the desktop shows it.
struct Volume
{
    QString label;
    QString folder; ///< where it is mounted, as a path of the machine
};

/// Tells which discs and drives are there. The only door to the labels of file systems.
class Volumes
{
public:
    virtual ~Volumes() = default;

    /// The file systems mounted now, in the order in which they were mounted or, on Windows, of their drives.
    [[nodiscard]] virtual std::vector<Volume> mounted() const = 0;

protected:
    Volumes() = default;
    Volumes(const Volumes&) = default;
    Volumes& operator=(const Volumes&) = default;
};

/// The file systems of the machine. One whose label cannot be read goes by the name of its mount folder,
/// which a desktop names after the label.
class SystemVolumes final : public Volumes
{
public:
    [[nodiscard]] std::vector<Volume> mounted() const override;
};
