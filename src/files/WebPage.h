// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <string>

/// Edits saved web pages byte for byte, whatever their encoding.
namespace WebPage {

/// The page with every occurrence of the names of its folder, in their letter case, replaced by the new name.
/// A name is found as it is in UTF-8 and Latin-1 pages, and as browsers write it in an address
/// (`My%20page_files`).
std::string withFolderRenamed(const std::string& page, const QStringList& names, const QString& newName);

} // namespace WebPage
