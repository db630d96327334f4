// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/SettingsCommand.h"

#include "browse/commands/OpenCommand.h"
#include "browse/list/ListPane.h"
#include "platform/Messages.h"
#include "platform/SettingsStore.h"
#include "settings/frmSettings.h"
#include "state/ProgramState.h"

SettingsCommand::SettingsCommand(const Platform& platform, const ProgramState& state, ListPane& list,
                                 OpenCommand& open)
    : m_platform(platform),
      m_state(state),
      m_list(list),
      m_open(open),
      m_preferences(Preferences::read(platform.settings))
{
}

void SettingsCommand::apply()
{
    m_list.setTextSize(m_preferences.listTextSize);
    m_list.setYears(m_preferences.fourDigitYears ? Years::FourDigits : Years::TwoDigits);
    m_open.setDiscFolders(m_preferences.discFolders);
}

bool SettingsCommand::change(QWidget& window)
{
    const Preferences before = Preferences::read(m_platform.settings);
    std::optional<KeptBackups> backups;
    if (m_state.session.isOpen()) backups.emplace(m_state.folder);
    frmSettings dialog(before, {m_platform, m_state.home.root(), m_state.session.fileName(), backups},
                       &window);
    if (dialog.exec() != QDialog::Accepted) return false;
    const bool shownOtherwise = dialog.chosen().fourDigitYears != m_preferences.fourDigitYears;
    m_preferences = dialog.chosen();
    m_preferences.write(m_platform.settings, before);
    apply();
    const QString hindrance = m_platform.settings.hindrance();
    if (!hindrance.isEmpty()) m_platform.messages.show(hindrance);
    return shownOtherwise;
}
