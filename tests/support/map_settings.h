#pragma once

#include "platform/settings_store.h"

#include <map>
#include <utility>

namespace merov::test
{

/// Settings in memory.
class MapSettings : public platform::SettingsStore
{
public:
    std::optional<QString> Text(const QString& section, const QString& key) const override
    {
        const auto found = Texts.find({section, key});
        return found == Texts.end() ? std::nullopt : std::optional(found->second);
    }
    void SetText(const QString& section, const QString& key, const QString& text) override
    {
        Texts[{section, key}] = text;
    }

    std::map<std::pair<QString, QString>, QString> Texts; ///< by section and key
};

} // namespace merov::test
