// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportFile.h"

namespace {

constexpr std::size_t longText = 1 << 18; ///< bytes

} // namespace

void ExportFile::passOn()
{
    if (m_text.size() < longText) return;
    m_file.write(m_text);
    m_text.clear();
}

void ExportFile::finish()
{
    m_file.write(m_text);
    m_text.clear();
    m_file.finish();
}
