// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/PrintWork.h"

#include "print/PrintTexts.h"
#include "print/PrintedPages.h"
#include "util/Error.h"

#include <QGuiApplication>
#include <QLocale>
#include <QPagedPaintDevice>
#include <QScreen>

#include <cerrno>

namespace {

[[noreturn]] void failAtDevice()
{
    throw Error(EIO, PrintTexts::tr("The printer does not take the pages."));
}

} // namespace

PrintWork::PrintWork(const QString& title, PrintedPages& pages, QPagedPaintDevice& device,
                     const QPageRanges& only)
    : m_title(title), m_pages(pages), m_device(device), m_only(only)
{
}

bool PrintWork::step()
{
    // only then is it known of how many pages each is one
    if (m_pages.measure()) return true;
    while (m_next < m_pages.count() && !m_only.isEmpty() && !m_only.contains(m_next + 1))
        ++m_next;
    if (m_next >= m_pages.count()) {
        if (m_painter.isActive() && !m_painter.end()) failAtDevice();
        return false;
    }
    paint(m_next);
    ++m_next;
    ++m_printed;
    return true;
}

void PrintWork::paint(int page)
{
    const bool isReady = m_painter.isActive() ? m_device.newPage() : m_painter.begin(&m_device);
    if (!isReady) failAtDevice();
    m_painter.save();
    const double scale = static_cast<double>(m_device.logicalDpiX()) / PageFormat::twipsPerInch;
    m_painter.scale(scale, scale);
    m_pages.paint(m_painter, page);
    m_painter.restore();
}

QString PrintWork::text() const
{
    const QLocale locale;
    if (!m_pages.isMeasured())
        return PrintTexts::tr("Laying out page %1").arg(locale.toString(m_pages.count()));
    return PrintTexts::tr("Page %1 of %2").arg(locale.toString(m_next), locale.toString(m_pages.count()));
}

std::optional<int> PrintWork::percent() const
{
    if (!m_pages.isMeasured()) return static_cast<int>(m_pages.measured() * 100);
    return m_pages.count() == 0 ? 100 : m_next * 100 / m_pages.count();
}

int PrintWork::resolution()
{
    return qRound(QGuiApplication::primaryScreen()->logicalDotsPerInch());
}
