// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/home/HomePage.h"

#include "browse/home/HomeButton.h"
#include "widgets/IconSet.h"
#include "widgets/LinkButton.h"
#include "widgets/PlainToolTip.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int buttonSpacing = 20;
constexpr int titleSpacing = 28;

/// More would not fit below the buttons on a small screen; the menu has the others.
constexpr std::size_t mostLinks = 4;
constexpr int widestLink = 480;

} // namespace

HomePage::HomePage(QWidget* parent)
    : QWidget(parent),
      m_subtitle(new QLabel(this)),
      m_beginning(new QWidget(this)),
      m_recent(new QWidget(this)),
      m_buttons(new QHBoxLayout)
{
    setObjectName(QStringLiteral("pnlHome"));
    setAccessibleName(tr("Home page"));

    auto* title = new QLabel(tr("Orvik Database"), this);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 2.2);
    font.setBold(true);
    title->setFont(font);
    title->setAlignment(Qt::AlignHCenter);
    m_subtitle->setAlignment(Qt::AlignHCenter);
    m_subtitle->setTextFormat(Qt::PlainText);

    makeBeginning();
    m_buttons->setSpacing(buttonSpacing);
    m_buttons->addStretch();
    addKind(RecordKind::Document, QStringLiteral("home-documents"), tr("&Documents"),
            tr("Reports, publications and pictures"));
    addKind(RecordKind::Event, QStringLiteral("home-events"), tr("&Events"), tr("What happened, and when"));
    addKind(RecordKind::Organization, QStringLiteral("home-organizations"), tr("&Organizations"),
            tr("Who took part, and where they are"));
    connect(
        &addButton(QStringLiteral("home-search"), tr("Sear&ch"), tr("Find words in records of every kind")),
        &QAbstractButton::clicked, this, &HomePage::searchChosen);
    connect(&addButton(QStringLiteral("home-help"), tr("Hel&p"), tr("How to do what, in the user's guide")),
            &QAbstractButton::clicked, this, &HomePage::helpChosen);
    m_buttons->addStretch();
    m_recent->setObjectName(QStringLiteral("pnlRecent"));
    auto* recent = new QVBoxLayout(m_recent);
    recent->setContentsMargins(0, buttonSpacing, 0, 0);
    recent->setSpacing(0);
    m_recent->hide();

    auto* layout = new QVBoxLayout(this);
    layout->addStretch(2);
    layout->addWidget(title);
    layout->addWidget(m_subtitle);
    layout->addWidget(m_beginning);
    layout->addSpacing(titleSpacing);
    layout->addLayout(m_buttons);
    layout->addWidget(m_recent);
    layout->addStretch(3);
}

void HomePage::setSubtitle(const QString& text)
{
    m_subtitle->setText(text);
}

/// What a user without a database can begin with.
void HomePage::makeBeginning()
{
    m_beginning->setObjectName(QStringLiteral("pnlBeginning"));
    auto* row = new QHBoxLayout(m_beginning);
    row->addStretch();
    const auto add = [&](const char* name, const QString& icon, const QString& text, auto signal) {
        auto* button = new QPushButton(IconSet::themeIcon(icon), text, m_beginning);
        button->setObjectName(QString::fromLatin1(name));
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, signal);
        row->addWidget(button);
        return button;
    };
    add("cmdNew", QStringLiteral("folder-new"), tr("Ne&w Collection…"), &HomePage::newChosen);
    add("cmdOpen", QStringLiteral("document-open"), tr("Open Data&base…"), &HomePage::openChosen);
    m_sample =
        add("cmdSample", QStringLiteral("view-visible"), tr("&Look at the Sample"), &HomePage::sampleChosen);
    row->addStretch();
    m_beginning->hide();
}

void HomePage::setBeginning(bool isShown, const QString& noSample)
{
    m_beginning->setVisible(isShown);
    m_sample->setEnabled(noSample.isEmpty());
    m_sample->setToolTip(noSample);
}

void HomePage::setRecent(const std::vector<Link>& databases)
{
    QLayout& column = *m_recent->layout();
    while (QLayoutItem* item = column.takeAt(0)) {
        // one of the links may be what calls this
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
    m_recent->setVisible(!databases.empty());
    if (databases.empty()) return;
    column.addWidget(new QLabel(tr("Recent databases:"), m_recent));
    for (std::size_t i = 0; i < std::min(databases.size(), mostLinks); ++i) {
        auto* link = new LinkButton(m_recent);
        link->setObjectName(QStringLiteral("lblRecent(%1)").arg(i));
        link->setLink(fontMetrics().elidedText(databases[i].caption, Qt::ElideMiddle, widestLink));
        link->setAccessibleName(databases[i].caption);
        link->setToolTip(PlainToolTip::text(databases[i].tip));
        connect(link, &LinkButton::clicked, this,
                [this, name = databases[i].name] { Q_EMIT recentChosen(name); });
        column.addWidget(link);
    }
    for (int i = 0; i < column.count(); ++i)
        column.itemAt(i)->setAlignment(Qt::AlignHCenter);
}

void HomePage::addKind(RecordKind kind, const QString& picture, const QString& caption,
                       const QString& explanation)
{
    connect(&addButton(picture, caption, explanation), &QAbstractButton::clicked, this,
            [this, kind] { Q_EMIT recordsChosen(kind); });
}

HomeButton& HomePage::addButton(const QString& picture, const QString& caption, const QString& explanation)
{
    auto* button =
        new HomeButton(QStringLiteral(":/pictures/%1.svg").arg(picture), caption, explanation, this);
    button->setObjectName(QStringLiteral("Image1(%1)").arg(m_count++));
    QString name = caption;
    button->setAccessibleName(name.remove(u'&'));
    m_buttons->addWidget(button);
    return *button;
}
