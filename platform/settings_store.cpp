#include "platform/settings_store.h"

namespace merov::platform
{

IniSettings::IniSettings() : file_(QSettings::IniFormat, QSettings::UserScope, "Merov", "Merov")
{
    // Neither files of all users nor those of other programs of this name are asked.
    file_.setFallbacksEnabled(false);
}

std::optional<QString> IniSettings::Text(const QString& section, const QString& key) const
{
    const QVariant value = file_.value(section + "/" + key);
    // A line changed by hand into a list is no text of ours.
    if (value.typeId() != QMetaType::QString) return std::nullopt;
    return value.toString();
}

void IniSettings::SetText(const QString& section, const QString& key, const QString& text)
{
    file_.setValue(section + "/" + key, text);
}

} // namespace merov::platform
