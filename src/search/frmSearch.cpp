// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/frmSearch.h"

#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "search/FoundInFiles.h"
#include "search/KeywordSearch.h"
#include "views/ViewHistory.h"
#include "widgets/LineEdit.h"
#include "widgets/LinkButton.h"
#include "widgets/WaitCursor.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

/// The colour of the link while it can be followed.
constexpr QColor liveLink(0, 0, 255);
constexpr int keywordWidth = 420;
constexpr double hintSize = 0.9;

} // namespace

frmSearch::frmSearch(const SearchSurroundings& surroundings, QWidget* parent)
    : QDialog(parent), m_at(surroundings)
{
    setObjectName(QStringLiteral("frmSearch"));
    setWindowTitle(tr("Keyword Search"));
    QGroupBox* scopeBox = makeScopes();
    makeKeywords();
    makeFiles();
    makeButtons();
    layOut(scopeBox);
}

QGroupBox* frmSearch::makeScopes()
{
    auto* box = new QGroupBox(tr("Search for"), this);
    box->setObjectName(QStringLiteral("Frame1"));
    auto* layout = new QVBoxLayout(box);
    const std::array captions{tr("ALL (Documents, Events, and Organizations)"), tr("Documents ONLY"),
                              tr("Events ONLY"), tr("Organizations ONLY")};
    for (std::size_t i = 0; i < scopes.size(); ++i) {
        m_options[i] = new QRadioButton(captions[i], box);
        m_options[i]->setObjectName(QStringLiteral("optSearch(%1)").arg(i));
        layout->addWidget(m_options[i]);
        connect(m_options[i], &QRadioButton::toggled, this, [this, scope = scopes[i]](bool chosen) {
            if (chosen) chooseScope(scope);
        });
    }
    return box;
}

void frmSearch::makeKeywords()
{
    m_keywords = new LineEdit(this);
    m_keywords->setObjectName(QStringLiteral("txtKeywords"));
    m_keywords->setAccessibleName(tr("Keywords"));
    m_keywords->setMinimumWidth(keywordWidth);
    m_keywords->setClearButtonEnabled(true);
}

void frmSearch::makeFiles()
{
    m_files = new QCheckBox(tr("Also in the &files"), this);
    m_files->setObjectName(QStringLiteral("chkFiles"));
}

void frmSearch::makeButtons()
{
    m_go = new QPushButton(tr("&GO"), this);
    m_go->setObjectName(QStringLiteral("cmdGO"));
    m_go->setAccessibleName(tr("Search"));
    m_go->setDefault(true);
    connect(m_go, &QPushButton::clicked, this, &frmSearch::cmdGO);

    m_cancel = new QPushButton(tr("Cancel"), this);
    m_cancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(m_cancel, &QPushButton::clicked, this, &frmSearch::reject);

    m_advanced = new LinkButton(this);
    m_advanced->setObjectName(QStringLiteral("lblAdvancedSearch"));
    m_advanced->setLink(tr("Advanced Search"));
    connect(m_advanced, &LinkButton::clicked, this, &frmSearch::followLink);
}

void frmSearch::layOut(QGroupBox* scopeBox)
{
    auto* label = new QLabel(tr("Keyword(s):"), this);
    label->setObjectName(QStringLiteral("Label1"));
    label->setBuddy(m_keywords);
    auto* hint = new QLabel(tr("Up to four words, all of them in the name or all of them in the description. "
                               "% stands for any text, _ for any character."),
                            this);
    hint->setWordWrap(true);
    QFont small = hint->font();
    small.setPointSizeF(small.pointSizeF() * hintSize);
    hint->setFont(small);

    auto* words = new QGridLayout;
    words->addWidget(label, 0, 0);
    words->addWidget(m_keywords, 0, 1);
    words->addWidget(hint, 1, 1);
    words->addWidget(m_files, 2, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_advanced);
    buttons->addStretch();
    buttons->addWidget(m_go);
    buttons->addWidget(m_cancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scopeBox);
    layout->addLayout(words);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(m_keywords, m_files);
    setTabOrder(m_files, m_go);
    setTabOrder(m_go, m_cancel);
    setTabOrder(m_cancel, m_advanced);
}

void frmSearch::doSearch()
{
    const std::optional<RecordKind> shown = recordKindOf(m_at.history.currentKind());
    for (std::size_t i = 0; i < scopes.size(); ++i)
        if (scopes[i] == shown) m_options[i]->setChecked(true);
    chooseScope(shown);
    m_keywords->setText(m_lastKeywords);
    m_keywords->selectAll();
    m_files->setChecked(m_lastInFiles);
    m_keywords->setFocus();
    open();
}

void frmSearch::search(std::optional<RecordKind> scope, const QString& text)
{
    chooseScope(scope);
    m_keywords->setText(text);
    cmdGO();
}

void frmSearch::chooseScope(std::optional<RecordKind> scope)
{
    m_scope = scope;
    m_advanced->setColour(m_scope ? liveLink : palette().color(QPalette::ButtonText));
    enableFiles();
}

/// The box keeps its mark while it cannot be used.
void frmSearch::enableFiles()
{
    const bool hasFiles = m_scope.value_or(RecordKind::Document) == RecordKind::Document;
    const QString hindrance =
        hasFiles ? FoundInFiles::hindrance(m_at.session) : tr("Only documents have files that are searched.");
    m_files->setEnabled(hindrance.isEmpty());
    m_files->setToolTip(hindrance.isEmpty()
                            ? tr("Finds documents, too, whose files have all of the words, or "
                                 "words that begin with them.")
                            : hindrance);
}

void frmSearch::followLink()
{
    if (!m_scope) {
        m_at.messages.show(tr("Advanced Search not available when searching All"));
        return;
    }
    accept();
    Q_EMIT advancedSearchChosen(*m_scope);
}

void frmSearch::cmdGO()
{
    if (m_keywords->text().trimmed().isEmpty()) {
        m_at.messages.show(tr("No keyword entered."));
        m_keywords->setFocus();
        return;
    }
    doKeywordSearch();
}

void frmSearch::doKeywordSearch()
{
    runProcedure(m_at.messages, QStringLiteral("doKeywordSearch"), [this] {
        const QString text = m_keywords->text();
        m_lastKeywords = text;
        m_lastInFiles = m_files->isChecked();
        if (splitWords(text).moreThanMost) {
            m_at.messages.show(tr("Search Limited to 4 Keywords. First 4 Keywords used."));
        }
        clsView found = keywordView(m_at.queries, m_scope, text, m_lastInFiles && m_files->isEnabled());
        // a list yields as it fills: close first, so that nothing in the dialog can be pressed again
        accept();
        const WaitCursor wait;
        m_at.history.addView(std::move(found));
    });
}
