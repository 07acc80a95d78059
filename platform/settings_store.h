#pragma once

#include <QSettings>
#include <QString>

#include <optional>

namespace merov::platform
{

/// The user's settings: texts that outlive a run, each under a section and a key.
class SettingsStore
{
public:
    virtual ~SettingsStore() = default;

    /// The stored text; nothing where the key is missing.
    virtual std::optional<QString> Text(const QString& section, const QString& key) const = 0;

    /// Stores a text in place of what stood there. Where the store can't be written the text lasts as
    /// long as this object; there is no message.
    virtual void SetText(const QString& section, const QString& key, const QString& text) = 0;
};

/// The settings in the user's own file, Merov/Merov.ini in the folder of configurations. It is written
/// at the latest when this object goes.
class IniSettings : public SettingsStore
{
public:
    IniSettings();

    std::optional<QString> Text(const QString& section, const QString& key) const override;
    void SetText(const QString& section, const QString& key, const QString& text) override;

private:
    QSettings file_;
};

} // namespace merov::platform
