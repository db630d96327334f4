// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/frmAbout.h"

#include "help/AboutText.h"
#include "platform/Shell.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(640, 580);
constexpr int pictureSize = 64;

} // namespace

frmAbout::frmAbout(DatabaseSession& session, Shell& shell, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About Orvik Database"));
    resize(firstSize);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeHeading());
    layout->addWidget(makeDatabaseLine(session));
    layout->addWidget(makeLicences(shell), 1);
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

QWidget* frmAbout::makeHeading()
{
    auto* heading = new QWidget(this);
    auto* picture = new QLabel(heading);
    picture->setPixmap(QIcon(QStringLiteral(":/pictures/orvik-database.svg"))
                           .pixmap(QSize(pictureSize, pictureSize), devicePixelRatioF()));
    auto* text = new QLabel(heading);
    text->setObjectName(QStringLiteral("lblVersion"));
    text->setTextFormat(Qt::RichText);
    text->setText(tr("<h2>Orvik Database</h2>Version %1<br>A reference collection of documents, events and "
                     "organizations")
                      .arg(AboutText::version()));
    auto* layout = new QHBoxLayout(heading);
    layout->setContentsMargins({});
    layout->addWidget(picture);
    layout->addSpacing(pictureSize / 4);
    layout->addWidget(text, 1);
    return heading;
}

QWidget* frmAbout::makeDatabaseLine(DatabaseSession& session)
{
    auto* line = new QLabel(this);
    line->setObjectName(QStringLiteral("lblDatabase"));
    line->setTextFormat(Qt::RichText);
    line->setWordWrap(true);
    line->setText(AboutText::database(session));
    line->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return line;
}

QWidget* frmAbout::makeLicences(Shell& shell)
{
    auto* browser = new QTextBrowser(this);
    browser->setObjectName(QStringLiteral("txtLicences"));
    browser->setAccessibleName(tr("Licence, libraries and data"));
    browser->setOpenLinks(false);
    browser->setHtml(AboutText::licences());
    connect(browser, &QTextBrowser::anchorClicked, this,
            [&shell](const QUrl& address) { static_cast<void>(shell.open(address)); });
    return browser;
}
